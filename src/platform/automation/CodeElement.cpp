#include "platform/automation/CodeElement.h"

#include "platform/automation/FileCodeModel.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"

namespace platform::automation {

int CodeElement::Access() const {
  if (!m_declaration->access) throw Error(err::kNotSupported);
  return *m_declaration->access;
}

Ref<Dispatch> CodeElement::Parent() const {
  if (const codemodel::Declaration* parent = m_declaration->parent) return m_model->ElementOf(*parent);
  return m_model->Share(m_model);
}

Ref<CodeElements> CodeElement::Members() const {
  if (!KindHasMembers(m_declaration->kind)) throw Error(err::kNotSupported);
  return std::make_shared<CodeElements>(m_model->KeepAlive(), m_model, &m_declaration->members);
}

Ref<TextPoint> CodeElement::StartPoint() const {
  return std::make_shared<TextPoint>(m_model->textDocument()->Self(), m_declaration->start);
}

Ref<TextPoint> CodeElement::EndPoint() const {
  return std::make_shared<TextPoint>(m_model->textDocument()->Self(), m_declaration->end);
}

Ref<CodeElements> CodeElement::Attributes() const {
  return std::make_shared<CodeElements>(m_model->KeepAlive(), m_model, &m_declaration->attributes);
}

Ref<CodeParameters> CodeElement::Parameters() const {
  if (!m_declaration->parameters) throw Error(err::kNotSupported);
  return std::make_shared<CodeParameters>(m_model->ElementOf(*m_declaration));
}

std::string CodeElement::Prototype(int flags) const {
  if (!m_declaration->prototypeType) throw Error(err::kNotSupported);
  return m_declaration->Prototype((flags & codemodel::vsCMPrototypeType) != 0);
}

std::string CodeElement::Language() const { return m_model->Language(); }

Ref<CodeElement> CodeElements::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return std::shared_ptr<CodeElement>(m_keepAlive, m_model->element(*(*m_items)[index - 1]));
}

Ref<CodeParameter> CodeParameters::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return std::make_shared<CodeParameter>(m_owner, &(*m_owner->declaration().parameters)[index - 1]);
}

}  // namespace platform::automation
