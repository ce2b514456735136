// The shipped method-text grammars (resources/SC.GMR): every comment of a method, and
// nothing inside a literal. Each testdata/grammar/{cs,vb}/NAME.{cs,vb} is parsed from
// the language's Body production and its comments, with their 0-based lines, compared
// with NAME.comments beside it. ANNOTRA_UPDATE_FIXTURES=1 writes those afresh.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/grammar/GrammarParser.h"
#include "testsupport/TempDir.h"

namespace platform::grammar {
namespace {

namespace fs = std::filesystem;

class ScGrammarTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(m_parser.LoadGrammar(std::string(ANNOTRA_SOURCE_DIR) + "/resources/SC.GMR"))
        << m_parser.LastError();
  }
  // "line: text" of every Comment node, text escaped.
  std::string Comments(const std::string& production, const std::string& text) {
    m_parser.SetStartProduction(m_parser.FindProduction(production));
    m_parser.SetInputText(text);
    EXPECT_TRUE(m_parser.Parse()) << "Body matches any method text whole";
    std::string out;
    int32_t h = m_parser.StartSearch("/.*Comment", 0);
    if (!h) return out;
    EXPECT_EQ(m_parser.LineOfPosition(m_parser.Position(h)), 0);
    for (int32_t n = m_parser.NextMatch(h); n; n = m_parser.NextMatch(h)) {
      std::string t;
      for (char c : m_parser.NodeText(n)) t += c == '\r' ? std::string("\\r") : c == '\n' ? std::string("\\n") : std::string(1, c);
      out += std::to_string(m_parser.LineOfPosition(m_parser.Position(n))) + ": " + t + "\n";
    }
    m_parser.EndSearch(h);
    return out;
  }
  void CheckFixtures(const std::string& folder, const std::string& production) {
    bool update = std::getenv("ANNOTRA_UPDATE_FIXTURES") != nullptr;
    int seen = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(ANNOTRA_TESTDATA_DIR) / "grammar" / folder)) {
      if (entry.path().extension() == ".comments") continue;
      ++seen;
      std::string actual = Comments(production, testsupport::ReadFile(entry.path()));
      auto expectedPath = fs::path(entry.path()).replace_extension(".comments");
      if (update) std::ofstream(expectedPath, std::ios::binary) << actual;
      EXPECT_EQ(actual, testsupport::ReadFile(expectedPath)) << entry.path();
    }
    EXPECT_GT(seen, 0);
  }
  GrammarParser m_parser;
};

TEST_F(ScGrammarTest, CSharpFixtures) { CheckFixtures("cs", "CsCommStr.Body"); }
TEST_F(ScGrammarTest, VisualBasicFixtures) { CheckFixtures("vb", "VbCommStr.Body"); }

TEST_F(ScGrammarTest, CSharpLiteralsHideCommentMarkers) {
  for (const char* text : {
           "x = \"//\";", "x = \"/*\";", "x = @\"a\\\" + \"//\";", "x = @\"a\"\"//\"\"\";",
           "x = '/' + '/';", "x = $\"{a}//{b}\";", "x = $@\"{a}\r\n//\";",
           "x = \"\"\"\r\n// raw\r\n\"\"\";", "x = $$\"\"\"{{a}} /* */\"\"\";",
           "x = \"\"\"\"a \"\"\" //\"\"\"\";", "x = $\"{F(\"//\")}\";", "x = '\\'' + \"//\";",
           "x = u8\"//\"u8;"}) {
    EXPECT_EQ(Comments("CsCommStr.Body", text), "") << text;
  }
}

TEST_F(ScGrammarTest, VisualBasicLiteralsHideCommentMarkers) {
  for (const char* text : {"x = \"'\"", "x = \"a\"\"'\"\"b\"", "x = $\"{a}'{b}\"",
                           "x = $\"{F(\"'\")}\"", "x = [Rem] + y.Rem", "Dim Premium = 1",
                           "x = \"a\r\n' inside\"", "x = \xE2\x80\x9C'\xE2\x80\x9D"}) {
    EXPECT_EQ(Comments("VbCommStr.Body", text), "") << text;
  }
}

TEST_F(ScGrammarTest, AppendedMarkerCommentClosesTheMethod) {
  EXPECT_EQ(Comments("CsCommStr.Body", "void M()\r\n{\r\n}\r\n//comment\r\n"), "3: //comment\n");
  EXPECT_EQ(Comments("VbCommStr.Body", "Sub M()\r\nEnd Sub\r\n'comment\r\n"), "2: 'comment\n");
  // An unterminated literal ends at its line, so the marker is still found.
  EXPECT_EQ(Comments("CsCommStr.Body", "x = \"open\r\n//comment\r\n"), "1: //comment\n");
  EXPECT_EQ(Comments("CsCommStr.Body", "x = 'a\r\n//comment\r\n"), "1: //comment\n");
}

TEST_F(ScGrammarTest, RemNeedsAWordOfItsOwn) {
  EXPECT_EQ(Comments("VbCommStr.Body", "REM\r\nrem x\r\nReminder = 1\r\nx = 1 : Rem y"),
            "0: REM\n1: rem x\n3: Rem y\n");
}

TEST_F(ScGrammarTest, LargeMethodParsesWhole) {
  std::string text = "void M()\r\n{\r\n";
  for (int i = 0; i < 20000; ++i) text += "    x = \"a\" + 'b'; // c\r\n";
  text += "}\r\n//comment\r\n";
  std::string out = Comments("CsCommStr.Body", text);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 20001);
}

}  // namespace
}  // namespace platform::grammar
