#include "platform/codemodel/CSharpTokenizer.h"

#include <array>
#include <cstring>
#include <utility>

#include "platform/codemodel/CSharpLiteralScanner.h"
#include "platform/codemodel/CSharpPreprocessor.h"

namespace platform::codemodel {
namespace {

// Character classes, looked up once per character in the tokenizer's inner loops.
enum : uint8_t { kLineBreak = 1, kBlank = 2, kIdentStart = 4, kDigit = 8 };

constexpr std::array<uint8_t, 256> MakeClasses() {
  std::array<uint8_t, 256> t{};
  t['\n'] = t['\r'] = kLineBreak;
  t[' '] = t['\t'] = t['\v'] = t['\f'] = kBlank;
  for (int c = 'a'; c <= 'z'; ++c) t[c] = kIdentStart;
  for (int c = 'A'; c <= 'Z'; ++c) t[c] = kIdentStart;
  t['_'] = kIdentStart;
  for (int c = 0x80; c < 0x100; ++c) t[c] = kIdentStart;  // letters of other scripts
  for (int c = '0'; c <= '9'; ++c) t[c] = kDigit;
  return t;
}
constexpr std::array<uint8_t, 256> kClasses = MakeClasses();

uint8_t ClassOf(char c) { return kClasses[static_cast<unsigned char>(c)]; }
bool IsLineBreak(char c) { return ClassOf(c) & kLineBreak; }
bool IsBlank(char c) { return ClassOf(c) & kBlank; }
bool IsIdentStart(char c) { return ClassOf(c) & kIdentStart; }
bool IsIdentPart(char c) { return ClassOf(c) & (kIdentStart | kDigit); }
bool IsDigit(char c) { return ClassOf(c) & kDigit; }

// Grouped by first letter, 'a' to 'z' then '_' (CsKeywordOf relies on it).
constexpr std::array<std::pair<std::string_view, CsKeyword>, 45> kKeywords{{
    {"abstract", CsKeyword::Abstract},
    {"alias", CsKeyword::Alias},        {"async", CsKeyword::Async},
    {"checked", CsKeyword::Checked},    {"class", CsKeyword::Class},
    {"const", CsKeyword::Const},        {"delegate", CsKeyword::Delegate},
    {"enum", CsKeyword::Enum},          {"event", CsKeyword::Event},
    {"explicit", CsKeyword::Explicit},  {"extern", CsKeyword::Extern},
    {"false", CsKeyword::False},        {"file", CsKeyword::File},
    {"fixed", CsKeyword::Fixed},        {"global", CsKeyword::Global},
    {"implicit", CsKeyword::Implicit},  {"in", CsKeyword::In},
    {"interface", CsKeyword::Interface}, {"internal", CsKeyword::Internal},
    {"namespace", CsKeyword::Namespace}, {"new", CsKeyword::New},
    {"operator", CsKeyword::Operator},  {"out", CsKeyword::Out},
    {"override", CsKeyword::Override},  {"params", CsKeyword::Params},
    {"partial", CsKeyword::Partial},    {"private", CsKeyword::Private},
    {"protected", CsKeyword::Protected}, {"public", CsKeyword::Public},
    {"readonly", CsKeyword::Readonly},  {"record", CsKeyword::Record},
    {"ref", CsKeyword::Ref},            {"required", CsKeyword::Required},
    {"scoped", CsKeyword::Scoped},      {"sealed", CsKeyword::Sealed},
    {"static", CsKeyword::Static},      {"struct", CsKeyword::Struct},
    {"this", CsKeyword::This},          {"true", CsKeyword::True},
    {"unsafe", CsKeyword::Unsafe},      {"using", CsKeyword::Using},
    {"virtual", CsKeyword::Virtual},    {"volatile", CsKeyword::Volatile},
    {"where", CsKeyword::Where},        {"__arglist", CsKeyword::Arglist},
}};

// The length of the punctuator at text[i]: the longest of the multi-character
// operators, except that '>' always stands alone (see TokenizeCSharp).
size_t PunctLength(std::string_view t, size_t i) {
  auto at = [&](size_t k) { return i + k < t.size() ? t[i + k] : '\0'; };
  char c = t[i], d = at(1);
  switch (c) {
    case '<':
      if (d == '<') return at(2) == '=' ? 3 : 2;
      return d == '=' ? 2 : 1;
    case '=': return d == '=' || d == '>' ? 2 : 1;
    case '!': return d == '=' ? 2 : 1;
    case '+': return d == '+' || d == '=' ? 2 : 1;
    case '-': return d == '-' || d == '=' || d == '>' ? 2 : 1;
    case '*': case '/': case '%': case '^': return d == '=' ? 2 : 1;
    case '&': return d == '&' || d == '=' ? 2 : 1;
    case '|': return d == '|' || d == '=' ? 2 : 1;
    case '?':
      if (d == '?') return at(2) == '=' ? 3 : 2;
      return 1;
    case ':': return d == ':' ? 2 : 1;
    case '.': return d == '.' ? 2 : 1;
    default: return 1;
  }
}

// The tokenizer's pass over one text.
class Tokenizer {
 public:
  Tokenizer(std::string_view text, const PreprocessorSymbols& symbols, CsTokenStream& out)
      : m_t(text), m_pp(symbols), m_out(out) {}

