#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "platform/automation/LoadWarning.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;

/// What opening a solution gives: the development environment holding it, and the
/// warnings about what could be loaded only in part, one line each with its kind.
struct LoadResult {
  Ref<DTE> dte;
  std::vector<LoadWarning> warnings;
};

/// Opens `path` as the solution of a new development environment:
/// - a .sln or .slnx solution (ReadSln, ReadSlnx): its projects and solution folders,
///   top-level entries in file order, nested ones as items of their folder, with each
///   folder's solution items as file items; web sites read from their folder;
/// - a .csproj or .vbproj: a solution of that one project;
/// - a folder: the one .sln/.slnx in it when there is exactly one; else its project
///   files (those in the folder, else those below it) as a solution; else the folder
///   as a web-site project of its .cs/.vb files;
/// - a .cs or .vb file: a solution of one project, named after the file's folder,
///   holding that file.
/// A project that cannot be read stays in the solution without items, with a warning
/// naming it and why (kind UnreadProject); a project or folder that names a missing file
/// keeps the item, with a warning naming the file (kind MissingSource when the project
/// compiles the file); a project of another language (not C# or VB) is
/// kept without items. What cannot be loaded at all fails with platform::Error whose
/// description is one line naming the file: 53 when `path` does not exist; 75 when it
/// cannot be read; 5 for a malformed or unsupported solution, project or file (an
/// unknown encoding, a folder without anything to load, another file type).
LoadResult OpenSolution(const std::filesystem::path& path);

}  // namespace platform::automation
