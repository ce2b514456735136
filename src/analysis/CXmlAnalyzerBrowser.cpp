#include "analysis/CXmlAnalyzerBrowser.h"

#include "platform/core/AsciiText.h"
#include "analysis/CEstimate.h"
#include "analysis/CStatus.h"
#include "host/MGlobals.h"
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
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/CodeModelHelper.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/ServiceObject.h"
#include "platform/win32/Keyboard.h"

namespace annotra {

using platform::suite::kScopeDocument;
using platform::suite::kScopeMethod;
using platform::suite::kScopeOpenDocuments;
using platform::suite::kScopeProject;
using platform::suite::kScopeSolution;
using platform::suite::kScopeSolutionFolder;

using namespace platform::automation;
namespace cm = platform::codemodel;
using platform::Ref;

namespace {

constexpr const char* kEstimating = "Estimating...";

bool IsCodeLanguage(const std::string& language) {
  return language == cm::vsCMLanguageCSharp || language == cm::vsCMLanguageVB;
}

// The active document's text document; none when there is no active document or it is
// no text document.
Ref<TextDocument> ActiveTextDocument() {
  Ref<TextDocument> text;
  Quietly([&] { text = MGlobals::DTEObject->ActiveDocument()->Object("TextDocument"); });
  return text;
}

// The first project selected in the solution window; none when nothing is selected.
Ref<Project> FirstSelectedProject() {
  Ref<Project> project;
  Quietly([&] {
    auto selected = MGlobals::DTEObject->ActiveSolutionProjects();
    if (selected.empty()) throw platform::Error(platform::err::kSubscriptOutOfRange);
    project = selected[0];
  });
  return project;
}

bool IsSolutionFolder(const Ref<Project>& project) {
  return project && platform::TryAs<SolutionFolder>(project->Object());
}

bool TooManyOpened() {
  return MGlobals::OpenedDocuments &&
         static_cast<int>(MGlobals::OpenedDocuments->size()) >=
             MGlobals::g_AnalysisOptions.OpenDocAllowed;
}

}  // namespace

CXmlAnalyzerBrowser::CXmlAnalyzerBrowser() = default;
CXmlAnalyzerBrowser::~CXmlAnalyzerBrowser() = default;

void CXmlAnalyzerBrowser::BeginWalk() {
  MGlobals::OpenedDocuments = std::make_shared<std::vector<Ref<Document>>>();
  m_oCodeModel = std::make_shared<platform::suite::CodeModelHelper>();
  m_oEstimate = std::make_shared<CEstimate>();
  m_oStatus = std::make_shared<CStatus>();
}

void CXmlAnalyzerBrowser::EndWalk() {
  m_oCodeModel.reset();
  m_oEstimate.reset();
  m_oStatus.reset();
  MGlobals::CloseOpenedDocuments();
  MGlobals::OpenedDocuments.reset();
}

void CXmlAnalyzerBrowser::WalkScope(int32_t scope) {
  switch (scope) {
    case kScopeMethod:
    case kScopeDocument: {
      auto text = ActiveTextDocument();
      if (!text) return;
      m_oStatus->InitStatus(0, "");
      if (scope == kScopeMethod) FindInMethod(text);
      else FindInComponent(text);
      m_oStatus->ShutdownStatus();
      return;
    }
    case kScopeOpenDocuments: {
      m_oStatus->InitStatus(m_oEstimate->EstimateOpenDocuments(), kEstimating);
      Ref<Documents> documents;
      Quietly([&] { documents = MGlobals::DTEObject->Documents(); });
      if (documents) {
        for (const Ref<Document>& document : *documents) {
          if (!MGlobals::HasDocumentTextCodeVisible(document)) continue;
          Ref<TextDocument> text;
          Quietly([&] { text = document->Object("TextDocument"); });
          if (!text) continue;
          bool accepted = false;
          Quietly([&] { accepted = m_oCodeModel->IsDocument(text->Parent(), 4, false); });
          if (!accepted) continue;
          FindInComponent(text);
          if (TooManyOpened()) MGlobals::CloseOpenedDocuments();
        }
      }
      m_oStatus->ShutdownStatus();
      return;
    }
    case kScopeProject:
    case kScopeSolutionFolder: {
      Ref<Project> project;
      if (scope == kScopeProject) {
        Quietly([&] {
          project = MGlobals::DTEObject->ActiveDocument()->ProjectItem()->ContainingProject();
        });
        if (!project) project = FirstSelectedProject();
      } else {
        project = FirstSelectedProject();
        if (project && !IsSolutionFolder(project)) {
          Ref<Project> parent;
          Quietly([&] { parent = project->ParentProjectItem()->ContainingProject(); });
          project = IsSolutionFolder(parent) ? parent : nullptr;
        }
      }
      if (!project) return;
      int32_t n = 0;
      Quietly([&] { n = m_oEstimate->EstimateProjectItems(project->ProjectItems()); });
      m_oStatus->InitStatus(n, kEstimating);
      FindInProject(project);
      m_oStatus->ShutdownStatus();
      return;
    }
    case kScopeSolution: {
      Ref<Projects> projects;
      Quietly([&] { projects = MGlobals::DTEObject->Solution()->Projects(); });
      if (!projects) return;
      int32_t n = 0;
      for (int i = 1; i <= projects->Count(); ++i)
        Quietly([&] { n += m_oEstimate->EstimateProjectItems(projects->Item(i)->ProjectItems()); });
      m_oStatus->InitStatus(n, kEstimating);
      for (int i = 1; i <= projects->Count() && !m_bCancelled; ++i) {
        Ref<Project> project;
        Quietly([&] { project = projects->Item(i); });
        FindInProject(project);
      }
      m_oStatus->ShutdownStatus();
      return;
    }
    default:
      return;  // 5 and unknown values walk nothing
  }
}

void CXmlAnalyzerBrowser::FindInMethod(const Ref<TextDocument>& textDocument) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.FindInMethod");
  m_sLanguage.clear();
  step(1, [&] { m_sLanguage = m_oCodeModel->DocumentLanguage(textDocument->Parent(), 3, 0); });
  if (m_sLanguage.empty()) return;
  bool process = false;
  step(2, [&] { process = CanProcessDocument(textDocument->Parent()); });
  if (!process) return;
  Ref<CodeElement> element;
  Quietly([&] {
    element = MGlobals::Service()->CodeElementAtCaret(textDocument->Parent(), nullptr, 130);
  });
  if (!element) return;
  step(4, [&] {
    if (element->Kind() == cm::vsCMElementFunction)
      WalkIntoCodeElements(textDocument, element, MGlobals::IsPublicInScope(element));
  });
}

