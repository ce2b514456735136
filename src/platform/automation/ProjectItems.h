#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {

class Project;
class ProjectItem;

/// A 1-based collection of project items: a project's top-level items, or the items of
/// a folder or below a file.
class ProjectItems : public Dispatch, public std::enable_shared_from_this<ProjectItems> {
 public:
  /// A collection whose parent is `parent` (a Project or a ProjectItem) in `project`.
  ProjectItems(std::weak_ptr<Dispatch> parent, std::weak_ptr<Project> project)
      : m_parent(std::move(parent)), m_project(std::move(project)) {}
  const char* TypeName() const override { return "ProjectItems"; }

  int Count() const { return static_cast<int>(m_items.size()); }
  /// Item `index` (1-based); fails with 5 outside 1..Count().
  Ref<ProjectItem> Item(int index) const;
  /// The item named `name` (any letter case); fails with 5 when there is none.
  Ref<ProjectItem> Item(const std::string& name) const;
  /// The Project or ProjectItem the collection belongs to.
  Ref<Dispatch> Parent() const;
  Ref<Project> ContainingProject() const;

  /// Appends `item` and makes this its collection.
  void Add(const Ref<ProjectItem>& item);
  /// Lists `item` without making this its collection (an item shown in two places).
  void AddForeign(const Ref<ProjectItem>& item) { m_items.push_back(item); }
  /// Orders the items by name, case-insensitive (stable), and the items below them.
  void SortByName();
  const std::vector<Ref<ProjectItem>>& items() const { return m_items; }

 private:
  std::weak_ptr<Dispatch> m_parent;
  std::weak_ptr<Project> m_project;
  std::vector<Ref<ProjectItem>> m_items;
};

}  // namespace platform::automation
