#pragma once
#include <filesystem>
#include <string>

#include "platform/automation/SolutionDescription.h"

namespace platform::automation {

/// Reads a .sln solution file: its "Project(...) = ..." lines with their type
/// identifiers, names and paths (names and paths may hold blanks; '\' becomes '/'), the
/// SolutionItems section of each solution folder, and the NestedProjects section that
/// places entries in folders (identifiers compared without regard to case). Fails with
/// platform::Error as ReadDefinitionText does, and with 5 and a message naming the file
/// (and the line) when it has no solution header, a Project line cannot be parsed, or
/// a Project, section or Global block is not closed.
SolutionDescription ReadSln(const std::filesystem::path& slnPath);

/// ReadSln on text already read; `slnPath` names the file in messages.
SolutionDescription ParseSln(const std::string& text, const std::filesystem::path& slnPath);

}  // namespace platform::automation
