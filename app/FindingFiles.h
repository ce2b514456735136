#pragma once
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
class Project;
class ProjectItems;
}  // namespace platform::automation

namespace app {

/// The files of a run's findings, found through an index built once per run instead of
/// a search of the whole solution per finding. A finding names its project, the folders
/// of its item inside the project ("A\B", the Path column) and the item (Document), as
/// the walk saw them; the index maps those back to the item's file. A solution folder
/// named like a project never hides it: a name's real projects are tried before its
/// solution folders (whose own items may be documents of findings too).
class FindingFiles {
 public:
  /// Indexes the projects and solution folders of `dte`'s solution by name; each
  /// project's items are indexed when a finding first needs them.
  explicit FindingFiles(const platform::Ref<platform::automation::DTE>& dte);

  /// The full path of the item `document` in the folders `path` of the project named
  /// `project`; "" when the solution has no such item.
  std::string FileOf(const std::string& project, const std::string& path, const std::string& document);

 private:
  struct Indexed {
    platform::Ref<platform::automation::Project> project;
    bool built = false;
    /// path + "\n" + document -> file
    std::unordered_map<std::string, std::string> files;
  };
  void Add(const platform::Ref<platform::automation::Project>& project);
  static void IndexItems(const platform::Ref<platform::automation::ProjectItems>& items, const std::string& path,
                         std::unordered_map<std::string, std::string>& files);

  std::unordered_map<std::string, std::vector<Indexed>> m_byName;
};

}  // namespace app
