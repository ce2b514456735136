#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/LoadWarning.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;
class Project;

/// The C# and VB source files below `folder` (any letter case of ".cs"/".vb"), minus
/// bin/, obj/, node_modules/ at the top and hidden folders anywhere, sorted by path.
std::vector<std::filesystem::path> SourceFilesBelow(const std::filesystem::path& folder);

/// The folder `folder` as a web-site project named `name` (kind web site, Object a
/// WebSiteProject): its source files (SourceFilesBelow) as web items in their folders.
/// Its symbols are those of the language most of its files are in (C# when even).
/// Missing folders give a project without items; this never throws.
Ref<Project> ReadWebSite(const std::filesystem::path& folder, const std::string& name, const std::weak_ptr<DTE>& dte,
                         std::vector<LoadWarning>& warnings);

}  // namespace platform::automation
