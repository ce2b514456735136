#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "platform/automation/LoadWarning.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class Project;

/// A file or folder to be shown in a project, before it becomes a ProjectItem.
struct ProjectEntry {
  /// Where the entry sits in the project's tree: "Forms/Main.cs" ('\' or '/'; "." and
  /// ".." resolved). Its folders become folder items.
  std::string displayPath;
  /// The file or folder on disk.
  std::filesystem::path fullPath;
  bool folder = false;
  /// The file this one is nested under, relative to this entry's own folder or to the
  /// project (DependentUpon); "" for none.
  std::string dependentUpon;
  /// Whether the project compiles the file (a Compile item, a web site's source).
  bool compiled = false;
};

/// Fills `project`'s items from `entries`: one folder item for every folder of a display
/// path (and every folder entry), a file item for every file entry, each file under its
/// folder, or under the file it depends upon when that is an entry of the project too
/// (a dependency that would form a cycle is dropped). A display path given twice (any
/// letter case) keeps its first entry. Items are then ordered by name. Every file entry
/// whose file does not exist stays and adds a warning naming the file (of kind
/// MissingSource when the entry is compiled). `webItems` marks
/// the items as a web site's. Linear in the number of entries, apart from the sort.
void BuildProjectItems(const Ref<Project>& project, const std::vector<ProjectEntry>& entries, bool webItems,
                       std::vector<LoadWarning>& warnings);

/// `path` with '\' made '/', "." dropped, ".." resolved, and no leading, trailing or
/// doubled '/'; "" when nothing is left or ".." climbs above the start.
std::string NormalizeDisplayPath(const std::string& path);

}  // namespace platform::automation
