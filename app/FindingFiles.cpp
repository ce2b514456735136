#include "FindingFiles.h"

#include <algorithm>

#include "host/MGlobals.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"

namespace app {

using namespace platform::automation;
using platform::Ref;

FindingFiles::FindingFiles(const Ref<DTE>& dte) {
  if (!dte || !dte->Solution()) return;
  for (const auto& project : dte->Solution()->Projects()->items()) Add(project);
  // Real projects first: a solution folder of the same name is the answer only for the
  // documents that are its own items.
  for (auto& [name, list] : m_byName)
    std::stable_partition(list.begin(), list.end(),
                          [](const Indexed& i) { return !annotra::MGlobals::IsSolutionFolder(i.project); });
}

void FindingFiles::Add(const Ref<Project>& project) {
  if (!project) return;
  m_byName[project->Name()].push_back({project, false, {}});
  if (!annotra::MGlobals::IsSolutionFolder(project)) return;
  auto items = project->ProjectItems();
  for (int i = 1; i <= items->Count(); ++i)
    if (auto sub = items->Item(i)->SubProject()) Add(sub);
}

void FindingFiles::IndexItems(const Ref<ProjectItems>& items, const std::string& path,
                              std::unordered_map<std::string, std::string>& files) {
  if (!items) return;
  for (int i = 1; i <= items->Count(); ++i) {
    auto item = items->Item(i);
    if (item->SubProject()) continue;  // a project of its own
    // As the walk names an item's place: the names of the items above it (folders, or
    // the file it is nested under) joined by "\".
    files.emplace(path + "\n" + item->Name(), item->FileNames(1));
    if (item->Collection().get() == items.get())
      IndexItems(item->ProjectItems(), path.empty() ? item->Name() : path + "\\" + item->Name(), files);
  }
}

std::string FindingFiles::FileOf(const std::string& project, const std::string& path, const std::string& document) {
  auto named = m_byName.find(project);
  if (named == m_byName.end()) return "";
  const std::string key = path + "\n" + document;
  for (Indexed& indexed : named->second) {
    if (!indexed.built) {
      indexed.built = true;
      IndexItems(indexed.project->ProjectItems(), "", indexed.files);
    }
    if (auto file = indexed.files.find(key); file != indexed.files.end()) return file->second;
  }
  return "";
}

}  // namespace app
