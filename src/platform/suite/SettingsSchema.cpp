#include "platform/suite/SettingsSchema.h"

#include "platform/core/AsciiText.h"

namespace platform::suite {

const SettingSpec* SettingsSchema::Find(const std::string& section, const std::string& key) const {
  const std::string s = AsciiLower(section), k = AsciiLower(key);
  for (const SettingSpec& spec : keys)
    if (AsciiLower(spec.section) == s && AsciiLower(spec.key) == k) return &spec;
  return nullptr;
}

bool SettingsSchema::HasSection(const std::string& section) const {
  const std::string s = AsciiLower(section);
  for (const SettingSpec& spec : keys)
    if (AsciiLower(spec.section) == s) return true;
  return false;
}

std::string SettingsSchema::KeysOf(const std::string& section) const {
  const std::string s = AsciiLower(section);
  std::string out;
  for (const SettingSpec& spec : keys) {
    if (AsciiLower(spec.section) != s) continue;
    if (!out.empty()) out += ", ";
    out.append(spec.key);
  }
  return out;
}

std::string SettingsSchema::Sections() const {
  std::vector<std::string> seen;
  std::string out;
  for (const SettingSpec& spec : keys) {
    std::string lower = AsciiLower(spec.section);
    bool known = false;
    for (const auto& s : seen) known = known || s == lower;
    if (known) continue;
    seen.push_back(lower);
    out.append(out.empty() ? "[" : ", [").append(spec.section).append("]");
  }
  return out;
}

}  // namespace platform::suite
