#pragma once
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "Finding.h"

namespace app {

/// The output formats of `annotra analyze`.
enum class OutputFormat { Table, Tsv, Json, Msbuild, Sarif, Html };

/// The format named `name` ("table", "tsv", "json", "msbuild", "sarif", "html"; html is
/// the print preview's page, which the analyze command makes itself); false when
/// there is none of that name.
bool ParseOutputFormat(const std::string& name, OutputFormat& format);

/// Writes `findings` in `format`. `base` is the folder that msbuild and SARIF paths are
/// made relative to (the current folder).
void WriteFindings(std::ostream& out, const std::vector<Finding>& findings, OutputFormat format,
                   const std::filesystem::path& base);

/// The stable rule identifier of a problem text ("AN0001" ...), for SARIF.
std::string RuleIdOf(const std::string& problem);

}  // namespace app
