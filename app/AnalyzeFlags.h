#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "FindingsWriter.h"

namespace CLI {
class App;
}

namespace app {

/// What `annotra analyze` was asked, as the command line wrote it: values are kept as
/// text, so that every one is checked by CheckFlags with one kind of message.
struct AnalyzeRequest {
  std::string path = ".";
  // Scope and the host's state.
  std::optional<std::string> scope;
  std::optional<std::string> document;
  std::optional<std::string> line;
  std::vector<std::string> open;
  std::optional<std::string> project;
  std::optional<std::string> folder;
  // Rules: what the options dialog's boxes are set to; none keeps what it shows.
  std::optional<bool> enablePublic, xmlOnPublic, enableNonPublic, xmlOnNonPublic, enableBody;
  std::optional<bool> acceptInheritDoc, compareParamTypes, skipGenerated;
  std::optional<std::string> maxLines;
  std::vector<std::string> require;
  bool requireAll = false;
  std::optional<std::string> keepOpen;
  // Output.
  std::string format = "table";
  std::optional<std::string> output;
  std::optional<std::string> sourceRoot;
  bool failOnFindings = false;
  bool verbose = false;
  // Result files.
  std::optional<std::string> save;
  std::optional<std::string> baseline;
};

/// The request's values, checked and converted.
struct CheckedFlags {
  std::optional<int32_t> scope;
  std::optional<int32_t> line;
  std::optional<int32_t> maxLines;
  std::optional<int32_t> keepOpen;
  /// --require as (kind, tag) pairs, in the order given.
  std::vector<std::pair<std::string, std::string>> requiredTags;
  OutputFormat format = OutputFormat::Table;
};

/// Adds the `analyze` subcommand with its flags to `cli`, filling `request`.
CLI::App* AddAnalyzeCommand(CLI::App& cli, AnalyzeRequest& request);

/// Checks every flag's value on its own and against the others, before anything is
/// opened: numbers in range, names among the accepted ones, flags that exclude or need
/// each other. "" when all are good (and `checked` filled), else the usage message,
/// which names the flag and what it accepts.
std::string CheckFlags(const AnalyzeRequest& request, CheckedFlags& checked);

/// Whether the host's state the request gives is what `scope` needs: `method` the
/// active document and its line, `document` the document, `project` a project or a
/// document (whose project it is), `folder` a folder or a project (whose folder it is),
/// `open` open documents. `origin` says where the scope came from ("--scope project",
/// or the settings file's line), for the message. "" when it is, else the message.
std::string CheckScopeNeeds(int32_t scope, const std::string& origin, const AnalyzeRequest& request);

/// The name of a scope value ("project"); "" for none.
std::string ScopeName(int32_t scope);

}  // namespace app
