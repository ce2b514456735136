#include "platform/codemodel/VbPreprocessor.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace platform::codemodel {
namespace {

std::string Lower(std::string_view s) {
  std::string out(s);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return out;
}

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

VbConstValue Boolean(bool b) {
  VbConstValue v;
  v.type = VbConstValue::Type::Boolean;
  v.number = b ? -1 : 0;
  return v;
}

VbConstValue Number(double d) {
  VbConstValue v;
  v.type = VbConstValue::Type::Number;
  v.number = std::isfinite(d) ? d : 0;
  return v;
}

VbConstValue String(std::string s) {
  VbConstValue v;
  v.type = VbConstValue::Type::String;
  v.text = std::move(s);
  return v;
}

// A number's value: Nothing is 0, a string its numeric reading (0 when it has none).
double ToNumber(const VbConstValue& v) {
  switch (v.type) {
    case VbConstValue::Type::Nothing: return 0;
    case VbConstValue::Type::String: {
      if (EqualsNoCase(v.text, "true")) return -1;
      char* end = nullptr;
      double d = std::strtod(v.text.c_str(), &end);
      return std::isfinite(d) ? d : 0;
    }
    default: return v.number;
  }
}

std::string ToText(const VbConstValue& v) {
  switch (v.type) {
    case VbConstValue::Type::Nothing: return "";
    case VbConstValue::Type::String: return v.text;
    case VbConstValue::Type::Boolean: return v.number != 0 ? "True" : "False";
    case VbConstValue::Type::Number: {
      double d = v.number;
      if (d == std::floor(d) && std::fabs(d) < 1e15) return std::to_string(static_cast<long long>(d));
      return std::to_string(d);
    }
  }
  return "";
}

long long ToInteger(const VbConstValue& v) {
  double d = ToNumber(v);
  if (!(d > -9.2e18 && d < 9.2e18)) return 0;
  return std::llround(d);
}

// The value of a number literal ("12", "&HFF", "1.5", "3L", "1_000").
double NumberLiteral(std::string_view s) {
  std::string digits;
  int base = 10;
  size_t i = 0;
  if (s.size() > 1 && s[0] == '&') {
    char b = static_cast<char>(s[1] | 0x20);
    base = b == 'h' ? 16 : b == 'o' ? 8 : 2;
    i = 2;
  }
  for (; i < s.size(); ++i) {
    char c = s[i];
    if (c == '_') continue;
    bool digit = base == 16 ? std::isxdigit(static_cast<unsigned char>(c)) != 0
                            : (c >= '0' && c <= '9') || (base == 10 && (c == '.' || c == 'e' || c == 'E' ||
                                                                         ((c == '+' || c == '-') && !digits.empty() &&
                                                                          (digits.back() == 'e' || digits.back() == 'E'))));
    if (!digit) break;
    digits += c;
  }
  if (digits.empty()) return 0;
  if (base == 10) return std::strtod(digits.c_str(), nullptr);
  return static_cast<double>(std::strtoull(digits.c_str(), nullptr, base));
}

// A string literal's content: the quotes removed, "" read as one quote.
std::string StringLiteral(std::string_view s, const VbLexer& lexer, size_t offset) {
  std::string out;
  size_t i = offset, end = offset + s.size();
  size_t q = lexer.QuoteAt(i);
  if (!q) return out;
  i += q;
  while (i < end) {
    if (size_t q1 = lexer.QuoteAt(i)) {
      if (size_t q2 = lexer.QuoteAt(i + q1); q2 && i + q1 < end) {
        out += '"';
        i += q1 + q2;
        continue;
      }
      break;
    }
    out += lexer.text()[i++];
  }
  return out;
}

// Recursive descent over a directive's expression, VB's precedence from Xor (lowest)
// to ^ (highest). Any syntax error makes the whole expression malformed.
class Evaluator {
 public:
  Evaluator(const VbPreprocessor& pp, std::string_view text, const VbToken* b, const VbToken* e)
      : m_pp(pp), m_lexer(text), m_text(text), m_p(b), m_end(e) {}

