#include "platform/automation/MSBuildExpander.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <system_error>

#include "platform/automation/FileGlob.h"
#include "platform/automation/FrameworkSymbols.h"
#include "platform/core/AsciiText.h"

namespace platform::automation {
namespace {

using platform::Trim;

constexpr size_t kMaxExpansion = 1 << 20;
constexpr int kMaxDepth = 32;

std::string Expand(std::string_view text, const MSBuildScope& scope, int depth);

bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '-';
}

bool EqualsNoCase(std::string_view a, std::string_view b) { return LowerAscii(a) == LowerAscii(b); }

std::string Bool(bool b) { return b ? "True" : "False"; }

std::optional<double> Number(const std::string& s) {
  std::string t = Trim(s);
  if (t.empty()) return std::nullopt;
  char* end = nullptr;
  double d = std::strtod(t.c_str(), &end);
  if (end != t.c_str() + t.size() || !std::isfinite(d)) return std::nullopt;
  return d;
}

std::string NumberText(double d) {
  if (std::fabs(d) < 9e15 && d == std::floor(d)) return std::to_string(static_cast<long long>(d));
  std::string s = std::to_string(d);
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
  return s;
}

// A path as the build system writes it, with '/' for either separator.
std::string Slashes(std::string s) {
  std::replace(s.begin(), s.end(), '\\', '/');
  return s;
}

std::filesystem::path FullPath(const std::string& p, const MSBuildScope& scope) {
  std::filesystem::path path(Slashes(p));
  if (path.is_relative()) path = scope.directory / path;
  return NormalizedAbsolute(path);
}

std::string Combine(const std::vector<std::string>& parts) {
  std::string out;
  for (auto& raw : parts) {
    std::string p = Slashes(raw);
    if (p.empty()) continue;
    if (p[0] == '/' || out.empty()) out = p;
    else out += (out.back() == '/' ? "" : "/") + p;
  }
  return out;
}

std::string WithTrailingSlash(std::string s) {
  if (!s.empty() && s.back() != '/' && s.back() != '\\') s += '/';
  return s;
}

std::string FileNameOf(const std::string& p) {
  std::string s = Slashes(p);
  auto slash = s.rfind('/');
  return slash == std::string::npos ? s : s.substr(slash + 1);
}

std::string ExtensionOf(const std::string& p) {
  std::string name = FileNameOf(p);
  auto dot = name.rfind('.');
  return dot == std::string::npos ? "" : name.substr(dot);
}

// A static function of one of the types projects call: "[MSBuild]::Name(args)".
std::optional<std::string> CallStatic(const std::string& type, const std::string& name,
                                      const std::vector<std::string>& a, const MSBuildScope& scope) {
  const std::string t = LowerAscii(type), n = LowerAscii(name);
  auto arg = [&](size_t i) -> std::string { return i < a.size() ? a[i] : std::string(); };
  if (t == "msbuild") {
    if (n == "getdirectorynameoffileabove" || n == "getpathoffileabove") {
      bool wantPath = n == "getpathoffileabove";
      std::string file = wantPath ? arg(0) : arg(1);
      std::string start = wantPath ? (a.size() > 1 ? arg(1) : scope.directory.string()) : arg(0);
      if (file.empty()) return std::string();
      for (auto dir = FullPath(start.empty() ? "." : start, scope);; dir = dir.parent_path()) {
        if (KindOfPath(scope.probe, dir / Slashes(file)) != PathProbe::Kind::Missing)
          return wantPath ? (dir / Slashes(file)).string() : dir.string();
        if (dir == dir.parent_path()) break;
      }
      return std::string();
    }
    if (n == "ensuretrailingslash") return WithTrailingSlash(arg(0));
    if (n == "normalizedirectory") return WithTrailingSlash(FullPath(Combine(a), scope).string());
    if (n == "normalizepath") return FullPath(Combine(a), scope).string();
    if (n == "makerelative") {
      auto rel = FullPath(arg(1), scope).lexically_relative(FullPath(arg(0), scope)).generic_string();
      return rel == "." ? std::string() : rel;
    }
    if (n == "valueordefault") return arg(0).empty() ? arg(1) : arg(0);
    if (n == "add" || n == "subtract" || n == "multiply" || n == "divide" || n == "modulo") {
      auto x = Number(arg(0)), y = Number(arg(1));
      if (!x || !y) return std::nullopt;
      if (n == "add") return NumberText(*x + *y);
      if (n == "subtract") return NumberText(*x - *y);
      if (n == "multiply") return NumberText(*x * *y);
      if (*y == 0) return std::nullopt;
      if (n == "divide") return NumberText(*x / *y);
      return NumberText(std::fmod(*x, *y));
    }
    if (n.rfind("version", 0) == 0) {
      auto x = ParseVersion(Trim(arg(0))), y = ParseVersion(Trim(arg(1)));
      if (x.empty() || y.empty()) return std::nullopt;
      int c = CompareVersions(x, y);
      if (n == "versionequals") return Bool(c == 0);
      if (n == "versionnotequals") return Bool(c != 0);
      if (n == "versiongreaterthan") return Bool(c > 0);
      if (n == "versiongreaterthanorequals") return Bool(c >= 0);
      if (n == "versionlessthan") return Bool(c < 0);
      if (n == "versionlessthanorequals") return Bool(c <= 0);
      return std::nullopt;
    }
    if (n == "gettargetframeworkidentifier") return ParseTargetFramework(arg(0)).identifier;
    if (n == "gettargetframeworkversion") {
      auto tf = ParseTargetFramework(arg(0));
      int parts = a.size() > 1 ? static_cast<int>(Number(arg(1)).value_or(2)) : 2;
      return tf.version.empty() ? std::string() : VersionText(tf.version, std::clamp(parts, 1, 4));
    }
    if (n == "gettargetplatformidentifier") return ParseTargetFramework(arg(0)).platform;
    if (n == "gettargetplatformversion") {
      auto tf = ParseTargetFramework(arg(0));
      int parts = a.size() > 1 ? static_cast<int>(Number(arg(1)).value_or(2)) : 2;
      return tf.platformVersion.empty() ? std::string()
                                        : VersionText(tf.platformVersion, std::clamp(parts, 1, 4));
    }
    if (n == "istargetframeworkcompatible") return Bool(IsTargetFrameworkCompatible(arg(0), arg(1)));
    // The projects were written for the environment on Windows; evaluate them as there.
    if (n == "isosplatform") return Bool(EqualsNoCase(Trim(arg(0)), "windows"));
    if (n == "isosunixlike") return Bool(false);
    if (n == "escape") {
      std::string out;
      for (char c : arg(0)) {
        if (std::string_view("%*?@$();'").find(c) != std::string_view::npos) {
          static const char* hex = "0123456789abcdef";
          out += '%';
          out += hex[(static_cast<unsigned char>(c) >> 4) & 15];
          out += hex[static_cast<unsigned char>(c) & 15];
        } else {
          out += c;
        }
      }
      return out;
    }
    if (n == "unescape") return MSBuildUnescape(arg(0));
    return std::nullopt;
  }
  if (t == "system.string" || t == "string") {
    if (n == "isnullorempty") return Bool(arg(0).empty());
    if (n == "isnullorwhitespace") return Bool(Trim(arg(0)).empty());
    if (n == "copy") return arg(0);
    if (n == "concat") {
      std::string out;
      for (auto& s : a) out += s;
      return out;
    }
    if (n == "join" && !a.empty()) {
      std::string out;
      for (size_t i = 1; i < a.size(); ++i) out += (i > 1 ? a[0] : "") + a[i];
      return out;
    }
    return std::nullopt;
  }
  if (t == "system.io.path") {
    if (n == "combine") return Combine(a);
    if (n == "getfilename") return FileNameOf(arg(0));
    if (n == "getfilenamewithoutextension") {
      std::string name = FileNameOf(arg(0));
      auto dot = name.rfind('.');
      return dot == std::string::npos ? name : name.substr(0, dot);
    }
    if (n == "getextension") return ExtensionOf(arg(0));
    if (n == "hasextension") return Bool(!ExtensionOf(arg(0)).empty());
    if (n == "getdirectoryname") {
      std::string s = Slashes(arg(0));
      auto slash = s.rfind('/');
      return slash == std::string::npos ? std::string() : s.substr(0, slash == 0 ? 1 : slash);
    }
    if (n == "getfullpath") return FullPath(arg(0), scope).string();
    if (n == "ispathrooted") return Bool(!arg(0).empty() && (arg(0)[0] == '/' || arg(0)[0] == '\\'));
    if (n == "changeextension") {
      std::string s = arg(0), ext = arg(1);
      std::string oldExt = ExtensionOf(s);
      s.resize(s.size() - oldExt.size());
      if (!ext.empty() && ext[0] != '.') ext = "." + ext;
      return s + ext;
    }
    if (n == "directoryseparatorchar") return std::string("/");
    return std::nullopt;
  }
  if (t == "system.io.file" && n == "exists") {
    return Bool(!arg(0).empty() && KindOfPath(scope.probe, FullPath(arg(0), scope)) == PathProbe::Kind::File);
  }
  if (t == "system.io.directory" && n == "exists") {
    return Bool(!arg(0).empty() && KindOfPath(scope.probe, FullPath(arg(0), scope)) == PathProbe::Kind::Folder);
  }
  // Evaluation does not depend on the caller's environment: variables read as unset.
  if (t == "system.environment" && n == "getenvironmentvariable") return std::string();
  return std::nullopt;
}

// A string method applied to `s`: "$(Name.Replace('a', 'b'))".
std::optional<std::string> CallMember(const std::string& s, const std::string& name,
                                      const std::vector<std::string>& a, bool called) {
  const std::string n = LowerAscii(name);
  auto arg = [&](size_t i) -> std::string { return i < a.size() ? a[i] : std::string(); };
  auto index = [&](size_t i) -> std::optional<size_t> {
    auto v = Number(arg(i));
    if (!v || *v < 0 || *v != std::floor(*v) || *v > 1e9) return std::nullopt;
    return static_cast<size_t>(*v);
  };
  if (n == "length" && !called) return std::to_string(s.size());
  if (!called) return std::nullopt;
  if (n == "replace") {
    std::string from = arg(0), to = arg(1), out;
    if (from.empty()) return s;
    size_t i = 0;
    while (i < s.size() && out.size() <= kMaxExpansion) {
      size_t j = s.find(from, i);
      if (j == std::string::npos) {
        out.append(s, i, std::string::npos);
        break;
      }
      out.append(s, i, j - i);
      out += to;
      i = j + from.size();
    }
    return out;
  }
  if (n == "toupper" || n == "toupperinvariant") {
    std::string out = s;
    for (char& c : out)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return out;
  }
  if (n == "tolower" || n == "tolowerinvariant") return LowerAscii(s);
  if (n == "trim" || n == "trimstart" || n == "trimend") {
    std::string set;
    for (auto& x : a) set += x;
    if (set.empty()) set = " \t\r\n";
    size_t b = n == "trimend" ? 0 : s.find_first_not_of(set);
    if (b == std::string::npos) return std::string();
    size_t e = n == "trimstart" ? s.size() : s.find_last_not_of(set) + 1;
    return s.substr(b, e > b ? e - b : 0);
  }
  if (n == "contains") return Bool(s.find(arg(0)) != std::string::npos);
  if (n == "startswith") return Bool(s.compare(0, arg(0).size(), arg(0)) == 0);
  if (n == "endswith")
    return Bool(s.size() >= arg(0).size() && s.compare(s.size() - arg(0).size(), std::string::npos, arg(0)) == 0);
  if (n == "equals") return Bool(s == arg(0));
  if (n == "indexof") {
    auto i = s.find(arg(0));
    return i == std::string::npos ? std::string("-1") : std::to_string(i);
  }
  if (n == "lastindexof") {
    auto i = s.rfind(arg(0));
    return i == std::string::npos ? std::string("-1") : std::to_string(i);
  }
  if (n == "substring" || n == "remove") {
    auto start = index(0);
    if (!start || *start > s.size()) return std::nullopt;
    size_t len = s.size() - *start;
    if (a.size() > 1) {
      auto l = index(1);
      if (!l || *l > len) return std::nullopt;
      len = *l;
    }
    return n == "substring" ? s.substr(*start, len) : s.substr(0, *start) + s.substr(*start + len);
  }
  if (n == "padleft" || n == "padright") {
    auto width = index(0);
    if (!width) return std::nullopt;
    char fill = arg(1).empty() ? ' ' : arg(1)[0];
    size_t w = std::min(*width, kMaxExpansion);
    if (s.size() >= w) return s;
    return n == "padleft" ? std::string(w - s.size(), fill) + s : s + std::string(w - s.size(), fill);
  }
  if (n == "split") {
    std::string sep = arg(0).empty() ? std::string(";") : arg(0);
    std::string out = s;
    for (char& c : out)
      if (sep.find(c) != std::string::npos) c = ';';
    return out;
  }
  if (n == "tostring") return s;
  return std::nullopt;
}

std::vector<std::string> ExpandArguments(std::string_view args, const MSBuildScope& scope, int depth) {
  std::vector<std::string> out;
  for (auto& raw : SplitArguments(args)) {
    std::string_view v = raw;
    if (v.size() >= 2 && (v[0] == '\'' || v[0] == '"' || v[0] == '`') && v.back() == v[0])
      v = v.substr(1, v.size() - 2);
    out.push_back(Expand(v, scope, depth + 1));
  }
  return out;
}

// The value of the inside of "$(...)": a property, a static function, and a chain of
// members applied to either.
std::string EvaluateProperty(std::string_view body, const MSBuildScope& scope, int depth) {
  std::string text = Trim(body);
  std::string_view b = text;
  std::string value;
  size_t i = 0;
  if (!b.empty() && b[0] == '[') {
    size_t close = b.find(']');
    if (close == std::string_view::npos || b.substr(close + 1, 2) != "::") return "";
    std::string type = Trim(b.substr(1, close - 1));
    i = close + 3;
    size_t nameStart = i;
    while (i < b.size() && IsNameChar(b[i])) ++i;
    std::string name(b.substr(nameStart, i - nameStart));
    std::vector<std::string> args;
    while (i < b.size() && b[i] == ' ') ++i;
    if (i < b.size() && b[i] == '(') {
      size_t end = FindClosingParen(b, i);
      if (end == std::string_view::npos) return "";
      args = ExpandArguments(b.substr(i + 1, end - i - 1), scope, depth);
      i = end + 1;
    }
    auto r = CallStatic(type, name, args, scope);
    if (!r) return "";
    value = std::move(*r);
  } else {
    while (i < b.size() && IsNameChar(b[i])) ++i;
    if (i == 0) return "";
    value = scope.properties ? scope.properties->Get(b.substr(0, i)) : std::string();
  }
  while (i < b.size()) {
    while (i < b.size() && b[i] == ' ') ++i;
    if (i >= b.size()) break;
    if (b[i] != '.') return "";
    size_t nameStart = ++i;
    while (i < b.size() && IsNameChar(b[i])) ++i;
    std::string name(b.substr(nameStart, i - nameStart));
    std::vector<std::string> args;
    bool called = false;
    if (i < b.size() && b[i] == '(') {
      size_t end = FindClosingParen(b, i);
      if (end == std::string_view::npos) return "";
      args = ExpandArguments(b.substr(i + 1, end - i - 1), scope, depth);
      called = true;
      i = end + 1;
    }
    auto r = CallMember(value, name, args, called);
    if (!r) return "";
    value = std::move(*r);
  }
  return value;
}

std::string Expand(std::string_view text, const MSBuildScope& scope, int depth) {
  if (depth > kMaxDepth) return "";
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    char c = text[i];
    bool opens = i + 1 < text.size() && text[i + 1] == '(';
    if (opens && (c == '$' || c == '@' || (c == '%' && scope.metadata))) {
      size_t end = FindClosingParen(text, i + 1);
      if (end == std::string_view::npos) {
        out.append(text.substr(i));
        break;
      }
      std::string_view body = text.substr(i + 2, end - i - 2);
      if (c == '$') {
        out += EvaluateProperty(body, scope, depth + 1);
      } else if (c == '@') {
        // Transforms ("@(X->'%(Filename)')") and separators are not evaluated.
        std::string type = Trim(body);
        if (scope.items && std::all_of(type.begin(), type.end(), IsNameChar)) out += scope.items(type);
      } else {
        std::string name = Trim(body);
        if (auto dot = name.find('.'); dot != std::string::npos) name = name.substr(dot + 1);
        out += scope.metadata(name);
      }
      i = end + 1;
    } else {
      out += c;
      ++i;
    }
    if (out.size() > kMaxExpansion) {
      out.resize(kMaxExpansion);
      break;
    }
  }
  return out;
}

}  // namespace

