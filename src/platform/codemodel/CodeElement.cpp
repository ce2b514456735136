#include "platform/codemodel/CodeElement.h"

#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/codemodel/FileCodeModel.h"
#include "platform/core/Error.h"

namespace platform::codemodel {

CodeElement::CodeElement(FileCodeModel* model, CodeElement* parent, int k)
    : kind(k), m_model(model), m_parent(parent) {}

bool CodeElement::KindHasMembers(int kind) {
  switch (kind) {
    case vsCMElementNamespace:
    case vsCMElementClass:
    case vsCMElementStruct:
    case vsCMElementInterface:
    case vsCMElementModule:
    case vsCMElementEnum:
      return true;
    default:
      return false;
  }
}

int CodeElement::Access() const {
  if (!access) throw Error(err::kNotSupported);
  return *access;
}

Ref<Dispatch> CodeElement::Parent() const {
  if (m_parent) return m_model->Share<CodeElement>(m_parent);
  return m_model->Share<FileCodeModel>(m_model);
}

Ref<CodeElements> CodeElement::Members() const {
  if (!KindHasMembers(kind)) throw Error(err::kNotSupported);
  return std::make_shared<CodeElements>(m_model->KeepAlive(), &m_members);
}

Ref<automation::TextPoint> CodeElement::StartPoint() const {
  return std::make_shared<automation::TextPoint>(m_model->textDocument()->Self(), start);
}

Ref<automation::TextPoint> CodeElement::EndPoint() const {
  return std::make_shared<automation::TextPoint>(m_model->textDocument()->Self(), end);
}

Ref<CodeElements> CodeElement::Attributes() const {
  return std::make_shared<CodeElements>(m_model->KeepAlive(), &m_attributes);
}

Ref<CodeParameters> CodeElement::Parameters() const {
  if (!parameters) throw Error(err::kNotSupported);
  return std::make_shared<CodeParameters>(m_model->Share(const_cast<CodeElement*>(this)));
}

std::string CodeElement::Prototype(int flags) const {
  if (!prototypeType) throw Error(err::kNotSupported);
  if ((flags & vsCMPrototypeType) && !prototypeType->empty()) return *prototypeType + " " + name;
  return name;
}

std::string CodeElement::Language() const { return m_model->Language(); }

Ref<CodeElement> CodeElements::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return std::shared_ptr<CodeElement>(m_keepAlive, const_cast<CodeElement*>((*m_items)[index - 1]));
}

Ref<CodeParameter> CodeParameters::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return std::make_shared<CodeParameter>(m_owner, &(*m_owner->parameters)[index - 1]);
}

}  // namespace platform::codemodel
