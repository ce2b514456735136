#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "platform/automation/FileCodeModel.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class Document;
class Project;
class ProjectItems;
class Window;

/// An item of a project: a file, a folder, or (in a solution folder) the item that holds
/// a sub-project. Items of a folder, and items nested under a file (DependentUpon), are
/// its ProjectItems.
class ProjectItem : public Dispatch, public std::enable_shared_from_this<ProjectItem> {
 public:
  /// An item named `name` of kind `kind` (a vsProjectItemKind... identifier) for the file
  /// or folder at `path`.
  ProjectItem(std::string name, std::string kind, std::filesystem::path path);
  const char* TypeName() const override { return "ProjectItem"; }

  const std::string& Name() const { return m_name; }
  const std::string& Kind() const { return m_kind; }
  /// The collection the item belongs to.
  Ref<automation::ProjectItems> Collection() const;
  /// The items below this one (an empty collection for a plain file); none for an item
  /// that holds a sub-project.
  Ref<automation::ProjectItems> ProjectItems() const;
  /// The project this item holds (solution folders only); none otherwise.
  Ref<automation::Project> SubProject() const { return m_subProject; }
  Ref<automation::Project> ContainingProject() const;
  /// Whether the document is open in the view `viewKind`.
  bool IsOpen(const std::string& viewKind) const;
  /// Opens the document in the code view: a hidden code window, or the window it has
  /// when it is open already. Fails with 53/75 when the file cannot be read.
  Ref<Window> Open(const std::string& viewKind);
  /// The open document; none when the item is not open.
  Ref<automation::Document> Document() const;
  /// The code model of a C# or VB file that the project compiles (parsed on first use,
  /// kept while anything holds the document); none for other items, and for sources the
  /// project only carries (None, Content, ... items). Fails with 53/75 when the file
  /// cannot be read.
  Ref<automation::FileCodeModel> FileCodeModel() const;
  /// The item's automation object: for web-site items one that offers the web-site
  /// project-item interface, else a plain item object.
  Ref<Dispatch> Object() const;
  /// The full path of the file (index 1).
  std::string FileNames(int index) const;

  // --- Building and model internals ------------------------------------------------------
  const std::filesystem::path& path() const { return m_path; }
  void SetSubProject(Ref<Project> project) { m_subProject = std::move(project); }
  void SetCollection(const std::shared_ptr<automation::ProjectItems>& c) { m_collection = c; }
  void SetWebItem(bool web) { m_webItem = web; }
  /// Whether the project compiles the file (a Compile item; every source of a web site).
  bool Compiled() const { return m_compiled; }
  void SetCompiled(bool compiled) { m_compiled = compiled; }
  /// The item's document, open or not: the one in memory, or read from disk.
  Ref<automation::Document> LoadDocument() const;

 private:
  std::string m_name;
  std::string m_kind;
  std::filesystem::path m_path;
  std::weak_ptr<automation::ProjectItems> m_collection;
  mutable std::shared_ptr<automation::ProjectItems> m_children;
  Ref<Project> m_subProject;
  bool m_webItem = false;
  bool m_compiled = true;
  mutable std::weak_ptr<automation::Document> m_document;
};

/// Object of a web-site project's items: offers the web-site project-item interface.
class WebProjectItemObject : public Dispatch {
 public:
  const char* TypeName() const override { return "VSWebProjectItem"; }
};

/// Object of a plain project item.
class ProjectItemObject : public Dispatch {
 public:
  const char* TypeName() const override { return "VSProjectItem"; }
};

}  // namespace platform::automation
