#pragma once
// Helpers for tests that load a solution written to a temporary folder and act as the
// host on it (opening documents, placing the caret, selecting projects). Header only:
// the test programs that include it already link the automation model. It includes the
// automation model, so only tests of platform/automation and the folders above it may
// use it; the texts of solution and project files are in SolutionText.h.

#include <string>
#include <vector>

#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/TextDocument.h"
#include "testsupport/SolutionText.h"

namespace testsupport {

/// The project named `name` among `projects` and, depth first, the sub-projects of
/// their solution folders; none when there is none.
inline platform::Ref<platform::automation::Project> FindProjectNamed(
    const std::vector<platform::Ref<platform::automation::Project>>& projects,
    const std::string& name) {
  for (const auto& project : projects) {
    if (project->Name() == name) return project;
    std::vector<platform::Ref<platform::automation::Project>> subs;
    for (const auto& item : project->ProjectItems()->items())
      if (item->SubProject()) subs.push_back(item->SubProject());
    if (auto found = FindProjectNamed(subs, name)) return found;
  }
  return nullptr;
}

/// The project named `name` anywhere in the solution of `dte`; none when there is none.
inline platform::Ref<platform::automation::Project> ProjectNamed(
    const platform::Ref<platform::automation::DTE>& dte, const std::string& name) {
  return FindProjectNamed(dte->Solution()->Projects()->items(), name);
}

/// The item of `project` at `path`: names separated by "/", through folders and the
/// items files are nested under ("Forms/Form1.cs/Form1.Designer.cs"); none when a step
/// is missing.
inline platform::Ref<platform::automation::ProjectItem> ItemAt(
    const platform::Ref<platform::automation::Project>& project, const std::string& path) {
  platform::Ref<platform::automation::ProjectItems> items = project->ProjectItems();
  platform::Ref<platform::automation::ProjectItem> found;
  size_t begin = 0;
  while (items && begin <= path.size()) {
    size_t end = path.find('/', begin);
    if (end == std::string::npos) end = path.size();
    const std::string part = path.substr(begin, end - begin);
    found = nullptr;
    for (const auto& item : items->items())
      if (item->Name() == part) found = item;
    if (!found) return nullptr;
    if (end == path.size()) return found;
    items = found->ProjectItems();
    begin = end + 1;
  }
  return nullptr;
}

/// Opens the item's document as the host does when the user opens a file: a visible
/// text window. Optionally makes it the active document with the caret on `caretLine`.
inline platform::Ref<platform::automation::Document> OpenInHost(
    const platform::Ref<platform::automation::ProjectItem>& item, bool activate = false,
    int caretLine = 1) {
  auto document = item->LoadDocument();
  document->OpenWindow(true);
  if (activate) {
    document->Object("TextDocument")->Selection()->GotoLine(caretLine);
    if (auto project = item->ContainingProject())
      if (auto dte = project->dte().lock()) dte->SetActiveDocument(document);
  }
  return document;
}

/// The 1-based line of the first line of `text` that contains `needle`; 0 when none does.
inline int LineOf(const std::string& text, const std::string& needle) {
  size_t at = text.find(needle);
  if (at == std::string::npos) return 0;
  int line = 1;
  for (size_t i = 0; i < at; ++i)
    if (text[i] == '\n') ++line;
  return line;
}

}  // namespace testsupport
