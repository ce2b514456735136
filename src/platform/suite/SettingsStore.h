#pragma once
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
};

}  // namespace platform::suite
