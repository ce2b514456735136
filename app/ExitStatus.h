#pragma once

namespace app {

/// Exit statuses of the program. Never kDone when what was printed is not what was
/// asked for.
enum ExitStatus : int {
  kDone = 0,        ///< done; with --fail-on-findings, done without findings
  kFindings = 1,    ///< findings, with --fail-on-findings
  kUsage = 2,       ///< a flag or a settings file is wrong; nothing ran, nothing changed
  kCannotLoad = 3,  ///< the input cannot be loaded (solution, project, team database)
  kCannotRun = 4,   ///< the analysis could not run or its output could not be written
};

}  // namespace app
