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

// A parameter list read where one may be left out: none when it was left out.
std::optional<std::vector<ParameterData>> OrNone(std::vector<ParameterData> parameters) {
  if (parameters.empty()) return std::nullopt;
  return parameters;
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

// The parameter list at c when there is one ('('); an empty list otherwise.
std::vector<ParameterData> ReadOptionalParameters(Cursor& c, std::string_view text) {
  if (!c.At(VbPunct::LParen)) return {};
  return ReadParameters(c, text);
}

// The type of a function, property or operator: its As clause at c; without one, the
// type of the name's type character `typeChar` (0: none), else Object.
std::string ReturnType(Cursor& c, std::string_view text, char typeChar) {
  std::string type = ReadAsClause(c, text);
  if (type.empty()) type = typeChar ? std::string(VbTypeOfTypeChar(typeChar)) : "Object";
  return type;
}

// One declarator of a field declaration.
struct FieldDeclarator {
  const VbToken* name;
  std::string suffix;        // '?' and array ranks after the name
  std::string type;          // from As
  std::string_view literal;  // a constant's literal type
};

// The declarators at c: name[?][(bounds)] [As [New] Type] [= value], ... An As applies
// to the declarators before it that have none; `isConst` gives each constant the type of
// its literal for when it has no As.
std::vector<FieldDeclarator> ReadDeclarators(Cursor& c, std::string_view text, bool isConst) {
  std::vector<FieldDeclarator> declarators;
  size_t untyped = 0;  // declarators from here on still wait for an As
  while (c.AtName()) {
    FieldDeclarator dcl{c.p, {}, {}, {}};
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
      if (isConst) declarators.back().literal = ConstantType(value, c.p, text);
      untyped = declarators.size();
    }
    SkipToComma(c);
    if (!c.At(VbPunct::Comma)) break;
    ++c.p;
  }
  return declarators;
}

// Whether a member with `m` standing in `where` has a body up to its End.
bool HasBody(const Modifiers& m, VbBlock where) { return where != VbBlock::Interface && !m.mustOverride; }

// Whether the operator symbol `symbol` is CType (a conversion).
bool IsCType(std::string_view symbol) {
  return symbol.size() == 5 && LookupVbKeyword(symbol) == VbKeyword::None && (symbol[0] | 0x20) == 'c' &&
         (symbol[1] | 0x20) == 't' && (symbol[2] | 0x20) == 'y' && (symbol[3] | 0x20) == 'p' &&
         (symbol[4] | 0x20) == 'e';
}

}  // namespace

/// A declaration statement being read: where it stands, the attributes and
/// documentation before it, its extent, its modifiers, and the cursor. Every Read...
/// function for one construct starts with the cursor at the construct's keyword.
struct VbDeclarationParser::Header {
  explicit Header(const VbStatement& statement) : st(statement) {}
  /// The documentation comment lines of the declaration.
  const std::vector<VbSpan>& Docs() const { return pending ? pendingDocs : st.docComments; }

  const VbStatement& st;
  VbBlock where = VbBlock::File;
  Declaration* parent = nullptr;
  std::vector<Attribute> attributes;
  std::vector<VbSpan> pendingDocs;  // the documentation before attribute lists that stood alone
  bool pending = false;             // the attributes began in lists that stood alone
  size_t next = 0;                  // the first token after the attribute lists
  uint32_t start = 0;
  uint32_t end = 0;
  Modifiers modifiers;
  Cursor c{nullptr, nullptr};
};

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

bool VbDeclarationParser::ReadPreamble(Header& h) {
  h.pending = !m_pendingAttributes.empty();
  if (h.pending) {
    h.attributes.swap(m_pendingAttributes);
    h.pendingDocs.swap(m_pendingDocs);
  }
  h.next = ReadAttributes(h.st, 0, h.attributes);
  if (h.next < h.st.tokens.size()) return true;
  // Attribute lists alone: they and the documentation before them wait for the
  // declaration that follows.
  if (!h.attributes.empty()) {
    if (!h.pending) h.pendingDocs = h.st.docComments;
    m_pendingAttributes.swap(h.attributes);
    m_pendingDocs.swap(h.pendingDocs);
  }
  return false;
}

