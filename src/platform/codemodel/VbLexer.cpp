#include "platform/codemodel/VbLexer.h"

#include <algorithm>
#include <array>
#include <vector>

namespace platform::codemodel {
namespace {

// Nesting of embedded expressions and interpolation holes beyond which the lexer stops
// recognising them, so that hostile input cannot exhaust the stack.
constexpr int kMaxDepth = 32;
// Failed XML attempts after which the lexer stops looking for XML literals.
constexpr int kMaxXmlFailures = 10000;

bool IsAsciiLetter(unsigned char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }
bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }
bool IsNewline(char c) { return c == '\r' || c == '\n'; }

struct KeywordEntry {
  std::string_view text;
  VbKeyword keyword;
};

constexpr size_t kMaxKeywordLength = 16;

// The keywords grouped by length and first letter, so that a word is compared with the
// few keywords that could be it (a binary search over all of them spent most of its time
// in memcmp).
struct KeywordTable {
  std::array<std::vector<KeywordEntry>, (kMaxKeywordLength + 1) * 26> buckets;
  KeywordTable() {
    static constexpr KeywordEntry kAll[] = {
#define ANNOTRA_VB_KEYWORD_ENTRY(name, text) {text, VbKeyword::name},
        ANNOTRA_VB_KEYWORDS(ANNOTRA_VB_KEYWORD_ENTRY)
#undef ANNOTRA_VB_KEYWORD_ENTRY
    };
    for (const KeywordEntry& e : kAll) buckets[Index(e.text.size(), e.text[0])].push_back(e);
  }
  static size_t Index(size_t length, char first) { return length * 26 + static_cast<size_t>(first - 'a'); }
};


}  // namespace

VbKeyword LookupVbKeyword(std::string_view word) {
  static const KeywordTable table;
  char lower[kMaxKeywordLength];
  if (word.size() < 2 || word.size() > kMaxKeywordLength) return VbKeyword::None;
  for (size_t i = 0; i < word.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(word[i]);
    if (!IsAsciiLetter(c)) return VbKeyword::None;  // keywords are letters only
    lower[i] = static_cast<char>(c | 0x20);
  }
  std::string_view key(lower, word.size());
  for (const KeywordEntry& e : table.buckets[KeywordTable::Index(word.size(), lower[0])]) {
    // Keywords are short: a plain loop beats a call to memcmp.
    size_t i = 1;
    while (i < key.size() && e.text[i] == key[i]) ++i;
    if (i == key.size()) return e.keyword;
  }
  return VbKeyword::None;
}

bool ExpectsOperand(const VbToken& t) {
  if (t.kind == VbTokenKind::Punct) {
    switch (t.punct) {
      case VbPunct::LParen: case VbPunct::LBrace: case VbPunct::Comma: case VbPunct::ColonEquals:
      case VbPunct::Equals: case VbPunct::NotEquals: case VbPunct::Less: case VbPunct::LessEquals:
      case VbPunct::GreaterEquals: case VbPunct::ShiftLeft: case VbPunct::ShiftRight:
      case VbPunct::Plus: case VbPunct::Minus: case VbPunct::Star: case VbPunct::Slash:
      case VbPunct::Backslash: case VbPunct::Caret: case VbPunct::Amp: case VbPunct::PlusEquals:
      case VbPunct::MinusEquals: case VbPunct::StarEquals: case VbPunct::SlashEquals:
      case VbPunct::BackslashEquals: case VbPunct::CaretEquals: case VbPunct::AmpEquals:
      case VbPunct::ShiftLeftEquals: case VbPunct::ShiftRightEquals:
        return true;
      default:
        return false;
    }
  }
  if (t.kind != VbTokenKind::Identifier) return false;
  switch (t.keyword) {
    case VbKeyword::Return: case VbKeyword::Yield: case VbKeyword::Await: case VbKeyword::In:
    case VbKeyword::Is: case VbKeyword::IsNot: case VbKeyword::And: case VbKeyword::AndAlso:
    case VbKeyword::Or: case VbKeyword::OrElse: case VbKeyword::Xor: case VbKeyword::Not:
    case VbKeyword::Mod: case VbKeyword::Like: case VbKeyword::Then: case VbKeyword::Else:
    case VbKeyword::Throw: case VbKeyword::Select: case VbKeyword::Where: case VbKeyword::Let:
    case VbKeyword::Take: case VbKeyword::Skip: case VbKeyword::While: case VbKeyword::Until:
    case VbKeyword::Call: case VbKeyword::Case: case VbKeyword::To: case VbKeyword::Step:
    case VbKeyword::If: case VbKeyword::ElseIf: case VbKeyword::When: case VbKeyword::Equals:
    case VbKeyword::On: case VbKeyword::By:
      return true;
    default:
      return false;
  }
}

