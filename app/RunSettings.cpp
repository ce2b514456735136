#include "RunSettings.h"

#include "host/ComponentSettingsSchema.h"
#include "host/SettingsKeys.h"
#include "platform/core/Error.h"
#include "platform/suite/LayeredSettingsStore.h"
#include "platform/suite/MemorySettingsStore.h"
#include "platform/suite/PlainSettingsFile.h"

namespace app {

std::string MakeRunSettings(const std::filesystem::path& path, RunSettings& settings) {
  settings = RunSettings();
  settings.repositoryFile = platform::suite::FindFileUpwards(path, ".annotra.ini");
  if (!settings.repositoryFile.empty()) {
    try {
      settings.repository =
          platform::suite::ReadPlainSettingsFile(settings.repositoryFile, annotra::ComponentSettingsSchema());
    } catch (const platform::Error& e) {
      return e.description;
    }
    if (auto team = settings.repository->Find(annotra::section::Annotra, annotra::key::TeamDatabase))
      settings.teamDatabase = platform::ToString(*team);
  }
  auto commandLine = std::make_shared<platform::suite::MemorySettingsStore>();
  settings.store = std::make_shared<platform::suite::LayeredSettingsStore>(
      std::vector<std::shared_ptr<platform::suite::SettingsStore>>{commandLine, settings.repository});
  return "";
}

}  // namespace app
