#include "SolutionCommand.h"

#include <string>

#include "Host.h"
#include "analysis/CEstimate.h"
#include "host/MGlobals.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace app {

using namespace platform::automation;
using platform::Ref;

namespace {

std::string LanguageName(const std::string& language) {
  if (language == platform::codemodel::vsCMLanguageCSharp) return "C#";
  if (language == platform::codemodel::vsCMLanguageVB) return "VB";
  return "-";
}

std::string ProjectLabel(const Ref<Project>& project) {
  const std::string& kind = project->Kind();
  if (kind == kProjectKindSolutionFolder) {
    auto folder = platform::TryAs<SolutionFolder>(project->Object());
    return "solution folder " + project->Name() + (folder && folder->Hidden() ? " (hidden)" : "");
  }
  if (kind == kProjectKindWebSite) return "web site " + project->Name();
  return "project " + project->Name();
}

void PrintItems(const Ref<ProjectItems>& items, int depth, std::ostream& out);

void PrintProject(const Ref<Project>& project, int depth, std::ostream& out) {
  out << std::string(depth * 2, ' ') << ProjectLabel(project) << '\n';
  PrintItems(project->ProjectItems(), depth + 1, out);
}

void PrintItems(const Ref<ProjectItems>& items, int depth, std::ostream& out) {
  if (!items) return;
  for (int i = 1; i <= items->Count(); ++i) {
    auto item = items->Item(i);
    if (auto sub = item->SubProject()) {
      PrintProject(sub, depth, out);
      continue;
    }
    std::string indent(depth * 2, ' ');
    if (item->Kind() == vsProjectItemKindPhysicalFolder) {
      out << indent << item->Name() << "/\n";
    } else {
      out << indent << item->Name() << "  [" << LanguageName(annotra::MGlobals::GetItemLanguage(item))
          << "]\n";
    }
    if (item->Collection().get() == items.get()) PrintItems(item->ProjectItems(), depth + 1, out);
  }
}

}  // namespace

int RunSolutionCommand(const std::filesystem::path& path, std::ostream& out) {
  Host host;
  if (!host.OpenSolution(path)) return kCannotLoad;
  auto projects = host.dte()->Solution()->Projects();
  out << "solution " << host.dte()->Solution()->FullName() << '\n';
  annotra::CEstimate estimate;
  int32_t total = 0;
  for (int i = 1; i <= projects->Count(); ++i) {
    PrintProject(projects->Item(i), 1, out);
    total += estimate.EstimateProjectItems(projects->Item(i)->ProjectItems());
  }
  out << "items to walk: " << total << '\n';
  return kDone;
}

}  // namespace app
