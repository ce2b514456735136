#include "platform/suite/IniSettingsStore.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/core/Error.h"
#include "platform/suite/ErrorReport.h"
#include "testsupport/TempDir.h"

using platform::Variant;
using platform::suite::IniSettingsStore;

TEST(IniSettingsStore, ValuesComeBackWithTheTypeTheyWereStoredWith) {
  testsupport::TempDir dir;
  auto path = dir.path() / "settings.ini";
  {
    IniSettingsStore store(path);
    store.Write("CommentsAnalyzer", "LineCount", Variant(15));
    store.Write("CommentsAnalyzer", "XMLCheck", Variant("{Class}|summary\\x\nnext"));
    store.Write("Settings\\Fonts", "Bold", Variant(true));
    store.Write("Settings", "Ratio", Variant(2.5));
  }
  IniSettingsStore store(path);
  EXPECT_EQ(store.Read("CommentsAnalyzer", "LineCount", Variant()), Variant(15));
  EXPECT_EQ(store.Read("commentsanalyzer", "linecount", Variant()), Variant(15));  // any case
  EXPECT_EQ(store.Read("CommentsAnalyzer", "XMLCheck", Variant()), Variant("{Class}|summary\\x\nnext"));
  EXPECT_EQ(store.Read("Settings\\Fonts", "Bold", Variant()), Variant(true));
  EXPECT_EQ(store.Read("Settings", "Ratio", Variant()), Variant(2.5));
  EXPECT_EQ(store.Read("Settings", "Missing", Variant("dflt")), Variant("dflt"));
}

TEST(IniSettingsStore, AnUnreadableFileReadsAsEmptyWithOneWarning) {
  testsupport::TempDir dir;
  auto path = dir.Write("settings.ini", "[CommentsAnalyzer]\nLineCount=15\n");  // no type
  auto report = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped(report);
  IniSettingsStore store(path);
  EXPECT_EQ(store.Read("CommentsAnalyzer", "LineCount", Variant(7)), Variant(7));
  EXPECT_EQ(store.Read("CommentsAnalyzer", "Other", Variant(8)), Variant(8));
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_NE(report->entries[0].message.find("settings.ini"), std::string::npos);
  // Writing afterwards makes a good file again.
  store.Write("CommentsAnalyzer", "LineCount", Variant(20));
  EXPECT_EQ(IniSettingsStore(path).Read("CommentsAnalyzer", "LineCount", Variant()), Variant(20));
}

TEST(IniSettingsStore, AFailedWriteLeavesTheFileAndTheValuesAsTheyWere) {
  testsupport::TempDir dir;
  auto path = dir.path() / "settings.ini";
  IniSettingsStore store(path);
  store.Write("S", "K", Variant(1));
  // The temporary file the write goes through cannot be made: a folder stands there.
  std::filesystem::create_directory(path.string() + ".tmp" + std::to_string(getpid()));
  EXPECT_THROW(store.Write("S", "K", Variant(2)), platform::Error);
  EXPECT_EQ(store.Read("S", "K", Variant()), Variant(1));
  EXPECT_EQ(IniSettingsStore(path).Read("S", "K", Variant()), Variant(1));
}

TEST(IniSettingsStore, AReadOnlyStoreRefusesWrites) {
  testsupport::TempDir dir;
  IniSettingsStore store(dir.path() / "machine.ini", true);
  try {
    store.Write("S", "K", Variant(1));
    FAIL();
  } catch (const platform::Error& e) {
    EXPECT_EQ(e.number, 75);
  }
}
