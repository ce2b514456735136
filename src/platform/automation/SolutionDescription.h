#pragma once
#include <string>
#include <vector>

namespace platform::automation {

/// One entry of a solution file, as the file states it: a project or a solution folder.
struct SolutionEntry {
  std::string name;
  /// The project type identifier as written ("{FAE04EC0-...}"); "" when the file gives none.
  std::string typeGuid;
  /// The project's file (or a web site's folder) with '/' separators, relative to the
  /// solution's folder or absolute; "" for solution folders.
  std::string path;
  /// A key unique within the solution (the project identifier of a .sln).
  std::string id;
  /// The id of the solution folder that holds the entry; "" at the top.
  std::string parentId;
  bool folder = false;
  /// A solution folder's files (SolutionItems), written as `path` is.
  std::vector<std::string> files;
};

/// What a solution file lists: its entries in file order, and what was odd about it.
struct SolutionDescription {
  std::vector<SolutionEntry> entries;
  std::vector<std::string> warnings;
};

}  // namespace platform::automation
