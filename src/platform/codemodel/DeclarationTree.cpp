#include "platform/codemodel/DeclarationTree.h"

#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {

Declaration& DeclarationTree::Append(Declaration* parent, int kind) {
  Declaration& d = m_declarations.emplace_back();
  d.kind = kind;
  d.parent = parent;
  d.index = static_cast<uint32_t>(m_declarations.size() - 1);
  return d;
}

Declaration& DeclarationTree::AddDeclaration(Declaration* parent, int kind) {
  Declaration& d = Append(parent, kind);
  (parent ? parent->members : m_topLevel).push_back(&d);
  return d;
}

Declaration& DeclarationTree::AddAttribute(Declaration& owner) {
  Declaration& d = Append(&owner, vsCMElementAttribute);
  owner.attributes.push_back(&d);
  return d;
}

}  // namespace platform::codemodel
