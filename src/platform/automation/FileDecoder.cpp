#include "platform/automation/FileDecoder.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>

#include "platform/core/Error.h"

namespace platform::automation {
namespace {

void AppendUtf8(std::string& out, uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

std::string DecodeUtf16(std::string_view bytes, bool bigEndian) {
  std::string out;
  out.reserve(bytes.size());
  auto unit = [&](size_t i) -> uint32_t {
    auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
    return bigEndian ? (a << 8 | b) : (b << 8 | a);
  };
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
    uint32_t u = unit(i);
    if (u >= 0xD800 && u < 0xDC00 && i + 3 < bytes.size()) {
      uint32_t v = unit(i + 2);
      if (v >= 0xDC00 && v < 0xE000) {
        AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00));
        i += 2;
        continue;
      }
    }
    if (u >= 0xD800 && u < 0xE000) u = 0xFFFD;  // a lone surrogate
    AppendUtf8(out, u);
  }
  if (bytes.size() % 2) AppendUtf8(out, 0xFFFD);
  return out;
}

// Windows-1252's 0x80..0x9F; the rest of the code page is Latin-1. The five undefined
// bytes map to themselves as C1 controls, as the system's decoder does.
constexpr uint16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::string DecodeCp1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (unsigned char c : bytes) {
    if (c < 0x80) out += static_cast<char>(c);
    else if (c < 0xA0) AppendUtf8(out, kCp1252High[c - 0x80]);
    else AppendUtf8(out, c);
  }
  return out;
}

}  // namespace

bool IsValidUtf8(std::string_view s) {
  size_t i = 0, n = s.size();
  while (i < n) {
    // Source text is mostly ASCII: eight bytes at a time while no high bit is set.
    while (i + 8 <= n) {
      uint64_t word;
      std::memcpy(&word, s.data() + i, 8);
      if (word & 0x8080808080808080ull) break;
      i += 8;
    }
    if (i >= n) break;
    auto c = static_cast<unsigned char>(s[i]);
    if (c < 0x80) { ++i; continue; }
    int len;
    uint32_t cp;
    if ((c & 0xE0) == 0xC0) { len = 2; cp = c & 0x1F; }
    else if ((c & 0xF0) == 0xE0) { len = 3; cp = c & 0x0F; }
    else if ((c & 0xF8) == 0xF0) { len = 4; cp = c & 0x07; }
    else return false;
    if (i + len > n) return false;
    for (int k = 1; k < len; ++k) {
      auto d = static_cast<unsigned char>(s[i + k]);
      if ((d & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (d & 0x3F);
    }
    if ((len == 2 && cp < 0x80) || (len == 3 && cp < 0x800) || (len == 4 && cp < 0x10000) ||
        cp > 0x10FFFF || (cp >= 0xD800 && cp < 0xE000))
      return false;
    i += len;
  }
  return true;
}

std::string DecodeText(std::string_view b) {
  if (b.size() >= 3 && b.substr(0, 3) == "\xEF\xBB\xBF") return std::string(b.substr(3));
  if (b.size() >= 2 && b.substr(0, 2) == "\xFF\xFE") return DecodeUtf16(b.substr(2), false);
  if (b.size() >= 2 && b.substr(0, 2) == "\xFE\xFF") return DecodeUtf16(b.substr(2), true);
  if (IsValidUtf8(b)) return std::string(b);
  return DecodeCp1252(b);
}

std::string DecodeOwnedText(std::string&& b) {
  if (b.size() >= 3 && std::string_view(b).substr(0, 3) == "\xEF\xBB\xBF") {
    b.erase(0, 3);
    return std::move(b);
  }
  if (b.size() >= 2 && (std::string_view(b).substr(0, 2) == "\xFF\xFE" || std::string_view(b).substr(0, 2) == "\xFE\xFF"))
    return DecodeText(std::string_view(b));
  if (IsValidUtf8(b)) return std::move(b);
  return DecodeCp1252(b);
}

std::string DecodeFile(const std::filesystem::path& path) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec))
    throw Error(err::kFileNotFound, "File not found: " + path.string());
  std::ifstream in(path, std::ios::binary);
  std::ostringstream ss;
  ss << in.rdbuf();
  if (!in && !in.eof()) throw Error(err::kPathFileAccess, "Cannot read " + path.string());
  if (in.bad()) throw Error(err::kPathFileAccess, "Cannot read " + path.string());
  return DecodeText(ss.str());
}

}  // namespace platform::automation
