#include "AnalyzeCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <map>

#include "Host.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "analysis/FCCOptions.h"
#include "pane/ResultsPage.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/FindProjectItemByPath.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/SettingsStore.h"

namespace app {

using namespace platform::automation;
using annotra::MGlobals::AppSettingsObject_HKCU;
using platform::Ref;
using platform::Variant;

namespace {

namespace section = annotra::section;
namespace key = annotra::key;

// The scope of a --scope name; -1 for no scope.
int ScopeNamed(const std::string& name) {
  for (const auto& scope : platform::suite::kScopes)
    if (name == scope.name) return scope.value;
  return -1;
}

// The names --scope accepts.
std::vector<std::string> ScopeNames() {
  std::vector<std::string> names;
  for (const auto& scope : platform::suite::kScopes) names.push_back(scope.name);
  return names;
}

int Usage(const std::string& message) {
  std::fprintf(stderr, "annotra analyze: %s\n", message.c_str());
  return kUsage;
}

void AddFlagPair(CLI::App* cmd, const std::string& on, const std::string& off,
                 std::optional<bool>& target, const std::string& help) {
  cmd->add_flag_callback("--" + on, [&target] { target = true; }, help);
  cmd->add_flag_callback("--" + off, [&target] { target = false; }, "The opposite of --" + on);
}

// Opens the document of `file` as the host opens documents: a visible text window.
Ref<Document> OpenAsHost(const Ref<DTE>& dte, const std::string& file, std::string& error) {
  auto item = FindProjectItemByPath(dte, file);
  if (!item) {
    error = "<" + file + "> is no item of the solution";
    return nullptr;
  }
  try {
    auto document = item->LoadDocument();
    document->OpenWindow(true);
    return document;
  } catch (const platform::Error& e) {
    error = "<" + file + "> cannot be opened: " + e.description;
    return nullptr;
  }
}

// Sets the host's state from the scope flags; "" when all went well, else the message.
std::string SetHostState(const AnalyzeRequest& r, const Ref<DTE>& dte) {
  std::string error;
  for (const auto& file : r.open)
    if (!OpenAsHost(dte, file, error)) return error;
  if (r.document) {
    auto document = OpenAsHost(dte, *r.document, error);
    if (!document) return error;
    dte->SetActiveDocument(document);
    if (r.line) {
      auto text = document->Object("TextDocument");
      if (*r.line > text->EndPoint()->Line()) return "--line " + std::to_string(*r.line) + " is past the end of <" + *r.document + ">";
      text->Selection()->GotoLine(*r.line);
    }
  }
  std::vector<Ref<Project>> selected;
  if (r.project) {
    auto project = annotra::MGlobals::SearchProject(*r.project);
    if (!project) return "the solution has no project named \"" + *r.project + "\"";
    selected.push_back(project);
  }
  if (r.folder) {
    auto folder = annotra::MGlobals::SearchProject(*r.folder);
    if (!folder || !platform::TryAs<SolutionFolder>(folder->Object()))
      return "the solution has no solution folder named \"" + *r.folder + "\"";
    selected.insert(selected.begin(), folder);
  }
  dte->SetSelectedProjects(selected);
  return "";
}

// Stores the rules given on the command line where the options dialog stores them.
void StoreOptions(const AnalyzeRequest& r) {
  using annotra::MGlobals::SetCheckBoxData;
  auto box = [](const char* key, const std::optional<bool>& value) {
    if (value) SetCheckBoxData(key, *value ? 1 : 0);
  };
  box(key::EnablePublic, r.enablePublic);
  box(key::XMLOnPublic, r.xmlOnPublic);
  box(key::EnableNonPublic, r.enableNonPublic);
  box(key::XMLOnNonPublic, r.xmlOnNonPublic);
  box(key::EnableBody, r.enableBody);
  if (r.maxLines) {
    // As the in-method panel saves its text box: 15 unless a number from 5 to 100.
    int16_t limit = 15;
    try {
      limit = platform::ToInt16(Variant(*r.maxLines));
    } catch (const platform::Error&) {
    }
    if (limit < 5 || limit > 100) {
      std::fprintf(stderr, "annotra analyze: --max-lines %s is not a number from 5 to 100; 15 is used\n",
                   r.maxLines->c_str());
      limit = 15;
    }
    AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::LineCount, Variant(static_cast<int>(limit)));
  }
  if (r.scope) {
    AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::LastScope, Variant(ScopeNamed(*r.scope)));
  } else if (AppSettingsObject_HKCU->Read(section::CommentsAnalyzer, key::LastScope, Variant()).IsEmpty()) {
    // A command line has no caret: the whole solution is the natural default.
    AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::LastScope, Variant(static_cast<int>(platform::suite::kScopeSolution)));
  }
  if (r.keepOpen) AppSettingsObject_HKCU->Write(section::Settings, key::OpenDocAllowed, Variant(*r.keepOpen));
}

