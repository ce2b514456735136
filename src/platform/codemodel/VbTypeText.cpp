#include "platform/codemodel/VbTypeText.h"

#include <cstdlib>

namespace platform::codemodel {
namespace {

bool IsWord(const VbToken& t) {
  return t.kind == VbTokenKind::Identifier || t.kind == VbTokenKind::Bracketed || t.kind == VbTokenKind::Number;
}

bool EndsWithNoCase(std::string_view s, std::string_view suffix) {
  if (s.size() < suffix.size()) return false;
  for (size_t i = 0; i < suffix.size(); ++i) {
    char c = s[s.size() - suffix.size() + i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    if (c != suffix[i]) return false;
  }
  return true;
}

}  // namespace

std::string VbJoinTokens(std::string_view text, const VbToken* begin, const VbToken* end) {
  std::string out;
  const VbToken* prev = nullptr;
  for (const VbToken* t = begin; t < end; ++t) {
    if (t->kind == VbTokenKind::Comment || t->kind == VbTokenKind::Continuation || t->kind == VbTokenKind::Newline)
      continue;
    if (prev) {
      bool closing = t->Is(VbPunct::Comma) || t->Is(VbPunct::RParen) || t->Is(VbPunct::RBrace) ||
                     t->Is(VbPunct::Greater) || (t->kind == VbTokenKind::Unknown && text.substr(t->offset, 1) == "]");
      if (prev->Is(VbPunct::Comma) && !closing) out += ' ';
      else if (IsWord(*prev) && IsWord(*t)) out += ' ';
    }
    out.append(text.substr(t->offset, t->length));
    prev = t;
  }
  return out;
}

std::string_view VbTypeOfTypeChar(char c) {
  switch (c) {
    case '%': return "Integer";
    case '&': return "Long";
    case '@': return "Decimal";
    case '!': return "Single";
    case '#': return "Double";
    case '$': return "String";
    default: return "";
  }
}

std::string_view VbLiteralType(std::string_view text, const VbToken& t) {
  switch (t.kind) {
    case VbTokenKind::String:
    case VbTokenKind::Interpolated: return "String";
    case VbTokenKind::Char: return "Char";
    case VbTokenKind::Date: return "Date";
    case VbTokenKind::Identifier:
      if (t.keyword == VbKeyword::True || t.keyword == VbKeyword::False) return "Boolean";
      if (t.keyword == VbKeyword::Nothing) return "Object";
      return "";
    case VbTokenKind::Number: break;
    default: return "";
  }
  std::string_view s = text.substr(t.offset, t.length);
  // Type characters and suffixes first, longest suffix first.
  static constexpr std::pair<std::string_view, std::string_view> kSuffixes[] = {
      {"US", "UShort"}, {"UI", "UInteger"}, {"UL", "ULong"}, {"S", "Short"}, {"I", "Integer"},
      {"L", "Long"}, {"D", "Decimal"}, {"F", "Single"}, {"R", "Double"}, {"%", "Integer"},
      {"&", "Long"}, {"@", "Decimal"}, {"!", "Single"}, {"#", "Double"},
  };
  bool hex = s.size() > 1 && s[0] == '&';
  for (const auto& [suffix, type] : kSuffixes) {
    if (hex && (suffix == "D" || suffix == "F")) continue;  // hexadecimal digits, not suffixes
    if (EndsWithNoCase(s, suffix)) {
      // "1US" ends in "S" too; the longer suffixes come first, and a digit must precede.
      char before = s.size() > suffix.size() ? s[s.size() - suffix.size() - 1] : 0;
      if (suffix.size() == 1 && (before == 'U' || before == 'u') && suffix != "%" && suffix != "&") continue;
      return type;
    }
  }
  if (!hex && (s.find('.') != std::string_view::npos || s.find('e') != std::string_view::npos ||
               s.find('E') != std::string_view::npos))
    return "Double";
  // Integer when it fits, Long beyond.
  std::string digits;
  for (char c : hex ? s.substr(2) : s)
    if (c != '_') digits += c;
  if (digits.size() > 18) return "Long";
  unsigned long long v = std::strtoull(digits.c_str(), nullptr, hex ? ((s[1] | 0x20) == 'h' ? 16 : (s[1] | 0x20) == 'o' ? 8 : 2) : 10);
  if (hex) return v <= 0xFFFFFFFFull ? "Integer" : "Long";
  return v <= 2147483647ull ? "Integer" : "Long";
}

}  // namespace platform::codemodel