void CXmlAnalyzerBrowser::FindInComponent(const Ref<TextDocument>& textDocument) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.FindInComponent");
  m_sLanguage.clear();
  step(1, [&] { m_sLanguage = m_oCodeModel->DocumentLanguage(textDocument->Parent(), 3, 0); });
  if (m_sLanguage.empty()) return;
  bool process = false;
  step(2, [&] { process = CanProcessDocument(textDocument->Parent()); });
  if (!process) return;
  int count = 0;
  Quietly([&] { count = textDocument->Parent()->ProjectItem()->FileCodeModel()->CodeElements()->Count(); });
  for (int i = 1; i <= count; ++i) {
    Ref<CodeElement> element;
    Quietly([&] {
      element = textDocument->Parent()->ProjectItem()->FileCodeModel()->CodeElements()->Item(i);
    });
    if (element)
      step(4, [&] { WalkIntoCodeElements(textDocument, element, MGlobals::IsPublic(element)); });
  }
}

void CXmlAnalyzerBrowser::WalkIntoCodeElements(const Ref<TextDocument>& textDocument,
                                               const Ref<CodeElement>& element,
                                               bool bParentPublic) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.WalkIntoCodeElements");
  if (!element) return;
  step(2, [&] { DefinitionAnalysis(textDocument, element, bParentPublic); });
  int kind = -1;
  Quietly([&] { kind = element->Kind(); });
  if (MGlobals::g_AnalysisOptions.EnableBody) {
    if (kind == cm::vsCMElementFunction) {
      step(3, [&] {
        if (element->Name() != "InitializeComponent") BodyAnalysis(textDocument, element);
      });
    }
  }
  // Only containers have members; asking the others would fail, which costs an
  // exception per element and gives the same 0.
  int count = 0;
  if (CodeElement::KindHasMembers(kind)) Quietly([&] { count = element->Members()->Count(); });
  for (int i = 1; i <= count; ++i) {
    Ref<CodeElement> member;
    Quietly([&] { member = element->Members()->Item(i); });
    if (!member) continue;
    step(5, [&] {
      bool childPublic = bParentPublic && MGlobals::IsPublic(member);
      WalkIntoCodeElements(textDocument, member, childPublic);
    });
  }
}

