#include "platform/automation/WebSiteReader.h"

#include <algorithm>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItemTree.h"
#include "platform/automation/ProjectSymbols.h"

namespace platform::automation {

std::vector<std::filesystem::path> SourceFilesBelow(const std::filesystem::path& folder) {
  std::vector<PathPattern> excludes;
  for (const char* e : {"bin/**", "obj/**", "node_modules/**", "**/.*/**"}) excludes.emplace_back(e, folder);
  auto files = PathPattern("**/*.cs", folder).Expand(excludes);
  auto vb = PathPattern("**/*.vb", folder).Expand(excludes);
  files.insert(files.end(), vb.begin(), vb.end());
  std::sort(files.begin(), files.end());
  return files;
}

Ref<Project> ReadWebSite(const std::filesystem::path& folder, const std::string& name, const std::weak_ptr<DTE>& dte,
                         std::vector<LoadWarning>& warnings) {
  const auto dir = NormalizedAbsolute(folder);
  auto project = std::make_shared<Project>(name, kProjectKindWebSite, dir, dte);
  project->SetObject(std::make_shared<WebSiteProject>());
  std::vector<ProjectEntry> entries;
  size_t vbFiles = 0;
  const std::string prefix = dir.generic_string() + "/";
  for (auto& file : SourceFilesBelow(dir)) {
    ProjectEntry entry;
    entry.fullPath = file;
    entry.compiled = true;  // a web site compiles every source below its folder
    std::string full = file.generic_string();
    entry.displayPath = full.compare(0, prefix.size(), prefix) == 0 ? full.substr(prefix.size()) : file.filename().string();
    if (LowerAscii(file.extension().string()) == ".vb") ++vbFiles;
    entries.push_back(std::move(entry));
  }
  project->SetSymbols(vbFiles * 2 > entries.size() ? VbSymbols("", "Debug", "AnyCPU", "", {}) : CSharpSymbols("", {}));
  BuildProjectItems(project, entries, true, warnings);
  return project;
}

}  // namespace platform::automation
