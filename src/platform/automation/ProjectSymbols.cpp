#include "platform/automation/ProjectSymbols.h"

#include <algorithm>

#include "platform/automation/FileGlob.h"
#include "platform/core/AsciiText.h"

namespace platform::automation {
namespace {

using platform::Trim;

// `text` in double quotes: a VB string constant.
std::string Quote(std::string_view text) {
  std::string out(1, '"');
  out += text;
  out += '"';
  return out;
}

}  // namespace

codemodel::PreprocessorSymbols CSharpSymbols(std::string_view defineConstants,
                                             const std::vector<std::string>& frameworkSymbols) {
  codemodel::PreprocessorSymbols out;
  auto add = [&](const std::string& name) {
    if (name.empty()) return;
    for (auto& [n, v] : out.symbols)
      if (n == name) return;
    out.symbols.emplace_back(name, "");
  };
  add("DEBUG");
  add("TRACE");
  std::string current;
  for (char c : defineConstants) {
    if (c == ';' || c == ',' || c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      add(current);
      current.clear();
    } else {
      current += c;
    }
  }
  add(current);
  for (auto& s : frameworkSymbols) add(s);
  return out;
}

codemodel::PreprocessorSymbols VbSymbols(std::string_view defineConstants, std::string_view configuration,
                                         std::string_view platform, std::string_view myType,
                                         const std::vector<std::string>& frameworkSymbols) {
  codemodel::PreprocessorSymbols out;
  auto set = [&](const std::string& name, const std::string& value) {
    if (name.empty()) return;
    for (auto& [n, v] : out.symbols)
      if (LowerAscii(n) == LowerAscii(name)) {
        v = value;
        return;
      }
    out.symbols.emplace_back(name, value);
  };
  set("DEBUG", "-1");
  set("TRACE", "-1");
  set("CONFIG", Quote(configuration));
  set("PLATFORM", Quote(platform));
  if (!Trim(myType).empty()) set("_MyType", Quote(Trim(myType)));
  for (auto& s : frameworkSymbols) set(s, "-1");
  // Pairs are split at separators outside double quotes: Text="a,b" stays whole.
  std::vector<std::string> pairs(1);
  bool quoted = false;
  for (char c : defineConstants) {
    if (c == '"') quoted = !quoted;
    if (!quoted && (c == ',' || c == ';')) pairs.emplace_back();
    else pairs.back() += c;
  }
  for (auto& pair : pairs) {
    auto eq = pair.find('=');
    if (eq == std::string::npos) set(Trim(pair), "True");
    else set(Trim(pair.substr(0, eq)), Trim(pair.substr(eq + 1)));
  }
  return out;
}

}  // namespace platform::automation
