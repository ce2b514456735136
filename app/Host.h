#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ExitStatus.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
}
namespace platform::suite {
class SettingsStore;
}

namespace app {

/// The command line's host: it hands the component its settings stores, shows the
/// component's messages and errors on standard error, turns Ctrl+C into the keyboard
/// state the component reads, opens the solution and the databases.
class Host {
 public:
  /// Installs the services and hands the component the per-user store settings.ini of
  /// the suite's data folder and the per-machine store /etc/annotra/settings.ini.
  Host();
  /// Installs the services and hands the component `user` and `machine` as its
  /// per-user and per-machine stores (what one `analyze` run reads and writes).
  Host(std::shared_ptr<platform::suite::SettingsStore> user, std::shared_ptr<platform::suite::SettingsStore> machine);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Opens `path` (a solution, project, folder or file) and makes it the environment's
  /// solution. Prints the loader's warnings that tell of lost code (a compiled file
  /// missing, a project that cannot be read), and with `verbose` all of them. False,
  /// after a one-line message naming the file, when it cannot be loaded at all.
  bool OpenSolution(const std::filesystem::path& path, bool verbose = false);

  const platform::Ref<platform::automation::DTE>& dte() const { return m_dte; }

  /// Hands the component the database workspace, the team database at `teamDatabase`
  /// ("" for team.db of the suite's data folder, made with the default templates when
  /// missing) and the personal database. False, after a message, when the team database
  /// cannot be opened or made. A team database named by the caller is never made: a
  /// missing one is an error. With `makeMissing` false, a missing team.db is not made
  /// either: a scratch one with the default templates stands in for it, in the temporary
  /// folder, until the next OpenDatabases or the host's end (so a run that is refused
  /// after reading the templates leaves the data folder as it was).
  bool OpenDatabases(const std::string& teamDatabase = "", bool makeMissing = true);

  /// Closes the temporary results database and deletes its file, as the component's
  /// shutdown does.
  void DropResultsDatabase();

 private:
  void InstallServices();
  void CloseDatabases();
  platform::Ref<platform::automation::DTE> m_dte;
  std::string m_scratchTeamDatabase;
};

}  // namespace app