  VbConstValue Run(bool* ok) {
    VbConstValue v = Xor();
    *ok = m_ok && m_p == m_end;
    return v;
  }

 private:
  bool AtKeyword(VbKeyword k) const { return m_p < m_end && m_p->Is(k); }
  bool AtPunct(VbPunct p) const { return m_p < m_end && m_p->Is(p); }
  VbConstValue Fail() {
    m_ok = false;
    m_p = m_end;
    return {};
  }

  VbConstValue Xor() {
    VbConstValue v = Or();
    while (m_ok && AtKeyword(VbKeyword::Xor)) {
      ++m_p;
      VbConstValue r = Or();
      v = Logical(v, r, [](long long a, long long b) { return a ^ b; });
    }
    return v;
  }
  VbConstValue Or() {
    VbConstValue v = And();
    while (m_ok && (AtKeyword(VbKeyword::Or) || AtKeyword(VbKeyword::OrElse))) {
      bool shortCircuit = m_p->keyword == VbKeyword::OrElse;
      ++m_p;
      VbConstValue r = And();
      v = shortCircuit ? Boolean(v.IsTrue() || r.IsTrue()) : Logical(v, r, [](long long a, long long b) { return a | b; });
    }
    return v;
  }
  VbConstValue And() {
    VbConstValue v = Not();
    while (m_ok && (AtKeyword(VbKeyword::And) || AtKeyword(VbKeyword::AndAlso))) {
      bool shortCircuit = m_p->keyword == VbKeyword::AndAlso;
      ++m_p;
      VbConstValue r = Not();
      v = shortCircuit ? Boolean(v.IsTrue() && r.IsTrue()) : Logical(v, r, [](long long a, long long b) { return a & b; });
    }
    return v;
  }
  template <class F>
  static VbConstValue Logical(const VbConstValue& a, const VbConstValue& b, F op) {
    bool numeric = a.type == VbConstValue::Type::Number || b.type == VbConstValue::Type::Number;
    if (!numeric) return Boolean(op(a.IsTrue() ? -1 : 0, b.IsTrue() ? -1 : 0) != 0);
    return Number(static_cast<double>(op(ToInteger(a), ToInteger(b))));
  }
  VbConstValue Not() {
    if (!AtKeyword(VbKeyword::Not)) return Comparison();
    if (!Enter()) return Fail();
    ++m_p;
    VbConstValue v = Not();
    Leave();
    if (v.type == VbConstValue::Type::Number) return Number(static_cast<double>(~ToInteger(v)));
    return Boolean(!v.IsTrue());
  }
  VbConstValue Comparison() {
    VbConstValue v = Shift();
    while (m_ok && m_p < m_end && m_p->kind == VbTokenKind::Punct) {
      VbPunct op = m_p->punct;
      if (op != VbPunct::Equals && op != VbPunct::NotEquals && op != VbPunct::Less && op != VbPunct::Greater &&
          op != VbPunct::LessEquals && op != VbPunct::GreaterEquals)
        break;
      ++m_p;
      VbConstValue r = Shift();
      int cmp;
      // A string against a string or Nothing compares as text (Nothing reads as "").
      bool textual = (v.type == VbConstValue::Type::String || r.type == VbConstValue::Type::String) &&
                     v.type != VbConstValue::Type::Number && r.type != VbConstValue::Type::Number &&
                     v.type != VbConstValue::Type::Boolean && r.type != VbConstValue::Type::Boolean;
      if (textual) {
        cmp = v.text.compare(r.text);
      } else {
        double a = ToNumber(v), b = ToNumber(r);
        cmp = a < b ? -1 : a > b ? 1 : 0;
      }
      bool result = op == VbPunct::Equals ? cmp == 0 : op == VbPunct::NotEquals ? cmp != 0
                  : op == VbPunct::Less ? cmp < 0 : op == VbPunct::Greater ? cmp > 0
                  : op == VbPunct::LessEquals ? cmp <= 0 : cmp >= 0;
      v = Boolean(result);
    }
    return v;
  }
  VbConstValue Shift() {
    VbConstValue v = Concat();
    while (m_ok && (AtPunct(VbPunct::ShiftLeft) || AtPunct(VbPunct::ShiftRight))) {
      bool left = m_p->punct == VbPunct::ShiftLeft;
      ++m_p;
      long long by = ToInteger(Concat()) & 63;
      long long a = ToInteger(v);
      v = Number(static_cast<double>(left ? static_cast<long long>(static_cast<unsigned long long>(a) << by) : a >> by));
    }
    return v;
  }
  VbConstValue Concat() {
    VbConstValue v = Additive();
    while (m_ok && AtPunct(VbPunct::Amp)) {
      ++m_p;
      VbConstValue r = Additive();
      v = String(ToText(v) + ToText(r));
    }
    return v;
  }
  VbConstValue Additive() {
    VbConstValue v = Modulo();
    while (m_ok && (AtPunct(VbPunct::Plus) || AtPunct(VbPunct::Minus))) {
      bool plus = m_p->punct == VbPunct::Plus;
      ++m_p;
      VbConstValue r = Modulo();
      if (plus && v.type == VbConstValue::Type::String && r.type == VbConstValue::Type::String) v = String(v.text + r.text);
      else v = Number(plus ? ToNumber(v) + ToNumber(r) : ToNumber(v) - ToNumber(r));
    }
    return v;
  }
  VbConstValue Modulo() {
    VbConstValue v = IntDivide();
    while (m_ok && AtKeyword(VbKeyword::Mod)) {
      ++m_p;
      double r = ToNumber(IntDivide());
      v = Number(r == 0 ? 0 : std::fmod(ToNumber(v), r));
    }
    return v;
  }
  VbConstValue IntDivide() {
    VbConstValue v = Multiplicative();
    while (m_ok && AtPunct(VbPunct::Backslash)) {
      ++m_p;
      long long r = ToInteger(Multiplicative());
      long long a = ToInteger(v);
      v = Number(r == 0 || (r == -1 && a == INT64_MIN) ? 0 : static_cast<double>(a / r));
    }
    return v;
  }
  VbConstValue Multiplicative() {
    VbConstValue v = Unary();
    while (m_ok && (AtPunct(VbPunct::Star) || AtPunct(VbPunct::Slash))) {
      bool times = m_p->punct == VbPunct::Star;
      ++m_p;
      double r = ToNumber(Unary());
      v = Number(times ? ToNumber(v) * r : (r == 0 ? 0 : ToNumber(v) / r));
    }
    return v;
  }
  VbConstValue Unary() {
    if (AtPunct(VbPunct::Minus) || AtPunct(VbPunct::Plus)) {
      bool minus = m_p->punct == VbPunct::Minus;
      if (!Enter()) return Fail();
      ++m_p;
      VbConstValue v = Unary();
      Leave();
      return Number(minus ? -ToNumber(v) : ToNumber(v));
    }
    return Power();
  }
  VbConstValue Power() {
    VbConstValue v = Primary();
    while (m_ok && AtPunct(VbPunct::Caret)) {
      ++m_p;
      VbConstValue r = Primary();
      v = Number(std::pow(ToNumber(v), ToNumber(r)));
    }
    return v;
  }
  VbConstValue Primary() {
    if (m_p >= m_end) return Fail();
    const VbToken& t = *m_p;
    std::string_view s = m_text.substr(t.offset, t.length);
    switch (t.kind) {
      case VbTokenKind::Number: ++m_p; return Number(NumberLiteral(s));
      case VbTokenKind::String:
      case VbTokenKind::Char: ++m_p; return String(StringLiteral(t.kind == VbTokenKind::Char ? s.substr(0, s.size() - 1) : s, m_lexer, t.offset));
      case VbTokenKind::Bracketed: ++m_p; return m_pp.Value(s.substr(1, s.size() - 2));
      case VbTokenKind::Punct:
        if (t.punct == VbPunct::LParen) {
          if (!Enter()) return Fail();
          ++m_p;
          VbConstValue v = Xor();
          Leave();
          if (!AtPunct(VbPunct::RParen)) return Fail();
          ++m_p;
          return v;
        }
        return Fail();
      case VbTokenKind::Identifier: {
        if (t.keyword == VbKeyword::True || t.keyword == VbKeyword::False) {
          ++m_p;
          return Boolean(t.keyword == VbKeyword::True);
        }
        if (t.keyword == VbKeyword::Nothing) {
          ++m_p;
          return {};
        }
        if (t.keyword == VbKeyword::If) return Ternary();
        std::string name = Lower(s);
        if (m_p + 1 < m_end && m_p[1].Is(VbPunct::LParen) && name.size() > 1 && name[0] == 'c') return Conversion(name);
        if (t.keyword != VbKeyword::None) return Fail();
        ++m_p;
        return m_pp.Value(t.typeChar ? s.substr(0, s.size() - 1) : s);
      }
      default:
        return Fail();
    }
  }
  // If(condition, a, b) and If(a, b).
  VbConstValue Ternary() {
    ++m_p;
    if (!AtPunct(VbPunct::LParen) || !Enter()) return Fail();
    ++m_p;
    std::vector<VbConstValue> args;
    while (m_ok) {
      args.push_back(Xor());
      if (AtPunct(VbPunct::Comma)) {
        ++m_p;
        continue;
      }
      break;
    }
    Leave();
    if (!AtPunct(VbPunct::RParen) || args.size() < 2 || args.size() > 3) return Fail();
    ++m_p;
    if (args.size() == 3) return args[0].IsTrue() ? args[1] : args[2];
    return args[0].type != VbConstValue::Type::Nothing ? args[0] : args[1];
  }
  // CBool(x), CInt(x), CStr(x) and the other conversions.
  VbConstValue Conversion(const std::string& name) {
    static const char* const kNumeric[] = {"cbyte", "csbyte", "cshort", "cushort", "cint", "cuint",
                                           "clng", "culng", "csng", "cdbl", "cdec"};
    bool numeric = false;
    for (const char* n : kNumeric) numeric |= name == n;
    if (!numeric && name != "cbool" && name != "cstr" && name != "cobj") return Fail();
    m_p += 2;
    if (!Enter()) return Fail();
    VbConstValue v = Xor();
    Leave();
    if (!AtPunct(VbPunct::RParen)) return Fail();
    ++m_p;
    if (name == "cbool") return Boolean(v.IsTrue());
    if (name == "cstr") return String(ToText(v));
    if (name == "cobj") return v;
    return Number(ToNumber(v));
  }
  // Nesting is bounded so that a line of a million '(' cannot exhaust the stack.
  bool Enter() { return ++m_nesting < 64; }
  void Leave() { --m_nesting; }