void CXmlAnalyzerBrowser::FindInProject(const Ref<Project>& project) {
  if (m_bCancelled) return;
  if (!CanProcessProject(project)) return;
  Ref<ProjectItems> items;
  Quietly([&] { items = project->ProjectItems(); });
  FindInProjectItems(items);
}

void CXmlAnalyzerBrowser::FindInProjectItems(const Ref<ProjectItems>& items) {
  if (m_bCancelled || !items) return;
  int count = 0;
  Quietly([&] { count = items->Count(); });
  for (int i = 1; i <= count; ++i) {
    Ref<ProjectItem> item;
    Quietly([&] { item = items->Item(i); });
    if (item) {
      Ref<Project> sub;
      Quietly([&] { sub = item->SubProject(); });
      if (sub) {
        FindInProject(sub);
        if (m_bCancelled) break;
      } else {
        bool own = false;
        Quietly([&] { own = item->Collection().get() == items.get(); });
        if (own) {
          Ref<ProjectItems> children;
          Quietly([&] { children = item->ProjectItems(); });
          int childCount = 0;
          Quietly([&] { childCount = children ? children->Count() : 0; });
          if (childCount > 0) {
            FindInProjectItems(children);
            if (m_bCancelled) break;
          }
          SearchItem(item);
          if (m_bCancelled) break;
        }
      }
    }
    if (TooManyOpened()) MGlobals::CloseOpenedDocuments();
  }
}

void CXmlAnalyzerBrowser::SearchItem(const Ref<ProjectItem>& item) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.SearchItem");
  if (CancelRequested()) {
    m_bCancelled = true;
    return;
  }
  if (!item) return;
  std::string language = MGlobals::GetItemLanguage(item);
  if (!IsCodeLanguage(language)) {
    step(3, [&] { m_oStatus->IncrementStatus(1, "Searching"); });
    return;
  }
  step(4, [&] {
    m_oStatus->IncrementStatus(1, "Searching (press <Ctrl+C> to cancel) in " +
                                      MGlobals::Service()->ItemDisplayName(item));
  });
  Ref<TextDocument> text;
  Quietly([&] {
    int count = 0;
    Ref<FileCodeModel> model = item->FileCodeModel();
    if (model) count = model->CodeElements()->Count();
    if (count > 0) {
      for (int i = 1; i <= count && !text; ++i) {
        Quietly([&] { text = model->CodeElements()->Item(i)->StartPoint()->CreateEditPoint()->Parent(); });
      }
    } else {
      text = MGlobals::GetDocument(item)->Object("");
    }
  });
  if (text) step(6, [&] { FindInComponent(text); });
}

