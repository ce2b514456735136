#include "platform/codemodel/DeclarationTree.h"

#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {

Declaration& DeclarationTree::Append(Declaration* parent, int kind) {
  if (m_size % kChunk == 0) m_chunks.emplace_back().reserve(kChunk);
  Declaration& d = m_chunks.back().emplace_back(kind, parent, static_cast<uint32_t>(m_size));
  ++m_size;
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
