#include "platform/suite/IniSettingsStore.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "platform/core/Error.h"
#include "platform/suite/ErrorReport.h"

namespace platform::suite {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string Escape(const std::string& s) {
  std::string out;
  for (char c : s) {
    if (c == '\\') out += "\\\\";
    else if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else out += c;
  }
  return out;
}

bool Unescape(const std::string& s, std::string& out) {
  out.clear();
  for (size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '\\') {
      out += s[i];
      continue;
    }
    if (++i == s.size()) return false;
    if (s[i] == '\\') out += '\\';
    else if (s[i] == 'n') out += '\n';
    else if (s[i] == 'r') out += '\r';
    else return false;
  }
  return true;
}

std::string Encode(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return "empty:";
    case Variant::Type::Boolean: return v.AsBool() ? "bool:true" : "bool:false";
    case Variant::Type::Long: return "long:" + std::to_string(v.AsLong());
    case Variant::Type::Double: return "double:" + ToString(v);
    case Variant::Type::String: return "string:" + Escape(v.AsString());
  }
  return "empty:";
}

bool Decode(const std::string& text, Variant& out) {
  auto colon = text.find(':');
  if (colon == std::string::npos) return false;
  std::string type = text.substr(0, colon), rest = text.substr(colon + 1);
  try {
    if (type == "empty") out = Variant();
    else if (type == "bool") {
      if (rest != "true" && rest != "false") return false;
      out = Variant(rest == "true");
    } else if (type == "long") out = Variant(ToInt32(Variant(rest)));
    else if (type == "double") out = Variant(ToDouble(Variant(rest)));
    else if (type == "string") {
      std::string s;
      if (!Unescape(rest, s)) return false;
      out = Variant(std::move(s));
    } else return false;
  } catch (const Error&) {
    return false;
  }
  return true;
}

}  // namespace

bool IniSettingsStore::LessNoCase::operator()(const std::string& a, const std::string& b) const {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    char x = Lower(a[i]), y = Lower(b[i]);
    if (x != y) return x < y;
  }
  return a.size() < b.size();
}

IniSettingsStore::IniSettingsStore(std::filesystem::path path, bool readOnly)
    : m_path(std::move(path)), m_readOnly(readOnly) {}

void IniSettingsStore::Load() {
  if (m_loaded) return;
  m_loaded = true;
  std::error_code ec;
  if (!std::filesystem::exists(m_path, ec)) return;
  std::ifstream in(m_path, std::ios::binary);
  std::string line, section;
  int number = 0;
  bool bad = !in;
  while (!bad && std::getline(in, line)) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == ';' || line[0] == '#') continue;
    if (line[0] == '[') {
      if (line.back() != ']') { bad = true; break; }
      section = line.substr(1, line.size() - 2);
      continue;
    }
    auto eq = line.find('=');
    Variant v;
    if (eq == std::string::npos || eq == 0 || !Decode(line.substr(eq + 1), v)) { bad = true; break; }
    m_values[section][line.substr(0, eq)] = v;
  }
  if (bad) {
    m_values.clear();
    ErrorReport::Current().Report(
        "The settings file <" + m_path.string() + "> cannot be read (line " +
            std::to_string(number) + "); it is used as an empty store.",
        "", 0, false);
  }
}

std::optional<Variant> IniSettingsStore::Find(const std::string& section, const std::string& key) {
  Load();
  auto s = m_values.find(section);
  if (s == m_values.end()) return std::nullopt;
  auto k = s->second.find(key);
  if (k == s->second.end()) return std::nullopt;
  return k->second;
}

Variant IniSettingsStore::Read(const std::string& section, const std::string& key,
                               const Variant& def) {
  auto value = Find(section, key);
  return value ? *value : def;
}

void IniSettingsStore::Write(const std::string& section, const std::string& key,
                             const Variant& value) {
  if (m_readOnly) throw Error(err::kPathFileAccess, "The settings store <" + m_path.string() + "> is read-only");
  Load();
  auto previous = m_values;
  m_values[section][key] = value;
  try {
    Save();
  } catch (...) {
    m_values = std::move(previous);
    throw;
  }
}

void IniSettingsStore::Save() const {
  std::ostringstream out;
  for (auto& [section, keys] : m_values) {
    out << '[' << section << "]\n";
    for (auto& [key, value] : keys) out << key << '=' << Encode(value) << '\n';
    out << '\n';
  }
  std::error_code ec;
  if (m_path.has_parent_path()) std::filesystem::create_directories(m_path.parent_path(), ec);
  auto temp = m_path;
  temp += ".tmp" + std::to_string(getpid());
  {
    std::ofstream file(temp, std::ios::binary | std::ios::trunc);
    std::string text = out.str();
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.flush();
    if (!file) {
      std::filesystem::remove(temp, ec);
      throw Error(err::kPathFileAccess, "Cannot write the settings file <" + m_path.string() + ">");
    }
  }
  std::filesystem::rename(temp, m_path, ec);
  if (ec) {
    std::filesystem::remove(temp, ec);
    throw Error(err::kPathFileAccess, "Cannot write the settings file <" + m_path.string() + ">");
  }
}

}  // namespace platform::suite
