#include "platform/codemodel/VbDeclarationParser.h"

#include <optional>

#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/DocComment.h"
#include "platform/codemodel/VbTypeText.h"

namespace platform::codemodel {
namespace {

// Words VB reserves; the others in VbKeyword are contextual and may name things.
bool IsContextual(VbKeyword k) {
  switch (k) {
    case VbKeyword::None: case VbKeyword::Aggregate: case VbKeyword::Ansi: case VbKeyword::Ascending:
    case VbKeyword::Assembly: case VbKeyword::Async: case VbKeyword::Auto: case VbKeyword::Await:
    case VbKeyword::By: case VbKeyword::Custom: case VbKeyword::Descending: case VbKeyword::Distinct:
    case VbKeyword::Equals: case VbKeyword::From: case VbKeyword::Group: case VbKeyword::Into:
    case VbKeyword::Iterator: case VbKeyword::Join: case VbKeyword::Order: case VbKeyword::Skip:
    case VbKeyword::Take: case VbKeyword::Unicode: case VbKeyword::Until: case VbKeyword::Where:
    case VbKeyword::Yield:
      return true;
    default:
      return false;
  }
}

// A token that can be a name: an escaped name, or a word VB does not reserve.
bool IsName(const VbToken& t) {
  return t.kind == VbTokenKind::Bracketed || (t.kind == VbTokenKind::Identifier && IsContextual(t.keyword));
}

bool IsDeclarationKeyword(VbKeyword k) {
  switch (k) {
    case VbKeyword::Namespace: case VbKeyword::Module: case VbKeyword::Class: case VbKeyword::Structure:
    case VbKeyword::Interface: case VbKeyword::Enum: case VbKeyword::Sub: case VbKeyword::Function:
    case VbKeyword::Operator: case VbKeyword::Property: case VbKeyword::Event: case VbKeyword::Delegate:
    case VbKeyword::Declare:
      return true;
    default:
      return false;
  }
}

// Modifiers VB reserves: one of them begins a declaration wherever it stands.
bool IsReservedModifier(VbKeyword k) {
  switch (k) {
    case VbKeyword::Public: case VbKeyword::Private: case VbKeyword::Protected: case VbKeyword::Friend:
    case VbKeyword::Shared: case VbKeyword::Shadows: case VbKeyword::Overloads: case VbKeyword::Overrides:
    case VbKeyword::Overridable: case VbKeyword::NotOverridable: case VbKeyword::MustOverride:
    case VbKeyword::MustInherit: case VbKeyword::NotInheritable: case VbKeyword::Partial:
    case VbKeyword::ReadOnly: case VbKeyword::WriteOnly: case VbKeyword::Default: case VbKeyword::Widening:
    case VbKeyword::Narrowing: case VbKeyword::WithEvents:
      return true;
    default:
      return false;
  }
}

bool IsContextualModifier(VbKeyword k) {
  return k == VbKeyword::Async || k == VbKeyword::Iterator || k == VbKeyword::Custom;
}

// The bracket that closes the one at p (or `end` when it does not close).
const VbToken* GroupClose(const VbToken* p, const VbToken* end) {
  int depth = 0;
  for (; p < end; ++p) {
    if (p->Is(VbPunct::LParen) || p->Is(VbPunct::LBrace)) ++depth;
    else if ((p->Is(VbPunct::RParen) || p->Is(VbPunct::RBrace)) && --depth == 0) return p;
  }
  return end;
}

// The token after the bracket group at p (or `end` when it does not close).
const VbToken* AfterGroup(const VbToken* p, const VbToken* end) {
  const VbToken* close = GroupClose(p, end);
  return close < end ? close + 1 : end;
}

// The token after an attribute list that begins at p ('<').
const VbToken* AfterAttributeList(const VbToken* p, const VbToken* end) {
  int depth = 0;
  for (++p; p < end; ++p) {
    if (p->Is(VbPunct::LParen) || p->Is(VbPunct::LBrace)) ++depth;
    else if ((p->Is(VbPunct::RParen) || p->Is(VbPunct::RBrace)) && depth > 0) --depth;
    else if (depth == 0 && p->Is(VbPunct::Greater)) return p + 1;
  }
  return end;
}

const VbToken* SkipAttributeLists(const VbToken* p, const VbToken* end) {
  while (p < end && p->Is(VbPunct::Less)) p = AfterAttributeList(p, end);
  return p;
}

// Whether the bracket group at p holds nothing but commas: an array's rank.
bool IsRankGroup(const VbToken* p, const VbToken* end) {
  if (p >= end || !p->Is(VbPunct::LParen)) return false;
  for (++p; p < end; ++p) {
    if (p->Is(VbPunct::RParen)) return true;
    if (!p->Is(VbPunct::Comma)) return false;
  }
  return false;
}

// The rank text of the bracket group at p: "()" or "(,)" and so on, bounds dropped.
std::string RankText(const VbToken* p, const VbToken* end) {
  std::string out = "(";
  int depth = 0;
  for (; p < end; ++p) {
    if (p->Is(VbPunct::LParen) || p->Is(VbPunct::LBrace)) ++depth;
    else if ((p->Is(VbPunct::RParen) || p->Is(VbPunct::RBrace)) && --depth == 0) break;
    else if (depth == 1 && p->Is(VbPunct::Comma)) out += ',';
  }
  return out + ")";
}

struct Cursor {
  const VbToken* p;
  const VbToken* end;
  bool Done() const { return p >= end; }
  bool At(VbKeyword k) const { return p < end && p->Is(k); }
  bool At(VbPunct k) const { return p < end && p->Is(k); }
  bool AtName() const { return p < end && IsName(*p); }
};

struct Modifiers {
  bool any = false;
  bool isPublic = false, isPrivate = false, isProtected = false, isFriend = false;
  bool mustOverride = false, withEvents = false, widening = false, narrowing = false;
  bool custom = false, isConst = false;
};

Modifiers ReadModifiers(Cursor& c) {
  Modifiers m;
  while (!c.Done() && c.p->kind == VbTokenKind::Identifier) {
    VbKeyword k = c.p->keyword;
    if (IsContextualModifier(k)) {
      // Async, Iterator and Custom are modifiers only before a declaration.
      if (c.p + 1 >= c.end || c.p[1].kind != VbTokenKind::Identifier) break;
      VbKeyword next = c.p[1].keyword;
      if (!IsDeclarationKeyword(next) && !IsReservedModifier(next) && !IsContextualModifier(next)) break;
      if (k == VbKeyword::Custom) m.custom = true;
    } else if (!IsReservedModifier(k) && k != VbKeyword::Dim && k != VbKeyword::Const && k != VbKeyword::Static) {
      break;
    }
    switch (k) {
      case VbKeyword::Public: m.isPublic = true; break;
      case VbKeyword::Private: m.isPrivate = true; break;
      case VbKeyword::Protected: m.isProtected = true; break;
      case VbKeyword::Friend: m.isFriend = true; break;
      case VbKeyword::MustOverride: m.mustOverride = true; break;
      case VbKeyword::WithEvents: m.withEvents = true; break;
      case VbKeyword::Widening: m.widening = true; break;
      case VbKeyword::Narrowing: m.narrowing = true; break;
      case VbKeyword::Const: m.isConst = true; break;
      default: break;
    }
    m.any = true;
    ++c.p;
  }
  return m;
}

std::optional<int> ExplicitAccess(const Modifiers& m) {
  if (m.isProtected && m.isFriend) return 12;
  if (m.isPrivate && m.isProtected) return 64;
  if (m.isPublic) return 1;
  if (m.isPrivate) return 2;
  if (m.isFriend) return 4;
  if (m.isProtected) return 8;
  return std::nullopt;
}

bool InType(VbBlock b) {
  return b == VbBlock::Class || b == VbBlock::Module || b == VbBlock::Structure || b == VbBlock::Interface;
}

// Access of a type or delegate: Friend at file or namespace level, Public nested.
int TypeAccess(const Modifiers& m, VbBlock where) {
  if (auto a = ExplicitAccess(m)) return *a;
  return where == VbBlock::File || where == VbBlock::Namespace ? 4 : 1;
}

int MemberAccess(const Modifiers& m) { return ExplicitAccess(m).value_or(1); }

// The type at c (after As): a name with its dots and (Of ...) lists, or a tuple, then
// '?' and array ranks unless `asNew` (where a bracket group holds constructor arguments).
std::string ReadType(Cursor& c, std::string_view text, bool asNew) {
  const VbToken* begin = c.p;
  if (c.At(VbPunct::LParen)) {
    c.p = AfterGroup(c.p, c.end);
  } else {
    if (c.At(VbKeyword::Global)) ++c.p;
    else if (c.AtName()) ++c.p;
    else return "";
    while (!c.Done()) {
      if (c.At(VbPunct::Dot) && c.p + 1 < c.end &&
          (c.p[1].kind == VbTokenKind::Identifier || c.p[1].kind == VbTokenKind::Bracketed)) {
        c.p += 2;
      } else if (c.At(VbPunct::LParen) && c.p + 1 < c.end && c.p[1].Is(VbKeyword::Of)) {
        c.p = AfterGroup(c.p, c.end);
      } else {
        break;
      }
    }
  }
  while (!asNew && !c.Done()) {
    if (c.At(VbPunct::Question)) ++c.p;
    else if (IsRankGroup(c.p, c.end)) c.p = AfterGroup(c.p, c.end);
    else break;
  }
  return VbJoinTokens(text, begin, c.p);
}

// "As [New] [<attributes>] Type" at c, when there is one; "" otherwise.
std::string ReadAsClause(Cursor& c, std::string_view text) {
  if (!c.At(VbKeyword::As)) return "";
  ++c.p;
  bool asNew = c.At(VbKeyword::New);
  if (asNew) ++c.p;
  c.p = SkipAttributeLists(c.p, c.end);
  return ReadType(c, text, asNew);
}

// The name of the element at c, as written; moves past it. After Sub, Function, Class
// and the like any word is taken as the name, reserved or not: converted code names
// members "get" or "set", and the element is worth more than the complaint.
std::string ReadName(Cursor& c, std::string_view text, char* typeChar) {
  *typeChar = 0;
  if (c.Done() || (c.p->kind != VbTokenKind::Identifier && c.p->kind != VbTokenKind::Bracketed)) return "";
  *typeChar = c.p->typeChar;
  std::string name(text.substr(c.p->offset, c.p->length));
  ++c.p;
  return name;
}

// A type parameter list "(Of ...)" at c is skipped.
void SkipTypeParameters(Cursor& c) {
  if (c.At(VbPunct::LParen) && c.p + 1 < c.end && c.p[1].Is(VbKeyword::Of)) c.p = AfterGroup(c.p, c.end);
}

// One parameter, tokens [p, end): [<attributes>] [Optional] [ByVal|ByRef] [ParamArray]
// name[?][()] [As Type] [= default].
ParameterData ReadParameter(const VbToken* p, const VbToken* end, std::string_view text) {
  ParameterData param;
  p = SkipAttributeLists(p, end);
  while (p < end && (p->Is(VbKeyword::Optional) || p->Is(VbKeyword::ByVal) || p->Is(VbKeyword::ByRef) ||
                     p->Is(VbKeyword::ParamArray)))
    ++p;
  if (p >= end || (p->kind != VbTokenKind::Identifier && p->kind != VbTokenKind::Bracketed)) return param;
  std::string_view name = text.substr(p->offset, p->length);
  if (p->typeChar) name.remove_suffix(1);
  param.name = std::string(name);
  std::string_view typeCharType = VbTypeOfTypeChar(p->typeChar);
  ++p;
  std::string suffix;
  if (p < end && p->Is(VbPunct::Question)) {
    suffix += '?';
    ++p;
  }
  while (p < end && p->Is(VbPunct::LParen)) {
    suffix += RankText(p, end);
    p = AfterGroup(p, end);
  }
  Cursor c{p, end};
  std::string type = ReadAsClause(c, text);
  if (type.empty()) type = typeCharType.empty() ? "Object" : std::string(typeCharType);
  param.type = type + suffix;
  return param;
}

// The parameter list at c ('('), to its closing bracket.
std::vector<ParameterData> ReadParameters(Cursor& c, std::string_view text) {
  std::vector<ParameterData> params;
  const VbToken* last = GroupClose(c.p, c.end);
  const VbToken* p = c.p + 1;
  while (p < last) {
    const VbToken* begin = p;
    p = SkipAttributeLists(p, last);
    int depth = 0;
    for (; p < last; ++p) {
      if (p->Is(VbPunct::LParen) || p->Is(VbPunct::LBrace)) ++depth;
      else if ((p->Is(VbPunct::RParen) || p->Is(VbPunct::RBrace)) && depth > 0) --depth;
      else if (depth == 0 && p->Is(VbPunct::Comma)) break;
    }
    ParameterData param = ReadParameter(begin, p, text);
    if (!param.name.empty()) params.push_back(std::move(param));
    if (p < last) ++p;  // the comma
  }
  c.p = last < c.end ? last + 1 : c.end;
  return params;
}

// The type VB gives a constant declared without As, from its initializer [p, end).
std::string_view ConstantType(const VbToken* p, const VbToken* end, std::string_view text) {
  std::string_view first;
  for (const VbToken* q = p; q < end; ++q) {
    if (q->Is(VbPunct::Amp)) return "String";
    if (first.empty()) first = VbLiteralType(text, *q);
  }
  return first.empty() ? "Object" : first;
}

// Skips to the comma that ends a declarator (or the end).
void SkipToComma(Cursor& c) {
  int depth = 0;
  for (; !c.Done(); ++c.p) {
    if (c.At(VbPunct::LParen) || c.At(VbPunct::LBrace)) ++depth;
    else if ((c.At(VbPunct::RParen) || c.At(VbPunct::RBrace)) && depth > 0) --depth;
    else if (depth == 0 && c.At(VbPunct::Comma)) return;
  }
}

}  // namespace

VbDeclarationParser::VbDeclarationParser(DeclarationTree& tree)
    : m_tree(tree), m_text(tree.Text()), m_lexer(tree.Text()) {}

std::string VbDeclarationParser::DocText(const std::vector<VbSpan>& docs) const {
  if (docs.empty()) return "";
  std::vector<std::string_view> lines;
  lines.reserve(docs.size());
  for (const VbSpan& s : docs) {
    size_t p = s.offset;
    for (int i = 0; i < 3; ++i) p += m_lexer.ApostropheAt(p);
    size_t end = static_cast<size_t>(s.offset) + s.length;
    lines.push_back(DropOneBlank(m_text.substr(p, end > p ? end - p : 0)));
  }
  return WrapDocComment(lines);
}

Declaration& VbDeclarationParser::Add(Declaration* parent, int kind, uint32_t start, uint32_t end,
                                      const std::vector<Attribute>& attributes, const std::vector<VbSpan>& docs) {
  Declaration& e = m_tree.AddDeclaration(parent, kind);
  e.start = start;
  e.end = end;
  e.docComment = DocText(docs);
  for (const Attribute& a : attributes) {
    Declaration& attr = m_tree.AddAttribute(e);
    attr.name = a.name;
    attr.start = a.start;
    attr.end = a.end;
  }
  return e;
}

size_t VbDeclarationParser::ReadAttributes(const VbStatement& st, size_t i, std::vector<Attribute>& out) {
  const VbToken* const end = st.tokens.data() + st.tokens.size();
  const VbToken* p = st.tokens.data() + i;
  while (p < end && p->Is(VbPunct::Less)) {
    const VbToken* listEnd = AfterAttributeList(p, end);
    ++p;
    while (p < listEnd) {
      bool target = false;
      if ((p->Is(VbKeyword::Assembly) || p->Is(VbKeyword::Module)) && p + 1 < listEnd && p[1].Is(VbPunct::Colon)) {
        target = true;
        p += 2;
      }
      const VbToken* nameBegin = p;
      if (p < listEnd && p->Is(VbKeyword::Global)) ++p;
      while (p < listEnd && (p->kind == VbTokenKind::Identifier || p->kind == VbTokenKind::Bracketed)) {
        ++p;
        if (p + 1 < listEnd && p->Is(VbPunct::Dot)) ++p;
        else break;
      }
      const VbToken* nameEnd = p;
      if (nameEnd == nameBegin) break;  // not an attribute: the rest of the list is skipped
      Cursor c{p, listEnd};
      SkipTypeParameters(c);
      uint32_t attrEnd = c.p[-1].end();
      if (c.At(VbPunct::LParen)) {
        c.p = AfterGroup(c.p, listEnd);
        attrEnd = c.p[-1].end();
      }
      Attribute a{nameBegin->offset, attrEnd, VbJoinTokens(m_text, nameBegin, nameEnd)};
      if (target) {
        Declaration& e = m_tree.AddDeclaration(nullptr, vsCMElementAttribute);
        e.name = std::move(a.name);
        e.start = a.start;
        e.end = a.end;
      } else {
        out.push_back(std::move(a));
      }
      p = c.p;
      if (p < listEnd && p->Is(VbPunct::Comma)) ++p;
      else break;
    }
    p = listEnd;
  }
  return static_cast<size_t>(p - st.tokens.data());
}

bool VbDeclarationParser::StartsDeclaration(const VbStatement& st) {
  const VbToken* end = st.tokens.data() + st.tokens.size();
  const VbToken* p = SkipAttributeLists(st.tokens.data(), end);
  if (p >= end) return p != st.tokens.data();
  if (p->kind != VbTokenKind::Identifier) return false;
  VbKeyword k = p->keyword;
  if (IsReservedModifier(k) || IsDeclarationKeyword(k)) return true;
  switch (k) {
    case VbKeyword::Imports: case VbKeyword::Option: case VbKeyword::Inherits: case VbKeyword::Implements:
      return true;
    case VbKeyword::Async: case VbKeyword::Iterator: case VbKeyword::Custom:
      return p + 1 < end && p[1].kind == VbTokenKind::Identifier &&
             (IsDeclarationKeyword(p[1].keyword) || IsReservedModifier(p[1].keyword));
    case VbKeyword::End:
      if (p + 1 >= end) return false;
      switch (p[1].keyword) {
        case VbKeyword::Class: case VbKeyword::Structure: case VbKeyword::Module: case VbKeyword::Interface:
        case VbKeyword::Enum: case VbKeyword::Namespace:
          return p[1].kind == VbTokenKind::Identifier;
        default:
          return false;
      }
    default:
      return false;
  }
}

bool VbDeclarationParser::IsAccessor(const VbStatement& st) {
  const VbToken* end = st.tokens.data() + st.tokens.size();
  const VbToken* p = SkipAttributeLists(st.tokens.data(), end);
  while (p < end && (p->Is(VbKeyword::Public) || p->Is(VbKeyword::Private) || p->Is(VbKeyword::Protected) ||
                     p->Is(VbKeyword::Friend)))
    ++p;
  if (p >= end || !(p->Is(VbKeyword::Get) || p->Is(VbKeyword::Set))) return false;
  return p + 1 == end || p[1].Is(VbPunct::LParen);
}

VbKeyword VbDeclarationParser::EndKeyword(const VbStatement& st) {
  if (!st.tokens[0].Is(VbKeyword::End)) return VbKeyword::None;
  if (st.tokens.size() > 1 && st.tokens[1].kind == VbTokenKind::Identifier && st.tokens[1].keyword != VbKeyword::None)
    return st.tokens[1].keyword;
  return VbKeyword::End;
}

void VbDeclarationParser::ReadEnumMember(const VbStatement& st, Declaration& owner) {
  std::vector<Attribute> attributes;
  std::vector<VbSpan> docs;
  bool pending = !m_pendingAttributes.empty();
  if (pending) {
    attributes.swap(m_pendingAttributes);
    docs.swap(m_pendingDocs);
  }
  size_t i = ReadAttributes(st, 0, attributes);
  if (i >= st.tokens.size()) {
    if (!pending) docs = st.docComments;
    m_pendingAttributes.swap(attributes);
    m_pendingDocs.swap(docs);
    return;
  }
  const VbToken& name = st.tokens[i];
  if (!IsName(name)) return;
  Declaration& e = Add(&owner, vsCMElementVariable, name.offset, st.end(), attributes, pending ? docs : st.docComments);
  e.name = std::string(m_text.substr(name.offset, name.length));
  e.access = vsCMAccessPublic;
  e.prototypeType = owner.name;
}

VbDeclaration VbDeclarationParser::Read(const VbStatement& st, VbBlock where, Declaration* parent) {
  VbDeclaration d;
  std::vector<Attribute> attributes;
  std::vector<VbSpan> pendingDocs;
  bool pending = !m_pendingAttributes.empty();
  if (pending) {
    attributes.swap(m_pendingAttributes);
    pendingDocs.swap(m_pendingDocs);
  }
  size_t i = ReadAttributes(st, 0, attributes);
  if (i >= st.tokens.size()) {
    // Attribute lists alone: they and the documentation before them wait for the
    // declaration that follows.
    if (!attributes.empty()) {
      if (!pending) pendingDocs = st.docComments;
      m_pendingAttributes.swap(attributes);
      m_pendingDocs.swap(pendingDocs);
      d.what = VbDeclaration::What::Attributes;
    }
    return d;
  }
  const std::vector<VbSpan>& docs = pending ? pendingDocs : st.docComments;
  static const std::vector<VbSpan> kNoDocs;
  const std::string_view text = m_text;
  const uint32_t start = st.tokens[i].offset;
  const uint32_t end = st.end();
  Cursor c{st.tokens.data() + i, st.tokens.data() + st.tokens.size()};
  Modifiers m = ReadModifiers(c);
  if (c.Done()) return d;
  const bool inType = InType(where);
  auto add = [&](int kind) -> Declaration& {
    Declaration& e = Add(parent, kind, start, end, attributes, docs);
    d.elements.push_back(&e);
    return e;
  };

  VbKeyword k = c.p->kind == VbTokenKind::Identifier ? c.p->keyword : VbKeyword::None;
  switch (k) {
    case VbKeyword::End:
      d.what = VbDeclaration::What::End;
      d.endKeyword = EndKeyword(st);
      return d;

    case VbKeyword::Namespace: {
      ++c.p;
      Declaration& e = add(vsCMElementNamespace);
      e.name = VbJoinTokens(text, c.p, c.end);
      d.what = VbDeclaration::What::Block;
      d.block = VbBlock::Namespace;
      d.element = &e;
      return d;
    }

    case VbKeyword::Module: case VbKeyword::Class: case VbKeyword::Structure: case VbKeyword::Interface:
    case VbKeyword::Enum: {
      ++c.p;
      static constexpr std::pair<VbKeyword, std::pair<int, VbBlock>> kBlocks[] = {
          {VbKeyword::Module, {vsCMElementModule, VbBlock::Module}},
          {VbKeyword::Class, {vsCMElementClass, VbBlock::Class}},
          {VbKeyword::Structure, {vsCMElementStruct, VbBlock::Structure}},
          {VbKeyword::Interface, {vsCMElementInterface, VbBlock::Interface}},
          {VbKeyword::Enum, {vsCMElementEnum, VbBlock::Enum}},
      };
      int kind = vsCMElementClass;
      for (const auto& [word, what] : kBlocks) {
        if (word != k) continue;
        kind = what.first;
        d.block = what.second;
      }
      char typeChar;
      Declaration& e = add(kind);
      e.name = ReadName(c, text, &typeChar);
      e.access = TypeAccess(m, where);
      d.what = VbDeclaration::What::Block;
      d.element = &e;
      return d;
    }

    case VbKeyword::Sub: case VbKeyword::Function: {
      bool isFunction = k == VbKeyword::Function;
      ++c.p;
      std::string name;
      char typeChar = 0;
      if (c.At(VbKeyword::New)) {
        name = "New";
        ++c.p;
      } else {
        name = ReadName(c, text, &typeChar);
      }
      SkipTypeParameters(c);
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type;
      if (isFunction) {
        type = ReadAsClause(c, text);
        if (type.empty()) type = typeChar ? std::string(VbTypeOfTypeChar(typeChar)) : "Object";
      }
      d.endKeyword = k;
      bool hasBody = where != VbBlock::Interface && !m.mustOverride;
      d.what = hasBody ? VbDeclaration::What::Body : VbDeclaration::What::Single;
      if (!inType || name.empty()) return d;  // out of place: its body is skipped all the same
      Declaration& e = add(vsCMElementFunction);
      e.name = std::move(name);
      e.access = MemberAccess(m);
      e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.element = &e;
      return d;
    }

    case VbKeyword::Operator: {
      ++c.p;
      std::string symbol;
      if (!c.Done() && !c.At(VbPunct::LParen)) {
        symbol = std::string(text.substr(c.p->offset, c.p->length));
        ++c.p;
      }
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type = ReadAsClause(c, text);
      if (type.empty()) type = "Object";
      d.endKeyword = VbKeyword::Operator;
      d.what = where != VbBlock::Interface && !m.mustOverride ? VbDeclaration::What::Body : VbDeclaration::What::Single;
      if (!inType || symbol.empty()) return d;
      Declaration& e = add(vsCMElementFunction);
      bool conversion = symbol.size() == 5 && LookupVbKeyword(symbol) == VbKeyword::None &&
                        (symbol[0] | 0x20) == 'c' && (symbol[1] | 0x20) == 't' && (symbol[2] | 0x20) == 'y' &&
                        (symbol[3] | 0x20) == 'p' && (symbol[4] | 0x20) == 'e';
      if (conversion && (m.widening || m.narrowing)) e.name = (m.widening ? "implicit operator " : "explicit operator ") + type;
      else e.name = "operator " + symbol;
      e.access = MemberAccess(m);
      e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.element = &e;
      return d;
    }

    case VbKeyword::Property: {
      ++c.p;
      char typeChar;
      std::string name = ReadName(c, text, &typeChar);
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type = ReadAsClause(c, text);
      if (type.empty()) type = typeChar ? std::string(VbTypeOfTypeChar(typeChar)) : "Object";
      d.endKeyword = VbKeyword::Property;
      d.what = where == VbBlock::Interface || m.mustOverride ? VbDeclaration::What::Single
                                                            : VbDeclaration::What::PropertyHeader;
      if (!inType || name.empty()) return d;
      Declaration& e = add(vsCMElementProperty);
      e.name = std::move(name);
      e.access = MemberAccess(m);
      if (!params.empty()) e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.element = &e;
      return d;
    }

    case VbKeyword::Event: {
      ++c.p;
      char typeChar;
      std::string name = ReadName(c, text, &typeChar);
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type = ReadAsClause(c, text);
      d.endKeyword = VbKeyword::Event;
      d.what = m.custom && where != VbBlock::Interface ? VbDeclaration::What::Body : VbDeclaration::What::Single;
      if (!inType || name.empty()) return d;
      Declaration& e = add(vsCMElementEvent);
      e.name = std::move(name);
      e.access = MemberAccess(m);
      if (!params.empty()) e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.element = &e;
      return d;
    }

    case VbKeyword::Delegate: {
      ++c.p;
      bool isFunction = c.At(VbKeyword::Function);
      if (!isFunction && !c.At(VbKeyword::Sub)) return d;
      ++c.p;
      char typeChar;
      std::string name = ReadName(c, text, &typeChar);
      if (name.empty() || where == VbBlock::Enum) return d;
      SkipTypeParameters(c);
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type;
      if (isFunction) {
        type = ReadAsClause(c, text);
        if (type.empty()) type = typeChar ? std::string(VbTypeOfTypeChar(typeChar)) : "Object";
      }
      Declaration& e = add(vsCMElementDelegate);
      e.name = std::move(name);
      e.access = TypeAccess(m, where);
      e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.what = VbDeclaration::What::Single;
      d.element = &e;
      return d;
    }

    case VbKeyword::Declare: {
      ++c.p;
      while (c.At(VbKeyword::Ansi) || c.At(VbKeyword::Unicode) || c.At(VbKeyword::Auto)) ++c.p;
      bool isFunction = c.At(VbKeyword::Function);
      if (!isFunction && !c.At(VbKeyword::Sub)) return d;
      ++c.p;
      char typeChar;
      std::string name = ReadName(c, text, &typeChar);
      if (name.empty() || !inType) return d;
      // Lib "file" [Alias "name"]
      while (!c.Done() && !c.At(VbPunct::LParen) && !c.At(VbKeyword::As)) ++c.p;
      std::vector<ParameterData> params;
      if (c.At(VbPunct::LParen)) params = ReadParameters(c, text);
      std::string type;
      if (isFunction) {
        type = ReadAsClause(c, text);
        if (type.empty()) type = typeChar ? std::string(VbTypeOfTypeChar(typeChar)) : "Object";
      }
      Declaration& e = add(vsCMElementDeclareDecl);
      e.name = std::move(name);
      e.access = MemberAccess(m);
      e.parameters = std::move(params);
      e.prototypeType = std::move(type);
      d.what = VbDeclaration::What::Single;
      d.element = &e;
      return d;
    }

    case VbKeyword::Imports: {
      if (where != VbBlock::File || m.any) return d;
      ++c.p;
      while (!c.Done()) {
        const VbToken* clause = c.p;
        SkipToComma(c);
        const VbToken* clauseEnd = c.p;
        if (c.At(VbPunct::Comma)) ++c.p;
        if (clause == clauseEnd || clause->kind == VbTokenKind::Xml || clause->Is(VbPunct::Less)) continue;
        // Imports Alias = Name: the element is named by what it imports.
        if (clause + 2 < clauseEnd && clause[1].Is(VbPunct::Equals)) clause += 2;
        Declaration& e = Add(nullptr, vsCMElementImportStmt, start, end, {}, kNoDocs);
        e.name = VbJoinTokens(text, clause, clauseEnd);
        d.elements.push_back(&e);
      }
      d.what = VbDeclaration::What::Single;
      return d;
    }

    case VbKeyword::Option: {
      if (where != VbBlock::File || m.any) return d;
      Declaration& e = Add(nullptr, vsCMElementOptionStmt, start, end, {}, docs);
      e.name = VbJoinTokens(text, c.p, c.end);
      d.elements.push_back(&e);
      d.what = VbDeclaration::What::Single;
      return d;
    }

    default:
      break;
  }

  // Fields: [modifiers] name[?][(bounds)] [As [New] Type] [= value], name ...
  if (!m.any || !c.AtName()) return d;
  if (where != VbBlock::Class && where != VbBlock::Module && where != VbBlock::Structure) return d;
  struct Declarator {
    const VbToken* name;
    std::string suffix;
    std::string type;          // from As
    std::string_view literal;  // a constant's literal type
  };
  std::vector<Declarator> declarators;
  size_t untyped = 0;  // declarators from here on still wait for an As
  while (c.AtName()) {
    Declarator dcl{c.p, {}, {}, {}};
    ++c.p;
    if (c.At(VbPunct::Question)) {
      dcl.suffix += '?';
      ++c.p;
    }
    while (c.At(VbPunct::LParen)) {
      dcl.suffix += RankText(c.p, c.end);
      c.p = AfterGroup(c.p, c.end);
    }
    declarators.push_back(std::move(dcl));
    if (c.At(VbKeyword::As)) {
      std::string type = ReadAsClause(c, text);
      for (size_t j = untyped; j < declarators.size(); ++j) declarators[j].type = type;
      untyped = declarators.size();
    }
    if (c.At(VbPunct::Equals)) {
      ++c.p;
      const VbToken* value = c.p;
      SkipToComma(c);
      if (m.isConst) declarators.back().literal = ConstantType(value, c.p, text);
      untyped = declarators.size();
    }
    SkipToComma(c);
    if (!c.At(VbPunct::Comma)) break;
    ++c.p;
  }
  int access = ExplicitAccess(m).value_or(where == VbBlock::Structure ? vsCMAccessPublic : vsCMAccessPrivate);
  if (m.withEvents) access += vsCMAccessWithEvents;
  for (const Declarator& dcl : declarators) {
    Declaration& e = add(vsCMElementVariable);
    e.name = std::string(text.substr(dcl.name->offset, dcl.name->length));
    e.access = access;
    std::string type = dcl.type;
    if (type.empty()) type = VbTypeOfTypeChar(dcl.name->typeChar);
    if (type.empty()) type = dcl.literal.empty() ? "Object" : dcl.literal;
    e.prototypeType = type + dcl.suffix;
  }
  d.what = declarators.empty() ? VbDeclaration::What::None : VbDeclaration::What::Single;
  return d;
}

}  // namespace platform::codemodel