size_t VbLexer::BlankAt(size_t pos) const {
  if (pos >= m_text.size()) return 0;
  unsigned char c = static_cast<unsigned char>(m_text[pos]);
  if (c == ' ' || c == '\t' || c == '\f' || c == '\v') return 1;
  if (c == 0xC2 && pos + 1 < m_text.size() && static_cast<unsigned char>(m_text[pos + 1]) == 0xA0) return 2;
  if (c == 0xE3 && m_text.compare(pos, 3, "\xE3\x80\x80") == 0) return 3;
  if (c == 0xEF && m_text.compare(pos, 3, "\xEF\xBB\xBF") == 0) return 3;  // a byte-order mark left in the text
  return 0;
}

uint32_t VbLexer::SkipBlanks(uint32_t pos) const {
  const size_t n = m_text.size();
  while (pos < n) {
    char c = m_text[pos];
    if (c == ' ' || c == '\t') {
      ++pos;
      continue;
    }
    if (static_cast<unsigned char>(c) < 0x80 && c != '\f' && c != '\v') break;
    size_t b = BlankAt(pos);  // the rarer blanks
    if (!b) break;
    pos += static_cast<uint32_t>(b);
  }
  return pos;
}

size_t VbLexer::ApostropheAt(size_t pos) const {
  if (pos >= m_text.size()) return 0;
  char c = m_text[pos];
  if (c == '\'') return 1;
  if (c == '\xE2' && (m_text.compare(pos, 3, "\xE2\x80\x98") == 0 || m_text.compare(pos, 3, "\xE2\x80\x99") == 0)) return 3;
  if (c == '\xEF' && m_text.compare(pos, 3, "\xEF\xBC\x87") == 0) return 3;
  return 0;
}

size_t VbLexer::QuoteAt(size_t pos) const {
  if (pos >= m_text.size()) return 0;
  char c = m_text[pos];
  if (c == '"') return 1;
  if (c == '\xE2' && (m_text.compare(pos, 3, "\xE2\x80\x9C") == 0 || m_text.compare(pos, 3, "\xE2\x80\x9D") == 0)) return 3;
  if (c == '\xEF' && m_text.compare(pos, 3, "\xEF\xBC\x82") == 0) return 3;
  return 0;
}

bool VbLexer::IdentStartAt(size_t pos) const {
  if (pos >= m_text.size()) return false;
  unsigned char c = static_cast<unsigned char>(m_text[pos]);
  if (c < 0x80) return IsAsciiLetter(c) || c == '_';
  // Letters of other scripts; the quotes and blanks VB gives a meaning are not.
  return c >= 0xC2 && !ApostropheAt(pos) && !QuoteAt(pos) && !BlankAt(pos);
}

bool VbLexer::IdentPartAt(size_t pos) const {
  if (pos >= m_text.size()) return false;
  unsigned char c = static_cast<unsigned char>(m_text[pos]);
  if (c < 0x80) return IsAsciiLetter(c) || IsDigit(c) || c == '_';
  if (c < 0xC0) return true;  // continuation byte of a letter begun before
  return IdentStartAt(pos);
}

uint32_t VbLexer::LineEnd(uint32_t pos) const {
  while (pos < m_text.size() && !IsNewline(m_text[pos])) ++pos;
  return pos;
}

