#pragma once
#include <memory>
#include <string>

#include "platform/core/Variant.h"

namespace platform::suite {

class SettingsStore;

/// The registry's top keys the system reads.
enum RegistryHive { HKEY_CURRENT_USER = 1, HKEY_LOCAL_MACHINE = 2 };

/// The registry as the suite reads it, kept in the settings stores: each key is a
/// section named "<hive>\<key path>" ("HKEY_CURRENT_USER\Software\Microsoft\..."),
/// each value a setting of that section. The editor's font and colours, for instance,
/// are values of a key below the environment's registry root.
class Registry {
 public:
  /// A registry over the per-user store (HKEY_CURRENT_USER) and the per-machine one
  /// (HKEY_LOCAL_MACHINE, none: nothing stored).
  explicit Registry(std::shared_ptr<SettingsStore> user, std::shared_ptr<SettingsStore> machine = nullptr);
  /// The value `name` of the key `keyPath` ("\"-separated) below `hive`, or `def` when
  /// it is not stored. Fails with 5 for another hive.
  Variant QueryValue(int hive, const std::string& keyPath, const std::string& name, const Variant& def) const;
  /// Stores a value (as the environment does when the user picks a font); fails with 5
  /// for another hive and with the store's error when it cannot be written.
  void SetValue(int hive, const std::string& keyPath, const std::string& name, const Variant& value);
  /// The section of the settings store that holds a key.
  static std::string SectionOf(int hive, const std::string& keyPath);

 private:
  SettingsStore* StoreOf(int hive) const;
  std::shared_ptr<SettingsStore> m_user;
  std::shared_ptr<SettingsStore> m_machine;
};

}  // namespace platform::suite
