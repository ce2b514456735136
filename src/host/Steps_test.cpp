#include "host/Steps.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/suite/ErrorReport.h"

using namespace annotra;

TEST(Steps, AFailingStepIsReportedWithSourceAndLineAndTheNextStepRuns) {
  auto report = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped(report);
  Steps step("Quillmark.CXmlAnalyzerBrowser.Find");
  int ran = 0;
  EXPECT_FALSE(step(2, [&] { throw platform::Error(91); }));
  EXPECT_TRUE(step(3, [&] { ++ran; }));
  EXPECT_FALSE(step(4, [&] { throw std::runtime_error("boom"); }));
  EXPECT_EQ(ran, 1);
  ASSERT_EQ(report->entries.size(), 2u);
  EXPECT_EQ(report->entries[0].message, "(91) 'Object variable or With block variable not set'");
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerBrowser.Find");
  EXPECT_EQ(report->entries[0].line, 2);
  EXPECT_EQ(report->entries[1].message, "(51) 'boom'");
}

TEST(Steps, QuietStepsAndPlainMessages) {
  auto report = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped(report);
  EXPECT_FALSE(Quietly([] { throw platform::Error(438); }));
  EXPECT_TRUE(report->entries.empty());
  ReportMessage("Could not load grammar file: </x/XML.GMR>");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "");
  EXPECT_EQ(report->entries[0].line, 0);
}

