#include <gtest/gtest.h>

#include "host/MGlobals.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "testsupport/TempDir.h"

using namespace annotra;
using platform::Variant;
using platform::suite::IniSettingsStore;

namespace {

class CheckBoxDataTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    store = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
    MGlobals::AppSettingsObject_HKCU = store;
  }
  void TearDown() override { MGlobals::ResetForTesting(); }

  testsupport::TempDir dir;
  std::shared_ptr<IniSettingsStore> store;
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped{report};
};

}  // namespace

TEST_F(CheckBoxDataTest, AnyNonZeroValueReadsAsCheckedAndDefaultsApply) {
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnablePublic", 1), 1);
  EXPECT_EQ(MGlobals::GetCheckBoxData("XMLOnNonPublic", 0), 0);
  store->Write("CommentsAnalyzer", "EnablePublic", -1);
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnablePublic", 0), 1);
  store->Write("CommentsAnalyzer", "EnablePublic", 2);
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnablePublic", 0), 1);
  store->Write("CommentsAnalyzer", "EnablePublic", 0);
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnablePublic", 1), 0);
  store->Write("Settings", "EnableBody", 1);  // another section is not read
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnableBody", 0), 0);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(CheckBoxDataTest, ACheckedBoxIsStoredAs1AndAnyOtherValueAs0) {
  MGlobals::SetCheckBoxData("EnablePublic", 1);
  EXPECT_EQ(store->Read("CommentsAnalyzer", "EnablePublic", Variant()), Variant(1));
  MGlobals::SetCheckBoxData("EnablePublic", 2);  // grayed
  EXPECT_EQ(store->Read("CommentsAnalyzer", "EnablePublic", Variant()), Variant(0));
  MGlobals::SetCheckBoxData("EnablePublic", -1);
  EXPECT_EQ(store->Read("CommentsAnalyzer", "EnablePublic", Variant()), Variant(0));

  // -1 read back as checked and written back as 1.
  store->Write("CommentsAnalyzer", "XMLOnPublic", -1);
  MGlobals::SetCheckBoxData("XMLOnPublic", MGlobals::GetCheckBoxData("XMLOnPublic", 0));
  EXPECT_EQ(IniSettingsStore(dir.path() / "settings.ini").Read("CommentsAnalyzer", "XMLOnPublic", Variant()),
            Variant(1));
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(CheckBoxDataTest, FailuresAreReportedAndGiveUnchecked) {
  store->Write("CommentsAnalyzer", "EnableBody", "abc");
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnableBody", 1), 0);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].message, "(13) 'Type mismatch'");
  EXPECT_EQ(report->entries[0].source, "Quillmark.MGlobals.GetCheckBoxData");

  MGlobals::AppSettingsObject_HKCU = std::make_shared<IniSettingsStore>(dir.path() / "ro.ini", true);
  MGlobals::SetCheckBoxData("EnableBody", 1);
  ASSERT_EQ(report->entries.size(), 2u);
  EXPECT_EQ(report->entries[1].source, "Quillmark.MGlobals.SetCheckBoxData");
  EXPECT_EQ(report->entries[1].message.substr(0, 4), "(75)");

  MGlobals::AppSettingsObject_HKCU.reset();
  EXPECT_EQ(MGlobals::GetCheckBoxData("EnableBody", 1), 0);
  EXPECT_EQ(report->entries.back().message.substr(0, 4), "(91)");
}
