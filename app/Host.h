#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
}

namespace app {

/// Exit statuses of the program.
enum ExitStatus : int { kDone = 0, kFindings = 1, kUsage = 2, kCannotLoad = 3 };

/// The command line's host: it hands the component the per-user and per-machine
/// settings stores, shows the component's messages and errors on standard error, turns
/// Ctrl+C into the keyboard state the component reads, and opens the solution.
class Host {
 public:
  /// Installs the services and the settings stores.
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Opens `path` (a solution, project, folder or file) and makes it the environment's
  /// solution; prints the loader's warnings. False, after a one-line message naming the
  /// file, when it cannot be loaded at all.
  bool OpenSolution(const std::filesystem::path& path);

  const platform::Ref<platform::automation::DTE>& dte() const { return m_dte; }

  /// Hands the component the database workspace, the team database (made with the
  /// default templates when missing) and the personal database. False, after a message,
  /// when the team database cannot be opened or made.
  bool OpenDatabases();

  /// Closes the temporary results database and deletes its file, as the component's
  /// shutdown does.
  void DropResultsDatabase();

 private:
  platform::Ref<platform::automation::DTE> m_dte;
};

}  // namespace app
