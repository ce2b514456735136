#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/AnalysisOptions.h"
#include "platform/core/Ref.h"
#include "platform/core/Variant.h"

namespace platform::automation {
class DTE;
class Document;
class Project;
class ProjectItem;
class ProjectItems;
class CodeElement;
}  // namespace platform::automation
namespace platform::dao {
class Workspace;
class Database;
}  // namespace platform::dao
namespace platform::forms {
struct Font;
}
namespace platform::suite {
class SettingsStore;
class ServiceObject;
class CodeModelHelper;
}  // namespace platform::suite

namespace annotra {

/// The component's module of shared state and shared routines: the host's objects, the
/// options of the running analysis, the documents it opened, the temporary results
/// database, and the services more than one part of the system uses.
namespace MGlobals {

using platform::Ref;
using platform::automation::Document;
using platform::automation::DTE;
using platform::automation::Project;
using platform::automation::ProjectItem;
using platform::automation::ProjectItems;
using platform::automation::CodeElement;

// The host's objects, set once by the host and held, never closed.
extern Ref<DTE> DTEObject;
extern std::shared_ptr<platform::Dispatch> AddInObject;
extern std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKCU;
extern std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKLM;
extern Ref<platform::dao::Workspace> WorkspaceObject;
extern Ref<platform::dao::Database> TeamDB;
extern Ref<platform::dao::Database> PersonalDB;

/// Documents the running analysis had to open itself, in the order opened; none
/// (nullptr) outside an analysis.
extern std::shared_ptr<std::vector<Ref<Document>>> OpenedDocuments;

/// The options of the current analysis.
extern AnalysisOptions g_AnalysisOptions;

/// The support library's service object, made on first use and kept.
Ref<platform::suite::ServiceObject> Service();
/// The support library's code-model helper, made on first use and kept.
Ref<platform::suite::CodeModelHelper> CodeModelHelper();

// Grammar files and the component's folder.
/// GetAppPath() + "XML.GMR", computed once.
std::string XMLGrammarFile();
/// GetAppPath() + "SC.GMR", computed once.
std::string StrConstsGrammarFile();
/// The component's folder, ending in "/".
std::string GetAppPath();
/// The folder `folder` with one "/" added when it does not end in one.
std::string WithTrailingSeparator(const std::string& folder);

// Documents.
/// The item's document, opening the item in the code view when it is not open (and then
/// remembering it in OpenedDocuments). None when it cannot be opened.
Ref<Document> GetDocument(const Ref<ProjectItem>& item);
/// Closes every document in OpenedDocuments, in order; errors are ignored. The list is
/// not emptied.
void CloseOpenedDocuments();
/// Whether the document shows code text: Visible of its first window whose object is a
/// "TextWindow"; false when it has none.
bool HasDocumentTextCodeVisible(const Ref<Document>& document);

// Projects and items.
/// False, after the message "No project currently open - cannot use this tool.", when
/// the solution has no project.
bool IsProjectOpen();
/// The first project of the solution named `name` (exact), nested projects included,
/// depth first in index order; none when there is none. A solution folder of that name
/// is searched through but never hides a project of the same name: it is the answer
/// only when no project has the name (its items may be findings' documents too).
Ref<Project> SearchProject(const std::string& name);
/// Search steps of SearchProject: `found` takes the first project named `name`, and
/// `folder`, when given, the first solution folder of that name met on the way.
void SearchProject_InProjects(const std::string& name, const Ref<Project>& project,
                              Ref<Project>& found, Ref<Project>* folder = nullptr);
void SearchProject_InProjectItems(const std::string& name, const Ref<ProjectItems>& items,
                                  Ref<Project>& found, Ref<Project>* folder = nullptr);
/// Whether `project` is a solution folder.
bool IsSolutionFolder(const Ref<Project>& project);
/// The item named `name` in the folder `path` ("A\B", "" for the project root) of the
/// project; none when a step is missing.
Ref<ProjectItem> FindProjectItem(const Ref<Project>& project, const std::string& name,
                                 const std::string& path);
/// The code-model language identifier of the item; "" when it has none.
std::string GetItemLanguage(const Ref<ProjectItem>& item);

// Visibility.
/// True when the element's Access has flag 1 (public) or 8 (protected), or cannot be
/// read.
bool IsPublic(const Ref<CodeElement>& element);
/// True when the element and every code element enclosing it are public.
bool IsPublicInScope(const Ref<CodeElement>& element);

// Check-box settings of section "CommentsAnalyzer".
/// 1 when the stored value (or `def`) is non-zero, else 0.
int16_t GetCheckBoxData(const std::string& key, const platform::Variant& def);
/// Stores the integer 1 when `value` is 1, else 0.
void SetCheckBoxData(const std::string& key, int16_t value);

// Folders last used by the file dialogs (section "LastPaths").
/// The folder stored under `key`; "" when nothing is stored or no per-user settings
/// store was handed over. Errors are reported ("Quillmark.MGlobals.GetLastUsedPath").
std::string GetLastUsedPath(const std::string& key);
/// Stores `path` under `key`, first made to end in "/" (the caller's string gains it);
/// nothing when the path is blank or there is no per-user store. Errors are reported
/// ("Quillmark.MGlobals.SaveLastUsedPath").
void SaveLastUsedPath(const std::string& key, std::string& path);

// Window helpers.
/// Sets name, size, character set, bold and italic of `font`, in that order; errors are
/// ignored.
void SetFontAttributes(platform::forms::Font& font, const std::string& name, int32_t size,
                       int32_t charset, bool bold, bool italic);
/// Makes the edit box `hWnd` accept digits only (its style gains ES_NUMBER); a window
/// without a style is left alone. Errors are ignored.
void SetNumericOnly(intptr_t hWnd);

/// Forgets the module state kept here: the host's objects, the options, the service
/// objects and the cached grammar paths. For tests and benchmarks that run the component
/// more than once in one process (the results database has its own, in
/// results/MGlobals_ResultsDb.h).
void ResetForTesting();

}  // namespace MGlobals
}  // namespace annotra
