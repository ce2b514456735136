// The order of the scope walk: projects, items, elements and their members; where the
// body check comes; which elements count as public.

#include <gtest/gtest.h>

#include <algorithm>

#include "testsupport/WalkFixture.h"

namespace annotra::walktest {
namespace {

class WalkOrderTest : public WalkTest, public ::testing::WithParamInterface<bool> {};

TEST_P(WalkOrderTest, TheWholeSolutionIsWalkedProjectByProjectDepthFirstAndPreOrder) {
  if (GetParam()) Load(WriteSlnx(dir));
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  // The projects of the solution in index order, those of solution folders where the
  // folder stands (a folder's items are in name order: Inner before VbLib); within a
  // project nested items before their parent; within a file every element before its
  // members, members in source order.
  EXPECT_EQ(browser.Trace(), Concat({kApp, kTools, kVbLib, kLast}));
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
  EXPECT_FALSE(browser.Cancelled());
}

INSTANTIATE_TEST_SUITE_P(SlnAndSlnx, WalkOrderTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "slnx" : "sln"; });

TEST_F(WalkTest, MethodsGetTheBodyCheckAfterTheirDefinitionExceptInitializeComponent) {
  MGlobals::g_AnalysisOptions.EnableBody = true;
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  Lines trace = browser.Trace();
  auto at = [&](const std::string& s) {
    return std::find(trace.begin(), trace.end(), s) - trace.begin();
  };
  // A constructor is a function and gets its body checked right after its definition.
  EXPECT_EQ(at("body MainForm.cs:MainForm"), at("MainForm.cs:InitializeComponent") - 1);
  // "InitializeComponent" (exact case) is passed over; other spellings are not.
  EXPECT_EQ(std::count(trace.begin(), trace.end(), "body MainForm.cs:InitializeComponent"), 0);
  EXPECT_EQ(at("body MainForm.cs:initializeComponent"), at("MainForm.cs:initializeComponent") + 1);
  // Fields, classes and namespaces get no body check.
  for (const char* none : {"body Program.cs:count", "body Program.cs:Program", "body Model.cs:App"})
    EXPECT_EQ(std::count(trace.begin(), trace.end(), none), 0) << none;
  EXPECT_EQ(at("body Program.cs:Main"), at("Program.cs:Main") + 1);
  EXPECT_EQ(at("body Model.cs:Run"), at("Model.cs:Run") + 1);

  browser.calls.clear();
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), kApp);
}

TEST_F(WalkTest, ParentPublicIsTheElementAndEveryEnclosingElementPublic) {
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  // Namespaces have no access and count as public.
  EXPECT_TRUE(browser.Def("App.Forms").parentPublic);
  EXPECT_TRUE(browser.Def("Model.cs:Model").parentPublic);
  // The same partial class without a modifier in Model.Rules.cs is internal.
  EXPECT_FALSE(browser.Def("Model.Rules.cs:Model").parentPublic);
  EXPECT_TRUE(browser.Def("Id").parentPublic);
  EXPECT_FALSE(browser.Def("Secret").parentPublic);
  // A public class nested in a private one, and its public method, are not public.
  EXPECT_FALSE(browser.Def("Deep").parentPublic);
  EXPECT_FALSE(browser.Def("Run").parentPublic);
  EXPECT_TRUE(browser.Def("Open").parentPublic);
  // Defaults: a class member without a modifier is private.
  EXPECT_FALSE(browser.Def("Check").parentPublic);
  EXPECT_FALSE(browser.Def("count").parentPublic);
  EXPECT_FALSE(browser.Def("InitializeComponent").parentPublic);
  EXPECT_TRUE(browser.Def("initializeComponent").parentPublic);
}

}  // namespace
}  // namespace annotra::walktest
