#include "platform/suite/PlainSettingsFile.h"

#include <cerrno>
#include <charconv>
#include <fstream>
#include <map>

#include "platform/core/AsciiText.h"
#include "platform/core/Error.h"
#include "platform/core/Variant.h"

namespace platform::suite {
namespace {

namespace fs = std::filesystem;

// What is wrong on one line of the file.
[[noreturn]] void Fail(const fs::path& file, int line, const std::string& what) {
  throw Error(err::kInvalidCall, file.string() + ":" + std::to_string(line) + ": " + what);
}

// The integer `text` spells (an optional sign and decimal digits); false when it spells
// none or one outside 32 bits.
bool ParseInteger(const std::string& text, int64_t& value) {
  if (text.empty()) return false;
  const char* first = text.data();
  const char* last = first + text.size();
  if (*first == '+') ++first;
  auto [end, error] = std::from_chars(first, last, value);
  return error == std::errc() && end == last && value >= INT32_MIN && value <= INT32_MAX;
}

std::string Quoted(const std::string& s) { return "\"" + s + "\""; }

Variant ValueOf(const SettingSpec& spec, const std::string& text, const fs::path& file, int line) {
  const std::string what = spec.key + " = " + text;
  switch (spec.type) {
    case SettingSpec::Type::Boolean: {
      std::string lower = AsciiLower(text);
      if (lower == "1" || lower == "true") return Variant(1);
      if (lower == "0" || lower == "false") return Variant(0);
      Fail(file, line, what + ": " + spec.key + " takes 0, 1, true or false");
    }
    case SettingSpec::Type::Integer: {
      if (!spec.names.empty()) {
        std::string accepted;
        int64_t number = 0;
        bool isNumber = ParseInteger(text, number);
        for (const auto& [name, value] : spec.names) {
          if (AsciiLower(name) == AsciiLower(text) || (isNumber && number == value)) return Variant(value);
          if (!accepted.empty()) accepted += ", ";
          accepted.append(name).append(" (").append(std::to_string(value)).append(")");
        }
        Fail(file, line, what + ": " + spec.key + " takes one of " + accepted);
      }
      int64_t number = 0;
      if (!ParseInteger(text, number) || number < spec.min || number > spec.max) {
        std::string range = spec.min == INT32_MIN && spec.max == INT32_MAX
                                ? "a whole number"
                                : "a whole number from " + std::to_string(spec.min) + " to " + std::to_string(spec.max);
        Fail(file, line, what + ": " + spec.key + " takes " + range);
      }
      return Variant(static_cast<int32_t>(number));
    }
    case SettingSpec::Type::Text:
      return Variant(text);
    case SettingSpec::Type::Path: {
      if (text.empty()) Fail(file, line, spec.key + " names no file");
      fs::path path(text);
      if (path.is_relative()) path = file.parent_path() / path;
      return Variant(path.lexically_normal().string());
    }
  }
  return Variant(text);
}

}  // namespace

std::shared_ptr<MemorySettingsStore> ReadPlainSettingsFile(const fs::path& file, const SettingsSchema& schema) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw Error(err::kPathFileAccess, file.string() + ": cannot be read");
  auto store = std::make_shared<MemorySettingsStore>(true);
  std::map<std::string, int> firstLine;  // "section\nkey" in lower case -> its line
  std::string text, section;
  int line = 0;
  while (std::getline(in, text)) {
    ++line;
    if (line == 1 && text.rfind("\xEF\xBB\xBF", 0) == 0) text.erase(0, 3);
    text = Trim(text, " \t\r");
    if (text.empty() || text[0] == ';' || text[0] == '#') continue;
    if (text[0] == '[') {
      if (text.back() != ']') Fail(file, line, Quoted(text) + " is no [Section] line");
      section = Trim(text.substr(1, text.size() - 2), " \t");
      if (!schema.HasSection(section))
        Fail(file, line, "unknown section [" + section + "]; the sections are " + schema.Sections());
      continue;
    }
    const size_t eq = text.find('=');
    if (eq == std::string::npos) Fail(file, line, Quoted(text) + " is no Key = value line");
    const std::string key = Trim(text.substr(0, eq), " \t");
    std::string value = Trim(text.substr(eq + 1), " \t");
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    if (key.empty()) Fail(file, line, Quoted(text) + " names no key");
    if (section.empty()) Fail(file, line, key + " stands before any [Section]");
    const SettingSpec* spec = schema.Find(section, key);
    if (!spec)
      Fail(file, line, "unknown key " + key + " in [" + section + "]; its keys are " + schema.KeysOf(section));
    const std::string id = AsciiLower(spec->section) + "\n" + AsciiLower(spec->key);
    if (auto seen = firstLine.find(id); seen != firstLine.end())
      Fail(file, line, key + " is set a second time (first on line " + std::to_string(seen->second) + ")");
    firstLine.emplace(id, line);
    store->Put(spec->section, spec->key, ValueOf(*spec, value, file, line));
  }
  if (in.bad()) throw Error(err::kPathFileAccess, file.string() + ": cannot be read");
  return store;
}

fs::path FindFileUpwards(const fs::path& start, const std::string& name) {
  std::error_code ec;
  fs::path folder = fs::absolute(start, ec).lexically_normal();
  if (ec) return {};
  if (!fs::is_directory(folder, ec)) folder = folder.parent_path();
  for (;;) {
    fs::path candidate = folder / name;
    if (fs::is_regular_file(candidate, ec)) return candidate;
    if (!folder.has_relative_path()) return {};
    fs::path parent = folder.parent_path();
    if (parent == folder) return {};
    folder = parent;
  }
}

}  // namespace platform::suite
