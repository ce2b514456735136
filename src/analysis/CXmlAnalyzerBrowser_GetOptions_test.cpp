#include <gtest/gtest.h>

#include "analysis/AnalysisOptionsLoader.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

using namespace annotra;
using platform::Variant;
using platform::suite::IniSettingsStore;

namespace {

class OptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    store = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
    MGlobals::AppSettingsObject_HKCU = store;
  }
  void TearDown() override { MGlobals::ResetForTesting(); }

  void Set(const char* key, const Variant& value) { store->Write("CommentsAnalyzer", key, value); }
  AnalysisOptions Load(const XMLCheckBuilder& build = nullptr) {
    AnalysisOptions options;
    LoadAnalysisOptions(options, items, build);
    return options;
  }

  testsupport::TempDir dir;
  std::shared_ptr<IniSettingsStore> store;
  std::vector<std::string> items{"stale"};
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scoped{report};
};

int OpenDocAllowedError() {
  return testsupport::ErrorOf([] { ReadOpenDocAllowed(); });
}

}  // namespace

TEST_F(OptionsTest, AUserWithoutStoredKeysGetsTheDefaults) {
  Set("LastScope", 4);  // overwritten below to check that every field is read
  store->Write("CommentsAnalyzer", "LastScope", Variant());
  AnalysisOptions o = Load();
  EXPECT_EQ(o.LastScope, 0);
  EXPECT_TRUE(o.EnablePublic);
  EXPECT_TRUE(o.XMLOnPublic);
  EXPECT_TRUE(o.EnableNonPublic);
  EXPECT_FALSE(o.XMLOnNonPublic);
  EXPECT_EQ(o.XMLCheck, "");
  EXPECT_TRUE(items.empty());
  EXPECT_TRUE(o.EnableBody);
  EXPECT_EQ(o.LineCount, 15);
  EXPECT_FALSE(o.AcceptInheritDoc);
  EXPECT_TRUE(o.CompareParamTypes);
  EXPECT_FALSE(o.SkipGenerated);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(OptionsTest, StoredValuesAreReadAndNonZeroIsChecked) {
  Set("LastScope", 6);
  Set("EnablePublic", -1);
  Set("XMLOnPublic", 0);
  Set("EnableNonPublic", 0);
  Set("XMLOnNonPublic", 2);
  Set("XMLCheck", "{Class}|{Method}|param");
  Set("EnableBody", 0);
  Set("AcceptInheritDoc", 1);
  Set("CompareParamTypes", 0);
  Set("SkipGenerated", -1);
  AnalysisOptions o = Load();
  EXPECT_EQ(o.LastScope, 6);
  EXPECT_TRUE(o.EnablePublic);
  EXPECT_FALSE(o.XMLOnPublic);
  EXPECT_FALSE(o.EnableNonPublic);
  EXPECT_TRUE(o.XMLOnNonPublic);
  EXPECT_EQ(items, (std::vector<std::string>{"{Class}", "{Method}", "param"}));
  EXPECT_FALSE(o.EnableBody);
  EXPECT_TRUE(o.AcceptInheritDoc);
  EXPECT_FALSE(o.CompareParamTypes);
  EXPECT_TRUE(o.SkipGenerated);
  EXPECT_EQ(SplitXMLCheck("a||b|"), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(SplitXMLCheck("|"), (std::vector<std::string>{"", ""}));
}

TEST_F(OptionsTest, LineCountOutsideFiveToHundredOrNotANumberIs15) {
  const std::pair<Variant, int> cases[] = {{4, 15},  {5, 5},       {100, 100},  {101, 15}, {"abc", 15},
                                           {"", 15}, {40000, 15},  {"12.5", 12}, {-5, 15}};
  for (auto& [stored, expected] : cases) {
    SCOPED_TRACE(platform::ToString(stored));
    Set("LineCount", stored);
    EXPECT_EQ(Load().LineCount, expected);
    EXPECT_EQ(ReadLineCount(), expected);
  }
  EXPECT_TRUE(report->entries.empty());  // its failures are silent
}

TEST_F(OptionsTest, OpenDocAllowedFallsBackTo20OutsideOneToThirty) {
  EXPECT_EQ(ReadOpenDocAllowed(), 10);  // absent
  const std::pair<int, int> cases[] = {{0, 20}, {31, 20}, {1, 1}, {30, 30}, {-3, 20}};
  for (auto& [stored, expected] : cases) {
    store->Write("Settings", "OpenDocAllowed", stored);
    EXPECT_EQ(ReadOpenDocAllowed(), expected) << stored;
  }
  store->Write("CommentsAnalyzer", "OpenDocAllowed", 3);  // only section "Settings" counts
  store->Write("Settings", "OpenDocAllowed", "abc");
  EXPECT_EQ(OpenDocAllowedError(), 13);
  store->Write("Settings", "OpenDocAllowed", 70000);
  EXPECT_EQ(OpenDocAllowedError(), 6);
}

TEST_F(OptionsTest, AFailingReadIsReportedAndKeepsTheFieldsValue) {
  Set("EnablePublic", "abc");
  Set("XMLOnPublic", 0);
  AnalysisOptions o;
  o.EnablePublic = false;
  LoadAnalysisOptions(o, items, nullptr);
  EXPECT_FALSE(o.EnablePublic);  // kept
  EXPECT_FALSE(o.XMLOnPublic);   // the load went on
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].message, "(13) 'Type mismatch'");
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerBrowser.GetOptions");
  EXPECT_EQ(report->entries[0].line, 2);

  MGlobals::AppSettingsObject_HKCU.reset();
  report->entries.clear();
  AnalysisOptions none = Load();
  EXPECT_EQ(none.LineCount, 15);
  EXPECT_EQ(report->entries.size(), 10u);  // every read but the silent LineCount
  EXPECT_EQ(report->entries[0].message.substr(0, 4), "(91)");
}

TEST_F(OptionsTest, AnEmptyXMLCheckIsBuiltThenReadAgainAfterPendingMessages) {
  int built = 0;
  // The builder's write lands only when the host processes its messages.
  AnalysisOptions o = Load([&] {
    ++built;
    platform::forms::PostAction([&] { Set("XMLCheck", "{Enum}|{Method}|param"); });
  });
  EXPECT_EQ(built, 1);
  EXPECT_EQ(o.XMLCheck, "{Enum}|{Method}|param");
  EXPECT_EQ(items, (std::vector<std::string>{"{Enum}", "{Method}", "param"}));

  Load([&] { ++built; });  // a stored list is not built again
  EXPECT_EQ(built, 1);

  Set("XMLCheck", "");
  AnalysisOptions failed = Load([] { throw platform::Error(platform::err::kFileNotFound); });
  EXPECT_EQ(failed.XMLCheck, "");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].line, 4);
}

TEST_F(OptionsTest, GetOptionsFillsTheSharedRecord) {
  Set("LastScope", 3);
  Set("XMLCheck", "{Class}|summary");
  Set("LineCount", 101);
  CXmlAnalyzerBrowser browser;
  browser.GetOptions();
  EXPECT_EQ(MGlobals::g_AnalysisOptions.LastScope, 3);
  EXPECT_EQ(MGlobals::g_AnalysisOptions.LineCount, 15);
  EXPECT_EQ(browser.XMLCheckItems, (std::vector<std::string>{"{Class}", "summary"}));
}
