#pragma once
#include <filesystem>
#include <memory>
#include <string>

namespace platform::suite {
class SettingsStore;
class MemorySettingsStore;
}  // namespace platform::suite

namespace app {

/// The settings one `analyze` run hands the component: what the command line sets
/// (written there by the options dialog), over the repository's `.annotra.ini`, over
/// the defaults of the readers. Nothing is read from or written to the per-user store,
/// so a run depends on its inputs only.
struct RunSettings {
  /// The store the component reads and writes: the command line's layer over the
  /// repository's.
  std::shared_ptr<platform::suite::SettingsStore> store;
  /// The repository's file; empty when there is none.
  std::filesystem::path repositoryFile;
  /// What the repository's file holds; none when there is no file.
  std::shared_ptr<platform::suite::MemorySettingsStore> repository;
  /// The team database the repository's file names ([Annotra] TeamDatabase); "" for
  /// the per-user one.
  std::string teamDatabase;
};

/// The settings of a run on `path` (the analysed solution, project, folder or file):
/// the nearest `.annotra.ini` at or above it is read against the component's schema.
/// "" when all went well, else the message naming the file and line that is wrong.
std::string MakeRunSettings(const std::filesystem::path& path, RunSettings& settings);

}  // namespace app
