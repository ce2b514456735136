#include "platform/codemodel/VbStatementReader.h"

namespace platform::codemodel {
namespace {

bool IsNewline(char c) { return c == '\r' || c == '\n'; }

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x + 32);
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y + 32);
    if (x != y) return false;
  }
  return true;
}

bool IsWordChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// The ASCII word at `pos` ("" when none).
std::string_view WordAt(std::string_view text, size_t pos) {
  size_t end = pos;
  while (end < text.size() && IsWordChar(text[end])) ++end;
  return text.substr(pos, end - pos);
}

bool IsModifier(VbKeyword k) {
  switch (k) {
    case VbKeyword::Public: case VbKeyword::Private: case VbKeyword::Protected: case VbKeyword::Friend:
    case VbKeyword::Shared: case VbKeyword::Shadows: case VbKeyword::Overloads: case VbKeyword::Overrides:
    case VbKeyword::Overridable: case VbKeyword::NotOverridable: case VbKeyword::MustOverride:
    case VbKeyword::MustInherit: case VbKeyword::NotInheritable: case VbKeyword::Partial:
    case VbKeyword::ReadOnly: case VbKeyword::WriteOnly: case VbKeyword::Default: case VbKeyword::Widening:
    case VbKeyword::Narrowing: case VbKeyword::WithEvents: case VbKeyword::Static: case VbKeyword::Dim:
    case VbKeyword::Const: case VbKeyword::Async: case VbKeyword::Iterator: case VbKeyword::Custom:
      return true;
    default:
      return false;
  }
}

// Keywords after which a declaration's parameter list follows: a '<' after its '(' or
// ',' opens a parameter's attributes, not an XML literal.
bool IsHeaderKeyword(VbKeyword k) {
  switch (k) {
    case VbKeyword::Sub: case VbKeyword::Function: case VbKeyword::Property: case VbKeyword::Event:
    case VbKeyword::Operator: case VbKeyword::Delegate: case VbKeyword::Declare: case VbKeyword::Set:
    case VbKeyword::AddHandler: case VbKeyword::RemoveHandler: case VbKeyword::RaiseEvent:
      return true;
    default:
      return false;
  }
}

bool IsQueryKeyword(VbKeyword k) {
  switch (k) {
    case VbKeyword::Select: case VbKeyword::Where: case VbKeyword::Let: case VbKeyword::Distinct:
    case VbKeyword::Take: case VbKeyword::Skip: case VbKeyword::Join: case VbKeyword::By:
    case VbKeyword::Into: case VbKeyword::On: case VbKeyword::Equals: case VbKeyword::Ascending:
    case VbKeyword::Descending: case VbKeyword::Aggregate: case VbKeyword::While:
      return true;
    default:
      return false;
  }
}

// Directives VB knows; a '#' line starting with another word is no directive (a date
// literal may begin a continued line).
bool IsDirectiveWord(std::string_view w) {
  static const char* const kWords[] = {"if", "elseif", "else", "end", "endif", "const", "region",
                                       "externalsource", "externalchecksum", "enable", "disable", "r"};
  for (const char* k : kWords)
    if (EqualsNoCase(w, k)) return true;
  return false;
}

}  // namespace

VbStatementReader::VbStatementReader(std::string_view text, const PreprocessorSymbols& symbols)
    : m_text(text), m_lexer(text), m_preprocessor(symbols) {}

uint32_t VbStatementReader::NextLineStart(uint32_t pos) const {
  const size_t n = m_text.size();
  while (pos < n && !IsNewline(m_text[pos])) ++pos;
  if (pos < n && m_text[pos] == '\r') ++pos;
  if (pos < n && m_text[pos] == '\n') ++pos;
  return pos;
}

