#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/suite/SettingsStore.h"

namespace platform::suite {

/// Settings stores stacked on one another: a read answers from the first layer, top
/// down, that holds the key, else with the caller's default; every write goes to the top
/// layer, so the layers below are only ever read. The command line's store for one run:
/// what the command line sets, over what the repository keeps, over the defaults.
class LayeredSettingsStore : public SettingsStore {
 public:
  /// `layers` top first; null layers are passed over. The top layer takes the writes.
  explicit LayeredSettingsStore(std::vector<std::shared_ptr<SettingsStore>> layers);

  Variant Read(const std::string& section, const std::string& key, const Variant& def) override;
  /// Writes to the top layer; error 75 when there is none or it refuses.
  void Write(const std::string& section, const std::string& key, const Variant& value) override;
  std::optional<Variant> Find(const std::string& section, const std::string& key) override;

 private:
  std::vector<std::shared_ptr<SettingsStore>> m_layers;
};

}  // namespace platform::suite