Declaration& VbDeclarationParser::AddDeclared(Header& h, int kind, VbDeclaration& d) {
  Declaration& e = Add(h.parent, kind, h.start, h.end, h.attributes, h.Docs());
  d.elements.push_back(&e);
  return e;
}

Declaration& VbDeclarationParser::AddMember(Header& h, int kind, VbDeclaration& d, std::string name, int access,
                                            std::optional<std::vector<ParameterData>> parameters, std::string type) {
  Declaration& e = AddDeclared(h, kind, d);
  e.name = std::move(name);
  e.access = access;
  e.parameters = std::move(parameters);
  e.prototypeType = std::move(type);
  d.element = &e;
  return e;
}

void VbDeclarationParser::ReadEnumMember(const VbStatement& st, Declaration& owner) {
  Header h(st);
  if (!ReadPreamble(h)) return;
  const VbToken& name = st.tokens[h.next];
  if (!IsName(name)) return;
  Declaration& e = Add(&owner, vsCMElementVariable, name.offset, st.end(), h.attributes, h.Docs());
  e.name = std::string(m_text.substr(name.offset, name.length));
  e.access = vsCMAccessPublic;
  e.prototypeType = owner.name;
}

VbDeclaration VbDeclarationParser::Read(const VbStatement& st, VbBlock where, Declaration* parent) {
  Header h(st);
  if (!ReadPreamble(h)) {
    VbDeclaration d;
    if (!m_pendingAttributes.empty()) d.what = VbDeclaration::What::Attributes;
    return d;
  }
  h.where = where;
  h.parent = parent;
  h.start = st.tokens[h.next].offset;
  h.end = st.end();
  h.c = Cursor{st.tokens.data() + h.next, st.tokens.data() + st.tokens.size()};
  h.modifiers = ReadModifiers(h.c);
  if (h.c.Done()) return {};
  VbKeyword k = h.c.p->kind == VbTokenKind::Identifier ? h.c.p->keyword : VbKeyword::None;
  switch (k) {
    case VbKeyword::End: {
      VbDeclaration d;
      d.what = VbDeclaration::What::End;
      d.endKeyword = EndKeyword(st);
      return d;
    }
    case VbKeyword::Namespace: return ReadNamespace(h);
    case VbKeyword::Module: case VbKeyword::Class: case VbKeyword::Structure: case VbKeyword::Interface:
    case VbKeyword::Enum:
      return ReadTypeBlock(h, k);
    case VbKeyword::Sub: case VbKeyword::Function: return ReadMethod(h, k);
    case VbKeyword::Operator: return ReadOperator(h);
    case VbKeyword::Property: return ReadProperty(h);
    case VbKeyword::Event: return ReadEvent(h);
    case VbKeyword::Delegate: return ReadDelegate(h);
    case VbKeyword::Declare: return ReadDeclare(h);
    case VbKeyword::Imports: return ReadImports(h);
    case VbKeyword::Option: return ReadOption(h);
    default: return ReadFields(h);
  }
}

VbDeclaration VbDeclarationParser::ReadNamespace(Header& h) {
  VbDeclaration d;
  ++h.c.p;
  Declaration& e = AddDeclared(h, vsCMElementNamespace, d);
  e.name = VbJoinTokens(m_text, h.c.p, h.c.end);
  d.what = VbDeclaration::What::Block;
  d.block = VbBlock::Namespace;
  d.element = &e;
  return d;
}

VbDeclaration VbDeclarationParser::ReadTypeBlock(Header& h, VbKeyword keyword) {
  static constexpr std::pair<VbKeyword, std::pair<int, VbBlock>> kBlocks[] = {
      {VbKeyword::Module, {vsCMElementModule, VbBlock::Module}},
      {VbKeyword::Class, {vsCMElementClass, VbBlock::Class}},
      {VbKeyword::Structure, {vsCMElementStruct, VbBlock::Structure}},
      {VbKeyword::Interface, {vsCMElementInterface, VbBlock::Interface}},
      {VbKeyword::Enum, {vsCMElementEnum, VbBlock::Enum}},
  };
  VbDeclaration d;
  ++h.c.p;
  int kind = vsCMElementClass;
  for (const auto& [word, what] : kBlocks) {
    if (word != keyword) continue;
    kind = what.first;
    d.block = what.second;
  }
  char typeChar;
  Declaration& e = AddDeclared(h, kind, d);
  e.name = ReadName(h.c, m_text, &typeChar);
  e.access = TypeAccess(h.modifiers, h.where);
  d.what = VbDeclaration::What::Block;
  d.element = &e;
  return d;
}

