#pragma once
#include <algorithm>
#include <string>
#include <string_view>

namespace platform {

/// Small text helpers with the system's rules: "lower case" is ASCII lower-casing, and
/// blanks are named by the caller.

/// `s` with A-Z turned to a-z; other bytes unchanged.
inline std::string AsciiLower(std::string_view s) {
  std::string out(s);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return out;
}

/// `s` without the characters of `blanks` at either end.
inline std::string Trim(std::string_view s, std::string_view blanks = " \t\r\n") {
  size_t a = s.find_first_not_of(blanks);
  if (a == std::string_view::npos) return "";
  size_t b = s.find_last_not_of(blanks);
  return std::string(s.substr(a, b - a + 1));
}

/// `s` without any tab character.
inline std::string WithoutTabs(std::string_view s) {
  std::string out(s);
  out.erase(std::remove(out.begin(), out.end(), '\t'), out.end());
  return out;
}

}  // namespace platform
