#include "platform/core/XmlText.h"

#include <cstdint>

namespace platform {
namespace {

// Appends code point `c` to `out` in UTF-8.
void AppendUtf8(std::string& out, uint32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Whether XML allows `c` as a character.
bool IsXmlChar(uint32_t c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

// The character of the reference `name` (the text between "&" and ";"); false when it
// names none.
bool Resolve(std::string_view name, std::string& out) {
  static constexpr struct {
    std::string_view name;
    char c;
  } kEntities[] = {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& e : kEntities)
    if (name == e.name) {
      out += e.c;
      return true;
    }
  if (name.size() < 2 || name[0] != '#') return false;
  const bool hex = name[1] == 'x';
  std::string_view digits = name.substr(hex ? 2 : 1);
  if (digits.empty() || digits.size() > 8) return false;
  uint32_t code = 0;
  for (char d : digits) {
    int v = d >= '0' && d <= '9' ? d - '0'
            : hex && d >= 'a' && d <= 'f' ? d - 'a' + 10
            : hex && d >= 'A' && d <= 'F' ? d - 'A' + 10
                                          : -1;
    if (v < 0) return false;
    code = code * (hex ? 16 : 10) + static_cast<uint32_t>(v);
  }
  if (!IsXmlChar(code)) return false;
  AppendUtf8(out, code);
  return true;
}

}  // namespace

std::string DecodeXmlAttributeValue(std::string_view value) {
  std::string out;
  out.reserve(value.size());
  for (size_t i = 0; i < value.size(); ++i) {
    const char c = value[i];
    if (c == '\r') {
      out += ' ';
      if (i + 1 < value.size() && value[i + 1] == '\n') ++i;
    } else if (c == '\n' || c == '\t') {
      out += ' ';
    } else if (c == '&') {
      const size_t semicolon = value.find(';', i + 1);
      // A name runs at most to the longest reference there is (&#x10FFFF;).
      if (semicolon != std::string_view::npos && semicolon - i <= 10 &&
          Resolve(value.substr(i + 1, semicolon - i - 1), out)) {
        i = semicolon;
      } else {
        out += c;
      }
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace platform
