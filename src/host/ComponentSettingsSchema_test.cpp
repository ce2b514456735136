#include "host/ComponentSettingsSchema.h"

#include <gtest/gtest.h>

#include "host/SettingsKeys.h"
#include "platform/core/Error.h"
#include "platform/suite/PlainSettingsFile.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

using platform::Variant;

TEST(ComponentSettingsSchema, ARepositoryFileSetsEveryOptionOfTheAnalysis) {
  testsupport::TempDir dir;
  auto file = dir.Write("repo/.annotra.ini",
                        "[CommentsAnalyzer]\n"
                        "LastScope = folder\n"
                        "EnablePublic = 1\nXMLOnPublic = true\nEnableNonPublic = 0\nXMLOnNonPublic = false\n"
                        "XMLCheck = {Method}|summary\n"
                        "EnableBody = 1\nLineCount = 25\n"
                        "AcceptInheritDoc = 1\nCompareParamTypes = 0\nSkipGenerated = 1\n"
                        "[Settings]\nOpenDocAllowed = 30\n"
                        "[Annotra]\nTeamDatabase = tools/team.db\n");
  auto store = platform::suite::ReadPlainSettingsFile(file, ComponentSettingsSchema());
  auto read = [&](const char* section, const char* key) { return store->Read(section, key, Variant("absent")); };
  EXPECT_EQ(read(section::CommentsAnalyzer, key::LastScope), Variant(6));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::EnableNonPublic), Variant(0));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::XMLOnPublic), Variant(1));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::XMLCheck), Variant("{Method}|summary"));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::LineCount), Variant(25));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::AcceptInheritDoc), Variant(1));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::CompareParamTypes), Variant(0));
  EXPECT_EQ(read(section::CommentsAnalyzer, key::SkipGenerated), Variant(1));
  EXPECT_EQ(read(section::Settings, key::OpenDocAllowed), Variant(30));
  EXPECT_EQ(read(section::Annotra, key::TeamDatabase), Variant((dir.path() / "repo/tools/team.db").string()));
}

TEST(ComponentSettingsSchema, ValuesTheAnalysisWouldQuietlyReplaceAreRefused) {
  testsupport::TempDir dir;
  auto refused = [&](const std::string& text) {
    try {
      platform::suite::ReadPlainSettingsFile(dir.Write(".annotra.ini", text), ComponentSettingsSchema());
    } catch (const platform::Error& e) {
      return e.description.substr(e.description.rfind(".ini:") + 5);
    }
    return std::string("read");
  };
  EXPECT_EQ(refused("[CommentsAnalyzer]\nLineCount = 4\n"), "2: LineCount = 4: LineCount takes a whole number from 5 to 100");
  EXPECT_EQ(refused("[Settings]\nOpenDocAllowed = 31\n"),
            "2: OpenDocAllowed = 31: OpenDocAllowed takes a whole number from 1 to 30");
  EXPECT_EQ(refused("[CommentsAnalyzer]\nLastScope = 5\n"),
            "2: LastScope = 5: LastScope takes one of method (0), document (1), open (2), project (3), "
            "solution (4), folder (6)");
  EXPECT_EQ(refused("[CommentsAnalyzer]\nSkipGenerate = 1\n").substr(0, 42), "2: unknown key SkipGenerate in [CommentsAn");
}

}  // namespace
}  // namespace annotra
