#include "platform/codemodel/CSharpPreprocessor.h"

namespace platform::codemodel {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }

bool IsSymbolChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && (IsBlank(s.back()) || s.back() == '\r' || s.back() == '\n')) s.remove_suffix(1);
  return s;
}

// A recursive-descent reader of one #if condition. Any syntax error marks the whole
// condition as malformed; nesting deeper than kMaxDepth counts as an error so that no
// input can exhaust the stack.
class ConditionReader {
 public:
  ConditionReader(std::string_view text, const CSharpPreprocessor& pp) : m_text(text), m_pp(pp) {}

  bool Read() {
    bool value = Or(0);
    SkipBlanks();
    if (m_pos < m_text.size() && !(m_text.substr(m_pos, 2) == "//")) m_error = true;
    return !m_error && value;
  }

 private:
  static constexpr int kMaxDepth = 200;

  void SkipBlanks() {
    while (m_pos < m_text.size() && IsBlank(m_text[m_pos])) ++m_pos;
  }
  bool Take(std::string_view op) {
    SkipBlanks();
    if (m_text.substr(m_pos, op.size()) != op) return false;
    m_pos += op.size();
    return true;
  }
  bool Or(int depth) {
    bool v = And(depth);
    while (!m_error && Take("||")) v = And(depth) || v;
    return v;
  }
  bool And(int depth) {
    bool v = Equality(depth);
    while (!m_error && Take("&&")) v = Equality(depth) && v;
    return v;
  }
  bool Equality(int depth) {
    bool v = Unary(depth);
    while (!m_error) {
      if (Take("==")) v = (Unary(depth) == v);
      else if (Take("!=")) v = (Unary(depth) != v);
      else break;
    }
    return v;
  }
  bool Unary(int depth) {
    if (depth > kMaxDepth) {
      m_error = true;
      return false;
    }
    SkipBlanks();
    if (m_pos < m_text.size() && m_text[m_pos] == '!' && m_text.substr(m_pos, 2) != "!=") {
      ++m_pos;
      return !Unary(depth + 1);
    }
    return Primary(depth);
  }
  bool Primary(int depth) {
    SkipBlanks();
    if (Take("(")) {
      bool v = Or(depth + 1);
      if (!Take(")")) m_error = true;
      return v;
    }
    size_t b = m_pos;
    while (m_pos < m_text.size() && IsSymbolChar(m_text[m_pos])) ++m_pos;
    if (b == m_pos) {
      m_error = true;
      return false;
    }
    std::string_view word = m_text.substr(b, m_pos - b);
    if (word == "true") return true;
    if (word == "false") return false;
    return m_pp.IsDefined(word);
  }

  std::string_view m_text;
  const CSharpPreprocessor& m_pp;
  size_t m_pos = 0;
  bool m_error = false;
};

}  // namespace

CSharpPreprocessor::CSharpPreprocessor(const PreprocessorSymbols& symbols) {
  for (const auto& [name, value] : symbols.symbols)
    if (!name.empty()) m_symbols.insert(name);
}

bool CSharpPreprocessor::Evaluate(std::string_view expr) const {
  return ConditionReader(expr, *this).Read();
}

void CSharpPreprocessor::Directive(std::string_view line) {
  line = Trim(line);
  size_t n = 0;
  while (n < line.size() && IsSymbolChar(line[n])) ++n;
  std::string_view name = line.substr(0, n), rest = Trim(line.substr(n));
  auto condition = [&] { return Evaluate(rest); };
  if (name == "if") {
    m_sections.If(condition);
  } else if (name == "elif") {
    m_sections.Elif(condition);
  } else if (name == "else") {
    m_sections.Else();
  } else if (name == "endif") {
    m_sections.EndIf();
  } else if ((name == "define" || name == "undef") && Active()) {
    size_t k = 0;
    while (k < rest.size() && IsSymbolChar(rest[k])) ++k;
    std::string_view symbol = rest.substr(0, k);
    if (symbol.empty() || symbol == "true" || symbol == "false") return;
    if (name == "define") m_symbols.emplace(symbol);
    else if (auto it = m_symbols.find(symbol); it != m_symbols.end()) m_symbols.erase(it);
  }
}

}  // namespace platform::codemodel
