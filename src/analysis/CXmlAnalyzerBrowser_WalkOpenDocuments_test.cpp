// The documents the scope walk has to open itself, how many it keeps open, and that it
// closes them again.

#include <gtest/gtest.h>

#include "testsupport/WalkFixture.h"

namespace annotra::walktest {
namespace {

class OpenDocumentsTest : public WalkTest {
 protected:
  void SetUp() override {
    WalkTest::SetUp();
    // Files without code elements (a1, c1, e1) have to be opened to be walked.
    dir.Write("Docs/Docs.csproj", LegacyProjectFile(R"(    <Compile Include="a1.cs" />
    <Compile Include="b1.cs" />
    <Compile Include="c1.cs" />
    <Compile Include="d1.cs" />
    <Compile Include="e1.cs" />
    <Compile Include="f1.cs" />)"));
    for (const char* name : {"a1", "c1", "e1"})
      dir.Write(std::string("Docs/") + name + ".cs", "// nothing declared here\n");
    for (const char* name : {"b1", "d1", "f1"})
      dir.Write(std::string("Docs/") + name + ".cs", std::string("class ") + name + " { }\n");
    Load(dir.Write("Docs.sln", SlnText({{"Docs/Docs.csproj"}})));
    dte->SetSelectedProjects({P("Docs")});
  }
  /// The environment's open documents at the definition checks of b1, d1 and f1.
  std::vector<int> OpenAtEachClass() {
    std::vector<int> out;
    for (const auto& c : browser.calls) out.push_back(c.openDocuments);
    return out;
  }
};

TEST_F(OpenDocumentsTest, TheWalkKeepsWhatItOpensUpToTheLimitAndClosesEverythingAtTheEnd) {
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 10;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), (Lines{"b1.cs:b1", "d1.cs:d1", "f1.cs:f1"}));
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
}

TEST_F(OpenDocumentsTest, WithOneAllowedEachOpenedDocumentIsClosedRightAfterItsItem) {
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 1;
  browser.Walk(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(OpenDocumentsTest, OnceTheLimitIsReachedTheListIsClosedAfterEveryItem) {
  // The list of opened documents is never emptied, so after a1 and c1 reached 2 even
  // the one document e1 opens is closed right after it.
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 2;
  browser.BeginWalk();
  browser.WalkScope(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
  EXPECT_EQ(MGlobals::OpenedDocuments->size(), 3u);
  browser.EndWalk();
  EXPECT_EQ(MGlobals::OpenedDocuments, nullptr);
}

TEST_F(OpenDocumentsTest, DocumentsTheHostOpenedStayOpen) {
  auto c1 = OpenInHost(ItemAt(P("Docs"), "c1.cs"));
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 1;
  browser.Walk(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 1, 1}));
  ASSERT_EQ(dte->Documents()->Count(), 1);
  EXPECT_EQ(dte->Documents()->Item(1), c1);
}

}  // namespace
}  // namespace annotra::walktest