uint32_t VbLexer::Find(uint32_t pos, std::string_view what) const {
  size_t at = m_text.find(what, pos);
  return at == std::string_view::npos ? 0 : static_cast<uint32_t>(at + what.size());
}

uint32_t VbLexer::ScanIdentifierEnd(uint32_t pos) const {
  const size_t n = m_text.size();
  ++pos;
  while (pos < n) {
    unsigned char c = static_cast<unsigned char>(m_text[pos]);
    if (c < 0x80 ? (IsAsciiLetter(c) || IsDigit(c) || c == '_') : IdentPartAt(pos)) ++pos;
    else break;
  }
  return pos;
}

uint32_t VbLexer::ScanNumberEnd(uint32_t pos) const {
  const size_t n = m_text.size();
  auto at = [&](size_t p) { return p < n ? static_cast<unsigned char>(m_text[p]) : 0; };
  if (at(pos) == '&') {  // &H1F, &O17, &B101
    pos += 2;
    while (IsDigit(at(pos)) || IsAsciiLetter(at(pos)) || at(pos) == '_') ++pos;
  } else {
    while (IsDigit(at(pos)) || at(pos) == '_') ++pos;
    if (at(pos) == '.' && IsDigit(at(pos + 1))) {
      ++pos;
      while (IsDigit(at(pos)) || at(pos) == '_') ++pos;
    }
    if ((at(pos) | 0x20) == 'e' && (IsDigit(at(pos + 1)) || ((at(pos + 1) == '+' || at(pos + 1) == '-') && IsDigit(at(pos + 2))))) {
      pos += 2;
      while (IsDigit(at(pos))) ++pos;
    }
    while (IsAsciiLetter(at(pos))) ++pos;  // suffixes: S, US, I, UI, L, UL, D, F, R
  }
  unsigned char c = at(pos);
  if ((c == '%' || c == '&' || c == '@' || c == '!' || c == '#') && !IdentPartAt(pos + 1)) ++pos;
  return pos;
}

uint32_t VbLexer::ScanStringEnd(uint32_t pos) {
  // Strings may span lines (as current VB allows); "" is an escaped quote. A string that
  // never closes ends at the end of its own line instead of taking the rest of the text
  // with it; from then on strings end at their line, which keeps the lexer linear.
  const uint32_t start = pos;
  while (pos < m_text.size()) {
    if (size_t q = QuoteAt(pos)) {
      pos += static_cast<uint32_t>(q);
      if (size_t q2 = QuoteAt(pos)) {
        pos += static_cast<uint32_t>(q2);
        continue;
      }
      return pos;
    }
    if (m_stringsEndAtLine && IsNewline(m_text[pos])) return pos;
    ++pos;
  }
  if (m_stringsEndAtLine) return pos;  // see ScanInterpolatedEnd
  m_stringsEndAtLine = true;
  return LineEnd(start);
}

