#include "HostState.h"

#include <vector>

#include "analysis/FCCOptions.h"
#include "host/MGlobals.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/FindProjectItemByPath.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "platform/core/Error.h"
#include "platform/forms/TreeNode.h"

namespace app {

using namespace platform::automation;
using platform::Ref;

namespace {

// A project or solution folder and its place: the solution folders above it and its
// name, joined by "/".
struct Placed {
  Ref<Project> project;
  std::string path;
};

void Collect(const Ref<Project>& project, const std::string& above, std::vector<Placed>& out) {
  const std::string path = above.empty() ? project->Name() : above + "/" + project->Name();
  out.push_back({project, path});
  if (!annotra::MGlobals::IsSolutionFolder(project)) return;
  auto items = project->ProjectItems();
  for (int i = 1; i <= items->Count(); ++i)
    if (auto sub = items->Item(i)->SubProject()) Collect(sub, path, out);
}

// The projects (`folders` false) or solution folders (true) named `name`, or whose path
// is `name`.
std::vector<Placed> Named(const Ref<DTE>& dte, const std::string& name, bool folders) {
  std::vector<Placed> all, found;
  for (const auto& project : dte->Solution()->Projects()->items()) Collect(project, "", all);
  for (const auto& p : all)
    if (annotra::MGlobals::IsSolutionFolder(p.project) == folders && (p.project->Name() == name || p.path == name))
      found.push_back(p);
  return found;
}

// The one project or folder `flag` names; none, after setting `error`, when there is
// none or several.
Ref<Project> TheOne(const Ref<DTE>& dte, const std::string& flag, const std::string& name, bool folders,
                    std::string& error) {
  auto found = Named(dte, name, folders);
  const char* what = folders ? "solution folder" : "project";
  if (found.empty()) {
    error = flag + " " + name + ": the solution has no " + what + " of that name";
    if (!Named(dte, name, !folders).empty())
      error += std::string(" (a ") + (folders ? "project" : "solution folder") + " has it: " +
               (folders ? "--project " : "--folder ") + name + ")";
    return nullptr;
  }
  if (found.size() > 1) {
    error = flag + " " + name + ": " + std::to_string(found.size()) + " " + what + "s have that name:";
    for (size_t i = 0; i < found.size(); ++i) error += (i ? ", " : " ") + found[i].path;
    error += "; name one by its path";
    return nullptr;
  }
  return found.front().project;
}

// Opens the document of `file` as the host opens documents: a visible text window.
Ref<Document> OpenAsHost(const Ref<DTE>& dte, const std::string& flag, const std::string& file, std::string& error) {
  auto item = FindProjectItemByPath(dte, file);
  if (!item) {
    error = flag + " " + file + ": no item of the solution is that file";
    return nullptr;
  }
  try {
    auto document = item->LoadDocument();
    document->OpenWindow(true);
    return document;
  } catch (const platform::Error& e) {
    error = flag + " " + file + ": the document cannot be opened: " + e.description;
    return nullptr;
  }
}

}  // namespace

std::string SetHostState(const AnalyzeRequest& r, const CheckedFlags& checked, const Ref<DTE>& dte) {
  std::string error;
  for (const auto& file : r.open)
    if (!OpenAsHost(dte, "--open", file, error)) return error;
  if (r.document) {
    auto document = OpenAsHost(dte, "--document", *r.document, error);
    if (!document) return error;
    dte->SetActiveDocument(document);
    if (checked.line) {
      auto text = platform::As<TextDocument>(document->Object("TextDocument"));
      const int lines = text->EndPoint()->Line();
      if (*checked.line > lines)
        return "--line " + std::to_string(*checked.line) + ": " + *r.document + " has " + std::to_string(lines) +
               (lines == 1 ? " line" : " lines");
      text->Selection()->GotoLine(*checked.line);
    }
  }
  std::vector<Ref<Project>> selected;
  if (r.project) {
    auto project = TheOne(dte, "--project", *r.project, false, error);
    if (!project) return error;
    selected.push_back(project);
  }
  if (r.folder) {
    auto folder = TheOne(dte, "--folder", *r.folder, true, error);
    if (!folder) return error;
    selected.insert(selected.begin(), folder);
  }
  dte->SetSelectedProjects(selected);
  return "";
}

std::string CheckRequiredTags(const CheckedFlags& checked) {
  if (checked.requiredTags.empty()) return "";
  // The tree of the XML options form holds a node "C<kind>" per enabled template and
  // under it "T<kind>*<tag>" per tag: what the dialog can check.
  annotra::FCCOptions form;
  form.LoadTemplates();
  std::string error;
  for (const auto& [kind, tag] : checked.requiredTags) {
    if (form.TreeView1.Find("T" + kind + "*" + tag)) continue;
    auto kindNode = form.TreeView1.Find("C" + kind);
    if (!kindNode) {
      std::string kinds;
      for (const auto& root : form.TreeView1.Roots()) {
        if (!kinds.empty()) kinds += ", ";
        kinds.append(root->Text);
      }
      error = "--require " + kind + ":" + tag + ": no enabled template is of the kind \"" + kind +
              "\" (the kinds: " + kinds + ")";
    } else {
      std::string tags;
      for (auto node = kindNode->Child(); node; node = node->Next()) {
        // The tree shows "<summary>"; --require takes the name alone.
        std::string name = node->Key.substr(node->Key.find('*') + 1);
        if (!tags.empty()) tags += ", ";
        tags.append(name);
      }
      error = "--require " + kind + ":" + tag + ": the template of " + kind + " has no tag \"" + tag +
              "\" (its tags: " + (tags.empty() ? "none" : tags) + "); `annotra templates` edits the templates";
    }
    break;
  }
  form.Unload();
  return error;
}

}  // namespace app