  void Run() {
    m_out.tokens.clear();
    m_out.docs.clear();
    m_out.tokens.reserve(m_t.size() / 5 + 16);
    const size_t n = m_t.size();
    size_t i = 0;
    bool lineStart = true;  // only blanks since the last line break
    while (i < n) {
      char c = m_t[i];
      if (IsLineBreak(c)) {
        ++i;
        lineStart = true;
        m_newline = true;
        continue;
      }
      if (IsBlank(c)) {
        do ++i;
        while (i < n && IsBlank(m_t[i]));
        continue;
      }
      if (static_cast<unsigned char>(c) == 0xC2 && i + 1 < n && static_cast<unsigned char>(m_t[i + 1]) == 0xA0) {
        i += 2;  // no-break space
        continue;
      }
      if (c == '#' && lineStart) {
        i = Directive(i);
        continue;
      }
      lineStart = false;
      if (c == '/' && i + 1 < n && m_t[i + 1] == '/') {
        size_t e = LineEnd(i + 2);
        bool doc = i + 2 < n && m_t[i + 2] == '/' && !(i + 3 < n && m_t[i + 3] == '/');
        if (doc) m_out.docs.push_back({static_cast<uint32_t>(i), static_cast<uint32_t>(e), false, SameLine()});
        i = e;
        continue;
      }
      if (c == '/' && i + 1 < n && m_t[i + 1] == '*') {
        const bool sameLine = SameLine();
        size_t e = i + 2;
        while (e < n && !(m_t[e] == '*' && e + 1 < n && m_t[e + 1] == '/')) {
          if (IsLineBreak(m_t[e])) m_newline = true;
          ++e;
        }
        e = e < n ? e + 2 : n;
        // "/**/" and "/***" are plain comments.
        bool doc = i + 2 < n && m_t[i + 2] == '*' && !(i + 3 < n && (m_t[i + 3] == '/' || m_t[i + 3] == '*'));
        if (doc) m_out.docs.push_back({static_cast<uint32_t>(i), static_cast<uint32_t>(e), true, sameLine});
        i = e;
        continue;
      }
      if (IsIdentStart(c)) {
        size_t e = i + 1;
        while (e < n && IsIdentPart(m_t[e])) ++e;
        Emit(i, e, CsTokenKind::Word, CsKeywordOf(m_t.substr(i, e - i)));
        i = e;
        continue;
      }
      if (IsDigit(c) || (c == '.' && i + 1 < n && IsDigit(m_t[i + 1]))) {
        i = Number(i);
        continue;
      }
      if ((c == '"' || c == '$' || c == '@') && CSharpLiteralScanner::StartsString(m_t, i)) {
        size_t e = m_literals.ScanString(m_t, i);
        Emit(i, e, CsTokenKind::String, CsKeyword::None);
        i = e;
        continue;
      }
      if (c == '\'') {
        size_t e = CSharpLiteralScanner::ScanChar(m_t, i);
        Emit(i, e, CsTokenKind::Char, CsKeyword::None);
        i = e;
        continue;
      }
      if (c == '@' && i + 1 < n && IsIdentStart(m_t[i + 1])) {
        size_t e = i + 2;
        while (e < n && IsIdentPart(m_t[e])) ++e;
        Emit(i, e, CsTokenKind::Word, CsKeyword::None);  // @class is never a keyword
        i = e;
        continue;
      }
      size_t len = PunctLength(m_t, i);
      Emit(i, i + len, CsTokenKind::Punct, CsKeyword::None);
      i += len;
    }
    m_out.tokens.push_back({static_cast<uint32_t>(n), static_cast<uint32_t>(n),
                            static_cast<uint32_t>(m_out.docs.size()), CsTokenKind::End, CsKeyword::None});
  }

