// CXmlAnalyzerWindow: the result files. SaveFile writes the results table to a result
// file (a database with the property "SBType" = "xmm" and the table "XMLAnalyzer") or
// exports the grid's visible columns to a spreadsheet; LoadFile puts the rows of a
// result file back into the results table. Both choose the file in the suite's results
// file dialog, opened in the folder used last ("LastPaths") or in the default results
// folder.
//
// The steps are numbered as reported: 1 to 5 prepare and show the dialog, the
// operation's own steps follow from 6.

#include <unistd.h>

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "pane/DocXMLAnalyzer.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Window.h"
#include "platform/core/AsciiText.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ResultFileDialog.h"
#include "platform/suite/ServiceObject.h"
#include "results/MGlobals_ResultsDb.h"

namespace annotra {

using platform::Ref;
namespace dao = platform::dao;
namespace forms = platform::forms;
namespace suite = platform::suite;

namespace {

constexpr const char* kExtension = "xmm";
constexpr const char* kLoadTitle = "Select the file to load in the Annotra pane";
constexpr const char* kSaveTitle = "Save this Annotra pane contents as";
constexpr int32_t kLoadFlags = suite::OFN_HIDEREADONLY | suite::OFN_FILEMUSTEXIST | suite::OFN_EXPLORER |
                               suite::OFN_LONGNAMES;  // 0x281004
constexpr int32_t kSaveFlags = suite::OFN_OVERWRITEPROMPT | suite::OFN_HIDEREADONLY | suite::OFN_PATHMUSTEXIST |
                               suite::OFN_EXPLORER | suite::OFN_LONGNAMES;  // 0x280806
static_assert(kLoadFlags == 0x281004 && kSaveFlags == 0x280806);

std::string Source(const char* procedure) { return std::string("Quillmark.CXmlAnalyzerWindow.") + procedure; }

std::string LoadFilter() { return std::string("Scribane Annotra Files (*.") + kExtension + ")|*." + kExtension; }
std::string SaveFilter() { return LoadFilter() + "|Microsoft Excel Files (*.xls)|*.xls"; }

// The last four characters of `path` in lower case.
std::string LastFour(const std::string& path) {
  return platform::AsciiLower(path.size() >= 4 ? path.substr(path.size() - 4) : path);
}

void ShowSaveError(int number, const std::string& description) {
  forms::MsgBox("There was an error saving the Annotra pane contents to the "
                "specified file.\r\n(" +
                    std::to_string(number) + ") " + description,
                forms::vbOKOnly + forms::vbCritical, "Scribane");
}

void ShowLoadError(const std::string& path) {
  forms::MsgBox("Unable to load the file\r\n" + path + "\r\n\r\nThe file has an unrecognized format or is corrupt.",
                forms::vbOKOnly + forms::vbCritical, "Scribane");
}

// Steps 1 to 5 of both operations: makes the dialog, opens it in the folder used last
// (else in the default results folder, made when missing) in `mode`, and returns the
// chosen path trimmed of blanks; "" when the user cancelled.
std::string ChooseFile(const Steps& step, Ref<suite::ResultFileDialog>& dialog, const char* title,
                       const std::string& filter, int32_t flags, int mode) {
  step(1, [&] {
    dialog = std::make_shared<suite::ResultFileDialog>();
    dialog->SetTitle(title);
    dialog->SetDefaultExt(kExtension);
    dialog->SetFilter(filter);
    dialog->SetFlags(flags);
  });
  step(1, [&] { dialog->SetOwner(MGlobals::DTEObject->MainWindow()->HWnd()); });
  std::string remembered;
  step(2, [&] { remembered = MGlobals::GetLastUsedPath(key::SaveRestoreXMLAnalyzer); });
  // The suite's base folder for saved results is its data folder.
  std::string folder;
  step(3, [&] {
    folder = MGlobals::Service()->DataFolder() + "Results/";
    MGlobals::Service()->EnsureFolder(folder);
  });
  step(4, [&] { dialog->SetInitialFolder(platform::Trim(remembered, " ").empty() ? folder : remembered); });
  std::string path;
  step(5, [&] {
    dialog->Show(mode);
    path = platform::Trim(dialog->FileName(), " ");
  });
  return path;
}

// Runs `action`, catching its error into `number` and `description`; true when it ran
// through.
template <class F>
bool Caught(F&& action, int& number, std::string& description) {
  try {
    action();
    return true;
  } catch (const platform::Error& e) {
    number = e.number;
    description = e.description;
  } catch (const std::exception& e) {
    number = platform::err::kInternal;
    description = e.what();
  }
  return false;
}

}  // namespace

void CXmlAnalyzerWindow::SaveFile() {
  Steps step(Source("SaveFile"));
  Ref<suite::ResultFileDialog> dialog;
  std::string path = ChooseFile(step, dialog, kSaveTitle, SaveFilter(), kSaveFlags, suite::kFileDialogSave);
  if (path.empty()) return;
  std::string folder;
  step(5, [&] { folder = dialog->FileFolder(); });

  // Whatever is at the chosen path goes first (not a folder); a failure is passed over.
  ::unlink(path.c_str());
  std::string extension = LastFour(path);
  int number = 0;
  std::string description;
  if (extension != ".xls") {
    // The deletion above used the path as chosen.
    if (extension != ".xmm") path += std::string(".") + kExtension;
    Ref<dao::Database> file;
    bool created = Caught([&] { file = MGlobals::WorkspaceObject->CreateDatabase(path, dao::dbLangGeneral, dao::dbVersion30); },
                          number, description);
    if (!created || !file) {
      ShowSaveError(number, description);
      return;
    }
    step(9, [&] { MGlobals::SaveLastUsedPath(key::SaveRestoreXMLAnalyzer, folder); });
    step(10, [&] { file->Properties()->Append(file->CreateProperty("SBType", dao::dbText, kExtension)); });
    step(10, [&] { file->Close(); });
    step(11, [&] {
      MGlobals::XMLAnalyzerDb()->Execute(
          "SELECT " + m_sDbTableName + ".* INTO XMLAnalyzer IN \"" + path + "\" FROM " + m_sDbTableName,
          dao::dbFailOnError);
    });
  } else {
    std::string columns;
    step(12, [&] { columns = m_DocXMLAnalyzer->GetGridVisibleColumns(); });
    const std::string statement = "SELECT " + columns + " INTO [Excel 8.0; DATABASE=" + path +
                                  "].[XMLAnalyzer] From [" + m_sDbTableName + "]";
    bool exported = Caught([&] { MGlobals::XMLAnalyzerDb()->Execute(statement, dao::dbFailOnError); }, number, description);
    if (!exported) {
      ShowSaveError(number, description);
      return;
    }
    step(15, [&] { MGlobals::SaveLastUsedPath(key::SaveRestoreXMLAnalyzer, folder); });
  }
  dialog.reset();
}

void CXmlAnalyzerWindow::LoadFile() {
  Steps step(Source("LoadFile"));
  Ref<suite::ResultFileDialog> dialog;
  const std::string path = ChooseFile(step, dialog, kLoadTitle, LoadFilter(), kLoadFlags, suite::kFileDialogOpen);
  if (path.empty()) return;
  // The folder is remembered before the file is looked at.
  step(6, [&] {
    std::string folder = dialog->FileFolder();
    MGlobals::SaveLastUsedPath(key::SaveRestoreXMLAnalyzer, folder);
  });
  dialog.reset();

  // Only a file marked as a result file is taken; whatever else it holds does not run
  // (the database layer opens files of others defensively).
  Ref<dao::Database> file;
  Quietly([&] { file = MGlobals::WorkspaceObject->OpenDatabase(path); });
  std::string type;
  if (file) Quietly([&] { type = platform::AsciiLower(platform::ToString(file->Properties()->Item("SBType")->Value())); });
  if (type != kExtension) {
    ShowLoadError(path);
    if (file) Quietly([&] { file->Close(); });
    return;
  }

  step(10, [&] { MGlobals::ClearXMLAnalyzerDb(); });
  step(10, [&] { m_DocXMLAnalyzer->RefetchGridEx(); });
  step(10, [&] { platform::forms::DoEvents(); });
  std::string results;
  step(11, [&] { results = MGlobals::XMLAnalyzerDb()->Name(); });
  step(11, [&] {
    file->Execute("INSERT INTO " + m_sDbTableName + " IN \"" + results + "\" SELECT * FROM XMLAnalyzer;",
                  dao::dbFailOnError);
  });
  step(12, [&] { platform::forms::DoEvents(); });
  step(12, [&] { m_oResultsRs = MGlobals::XMLAnalyzerDb()->OpenRecordset(m_sDbTableName, dao::dbOpenDynaset); });
  step(13, [&] { file->Close(); });
  step(14, [&] { LoadLayout(m_sLayoutFile); });
  step(14, [&] { platform::forms::DoEvents(); });
  step(15, [&] { m_bCanRefresh = false; });
  // An empty table has no last row.
  Quietly([&] { m_oResultsRs->MoveLast(); });
  step(16, [&] {
    m_lResultCount = m_oResultsRs->RecordCount();
    m_oResultsRs->Close();
  });
  step(17, [&] { m_oWindow->SetCaption(m_sWndCaption + " (" + std::to_string(m_lResultCount) + " matches)"); });
  step(18, [&] { ShowResults(); });
}

}  // namespace annotra
