#pragma once
#include <optional>
#include <ostream>
#include <string>

#include "FindingSource.h"
#include "FindingsWriter.h"

namespace app {

/// The width of the terminal standard output shows; 0 when it is no terminal.
size_t TerminalWidth();

/// Whether the folder of the file `path` names is there: "" when it is, else the
/// message. Checked before a run, so a typo does not cost a whole analysis.
std::string CheckFileFolder(const std::string& path, const std::string& what);

/// Writes `findings` in `format` to `out`, or to the file `outputPath` names (written
/// whole or removed). "" when everything arrived, else the message saying where the
/// output could not be written and why, or that the findings could not be read.
std::string WriteRunOutput(std::ostream& out, const std::optional<std::string>& outputPath, FindingSource& findings,
                           OutputFormat format, const OutputContext& context);

}  // namespace app
