#include "Component.h"

#include <stdlib.h>

#include "SignalCleanup.h"
#include "host/MGlobals.h"
#include "platform/automation/DTE.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/ResultFileDialog.h"
#include "platform/suite/ServiceObject.h"
#include "results/MGlobals_ResultsDb.h"

namespace app {

namespace fs = std::filesystem;
using annotra::CXmlAnalyzer;
namespace MGlobals = annotra::MGlobals;

namespace {

// `text` on one line: each run of line breaks becomes one blank.
std::string OneLine(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c != '\r' && c != '\n') out += c;
    else if (!out.empty() && out.back() != ' ') out += ' ';
  }
  return out;
}

// Keeps the component's messages and error reports of one command instead of showing
// them, so that the command line can say in one line what failed. A question is
// answered with its default, as on the command line without a terminal.
class Failures : public platform::forms::MessageBoxPresenter, public platform::suite::ErrorReport {
 public:
  int Show(const std::string& prompt, int style, const std::string&) override {
    Note(prompt);
    return platform::forms::DefaultAnswer(style);
  }
  void Report(const std::string& message, const std::string& source, int line, bool) override {
    Note(source.empty() ? message : message + " [" + source + ":" + std::to_string(line) + "]");
  }
  const std::string& first() const { return m_first; }

 private:
  void Note(const std::string& text) {
    if (m_first.empty()) m_first = OneLine(text);
  }
  std::string m_first;
};

}  // namespace

Component::Component() {
  std::string pattern = (fs::temp_directory_path() / "annotra-run-XXXXXX").string();
  if (mkdtemp(pattern.data())) {
    m_dataFolder = pattern;
    MGlobals::Service()->SetDataFolder(m_dataFolder.string());
  }
}

Component::~Component() {
  if (m_started) {
    m_analyzer.Shutdown();
    signals::ForgetCleanupFile();
  }
  MGlobals::Service()->SetDataFolder("");
  std::error_code ec;
  if (!m_dataFolder.empty()) fs::remove_all(m_dataFolder, ec);
}

std::string Component::Start(const platform::Ref<platform::automation::DTE>& dte) {
  if (m_dataFolder.empty()) return "no folder can be made in <" + fs::temp_directory_path().string() + ">";
  signals::BlockedSignals blocked;
  m_analyzer.Init(dte, MGlobals::AddInObject, MGlobals::AppSettingsObject_HKCU, MGlobals::AppSettingsObject_HKLM,
                  MGlobals::WorkspaceObject, MGlobals::TeamDB, MGlobals::PersonalDB, true);
  m_started = true;
  if (!MGlobals::XMLAnalyzerDb_IsCreated())
    return "the results database cannot be made in <" + fs::temp_directory_path().string() + ">";
  signals::SetCleanupFile(MGlobals::XMLAnalyzerDbFile());
  return "";
}

std::string Component::Save(const std::string& file) { return FileCommand(CXmlAnalyzer::kSaveToFile, file); }

std::string Component::Load(const std::string& file) { return FileCommand(CXmlAnalyzer::kLoadFromFile, file); }

std::string Component::FileCommand(int32_t command, const std::string& file) {
  std::error_code ec;
  const fs::path path = fs::absolute(file, ec);
  if (ec || file.empty()) return "<" + file + "> is no file name";
  auto dialogs = std::make_shared<platform::suite::ScriptedFileDialogs>();
  dialogs->Answer(path.string());
  // The file was named on the command line: replacing it is what was asked.
  dialogs->overwrite = true;
  platform::suite::ScopedFileDialogs scopedDialogs(dialogs);
  auto failures = std::make_shared<Failures>();
  {
    platform::forms::ScopedMessageBoxes scopedBoxes(failures);
    platform::suite::ScopedErrorReport scopedReport(failures);
    m_analyzer.ExecuteCommand(command);
  }
  if (!dialogs->refusals.empty()) return OneLine(dialogs->refusals.front());
  if (dialogs->shown.empty()) return "the file dialog was not shown";
  return failures->first();
}

}  // namespace app
