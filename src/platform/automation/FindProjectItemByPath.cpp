#include "platform/automation/FindProjectItemByPath.h"

#include <functional>
#include <system_error>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"

namespace platform::automation {
namespace {

// The first file item of `collection` or below it (depth first, in order) that `match`
// accepts. Nesting is as deep as the solution's folders, so recursion is bounded.
Ref<ProjectItem> FindIn(const Ref<ProjectItems>& collection, const std::function<bool(const ProjectItem&)>& match) {
  if (!collection) return nullptr;
  for (auto& item : collection->items()) {
    if (!item) continue;
    if (auto sub = item->SubProject()) {
      if (auto found = FindIn(sub->ProjectItems(), match)) return found;
      continue;
    }
    if (item->Kind() == vsProjectItemKindPhysicalFile && match(*item)) return item;
    // An item listed in a second collection is searched below where it belongs only.
    if (item->Collection().get() == collection.get())
      if (auto found = FindIn(item->ProjectItems(), match)) return found;
  }
  return nullptr;
}

Ref<ProjectItem> FindItem(const Ref<DTE>& dte, const std::function<bool(const ProjectItem&)>& match) {
  for (auto& project : dte->Solution()->Projects()->items())
    if (project)
      if (auto found = FindIn(project->ProjectItems(), match)) return found;
  return nullptr;
}

}  // namespace

Ref<ProjectItem> FindProjectItemByPath(const Ref<DTE>& dte, const std::filesystem::path& path) {
  if (!dte || !dte->Solution() || path.empty()) return nullptr;
  const auto target = NormalizedAbsolute(path);
  if (auto item = FindItem(dte, [&](const ProjectItem& i) { return NormalizedAbsolute(i.path()) == target; }))
    return item;
  std::error_code ec;
  const auto canonical = std::filesystem::weakly_canonical(target, ec);
  if (ec) return nullptr;
  return FindItem(dte, [&](const ProjectItem& i) {
    std::error_code e2;
    auto c = std::filesystem::weakly_canonical(i.path(), e2);
    return !e2 && c == canonical;
  });
}

}  // namespace platform::automation
