#include "platform/automation/FrameworkSymbols.h"

#include <algorithm>

#include "platform/automation/FileGlob.h"

namespace platform::automation {
namespace {

using Version = std::vector<int>;

// The framework versions the build knows; each one up to the target's own gives an
// _OR_GREATER symbol.
const std::vector<Version>& KnownFramework() {
  static const std::vector<Version> v = {{2, 0},    {3, 5},    {4, 0},    {4, 5},    {4, 5, 1},
                                         {4, 5, 2}, {4, 6},    {4, 6, 1}, {4, 6, 2}, {4, 7},
                                         {4, 7, 1}, {4, 7, 2}, {4, 8},    {4, 8, 1}};
  return v;
}
const std::vector<Version>& KnownCoreApp() {
  static const std::vector<Version> v = {{1, 0}, {1, 1}, {2, 0}, {2, 1}, {2, 2}, {3, 0}, {3, 1}};
  return v;
}
const std::vector<Version>& KnownStandard() {
  static const std::vector<Version> v = {{1, 0}, {1, 1}, {1, 2}, {1, 3}, {1, 4},
                                         {1, 5}, {1, 6}, {2, 0}, {2, 1}};
  return v;
}

// "4.7.2" -> "472" (the .NET Framework spelling).
std::string Concatenated(const Version& v) {
  std::string s;
  for (int p : v) s += std::to_string(p);
  return s;
}

// "3.1" -> "3_1"; always at least two parts.
std::string Underscored(const Version& v) {
  std::string s;
  for (size_t i = 0; i < std::max<size_t>(v.size(), 2); ++i) {
    if (i) s += '_';
    s += std::to_string(i < v.size() ? v[i] : 0);
  }
  return s;
}

// Every known version up to `own` (and `own` itself when it is not known), highest first.
std::vector<Version> UpTo(const std::vector<Version>& known, const Version& own) {
  std::vector<Version> out;
  for (auto& k : known)
    if (CompareVersions(k, own) <= 0) out.push_back(k);
  if (std::none_of(out.begin(), out.end(), [&](const Version& k) { return CompareVersions(k, own) == 0; }))
    out.push_back(own);
  std::sort(out.begin(), out.end(), [](const Version& a, const Version& b) { return CompareVersions(a, b) > 0; });
  return out;
}

std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  return s;
}

}  // namespace

std::vector<int> ParseVersion(std::string_view text) {
  if (!text.empty() && (text[0] == 'v' || text[0] == 'V')) text.remove_prefix(1);
  Version v;
  if (text.empty()) return v;
  size_t i = 0;
  while (true) {
    size_t j = i;
    long long value = 0;
    while (j < text.size() && text[j] >= '0' && text[j] <= '9') {
      if (value < 100000000) value = value * 10 + (text[j] - '0');
      ++j;
    }
    if (j == i) return {};
    v.push_back(static_cast<int>(value));
    if (j == text.size()) return v;
    if (text[j] != '.') return {};
    i = j + 1;
  }
}

int CompareVersions(const std::vector<int>& a, const std::vector<int>& b) {
  for (size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    int x = i < a.size() ? a[i] : 0, y = i < b.size() ? b[i] : 0;
    if (x != y) return x < y ? -1 : 1;
  }
  return 0;
}

std::string VersionText(const std::vector<int>& version, int parts) {
  std::string s;
  const size_t n = parts > 0 ? static_cast<size_t>(parts) : version.size();
  for (size_t i = 0; i < n; ++i) {
    if (i) s += '.';
    s += std::to_string(i < version.size() ? version[i] : 0);
  }
  return s;
}

