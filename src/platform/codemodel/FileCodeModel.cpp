#include "platform/codemodel/FileCodeModel.h"

#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextBuffer.h"
#include "platform/core/Error.h"

namespace platform::codemodel {

FileCodeModel::FileCodeModel(std::string language, const automation::TextBuffer* text,
                             automation::TextDocument* textDocument, automation::ProjectItem* item)
    : m_language(std::move(language)), m_text(text), m_textDocument(textDocument), m_item(item) {}

std::shared_ptr<const void> FileCodeModel::KeepAlive() const {
  auto owner = m_keepAlive.lock();
  if (!owner) throw Error(err::kObjectNotSet);
  return owner;
}

Ref<CodeElements> FileCodeModel::CodeElements() const {
  return std::make_shared<class CodeElements>(KeepAlive(), &m_topLevel);
}

Ref<automation::ProjectItem> FileCodeModel::Parent() const {
  if (!m_item) return nullptr;
  return m_item->shared_from_this();
}

std::string_view FileCodeModel::Text() const { return m_text->Text(); }

CodeElement& FileCodeModel::AddElement(CodeElement* parent, int kind) {
  CodeElement& e = m_elements.emplace_back(this, parent, kind);
  (parent ? parent->m_members : m_topLevel).push_back(&e);
  return e;
}

CodeElement& FileCodeModel::AddAttribute(CodeElement& owner) {
  CodeElement& e = m_elements.emplace_back(this, &owner, vsCMElementAttribute);
  owner.m_attributes.push_back(&e);
  return e;
}

Ref<CodeElement> FileCodeModel::CodeElementFromLine(int line) const {
  const CodeElement* best = nullptr;
  const std::vector<CodeElement*>* level = &m_topLevel;
  // Descend through the elements that hold the line; members lie inside their parent.
  for (bool descended = true; descended;) {
    descended = false;
    for (const CodeElement* e : *level) {
      if (m_text->LineOfOffset(e->start) <= line && line <= m_text->LineOfOffset(e->end)) {
        best = e;
        level = &e->members();
        descended = true;
        break;
      }
    }
  }
  if (!best) return nullptr;
  return std::shared_ptr<CodeElement>(KeepAlive(), const_cast<CodeElement*>(best));
}

}  // namespace platform::codemodel
