#include "platform/automation/ProjectFileReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/DTE.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/MSBuildEvaluator.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/SolutionLoader.h"

namespace platform::automation {
namespace {

namespace fs = std::filesystem;

// testdata/msbuild: a repository whose projects remove and re-include sources, link a file
// through a property of the root Directory.Build.props, and reach that file from nested
// Directory.Build.props files in the two ways real repositories do.
fs::path Fixtures() { return fs::path(ANNOTRA_TESTDATA_DIR) / "msbuild"; }

// The names of `elements` and their members, depth first.
void Names(const Ref<CodeElements>& elements, std::vector<std::string>& out) {
  for (int i = 1; i <= elements->Count(); ++i) {
    auto element = elements->Item(i);
    out.push_back(element->Name());
    if (CodeElement::KindHasMembers(element->Kind())) Names(element->Members(), out);
  }
}

// The items below `items`, indented, each file with the names its code model holds, or
// "(not compiled)" when it has none.
void Dump(const Ref<ProjectItems>& items, int depth, std::string& out) {
  for (auto& item : items->items()) {
    out += std::string(depth * 2, ' ') + item->Name();
    if (item->Kind() == vsProjectItemKindPhysicalFile) {
      if (auto model = item->FileCodeModel()) {
        std::vector<std::string> names;
        Names(model->CodeElements(), names);
        std::string joined;
        for (auto& n : names) joined += (joined.empty() ? "" : " ") + n;
        out += ": " + joined;
      } else {
        out += " (not compiled)";
      }
    } else {
      out += "/";
    }
    out += "\n";
    Dump(item->ProjectItems(), depth + 1, out);
  }
}

Ref<Project> Named(const Ref<DTE>& dte, const std::string& folder) {
  auto top = dte->Solution()->Projects();
  for (auto& p : top->items())
    if (p->Name() == folder) return p->ProjectItems()->Item(1)->SubProject();
  return nullptr;
}

TEST(ProjectFileReader, RemovedSourcesHaveNoCodeModelAndLinkedFilesComeFromTheRootProps) {
  auto loaded = OpenSolution(Fixtures() / "Fixtures.slnx");
  EXPECT_TRUE(loaded.warnings.empty()) << loaded.warnings.front();
  auto tests = Named(loaded.dte, "test");
  ASSERT_TRUE(tests);
  std::string tree;
  Dump(tests->ProjectItems(), 0, tree);
  // The snapshots and the entry points are only carried (None), not compiled; the model
  // files' metadata came from an Update with a wildcard; the linked file and the
  // #if FROM_ROOT_PROPS members show that the root Directory.Build.props was imported
  // by the one in test/ through $(_DirectoryBuildPropsFile).
  EXPECT_EQ(tree,
            "entrypoints/\n"
            "  EntryPoint.cs (not compiled)\n"
            "  Helper.cs: Fixtures.Tests EntryHelper\n"
            "GuardTests.cs: Fixtures.Tests GuardTests RootSymbolsApply\n"
            "Models/\n"
            "  Order.cs: Fixtures.Tests.Models Order\n"
            "    Order.Partial.cs: Fixtures.Tests.Models Order Number\n"
            "Shared/\n"
            "  Guard.cs: Fixtures.Shared Guard NotNull\n"
            "snapshots/\n"
            "  Generator/\n"
            "    Proxy.verified.cs (not compiled)\n");
  auto linked = tests->ProjectItems()->Item("Shared")->ProjectItems()->Item("Guard.cs");
  EXPECT_EQ(fs::path(linked->FileNames(1)), Fixtures() / "src" / "Shared" / "Guard.cs");
  auto& symbols = tests->symbols().symbols;
  auto has = [&](const std::string& name) {
    return std::any_of(symbols.begin(), symbols.end(), [&](auto& s) { return s.first == name; });
  };
  EXPECT_TRUE(has("FROM_ROOT_PROPS"));
  EXPECT_TRUE(has("NET8_0"));  // the target framework the root props named for tests

  auto tool = Named(loaded.dte, "tools");
  ASSERT_TRUE(tool);
  tree.clear();
  Dump(tool->ProjectItems(), 0, tree);
  EXPECT_EQ(tree,
            "Common/\n"
            "  Guard.cs: Fixtures.Shared Guard NotNull\n"
            "Program.cs: Fixtures.Tool Program Main\n");
}

TEST(ProjectFileReader, TheBuildsDirectoryPropertiesAreThereForImportsToUse) {
  MSBuildOptions options;
  auto evaluated = EvaluateMSBuildProject(Fixtures() / "test" / "Tests" / "Tests.csproj", options);
  const auto& p = evaluated.properties;
  EXPECT_EQ(p.Get("_DirectoryBuildPropsFile"), "Directory.Build.props");
  EXPECT_EQ(fs::path(p.Get("DirectoryBuildPropsPath")), Fixtures() / "test" / "Directory.Build.props");
  EXPECT_EQ(p.Get("ImportDirectoryBuildProps"), "true");
  EXPECT_EQ(p.Get("_DirectoryBuildTargetsFile"), "Directory.Build.targets");
  EXPECT_EQ(p.Get("DirectoryBuildTargetsPath"), "");  // there is none
  EXPECT_EQ(fs::path(p.Get("SourceRoot")), Fixtures() / "");
  EXPECT_EQ(p.Get("UsingMicrosoftNETSdk"), "true");
  EXPECT_EQ(p.Get("TargetFramework"), "net8.0");
}

}  // namespace
}  // namespace platform::automation
