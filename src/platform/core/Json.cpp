#include "platform/core/Json.h"

namespace platform {
namespace {

// The length of the valid UTF-8 sequence at text[i], or 0 when the bytes there are not
// one (overlong forms and surrogates count as invalid).
size_t Utf8SequenceLength(std::string_view text, size_t i) {
  auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
  unsigned char c = byte(i);
  size_t len;
  if (c < 0x80) return 1;
  if (c >= 0xC2 && c <= 0xDF) len = 2;
  else if (c >= 0xE0 && c <= 0xEF) len = 3;
  else if (c >= 0xF0 && c <= 0xF4) len = 4;
  else return 0;
  if (i + len > text.size()) return 0;
  for (size_t k = 1; k < len; ++k)
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
  unsigned char c1 = byte(i + 1);
  if (c == 0xE0 && c1 < 0xA0) return 0;   // overlong
  if (c == 0xED && c1 >= 0xA0) return 0;  // surrogate
  if (c == 0xF0 && c1 < 0x90) return 0;   // overlong
  if (c == 0xF4 && c1 >= 0x90) return 0;  // past U+10FFFF
  return len;
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view text) {
  static const char kHex[] = "0123456789abcdef";
  out += '"';
  for (size_t i = 0; i < text.size();) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (c >= 0x80) {
      size_t len = Utf8SequenceLength(text, i);
      if (len == 0) {
        out += "\xEF\xBF\xBD";
        ++i;
      } else {
        out.append(text.substr(i, len));
        i += len;
      }
      continue;
    }
    ++i;
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      default:
        if (c < 0x20 || c == 0x7F) {
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 15];
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

}  // namespace platform
