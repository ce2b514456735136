#include "platform/dao/SqlLexer.h"

#include "platform/core/Error.h"

namespace platform::dao {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }
bool IsWordStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordChar(char c) { return IsWordStart(c) || (c >= '0' && c <= '9') || c == '$'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

[[noreturn]] void Syntax(const std::string& what) {
  throw Error(err::kSyntaxInExpression, "Syntax error in query expression: " + what + ".");
}

}  // namespace

bool SqlToken::Is(std::string_view s) const {
  if (kind != Kind::Word && kind != Kind::Symbol) return false;
  if (text.size() != s.size()) return false;
  for (size_t i = 0; i < s.size(); ++i)
    if (Lower(text[i]) != Lower(s[i])) return false;
  return true;
}

size_t SqlLexer::SkipBlanks(size_t pos) const {
  while (pos < m_text.size() && IsBlank(m_text[pos])) ++pos;
  return pos;
}

SqlToken SqlLexer::At(size_t pos) const {
  pos = SkipBlanks(pos);
  SqlToken token;
  token.begin = pos;
  const size_t n = m_text.size();
  if (pos >= n) {
    token.end = pos;
    return token;
  }
  char c = m_text[pos];
  if (IsWordStart(c)) {
    size_t e = pos + 1;
    while (e < n && IsWordChar(m_text[e])) ++e;
    token.kind = SqlToken::Kind::Word;
    token.text = std::string(m_text.substr(pos, e - pos));
    token.end = e;
    return token;
  }
  if (IsDigit(c) || (c == '.' && pos + 1 < n && IsDigit(m_text[pos + 1]))) {
    size_t e = pos;
    while (e < n && IsDigit(m_text[e])) ++e;
    if (e < n && m_text[e] == '.') {
      ++e;
      while (e < n && IsDigit(m_text[e])) ++e;
    }
    if (e < n && (m_text[e] == 'e' || m_text[e] == 'E')) {
      size_t x = e + 1;
      if (x < n && (m_text[x] == '+' || m_text[x] == '-')) ++x;
      if (x < n && IsDigit(m_text[x])) {
        while (x < n && IsDigit(m_text[x])) ++x;
        e = x;
      }
    }
    if (e < n && IsWordStart(m_text[e])) Syntax("a number runs into a word");
    token.kind = SqlToken::Kind::Number;
    token.text = std::string(m_text.substr(pos, e - pos));
    token.end = e;
    return token;
  }
  if (c == '"' || c == '\'') {
    std::string value;
    size_t e = pos + 1;
    for (;;) {
      if (e >= n) Syntax("a string has no closing quote");
      if (m_text[e] == c) {
        if (e + 1 < n && m_text[e + 1] == c) {
          value += c;
          e += 2;
          continue;
        }
        ++e;
        break;
      }
      value += m_text[e++];
    }
    token.kind = SqlToken::Kind::String;
    token.text = std::move(value);
    token.end = e;
    return token;
  }
  if (c == '[' || c == '#') {
    char close = c == '[' ? ']' : '#';
    size_t e = m_text.find(close, pos + 1);
    if (e == std::string_view::npos) Syntax(c == '[' ? "a name has no closing bracket" : "a date has no closing #");
    token.kind = c == '[' ? SqlToken::Kind::Name : SqlToken::Kind::Date;
    token.text = std::string(m_text.substr(pos + 1, e - pos - 1));
    token.end = e + 1;
    return token;
  }
  static const std::string_view kPairs[] = {"<>", "<=", ">=", "!="};
  for (auto pair : kPairs) {
    if (m_text.substr(pos, 2) == pair) {
      token.kind = SqlToken::Kind::Symbol;
      token.text = std::string(pair);
      token.end = pos + 2;
      return token;
    }
  }
  static const std::string_view kSingles = "=<>+-*/&,().;!^\\?";
  if (kSingles.find(c) != std::string_view::npos) {
    token.kind = SqlToken::Kind::Symbol;
    token.text = std::string(1, c);
    token.end = pos + 1;
    return token;
  }
  Syntax(std::string("unexpected character '") + c + "'");
}

}  // namespace platform::dao
