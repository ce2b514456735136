#include "platform/grammar/GrammarParser.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "testsupport/TempDir.h"

namespace platform::grammar {
namespace {

class GrammarParserTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto path = m_dir.Write("t.gmr",
                            "grammar Lines\n"
                            "text  <- (line / _nl)*\n"
                            "line  <- word ([ ]+ word)*\n"
                            "word  <- [a-z]+\n"
                            "_nl   <- '\\r\\n' / '\\n' / '\\r'\n"
                            "grammar Other\n"
                            "words <- (Lines.word / ' ')*\n");
    ASSERT_TRUE(m_parser.LoadGrammar(path.string())) << m_parser.LastError();
  }
  testsupport::TempDir m_dir;
  GrammarParser m_parser;
};

TEST_F(GrammarParserTest, SearchHandlesGiveMatchesInOrder) {
  m_parser.SetInputText("ab cd\nef");
  EXPECT_TRUE(m_parser.Parse());
  int32_t h = m_parser.StartSearch("/.*word", 0);
  ASSERT_NE(h, 0);
  std::string seen;
  for (int32_t n = m_parser.NextMatch(h); n; n = m_parser.NextMatch(h))
    seen += m_parser.NodeName(n) + "=" + m_parser.NodeText(n) + " ";
  EXPECT_EQ(seen, "word=ab word=cd word=ef ");
  EXPECT_EQ(m_parser.NextMatch(h), 0);
  int32_t first = m_parser.FirstMatch(h);
  EXPECT_EQ(m_parser.NodeText(first), "ab");
  EXPECT_EQ(m_parser.NodeText(m_parser.NextMatch(h)), "cd");  // FirstMatch rewinds
  m_parser.EndSearch(h);
  EXPECT_EQ(m_parser.NextMatch(h), 0);
  EXPECT_EQ(m_parser.StartSearch("/.*word=\"zz\"", 0), 0);
}

TEST_F(GrammarParserTest, TreeNavigation) {
  m_parser.SetInputText("ab cd\nef");
  m_parser.Parse();
  int32_t cd = m_parser.SearchBelow(0, ".*word=\"cd\"");
  ASSERT_NE(cd, 0);
  int32_t line = m_parser.ParentNode(cd);
  EXPECT_EQ(m_parser.NodeName(line), "line");
  EXPECT_EQ(m_parser.NodeText(line), "ab cd");
  EXPECT_EQ(m_parser.NextSibling(line), m_parser.SearchBelow(0, "/text/line=\"ef\""));
  EXPECT_EQ(m_parser.NextSibling(cd), 0);
  EXPECT_EQ(m_parser.SearchBelow(line, "word"), m_parser.FirstChild(line));
  EXPECT_EQ(m_parser.ParentNode(m_parser.ParentNode(line)), 0);
  // Unknown ids answer with nothing.
  for (int32_t bad : {0, -5, 9999, GrammarParser::kHandleBase + 77}) {
    EXPECT_EQ(m_parser.NodeText(bad), "");
    EXPECT_EQ(m_parser.NodeName(bad), "");
    EXPECT_EQ(m_parser.ParentNode(bad), 0);
    EXPECT_EQ(m_parser.NextSibling(bad), 0);
    EXPECT_EQ(m_parser.Position(bad), 0);
    if (bad != 0) {  // 0 is the whole tree
      EXPECT_EQ(m_parser.SearchBelow(bad, "word"), 0);
    }
  }
}

TEST_F(GrammarParserTest, PositionsAndZeroBasedLines) {
  m_parser.SetInputText("ab\r\ncd\ref\n\ngh");
  m_parser.Parse();
  int32_t h = m_parser.StartSearch("/.*word", 0);
  EXPECT_EQ(m_parser.Position(h), 0);  // the search's start: the whole text
  EXPECT_EQ(m_parser.LineOfPosition(m_parser.Position(h)), 0);
  std::vector<int32_t> lines;
  for (int32_t n = m_parser.NextMatch(h); n; n = m_parser.NextMatch(h))
    lines.push_back(m_parser.LineOfPosition(m_parser.Position(n)));
  EXPECT_EQ(lines, (std::vector<int32_t>{0, 1, 2, 4}));
  int32_t below = m_parser.StartSearch("word", m_parser.SearchBelow(0, "/text/line=\"cd\""));
  EXPECT_EQ(m_parser.Position(below), 4);
  EXPECT_EQ(m_parser.LineOfPosition(-3), 0);
  EXPECT_EQ(m_parser.LineOfPosition(1000), 4);
}

TEST_F(GrammarParserTest, StartProductionByQualifiedName) {
  int32_t words = m_parser.FindProduction("Other.words");
  ASSERT_NE(words, 0);
  EXPECT_EQ(m_parser.FindProduction("Other.nothing"), 0);
  EXPECT_EQ(m_parser.FindProduction("word"), m_parser.FindProduction("Lines.word"));
  m_parser.SetStartProduction(words);
  m_parser.SetInputText("ab cd");
  EXPECT_TRUE(m_parser.Parse());
  EXPECT_EQ(m_parser.NodeName(1), "words");
  EXPECT_THROW(m_parser.SetStartProduction(0), platform::Error);
  EXPECT_THROW(m_parser.SetStartProduction(999), platform::Error);
}

TEST_F(GrammarParserTest, NewInputForgetsTreeAndSearches) {
  m_parser.SetInputText("ab");
  m_parser.Parse();
  int32_t h = m_parser.StartSearch("/.*word", 0);
  ASSERT_NE(h, 0);
  m_parser.SetInputText("cd");
  EXPECT_EQ(m_parser.NextMatch(h), 0);
  EXPECT_EQ(m_parser.NodeCount(), 0);
  EXPECT_EQ(m_parser.StartSearch("/.*word", 0), 0);  // not parsed yet
}

TEST_F(GrammarParserTest, BadPatternIsAnInvalidCall) {
  m_parser.SetInputText("ab");
  m_parser.Parse();
  try {
    m_parser.StartSearch("/a//b", 0);
    FAIL();
  } catch (const platform::Error& e) {
    EXPECT_EQ(e.number, err::kInvalidCall);
  }
}

TEST(GrammarParserLoadTest, FailedLoadSaysWhereAndLeavesNoGrammar) {
  testsupport::TempDir dir;
  GrammarParser parser;
  auto good = dir.Write("good.gmr", "grammar G\nA <- 'a'\n");
  ASSERT_TRUE(parser.LoadGrammar(good.string()));
  auto bad = dir.Write("bad.gmr", "grammar G\nA <- 'a\n");
  EXPECT_FALSE(parser.LoadGrammar(bad.string()));
  EXPECT_EQ(parser.LastError(), bad.string() + ":2:6: unterminated literal");
  EXPECT_FALSE(parser.HasGrammar());
  parser.SetInputText("a");
  EXPECT_FALSE(parser.Parse());
  EXPECT_FALSE(parser.LoadGrammar((dir.path() / "missing.gmr").string()));
  EXPECT_NE(parser.LastError().find("cannot read"), std::string::npos);
  EXPECT_EQ(parser.FindProduction("G.A"), 0);
}

}  // namespace
}  // namespace platform::grammar