uint32_t VbStatementReader::Directive(uint32_t pos) {
  uint32_t wordStart = m_lexer.SkipBlanks(pos + 1);
  if (!IsDirectiveWord(WordAt(m_text, wordStart))) return 0;
  // The directive's tokens come from its own line only, so that a stray quote in it
  // cannot run on into the code below.
  uint32_t lineEnd = wordStart;
  while (lineEnd < m_text.size() && !IsNewline(m_text[lineEnd])) ++lineEnd;
  std::string_view line = m_text.substr(pos + 1, lineEnd - pos - 1);
  VbLexer lexer(line);
  m_directive.clear();
  for (uint32_t p = 0;;) {
    VbToken t = lexer.Scan(p, VbScanContext{});
    if (t.kind == VbTokenKind::End || t.kind == VbTokenKind::Newline) break;
    if (t.kind == VbTokenKind::Comment || t.kind == VbTokenKind::Continuation) continue;
    m_directive.push_back(t);
  }
  m_preprocessor.Directive(line, m_directive);
  return NextLineStart(lineEnd);
}

uint32_t VbStatementReader::SkipInactive(uint32_t pos) {
  const size_t n = m_text.size();
  while (pos < n && !m_preprocessor.Active()) {
    uint32_t p = m_lexer.SkipBlanks(pos);
    if (p < n && m_text[p] == '#') {
      if (uint32_t next = Directive(p)) {
        pos = next;
        continue;
      }
    }
    pos = NextLineStart(p);
  }
  return pos;
}

bool VbStatementReader::NextLineContinues(uint32_t pos, bool inQuery) const {
  uint32_t p = m_lexer.SkipBlanks(pos);
  if (p >= m_text.size()) return false;
  char c = m_text[p];
  if (c == ')' || c == '}') return true;
  if (!inQuery) return false;
  std::string_view word = WordAt(m_text, p);
  VbKeyword k = LookupVbKeyword(word);
  if (k == VbKeyword::Select) {
    // "Select Case" begins a statement of its own.
    uint32_t q = m_lexer.SkipBlanks(static_cast<uint32_t>(p + word.size()));
    return !EqualsNoCase(WordAt(m_text, q), "case");
  }
  return IsQueryKeyword(k) || k == VbKeyword::Order || k == VbKeyword::Group || k == VbKeyword::From ||
         k == VbKeyword::In;
}