uint32_t VbLexer::ScanInterpolatedEnd(uint32_t pos) {
  const size_t n = m_text.size();
  const uint32_t start = pos;
  bool closed = false;
  ++m_depth;
  while (pos < n) {
    if (size_t q = QuoteAt(pos)) {
      pos += static_cast<uint32_t>(q);
      if (size_t q2 = QuoteAt(pos)) {
        pos += static_cast<uint32_t>(q2);
        continue;
      }
      closed = true;
      break;
    }
    char c = m_text[pos];
    if (m_stringsEndAtLine && IsNewline(c)) {
      closed = true;  // ends here, as every string does from now on
      break;
    }
    if (c == '{' && pos + 1 < n && m_text[pos + 1] == '{') {
      pos += 2;
    } else if (c == '{' && m_depth < kMaxDepth) {
      // A hole: an expression up to its '}', then maybe ",alignment" and ":format".
      ++pos;
      int parens = 0, braces = 0;
      VbToken previous;
      previous.kind = VbTokenKind::Punct;
      previous.punct = VbPunct::LParen;
      while (pos < n) {
        uint32_t before = pos;
        VbScanContext ctx;
        ctx.xmlAllowed = ExpectsOperand(previous);
        VbToken t = Scan(pos, ctx);
        if (t.kind == VbTokenKind::End) break;
        if (t.kind == VbTokenKind::Newline && m_stringsEndAtLine) break;
        if (t.Is(VbPunct::RBrace) && braces == 0) break;
        if (t.Is(VbPunct::LBrace)) ++braces;
        else if (t.Is(VbPunct::RBrace)) --braces;
        else if (t.Is(VbPunct::LParen)) ++parens;
        else if (t.Is(VbPunct::RParen)) --parens;
        else if (t.Is(VbPunct::Colon) && parens <= 0 && braces == 0) {
          // The format text runs to the '}' (or to the closing quote of a broken hole).
          while (pos < n && m_text[pos] != '}' && !QuoteAt(pos)) ++pos;
          if (pos < n && m_text[pos] == '}') ++pos;
          break;
        }
        if (t.kind != VbTokenKind::Newline && t.kind != VbTokenKind::Comment) previous = t;
        if (pos == before) ++pos;
      }
    } else {
      ++pos;
    }
  }
  --m_depth;
  if (pos >= n && !closed) {
    // See ScanStringEnd. Only the first string that fails looks back to its line: were
    // the enclosing ones to look back too, each would read again what the inner ones
    // read, and nesting would make that exponential.
    if (m_stringsEndAtLine) return static_cast<uint32_t>(n);
    m_stringsEndAtLine = true;
    return LineEnd(start);
  }
  return static_cast<uint32_t>(std::min(pos, static_cast<uint32_t>(n)));
}

uint32_t VbLexer::ScanDateEnd(uint32_t pos) const {
  // pos is after '#': digits, separators, blanks and AM/PM up to the closing '#'.
  bool digit = false;
  for (uint32_t p = pos; p < m_text.size(); ++p) {
    unsigned char c = static_cast<unsigned char>(m_text[p]);
    if (c == '#') return digit ? p + 1 : 0;
    if (IsDigit(c)) digit = true;
    else if (!(c == '/' || c == '-' || c == ':' || c == '.' || c == ' ' || c == '\t' || c == ',' ||
               (c | 0x20) == 'a' || (c | 0x20) == 'p' || (c | 0x20) == 'm'))
      return 0;
  }
  return 0;
}

uint32_t VbLexer::ScanEmbeddedEnd(uint32_t pos) {
  if (m_depth >= kMaxDepth) return 0;
  ++m_depth;
  uint32_t result = 0;
  VbToken previous;
  previous.kind = VbTokenKind::Punct;
  previous.punct = VbPunct::LParen;
  while (pos < m_text.size()) {
    pos = SkipBlanks(pos);
    if (m_text.compare(pos, 2, "%>") == 0) {
      result = pos + 2;
      break;
    }
    uint32_t before = pos;
    VbScanContext ctx;
    ctx.xmlAllowed = ExpectsOperand(previous);
    VbToken t = Scan(pos, ctx);
    if (t.kind == VbTokenKind::End) break;
    if (t.kind != VbTokenKind::Newline && t.kind != VbTokenKind::Comment &&
        t.kind != VbTokenKind::Continuation)
      previous = t;
    if (pos == before) ++pos;
    // A literal inside gave up at the end of the text: so does this one, at once, so
    // that nested attempts cannot each read the rest of the text again.
    if (m_xmlDisabled) break;
  }
  if (!result) m_xmlDisabled = true;  // see ScanXmlEnd
  --m_depth;
  return result;
}

