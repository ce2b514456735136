#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "entry/CXmlAnalyzer.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
}

namespace app {

/// The component as a command of the command line drives it: the entry object made and
/// initialised as the host add-in does it (the environment, the settings stores, the
/// workspace and the databases the host handed to the shared globals, the grid left
/// unbound until results are shown), commands sent to it, and Shutdown at the end.
///
/// The component keeps layouts and the default results folder in the suite's data
/// folder; a command line gives it a data folder of the run's own (in the temporary
/// folder, removed at the end), so the installed layouts are the ones used and the
/// user's folder stays as it was.
class Component {
 public:
  Component();
  /// Shuts the component down (the temporary results database goes with it) and
  /// removes the run's data folder.
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  /// Initialises the entry object with `dte` and the host's objects of the shared
  /// globals. The temporary results database is made here, and named to the signal
  /// handlers at once. "" when all is ready, else what failed.
  std::string Start(const platform::Ref<platform::automation::DTE>& dte);

  annotra::CXmlAnalyzer& analyzer() { return m_analyzer; }

  /// Saves the results as the pane's save command does (command 7), the results file
  /// dialog answering `file` (taken from the current folder; a file there is replaced):
  /// a name ending in ".xls" exports a spreadsheet, any other becomes a result file
  /// ending in ".xmm". "" when saved, else what failed (the component's message on one
  /// line).
  std::string Save(const std::string& file);
  /// Loads the result file `file` as the pane's load command does (command 6). "" when
  /// loaded, else what failed.
  std::string Load(const std::string& file);

 private:
  /// Sends `command` with the file dialog answering `file`; what went wrong, or "".
  std::string FileCommand(int32_t command, const std::string& file);

  std::filesystem::path m_dataFolder;
  annotra::CXmlAnalyzer m_analyzer;
  bool m_started = false;
};

}  // namespace app
