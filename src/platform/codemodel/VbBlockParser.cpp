#include "platform/codemodel/VbBlockParser.h"

namespace platform::codemodel {

VbBlockParser::VbBlockParser(DeclarationTree& tree, const PreprocessorSymbols& symbols)
    : m_reader(tree.Text(), symbols), m_declarations(tree) {
  m_frames.push_back({VbBlock::File, nullptr});
}

void VbBlockParser::Run() {
  VbStatement st;
  while (m_reader.Next(st)) {
    Dispatch(st);
    m_lastEnd = st.end();
  }
  // The end of the text closes whatever is still open.
  if (m_mode == Mode::Body) CloseMember(m_lambdas > 0 && m_candidateEnd ? m_candidateEnd : m_memberLastEnd);
  for (size_t i = m_frames.size(); i-- > 1;)
    if (m_frames[i].element) m_frames[i].element->end = m_lastEnd;
  m_frames.resize(1);
}

bool VbBlockParser::EndsWithLambdaHeader(const VbStatement& st) {
  // Read backwards from the end, once: [As Type] after ')', whose '(' follows Sub or
  // Function where an operand may stand (after an operator, '(' or ',', '=' and so on,
  // possibly with Async or Iterator before it).
  const VbToken* const begin = st.tokens.data();
  const VbToken* q = begin + st.tokens.size() - 1;
  auto matchOpen = [&](const VbToken* close) -> const VbToken* {
    int depth = 0;
    for (const VbToken* p = close; p >= begin; --p) {
      if (p->Is(VbPunct::RParen)) ++depth;
      else if (p->Is(VbPunct::LParen) && --depth == 0) return p;
    }
    return nullptr;
  };
  // An "As Type" at the end: names, dots, '?' and bracket groups back to As.
  for (const VbToken* p = q; p > begin; --p) {
    if (p->Is(VbKeyword::As)) {
      q = p - 1;
      break;
    }
    if (p->Is(VbPunct::RParen)) {
      const VbToken* open = matchOpen(p);
      if (!open) break;
      p = open;
      continue;
    }
    if (!(p->kind == VbTokenKind::Bracketed || (p->kind == VbTokenKind::Identifier && p->keyword != VbKeyword::As) ||
          p->Is(VbPunct::Dot) || p->Is(VbPunct::Question)))
      break;
  }
  if (!q->Is(VbPunct::RParen)) return false;
  const VbToken* open = matchOpen(q);
  if (!open || open - begin < 2) return false;
  const VbToken* keyword = open - 1;
  if (!keyword->Is(VbKeyword::Sub) && !keyword->Is(VbKeyword::Function)) return false;
  const VbToken* before = keyword - 1;
  while (before > begin && (before->Is(VbKeyword::Async) || before->Is(VbKeyword::Iterator))) --before;
  return ExpectsOperand(*before);
}

void VbBlockParser::Dispatch(const VbStatement& st) {
  switch (m_mode) {
    case Mode::Blocks:
      InBlocks(st);
      break;
    case Mode::Body:
      InBody(st);
      break;
    case Mode::PropertyStart:
      // Get or Set below a property make it a block; anything else, an auto-property.
      if (VbDeclarationParser::IsAccessor(st)) {
        m_mode = Mode::Body;
        InBody(st);
      } else {
        m_mode = Mode::Blocks;
        m_member = nullptr;
        InBlocks(st);
      }
      break;
    case Mode::LambdaTail:
      InLambdaTail(st);
      break;
  }
}

void VbBlockParser::InBlocks(const VbStatement& st) {
  Frame& top = m_frames.back();
  if (top.block == VbBlock::Enum) {
    InEnum(st);
    return;
  }
  VbDeclaration d = m_declarations.Read(st, top.block, top.element);
  switch (d.what) {
    case VbDeclaration::What::End:
      CloseBlock(d.endKeyword, st.end());
      return;
    case VbDeclaration::What::Block:
      m_frames.push_back({d.block, d.element});
      return;
    case VbDeclaration::What::Body:
      StartBody(d.element, d.endKeyword, st.end());
      return;
    case VbDeclaration::What::PropertyHeader:
      StartBody(d.element, VbKeyword::Property, st.end());
      m_mode = Mode::PropertyStart;
      break;
    default:
      break;
  }
  // A field or property initialized with a multi-line lambda runs to the lambda's end.
  if (EndsWithLambdaHeader(st)) {
    m_mode = Mode::LambdaTail;
    m_member = nullptr;
    m_lambdas = 1;
    m_tail = d.elements;
  }
}

void VbBlockParser::InEnum(const VbStatement& st) {
  Frame& top = m_frames.back();
  if (VbDeclarationParser::EndKeyword(st) == VbKeyword::Enum) {
    if (top.element) top.element->end = st.end();
    m_frames.pop_back();
    return;
  }
  if (VbDeclarationParser::StartsDeclaration(st)) {
    // The enum lacks its End Enum: it ends before this declaration.
    if (top.element) top.element->end = m_lastEnd;
    m_frames.pop_back();
    InBlocks(st);
    return;
  }
  if (top.element) m_declarations.ReadEnumMember(st, *top.element);
}

void VbBlockParser::StartBody(Declaration* member, VbKeyword endKeyword, uint32_t headerEnd) {
  m_mode = Mode::Body;
  m_member = member;
  m_memberEnd = endKeyword;
  m_lambdas = 0;
  m_memberLastEnd = headerEnd;
  m_candidateEnd = 0;
}

void VbBlockParser::CloseMember(uint32_t end) {
  if (m_member) m_member->end = end;
  m_member = nullptr;
  m_mode = Mode::Blocks;
}

void VbBlockParser::InBody(const VbStatement& st) {
  VbKeyword endOf = VbDeclarationParser::EndKeyword(st);
  if (endOf == m_memberEnd && m_lambdas == 0) {
    CloseMember(st.end());
    return;
  }
  if (!VbDeclarationParser::IsAccessor(st) && VbDeclarationParser::StartsDeclaration(st)) {
    // The member lacks its End: it ends before this declaration (at the End that a
    // lambda seemed to own, when there was one).
    CloseMember(m_lambdas > 0 && m_candidateEnd ? m_candidateEnd : m_memberLastEnd);
    InBlocks(st);
    return;
  }
  if (endOf == m_memberEnd) m_candidateEnd = st.end();
  if ((endOf == VbKeyword::Sub || endOf == VbKeyword::Function) && m_lambdas > 0) --m_lambdas;
  if (EndsWithLambdaHeader(st)) ++m_lambdas;
  m_memberLastEnd = st.end();
}

void VbBlockParser::InLambdaTail(const VbStatement& st) {
  if (VbDeclarationParser::StartsDeclaration(st)) {
    m_mode = Mode::Blocks;
    InBlocks(st);
    return;
  }
  VbKeyword endOf = VbDeclarationParser::EndKeyword(st);
  if ((endOf == VbKeyword::Sub || endOf == VbKeyword::Function) && m_lambdas > 0) --m_lambdas;
  if (EndsWithLambdaHeader(st)) ++m_lambdas;
  for (Declaration* e : m_tail) e->end = st.end();
  if (m_lambdas == 0) m_mode = Mode::Blocks;
}

void VbBlockParser::CloseBlock(VbKeyword keyword, uint32_t end) {
  VbBlock block;
  switch (keyword) {
    case VbKeyword::Namespace: block = VbBlock::Namespace; break;
    case VbKeyword::Module: block = VbBlock::Module; break;
    case VbKeyword::Class: block = VbBlock::Class; break;
    case VbKeyword::Structure: block = VbBlock::Structure; break;
    case VbKeyword::Interface: block = VbBlock::Interface; break;
    case VbKeyword::Enum: block = VbBlock::Enum; break;
    default: return;  // End Sub and the like out of place, a lone End
  }
  for (size_t i = m_frames.size(); i-- > 1;) {
    if (m_frames[i].block != block) continue;
    for (size_t j = i + 1; j < m_frames.size(); ++j)
      if (m_frames[j].element) m_frames[j].element->end = m_lastEnd;
    if (m_frames[i].element) m_frames[i].element->end = end;
    m_frames.resize(i);
    return;
  }
}

}  // namespace platform::codemodel