uint32_t VbLexer::ScanXmlTagEnd(uint32_t pos, bool* selfClosing) {
  // pos is at '<' of a start tag; names, attributes with quoted or embedded values.
  const size_t n = m_text.size();
  *selfClosing = false;
  ++pos;
  while (pos < n) {
    char c = m_text[pos];
    if (c == '/' && pos + 1 < n && m_text[pos + 1] == '>') {
      *selfClosing = true;
      return pos + 2;
    }
    if (c == '>') return pos + 1;
    if (c == '<' && m_text.compare(pos, 3, "<%=") == 0) {
      pos = ScanEmbeddedEnd(pos + 3);
      if (!pos) return 0;
      continue;
    }
    if (c == '"' || c == '\'') {
      // An attribute value holds no '<': stopping there keeps a failed tag from reading
      // past the next place another tag could begin.
      uint32_t close = pos + 1;
      while (close < n && m_text[close] != c && m_text[close] != '<') ++close;
      if (close >= n) {
        m_xmlDisabled = true;  // see ScanXmlEnd
        return 0;
      }
      if (m_text[close] == '<') return 0;
      pos = close + 1;
      continue;
    }
    if (c == '<') return 0;  // no tag has a '<' inside
    ++pos;
  }
  m_xmlDisabled = true;  // see ScanXmlEnd
  return 0;
}

uint32_t VbLexer::ScanXmlEnd(uint32_t start, bool tagOnly) {
  if (m_xmlDisabled || m_depth >= kMaxDepth) return 0;
  const size_t n = m_text.size();
  uint32_t pos = start;
  int open = 0;             // elements open
  bool document = false;    // began with <?xml ...?>: a root element must follow
  bool failed = false;
  while (true) {
    if (pos >= n) {
      failed = true;
      break;
    }
    char c = m_text[pos];
    if (c != '<') {
      if (open == 0) {
        // Between the prolog and the root only white space may stand.
        if (document && (c == ' ' || c == '\t' || IsNewline(c))) {
          ++pos;
          continue;
        }
        failed = true;
        break;
      }
      ++pos;
      continue;
    }
    bool single = false;  // an item that is the whole literal when it stands alone
    if (m_text.compare(pos, 4, "<!--") == 0) {
      pos = Find(pos + 4, "-->");
      single = true;
    } else if (m_text.compare(pos, 9, "<![CDATA[") == 0) {
      pos = Find(pos + 9, "]]>");
      single = true;
    } else if (m_text.compare(pos, 2, "<?") == 0) {
      bool xmlDecl = m_text.compare(pos, 5, "<?xml") == 0 && open == 0;
      pos = Find(pos + 2, "?>");
      if (xmlDecl) document = true;
      else single = true;
    } else if (m_text.compare(pos, 3, "<%=") == 0) {
      pos = ScanEmbeddedEnd(pos + 3);
      if (!pos) return 0;  // an embedded expression that does not close: not XML
      continue;
    } else if (m_text.compare(pos, 2, "</") == 0) {
      uint32_t close = Find(pos + 2, ">");
      if (!close) {
        failed = true;
        break;
      }
      pos = close;
      if (--open <= 0) return pos;
      continue;
    } else {
      bool selfClosing = false;
      uint32_t end = ScanXmlTagEnd(pos, &selfClosing);
      if (!end) {
        if (open == 0 && !document) return 0;  // the first tag is no tag: not XML
        failed = true;
        break;
      }
      pos = end;
      if (tagOnly || (selfClosing && open == 0)) return pos;
      if (!selfClosing) ++open;
      continue;
    }
    if (!pos) {
      failed = true;
      break;
    }
    if (single && open == 0 && !document) return pos;
  }
  // Reaching the end without the literal closing: VB would read the rest as XML; this
  // lexer reads it as code instead and stops looking for XML, which keeps it linear.
  if (failed) m_xmlDisabled = true;
  return 0;
}