bool VbStatementReader::Next(VbStatement& out) {
  out.tokens.clear();
  out.docComments.clear();
  const size_t n = m_text.size();

  enum class Attr { None, InBlock, AfterBlock };
  Attr attr = Attr::None;
  bool attrTarget = false;     // an attribute block with an Assembly: or Module: target
  int parens = 0;              // open ( and {
  bool explicitContinuation = false;
  bool implicitContinuation = false;
  bool inQuery = false;
  bool modifiersOnly = true;   // only modifiers (after attribute blocks) so far
  bool declarationHeader = false;
  bool imports = false;
  bool axisOpen = false;       // inside x.<name>
  bool lastClosedAxis = false;  // the last token closed x.<name>

  while (true) {
    if (m_atLineStart) {
      uint32_t p = m_lexer.SkipBlanks(m_pos);
      if (p < n && m_text[p] == '#') {
        if (uint32_t next = Directive(p)) {
          m_pos = SkipInactive(next);
          continue;
        }
      }
      m_atLineStart = false;
      m_lineHasToken = false;
    }
    VbScanContext ctx;
    if (!out.tokens.empty()) {
      const VbToken& prev = out.tokens.back();
      ctx.afterMemberAccess = prev.Is(VbPunct::Dot) || prev.Is(VbPunct::QuestionDot) || prev.Is(VbPunct::Bang);
      bool parameterStart = prev.Is(VbPunct::LParen) || prev.Is(VbPunct::Comma);
      ctx.xmlAllowed = attr != Attr::InBlock && ExpectsOperand(prev) && !(declarationHeader && parameterStart);
      ctx.xmlTagOnly = imports && (out.tokens.size() == 1 || prev.Is(VbPunct::Comma));
    }
    VbToken t = m_lexer.Scan(m_pos, ctx);
    switch (t.kind) {
      case VbTokenKind::End:
        m_pos = static_cast<uint32_t>(n);
        if (!out.tokens.empty()) return true;
        m_pendingDocs.clear();
        return false;
      case VbTokenKind::Newline: {
        m_atLineStart = true;
        if (out.tokens.empty()) continue;
        if (explicitContinuation) {
          explicitContinuation = false;
          continue;
        }
        if (implicitContinuation) continue;
        const VbToken& last = out.tokens.back();
        bool continues = false;
        if (last.kind == VbTokenKind::Punct) {
          switch (last.punct) {
            case VbPunct::RParen: case VbPunct::RBrace: case VbPunct::Colon: case VbPunct::Question:
            case VbPunct::Bang: case VbPunct::Hash: case VbPunct::Dollar: case VbPunct::Percent:
            case VbPunct::Semicolon: case VbPunct::None:
              break;
            case VbPunct::Greater:
              // An attribute list continues onto the declaration below it; an assembly
              // attribute is a statement of its own; x.<name> ends like a name.
              if (attr == Attr::AfterBlock) continues = !attrTarget;
              else continues = !lastClosedAxis;
              break;
            default:
              continues = true;
          }
        } else if (last.kind == VbTokenKind::Identifier) {
          switch (last.keyword) {
            case VbKeyword::And: case VbKeyword::AndAlso: case VbKeyword::Or: case VbKeyword::OrElse:
            case VbKeyword::Xor: case VbKeyword::Mod: case VbKeyword::Like: case VbKeyword::Is:
            case VbKeyword::IsNot: case VbKeyword::In: case VbKeyword::From:
              continues = true;
              break;
            default:
              continues = inQuery && IsQueryKeyword(last.keyword);
          }
        }
        if (continues) {
          implicitContinuation = true;
          continue;
        }
        if (NextLineContinues(m_pos, inQuery)) continue;
        return true;
      }
      case VbTokenKind::Comment:
        if (t.docComment && out.tokens.empty() && !m_lineHasToken) m_pendingDocs.push_back({t.offset, t.length});
        continue;
      case VbTokenKind::Continuation:
        explicitContinuation = true;
        continue;
      default:
        break;
    }
    if (t.Is(VbPunct::Colon) && parens == 0 && attr != Attr::InBlock) {
      if (out.tokens.empty()) continue;  // a stray separator
      return true;
    }

    const VbToken* prev = out.tokens.empty() ? nullptr : &out.tokens.back();
    if (!prev) {
      out.docComments.swap(m_pendingDocs);
      m_pendingDocs.clear();
      imports = t.Is(VbKeyword::Imports);
    }
    m_lineHasToken = true;
    implicitContinuation = false;
    lastClosedAxis = false;

    bool inAttribute = false;
    if (t.Is(VbPunct::Less) && parens == 0 && (!prev || attr == Attr::AfterBlock)) {
      attr = Attr::InBlock;
      inAttribute = true;
    } else if (attr == Attr::InBlock) {
      inAttribute = true;
      if (t.Is(VbPunct::Greater) && parens == 0) attr = Attr::AfterBlock;
      if (t.Is(VbPunct::Colon) && prev && (prev->Is(VbKeyword::Assembly) || prev->Is(VbKeyword::Module))) attrTarget = true;
    } else if (attr == Attr::AfterBlock) {
      attr = Attr::None;
    }
    if (!inAttribute && modifiersOnly && t.kind == VbTokenKind::Identifier) {
      if (IsHeaderKeyword(t.keyword)) declarationHeader = true;
      if (!IsModifier(t.keyword)) modifiersOnly = false;
    } else if (!inAttribute) {
      modifiersOnly = false;
    }

    if (t.Is(VbPunct::LParen) || t.Is(VbPunct::LBrace)) ++parens;
    else if ((t.Is(VbPunct::RParen) || t.Is(VbPunct::RBrace)) && parens > 0) --parens;
    if ((t.Is(VbKeyword::From) || t.Is(VbKeyword::Aggregate)) && prev && ExpectsOperand(*prev)) inQuery = true;
    if (t.Is(VbPunct::Less) && prev && (prev->Is(VbPunct::Dot) || prev->Is(VbPunct::Ellipsis) || prev->Is(VbPunct::At)))
      axisOpen = true;
    else if (t.Is(VbPunct::Greater) && axisOpen) {
      axisOpen = false;
      lastClosedAxis = true;
    }
    out.tokens.push_back(t);
  }
}

}  // namespace platform::codemodel
