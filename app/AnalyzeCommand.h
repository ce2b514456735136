#pragma once
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "FindingsWriter.h"

namespace CLI {
class App;
}

namespace app {

/// What `annotra analyze` was asked to do: the solution, the host's state, the options to
/// store and the output.
struct AnalyzeRequest {
  std::string path = ".";
  // Scope and the host's state.
  std::optional<std::string> scope;
  std::optional<std::string> document;
  std::optional<int> line;
  std::vector<std::string> open;
  std::optional<std::string> project;
  std::optional<std::string> folder;
  // Rules; each one given is stored where the options dialog stores it.
  std::optional<bool> enablePublic, xmlOnPublic, enableNonPublic, xmlOnNonPublic, enableBody;
  std::optional<std::string> maxLines;
  std::vector<std::string> require;
  bool requireAll = false;
  std::optional<int> keepOpen;
  // Output.
  std::string format = "table";
  bool failOnFindings = false;
};

/// Adds the `analyze` subcommand with its options to `cli`, filling `request`.
CLI::App* AddAnalyzeCommand(CLI::App& cli, AnalyzeRequest& request);

/// Runs one analysis as `request` says and prints its findings on `out`. Returns the exit
/// status: 0 done, 1 findings with --fail-on-findings, 2 a usage error, 3 input that
/// cannot be loaded.
int RunAnalyzeCommand(const AnalyzeRequest& request, std::ostream& out);

}  // namespace app