VbToken VbLexer::ScanPunct(uint32_t& pos) {
  const size_t n = m_text.size();
  auto at = [&](size_t k) { return pos + k < n ? m_text[pos + k] : '\0'; };
  VbToken t;
  t.offset = pos;
  t.kind = VbTokenKind::Punct;
  VbPunct p = VbPunct::None;
  uint32_t len = 1;
  // An operator followed by '=' is its compound assignment.
  auto compound = [&](VbPunct plain, VbPunct assign) {
    if (at(1) == '=') {
      len = 2;
      return assign;
    }
    return plain;
  };
  switch (at(0)) {
    case '(': p = VbPunct::LParen; break;
    case ')': p = VbPunct::RParen; break;
    case '{': p = VbPunct::LBrace; break;
    case '}': p = VbPunct::RBrace; break;
    case ',': p = VbPunct::Comma; break;
    case ';': p = VbPunct::Semicolon; break;
    case '@': p = VbPunct::At; break;
    case '#': p = VbPunct::Hash; break;
    case '$': p = VbPunct::Dollar; break;
    case '%': p = VbPunct::Percent; break;
    case '!': p = VbPunct::Bang; break;
    case '.':
      if (at(1) == '.' && at(2) == '.') p = VbPunct::Ellipsis, len = 3;
      else p = VbPunct::Dot;
      break;
    case ':': p = compound(VbPunct::Colon, VbPunct::ColonEquals); break;
    case '=': p = VbPunct::Equals; break;
    case '+': p = compound(VbPunct::Plus, VbPunct::PlusEquals); break;
    case '-': p = compound(VbPunct::Minus, VbPunct::MinusEquals); break;
    case '*': p = compound(VbPunct::Star, VbPunct::StarEquals); break;
    case '/': p = compound(VbPunct::Slash, VbPunct::SlashEquals); break;
    case '\\': p = compound(VbPunct::Backslash, VbPunct::BackslashEquals); break;
    case '^': p = compound(VbPunct::Caret, VbPunct::CaretEquals); break;
    case '&': p = compound(VbPunct::Amp, VbPunct::AmpEquals); break;
    case '?':
      // "?." before a digit is '?' and a number (a ? .5 : ...), not member access.
      if (at(1) == '.' && !IsDigit(static_cast<unsigned char>(at(2)))) p = VbPunct::QuestionDot, len = 2;
      else p = VbPunct::Question;
      break;
    case '<':
      if (at(1) == '<') {
        p = at(2) == '=' ? VbPunct::ShiftLeftEquals : VbPunct::ShiftLeft;
        len = at(2) == '=' ? 3 : 2;
      } else if (at(1) == '>') {
        p = VbPunct::NotEquals, len = 2;
      } else {
        p = compound(VbPunct::Less, VbPunct::LessEquals);
      }
      break;
    case '>':
      if (at(1) == '>') {
        p = at(2) == '=' ? VbPunct::ShiftRightEquals : VbPunct::ShiftRight;
        len = at(2) == '=' ? 3 : 2;
      } else {
        p = compound(VbPunct::Greater, VbPunct::GreaterEquals);
      }
      break;
    default: break;
  }
  if (p != VbPunct::None) {
    t.punct = p;
    t.length = len;
    pos += len;
    return t;
  }
  // Something no token begins with: one whole UTF-8 character.
  t.kind = VbTokenKind::Unknown;
  uint32_t q = pos + 1;
  while (q < n && (static_cast<unsigned char>(m_text[q]) & 0xC0) == 0x80) ++q;
  t.length = q - pos;
  pos = q;
  return t;
}

