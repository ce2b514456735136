#include "AnalyzeCommand.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "ExitStatus.h"
#include "FindingFiles.h"
#include "FindingSource.h"
#include "FindingsWriter.h"
#include "Host.h"
#include "HostState.h"
#include "OutputFile.h"
#include "RunSettings.h"
#include "SignalCleanup.h"
#include "Version.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "platform/core/Error.h"
#include "platform/core/StderrLine.h"
#include "platform/grammar/GrammarParser.h"
#include "platform/suite/MemorySettingsStore.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/SettingsStore.h"
#include "results/MGlobals_ResultsDb.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace app {

namespace fs = std::filesystem;
using annotra::MGlobals::AppSettingsObject_HKCU;

namespace {

int Usage(const std::string& message) {
  std::fprintf(stderr, "annotra analyze: %s\n", message.c_str());
  return kUsage;
}

int CannotRun(const std::string& message) {
  platform::stderr_line::End();
  std::fprintf(stderr, "annotra: %s\n", message.c_str());
  return kCannotRun;
}

// The two grammar files of the component's folder, loaded as the analysis loads them.
// "" when both load, else what failed and where.
std::string CheckGrammarFiles() {
  for (const std::string& file : {annotra::MGlobals::XMLGrammarFile(), annotra::MGlobals::StrConstsGrammarFile()}) {
    platform::grammar::GrammarParser parser;
    if (!parser.LoadGrammar(file))
      return "the grammar file <" + file + "> cannot be loaded (" + parser.LastError() +
             "); the component's folder is <" + annotra::MGlobals::GetAppPath() +
             ">, found beside the program or named by ANNOTRA_APP_PATH";
  }
  return "";
}

// The folder of the file --output names must be there; checked before the analysis, so
// a typo does not cost a whole run.
std::string CheckOutputFolder(const std::string& output) {
  fs::path folder = fs::path(output).parent_path();
  if (folder.empty()) folder = ".";
  std::error_code ec;
  if (!fs::is_directory(folder, ec)) return "the output cannot be written to <" + output + ">: no folder " + folder.string();
  return "";
}

// The width of the terminal standard output shows, 0 when it is no terminal.
size_t TerminalWidth() {
  if (!isatty(STDOUT_FILENO)) return 0;
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  if (const char* columns = std::getenv("COLUMNS")) {
    int n = std::atoi(columns);
    if (n > 0) return static_cast<size_t>(n);
  }
  return 80;
}

// The folder that SARIF's %SRCROOT% names: --source-root, else the folder of the
// analysed solution (or the folder itself).
fs::path SourceRoot(const AnalyzeRequest& r) {
  std::error_code ec;
  fs::path root = r.sourceRoot ? fs::path(*r.sourceRoot) : fs::path(r.path);
  root = fs::absolute(root, ec).lexically_normal();
  if (!r.sourceRoot && !fs::is_directory(root, ec)) root = root.parent_path();
  std::string text = root.string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

std::vector<ProjectTally> TalliesOf(const annotra::CXmlAnalyzerBrowser& browser) {
  std::vector<ProjectTally> tallies;
  for (const auto& [project, tally] : browser.DefinitionTallies())
    tallies.push_back({project, tally.definitions, tally.withoutFinding});
  return tallies;
}

}  // namespace

annotra::OptionsChoices ChoicesOf(const AnalyzeRequest& r, const CheckedFlags& checked, bool scopeStored) {
  annotra::OptionsChoices c;
  if (checked.scope) c.scope = *checked.scope;
  else if (!scopeStored) c.scope = platform::suite::kScopeSolution;
  c.enablePublic = r.enablePublic;
  c.xmlOnPublic = r.xmlOnPublic;
  c.enableNonPublic = r.enableNonPublic;
  c.xmlOnNonPublic = r.xmlOnNonPublic;
  c.acceptInheritDoc = r.acceptInheritDoc;
  c.compareParamTypes = r.compareParamTypes;
  c.skipGenerated = r.skipGenerated;
  c.enableBody = r.enableBody;
  if (checked.maxLines) c.maxLines = std::to_string(*checked.maxLines);
  c.requiredTags = checked.requiredTags;
  c.requireAll = r.requireAll;
  return c;
}

int RunAnalyzeCommand(const AnalyzeRequest& r, std::ostream& out) {
  // 1. The flags, each on its own and together.
  CheckedFlags checked;
  if (std::string error = CheckFlags(r, checked); !error.empty()) return Usage(error);

  // 2. The settings of this run: the repository's file under the command line.
  RunSettings settings;
  if (std::string error = MakeRunSettings(r.path, settings); !error.empty()) return Usage(error);
  namespace section = annotra::section;
  namespace key = annotra::key;
  std::optional<platform::Variant> storedScope;
  if (settings.repository) storedScope = settings.repository->Find(section::CommentsAnalyzer, key::LastScope);
  {
    int32_t scope = platform::suite::kScopeSolution;
    std::string origin = "--scope solution";
    if (checked.scope) {
      scope = *checked.scope;
      origin = "--scope " + ScopeName(scope);
    } else if (storedScope) {
      scope = platform::ToInt32(*storedScope);
      origin = "the scope " + ScopeName(scope) + " of " + settings.repositoryFile.string();
    }
    if (std::string error = CheckScopeNeeds(scope, origin, r); !error.empty()) return Usage(error);
  }
  if (r.output)
    if (std::string error = CheckOutputFolder(*r.output); !error.empty()) return CannotRun(error);

  // 3. The host, with the run's store and no per-machine settings; the component's
  // grammar files before anything is loaded.
  Host host(settings.store, std::make_shared<platform::suite::MemorySettingsStore>(true));
  if (std::string error = CheckGrammarFiles(); !error.empty()) return CannotRun(error);

  // 4. The solution, the host's state the flags describe, the databases.
  if (!host.OpenSolution(r.path, r.verbose)) return kCannotLoad;
  if (std::string error = SetHostState(r, checked, host.dte()); !error.empty()) return Usage(error);
  if (!checked.requiredTags.empty()) {
    // Checked against the templates before anything is made: on a first run, against a
    // scratch database of the default templates.
    if (!host.OpenDatabases(settings.teamDatabase, false)) return kCannotLoad;
    if (std::string error = CheckRequiredTags(checked); !error.empty()) return Usage(error);
  }
  if (!host.OpenDatabases(settings.teamDatabase)) return kCannotLoad;

  // 5. The options dialog, played with the flags; "&Begin >>" stores them in the run's
  // store, where the analysis reads them. The documents the walk keeps open are the
  // host's setting, not the dialog's.
  try {
    if (checked.keepOpen)
      AppSettingsObject_HKCU->Write(section::Settings, key::OpenDocAllowed, platform::Variant(*checked.keepOpen));
  } catch (const platform::Error& e) {
    return CannotRun("the options cannot be stored: " + e.description);
  }
  std::vector<std::string> problems;
  if (!annotra::RunOptionsDialog(ChoicesOf(r, checked, storedScope.has_value()), problems))
    return CannotRun("the options dialog could not be shown");
  if (!problems.empty()) return Usage("the options cannot be set: " + problems.front());

  // 6. The results database, made before the walk so that the signal handlers know its
  // file from the moment it exists.
  {
    signals::BlockedSignals blocked;
    if (!annotra::MGlobals::XMLAnalyzerDb())
      return CannotRun("the results database cannot be made in <" + fs::temp_directory_path().string() + ">");
    signals::SetCleanupFile(annotra::MGlobals::XMLAnalyzerDbFile());
  }

  // 7. The analysis.
  annotra::CXmlAnalyzerBrowser browser;
  {
    signals::WalkInProgress walking;
    browser.Find();
  }
  platform::stderr_line::End();

  // 8. The output, read from the results table.
  OutputFile output;
  std::string error;
  if (!output.Open(r.output.value_or(""), error)) return CannotRun("the output cannot be written to " + error);
  OutputContext context;
  std::error_code ec;
  context.currentFolder = fs::current_path(ec);
  context.sourceRoot = SourceRoot(r);
  context.width = !r.output && &out == &std::cout ? TerminalWidth() : 0;
  context.version = kVersion;
  context.tallies = TalliesOf(browser);
  std::ostream& stream = r.output ? output.stream() : out;
  int writeErrno = 0;  // why the first failing write failed, which later calls may forget
  try {
    FindingFiles files(host.dte());
    ResultsTableFindings findings(annotra::MGlobals::XMLAnalyzerDb(), files);
    errno = 0;
    if (!WriteFindings(stream, findings, checked.format, context)) writeErrno = errno;
  } catch (const platform::Error& e) {
    output.Close(error);
    return CannotRun("the findings cannot be read from the results database: " + e.description);
  }
  stream.flush();
  const bool streamGood = static_cast<bool>(stream);
  if (!output.Close(error) || !streamGood) {
    if (error.empty() || (writeErrno && error.ends_with("cannot be written")))
      error = output.Where() + ": " + (writeErrno ? std::strerror(writeErrno) : "cannot be written");
    return CannotRun("the output cannot be written to " + error);
  }

  if (browser.Cancelled())
    return CannotRun("the analysis was stopped (Ctrl+C) before its end: the findings are those of the part walked");
  return r.failOnFindings && browser.Matches() > 0 ? kFindings : kDone;
}

}  // namespace app
