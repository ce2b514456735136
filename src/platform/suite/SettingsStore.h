#pragma once
#include <optional>
#include <string>

#include "platform/core/Variant.h"

namespace platform::suite {

/// A settings store of the host suite: typed values under a section and a key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// The stored value, of the type it was stored with, or `def` when nothing is stored.
  virtual Variant Read(const std::string& section, const std::string& key,
                       const Variant& def) = 0;
  /// Stores `value` under section and key. Fails with platform::Error 75 when the store
  /// cannot be written.
  virtual void Write(const std::string& section, const std::string& key,
                     const Variant& value) = 0;
  /// The stored value, or none when nothing is stored under section and key (a stored
  /// Empty is a value). This default asks Read with two different defaults: a stored
  /// value answers both alike, an absent one gives each default back.
  virtual std::optional<Variant> Find(const std::string& section, const std::string& key) {
    Variant first = Read(section, key, Variant(0));
    if (first != Variant(0)) return first;
    Variant second = Read(section, key, Variant(1));
    if (second != Variant(1)) return second;
    return std::nullopt;
  }
};

}  // namespace platform::suite