// Plays the user in the XML options form: all tags unchecked, the named ones checked,
// OK. "" when every named tag was there, else the message.
std::string StoreRequiredTags(const AnalyzeRequest& r) {
  if (r.requireAll) {
    annotra::FCCOptions form;
    form.GetOptions(false);
    form.Unload();
    return "";
  }
  if (r.require.empty()) return "";
  auto user = std::make_shared<platform::forms::ScriptedPresenter>();
  user->Click("&Uncheck All");
  std::vector<std::string> wanted;
  for (const auto& spec : r.require) {
    auto colon = spec.find(':');
    if (colon == std::string::npos || colon == 0)
      return "--require \"" + spec + "\" is not KIND:TAG,TAG";
    std::string kind = spec.substr(0, colon), tags = spec.substr(colon + 1);
    size_t begin = 0;
    while (begin <= tags.size()) {
      size_t end = tags.find(',', begin);
      if (end == std::string::npos) end = tags.size();
      std::string tag = tags.substr(begin, end - begin);
      if (!tag.empty()) {
        user->Check("TreeView1", "T" + kind + "*" + tag);
        wanted.push_back(kind + ":" + tag);
      }
      begin = end + 1;
    }
  }
  user->Click("&OK");
  platform::forms::ScopedPresenter scope(user);
  annotra::FCCOptions form;
  form.GetOptions(true);
  form.Unload();
  if (!user->errors.empty())
    return "a required tag is not in the enabled templates (" + user->errors.front() +
           "); `annotra templates list` shows them";
  return "";
}

// Stored options of the wrong type make the analysis report an error and keep a default;
// the host says which flag stores a good value. "" when the scope is usable, else the
// message that stops the run.
std::string CheckStoredOptions() {
  struct Key {
    const char* section;
    const char* key;
    const char* flag;
  };
  static const Key keys[] = {
      {section::CommentsAnalyzer, key::EnablePublic, "--public or --no-public"},
      {section::CommentsAnalyzer, key::XMLOnPublic, "--public-xml or --public-plain"},
      {section::CommentsAnalyzer, key::EnableNonPublic, "--non-public or --no-non-public"},
      {section::CommentsAnalyzer, key::XMLOnNonPublic, "--non-public-xml or --non-public-plain"},
      {section::CommentsAnalyzer, key::EnableBody, "--body or --no-body"},
      {section::CommentsAnalyzer, key::LineCount, "--max-lines N"},
      {section::Settings, key::OpenDocAllowed, "--keep-open N"},
  };
  for (const Key& k : keys) {
    Variant value = AppSettingsObject_HKCU->Read(k.section, k.key, Variant());
    try {
      if (!value.IsEmpty()) platform::ToInt16(value);
    } catch (const platform::Error&) {
      std::fprintf(stderr, "annotra analyze: the stored option %s (\"%s\") is not a number; its default is used. %s stores a new one.\n",
                   k.key, platform::ToString(value).c_str(), k.flag);
    }
  }
  Variant scope = AppSettingsObject_HKCU->Read(section::CommentsAnalyzer, key::LastScope, Variant());
  try {
    if (!scope.IsEmpty()) platform::ToInt32(scope);
  } catch (const platform::Error&) {
    return "the stored scope (\"" + platform::ToString(scope) + "\") is not a scope; give --scope";
  }
  return "";
}

std::vector<Finding> ReadFindings() {
  std::vector<Finding> findings;
  auto db = annotra::MGlobals::XMLAnalyzerDb();
  if (!db) return findings;
  auto rs = db->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenDynaset);
  auto text = [&](const char* name) { return platform::ToString(rs->Fields(name)->Value()); };
  auto number = [&](const char* name) {
    auto v = rs->Fields(name)->Value();
    return v.IsEmpty() ? 0 : platform::ToInt32(v);
  };
  if (rs->RecordCount() > 0) rs->MoveFirst();
  while (!rs->Eof()) {
    Finding f;
    f.ID = number("ID");
    f.Flag = number("Flag");
    f.Project = text("Project");
    f.Document = text("Document");
    f.Type = text("Type");
    f.Path = text("Path");
    f.Member = text("Member");
    f.Start = number("Start");
    f.End = number("End");
    f.Status = number("Status");
    f.Problem = text("Problem");
    // The file the row points at, found as navigation to the code finds it.
    if (auto project = annotra::MGlobals::SearchProject(f.Project))
      if (auto item = annotra::MGlobals::FindProjectItem(project, f.Document, f.Path)) f.file = item->FileNames(1);
    findings.push_back(std::move(f));
    rs->MoveNext();
  }
  rs->Close();
  return findings;
}

}  // namespace