VbDeclaration VbDeclarationParser::ReadMethod(Header& h, VbKeyword keyword) {
  Cursor& c = h.c;
  ++c.p;
  std::string name;
  char typeChar = 0;
  if (c.At(VbKeyword::New)) {
    name = "New";
    ++c.p;
  } else {
    name = ReadName(c, m_text, &typeChar);
  }
  SkipTypeParameters(c);
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = keyword == VbKeyword::Function ? ReturnType(c, m_text, typeChar) : "";
  VbDeclaration d;
  d.endKeyword = keyword;
  d.what = HasBody(h.modifiers, h.where) ? VbDeclaration::What::Body : VbDeclaration::What::Single;
  if (!InType(h.where) || name.empty()) return d;  // out of place: its body is skipped all the same
  AddMember(h, vsCMElementFunction, d, std::move(name), MemberAccess(h.modifiers), std::move(params), std::move(type));
  return d;
}

VbDeclaration VbDeclarationParser::ReadOperator(Header& h) {
  Cursor& c = h.c;
  ++c.p;
  std::string symbol;
  if (!c.Done() && !c.At(VbPunct::LParen)) {
    symbol = std::string(m_text.substr(c.p->offset, c.p->length));
    ++c.p;
  }
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = ReturnType(c, m_text, 0);
  VbDeclaration d;
  d.endKeyword = VbKeyword::Operator;
  d.what = HasBody(h.modifiers, h.where) ? VbDeclaration::What::Body : VbDeclaration::What::Single;
  if (!InType(h.where) || symbol.empty()) return d;
  const Modifiers& m = h.modifiers;
  std::string name = IsCType(symbol) && (m.widening || m.narrowing)
                         ? (m.widening ? "implicit operator " : "explicit operator ") + type
                         : "operator " + symbol;
  AddMember(h, vsCMElementFunction, d, std::move(name), MemberAccess(m), std::move(params), std::move(type));
  return d;
}

VbDeclaration VbDeclarationParser::ReadProperty(Header& h) {
  Cursor& c = h.c;
  ++c.p;
  char typeChar;
  std::string name = ReadName(c, m_text, &typeChar);
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = ReturnType(c, m_text, typeChar);
  VbDeclaration d;
  d.endKeyword = VbKeyword::Property;
  d.what = HasBody(h.modifiers, h.where) ? VbDeclaration::What::PropertyHeader : VbDeclaration::What::Single;
  if (!InType(h.where) || name.empty()) return d;
  AddMember(h, vsCMElementProperty, d, std::move(name), MemberAccess(h.modifiers), OrNone(std::move(params)),
            std::move(type));
  return d;
}

VbDeclaration VbDeclarationParser::ReadEvent(Header& h) {
  Cursor& c = h.c;
  ++c.p;
  char typeChar;
  std::string name = ReadName(c, m_text, &typeChar);
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = ReadAsClause(c, m_text);
  VbDeclaration d;
  d.endKeyword = VbKeyword::Event;
  d.what = h.modifiers.custom && h.where != VbBlock::Interface ? VbDeclaration::What::Body
                                                               : VbDeclaration::What::Single;
  if (!InType(h.where) || name.empty()) return d;
  AddMember(h, vsCMElementEvent, d, std::move(name), MemberAccess(h.modifiers), OrNone(std::move(params)),
            std::move(type));
  return d;
}