TargetFrameworkName ParseTargetFramework(std::string_view moniker) {
  TargetFrameworkName out;
  std::string s = LowerAscii(moniker);
  s.erase(0, std::min(s.size(), s.find_first_not_of(" \t\r\n")));
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r' || s.back() == '\n'))
    s.pop_back();
  std::string base = s, platform;
  if (auto dash = s.find('-'); dash != std::string::npos) {
    base = s.substr(0, dash);
    platform = s.substr(dash + 1);
  }
  auto startsWith = [&](std::string_view p) { return base.compare(0, p.size(), p) == 0; };
  if (startsWith("netcoreapp")) {
    out.version = ParseVersion(base.substr(10));
    if (!out.version.empty()) out.identifier = ".NETCoreApp";
  } else if (startsWith("netstandard")) {
    out.version = ParseVersion(base.substr(11));
    if (!out.version.empty()) out.identifier = ".NETStandard";
  } else if (startsWith("net")) {
    std::string rest = base.substr(3);
    if (rest.find('.') != std::string::npos) {
      out.version = ParseVersion(rest);
      if (!out.version.empty()) out.identifier = out.version[0] >= 5 ? ".NETCoreApp" : ".NETFramework";
    } else if (!rest.empty() && rest.size() <= 3 &&
               std::all_of(rest.begin(), rest.end(), [](char c) { return c >= '0' && c <= '9'; })) {
      // "net472": one digit a part.
      for (char c : rest) out.version.push_back(c - '0');
      if (out.version.size() == 1) out.version.push_back(0);
      out.identifier = ".NETFramework";
    }
  }
  if (out.identifier.empty()) {
    out.version.clear();
    return out;
  }
  if (!platform.empty()) {
    size_t k = 0;
    while (k < platform.size() && platform[k] >= 'a' && platform[k] <= 'z') ++k;
    out.platform = platform.substr(0, k);
    out.platformVersion = ParseVersion(platform.substr(k));
  }
  return out;
}

std::vector<std::string> FrameworkSymbols(std::string_view moniker) {
  auto tf = ParseTargetFramework(moniker);
  std::vector<std::string> out;
  if (tf.identifier == ".NETFramework") {
    out.push_back("NETFRAMEWORK");
    out.push_back("NET" + Concatenated(tf.version));
    for (auto& v : UpTo(KnownFramework(), tf.version)) out.push_back("NET" + Concatenated(v) + "_OR_GREATER");
  } else if (tf.identifier == ".NETStandard") {
    out.push_back("NETSTANDARD");
    out.push_back("NETSTANDARD" + Underscored(tf.version));
    for (auto& v : UpTo(KnownStandard(), tf.version))
      out.push_back("NETSTANDARD" + Underscored(v) + "_OR_GREATER");
  } else if (tf.identifier == ".NETCoreApp" && tf.version[0] >= 5) {
    out.push_back("NET");
    out.push_back("NET" + Underscored(tf.version));
    out.push_back("NETCOREAPP");
    for (int major = tf.version[0]; major >= 5; --major)
      out.push_back("NET" + std::to_string(major) + "_0_OR_GREATER");
    for (auto& v : UpTo(KnownCoreApp(), {3, 1})) out.push_back("NETCOREAPP" + Underscored(v) + "_OR_GREATER");
  } else if (tf.identifier == ".NETCoreApp") {
    out.push_back("NETCOREAPP");
    out.push_back("NETCOREAPP" + Underscored(tf.version));
    for (auto& v : UpTo(KnownCoreApp(), tf.version))
      out.push_back("NETCOREAPP" + Underscored(v) + "_OR_GREATER");
  }
  if (!out.empty() && !tf.platform.empty()) {
    std::string os = Upper(tf.platform);
    out.push_back(os);
    if (!tf.platformVersion.empty()) {
      std::string versioned = os;
      for (int p : tf.platformVersion) versioned += (versioned.size() == os.size() ? "" : "_") + std::to_string(p);
      out.push_back(versioned);
      out.push_back(versioned + "_OR_GREATER");
    }
  }
  return out;
}

bool IsTargetFrameworkCompatible(std::string_view target, std::string_view candidate) {
  auto t = ParseTargetFramework(target), c = ParseTargetFramework(candidate);
  if (t.identifier.empty() || c.identifier.empty()) return false;
  if (!c.platform.empty() && c.platform != t.platform) return false;
  if (t.identifier == c.identifier) return CompareVersions(c.version, t.version) <= 0;
  if (c.identifier != ".NETStandard") return false;
  // The lowest version of each framework that implements a .NET Standard version.
  Version needed;
  if (t.identifier == ".NETCoreApp") {
    if (CompareVersions(c.version, {2, 1}) >= 0) needed = {3, 0};
    else if (CompareVersions(c.version, {2, 0}) >= 0) needed = {2, 0};
    else needed = {1, 0};
  } else if (t.identifier == ".NETFramework") {
    if (CompareVersions(c.version, {2, 1}) >= 0) return false;
    if (CompareVersions(c.version, {1, 4}) >= 0) needed = {4, 6, 1};
    else if (CompareVersions(c.version, {1, 3}) >= 0) needed = {4, 6};
    else if (CompareVersions(c.version, {1, 2}) >= 0) needed = {4, 5, 1};
    else needed = {4, 5};
  } else {
    return false;
  }
  return CompareVersions(t.version, needed) >= 0;
}

}  // namespace platform::automation
