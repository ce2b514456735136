#include "CodemodelCommand.h"

#include <cstdio>
#include <filesystem>

#include "Host.h"
#include "platform/automation/DTE.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/codemodel/CodeModelJson.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/core/Error.h"

namespace app {

using namespace platform::automation;
using platform::Ref;

namespace {

// Visits the items as the walk does: sub-projects entered, nested items before their
// parent, items of other collections skipped.
void WriteItems(const Ref<ProjectItems>& items, const std::filesystem::path& base, std::ostream& out,
                bool& failed) {
  if (!items) return;
  for (int i = 1; i <= items->Count(); ++i) {
    auto item = items->Item(i);
    if (auto sub = item->SubProject()) {
      WriteItems(sub->ProjectItems(), base, out, failed);
      continue;
    }
    if (item->Collection().get() != items.get()) continue;
    WriteItems(item->ProjectItems(), base, out, failed);
    if (platform::codemodel::LanguageOfFile(item->Name()).empty()) continue;
    try {
      auto model = item->FileCodeModel();
      if (!model) continue;
      auto shown = std::filesystem::path(item->path()).lexically_relative(base);
      platform::codemodel::WriteCodeModelJson(out, model->Declarations(),
                                              shown.empty() ? item->path().string() : shown.generic_string());
    } catch (const platform::Error& e) {
      std::fprintf(stderr, "annotra: %s: %s\n", item->path().string().c_str(), e.description.c_str());
      failed = true;
    }
  }
}

}  // namespace

int RunCodemodelCommand(const std::filesystem::path& path, std::ostream& out) {
  Host host;
  if (!host.OpenSolution(path)) return kCannotLoad;
  auto projects = host.dte()->Solution()->Projects();
  bool failed = false;
  std::error_code ec;
  auto base = std::filesystem::current_path(ec);
  for (int i = 1; i <= projects->Count(); ++i) WriteItems(projects->Item(i)->ProjectItems(), base, out, failed);
  return failed ? kCannotLoad : kDone;
}

}  // namespace app
