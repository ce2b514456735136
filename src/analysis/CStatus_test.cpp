#include "analysis/CStatus.h"

#include <gtest/gtest.h>

#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/DTE.h"
#include "platform/automation/StatusBar.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/ProgressObject.h"

namespace annotra {
namespace {

using platform::Ref;

class StatusTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    MGlobals::DTEObject = dte;
    bar()->SetDrawProgress(false);
  }
  void TearDown() override { MGlobals::ResetForTesting(); }
  Ref<platform::automation::StatusBar> bar() { return dte->StatusBar(); }

  Ref<platform::automation::DTE> dte = std::make_shared<platform::automation::DTE>();
  CStatus status;
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
};

TEST_F(StatusTest, ADisplayStartsStepsAndEnds) {
  status.InitStatus(3, "Estimating...");
  EXPECT_TRUE(bar()->inProgress());
  EXPECT_EQ(bar()->progressLabel(), "Estimating...");
  EXPECT_EQ(bar()->progressAmount(), 0);
  EXPECT_EQ(bar()->progressTotal(), 3);
  status.IncrementStatus(1, "Searching");
  status.IncrementStatus(1, "Searching (press <Ctrl+C> to cancel) in A.cs");
  EXPECT_EQ(bar()->progressLabel(), "Searching (press <Ctrl+C> to cancel) in A.cs");
  EXPECT_EQ(bar()->progressAmount(), 2);
  // Text goes to the status bar and leaves the progress as it is.
  status.SetText("Loading");
  EXPECT_EQ(bar()->Text(), "Loading");
  EXPECT_EQ(bar()->progressAmount(), 2);
  // Stepping past the estimate keeps the bar full.
  status.IncrementStatus(5, "more");
  EXPECT_EQ(bar()->progressAmount(), 3);
  EXPECT_EQ(status.progress()->done(), 7);
  status.ShutdownStatus();
  EXPECT_FALSE(bar()->inProgress());
  EXPECT_EQ(status.progress(), nullptr);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(StatusTest, ANegativeMaximumStartsAtZero) {
  status.InitStatus(-5, "x");
  ASSERT_TRUE(status.progress());
  EXPECT_EQ(status.progress()->maximum(), 0);
  EXPECT_TRUE(bar()->inProgress());
  EXPECT_EQ(bar()->progressTotal(), 0);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(StatusTest, ANewDisplayReplacesTheOneShown) {
  status.InitStatus(10, "first");
  status.IncrementStatus(4, "first");
  auto first = status.progress();
  status.InitStatus(2, "second");
  EXPECT_NE(status.progress(), first);
  EXPECT_EQ(bar()->progressLabel(), "second");
  EXPECT_EQ(bar()->progressAmount(), 0);
  EXPECT_EQ(bar()->progressTotal(), 2);
}

TEST_F(StatusTest, WithoutADisplayStepAndShutdownDoNothingButSetTextIsReported) {
  status.IncrementStatus(1, "Searching");
  status.ShutdownStatus();
  EXPECT_FALSE(bar()->inProgress());
  EXPECT_TRUE(report->entries.empty());
  status.SetText("text");
  EXPECT_EQ(bar()->Text(), "");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CStatus.SetText");
  EXPECT_EQ(report->entries[0].line, 1);
  EXPECT_EQ(report->entries[0].message.rfind("(91) '", 0), 0u) << report->entries[0].message;

  // After a display ended, the same.
  report->entries.clear();
  status.InitStatus(1, "");
  status.ShutdownStatus();
  status.IncrementStatus(1, "Searching");
  status.ShutdownStatus();
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(StatusTest, WithoutAnEnvironmentEveryUseIsReportedAndNothingBreaks) {
  MGlobals::DTEObject = nullptr;
  status.InitStatus(3, "Estimating...");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CStatus.InitStatus");
  EXPECT_EQ(report->entries[0].line, 2);
  status.IncrementStatus(1, "Searching");
  EXPECT_EQ(report->entries.back().source, "Quillmark.CStatus.IncrementStatus");
  status.ShutdownStatus();
  EXPECT_EQ(status.progress(), nullptr);
}

}  // namespace
}  // namespace annotra
