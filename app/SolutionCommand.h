#pragma once
#include <filesystem>
#include <ostream>

namespace app {

/// `annotra solution PATH`: the solution as the walk sees it, as an indented tree of
/// projects, solution folders, folders and items with each item's language, then the
/// number of items a walk of the whole solution visits. Returns the exit status.
int RunSolutionCommand(const std::filesystem::path& path, std::ostream& out);

}  // namespace app
