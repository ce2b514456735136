#pragma once
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "Finding.h"
#include "FindingSource.h"

namespace app {

/// The output formats of `annotra analyze`.
enum class OutputFormat { Table, Tsv, Json, Msbuild, Sarif, Html };

/// A format's name on the command line.
struct FormatName {
  const char* name;
  OutputFormat format;
};

/// The formats in the order the usage lists them.
const std::vector<FormatName>& OutputFormats();

/// The format named `name`; false when there is none of that name.
bool ParseOutputFormat(const std::string& name, OutputFormat& format);

/// The names of the formats joined by "|" ("table|tsv|...").
std::string OutputFormatNames();

/// One project's share of definitions that carry the comment the rules ask for.
struct ProjectTally {
  std::string project;
  int32_t definitions = 0;     ///< definitions the definition checks looked at
  int32_t withoutFinding = 0;  ///< of them, those without a definition finding
};

/// What the formats need besides the findings.
struct OutputContext {
  /// The folder that msbuild and JSON paths are relative to (the current folder).
  std::filesystem::path currentFolder;
  /// The folder SARIF names %SRCROOT% (the solution's folder, or --source-root).
  std::filesystem::path sourceRoot;
  /// The width the table must fit (the terminal's); 0 for no limit.
  size_t width = 0;
  /// The program's version, for SARIF's tool.driver.version.
  std::string version;
  /// Per project, for the summary after the table.
  std::vector<ProjectTally> tallies;
};

/// Writes the findings of `findings` in `format` (which may read them more than once).
/// Returns false when `out` failed.
bool WriteFindings(std::ostream& out, FindingSource& findings, OutputFormat format, const OutputContext& context);

/// The stable rule identifier of a problem text ("AN0001" ...); "AN0000" for a text that
/// is no problem of the table (a result file may hold anything).
std::string RuleIdOf(const std::string& problem);

/// The finding's file relative to `base`, with "/" ("src/App/Program.cs"; "../x.cs"
/// above it). A finding whose file is unknown is named after its project, folders and
/// document ("App/Forms/Main.cs").
std::string ShownPath(const Finding& finding, const std::filesystem::path& base);

/// `text` with its tabs, line breaks and backslashes written `\t`, `\n`, `\r`, `\\`, so
/// a field never breaks a TSV line.
std::string TsvField(const std::string& text);

// The formats that live in files of their own.
void WriteTable(std::ostream& out, FindingSource& findings, const OutputContext& context);
void WriteSarif(std::ostream& out, FindingSource& findings, const OutputContext& context);

}  // namespace app
