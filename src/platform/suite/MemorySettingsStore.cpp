#include "platform/suite/MemorySettingsStore.h"

#include <algorithm>

#include "platform/core/Error.h"

namespace platform::suite {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

bool MemorySettingsStore::LessNoCase::operator()(const std::string& a, const std::string& b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return Lower(x) < Lower(y);
  });
}

std::optional<Variant> MemorySettingsStore::Find(const std::string& section, const std::string& key) {
  auto s = m_values.find(section);
  if (s == m_values.end()) return std::nullopt;
  auto k = s->second.find(key);
  if (k == s->second.end()) return std::nullopt;
  return k->second;
}

Variant MemorySettingsStore::Read(const std::string& section, const std::string& key, const Variant& def) {
  auto found = Find(section, key);
  return found ? *found : def;
}

void MemorySettingsStore::Write(const std::string& section, const std::string& key, const Variant& value) {
  if (m_readOnly) throw Error(err::kPathFileAccess, "The settings store is read-only");
  Put(section, key, value);
}

void MemorySettingsStore::Put(const std::string& section, const std::string& key, const Variant& value) {
  m_values[section][key] = value;
}

}  // namespace platform::suite