VbToken VbLexer::Scan(uint32_t& pos, const VbScanContext& ctx) {
  const size_t n = m_text.size();
  pos = SkipBlanks(pos);
  VbToken t;
  t.offset = pos;
  if (pos >= n) {
    pos = static_cast<uint32_t>(n);
    t.offset = pos;
    return t;  // End
  }
  auto finish = [&](VbTokenKind kind, uint32_t end) {
    t.kind = kind;
    t.length = end - t.offset;
    pos = end;
    return t;
  };
  unsigned char c = static_cast<unsigned char>(m_text[pos]);
  if (c == '\r') return finish(VbTokenKind::Newline, pos + 1 < n && m_text[pos + 1] == '\n' ? pos + 2 : pos + 1);
  if (c == '\n') return finish(VbTokenKind::Newline, pos + 1);
  const bool ascii = c < 0x80;
  if (size_t a = ascii ? (c == '\'' ? 1 : 0) : ApostropheAt(pos)) {
    // ''' begins a documentation comment, '''' does not.
    size_t p = pos + a, marks = 1;
    while (marks < 4)
      if (size_t a2 = ApostropheAt(p)) p += a2, ++marks;
      else break;
    t.docComment = marks == 3;
    return finish(VbTokenKind::Comment, LineEnd(pos));
  }
  if (size_t q = ascii ? (c == '"' ? 1 : 0) : QuoteAt(pos)) {
    uint32_t end = ScanStringEnd(pos + static_cast<uint32_t>(q));
    if (end < n && (m_text[end] | 0x20) == 'c' && !IdentPartAt(end + 1)) return finish(VbTokenKind::Char, end + 1);
    return finish(VbTokenKind::String, end);
  }
  if (c == '$' && QuoteAt(pos + 1)) return finish(VbTokenKind::Interpolated, ScanInterpolatedEnd(pos + 1 + static_cast<uint32_t>(QuoteAt(pos + 1))));
  if (c == '_' && !IdentPartAt(pos + 1)) {
    // " _" continues the line when nothing but blanks or a comment follows it.
    uint32_t p = SkipBlanks(pos + 1);
    if (p >= n || IsNewline(m_text[p]) || ApostropheAt(p)) return finish(VbTokenKind::Continuation, pos + 1);
    return finish(VbTokenKind::Unknown, pos + 1);
  }
  if (IdentStartAt(pos)) {
    uint32_t end = ScanIdentifierEnd(pos);
    t.kind = VbTokenKind::Identifier;
    if (end < n) {
      char tc = m_text[end];
      bool typeChar = tc == '%' || tc == '&' || tc == '@' || tc == '!' || tc == '#' || tc == '$';
      if (tc == '!' && IdentStartAt(end + 1)) typeChar = false;  // dict!key
      if (tc == '&' && IdentPartAt(end + 1)) typeChar = false;   // a&b
      if (tc == '%' && end + 1 < n && m_text[end + 1] == '>') typeChar = false;  // x%> ends an embedded expression
      if (tc == '$' && QuoteAt(end + 1)) typeChar = false;        // f$"..."
      if (typeChar) {
        t.typeChar = tc;
        ++end;
      }
    }
    if (!t.typeChar && !ctx.afterMemberAccess) t.keyword = LookupVbKeyword(m_text.substr(pos, end - pos));
    if (t.keyword == VbKeyword::Rem) {
      t.keyword = VbKeyword::None;
      return finish(VbTokenKind::Comment, LineEnd(pos));
    }
    return finish(VbTokenKind::Identifier, end);
  }
  if (IsDigit(c) || (c == '.' && pos + 1 < n && IsDigit(static_cast<unsigned char>(m_text[pos + 1]))) ||
      (c == '&' && pos + 2 < n && ((m_text[pos + 1] | 0x20) == 'h' || (m_text[pos + 1] | 0x20) == 'o' || (m_text[pos + 1] | 0x20) == 'b') &&
       (IsDigit(static_cast<unsigned char>(m_text[pos + 2])) || ((m_text[pos + 2] | 0x20) >= 'a' && (m_text[pos + 2] | 0x20) <= 'f'))))
    return finish(VbTokenKind::Number, ScanNumberEnd(pos));
  if (c == '[') {
    for (uint32_t p = pos + 1; p < n && !IsNewline(m_text[p]); ++p)
      if (m_text[p] == ']') return finish(VbTokenKind::Bracketed, p + 1);
  }
  if (c == '#') {
    if (uint32_t end = ScanDateEnd(pos + 1)) return finish(VbTokenKind::Date, end);
  }
  if (c == '<' && (ctx.xmlAllowed || ctx.xmlTagOnly) && pos + 1 < n) {
    unsigned char d = static_cast<unsigned char>(m_text[pos + 1]);
    if (IdentStartAt(pos + 1) || d == '!' || d == '?' || (d == '%' && m_text.compare(pos, 3, "<%=") == 0)) {
      if (uint32_t end = ScanXmlEnd(pos, ctx.xmlTagOnly)) return finish(VbTokenKind::Xml, end);
      // What a failed attempt read is read again as code; nested attempts that keep
      // failing could make that exponential, so past a bound XML is no longer looked for.
      if (++m_xmlFailures > kMaxXmlFailures) m_xmlDisabled = true;
    }
  }
  return ScanPunct(pos);
}

}  // namespace platform::codemodel
