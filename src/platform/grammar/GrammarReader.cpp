#include "platform/grammar/GrammarReader.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

namespace platform::grammar {
namespace {

bool IsIdentStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}
bool IsIdentChar(char c) { return IsIdentStart(c) || (c >= '0' && c <= '9'); }

// Deeper nesting than this in one rule is refused rather than risking the stack.
constexpr int kMaxNesting = 200;

/// One reading of one grammar text. Throws Failure at the first error.
class Reader {
 public:
  struct Failure {
    size_t pos;
    std::string message;
  };

  Reader(std::string_view text, Grammar& g) : m_text(text), m_g(g) {}

  void ReadAll() {
    Spacing();
    while (!AtEnd()) {
      size_t start = m_pos;
      std::string word = PeekIdentifier();
      if (word.empty()) Fail(m_pos, "expected a rule name or 'grammar'");
      m_pos += word.size();
      Spacing();
      if (word == "grammar" && !LooksAt("<-")) {
        std::string name = PeekIdentifier();
        if (name.empty()) Fail(m_pos, "expected the grammar's name after 'grammar'");
        if (m_grammars.count(name)) Fail(m_pos, "grammar '" + name + "' is declared twice");
        m_grammars[name] = true;
        m_grammar = name;
        m_pos += name.size();
        Spacing();
        continue;
      }
      if (!LooksAt("<-")) Fail(m_pos, "expected '<-' after the rule name '" + word + "'");
      if (m_grammar.empty()) Fail(start, "rule '" + word + "' outside of a grammar; expected 'grammar Name' first");
      if (word == "grammar") Fail(start, "'grammar' cannot name a rule");
      std::string qualified = m_grammar + "." + word;
      if (m_ruleIndex.count(qualified)) Fail(start, "rule '" + word + "' is defined twice in grammar '" + m_grammar + "'");
      m_pos += 2;
      Spacing();
      Rule r;
      r.grammar = m_grammar;
      r.name = word;
      Locate(start, r.line, r.column);
      size_t bodyStart = m_pos;
      r.firstExpr = static_cast<int32_t>(m_g.exprs.size());
      r.body = Expression(0);
      if (m_pos == bodyStart) Fail(bodyStart, "rule '" + word + "' has no expression");
      m_ruleIndex[qualified] = static_cast<int32_t>(m_g.rules.size());
      m_g.rules.push_back(std::move(r));
      if (!AtEnd() && PeekIdentifier().empty())
        Fail(m_pos, std::string("unexpected '") + m_text[m_pos] + "'");
    }
    if (m_g.rules.empty()) Fail(m_pos, "no rules in the grammar file");
    for (const auto& ref : m_refs) {
      auto it = m_ruleIndex.find(ref.target);
      if (it == m_ruleIndex.end()) Fail(ref.pos, "undefined rule '" + ref.written + "'");
      m_g.exprs[ref.expr].arg = it->second;
    }
  }

