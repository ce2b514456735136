#include "platform/automation/ProjectItems.h"

#include <algorithm>

#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {
bool LessNoCase(const std::string& a, const std::string& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    auto lx = static_cast<unsigned char>(x >= 'A' && x <= 'Z' ? x + 32 : x);
    auto ly = static_cast<unsigned char>(y >= 'A' && y <= 'Z' ? y + 32 : y);
    return lx < ly;
  });
}
bool EqualNoCase(const std::string& a, const std::string& b) {
  return !LessNoCase(a, b) && !LessNoCase(b, a);
}
}  // namespace

Ref<ProjectItem> ProjectItems::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return m_items[index - 1];
}

Ref<ProjectItem> ProjectItems::Item(const std::string& name) const {
  for (auto& item : m_items)
    if (EqualNoCase(item->Name(), name)) return item;
  throw Error(err::kInvalidCall);
}

Ref<Dispatch> ProjectItems::Parent() const { return m_parent.lock(); }

Ref<Project> ProjectItems::ContainingProject() const { return m_project.lock(); }

void ProjectItems::Add(const Ref<ProjectItem>& item) {
  item->SetCollection(shared_from_this());
  m_items.push_back(item);
}

void ProjectItems::SortByName() {
  std::stable_sort(m_items.begin(), m_items.end(),
                   [](const Ref<ProjectItem>& a, const Ref<ProjectItem>& b) {
                     return LessNoCase(a->Name(), b->Name());
                   });
  for (auto& item : m_items)
    if (!item->SubProject() && item->Collection().get() == this) item->ProjectItems()->SortByName();
}

}  // namespace platform::automation