  const VbPreprocessor& m_pp;
  VbLexer m_lexer;
  std::string_view m_text;
  const VbToken* m_p;
  const VbToken* m_end;
  bool m_ok = true;
  int m_nesting = 0;
};

// The tokens of `text` up to its end, for the constants handed in by the project.
std::vector<VbToken> Tokenize(std::string_view text) {
  std::vector<VbToken> tokens;
  VbLexer lexer(text);
  uint32_t pos = 0;
  while (true) {
    VbScanContext ctx;
    VbToken t = lexer.Scan(pos, ctx);
    if (t.kind == VbTokenKind::End) break;
    if (t.kind == VbTokenKind::Newline || t.kind == VbTokenKind::Comment || t.kind == VbTokenKind::Continuation) continue;
    tokens.push_back(t);
  }
  return tokens;
}

}  // namespace

bool VbConstValue::IsTrue() const {
  switch (type) {
    case Type::Nothing: return false;
    case Type::String: {
      if (EqualsNoCase(text, "true")) return true;
      if (EqualsNoCase(text, "false")) return false;
      return ToNumber(*this) != 0;
    }
    default: return number != 0;
  }
}

VbPreprocessor::VbPreprocessor(const PreprocessorSymbols& symbols) {
  for (const auto& [name, value] : symbols.symbols) {
    std::string_view n = name;
    while (!n.empty() && (n.front() == ' ' || n.front() == '\t')) n.remove_prefix(1);
    while (!n.empty() && (n.back() == ' ' || n.back() == '\t')) n.remove_suffix(1);
    if (n.empty()) continue;
    std::string_view v = value;
    while (!v.empty() && (v.front() == ' ' || v.front() == '\t')) v.remove_prefix(1);
    if (v.empty()) {
      m_constants[Lower(n)] = Boolean(true);
      continue;
    }
    std::vector<VbToken> tokens = Tokenize(v);
    bool ok = false;
    VbConstValue parsed = tokens.empty() ? VbConstValue{} : Evaluate(v, tokens.data(), tokens.data() + tokens.size(), &ok);
    m_constants[Lower(n)] = ok ? parsed : VbConstValue{};
  }
}

