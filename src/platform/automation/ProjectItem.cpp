#include "platform/automation/ProjectItem.h"

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/DocumentReadAhead.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Window.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/core/Error.h"

namespace platform::automation {

ProjectItem::ProjectItem(std::string name, std::string kind, std::filesystem::path path)
    : m_name(std::move(name)), m_kind(std::move(kind)), m_path(std::move(path)) {}

Ref<ProjectItems> ProjectItem::Collection() const { return m_collection.lock(); }

Ref<ProjectItems> ProjectItem::ProjectItems() const {
  if (m_subProject) return nullptr;
  if (!m_children) {
    auto collection = m_collection.lock();
    std::weak_ptr<Project> project;
    if (collection) project = collection->ContainingProject();
    auto self = std::const_pointer_cast<ProjectItem>(shared_from_this());
    m_children = std::make_shared<automation::ProjectItems>(std::weak_ptr<Dispatch>(self), project);
  }
  return m_children;
}

Ref<Project> ProjectItem::ContainingProject() const {
  auto collection = m_collection.lock();
  if (!collection) return nullptr;
  return collection->ContainingProject();
}

Ref<Document> ProjectItem::LoadDocument() const {
  if (auto doc = m_document.lock()) return doc;
  if (m_kind != vsProjectItemKindPhysicalFile) throw Error(err::kNotSupported);
  auto project = ContainingProject();
  codemodel::PreprocessorSymbols symbols;
  std::weak_ptr<DTE> dte;
  if (project) {
    symbols = project->symbols();
    dte = project->dte();
  }
  Ref<automation::Document> doc;
  // What a walk's read-ahead has prepared for this item, if anything.
  auto owner = dte.lock();
  if (auto readAhead = owner ? owner->ReadAhead() : nullptr)
    if (auto prepared = readAhead->Take(this))
      doc = Document::Adopt(std::move(*prepared), const_cast<ProjectItem*>(this), dte,
                            codemodel::LanguageOfFile(m_name), std::move(symbols));
  if (!doc)
    doc = Document::Load(m_path, const_cast<ProjectItem*>(this), dte, codemodel::LanguageOfFile(m_name),
                         std::move(symbols));
  m_document = doc;
  return doc;
}

bool ProjectItem::IsOpen(const std::string& viewKind) const {
  if (viewKind != vsViewKindCode && !viewKind.empty()) return false;
  auto doc = m_document.lock();
  if (!doc) return false;
  auto dte = ContainingProject() ? ContainingProject()->dte().lock() : nullptr;
  return dte && dte->IsOpen(doc.get());
}

Ref<Window> ProjectItem::Open(const std::string& viewKind) {
  if (viewKind != vsViewKindCode && !viewKind.empty()) throw Error(err::kInvalidCall);
  auto document = LoadDocument();
  // An item open in the code view already gives the window it has.
  if (IsOpen(viewKind))
    if (auto window = document->ActiveWindow()) return window;
  return document->OpenWindow(false);
}

Ref<Document> ProjectItem::Document() const {
  if (!IsOpen(vsViewKindCode)) return nullptr;
  return m_document.lock();
}

Ref<automation::FileCodeModel> ProjectItem::FileCodeModel() const {
  if (m_kind != vsProjectItemKindPhysicalFile || !m_compiled || codemodel::LanguageOfFile(m_name).empty())
    return nullptr;
  return LoadDocument()->CodeModel();
}

Ref<Dispatch> ProjectItem::Object() const {
  if (m_webItem) return std::make_shared<WebProjectItemObject>();
  return std::make_shared<ProjectItemObject>();
}

std::string ProjectItem::FileNames(int index) const {
  if (index != 1) throw Error(err::kInvalidCall);
  return m_path.string();
}

}  // namespace platform::automation
