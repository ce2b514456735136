#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {

class Project;

/// The top-level projects and solution folders of a solution, 1-based.
class Projects : public Dispatch {
 public:
  const char* TypeName() const override { return "Projects"; }
  int Count() const { return static_cast<int>(m_items.size()); }
  /// Project `index` (1-based); fails with 5 outside 1..Count().
  Ref<Project> Item(int index) const;
  void Add(Ref<Project> project) { m_items.push_back(std::move(project)); }
  const std::vector<Ref<Project>>& items() const { return m_items; }

 private:
  std::vector<Ref<Project>> m_items;
};

/// The open solution.
class Solution : public Dispatch {
 public:
  explicit Solution(std::filesystem::path fullName)
      : m_fullName(std::move(fullName)), m_projects(std::make_shared<automation::Projects>()) {}
  const char* TypeName() const override { return "Solution"; }

  /// The top-level projects and solution folders.
  Ref<automation::Projects> Projects() const { return m_projects; }
  std::string FullName() const { return m_fullName.string(); }
  bool IsOpen() const { return true; }

 private:
  std::filesystem::path m_fullName;
  Ref<automation::Projects> m_projects;
};

}  // namespace platform::automation
