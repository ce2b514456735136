// The progress the scope walk shows: one step per project item, named after the item.

#include <gtest/gtest.h>

#include "analysis/CEstimate.h"
#include "testsupport/WalkFixture.h"
#include "platform/suite/ProgressObject.h"

namespace annotra::walktest {
namespace {

TEST_F(WalkTest, EachProjectItemStepsTheProgressOnceWithItsDisplayName) {
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  const std::string searching = "Searching (press <Ctrl+C> to cancel) in ";
  // The estimate counts the 9 items of App (folders and nested items included).
  EXPECT_EQ(browser.Def("App.Forms").progressTotal, 9);
  EXPECT_EQ(browser.Def("App.Forms").progressLabel, searching + "Forms/MainForm.cs");
  EXPECT_EQ(browser.Def("App.Forms").progressDone, 2);  // MainForm.Designer.cs, MainForm.cs
  EXPECT_EQ(browser.Def("Check").progressLabel, searching + "Model.Rules.cs");
  EXPECT_EQ(browser.Def("Check").progressDone, 4);  // ... Forms, Model.Rules.cs
  EXPECT_EQ(browser.Def("Program").progressLabel, searching + "Program.cs");
  EXPECT_EQ(browser.Def("Program").progressDone, 7);  // ... Model.cs, notes.txt, Program.cs
  // The display is gone once the walk is over.
  EXPECT_FALSE(dte->StatusBar()->inProgress());
}

TEST_F(WalkTest, AWalkThatIsNotCancelledStepsOnceForEveryEstimatedItem) {
  for (const char* name : {"App", "VbLib", "Tools", "Last", "Libraries", "Inner"}) {
    RecordingBrowser walk;
    walk.BeginWalk();
    CEstimate estimate;
    int32_t n = estimate.EstimateProjectItems(P(name)->ProjectItems());
    walk.Status().InitStatus(n, "Estimating...");
    walk.FindInProject(P(name));
    EXPECT_EQ(walk.Status().progress()->done(), n) << name;
    walk.Status().ShutdownStatus();
    walk.EndWalk();
  }
}

TEST_F(WalkTest, AnItemOfAnotherLanguageStepsWithSearchingAndIsNotAnalysed) {
  browser.BeginWalk();
  browser.Status().InitStatus(5, "Estimating...");
  browser.SearchItem(Item("App", "notes.txt"));
  EXPECT_EQ(dte->StatusBar()->progressLabel(), "Searching");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 1);
  browser.SearchItem(Item("App", "Properties"));  // a folder is no code either
  EXPECT_EQ(dte->StatusBar()->progressLabel(), "Searching");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 2);
  EXPECT_TRUE(browser.calls.empty());
  // A designer file is C#: it steps with its name, and is then passed over.
  browser.SearchItem(Item("App", "Forms/MainForm.cs/MainForm.Designer.cs"));
  EXPECT_EQ(dte->StatusBar()->progressLabel(),
            "Searching (press <Ctrl+C> to cancel) in Forms/MainForm.Designer.cs");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 3);
  EXPECT_TRUE(browser.calls.empty());
  browser.SearchItem(nullptr);
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 3);
  browser.Status().ShutdownStatus();
  browser.EndWalk();
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(WalkTest, ASingleSourceFileIsNamedInTheProgressByItsFileName) {
  Load(dir.Write("Loose/One.cs", "class One { }\n"));
  browser.Walk(4);
  EXPECT_EQ(browser.Def("One").progressLabel, "Searching (press <Ctrl+C> to cancel) in One.cs");
}

}  // namespace
}  // namespace annotra::walktest