bool CXmlAnalyzerBrowser::CancelRequested() {
  bool cancel = false;
  Quietly([&] {
    namespace w = platform::win32;
    bool c = (w::GetAsyncKeyState(w::VK_C) & 0x8000) != 0;
    bool ctrl = (w::GetAsyncKeyState(w::VK_CONTROL) & 0x8000) != 0;
    if (c && ctrl) {
      namespace f = platform::forms;
      int answer = f::MsgBox("Do you want to stop the current operation?",
                             f::vbYesNo | f::vbDefaultButton2 | f::vbExclamation, "Scribane");
      cancel = answer == f::vbYes;
    }
  });
  return cancel;
}

bool CXmlAnalyzerBrowser::CanProcessProject(const Ref<Project>& project) {
  if (!project) return false;
  bool accepted = false;
  Quietly([&] {
    auto helper = std::make_shared<platform::suite::CodeModelHelper>();
    accepted = helper->IsProject(project, 3, false);
  });
  if (accepted) return true;
  bool hidden = false;
  Quietly([&] { hidden = platform::As<SolutionFolder>(project->Object())->Hidden(); });
  if (!hidden) return true;
  bool web = false;
  Quietly([&] { web = project->Kind() == kProjectKindWebSite; });
  return web;
}

bool CXmlAnalyzerBrowser::CanProcessDocument(const Ref<Document>& document) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.CanProcessDocument");
  std::string name;
  Quietly([&] { name = document->Name(); });
  if (name.empty()) return false;
  std::string lower = platform::AsciiLower(name);
  if (lower.find(".designer.") != std::string::npos || lower == "assemblyinfo.vb" || lower == "assemblyinfo.cs")
    return false;
  return !(MGlobals::g_AnalysisOptions.SkipGenerated && IsGeneratedDocument(document));
}

bool CXmlAnalyzerBrowser::IsGeneratedDocument(const Ref<Document>& document) {
  std::string name;
  Quietly([&] { name = platform::AsciiLower(document->Name()); });
  for (const char* end : {".g.cs", ".g.i.cs", ".generated.cs", ".g.vb", ".g.i.vb", ".generated.vb"}) {
    const std::string_view suffix(end);
    if (name.size() > suffix.size() && name.ends_with(suffix)) return true;
  }
  // The marker stands in the comments that open the file, before its first line of code
  // (blank lines and preprocessor lines may come between); a long licence header is read
  // to its end, up to a limit.
  constexpr int kMaxLeadingLines = 400;
  bool generated = false;
  Quietly([&] {
    Ref<TextDocument> text = document->Object("TextDocument");
    const int last = std::min(text->EndPoint()->Line(), kMaxLeadingLines);
    auto point = text->StartPoint()->CreateEditPoint();
    bool inBlock = false;  // inside a C# /* */ comment
    for (int line = 1; line <= last; ++line) {
      std::string lower = platform::AsciiLower(platform::Trim(point->GetLines(line, line + 1), " \t\r\n"));
      const bool comment = inBlock || lower.empty() || lower[0] == '#' || lower.starts_with("//") ||
                           lower.starts_with("/*") || lower[0] == '\'' || lower.starts_with("rem ") || lower == "rem";
      if (!comment) return;
      if (lower.find("<auto-generated") != std::string::npos || lower.find("<autogenerated") != std::string::npos) {
        generated = true;
        return;
      }
      if (!inBlock && lower.starts_with("/*")) inBlock = lower.find("*/", 2) == std::string::npos;
      else if (inBlock) inBlock = lower.find("*/") == std::string::npos;
    }
  });
  return generated;
}

std::string CXmlAnalyzerBrowser::GetProjectItemPath(const Ref<TextDocument>& textDocument) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.GetProjectItemPath");
  std::string path;
  Ref<platform::Dispatch> start;
  if (!step(1, [&] { start = textDocument->Parent()->ProjectItem()->Collection()->Parent(); }))
    return "";
  step(2, [&] {
    while (!platform::TryAs<Project>(start)) {
      auto item = platform::TryAs<ProjectItem>(start);
      if (!item) {
        path.clear();
        return;
      }
      path = path.empty() ? item->Name() : item->Name() + "\\" + path;
      start = item->Collection()->Parent();
    }
  });
  return path;
}

}  // namespace annotra