  void Locate(size_t pos, int32_t& line, int32_t& column) {
    if (m_lineStarts.empty()) {
      m_lineStarts.push_back(0);
      for (size_t i = 0; i < m_text.size(); ++i)
        if (m_text[i] == '\n') m_lineStarts.push_back(i + 1);
    }
    auto it = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), pos);
    size_t index = static_cast<size_t>(it - m_lineStarts.begin()) - 1;
    line = static_cast<int32_t>(index + 1);
    column = static_cast<int32_t>(pos - m_lineStarts[index] + 1);
  }

 private:
  struct Ref {
    int32_t expr;
    std::string target;   // qualified
    std::string written;  // as written
    size_t pos;
  };

  [[noreturn]] void Fail(size_t pos, std::string message) {
    throw Failure{pos, std::move(message)};
  }

  bool AtEnd() const { return m_pos >= m_text.size(); }
  bool LooksAt(std::string_view s) const { return m_text.substr(m_pos, s.size()) == s; }

  void Spacing() {
    while (!AtEnd()) {
      char c = m_text[m_pos];
      if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v') {
        ++m_pos;
      } else if (c == '#') {
        while (!AtEnd() && m_text[m_pos] != '\n') ++m_pos;
      } else {
        break;
      }
    }
  }

  std::string PeekIdentifier() const { return IdentifierAt(m_pos); }
  std::string IdentifierAt(size_t p) const {
    if (p >= m_text.size() || !IsIdentStart(m_text[p])) return "";
    size_t e = p;
    while (e < m_text.size() && IsIdentChar(m_text[e])) ++e;
    return std::string(m_text.substr(p, e - p));
  }

  // True when the text at the cursor begins a new rule or a new grammar, which ends the
  // sequence being read.
  bool AtDefinition() const {
    std::string word = PeekIdentifier();
    if (word.empty()) return false;
    size_t p = m_pos + word.size();
    size_t q = p;
    while (q < m_text.size() && (m_text[q] == ' ' || m_text[q] == '\t' || m_text[q] == '\r' ||
                                 m_text[q] == '\n'))
      ++q;
    if (m_text.substr(q, 2) == "<-") return true;
    if (word == "grammar" && p < m_text.size() && (m_text[p] == ' ' || m_text[p] == '\t') &&
        !IdentifierAt(q).empty())
      return true;
    return false;
  }

  int32_t Make(Op op, size_t pos, const std::vector<int32_t>& operands = {}) {
    int32_t line, column;
    Locate(pos, line, column);
    int32_t e = m_g.AddExpr(op, line, column);
    m_g.exprs[e].first = static_cast<int32_t>(m_g.kids.size());
    m_g.exprs[e].count = static_cast<int32_t>(operands.size());
    m_g.kids.insert(m_g.kids.end(), operands.begin(), operands.end());
    return e;
  }

  int32_t Expression(int depth) {
    if (depth > kMaxNesting) Fail(m_pos, "expression nested too deeply");
    size_t start = m_pos;
    std::vector<int32_t> alternatives{Sequence(depth)};
    while (!AtEnd() && m_text[m_pos] == '/') {
      ++m_pos;
      Spacing();
      alternatives.push_back(Sequence(depth));
    }
    if (alternatives.size() == 1) return alternatives[0];
    return Make(Op::Choice, start, alternatives);
  }

  int32_t Sequence(int depth) {
    size_t start = m_pos;
    std::vector<int32_t> items;
    while (!AtEnd()) {
      char c = m_text[m_pos];
      if (c == '/' || c == ')' || c == '>') break;
      if (AtDefinition()) break;
      items.push_back(Prefix(depth));
    }
    if (items.empty()) return Make(Op::Empty, start);
    if (items.size() == 1) return items[0];
    return Make(Op::Seq, start, items);
  }

  int32_t Prefix(int depth) {
    size_t start = m_pos;
    char c = m_text[m_pos];
    if (c == '&' || c == '!') {
      ++m_pos;
      Spacing();
      if (AtEnd()) Fail(m_pos, std::string("expected an expression after '") + c + "'");
      int32_t operand = Suffix(depth);
      return Make(c == '&' ? Op::And : Op::Not, start, {operand});
    }
    return Suffix(depth);
  }

  int32_t Suffix(int depth) {
    size_t start = m_pos;
    int32_t e = Primary(depth);
    while (!AtEnd()) {
      char c = m_text[m_pos];
      Op op;
      if (c == '*') op = Op::Star;
      else if (c == '+') op = Op::Plus;
      else if (c == '?') op = Op::Optional;
      else break;
      ++m_pos;
      Spacing();
      e = Make(op, start, {e});
    }
    return e;
  }

  int32_t Primary(int depth) {
    size_t start = m_pos;
    char c = m_text[m_pos];
    if (c == '(') {
      ++m_pos;
      Spacing();
      int32_t e = Expression(depth + 1);
      if (AtEnd() || m_text[m_pos] != ')') Fail(m_pos, "expected ')'");
      ++m_pos;
      Spacing();
      return e;
    }
    if (c == '<') {
      if (m_text.substr(m_pos, 2) == "<-") Fail(m_pos, "unexpected '<-': a rule name is missing");
      ++m_pos;
      Spacing();
      int32_t e = Expression(depth + 1);
      if (AtEnd() || m_text[m_pos] != '>') Fail(m_pos, "expected '>' to close '<'");
      ++m_pos;
      Spacing();
      return Make(Op::Capture, start, {e});
    }
    if (c == '"' || c == '\'') return Literal();
    if (c == '[') return Class();
    if (c == '.') {
      ++m_pos;
      Spacing();
      return Make(Op::Any, start);
    }
    std::string name = PeekIdentifier();
    if (name.empty()) Fail(m_pos, std::string("unexpected '") + c + "'");
    m_pos += name.size();
    std::string target = m_grammar + "." + name, written = name;
    if (!AtEnd() && m_text[m_pos] == '.' && !IdentifierAt(m_pos + 1).empty()) {
      std::string rule = IdentifierAt(m_pos + 1);
      m_pos += 1 + rule.size();
      target = name + "." + rule;
      written = target;
    }
    Spacing();
    int32_t e = Make(Op::Rule, start);
    m_refs.push_back({e, target, written, start});
    return e;
  }

  // One character of a literal or a class, escapes decoded.
  char Char() {
    if (AtEnd()) Fail(m_pos, "unexpected end of the file");
    char c = m_text[m_pos++];
    if (c != '\\') return c;
    if (AtEnd()) Fail(m_pos, "unexpected end of the file after '\\'");
    char e = m_text[m_pos++];
    switch (e) {
      case 'n': return '\n';
      case 'r': return '\r';
      case 't': return '\t';
      case '0': return '\0';
      case '\\': case '\'': case '"': case '[': case ']': case '-': case '^': return e;
      case 'x': {
        int v = 0;
        for (int i = 0; i < 2; ++i) {
          if (AtEnd()) Fail(m_pos, "expected two hex digits after '\\x'");
          char h = m_text[m_pos++];
          int d = (h >= '0' && h <= '9') ? h - '0'
                  : (h >= 'a' && h <= 'f') ? h - 'a' + 10
                  : (h >= 'A' && h <= 'F') ? h - 'A' + 10 : -1;
          if (d < 0) Fail(m_pos - 1, "expected two hex digits after '\\x'");
          v = v * 16 + d;
        }
        return static_cast<char>(v);
      }
      default: Fail(m_pos - 2, std::string("unknown escape '\\") + e + "'");
    }
  }

  int32_t Literal() {
    size_t start = m_pos;
    char quote = m_text[m_pos++];
    std::string text;
    while (true) {
      if (AtEnd() || m_text[m_pos] == '\n') Fail(start, "unterminated literal");
      if (m_text[m_pos] == quote) break;
      text.push_back(Char());
    }
    ++m_pos;
    bool caseless = false;
    if (!AtEnd() && m_text[m_pos] == 'i' &&
        (m_pos + 1 >= m_text.size() || !IsIdentChar(m_text[m_pos + 1]))) {
      caseless = true;
      ++m_pos;
    }
    Spacing();
    int32_t e = Make(caseless ? Op::LiteralI : Op::Literal, start);
    m_g.exprs[e].arg = m_g.AddLiteral(std::move(text));
    return e;
  }

  int32_t Class() {
    size_t start = m_pos++;
    ByteClass set{};
    bool negate = false;
    if (!AtEnd() && m_text[m_pos] == '^') negate = true, ++m_pos;
    while (true) {
      if (AtEnd()) Fail(start, "unterminated class");
      if (m_text[m_pos] == ']') break;
      unsigned char lo = static_cast<unsigned char>(Char());
      unsigned char hi = lo;
      if (m_pos + 1 < m_text.size() && m_text[m_pos] == '-' && m_text[m_pos + 1] != ']') {
        ++m_pos;
        hi = static_cast<unsigned char>(Char());
        if (hi < lo) Fail(start, "class range out of order");
      }
      for (int v = lo; v <= hi; ++v) set[v] = 1;
    }
    ++m_pos;
    Spacing();
    if (negate)
      for (auto& b : set) b = !b;
    int32_t e = Make(Op::Class, start);
    m_g.exprs[e].arg = m_g.AddClass(set);
    return e;
  }

  std::string_view m_text;
  Grammar& m_g;
  size_t m_pos = 0;
  std::string m_grammar;
  std::map<std::string, bool> m_grammars;
  std::map<std::string, int32_t> m_ruleIndex;
  std::vector<Ref> m_refs;
  std::vector<size_t> m_lineStarts;  // offsets where lines begin, made at the first use
};

}  // namespace

bool GrammarReader::Read(std::string_view text, const std::string& source, Grammar& out,
                         std::string& error) {
  out = Grammar();
  out.source = source;
  Reader reader(text, out);
  try {
    reader.ReadAll();
  } catch (const Reader::Failure& f) {
    int32_t line, column;
    reader.Locate(f.pos, line, column);
    error = source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + f.message;
    out = Grammar();
    return false;
  }
  if (!out.Analyse(error)) {
    out = Grammar();
    return false;
  }
  return true;
}

bool GrammarReader::ReadFile(const std::string& path, Grammar& out, std::string& error) {
  std::error_code ec;
  std::ifstream in;
  if (!std::filesystem::is_directory(path, ec)) in.open(path, std::ios::binary);
  if (!in.is_open()) {
    error = path + ": cannot read the grammar file";
    out = Grammar();
    return false;
  }
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) {
    error = path + ": cannot read the grammar file";
    out = Grammar();
    return false;
  }
  return Read(text, path, out, error);
}

}  // namespace platform::grammar
