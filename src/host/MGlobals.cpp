#include "host/MGlobals.h"

#include "platform/core/AsciiText.h"
#include "host/MGlobals_Paths.h"
#include "host/Steps.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/Window.h"
#include "platform/forms/Font.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/CodeModelHelper.h"
#include "platform/suite/ServiceObject.h"
#include "platform/suite/SettingsStore.h"
#include "platform/win32/WindowStyles.h"

namespace annotra::MGlobals {

Ref<DTE> DTEObject;
std::shared_ptr<platform::Dispatch> AddInObject;
std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKCU;
std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKLM;
Ref<platform::dao::Workspace> WorkspaceObject;
Ref<platform::dao::Database> TeamDB;
Ref<platform::dao::Database> PersonalDB;
std::shared_ptr<std::vector<Ref<Document>>> OpenedDocuments;
AnalysisOptions g_AnalysisOptions;

}  // namespace annotra::MGlobals

// ---------------------------------------------------------------------------------------
// Shared routines.


namespace annotra::MGlobals {

using namespace platform::automation;
namespace forms = platform::forms;
namespace cm = platform::codemodel;

namespace {
Ref<platform::suite::ServiceObject> g_service;
Ref<platform::suite::CodeModelHelper> g_codeModelHelper;

}  // namespace

Ref<platform::suite::ServiceObject> Service() {
  if (!g_service) g_service = std::make_shared<platform::suite::ServiceObject>();
  return g_service;
}

Ref<platform::suite::CodeModelHelper> CodeModelHelper() {
  if (!g_codeModelHelper) g_codeModelHelper = std::make_shared<platform::suite::CodeModelHelper>();
  return g_codeModelHelper;
}

Ref<Document> GetDocument(const Ref<ProjectItem>& item) {
  Steps step("Quillmark.MGlobals.GetDocument");
  Ref<Document> result;
  bool open = false;
  Quietly([&] { open = item->IsOpen(vsViewKindCode); });
  if (open) {
    step(2, [&] { result = item->Document(); });
    return result;
  }
  step(3, [&] {
    item->Open(vsViewKindCode);
    result = item->Document();
    if (result && OpenedDocuments) OpenedDocuments->push_back(result);
  });
  return result;
}

void CloseOpenedDocuments() {
  if (!OpenedDocuments) return;
  for (auto& document : *OpenedDocuments) {
    Quietly([&] { document->Close(vsSaveChangesPrompt); });
  }
}

bool IsProjectOpen() {
  int count = 0;
  Quietly([&] { count = DTEObject->Solution()->Projects()->Count(); });
  if (count == 0) {
    forms::MsgBox("No project currently open - cannot use this tool.",
                  forms::vbExclamation | forms::vbOKOnly, "Scribane");
    return false;
  }
  return true;
}

Ref<Project> SearchProject(const std::string& name) {
  Ref<Project> found, folder;
  Quietly([&] {
    auto projects = DTEObject->Solution()->Projects();
    for (int i = 1; i <= projects->Count() && !found; ++i) {
      Quietly([&] { SearchProject_InProjects(name, projects->Item(i), found, &folder); });
    }
  });
  return found ? found : folder;
}

bool IsSolutionFolder(const Ref<Project>& project) {
  bool folder = false;
  Quietly([&] { folder = project && platform::TryAs<SolutionFolder>(project->Object()) != nullptr; });
  return folder;
}

void SearchProject_InProjects(const std::string& name, const Ref<Project>& project,
                              Ref<Project>& found, Ref<Project>* folder) {
  if (found) return;
  Steps step("Quillmark.MGlobals.SearchProject_InProjects");
  bool same = false;
  if (!step(1, [&] { same = project->Name() == name; })) return;
  // A solution folder named like the project sought (a folder "Benchmarks" holding the
  // project "Benchmarks") is searched through, not taken.
  if (same && !IsSolutionFolder(project)) {
    found = project;
    return;
  }
  if (same && folder && !*folder) *folder = project;
  step(2, [&] { SearchProject_InProjectItems(name, project->ProjectItems(), found, folder); });
}

void SearchProject_InProjectItems(const std::string& name, const Ref<ProjectItems>& items,
                                  Ref<Project>& found, Ref<Project>* folder) {
  if (found || !items) return;
  int count = 0;
  Quietly([&] { count = items->Count(); });
  for (int i = 1; i <= count && !found; ++i) {
    Quietly([&] {
      auto item = items->Item(i);
      if (auto sub = item->SubProject()) {
        SearchProject_InProjects(name, sub, found, folder);
      } else if (item->Collection().get() == items.get()) {
        auto children = item->ProjectItems();
        if (children && children->Count() >= 1) SearchProject_InProjectItems(name, children, found, folder);
      }
    });
  }
}

Ref<ProjectItem> FindProjectItem(const Ref<Project>& project, const std::string& name,
                                 const std::string& path) {
  Ref<ProjectItem> result;
  Quietly([&] {
    if (path.empty()) {
      result = project->ProjectItems()->Item(name);
      return;
    }
    Ref<ProjectItems> items = project->ProjectItems();
    size_t begin = 0;
    while (begin <= path.size()) {
      size_t end = path.find('\\', begin);
      if (end == std::string::npos) end = path.size();
      auto folder = items->Item(path.substr(begin, end - begin));
      if (!folder) return;
      items = folder->ProjectItems();
      begin = end + 1;
    }
    result = items->Item(name);
  });
  return result;
}

bool HasDocumentTextCodeVisible(const Ref<Document>& document) {
  Steps step("Quillmark.MGlobals.HasDocumentTextCodeVisible");
  bool visible = false;
  step(1, [&] {
    auto windows = document->Windows();
    for (int i = 1; i <= windows->Count(); ++i) {
      auto window = windows->Item(i);
      auto object = window->Object();
      if (object && std::string(object->TypeName()) == "TextWindow") {
        visible = window->Visible();
        return;
      }
    }
  });
  return visible;
}

std::string GetItemLanguage(const Ref<ProjectItem>& item) {
  std::string language;
  Ref<FileCodeModel> model;
  Quietly([&] {
    model = item->FileCodeModel();
    language = model->Language();
  });
  if (language.empty() && !model) {
    Quietly([&] {
      auto object = item->Object();
      if (!platform::TryAs<WebProjectItemObject>(object)) return;
      std::string name = platform::AsciiLower(item->Name());
      if (name.size() > 3) {
        std::string last = name.substr(name.size() - 3);
        if (last == ".vb") language = cm::vsCMLanguageVB;
        else if (last == ".cs") language = cm::vsCMLanguageCSharp;
      }
    });
  }
  return language;
}

bool IsPublic(const Ref<CodeElement>& element) {
  int access = -1;
  Quietly([&] { access = element->Access(); });
  return (access & cm::vsCMAccessPublic) != 0 || (access & cm::vsCMAccessProtected) != 0;
}

bool IsPublicInScope(const Ref<CodeElement>& element) {
  bool result = true;
  Quietly([&] {
    if (!IsPublic(element)) {
      result = false;
      return;
    }
    Ref<CodeElement> current = element;
    for (;;) {
      auto parent = platform::TryAs<CodeElement>(current->Parent());
      if (!parent) return;
      if (!IsPublic(parent)) {
        result = false;
        return;
      }
      current = parent;
    }
  });
  return result;
}

void SetFontAttributes(platform::forms::Font& font, const std::string& name, int32_t size,
                       int32_t charset, bool bold, bool italic) {
  Quietly([&] { font.Name = name; });
  Quietly([&] { font.Size = size; });
  Quietly([&] { font.Charset = charset; });
  Quietly([&] { font.Bold = bold; });
  Quietly([&] { font.Italic = italic; });
}

void SetNumericOnly(intptr_t hWnd) {
  namespace w = platform::win32;
  Quietly([&] {
    int32_t style = w::GetWindowLongA(hWnd, w::GWL_STYLE);
    if (style != 0) w::SetWindowLongA(hWnd, w::GWL_STYLE, style | w::ES_NUMBER);
  });
}

void ResetForTesting() {
  DTEObject.reset();
  AddInObject.reset();
  AppSettingsObject_HKCU.reset();
  AppSettingsObject_HKLM.reset();
  WorkspaceObject.reset();
  TeamDB.reset();
  PersonalDB.reset();
  OpenedDocuments.reset();
  g_AnalysisOptions = AnalysisOptions();
  g_service.reset();
  g_codeModelHelper.reset();
  ForgetGrammarPaths();
}

}  // namespace annotra::MGlobals
