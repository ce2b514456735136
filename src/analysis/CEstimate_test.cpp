#include "analysis/CEstimate.h"

#include <gtest/gtest.h>

#include <string>

#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/automation/Window.h"
#include "platform/suite/ErrorReport.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

using namespace platform::automation;
using platform::Ref;
using testsupport::ItemAt;
using testsupport::LegacyProjectFile;
using testsupport::OpenInHost;
using testsupport::ProjectNamed;
using testsupport::SdkProjectFile;

class EstimateTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    // P: A (a folder holding B and C) and D. Folder: two SDK-style projects of three
    // items each (Q: x.cs, y.cs, z.cs; R: r.vb, Sub/s.vb). Empty: no items.
    dir.Write("P/P.csproj", LegacyProjectFile(R"(    <Compile Include="A\B.cs" />
    <Compile Include="A\C.cs" />
    <Compile Include="D.cs" />)"));
    for (const char* f : {"P/A/B.cs", "P/A/C.cs", "P/D.cs", "Q/x.cs", "Q/y.cs", "Q/z.cs"})
      dir.Write(f, "class X { }\n");
    dir.Write("Q/Q.csproj", SdkProjectFile());
    dir.Write("R/R.vbproj", SdkProjectFile());
    dir.Write("R/r.vb", "Module R\nEnd Module\n");
    dir.Write("R/Sub/s.vb", "Module S\nEnd Module\n");
    dir.Write("Empty/Empty.csproj", LegacyProjectFile(""));
    auto loaded = OpenSolution(dir.Write(
        "Estimate.slnx", testsupport::SlnxText({{"P/P.csproj"}, {"Q/Q.csproj", "Folder"},
                                                {"R/R.vbproj", "Folder"}, {"Empty/Empty.csproj"}})));
    ASSERT_TRUE(loaded.warnings.empty()) << loaded.warnings.front();
    dte = loaded.dte;
    MGlobals::DTEObject = dte;
  }
  void TearDown() override { MGlobals::ResetForTesting(); }

  int32_t Items(const std::string& project) {
    return estimate.EstimateProjectItems(ProjectNamed(dte, project)->ProjectItems());
  }

  testsupport::TempDir dir;
  Ref<DTE> dte;
  CEstimate estimate;
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
};

TEST_F(EstimateTest, ProjectItemsCountsEveryItemAFolderAndWhatItHolds) {
  EXPECT_EQ(Items("P"), 4);  // B, C, A, D
  EXPECT_EQ(Items("Q"), 3);
  EXPECT_EQ(Items("R"), 3);  // r.vb, s.vb, Sub
  // A solution folder: its projects' items, not the projects themselves.
  EXPECT_EQ(Items("Folder"), 6);
  EXPECT_EQ(Items("Empty"), 0);
  EXPECT_EQ(estimate.EstimateProjectItems(nullptr), 0);
}

TEST_F(EstimateTest, ProjectItemsCountsHiddenSubProjectsButNotForeignItems) {
  // The walk skips a hidden solution folder; the estimate does not look.
  platform::As<SolutionFolder>(ProjectNamed(dte, "Folder")->Object())->SetHidden(true);
  EXPECT_EQ(Items("Folder"), 6);
  // Items that a collection lists but that belong to another one are not counted, nor
  // what they hold.
  auto p = ProjectNamed(dte, "P");
  p->ProjectItems()->AddForeign(ItemAt(ProjectNamed(dte, "R"), "Sub"));
  ItemAt(p, "A")->ProjectItems()->AddForeign(ItemAt(ProjectNamed(dte, "Q"), "x.cs"));
  EXPECT_EQ(Items("P"), 4);
}

TEST_F(EstimateTest, OpenDocumentsCountsTheLinesOfDocumentsThatShowCodeText) {
  // 100 lines, no line break after the last.
  std::string text;
  for (int i = 1; i <= 100; ++i) text += (i == 1 ? "" : "\n") + std::string("// line ") + std::to_string(i);
  dir.Write("P/D.cs", text);
  auto shown = OpenInHost(ItemAt(ProjectNamed(dte, "P"), "D.cs"));
  // A document open in a hidden code window, and one whose window was closed: neither
  // shows code text.
  ItemAt(ProjectNamed(dte, "P"), "A/B.cs")->Open(vsViewKindCode);
  auto closed = ItemAt(ProjectNamed(dte, "Q"), "x.cs");
  closed->Open(vsViewKindCode)->Close();
  ASSERT_EQ(dte->Documents()->Count(), 3);
  EXPECT_EQ(estimate.EstimateOpenDocuments(), 99);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
  // A document of one line adds nothing; no documents give 0.
  OpenInHost(ItemAt(ProjectNamed(dte, "Q"), "y.cs"));  // "class X { }" and an empty line
  EXPECT_EQ(estimate.EstimateOpenDocuments(), 100);
  shown->Close();
  EXPECT_EQ(estimate.EstimateOpenDocuments(), 1);
}

TEST_F(EstimateTest, OpenDocumentsWithoutAnEnvironmentIsReportedAndZero) {
  MGlobals::DTEObject = nullptr;
  EXPECT_EQ(estimate.EstimateOpenDocuments(), 0);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CEstimate.EstimateOpenDocuments");
  EXPECT_EQ(report->entries[0].message.rfind("(91) '", 0), 0u) << report->entries[0].message;
}

}  // namespace
}  // namespace annotra
