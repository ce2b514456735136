#include "platform/suite/PlainSettingsFile.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "testsupport/TempDir.h"

namespace platform::suite {
namespace {

namespace fs = std::filesystem;

SettingsSchema Schema() {
  using T = SettingSpec::Type;
  return {{
      {"CommentsAnalyzer", "EnableBody", T::Boolean},
      {"CommentsAnalyzer", "LineCount", T::Integer, 5, 100},
      {"CommentsAnalyzer", "LastScope", T::Integer, 0, 0, {{"document", 1}, {"solution", 4}}},
      {"CommentsAnalyzer", "XMLCheck", T::Text},
      {"Settings\\Fonts", "Results", T::Integer},
      {"Annotra", "TeamDatabase", T::Path},
  }};
}

// The description of the error reading `text` gives; "" when it reads.
std::string ErrorReading(const std::string& text) {
  testsupport::TempDir dir;
  auto file = dir.Write("repo/.annotra.ini", text);
  try {
    ReadPlainSettingsFile(file, Schema());
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 5);
    std::string d = e.description;
    const std::string prefix = file.string() + ":";
    EXPECT_EQ(d.rfind(prefix, 0), 0u) << d;
    return d.substr(prefix.size());
  }
  return "";
}

TEST(PlainSettingsFile, ValuesAreTypedAsTheSchemaSays) {
  testsupport::TempDir dir;
  auto file = dir.Write("repo/sub/.annotra.ini",
                        "\xEF\xBB\xBF; the team's rules\r\n"
                        "# another comment\n"
                        "\n"
                        "[commentsanalyzer]\n"
                        "  EnableBody = FALSE  \n"
                        "LineCount=30\n"
                        "LastScope = Solution\n"
                        "XMLCheck = \" {Method}|param \"\n"
                        "[Settings\\Fonts]\n"
                        "Results = -2\n"
                        "[Annotra]\n"
                        "TeamDatabase = ../shared/team.db\n");
  auto store = ReadPlainSettingsFile(file, Schema());
  EXPECT_EQ(store->Read("CommentsAnalyzer", "EnableBody", Variant()), Variant(0));
  EXPECT_EQ(store->Read("CommentsAnalyzer", "LineCount", Variant()), Variant(30));
  EXPECT_EQ(store->Read("CommentsAnalyzer", "LastScope", Variant()), Variant(4));
  EXPECT_EQ(store->Read("CommentsAnalyzer", "XMLCheck", Variant()), Variant(" {Method}|param "));
  EXPECT_EQ(store->Read("Settings\\Fonts", "Results", Variant()), Variant(-2));
  EXPECT_EQ(store->Read("Annotra", "TeamDatabase", Variant()), Variant((dir.path() / "repo/shared/team.db").string()));
  // What the file holds cannot be changed through the store.
  EXPECT_THROW(store->Write("CommentsAnalyzer", "LineCount", Variant(40)), Error);
}

TEST(PlainSettingsFile, BooleansAndIntegersTakeTheirSpellingsOnly) {
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nEnableBody = 1\nLastScope = 1\n"), "");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nEnableBody = True\nLineCount = 5\n"), "");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nEnableBody = yes\n"),
            "2: EnableBody = yes: EnableBody takes 0, 1, true or false");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nEnableBody = 2\n"),
            "2: EnableBody = 2: EnableBody takes 0, 1, true or false");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLineCount = 101\n"),
            "2: LineCount = 101: LineCount takes a whole number from 5 to 100");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLineCount = 7.5\n"),
            "2: LineCount = 7.5: LineCount takes a whole number from 5 to 100");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLineCount =\n"),
            "2: LineCount = : LineCount takes a whole number from 5 to 100");
  EXPECT_EQ(ErrorReading("[Settings\\Fonts]\nResults = 99999999999\n"),
            "2: Results = 99999999999: Results takes a whole number");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLastScope = 5\n"),
            "2: LastScope = 5: LastScope takes one of document (1), solution (4)");
}

TEST(PlainSettingsFile, TyposAndMisplacedLinesNameTheirLine) {
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\n\nLineCont = 20\n"),
            "3: unknown key LineCont in [CommentsAnalyzer]; its keys are EnableBody, LineCount, LastScope, XMLCheck");
  EXPECT_EQ(ErrorReading("[Comments]\n"),
            "1: unknown section [Comments]; the sections are [CommentsAnalyzer], [Settings\\Fonts], [Annotra]");
  EXPECT_EQ(ErrorReading("LineCount = 20\n"), "1: LineCount stands before any [Section]");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer\n"), "1: \"[CommentsAnalyzer\" is no [Section] line");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLineCount\n"), "2: \"LineCount\" is no Key = value line");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\n= 4\n"), "2: \"= 4\" names no key");
  EXPECT_EQ(ErrorReading("[CommentsAnalyzer]\nLineCount = 20\nlinecount = 30\n"),
            "3: linecount is set a second time (first on line 2)");
  EXPECT_EQ(ErrorReading("[Annotra]\nTeamDatabase =\n"), "2: TeamDatabase names no file");
}

TEST(PlainSettingsFile, AFileThatCannotBeReadIsError75) {
  testsupport::TempDir dir;
  try {
    ReadPlainSettingsFile(dir.path() / "none.ini", Schema());
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 75);
    EXPECT_NE(e.description.find("none.ini"), std::string::npos);
  }
}

TEST(PlainSettingsFile, TheNearestFileAtOrAboveTheStartIsFound) {
  testsupport::TempDir dir;
  auto top = dir.Write("repo/.annotra.ini", "");
  auto inner = dir.Write("repo/src/inner/.annotra.ini", "");
  dir.Write("repo/src/inner/deeper/App.sln", "");
  dir.Write("repo/src/other/App.sln", "");
  EXPECT_EQ(FindFileUpwards(dir.path() / "repo/src/inner/deeper/App.sln", ".annotra.ini"), inner);
  EXPECT_EQ(FindFileUpwards(dir.path() / "repo/src/inner", ".annotra.ini"), inner);
  EXPECT_EQ(FindFileUpwards(dir.path() / "repo/src/other/App.sln", ".annotra.ini"), top);
  EXPECT_EQ(FindFileUpwards(dir.path() / "repo/src/other/", ".annotra.ini"), top);
  EXPECT_EQ(FindFileUpwards(dir.path() / "repo/src/other/App.sln", ".nonesuch.ini"), fs::path());
}

}  // namespace
}  // namespace platform::suite