 private:
  // The offset of the first line break at or after `i` (or the end of the text).
  size_t LineEnd(size_t i) const {
    const char* b = m_t.data() + i;
    const size_t rest = m_t.size() - i;
    const void* lf = std::memchr(b, '\n', rest);
    size_t e = lf ? static_cast<size_t>(static_cast<const char*>(lf) - b) : rest;
    const void* cr = std::memchr(b, '\r', e);
    if (cr) e = static_cast<size_t>(static_cast<const char*>(cr) - b);
    return i + e;
  }

  // Whether a comment starting now is on the line where the last token ended.
  bool SameLine() const { return !m_newline && !m_out.tokens.empty(); }

  void Emit(size_t b, size_t e, CsTokenKind kind, CsKeyword kw) {
    m_out.tokens.push_back({static_cast<uint32_t>(b), static_cast<uint32_t>(e),
                            static_cast<uint32_t>(m_out.docs.size()), kind, kw});
    m_newline = false;
  }

  // A numeric literal: digits, letters and '_' (hex digits, suffixes, separators), a
  // '.' followed by a digit, and a sign after a decimal exponent.
  size_t Number(size_t i) {
    const size_t n = m_t.size();
    size_t b = i;
    bool hex = m_t[i] == '0' && i + 1 < n && (m_t[i + 1] == 'x' || m_t[i + 1] == 'X' || m_t[i + 1] == 'b' || m_t[i + 1] == 'B');
    ++i;
    while (i < n) {
      char c = m_t[i];
      if (IsIdentPart(c) && static_cast<unsigned char>(c) < 0x80) {
        ++i;
        if (!hex && (c == 'e' || c == 'E') && i < n && (m_t[i] == '+' || m_t[i] == '-')) ++i;
      } else if (c == '.' && !hex && i + 1 < n && IsDigit(m_t[i + 1])) {
        ++i;
      } else {
        break;
      }
    }
    Emit(b, i, CsTokenKind::Number, CsKeyword::None);
    return i;
  }

  // Handles the directive line at `i` (a '#'), then skips whatever is inactive after
  // it; returns the offset of the line break that ends the last line handled.
  size_t Directive(size_t i) {
    const size_t n = m_t.size();
    for (;;) {
      size_t e = i;
      while (e < n && !IsLineBreak(m_t[e])) ++e;
      m_pp.Directive(m_t.substr(i + 1, e - i - 1));
      m_newline = true;
      if (m_pp.Active()) return e;
      // Inactive: look only for the next directive line.
      i = e;
      for (;;) {
        while (i < n && IsLineBreak(m_t[i])) ++i;
        if (i >= n) return n;
        size_t k = i;
        while (k < n && IsBlank(m_t[k])) ++k;
        if (k < n && m_t[k] == '#') {
          i = k;
          break;
        }
        while (i < n && !IsLineBreak(m_t[i])) ++i;
      }
    }
  }

  std::string_view m_t;
  CSharpPreprocessor m_pp;
  CsTokenStream& m_out;
  CSharpLiteralScanner m_literals;
  bool m_newline = false;  // a line break since the last token
};

}  // namespace

CsKeyword CsKeywordOf(std::string_view word) {
  // Every word is looked up, so the common case (an identifier, often capitalised) must
  // be rejected cheaply: keywords start with a lower-case letter or '_', and the table
  // is entered at their first letter.
  struct Index {
    std::array<uint8_t, 28> begin{};  // per first letter ('a'..'z', then '_'): first entry
    Index() {
      std::array<int, 28> counts{};
      for (const auto& k : kKeywords) ++counts[Slot(k.first[0])];
      uint8_t at = 0;
      for (size_t c = 0; c < 27; ++c) {
        begin[c] = at;
        at = static_cast<uint8_t>(at + counts[c]);
      }
      begin[27] = at;
    }
    static size_t Slot(char c) { return c == '_' ? 26 : static_cast<size_t>(c - 'a'); }
  };
  static const Index index;
  if (word.size() < 2 || word.size() > 9) return CsKeyword::None;
  char c = word[0];
  if (!((c >= 'a' && c <= 'z') || c == '_')) return CsKeyword::None;
  size_t slot = Index::Slot(c);
  for (size_t k = index.begin[slot]; k < index.begin[slot + 1]; ++k) {
    const auto& entry = kKeywords[k];
    if (entry.first.size() == word.size() && entry.first == word) return entry.second;
  }
  return CsKeyword::None;
}

void TokenizeCSharp(std::string_view text, const PreprocessorSymbols& symbols, CsTokenStream& out) {
  Tokenizer(text, symbols, out).Run();
}

}  // namespace platform::codemodel
