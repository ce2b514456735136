#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::automation {
class Document;
class ProjectItem;
class TextPoint;
class CodeElement;
}  // namespace platform::automation
namespace platform::grid {
class Grid;
}

namespace platform::suite {

class SettingsStore;

/// The suite's service object: the error report, folders of the suite's data, the
/// display name of a project item and the code element at the caret.
class ServiceObject : public Dispatch {
 public:
  const char* TypeName() const override { return "ServiceObject"; }

  /// Keeps the per-user settings store (the suite reads its own keys there).
  void TakeSettings(std::shared_ptr<SettingsStore> settings) { m_settings = std::move(settings); }
  /// Sends a report to the common error report.
  void ReportError(const std::string& message, const std::string& source, int line, bool flag);
  /// The suite's data folder: the one a host set with SetDataFolder, else ANNOTRA_HOME
  /// (default $XDG_CONFIG_HOME/annotra, else ~/.config/annotra), ending in "/".
  std::string DataFolder() const;
  /// Makes `folder` the data folder of this object ("": the environment's again), for a
  /// host that keeps what the component writes there (layouts, the results folder)
  /// apart from the user's.
  void SetDataFolder(std::string folder) { m_dataFolder = std::move(folder); }
  /// The base folder of result files: the data folder's "Results/".
  std::string ResultsFolder() const;
  /// Makes `folder` and its parents when missing; true when it exists afterwards.
  bool EnsureFolder(const std::string& folder) const;
  /// The item's path relative to its project ("Sub/Form1.cs"); its name when it has no
  /// project.
  std::string ItemDisplayName(const Ref<automation::ProjectItem>& item) const;
  /// The innermost code element holding the caret line of the document's selection (the
  /// point, when given, instead); none when no element does. `option` 130 is the only
  /// value the system uses.
  Ref<automation::CodeElement> CodeElementAtCaret(const Ref<automation::Document>& document,
                                                 const Ref<automation::TextPoint>& point,
                                                 int option) const;
  /// The grid's visible columns that show a field of its recordset (all visible
  /// columns of a grid without one), in their order on screen, as a select list:
  /// "[Project], [Document], [Problem]". "" when no such column is visible.
  std::string VisibleColumns(const grid::Grid& grid) const;

 private:
  std::shared_ptr<SettingsStore> m_settings;
  std::string m_dataFolder;
};

/// The suite's file object.
class FileObject : public Dispatch {
 public:
  const char* TypeName() const override { return "FileObject"; }
  /// Whether a file (not a folder) exists at `path`.
  bool FileExists(const std::string& path) const;
};

}  // namespace platform::suite