VbConstValue VbPreprocessor::Value(std::string_view name) const {
  auto it = m_constants.find(Lower(name));
  return it == m_constants.end() ? VbConstValue{} : it->second;
}

VbConstValue VbPreprocessor::Evaluate(std::string_view text, const VbToken* begin, const VbToken* end, bool* ok) const {
  Evaluator e(*this, text, begin, end);
  return e.Run(ok);
}

bool VbPreprocessor::Condition(std::string_view text, const VbToken* begin, const VbToken* end) const {
  if (end > begin && end[-1].Is(VbKeyword::Then)) --end;
  if (begin == end) return false;
  bool ok = false;
  VbConstValue v = Evaluate(text, begin, end, &ok);
  return ok && v.IsTrue();
}

void VbPreprocessor::Directive(std::string_view text, const std::vector<VbToken>& tokens) {
  if (tokens.empty() || tokens[0].kind != VbTokenKind::Identifier) return;
  const VbToken* p = tokens.data();
  const VbToken* end = p + tokens.size();
  std::string_view word = text.substr(p->offset, p->length);
  auto second = [&](VbKeyword k) { return tokens.size() > 1 && tokens[1].Is(k); };
  if (p->Is(VbKeyword::If)) {
    m_sections.If([&] { return Condition(text, p + 1, end); });
  } else if (p->Is(VbKeyword::ElseIf) || (p->Is(VbKeyword::Else) && second(VbKeyword::If))) {
    const VbToken* cond = p->Is(VbKeyword::ElseIf) ? p + 1 : p + 2;
    m_sections.Elif([&] { return Condition(text, cond, end); });
  } else if (p->Is(VbKeyword::Else)) {
    m_sections.Else();
  } else if ((p->Is(VbKeyword::End) && second(VbKeyword::If)) || p->Is(VbKeyword::EndIf) || EqualsNoCase(word, "endif")) {
    m_sections.EndIf();
  } else if (p->Is(VbKeyword::Const)) {
    if (!Active() || tokens.size() < 3) return;
    const VbToken& name = tokens[1];
    if (name.kind != VbTokenKind::Identifier && name.kind != VbTokenKind::Bracketed) return;
    if (!tokens[2].Is(VbPunct::Equals)) return;
    std::string_view n = text.substr(name.offset, name.length);
    if (name.kind == VbTokenKind::Bracketed) n = n.substr(1, n.size() - 2);
    bool ok = false;
    VbConstValue v = Evaluate(text, p + 3, end, &ok);
    m_constants[Lower(n)] = ok ? v : VbConstValue{};
  }
}

}  // namespace platform::codemodel
