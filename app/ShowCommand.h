#pragma once
#include <optional>
#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace app {

/// What `annotra show` was asked: a result file and how to print it.
struct ShowRequest {
  std::string file;
  std::string format = "table";
  std::optional<std::string> output;
  /// The solution the findings come from, to find their files; none: files are named
  /// after project, folders and document.
  std::optional<std::string> solution;
  std::optional<std::string> sourceRoot;
};

/// Adds the `show` subcommand with its flags to `cli`, filling `request`.
CLI::App* AddShowCommand(CLI::App& cli, ShowRequest& request);

/// Loads the result file as the pane's load command does (command 6 of the entry
/// object) and prints the rows of the results table, in the order of their "ID", as
/// `analyze` prints its findings. Returns the exit status: 2 for a bad flag, 3 for a
/// file that is no result file (or a solution that cannot be loaded), 4 when the
/// output cannot be written.
int RunShowCommand(const ShowRequest& request, std::ostream& out);

}  // namespace app
