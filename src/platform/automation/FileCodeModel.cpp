#include "platform/automation/FileCodeModel.h"

#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextBuffer.h"
#include "platform/core/Error.h"

namespace platform::automation {

FileCodeModel::FileCodeModel(std::string language, const TextBuffer* text, TextDocument* textDocument,
                             ProjectItem* item)
    : m_language(std::move(language)),
      m_text(text),
      m_textDocument(textDocument),
      m_item(item),
      m_declarations(text->Text()) {}

void FileCodeModel::Parse(const codemodel::LanguageParser& parser, const codemodel::PreprocessorSymbols& symbols) {
  parser.Parse(m_declarations, symbols);
  MakeElements();
}

void FileCodeModel::Adopt(codemodel::DeclarationTree&& declarations) {
  m_declarations = std::move(declarations);
  m_declarations.Rebind(m_text->Text());
  MakeElements();
}

void FileCodeModel::MakeElements() {
  m_elements.reserve(m_declarations.Size());
  for (size_t i = 0; i < m_declarations.Size(); ++i) m_elements.emplace_back(this, &m_declarations.At(i));
}

std::shared_ptr<const void> FileCodeModel::KeepAlive() const {
  auto owner = m_keepAlive.lock();
  if (!owner) throw Error(err::kObjectNotSet);
  return owner;
}

Ref<CodeElements> FileCodeModel::CodeElements() const {
  return std::make_shared<class CodeElements>(KeepAlive(), this, &m_declarations.TopLevel());
}

Ref<ProjectItem> FileCodeModel::Parent() const {
  if (!m_item) return nullptr;
  return m_item->shared_from_this();
}

Ref<CodeElement> FileCodeModel::CodeElementFromLine(int line) const {
  const codemodel::Declaration* best = nullptr;
  const std::vector<codemodel::Declaration*>* level = &m_declarations.TopLevel();
  // Descend through the declarations that hold the line; members lie inside their parent.
  for (bool descended = true; descended;) {
    descended = false;
    for (const codemodel::Declaration* d : *level) {
      if (m_text->LineOfOffset(d->start) <= line && line <= m_text->LineOfOffset(d->end)) {
        best = d;
        level = &d->members;
        descended = true;
        break;
      }
    }
  }
  if (!best) return nullptr;
  return ElementOf(*best);
}

}  // namespace platform::automation