CLI::App* AddAnalyzeCommand(CLI::App& cli, AnalyzeRequest& r) {
  auto* cmd = cli.add_subcommand("analyze", "Analyse the comments of a solution and print the findings");
  cmd->add_option("PATH", r.path, "A .sln, .slnx, .csproj, .vbproj, folder or source file (default: .)");
  cmd->add_option("--scope", r.scope, "What to analyse")
      ->check(CLI::IsMember(ScopeNames()));
  cmd->add_option("--document", r.document, "The active document (scopes method, document, project)");
  cmd->add_option("--line", r.line, "The caret's line in the active document (scope method)")
      ->check(CLI::PositiveNumber);
  cmd->add_option("--open", r.open, "A document open in the editor (repeatable; scope open)");
  cmd->add_option("--project", r.project, "The project selected in the solution (scope project)");
  cmd->add_option("--folder", r.folder, "The solution folder selected in the solution (scope folder)");
  AddFlagPair(cmd, "public", "no-public", r.enablePublic, "Report public definitions");
  AddFlagPair(cmd, "public-xml", "public-plain", r.xmlOnPublic,
              "Public definitions need an XML comment (else a plain comment will do)");
  AddFlagPair(cmd, "non-public", "no-non-public", r.enableNonPublic, "Report non-public definitions");
  AddFlagPair(cmd, "non-public-xml", "non-public-plain", r.xmlOnNonPublic,
              "Non-public definitions need an XML comment (else a plain comment will do)");
  AddFlagPair(cmd, "body", "no-body", r.enableBody, "Check runs of uncommented lines inside methods");
  cmd->add_option("--max-lines", r.maxLines, "The longest acceptable run of uncommented lines (5 to 100)");
  cmd->add_option("--require", r.require,
                  "KIND:TAG,TAG: the tags required of a kind (repeatable; kinds not named require none)");
  cmd->add_flag("--require-all", r.requireAll, "Require every tag of every enabled template");
  cmd->add_option("--keep-open", r.keepOpen, "How many documents the walk keeps open (1 to 30)");
  cmd->add_option("--format", r.format, "Output format")
      ->check(CLI::IsMember({"table", "tsv", "json", "msbuild", "sarif", "html"}));
  cmd->add_flag("--fail-on-findings", r.failOnFindings, "Exit with status 1 when there are findings");
  return cmd;
}

int RunAnalyzeCommand(const AnalyzeRequest& r, std::ostream& out) {
  OutputFormat format;
  if (!ParseOutputFormat(r.format, format)) return Usage("unknown format \"" + r.format + "\"");
  if (r.requireAll && !r.require.empty()) return Usage("--require and --require-all exclude each other");
  if (r.scope && ScopeNamed(*r.scope) == platform::suite::kScopeMethod && (!r.document || !r.line))
    return Usage("--scope method needs --document FILE and --line N");
  if (r.scope && ScopeNamed(*r.scope) == platform::suite::kScopeDocument && !r.document) return Usage("--scope document needs --document FILE");
  if (r.scope && ScopeNamed(*r.scope) == platform::suite::kScopeSolutionFolder && !r.folder && !r.project)
    return Usage("--scope folder needs --folder NAME or --project NAME");

  Host host;
  if (!host.OpenSolution(r.path)) return kCannotLoad;
  if (!host.OpenDatabases()) return kCannotLoad;
  if (std::string error = SetHostState(r, host.dte()); !error.empty()) return Usage(error);
  try {
    StoreOptions(r);
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: the options cannot be stored: %s\n", e.description.c_str());
    return kCannotLoad;
  }
  if (std::string error = StoreRequiredTags(r); !error.empty()) return Usage(error);
  if (std::string error = CheckStoredOptions(); !error.empty()) return Usage(error);

  annotra::CXmlAnalyzerBrowser browser;
  browser.Find();

  std::vector<Finding> findings;
  try {
    findings = ReadFindings();
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: the findings cannot be read: %s\n", e.description.c_str());
    return kCannotLoad;
  }
  if (format == OutputFormat::Html) {
    // The page the pane's print preview shows, made by the same grid and preview.
    try {
      out << annotra::ResultsPage(annotra::PrintFooterDate());
    } catch (const platform::Error& e) {
      std::fprintf(stderr, "annotra: the print preview's page cannot be made: %s\n", e.description.c_str());
      return kCannotLoad;
    }
    return r.failOnFindings && !findings.empty() ? kFindings : kDone;
  }
  std::error_code ec;
  WriteFindings(out, findings, format, std::filesystem::current_path(ec));
  return r.failOnFindings && !findings.empty() ? kFindings : kDone;
}

}  // namespace app
