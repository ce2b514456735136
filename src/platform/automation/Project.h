#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;
class ProjectItem;
class ProjectItems;

/// A project of the solution: a C# or VB project, a web site, or a solution folder
/// (whose Object is a SolutionFolder and whose items hold its sub-projects).
class Project : public Dispatch, public std::enable_shared_from_this<Project> {
 public:
  /// A project named `name` of kind `kind` (a project-kind identifier) loaded from
  /// `fullName` ("" for solution folders).
  Project(std::string name, std::string kind, std::filesystem::path fullName, std::weak_ptr<DTE> dte);
  const char* TypeName() const override { return "Project"; }

  const std::string& Name() const { return m_name; }
  const std::string& Kind() const { return m_kind; }
  std::string FullName() const { return m_fullName.string(); }
  Ref<automation::ProjectItems> ProjectItems() const;
  /// A SolutionFolder for solution folders; the language project object otherwise.
  Ref<Dispatch> Object() const { return m_object; }
  /// The item of the solution folder that holds this project; none at the top.
  Ref<ProjectItem> ParentProjectItem() const { return m_parentItem.lock(); }

  // --- Building and model internals ------------------------------------------------------
  void SetObject(std::shared_ptr<Dispatch> object) { m_object = std::move(object); }
  void SetParentProjectItem(const std::shared_ptr<ProjectItem>& item) { m_parentItem = item; }
  /// The preprocessing symbols the project's files are parsed with.
  const codemodel::PreprocessorSymbols& symbols() const { return m_symbols; }
  void SetSymbols(codemodel::PreprocessorSymbols s) { m_symbols = std::move(s); }
  const std::filesystem::path& fullName() const { return m_fullName; }
  /// Whether the full name is a folder (a web site, a project of one source file) rather
  /// than a project file: its items are named relative to it. Asked of the disk once.
  bool FullNameIsFolder() const;
  std::weak_ptr<DTE> dte() const { return m_dte; }

 private:
  std::string m_name;
  std::string m_kind;
  std::filesystem::path m_fullName;
  std::weak_ptr<DTE> m_dte;
  mutable std::shared_ptr<automation::ProjectItems> m_items;
  std::shared_ptr<Dispatch> m_object;
  std::weak_ptr<ProjectItem> m_parentItem;
  codemodel::PreprocessorSymbols m_symbols;
  mutable int m_fullNameIsFolder = -1;  // -1 until asked
};

/// The object of a solution folder.
class SolutionFolder : public Dispatch {
 public:
  explicit SolutionFolder(std::weak_ptr<Project> parent, bool hidden = false)
      : m_parent(std::move(parent)), m_hidden(hidden) {}
  const char* TypeName() const override { return "SolutionFolder"; }
  bool Hidden() const { return m_hidden; }
  void SetHidden(bool hidden) { m_hidden = hidden; }
  Ref<Project> Parent() const { return m_parent.lock(); }

 private:
  std::weak_ptr<Project> m_parent;
  bool m_hidden;
};

/// The object of a C# or VB project.
class LanguageProject : public Dispatch {
 public:
  const char* TypeName() const override { return "VSProject"; }
};

/// The object of a web-site project.
class WebSiteProject : public Dispatch {
 public:
  const char* TypeName() const override { return "VSWebSite"; }
};

}  // namespace platform::automation