VbDeclaration VbDeclarationParser::ReadDelegate(Header& h) {
  Cursor& c = h.c;
  ++c.p;
  bool isFunction = c.At(VbKeyword::Function);
  if (!isFunction && !c.At(VbKeyword::Sub)) return {};
  ++c.p;
  char typeChar;
  std::string name = ReadName(c, m_text, &typeChar);
  if (name.empty() || h.where == VbBlock::Enum) return {};
  SkipTypeParameters(c);
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = isFunction ? ReturnType(c, m_text, typeChar) : "";
  VbDeclaration d;
  AddMember(h, vsCMElementDelegate, d, std::move(name), TypeAccess(h.modifiers, h.where), std::move(params),
            std::move(type));
  d.what = VbDeclaration::What::Single;
  return d;
}

VbDeclaration VbDeclarationParser::ReadDeclare(Header& h) {
  Cursor& c = h.c;
  ++c.p;
  while (c.At(VbKeyword::Ansi) || c.At(VbKeyword::Unicode) || c.At(VbKeyword::Auto)) ++c.p;
  bool isFunction = c.At(VbKeyword::Function);
  if (!isFunction && !c.At(VbKeyword::Sub)) return {};
  ++c.p;
  char typeChar;
  std::string name = ReadName(c, m_text, &typeChar);
  if (name.empty() || !InType(h.where)) return {};
  // Lib "file" [Alias "name"]
  while (!c.Done() && !c.At(VbPunct::LParen) && !c.At(VbKeyword::As)) ++c.p;
  std::vector<ParameterData> params = ReadOptionalParameters(c, m_text);
  std::string type = isFunction ? ReturnType(c, m_text, typeChar) : "";
  VbDeclaration d;
  AddMember(h, vsCMElementDeclareDecl, d, std::move(name), MemberAccess(h.modifiers), std::move(params),
            std::move(type));
  d.what = VbDeclaration::What::Single;
  return d;
}

VbDeclaration VbDeclarationParser::ReadImports(Header& h) {
  if (h.where != VbBlock::File || h.modifiers.any) return {};
  static const std::vector<VbSpan> kNoDocs;
  Cursor& c = h.c;
  ++c.p;
  VbDeclaration d;
  while (!c.Done()) {
    const VbToken* clause = c.p;
    SkipToComma(c);
    const VbToken* clauseEnd = c.p;
    if (c.At(VbPunct::Comma)) ++c.p;
    if (clause == clauseEnd || clause->kind == VbTokenKind::Xml || clause->Is(VbPunct::Less)) continue;
    // Imports Alias = Name: the element is named by what it imports.
    if (clause + 2 < clauseEnd && clause[1].Is(VbPunct::Equals)) clause += 2;
    Declaration& e = Add(nullptr, vsCMElementImportStmt, h.start, h.end, {}, kNoDocs);
    e.name = VbJoinTokens(m_text, clause, clauseEnd);
    d.elements.push_back(&e);
  }
  d.what = VbDeclaration::What::Single;
  return d;
}

VbDeclaration VbDeclarationParser::ReadOption(Header& h) {
  if (h.where != VbBlock::File || h.modifiers.any) return {};
  VbDeclaration d;
  Declaration& e = Add(nullptr, vsCMElementOptionStmt, h.start, h.end, {}, h.Docs());
  e.name = VbJoinTokens(m_text, h.c.p, h.c.end);
  d.elements.push_back(&e);
  d.what = VbDeclaration::What::Single;
  return d;
}

VbDeclaration VbDeclarationParser::ReadFields(Header& h) {
  const Modifiers& m = h.modifiers;
  if (!m.any || !h.c.AtName()) return {};
  if (h.where != VbBlock::Class && h.where != VbBlock::Module && h.where != VbBlock::Structure) return {};
  std::vector<FieldDeclarator> declarators = ReadDeclarators(h.c, m_text, m.isConst);
  int access = ExplicitAccess(m).value_or(h.where == VbBlock::Structure ? vsCMAccessPublic : vsCMAccessPrivate);
  if (m.withEvents) access += vsCMAccessWithEvents;
  VbDeclaration d;
  for (const FieldDeclarator& dcl : declarators) {
    Declaration& e = AddDeclared(h, vsCMElementVariable, d);
    e.name = std::string(m_text.substr(dcl.name->offset, dcl.name->length));
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
