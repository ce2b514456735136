// What the scope walk passes over: designer and assembly information files, items of
// other projects, hidden solution folders.

#include <gtest/gtest.h>

#include "analysis/CEstimate.h"
#include "testsupport/WalkFixture.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace annotra::walktest {
namespace {

TEST_F(WalkTest, DesignerAndAssemblyInformationFilesAreNeverAnalysed) {
  struct Case {
    const char* name;
    bool processed;
  } cases[] = {
      {"Form1.Designer.vb", false},   {"MainForm.Designer.cs", false},
      {"Settings.DESIGNER.cs", false}, {"a.designer.x.vb", false},
      {"AssemblyInfo.cs", false},      {"ASSEMBLYINFO.VB", false},
      {"assemblyinfo.vb", false},      {"MyAssemblyInfo.cs", true},
      {"AssemblyInfo.cs.bak", true},   {"Designer.cs", true},
      {"Form1.vb", true},
  };
  for (const auto& c : cases) {
    auto document = Document::FromText(c.name, "", platform::codemodel::vsCMLanguageCSharp);
    EXPECT_EQ(browser.CanProcessDocument(document), c.processed) << c.name;
  }
  EXPECT_FALSE(browser.CanProcessDocument(nullptr));

  // In every scope: the designer file as the active document, in a method.
  auto designer = OpenInHost(Item("App", "Forms/MainForm.cs/MainForm.Designer.cs"), true,
                             5 /* private void Designed() */);
  auto assemblyInfo = OpenInHost(Item("VbLib", "My Project/ASSEMBLYINFO.VB"));
  for (int scope : {0, 1, 2}) browser.Walk(scope);
  EXPECT_TRUE(browser.calls.empty());
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(WalkTest, ItemsListedInACollectionThatIsNotTheirsAreSkipped) {
  // Cli.cs of Tools shown a second time at the end of App's top level, and Helper.cs in
  // App's folder Forms.
  P("App")->ProjectItems()->AddForeign(Item("Tools", "Cli.cs"));
  Item("App", "Forms")->ProjectItems()->AddForeign(Item("Tools", "Sub/Helper.cs"));
  dte->SetSelectedProjects({P("App")});
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), kApp);
  CEstimate estimate;
  EXPECT_EQ(estimate.EstimateProjectItems(P("App")->ProjectItems()), 9);
}

TEST_F(WalkTest, HiddenSolutionFoldersAreSkippedWithEverythingInThem) {
  MGlobals::g_AnalysisOptions.EnableBody = false;
  EXPECT_TRUE(browser.CanProcessProject(P("Inner")));
  HideFolder("Inner");
  EXPECT_FALSE(browser.CanProcessProject(P("Inner")));
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), Concat({kApp, kVbLib, kLast}));

  browser.calls.clear();
  HideFolder("Libraries");
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), Concat({kApp, kLast}));
}

TEST_F(WalkTest, ProjectsTheHelperRejectsAreWalkedUnlessTheyAreHiddenSolutionFolders) {
  // The project test accepts C# and VB projects and web sites; solution folders and
  // projects of other languages only pass because they are no hidden solution folders.
  EXPECT_TRUE(browser.CanProcessProject(P("App")));
  EXPECT_TRUE(browser.CanProcessProject(P("Libraries")));
  EXPECT_FALSE(browser.CanProcessProject(nullptr));
  dir.Write("Fs/Fs.fsproj", SdkProjectFile());
  dir.Write("Fs/Lib.fs", "module Lib\n");
  dir.Write("Site/Default.aspx.cs", "public partial class Default { }\n");
  namespace type = testsupport::project_type;
  auto other = dir.Write("Other.sln", SlnText({{"Fs/Fs.fsproj", "", type::kFSharp},
                                               {"Site/", "", type::kWebSite},
                                               {"App/App.csproj"}}));
  auto loaded = OpenSolution(other);
  dte = loaded.dte;
  MGlobals::DTEObject = dte;
  EXPECT_TRUE(browser.CanProcessProject(P("Fs")));
  EXPECT_TRUE(browser.CanProcessProject(P("Site")));
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  Lines expected = {"Default.aspx.cs:Default"};
  expected.insert(expected.end(), kApp.begin(), kApp.end());
  EXPECT_EQ(browser.Trace(), expected);
  // A web site's item is named in the progress relative to the site's folder.
  EXPECT_EQ(browser.Def("Default").progressLabel,
            "Searching (press <Ctrl+C> to cancel) in Default.aspx.cs");
}

}  // namespace
}  // namespace annotra::walktest
