#include "platform/automation/MSBuildCondition.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>

#include "platform/automation/FileGlob.h"
#include "platform/core/AsciiText.h"

namespace platform::automation {
namespace {

using platform::Trim;

constexpr int kMaxNesting = 64;

// Thrown inside the parser for a condition that cannot be evaluated; caught at the top.
struct Invalid {};

std::optional<double> Number(const std::string& text) {
  std::string t = Trim(text);
  if (t.empty()) return std::nullopt;
  char* end = nullptr;
  double d;
  if (t.size() > 2 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X')) d = static_cast<double>(std::strtoll(t.c_str() + 2, &end, 16));
  else d = std::strtod(t.c_str(), &end);
  if (end != t.c_str() + t.size()) return std::nullopt;
  return d;
}

class Parser {
 public:
  Parser(std::string_view text, const MSBuildScope& scope) : m_text(text), m_scope(scope) {}

  bool Run() {
    bool value = Or(0);
    SkipBlanks();
    if (m_pos != m_text.size()) throw Invalid{};
    return value;
  }

 private:
  // An operand: its expanded value, or a boolean already computed (a function or a
  // parenthesised expression).
  struct Operand {
    std::string text;
    std::optional<bool> boolean;
  };

  void SkipBlanks() {
    while (m_pos < m_text.size() && std::string_view(" \t\r\n").find(m_text[m_pos]) != std::string_view::npos) ++m_pos;
  }

  bool Keyword(std::string_view word) {
    SkipBlanks();
    if (m_text.size() - m_pos < word.size()) return false;
    if (LowerAscii(m_text.substr(m_pos, word.size())) != word) return false;
    size_t after = m_pos + word.size();
    if (after < m_text.size() && (std::isalnum(static_cast<unsigned char>(m_text[after])) || m_text[after] == '_'))
      return false;
    m_pos = after;
    return true;
  }

  bool Or(int depth) {
    bool value = And(depth);
    while (Keyword("or")) {
      bool rhs = And(depth);
      value = value || rhs;
    }
    return value;
  }

  bool And(int depth) {
    bool value = Not(depth);
    while (Keyword("and")) {
      bool rhs = Not(depth);
      value = value && rhs;
    }
    return value;
  }

  bool Not(int depth) {
    SkipBlanks();
    if (m_pos < m_text.size() && m_text[m_pos] == '!' && (m_pos + 1 >= m_text.size() || m_text[m_pos + 1] != '=')) {
      ++m_pos;
      if (depth > kMaxNesting) throw Invalid{};
      return !Not(depth + 1);
    }
    return Comparison(depth);
  }

  bool Comparison(int depth) {
    Operand left = Factor(depth);
    SkipBlanks();
    std::string op;
    for (std::string_view candidate : {"==", "!=", "<=", ">=", "<", ">"}) {
      if (m_text.substr(m_pos, candidate.size()) == candidate) {
        op = candidate;
        m_pos += candidate.size();
        break;
      }
    }
    if (op.empty()) return AsBool(left);
    Operand right = Factor(depth);
    if (left.boolean || right.boolean) {
      bool a = AsBool(left), b = AsBool(right);
      if (op == "==") return a == b;
      if (op == "!=") return a != b;
      throw Invalid{};
    }
    auto x = Number(left.text), y = Number(right.text);
    if (op == "==" || op == "!=") {
      bool equal = x && y ? *x == *y : LowerAscii(left.text) == LowerAscii(right.text);
      return op == "==" ? equal : !equal;
    }
    if (!x || !y) throw Invalid{};
    if (op == "<") return *x < *y;
    if (op == ">") return *x > *y;
    if (op == "<=") return *x <= *y;
    return *x >= *y;
  }

  static bool AsBool(const Operand& o) {
    if (o.boolean) return *o.boolean;
    std::string v = LowerAscii(Trim(o.text));
    if (v == "true" || v == "on" || v == "yes" || v == "!false" || v == "!off" || v == "!no") return true;
    if (v == "false" || v == "off" || v == "no" || v == "!true" || v == "!on" || v == "!yes") return false;
    throw Invalid{};
  }

  // The end of a "$(...)", "@(...)" or "%(...)" reference that starts at `i`.
  size_t ReferenceEnd(size_t i) const {
    size_t end = FindClosingParen(m_text, i + 1);
    if (end == std::string_view::npos) throw Invalid{};
    return end + 1;
  }

  bool AtReference(size_t i) const {
    return i + 1 < m_text.size() && (m_text[i] == '$' || m_text[i] == '@' || m_text[i] == '%') &&
           m_text[i + 1] == '(';
  }

  Operand Factor(int depth) {
    SkipBlanks();
    if (m_pos >= m_text.size()) throw Invalid{};
    if (depth > kMaxNesting) throw Invalid{};
    char c = m_text[m_pos];
    if (c == '(') {
      ++m_pos;
      bool value = Or(depth + 1);
      SkipBlanks();
      if (m_pos >= m_text.size() || m_text[m_pos] != ')') throw Invalid{};
      ++m_pos;
      return {"", value};
    }
    if (c == '\'' || c == '"' || c == '`') {
      size_t i = m_pos + 1;
      while (i < m_text.size() && m_text[i] != c) i = AtReference(i) ? ReferenceEnd(i) : i + 1;
      if (i >= m_text.size()) throw Invalid{};
      std::string_view raw = m_text.substr(m_pos + 1, i - m_pos - 1);
      m_pos = i + 1;
      return {ExpandMSBuild(raw, m_scope), std::nullopt};
    }
    // An unquoted operand: references and word characters; a word followed by '(' is a
    // function call.
    size_t start = m_pos, i = m_pos;
    while (i < m_text.size()) {
      if (AtReference(i)) {
        i = ReferenceEnd(i);
      } else if (std::isalnum(static_cast<unsigned char>(m_text[i])) ||
                 std::string_view("_.-:\\/").find(m_text[i]) != std::string_view::npos) {
        ++i;
      } else {
        break;
      }
    }
    if (i == start) throw Invalid{};
    std::string_view word = m_text.substr(start, i - start);
    size_t j = i;
    while (j < m_text.size() && (m_text[j] == ' ' || m_text[j] == '\t')) ++j;
    if (j < m_text.size() && m_text[j] == '(' && word.find('$') == std::string_view::npos) {
      size_t end = FindClosingParen(m_text, j);
      if (end == std::string_view::npos) throw Invalid{};
      auto args = SplitArguments(m_text.substr(j + 1, end - j - 1));
      m_pos = end + 1;
      return {"", CallFunction(LowerAscii(word), args)};
    }
    m_pos = i;
    return {ExpandMSBuild(word, m_scope), std::nullopt};
  }

  bool CallFunction(const std::string& name, const std::vector<std::string>& args) {
    if (args.size() != 1) throw Invalid{};
    std::string_view raw = args[0];
    if (raw.size() >= 2 && (raw[0] == '\'' || raw[0] == '"' || raw[0] == '`') && raw.back() == raw[0])
      raw = raw.substr(1, raw.size() - 2);
    std::string value = Trim(ExpandMSBuild(raw, m_scope));
    if (name == "exists") {
      if (value.empty()) return false;
      std::replace(value.begin(), value.end(), '\\', '/');
      std::filesystem::path p(MSBuildUnescape(value));
      if (p.is_relative()) p = m_scope.directory / p;
      return KindOfPath(m_scope.probe, p) != PathProbe::Kind::Missing;
    }
    if (name == "hastrailingslash") return !value.empty() && (value.back() == '/' || value.back() == '\\');
    throw Invalid{};
  }

  std::string_view m_text;
  const MSBuildScope& m_scope;
  size_t m_pos = 0;
};

}  // namespace

bool EvaluateMSBuildCondition(std::string_view condition, const MSBuildScope& scope) {
  if (condition.find_first_not_of(" \t\r\n") == std::string_view::npos) return true;
  try {
    return Parser(condition, scope).Run();
  } catch (const Invalid&) {
    return false;
  }
}

}  // namespace platform::automation
