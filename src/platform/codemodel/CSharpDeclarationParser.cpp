#include "platform/codemodel/CSharpDeclarationParser.h"

#include "platform/codemodel/CSharpDocComment.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/CSharpTypeText.h"

namespace platform::codemodel {
namespace {

using Rule = CSharpSyntaxScanner::ModifierRule;
constexpr size_t kFail = CSharpSyntaxScanner::kFail;

// Modifier flags of a declaration (only those that decide something here).
enum : unsigned {
  kPublic = 1u << 0,
  kPrivate = 1u << 1,
  kProtected = 1u << 2,
  kInternal = 1u << 3,
  kStatic = 1u << 4,
  kFile = 1u << 5,
  kOtherModifier = 1u << 6,
};

// Namespaces and types deeper than this keep their element but not their members, so
// that no input can exhaust the stack.
constexpr int kMaxNesting = 100;

}  // namespace

CSharpDeclarationParser::CSharpDeclarationParser(DeclarationTree& tree, const CsTokenStream& stream)
    : m_tree(tree), m_text(tree.Text()), m_stream(stream), m_s(tree.Text(), stream) {}

void CSharpDeclarationParser::Parse() {
  m_p = 0;
  ParseMembers(nullptr, Scope::File, 0, true);
}

std::string CSharpDeclarationParser::TypeText(size_t begin, size_t end) const {
  if (begin >= end || end > m_s.Count()) return {};
  return CsTypeText(m_text, &m_s.At(begin), &m_s.At(begin) + (end - begin));
}

std::string CSharpDeclarationParser::DocCommentOf(size_t first) const {
  size_t begin = first == 0 ? 0 : m_s.At(first - 1).docEnd;
  size_t end = m_s.At(first).docEnd;
  if (begin >= end || end > m_stream.docs.size()) return {};
  return CsDocCommentText(m_text, m_stream.docs.data() + begin, m_stream.docs.data() + end);
}

int CSharpDeclarationParser::AccessOf(const Header& h, Scope scope) const {
  unsigned m = h.modifiers;
  if (m & kPublic) return vsCMAccessPublic;
  if ((m & kPrivate) && (m & kProtected)) return vsCMAccessAssemblyOrFamily;
  if ((m & kProtected) && (m & kInternal)) return vsCMAccessProjectOrProtected;
  if (m & kPrivate) return vsCMAccessPrivate;
  if (m & kProtected) return vsCMAccessProtected;
  if (m & kInternal) return vsCMAccessProject;
  if (m & kFile) return vsCMAccessProject;
  switch (scope) {
    case Scope::File:
    case Scope::Namespace:
      return vsCMAccessProject;
    case Scope::Interface:
      return vsCMAccessPublic;
    default:
      return vsCMAccessPrivate;
  }
}

Declaration& CSharpDeclarationParser::AddElement(Declaration* parent, int kind, const Header& h,
                                                 std::string name, std::optional<int> access,
                                                 uint32_t end) {
  Declaration& e = m_tree.AddDeclaration(parent, kind);
  e.name = std::move(name);
  e.access = access;
  e.start = m_s.At(h.declStart).start;
  e.end = end < e.start ? e.start : end;
  e.docComment = DocCommentOf(h.first);
  for (const Attribute& a : m_attributes) {
    Declaration& attr = m_tree.AddAttribute(e);
    attr.name = TypeText(a.nameBegin, a.nameEnd);
    attr.start = m_s.At(a.nameBegin).start;
    attr.end = a.end;
  }
  return e;
}

// --- Structure ---------------------------------------------------------------------------

void CSharpDeclarationParser::ParseMembers(Declaration* parent, Scope scope, int nesting, bool toEndOfFile) {
  for (;;) {
    if (m_s.IsEnd(m_p)) return;
    if (m_s.Is(m_p, "}")) {
      if (!toEndOfFile) return;
      ++m_p;  // a stray closing brace where nothing is open
      continue;
    }
    if (m_s.Is(m_p, ";")) {
      ++m_p;
      continue;
    }
    size_t before = m_p;
    ParseMember(parent, scope, nesting);
    if (m_p <= before) m_p = before + 1;
  }
}

void CSharpDeclarationParser::ParseMember(Declaration* parent, Scope scope, int nesting) {
  Header h;
  h.first = m_p;
  m_attributes.clear();
  const bool namespaceLevel = scope == Scope::File || scope == Scope::Namespace;
  while (m_s.Is(m_p, "[")) {
    bool global = m_s.IsWord(m_p + 1) && m_s.Is(m_p + 2, ":") &&
                  (m_s.Text(m_p + 1) == "assembly" || m_s.Text(m_p + 1) == "module");
    if (global && namespaceLevel) {
      // [assembly: ...] is a declaration of its own; attributes before it are lost.
      if (m_p == h.first) ParseGlobalAttributeSection();
      return;
    }
    ParseAttributeSection();
  }
  h.declStart = m_p;
  ParseModifiers(h);
  const size_t k = m_p;

  if (m_s.IsKw(k, CsKeyword::Class) || m_s.IsKw(k, CsKeyword::Struct) ||
      m_s.IsKw(k, CsKeyword::Interface) || m_s.IsKw(k, CsKeyword::Enum) ||
      (m_s.IsKw(k, CsKeyword::Record) &&
       (m_s.IsIdentifier(k + 1) || m_s.IsKw(k + 1, CsKeyword::Class) || m_s.IsKw(k + 1, CsKeyword::Struct)))) {
    ParseType(h, parent, scope, nesting);
    return;
  }
  if (m_s.IsKw(k, CsKeyword::Delegate) && !m_s.Is(k + 1, "*") && !m_s.Is(k + 1, "(") && !m_s.Is(k + 1, "{")) {
    ParseDelegate(h, parent, scope);
    return;
  }
  if (m_s.IsKw(k, CsKeyword::Namespace)) {
    if (namespaceLevel) ParseNamespace(h, parent, nesting);
    else Recover(k + 1);
    return;
  }
  if (namespaceLevel) {
    if (m_s.IsKw(k, CsKeyword::Using) || (m_s.IsKw(k, CsKeyword::Global) && m_s.IsKw(k + 1, CsKeyword::Using))) {
      if (ParseUsing(h, scope == Scope::File)) return;
    } else if (m_s.IsKw(k, CsKeyword::Extern) && m_s.IsKw(k + 1, CsKeyword::Alias)) {
      Recover(k);
      return;
    }
    // Top-level statements (and anything else outside a type) declare nothing.
    if (scope == Scope::File) SkipStatement(h.first);
    else Recover(k);
    return;
  }
  ParseTypeMember(h, parent, scope);
}

bool CSharpDeclarationParser::ParseAttributeSection() {
  const size_t open = m_p;
  size_t j = m_p + 1;
  if (m_s.IsWord(j) && m_s.Is(j + 1, ":")) j += 2;  // target: assembly, return, field, ...
  for (;;) {
    if (m_s.Is(j, "]")) {
      m_p = j + 1;
      return true;
    }
    const size_t nameBegin = j;
    if (m_s.IsKw(j, CsKeyword::Global) && m_s.Is(j + 1, "::")) j += 2;
    if (!m_s.IsIdentifier(j)) break;
    ++j;
    bool ok = true;
    for (;;) {
      if (m_s.Is(j, "<")) {
        size_t e = m_s.ScanTypeArguments(j);
        if (e == kFail) {
          ok = false;
          break;
        }
        j = e;
      }
      if ((m_s.Is(j, ".") || m_s.Is(j, "::")) && m_s.IsIdentifier(j + 1)) {
        j += 2;
        continue;
      }
      break;
    }
    if (!ok) break;
    const size_t nameEnd = j;
    uint32_t end = m_s.At(nameEnd - 1).end;
    if (m_s.Is(j, "(")) {
      j = m_s.SkipGroup(j);
      if (!m_s.Is(j - 1, ")")) break;
      end = m_s.At(j - 1).end;
    }
    m_attributes.push_back({nameBegin, nameEnd, end});
    if (m_s.Is(j, ",")) {
      ++j;
      continue;
    }
    if (m_s.Is(j, "]")) {
      m_p = j + 1;
      return true;
    }
    break;
  }
  // Not understood: the section is skipped whole.
  m_p = m_s.SkipGroup(open);
  if (m_p <= open) m_p = open + 1;
  return false;
}

void CSharpDeclarationParser::ParseGlobalAttributeSection() {
  m_attributes.clear();
  ParseAttributeSection();
  for (const Attribute& a : m_attributes) {
    Declaration& e = m_tree.AddDeclaration(nullptr, vsCMElementAttribute);
    e.name = TypeText(a.nameBegin, a.nameEnd);
    e.start = m_s.At(a.nameBegin).start;
    e.end = a.end;
  }
  m_attributes.clear();
}

bool CSharpDeclarationParser::ContextualModifier(size_t i) const {
  size_t next = i + 1;
  if (m_s.Is(next, "(")) {
    // A tuple return type after the modifier: async (int, int) M()
    size_t e = m_s.SkipGroup(next);
    return m_s.Is(e - 1, ")") && m_s.IsWord(e);
  }
  if (!m_s.IsWord(next)) return false;
  size_t after = i + 2;
  // A partial constructor: partial Widget(...) inside Widget.
  if (m_s.IsKw(i, CsKeyword::Partial) && m_s.Is(after, "(") && !m_typeName.empty() && m_s.Text(next) == m_typeName)
    return true;
  return !(m_s.IsEnd(after) || m_s.Is(after, "(") || m_s.Is(after, "=") || m_s.Is(after, ";") ||
           m_s.Is(after, ",") || m_s.Is(after, "{") || m_s.Is(after, "=>") || m_s.Is(after, ")"));
}

bool CSharpDeclarationParser::RefIsModifier(size_t i) const {
  // `ref struct S` (with other modifiers between) declares a ref struct; otherwise
  // `ref` starts a return type.
  for (size_t j = i + 1; j < i + 16; ++j) {
    if (m_s.IsKw(j, CsKeyword::Struct)) return true;
    switch (m_s.At(j).keyword) {
      case CsKeyword::Public: case CsKeyword::Private: case CsKeyword::Protected:
      case CsKeyword::Internal: case CsKeyword::Static: case CsKeyword::Readonly:
      case CsKeyword::Unsafe: case CsKeyword::New: case CsKeyword::Partial: case CsKeyword::File:
        continue;
      default:
        return false;
    }
  }
  return false;
}

void CSharpDeclarationParser::ParseModifiers(Header& h) {
  for (;;) {
    const CsToken& t = m_s.At(m_p);
    if (t.kind != CsTokenKind::Word) return;
    switch (t.keyword) {
      case CsKeyword::Public: h.modifiers |= kPublic; break;
      case CsKeyword::Private: h.modifiers |= kPrivate; break;
      case CsKeyword::Protected: h.modifiers |= kProtected; break;
      case CsKeyword::Internal: h.modifiers |= kInternal; break;
      case CsKeyword::Static: h.modifiers |= kStatic; break;
      case CsKeyword::Readonly: case CsKeyword::Volatile: case CsKeyword::Virtual:
      case CsKeyword::Override: case CsKeyword::Abstract: case CsKeyword::Sealed:
      case CsKeyword::Unsafe: case CsKeyword::New: case CsKeyword::Const: case CsKeyword::Fixed:
        h.modifiers |= kOtherModifier;
        break;
      case CsKeyword::Extern:
        if (m_s.IsKw(m_p + 1, CsKeyword::Alias)) return;
        h.modifiers |= kOtherModifier;
        break;
      case CsKeyword::Ref:
        if (!RefIsModifier(m_p)) return;
        h.modifiers |= kOtherModifier;
        break;
      case CsKeyword::Async: case CsKeyword::Partial: case CsKeyword::Required:
      case CsKeyword::File: case CsKeyword::Scoped:
        if (!ContextualModifier(m_p)) return;
        h.modifiers |= t.keyword == CsKeyword::File ? kFile : kOtherModifier;
        break;
      default:
        return;
    }
    ++m_p;
  }
}

// --- Namespace-level declarations --------------------------------------------------------

void CSharpDeclarationParser::ParseNamespace(const Header& h, Declaration* parent, int nesting) {
  size_t k = m_p + 1;
  const size_t nameBegin = k;
  while (m_s.IsIdentifier(k)) {
    ++k;
    if (m_s.Is(k, ".") && m_s.IsIdentifier(k + 1)) {
      ++k;
      continue;
    }
    break;
  }
  if (k == nameBegin || !(m_s.Is(k, ";") || m_s.Is(k, "{"))) {
    Recover(k);
    return;
  }
  std::string name = TypeText(nameBegin, k);
  if (m_s.Is(k, ";")) {
    // File-scoped: runs to the end of the document.
    Declaration& e = AddElement(parent, vsCMElementNamespace, h, std::move(name), std::nullopt,
                                static_cast<uint32_t>(m_text.size()));
    m_p = k + 1;
    if (nesting < kMaxNesting) ParseMembers(&e, Scope::Namespace, nesting + 1, true);
    else m_p = m_s.Count() - 1;
    return;
  }
  Declaration& e = AddElement(parent, vsCMElementNamespace, h, std::move(name), std::nullopt, 0);
  if (nesting < kMaxNesting) {
    m_p = k + 1;
    ParseMembers(&e, Scope::Namespace, nesting + 1, false);
    if (m_s.Is(m_p, "}")) ++m_p;
  } else {
    m_p = m_s.SkipBlock(k, Rule::Ignore);
  }
  if (m_s.Is(m_p, ";")) ++m_p;
  e.end = EndOfPrevious();
  HoldMembers(e);
}

bool CSharpDeclarationParser::ParseUsing(const Header& h, bool addElement) {
  size_t k = m_p;
  if (m_s.IsKw(k, CsKeyword::Global)) ++k;
  if (!m_s.IsKw(k, CsKeyword::Using)) return false;
  ++k;
  if (m_s.IsKw(k, CsKeyword::Static)) ++k;
  if (m_s.IsKw(k, CsKeyword::Unsafe)) ++k;
  if (m_s.IsIdentifier(k) && m_s.Is(k + 1, "=")) k += 2;  // an alias: named by its target
  const size_t targetBegin = k;
  const size_t targetEnd = m_s.ScanType(k);
  if (targetEnd == kFail || !m_s.Is(targetEnd, ";")) return false;
  m_p = targetEnd + 1;
  if (addElement) {
    m_attributes.clear();
    Declaration& e = AddElement(nullptr, vsCMElementImportStmt, h, TypeText(targetBegin, targetEnd),
                                std::nullopt, m_s.At(targetEnd).end);
    e.docComment.clear();
  }
  return true;
}

void CSharpDeclarationParser::ParseType(const Header& h, Declaration* parent, Scope scope, int nesting) {
  size_t k = m_p;
  int kind = vsCMElementClass;
  Scope inner = Scope::Class;
  if (m_s.IsKw(k, CsKeyword::Record)) {
    ++k;
    if (m_s.IsKw(k, CsKeyword::Struct)) {
      kind = vsCMElementStruct;
      inner = Scope::Struct;
      ++k;
    } else if (m_s.IsKw(k, CsKeyword::Class)) {
      ++k;
    }
  } else {
    switch (m_s.At(k).keyword) {
      case CsKeyword::Struct: kind = vsCMElementStruct; inner = Scope::Struct; break;
      case CsKeyword::Interface: kind = vsCMElementInterface; inner = Scope::Interface; break;
      case CsKeyword::Enum: kind = vsCMElementEnum; break;
      default: break;
    }
    ++k;
  }
  if (!m_s.IsIdentifier(k)) {
    Recover(k);
    return;
  }
  const size_t nameIndex = k++;
  if (m_s.Is(k, "<")) k = m_s.SkipTypeParameters(k);
  // Primary-constructor and positional-record parameters give the type no parameters.
  if (m_s.Is(k, "(")) k = m_s.SkipGroup(k);
  k = m_s.SkipToBody(k);  // base list and constraints
  Declaration& e = AddElement(parent, kind, h, std::string(m_s.Text(nameIndex)), AccessOf(h, scope), 0);
  if (m_s.Is(k, "{")) {
    if (nesting >= kMaxNesting) {
      m_p = m_s.SkipBlock(k, Rule::Ignore);
    } else {
      m_p = k + 1;
      if (kind == vsCMElementEnum) {
        ParseEnumBody(e);
      } else {
        std::string outerName = std::move(m_typeName);
        m_typeName = e.name;
        ParseMembers(&e, inner, nesting + 1, false);
        m_typeName = std::move(outerName);
      }
      if (m_s.Is(m_p, "}")) ++m_p;
    }
    if (m_s.Is(m_p, ";")) ++m_p;
  } else if (m_s.Is(k, ";")) {
    m_p = k + 1;
  } else {
    m_p = k > nameIndex + 1 ? k : nameIndex + 1;
  }
  e.end = EndOfPrevious();
  HoldMembers(e);
}

void CSharpDeclarationParser::HoldMembers(Declaration& e) {
  // Readers find the element at a line by descending into the elements that hold it,
  // so a container must hold its members even in broken code (a file-scoped namespace
  // inside a braced one runs to the end of the text).
  if (!e.members.empty() && e.members.back()->end > e.end) e.end = e.members.back()->end;
}

void CSharpDeclarationParser::ParseEnumBody(Declaration& owner) {
  for (;;) {
    if (m_s.IsEnd(m_p) || m_s.Is(m_p, "}") || m_s.IsAccessModifier(m_p)) return;
    if (m_s.Is(m_p, ",")) {
      ++m_p;
      continue;
    }
    Header h;
    h.first = m_p;
    m_attributes.clear();
    while (m_s.Is(m_p, "[")) ParseAttributeSection();
    h.declStart = m_p;
    if (m_s.IsIdentifier(m_p)) {
      std::string name(m_s.Text(m_p));
      ++m_p;
      if (m_s.Is(m_p, "=")) m_p = m_s.SkipExpression(m_p + 1);
      Declaration& e = AddElement(&owner, vsCMElementVariable, h, std::move(name), vsCMAccessPublic, EndOfPrevious());
      e.prototypeType = owner.name;
      continue;
    }
    size_t before = m_p;
    m_p = m_s.SkipExpression(m_p);
    if (m_p == before && !m_s.Is(m_p, "}") && !m_s.IsEnd(m_p) && !m_s.IsAccessModifier(m_p)) ++m_p;
  }
}

void CSharpDeclarationParser::ParseDelegate(const Header& h, Declaration* parent, Scope scope) {
  const size_t typeBegin = m_p + 1;
  const size_t typeEnd = m_s.ScanType(typeBegin, true);
  if (typeEnd == kFail || !m_s.IsIdentifier(typeEnd)) {
    Recover(typeBegin);
    return;
  }
  size_t k = typeEnd + 1;
  if (m_s.Is(k, "<")) k = m_s.SkipTypeParameters(k);
  if (!m_s.Is(k, "(")) {
    Recover(k);
    return;
  }
  m_p = k;
  std::vector<ParameterData> parameters;
  if (!ParseParameters(parameters)) {
    Recover(m_p);
    return;
  }
  k = m_s.SkipToBody(m_p);  // constraints
  m_p = m_s.Is(k, ";") ? k + 1 : k;
  Declaration& e = AddElement(parent, vsCMElementDelegate, h, std::string(m_s.Text(typeEnd)),
                              AccessOf(h, scope), EndOfPrevious());
  e.parameters = std::move(parameters);
  e.prototypeType = TypeText(typeBegin, typeEnd);
}

// --- Members of types --------------------------------------------------------------------

void CSharpDeclarationParser::ParseTypeMember(const Header& h, Declaration* parent, Scope scope) {
  const size_t k = m_p;
  if (m_s.IsKw(k, CsKeyword::Event)) return ParseEvent(h, parent, scope);
  if (m_s.Is(k, "~")) return ParseConstructorOrFinalizer(h, parent, scope, true);
  if (m_s.IsKw(k, CsKeyword::Implicit) || m_s.IsKw(k, CsKeyword::Explicit)) return ParseConversion(h, parent, scope);
  if (m_s.IsWord(k) && m_s.Text(k) == "extension" && (m_s.Is(k + 1, "(") || m_s.Is(k + 1, "<")) &&
      m_typeName != "extension") {
    // An extension block (extension(T receiver) { ... }): its members are not members of
    // the type in this model; the block is stepped over whole.
    size_t j = m_s.SkipTypeParameters(k + 1);
    if (m_s.Is(j, "(")) j = m_s.SkipGroup(j);
    j = m_s.SkipToBody(j);
    m_p = m_s.Is(j, "{") ? m_s.SkipBlock(j, Rule::Ignore) : j;
    return;
  }
  if (m_s.IsIdentifier(k) && m_s.Is(k + 1, "(")) return ParseConstructorOrFinalizer(h, parent, scope, false);

  const size_t typeBegin = k;
  const size_t typeEnd = m_s.ScanType(k, true);
  if (typeEnd == kFail) {
    Recover(k);
    return;
  }
  // The member's name: an identifier, `this` or `operator X`, qualified by an interface
  // for explicit implementations (whose type arguments stay in the name).
  const size_t nameBegin = typeEnd;
  size_t j = typeEnd, nameEnd = typeEnd;
  bool isThis = false, isOperator = false;
  for (;;) {
    if (m_s.IsKw(j, CsKeyword::This)) {
      isThis = true;
      nameEnd = ++j;
      break;
    }
    if (m_s.IsKw(j, CsKeyword::Operator)) {
      isOperator = true;
      nameEnd = j++;
      break;
    }
    if (!m_s.IsIdentifier(j)) {
      Recover(j);
      return;
    }
    size_t next = j + 1;
    if (m_s.Is(next, "<")) {
      size_t e = m_s.ScanTypeArguments(next);
      if (e != kFail && (m_s.Is(e, ".") || m_s.Is(e, "::"))) {
        j = e + 1;
        continue;
      }
      nameEnd = next;
      j = m_s.SkipTypeParameters(next);  // the method's own type parameters
      break;
    }
    if ((m_s.Is(next, ".") || m_s.Is(next, "::")) &&
        (m_s.IsIdentifier(next + 1) || m_s.IsKw(next + 1, CsKeyword::This) ||
         m_s.IsKw(next + 1, CsKeyword::Operator))) {
      j = next + 1;
      continue;
    }
    nameEnd = j = next;
    break;
  }
  // IFoo.Bar, IFoo.this, IFoo.operator +: more than the member's own name.
  const bool explicitImplementation = isOperator ? nameEnd > nameBegin : nameEnd - nameBegin > 1;
  const int access = explicitImplementation ? vsCMAccessPrivate : AccessOf(h, scope);
  std::string name = TypeText(nameBegin, nameEnd);
  std::string type = TypeText(typeBegin, typeEnd);

  if (isOperator) {
    m_p = j;
    std::string symbol;
    if (!ReadOperatorSymbol(symbol) || !m_s.Is(m_p, "(")) {
      Recover(m_p);
      return;
    }
    name += "operator " + symbol;
    std::vector<ParameterData> parameters;
    if (!ParseParameters(parameters)) {
      Recover(m_p);
      return;
    }
    FinishFunctionBody();
    Declaration& e = AddElement(parent, vsCMElementFunction, h, std::move(name), access, EndOfPrevious());
    e.parameters = std::move(parameters);
    e.prototypeType = std::move(type);
    return;
  }
  if (isThis) {
    if (!m_s.Is(j, "[")) {
      Recover(j);
      return;
    }
    m_p = j;
    std::vector<ParameterData> parameters;
    if (!ParseParameters(parameters)) {
      Recover(m_p);
      return;
    }
    FinishPropertyBody();
    Declaration& e = AddElement(parent, vsCMElementProperty, h, std::move(name), access, EndOfPrevious());
    e.parameters = std::move(parameters);
    e.prototypeType = std::move(type);
    return;
  }
  if (m_s.Is(j, "(")) {
    m_p = j;
    std::vector<ParameterData> parameters;
    if (!ParseParameters(parameters)) {
      Recover(m_p);
      return;
    }
    FinishFunctionBody();
    Declaration& e = AddElement(parent, vsCMElementFunction, h, std::move(name), access, EndOfPrevious());
    e.parameters = std::move(parameters);
    e.prototypeType = std::move(type);
    return;
  }
  if (m_s.Is(j, "{") || m_s.Is(j, "=>")) {
    m_p = j;
    FinishPropertyBody();
    Declaration& e = AddElement(parent, vsCMElementProperty, h, std::move(name), access, EndOfPrevious());
    e.prototypeType = std::move(type);
    return;
  }
  if (!explicitImplementation && nameEnd == nameBegin + 1 &&
      (m_s.Is(j, "=") || m_s.Is(j, ",") || m_s.Is(j, ";") || m_s.Is(j, "["))) {
    m_p = typeEnd;
    ParseFields(h, parent, scope, typeBegin, typeEnd);
    return;
  }
  Recover(j);
}

void CSharpDeclarationParser::ParseFields(const Header& h, Declaration* parent, Scope scope, size_t typeBegin,
                                          size_t typeEnd) {
  // Used for fields and for field-like events: the declaration's kind is told by the
  // token before the type.
  const bool isEvent = typeBegin > 0 && m_s.IsKw(typeBegin - 1, CsKeyword::Event);
  size_t j = m_p;
  std::vector<size_t> names;
  while (m_s.IsIdentifier(j)) {
    names.push_back(j++);
    if (m_s.Is(j, "[")) j = m_s.SkipGroup(j);  // size of a fixed buffer
    if (m_s.Is(j, "=")) j = m_s.SkipExpression(j + 1);
    if (!m_s.Is(j, ",")) break;
    ++j;
  }
  if (names.empty()) {
    Recover(j);
    return;
  }
  if (m_s.Is(j, ";")) ++j;
  m_p = j;
  const uint32_t end = EndOfPrevious();
  const std::string type = TypeText(typeBegin, typeEnd);
  const int access = AccessOf(h, scope);
  for (size_t n : names) {
    Declaration& e = AddElement(parent, isEvent ? vsCMElementEvent : vsCMElementVariable, h,
                                std::string(m_s.Text(n)), access, end);
    e.prototypeType = type;
  }
}

void CSharpDeclarationParser::ParseEvent(const Header& h, Declaration* parent, Scope scope) {
  const size_t typeBegin = m_p + 1;
  const size_t typeEnd = m_s.ScanType(typeBegin);
  if (typeEnd == kFail || !m_s.IsIdentifier(typeEnd)) {
    Recover(typeBegin);
    return;
  }
  // An event with accessors may implement an interface's event explicitly (IFoo.Changed).
  size_t nameEnd = typeEnd + 1;
  for (;;) {
    if (m_s.Is(nameEnd, "<")) {
      size_t e = m_s.ScanTypeArguments(nameEnd);
      if (e == kFail) break;
      nameEnd = e;
    }
    if (m_s.Is(nameEnd, ".") && m_s.IsIdentifier(nameEnd + 1)) {
      nameEnd += 2;
      continue;
    }
    break;
  }
  if (m_s.Is(nameEnd, "{")) {
    const bool explicitImplementation = nameEnd - typeEnd > 1;
    m_p = m_s.SkipBlock(nameEnd, Rule::StopNested);
    Declaration& e = AddElement(parent, vsCMElementEvent, h, TypeText(typeEnd, nameEnd),
                                explicitImplementation ? vsCMAccessPrivate : AccessOf(h, scope), EndOfPrevious());
    e.prototypeType = TypeText(typeBegin, typeEnd);
    return;
  }
  m_p = typeEnd;
  ParseFields(h, parent, scope, typeBegin, typeEnd);
}

void CSharpDeclarationParser::ParseConstructorOrFinalizer(const Header& h, Declaration* parent, Scope scope,
                                                          bool finalizer) {
  const size_t nameIndex = finalizer ? m_p + 1 : m_p;
  if (!m_s.IsIdentifier(nameIndex) || !m_s.Is(nameIndex + 1, "(")) {
    Recover(nameIndex);
    return;
  }
  m_p = nameIndex + 1;
  std::vector<ParameterData> parameters;
  if (!ParseParameters(parameters)) {
    Recover(m_p);
    return;
  }
  FinishFunctionBody();
  std::string name(finalizer ? "~" : "");
  name += m_s.Text(nameIndex);
  // Finalizers and static constructors are private whatever is written.
  int access = (finalizer || (h.modifiers & kStatic)) ? vsCMAccessPrivate : AccessOf(h, scope);
  Declaration& e = AddElement(parent, vsCMElementFunction, h, std::move(name), access, EndOfPrevious());
  e.parameters = std::move(parameters);
  e.prototypeType = std::string();
}

void CSharpDeclarationParser::ParseConversion(const Header& h, Declaration* parent, Scope scope) {
  const size_t keyword = m_p;
  size_t k = m_p + 1;
  std::string prefix;
  if (!m_s.IsKw(k, CsKeyword::Operator)) {
    // An explicit implementation: implicit IFoo<T>.operator int(...)
    const size_t begin = k;
    while (m_s.IsIdentifier(k)) {
      ++k;
      if (m_s.Is(k, "<")) {
        size_t e = m_s.ScanTypeArguments(k);
        if (e == kFail) break;
        k = e;
      }
      if (!m_s.Is(k, ".")) break;
      ++k;
      if (m_s.IsKw(k, CsKeyword::Operator)) break;
    }
    if (!m_s.IsKw(k, CsKeyword::Operator)) {
      Recover(k);
      return;
    }
    prefix = TypeText(begin, k);
  }
  ++k;
  if (m_s.IsKw(k, CsKeyword::Checked)) ++k;
  const size_t typeBegin = k;
  const size_t typeEnd = m_s.ScanType(k);
  if (typeEnd == kFail || !m_s.Is(typeEnd, "(")) {
    Recover(k);
    return;
  }
  m_p = typeEnd;
  std::vector<ParameterData> parameters;
  if (!ParseParameters(parameters)) {
    Recover(m_p);
    return;
  }
  FinishFunctionBody();
  std::string type = TypeText(typeBegin, typeEnd);
  std::string name = prefix + std::string(m_s.Text(keyword)) + " operator " + type;
  Declaration& e = AddElement(parent, vsCMElementFunction, h, std::move(name),
                              prefix.empty() ? AccessOf(h, scope) : vsCMAccessPrivate, EndOfPrevious());
  e.parameters = std::move(parameters);
  e.prototypeType = std::move(type);
}

bool CSharpDeclarationParser::ReadOperatorSymbol(std::string& out) {
  if (m_s.IsKw(m_p, CsKeyword::Checked)) ++m_p;  // checked operators keep the plain name
  if (m_s.IsKw(m_p, CsKeyword::True) || m_s.IsKw(m_p, CsKeyword::False)) {
    out = m_s.Text(m_p++);
    return true;
  }
  if (m_s.At(m_p).kind != CsTokenKind::Punct || m_s.Is(m_p, "(") || m_s.Is(m_p, "{") || m_s.Is(m_p, ";"))
    return false;
  out = m_s.Text(m_p);
  if (out == ">") {
    // '>' is always its own token: >>, >>>, >= and >>= are put back together.
    while (m_s.Adjacent(m_p) && m_s.Is(m_p + 1, ">")) {
      out += '>';
      ++m_p;
    }
    if (m_s.Adjacent(m_p) && m_s.Is(m_p + 1, "=")) {
      out += '=';
      ++m_p;
    }
  }
  ++m_p;
  // Only the overloadable operators (and their compound assignments) name an operator.
  static constexpr std::string_view kOverloadable[] = {
      "+",  "-",  "!",  "~",  "++", "--", "*",  "/",  "%",  "&",   "|",   "^",   "<<",   ">>",
      ">>>", "==", "!=", "<",  ">",  "<=", ">=", "+=", "-=", "*=",  "/=",  "%=",  "&=",   "|=",
      "^=", "<<=", ">>=", ">>>="};
  for (std::string_view op : kOverloadable)
    if (out == op) return true;
  return false;
}

bool CSharpDeclarationParser::ParseParameters(std::vector<ParameterData>& out) {
  const std::string_view close = m_s.Is(m_p, "(") ? ")" : "]";
  size_t j = m_p + 1;
  if (m_s.Is(j, close)) {
    m_p = j + 1;
    return true;
  }
  for (;;) {
    while (m_s.Is(j, "[")) j = m_s.SkipGroup(j);  // attributes
    for (;;) {
      CsKeyword kw = m_s.At(j).keyword;
      if (m_s.IsWord(j) && (kw == CsKeyword::This || kw == CsKeyword::Ref || kw == CsKeyword::Out ||
                            kw == CsKeyword::In || kw == CsKeyword::Params || kw == CsKeyword::Readonly ||
                            (kw == CsKeyword::Scoped && m_s.IsWord(j + 1) && !m_s.Is(j + 2, ",") &&
                             !m_s.Is(j + 2, close) && !m_s.Is(j + 2, "=")))) {
        ++j;
        continue;
      }
      break;
    }
    ParameterData p;
    if (m_s.IsKw(j, CsKeyword::Arglist)) {
      p.name = "__arglist";
      ++j;
    } else {
      size_t typeEnd = m_s.ScanType(j);
      if (typeEnd != kFail && m_s.IsIdentifier(typeEnd)) {
        p.type = TypeText(j, typeEnd);
        p.name = m_s.Text(typeEnd);
        j = typeEnd + 1;
      } else if (typeEnd != kFail && (m_s.Is(typeEnd, ",") || m_s.Is(typeEnd, close))) {
        p.type = TypeText(j, typeEnd);  // a type without a name
        j = typeEnd;
      } else {
        size_t e = m_s.SkipExpression(j);
        if (e == j) {
          m_p = j;
          return false;
        }
        if (e > j + 1 && m_s.IsIdentifier(e - 1)) {
          p.type = TypeText(j, e - 1);
          p.name = m_s.Text(e - 1);
        } else {
          p.type = TypeText(j, e);
        }
        j = e;
      }
    }
    if (m_s.Is(j, "=")) j = m_s.SkipExpression(j + 1);  // default value
    out.push_back(std::move(p));
    if (m_s.Is(j, ",")) {
      ++j;
      continue;
    }
    m_p = j;
    if (m_s.Is(j, close)) {
      ++m_p;
      return true;
    }
    return false;
  }
}

void CSharpDeclarationParser::FinishFunctionBody() {
  size_t k = m_s.SkipToBody(m_p);  // constructor initializer, constraints
  if (m_s.Is(k, "{")) {
    m_p = m_s.SkipBlock(k, Rule::StopInside);
  } else if (m_s.Is(k, "=>")) {
    k = m_s.SkipExpression(k + 1);
    m_p = m_s.Is(k, ";") ? k + 1 : k;
  } else if (m_s.Is(k, ";")) {
    m_p = k + 1;
  } else if (k > m_p) {
    m_p = k;
  }
}

void CSharpDeclarationParser::FinishPropertyBody() {
  if (m_s.Is(m_p, "{")) {
    m_p = m_s.SkipBlock(m_p, Rule::StopNested);
    if (m_s.Is(m_p, "=")) {  // an initializer after the accessors
      size_t k = m_s.SkipExpression(m_p + 1);
      m_p = m_s.Is(k, ";") ? k + 1 : k;
    }
  } else if (m_s.Is(m_p, "=>")) {
    size_t k = m_s.SkipExpression(m_p + 1);
    m_p = m_s.Is(k, ";") ? k + 1 : k;
  } else if (m_s.Is(m_p, ";")) {
    ++m_p;
  }
}

// --- Recovery ----------------------------------------------------------------------------

void CSharpDeclarationParser::Recover(size_t from) {
  int depth = 0;
  size_t j = from;
  for (;; ++j) {
    if (m_s.IsEnd(j)) break;
    if (j > from && depth == 0 && m_s.IsAccessModifier(j)) break;
    if (m_s.Is(j, "{")) {
      j = m_s.SkipBlock(j, Rule::Ignore);
      if (depth == 0) {
        if (m_s.Is(j, ";")) ++j;
        break;
      }
      --j;
      continue;
    }
    if (depth == 0 && m_s.Is(j, "}")) break;
    if (depth == 0 && m_s.Is(j, ";")) {
      ++j;
      break;
    }
    if (m_s.Is(j, "(") || m_s.Is(j, "[")) ++depth;
    else if ((m_s.Is(j, ")") || m_s.Is(j, "]")) && depth > 0) --depth;
  }
  m_p = j;
}

void CSharpDeclarationParser::SkipStatement(size_t from) {
  int depth = 0;
  size_t j = from;
  for (;; ++j) {
    if (m_s.IsEnd(j)) break;
    if (j > from && depth == 0 &&
        (m_s.IsAccessModifier(j) || m_s.IsKw(j, CsKeyword::Class) || m_s.IsKw(j, CsKeyword::Struct) ||
         m_s.IsKw(j, CsKeyword::Interface) || m_s.IsKw(j, CsKeyword::Enum) || m_s.IsKw(j, CsKeyword::Namespace)))
      break;
    if (m_s.Is(j, "{")) {
      j = m_s.SkipBlock(j, Rule::Ignore);
      if (depth == 0) break;
      --j;
      continue;
    }
    if (depth == 0 && m_s.Is(j, "}")) {
      if (j == from) ++j;
      break;
    }
    if (depth == 0 && m_s.Is(j, ";")) {
      ++j;
      break;
    }
    if (m_s.Is(j, "(") || m_s.Is(j, "[")) ++depth;
    else if ((m_s.Is(j, ")") || m_s.Is(j, "]")) && depth > 0) --depth;
  }
  m_p = j;
}

}  // namespace platform::codemodel
