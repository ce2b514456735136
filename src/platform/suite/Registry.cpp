#include "platform/suite/Registry.h"

#include "platform/core/Error.h"
#include "platform/suite/SettingsStore.h"

namespace platform::suite {

Registry::Registry(std::shared_ptr<SettingsStore> user, std::shared_ptr<SettingsStore> machine)
    : m_user(std::move(user)), m_machine(std::move(machine)) {}

std::string Registry::SectionOf(int hive, const std::string& keyPath) {
  if (hive == HKEY_CURRENT_USER) return "HKEY_CURRENT_USER\\" + keyPath;
  if (hive == HKEY_LOCAL_MACHINE) return "HKEY_LOCAL_MACHINE\\" + keyPath;
  throw Error(err::kInvalidCall, "Unknown registry hive " + std::to_string(hive));
}

SettingsStore* Registry::StoreOf(int hive) const {
  SectionOf(hive, "");  // refuses other hives
  return hive == HKEY_CURRENT_USER ? m_user.get() : m_machine.get();
}

Variant Registry::QueryValue(int hive, const std::string& keyPath, const std::string& name,
                             const Variant& def) const {
  SettingsStore* store = StoreOf(hive);
  if (!store) return def;
  return store->Read(SectionOf(hive, keyPath), name, def);
}

void Registry::SetValue(int hive, const std::string& keyPath, const std::string& name, const Variant& value) {
  SettingsStore* store = StoreOf(hive);
  if (!store) throw Error(err::kPathFileAccess, "The registry hive cannot be written");
  store->Write(SectionOf(hive, keyPath), name, value);
}

}  // namespace platform::suite
