#include "AnalyzeCommand.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "Baseline.h"
#include "Component.h"
#include "ExitStatus.h"
#include "FindingFiles.h"
#include "FindingSource.h"
#include "FindingsWriter.h"
#include "Host.h"
#include "HostState.h"
#include "RunOutput.h"
#include "RunSettings.h"
#include "SignalCleanup.h"
#include "Version.h"
#include "entry/CXmlAnalyzer.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "platform/core/Error.h"
#include "platform/core/StderrLine.h"
#include "platform/dao/Database.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/grammar/GrammarParser.h"
#include "platform/suite/MemorySettingsStore.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/SettingsStore.h"
#include "results/MGlobals_ResultsDb.h"


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

std::vector<ProjectTally> TalliesOf(const annotra::CXmlAnalyzer::AnalysisSummary& run) {
  std::vector<ProjectTally> tallies;
  for (const auto& [project, tally] : run.tallies) tallies.push_back({project, tally.definitions, tally.withoutFinding});
  return tallies;
}

// Takes the baseline's findings out of the results table: the page of --format html is
// made from the table itself.
void RemoveHeldFindings(FindingSource& findings, Baseline& baseline) {
  std::vector<int32_t> held;
  baseline.Reset();
  findings.Rewind();
  for (Finding f; findings.Next(f);)
    if (baseline.Take(f)) held.push_back(f.ID);
  for (int32_t id : held)
    annotra::MGlobals::XMLAnalyzerDb()->Execute("DELETE * FROM XMLAnalyzer1 WHERE ID = " + std::to_string(id),
                                                platform::dao::dbFailOnError);
}

// Whether any project the baseline names is in the solution.
bool BaselineFitsSolution(const Baseline& baseline) {
  if (baseline.Size() == 0) return true;
  for (const auto& project : baseline.Projects())
    if (annotra::MGlobals::SearchProject(project)) return true;
  return false;
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
    if (std::string error = CheckFileFolder(*r.output, "the output"); !error.empty()) return CannotRun(error);
  if (r.save)
    if (std::string error = CheckFileFolder(*r.save, "the findings"); !error.empty()) return CannotRun(error);
  // The baseline is read before anything runs: a wrong one costs no analysis.
  std::optional<Baseline> baseline;
  if (r.baseline) {
    try {
      baseline = Baseline::Load(*r.baseline);
    } catch (const platform::Error& e) {
      std::fprintf(stderr, "annotra: the baseline <%s> cannot be loaded: %s\n", r.baseline->c_str(), e.description.c_str());
      return kCannotLoad;
    }
  }

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

  // 5. The component, as the host add-in starts it; its results database is made here.
  try {
    if (checked.keepOpen)
      AppSettingsObject_HKCU->Write(section::Settings, key::OpenDocAllowed, platform::Variant(*checked.keepOpen));
  } catch (const platform::Error& e) {
    return CannotRun("the options cannot be stored: " + e.description);
  }
  Component component;
  if (std::string error = component.Start(host.dte()); !error.empty()) return CannotRun(error);

  // 6. A new analysis: the options dialog, played with the flags ("&Begin >>" stores
  // them in the run's store, where the analysis reads them; "&Cancel" when a choice
  // cannot be made), then the walk. The documents the walk keeps open are the host's
  // setting, not the dialog's.
  auto user = std::make_shared<platform::forms::ScriptedPresenter>();
  annotra::QueueOptionsChoices(*user, ChoicesOf(r, checked, storedScope.has_value()), true);
  {
    platform::forms::ScopedPresenter scope(user);
    signals::WalkInProgress walking;
    component.analyzer().Find();
  }
  platform::stderr_line::End();
  if (!user->errors.empty()) return Usage("the options cannot be set: " + user->errors.front());
  const annotra::CXmlAnalyzer::AnalysisSummary& run = component.analyzer().LastAnalysis();
  if (!run.ran) return CannotRun("the analysis did not run");

  // 7. The result file or spreadsheet, as the pane's save command writes it: the whole
  // run, whatever the baseline holds.
  if (r.save)
    if (std::string error = component.Save(*r.save); !error.empty())
      return CannotRun("the findings cannot be saved to <" + *r.save + ">: " + error);

  // 8. The output, read from the results table (without the baseline's findings).
  OutputContext context;
  std::error_code ec;
  context.currentFolder = fs::current_path(ec);
  context.sourceRoot = SourceRoot(r);
  context.width = !r.output && &out == &std::cout ? TerminalWidth() : 0;
  context.version = kVersion;
  context.tallies = TalliesOf(run);
  int64_t reported = run.matches;
  std::string error;
  try {
    FindingFiles files(host.dte());
    ResultsTableFindings table(annotra::MGlobals::XMLAnalyzerDb(), files);
    if (!baseline) {
      error = WriteRunOutput(out, r.output, table, checked.format, context);
    } else {
      if (!BaselineFitsSolution(*baseline))
        std::fprintf(stderr, "annotra: warning: the baseline <%s> names none of this solution's projects: it comes from another solution\n",
                     r.baseline->c_str());
      NewFindings fresh(table, *baseline);
      reported = 0;
      for (Finding f; fresh.Next(f);) ++reported;
      const int64_t gone = baseline->Remaining();
      if (checked.format == OutputFormat::Html) RemoveHeldFindings(table, *baseline);
      error = WriteRunOutput(out, r.output, fresh, checked.format, context);
      std::fprintf(stderr, "annotra: %lld new finding%s; %lld findings of the baseline are gone\n",
                   static_cast<long long>(reported), reported == 1 ? "" : "s", static_cast<long long>(gone));
    }
  } catch (const platform::Error& e) {
    error = "the findings cannot be read from the results database: " + e.description;
  }
  if (!error.empty()) return CannotRun(error);

  if (run.cancelled)
    return CannotRun("the analysis was stopped (Ctrl+C) before its end: the findings are those of the part walked");
  return r.failOnFindings && reported > 0 ? kFindings : kDone;
}

}  // namespace app
