#include "platform/suite/LayeredSettingsStore.h"

#include "platform/core/Error.h"

namespace platform::suite {

LayeredSettingsStore::LayeredSettingsStore(std::vector<std::shared_ptr<SettingsStore>> layers)
    : m_layers(std::move(layers)) {}

std::optional<Variant> LayeredSettingsStore::Find(const std::string& section, const std::string& key) {
  for (const auto& layer : m_layers) {
    if (!layer) continue;
    if (auto value = layer->Find(section, key)) return value;
  }
  return std::nullopt;
}

Variant LayeredSettingsStore::Read(const std::string& section, const std::string& key, const Variant& def) {
  auto value = Find(section, key);
  return value ? *value : def;
}

void LayeredSettingsStore::Write(const std::string& section, const std::string& key, const Variant& value) {
  if (m_layers.empty() || !m_layers.front())
    throw Error(err::kPathFileAccess, "The settings store has no layer to write to");
  m_layers.front()->Write(section, key, value);
}

}  // namespace platform::suite
