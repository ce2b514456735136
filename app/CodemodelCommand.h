#pragma once
#include <filesystem>
#include <ostream>

namespace app {

/// `annotra codemodel PATH`: the code model of every C# and VB file of the solution,
/// project, folder or file at PATH, as JSON lines, files in walk order. Returns the exit
/// status.
int RunCodemodelCommand(const std::filesystem::path& path, std::ostream& out);

}  // namespace app
