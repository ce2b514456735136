#include "platform/dao/SqlTranslator.h"

#include "platform/core/Error.h"

namespace platform::dao {
namespace {

std::string Literal(const std::string& value) {
  std::string out = "'";
  for (char c : value) {
    if (c == '\'') out += '\'';
    out += c;
  }
  return out + "'";
}

// A Like pattern of the dialect (* any text, ? one character) as SQLite's LIKE pattern
// with \ as its escape.
std::string LikePattern(const std::string& pattern) {
  std::string out;
  for (char c : pattern) {
    if (c == '*') out += '%';
    else if (c == '?') out += '_';
    else if (c == '%' || c == '_' || c == '\\') out += std::string("\\") + c;
    else out += c;
  }
  return Literal(out);
}

bool IsPlainWord(const std::string& word) {
  for (char c : word)
    if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'))
      return false;
  return !word.empty();
}

std::string UpperAscii(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  return s;
}

[[noreturn]] void Untranslatable(const std::string& what) {
  throw Error(err::kSyntaxInExpression, "Syntax error in query expression: " + what + " is not supported.");
}

}  // namespace

std::string SqlTranslator::Quote(const std::string& name) {
  std::string out = "\"";
  for (char c : name) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

bool SqlTranslator::IsStar(const std::vector<SqlToken>& tokens) {
  if (tokens.size() == 1) return tokens[0].Is("*");
  return tokens.size() == 3 &&
         (tokens[0].kind == SqlToken::Kind::Word || tokens[0].kind == SqlToken::Kind::Name) &&
         tokens[1].Is(".") && tokens[2].Is("*");
}

std::string SqlTranslator::Expression(const std::vector<SqlToken>& tokens) {
  static const char* const kKeywords[] = {"AND", "OR", "NOT", "IS", "NULL", "LIKE", "IN",
                                          "BETWEEN", "AS", "ASC", "DESC", "DISTINCT"};
  std::string out;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const SqlToken& t = tokens[i];
    // Literals are assigned as std::string temporaries: assigning a short literal into a
    // string here trips a false -Wrestrict of GCC 12 at -O2.
    std::string piece;
    switch (t.kind) {
      case SqlToken::Kind::End: break;
      case SqlToken::Kind::Name: piece = Quote(t.text); break;
      case SqlToken::Kind::Number: piece = t.text; break;
      case SqlToken::Kind::Date: Untranslatable("a date literal");
      case SqlToken::Kind::String:
        piece = i > 0 && tokens[i - 1].Is("LIKE") ? LikePattern(t.text) + " ESCAPE '\\'" : Literal(t.text);
        break;
      case SqlToken::Kind::Word: {
        bool keyword = false;
        for (const char* k : kKeywords)
          if (t.Is(k)) keyword = true;
        if (t.Is("TRUE")) piece = std::string("-1");
        else if (t.Is("FALSE")) piece = std::string("0");
        else if (t.Is("MOD")) piece = std::string("%");
        else if (t.Is("EQV") || t.Is("IMP") || t.Is("XOR")) Untranslatable(t.text);
        else if (keyword) piece = UpperAscii(t.text);
        else if (i + 1 < tokens.size() && tokens[i + 1].Is("(") && IsPlainWord(t.text)) piece = t.text;
        else piece = Quote(t.text);
        break;
      }
      case SqlToken::Kind::Symbol:
        if (t.Is("&")) piece = std::string("||");
        else if (t.Is("!")) piece = std::string(".");
        else if (t.Is("?")) throw Error(err::kTooFewParameters);
        else if (t.Is("\\") || t.Is("^") || t.Is(";")) Untranslatable("'" + t.text + "'");
        else piece = t.text;
        break;
    }
    bool tight = piece == "." || (!out.empty() && out.back() == '.') || piece == "(" || piece == ")" ||
                 piece == "," || (!out.empty() && out.back() == '(');
    if (!out.empty() && !tight) out += ' ';
    else if (piece == "(" && !out.empty() && out.back() != '(' && out.back() != '.' &&
             !(i > 0 && tokens[i - 1].kind == SqlToken::Kind::Word))
      out += ' ';
    out += piece;
  }
  return out;
}

}  // namespace platform::dao
