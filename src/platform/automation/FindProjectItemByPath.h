#pragma once
#include <filesystem>

#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;
class ProjectItem;

/// The file item of `path` in the solution of `dte`: the first whose file is `path`,
/// searching the projects in order, each depth first (folders, nested items, projects
/// in solution folders), comparing absolute normalized paths and, when none matches,
/// paths with symbolic links resolved. None when the solution has no such item, or
/// `dte` or `path` is empty.
Ref<ProjectItem> FindProjectItemByPath(const Ref<DTE>& dte, const std::filesystem::path& path);

}  // namespace platform::automation
