#include "platform/automation/ProjectItemTree.h"

#include <gtest/gtest.h>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

std::string Tree(const Ref<ProjectItems>& items, int depth = 0) {
  std::string out;
  for (auto& item : items->items()) {
    out += std::string(depth * 2, ' ') + item->Name() +
           (item->Kind() == vsProjectItemKindPhysicalFolder ? "/" : "") + "\n";
    out += Tree(item->ProjectItems(), depth + 1);
  }
  return out;
}

TEST(ProjectItemTree, FoldersNestingDuplicatesAndOrder) {
  testsupport::TempDir dir;
  for (const char* f : {"b.cs", "A.cs", "x/Z.cs", "x/y/Res.resx", "x/y/Res.Designer.cs", "x/y/Other.cs"})
    dir.Write(f, "");
  auto project = std::make_shared<Project>("P", kProjectKindCSharp, dir.path() / "P.csproj", std::weak_ptr<DTE>());
  auto e = [&](std::string display, std::string dependentUpon = "", bool folder = false) {
    return ProjectEntry{display, dir.path() / NormalizeDisplayPath(display), folder, dependentUpon, true};
  };
  auto content = e("x/Notes.txt");
  content.compiled = false;
  std::vector<LoadWarning> warnings;
  BuildProjectItems(project,
                    {e("b.cs"), e("x\\y\\Res.Designer.cs", "Res.resx"), e("x/y/Res.resx"),
                     e("x/y/Other.cs", "x/Z.cs"),  // relative to the project when not beside it
                     e("X/Z.cs"), e("x/z.cs"),     // the second spelling is a duplicate; "X"
                                                   // is not on disk, but the folder "x" is
                     e("A.cs"), e("./x/../Gone.cs"), e("Empty", "", true), e("../outside.cs"), content},
                    false, warnings);
  EXPECT_EQ(Tree(project->ProjectItems()),
            "A.cs\n"
            "b.cs\n"
            "Empty/\n"
            "Gone.cs\n"
            "x/\n"
            "  Notes.txt\n"
            "  y/\n"
            "    Res.resx\n"
            "      Res.Designer.cs\n"
            "  Z.cs\n"
            "    Other.cs\n");
  // The folder takes the spelling met first; the file keeps its own.
  // Missing compiled files lose code; a missing file the project does not compile does not.
  std::vector<std::string> texts;
  for (const auto& w : warnings)
    texts.push_back(w.text + (w.kind == LoadWarning::Kind::MissingSource ? " [source]" : ""));
  EXPECT_EQ(texts, (std::vector<std::string>{
                       "project 'P': file '" + (dir.path() / "X/Z.cs").string() + "' does not exist [source]",
                       "project 'P': file '" + (dir.path() / "Gone.cs").string() + "' does not exist [source]",
                       "project 'P': file '" + (dir.path() / "x/Notes.txt").string() + "' does not exist"}));
  auto designer = project->ProjectItems()->Item("X")->ProjectItems()->Item("y")->ProjectItems()->Item("Res.resx")
                      ->ProjectItems()->Item(1);
  EXPECT_EQ(designer->ContainingProject(), project);
  EXPECT_EQ(project->ProjectItems()->Item("X")->FileNames(1), (dir.path() / "x").string());
}

TEST(ProjectItemTree, NormalizeDisplayPath) {
  EXPECT_EQ(NormalizeDisplayPath("a\\b/./c//d.cs"), "a/b/c/d.cs");
  EXPECT_EQ(NormalizeDisplayPath("/a/../b/"), "b");
  EXPECT_EQ(NormalizeDisplayPath("../a.cs"), "");
  EXPECT_EQ(NormalizeDisplayPath("."), "");
}

}  // namespace
}  // namespace platform::automation
