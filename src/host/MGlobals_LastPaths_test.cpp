#include <gtest/gtest.h>

#include "host/MGlobals.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "testsupport/TempDir.h"

using namespace annotra;
using platform::Variant;
using platform::suite::IniSettingsStore;

namespace {

class LastPathsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::AppSettingsObject_HKCU = store;
  }
  void TearDown() override { MGlobals::ResetForTesting(); }

  testsupport::TempDir dir;
  std::shared_ptr<IniSettingsStore> store = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped{report};
};

}  // namespace

TEST_F(LastPathsTest, AFolderIsStoredEndingInASeparatorAndReadBack) {
  EXPECT_EQ(MGlobals::GetLastUsedPath("SaveRestoreXMLAnalyzer"), "");
  std::string path = "/home/me/results";
  MGlobals::SaveLastUsedPath("SaveRestoreXMLAnalyzer", path);
  EXPECT_EQ(path, "/home/me/results/");  // the caller's string gains it too
  EXPECT_EQ(MGlobals::GetLastUsedPath("SaveRestoreXMLAnalyzer"), "/home/me/results/");
  EXPECT_EQ(platform::ToString(store->Read("LastPaths", "SaveRestoreXMLAnalyzer", Variant())), "/home/me/results/");
  path = "/tmp/";
  MGlobals::SaveLastUsedPath("Other", path);
  EXPECT_EQ(MGlobals::GetLastUsedPath("Other"), "/tmp/");
  // Another type stored by hand reads as text.
  store->Write("LastPaths", "Odd", Variant(12));
  EXPECT_EQ(MGlobals::GetLastUsedPath("Odd"), "12");
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(LastPathsTest, BlankPathsAndAMissingStoreChangeNothing) {
  std::string blank = "   ";
  MGlobals::SaveLastUsedPath("SaveRestoreXMLAnalyzer", blank);
  EXPECT_EQ(blank, "   ");
  std::string empty;
  MGlobals::SaveLastUsedPath("SaveRestoreXMLAnalyzer", empty);
  EXPECT_TRUE(store->Read("LastPaths", "SaveRestoreXMLAnalyzer", Variant()).IsEmpty());

  MGlobals::AppSettingsObject_HKCU.reset();
  std::string path = "/x";
  MGlobals::SaveLastUsedPath("SaveRestoreXMLAnalyzer", path);
  EXPECT_EQ(path, "/x");
  EXPECT_EQ(MGlobals::GetLastUsedPath("SaveRestoreXMLAnalyzer"), "");
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(LastPathsTest, AStoreThatCannotBeWrittenIsReported) {
  MGlobals::AppSettingsObject_HKCU = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini", true);  // read only
  std::string path = "/x";
  MGlobals::SaveLastUsedPath("SaveRestoreXMLAnalyzer", path);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.MGlobals.SaveLastUsedPath");
  EXPECT_EQ(report->entries[0].line, 3);
}