size_t FindClosingParen(std::string_view text, size_t open) {
  int depth = 0;
  char quote = 0;
  for (size_t j = open; j < text.size(); ++j) {
    char ch = text[j];
    if (quote) {
      if (ch == quote) quote = 0;
      continue;
    }
    if ((ch == '\'' || ch == '"' || ch == '`') && depth > 0) {
      quote = ch;
    } else if (ch == '(') {
      ++depth;
    } else if (ch == ')') {
      if (--depth == 0) return j;
    }
  }
  return std::string_view::npos;
}

std::vector<std::string> SplitArguments(std::string_view args) {
  std::vector<std::string> out;
  if (Trim(args).empty()) return out;
  int depth = 0;
  char quote = 0;
  size_t start = 0;
  for (size_t j = 0; j <= args.size(); ++j) {
    char ch = j < args.size() ? args[j] : ',';
    if (quote) {
      if (ch == quote) quote = 0;
      if (j < args.size()) continue;
    }
    if (ch == '\'' || ch == '"' || ch == '`') quote = ch;
    else if (ch == '(') ++depth;
    else if (ch == ')') --depth;
    else if (ch == ',' && depth <= 0) {
      out.push_back(Trim(args.substr(start, j - start)));
      start = j + 1;
    }
  }
  return out;
}

std::string ExpandMSBuild(std::string_view text, const MSBuildScope& scope) {
  return Expand(text, scope, 0);
}

}  // namespace platform::automation
