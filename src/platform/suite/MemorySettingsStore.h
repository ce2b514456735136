#pragma once
#include <map>
#include <optional>
#include <string>

#include "platform/suite/SettingsStore.h"

namespace platform::suite {

/// A settings store held in memory for the life of the object: nothing is read from or
/// written to disk. Sections and keys compare without regard to ASCII letter case, as
/// the other stores' do. A read-only store refuses writes with error 75, so what fills
/// it (Put) is all it ever holds.
class MemorySettingsStore : public SettingsStore {
 public:
  explicit MemorySettingsStore(bool readOnly = false) : m_readOnly(readOnly) {}

  Variant Read(const std::string& section, const std::string& key, const Variant& def) override;
  void Write(const std::string& section, const std::string& key, const Variant& value) override;
  std::optional<Variant> Find(const std::string& section, const std::string& key) override;

  /// Stores `value` whether the store is read-only or not: how its owner fills it.
  void Put(const std::string& section, const std::string& key, const Variant& value);
  /// Whether nothing is stored.
  bool Empty() const { return m_values.empty(); }

 private:
  struct LessNoCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  bool m_readOnly;
  std::map<std::string, std::map<std::string, Variant, LessNoCase>, LessNoCase> m_values;
};

}  // namespace platform::suite
