#include "platform/suite/ServiceObject.h"

#include <cstdlib>
#include <filesystem>

#include "platform/automation/Document.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"
#include "platform/grid/Grid.h"
#include "platform/suite/ErrorReport.h"

namespace platform::suite {

namespace fs = std::filesystem;

void ServiceObject::ReportError(const std::string& message, const std::string& source, int line,
                                bool flag) {
  ErrorReport::Current().Report(message, source, line, flag);
}

std::string ServiceObject::DataFolder() const {
  std::string folder;
  if (!m_dataFolder.empty()) folder = m_dataFolder;
  else if (const char* home = std::getenv("ANNOTRA_HOME"); home && *home) folder = home;
  else if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg) folder = std::string(xdg) + "/annotra";
  else if (const char* user = std::getenv("HOME"); user && *user) folder = std::string(user) + "/.config/annotra";
  else folder = ".annotra";
  if (folder.back() != '/') folder += '/';
  return folder;
}

std::string ServiceObject::ResultsFolder() const { return DataFolder() + "Results/"; }

bool ServiceObject::EnsureFolder(const std::string& folder) const {
  std::error_code ec;
  fs::create_directories(folder, ec);
  return fs::is_directory(folder, ec);
}

std::string ServiceObject::ItemDisplayName(const Ref<automation::ProjectItem>& item) const {
  auto project = item->ContainingProject();
  if (!project || project->fullName().empty()) return item->Name();
  // A project file's items are named relative to its folder. A web site, and a project
  // made of a single source file, have no project file: their full name is the folder.
  const fs::path base = project->FullNameIsFolder() ? project->fullName() : project->fullName().parent_path();
  auto relative = fs::path(item->path()).lexically_relative(base);
  if (relative.empty() || *relative.begin() == "..") return item->Name();
  return relative.generic_string();
}

Ref<automation::CodeElement> ServiceObject::CodeElementAtCaret(
    const Ref<automation::Document>& document, const Ref<automation::TextPoint>& point,
    int option) const {
  if (option != 130) throw Error(err::kInvalidCall);
  auto model = document->CodeModel();
  if (!model) return nullptr;
  int line = point ? point->Line() : document->Object("TextDocument")->Selection()->CurrentLine();
  return model->CodeElementFromLine(line);
}

bool FileObject::FileExists(const std::string& path) const {
  std::error_code ec;
  return fs::is_regular_file(path, ec);
}

std::string ServiceObject::VisibleColumns(const grid::Grid& grid) const {
  std::string list;
  for (const auto& span : grid.VisibleColumns()) {
    // A column of the grid's own shows no field; without a recordset, every column is
    // taken for the field it is keyed by.
    if (grid.IsBound() && span.column->Field() < 0) continue;
    if (!list.empty()) list += ", ";
    list += "[" + span.column->Key() + "]";
  }
  return list;
}

}  // namespace platform::suite
