#include "platform/grammar/GrammarReader.h"

#include <gtest/gtest.h>

#include "testsupport/TempDir.h"

namespace platform::grammar {
namespace {

// The message GrammarReader fails on `text` with (and checks that it kept no rule).
std::string ReadError(const std::string& text) {
  Grammar g;
  std::string error;
  EXPECT_FALSE(GrammarReader::Read(text, "t.gmr", g, error)) << text;
  EXPECT_TRUE(g.rules.empty());
  return error;
}

TEST(GrammarReaderTest, ReadsRulesOfSeveralGrammarsWithQualifiedReferences) {
  Grammar g;
  std::string error;
  ASSERT_TRUE(GrammarReader::Read("# two grammars\n"
                                  "grammar A\n"
                                  "Start <- B.Word ('x' / \"y\"i)* _tail\n"
                                  "_tail <- !. \n"
                                  "grammar B\n"
                                  "Word  <- < [a-z\\-]+ > &[ ]?\n",
                                  "t.gmr", g, error))
      << error;
  ASSERT_EQ(g.rules.size(), 3u);
  EXPECT_EQ(g.FindRule("A.Start"), 0);
  EXPECT_EQ(g.FindRule("B.Word"), 2);
  EXPECT_EQ(g.FindRule("Word"), 2);  // unique without its grammar
  EXPECT_EQ(g.FindRule("A.Word"), -1);
  EXPECT_FALSE(g.rules[1].makesNode);
  EXPECT_TRUE(g.rules[0].makesNode);
  EXPECT_FALSE(g.rules[2].memoize);  // calls no rule
}

TEST(GrammarReaderTest, AmbiguousBareNameFindsNothing) {
  Grammar g;
  std::string error;
  ASSERT_TRUE(GrammarReader::Read("grammar A\nBody <- 'a'\ngrammar B\nBody <- 'b'\n", "t", g,
                                  error));
  EXPECT_EQ(g.FindRule("Body"), -1);
  EXPECT_EQ(g.FindRule("B.Body"), 1);
  EXPECT_EQ(g.rules[0].nameId, g.rules[1].nameId);
}

TEST(GrammarReaderTest, ReportsWhereTheGrammarIsWrong) {
  EXPECT_EQ(ReadError("grammar G\nA <- B\n"), "t.gmr:2:6: undefined rule 'B'");
  EXPECT_EQ(ReadError("grammar G\nA <- X.B\ngrammar X\nC <- 'c'\n"),
            "t.gmr:2:6: undefined rule 'X.B'");
  EXPECT_EQ(ReadError("grammar G\nA <- 'abc\n"), "t.gmr:2:6: unterminated literal");
  EXPECT_EQ(ReadError("grammar G\nA <- ('a' 'b'\n"), "t.gmr:3:1: expected ')'");
  EXPECT_EQ(ReadError("grammar G\nA <- < 'a'\n"), "t.gmr:3:1: expected '>' to close '<'");
  EXPECT_EQ(ReadError("grammar G\nA 'a'\n"), "t.gmr:2:3: expected '<-' after the rule name 'A'");
  EXPECT_EQ(ReadError("A <- 'a'\n"),
            "t.gmr:1:1: rule 'A' outside of a grammar; expected 'grammar Name' first");
  EXPECT_EQ(ReadError("grammar G\nA <- 'a'\nA <- 'b'\n"),
            "t.gmr:3:1: rule 'A' is defined twice in grammar 'G'");
  EXPECT_EQ(ReadError("grammar G\nA <- '\\q'\n"), "t.gmr:2:7: unknown escape '\\q'");
  EXPECT_EQ(ReadError("grammar G\nA <- [z-a]\n"), "t.gmr:2:6: class range out of order");
  EXPECT_EQ(ReadError("grammar G\nA <- [abc\n"), "t.gmr:2:6: unterminated class");
  EXPECT_EQ(ReadError("grammar G\nA <- 'a' )\n"), "t.gmr:2:10: unexpected ')'");
  EXPECT_EQ(ReadError("grammar G\nA <-\n"), "t.gmr:3:1: rule 'A' has no expression");
  EXPECT_EQ(ReadError(""), "t.gmr:1:1: no rules in the grammar file");
  EXPECT_EQ(ReadError("grammar G\ngrammar G\nA <- 'a'"), "t.gmr:2:9: grammar 'G' is declared twice");
}

TEST(GrammarReaderTest, RefusesGrammarsThatWouldNeverEnd) {
  EXPECT_EQ(ReadError("grammar G\nA <- B 'x'\nB <- 'y'? A\n"), "t.gmr:2:1: rule 'A' is left-recursive");
  EXPECT_EQ(ReadError("grammar G\nA <- A\n"), "t.gmr:2:1: rule 'A' is left-recursive");
  EXPECT_EQ(ReadError("grammar G\nA <- ('a'?)*\n"),
            "t.gmr:2:6: repetition of an expression that can match nothing");
  EXPECT_EQ(ReadError("grammar G\nA <- (!'a')+\n"),
            "t.gmr:2:6: repetition of an expression that can match nothing");
}

TEST(GrammarReaderTest, RefusesDeepNestingInsteadOfOverflowing) {
  std::string deep = "grammar G\nA <- " + std::string(5000, '(') + "'a'" + std::string(5000, ')');
  EXPECT_NE(ReadError(deep).find("nested too deeply"), std::string::npos);
}

TEST(GrammarReaderTest, LongChainsOfRulesDoNotExhaustTheStack) {
  std::string chain = "grammar G\n";
  for (int i = 0; i < 4000; ++i)
    chain += "R" + std::to_string(i) + " <- R" + std::to_string(i + 1) + " 'x'\n";
  Grammar g;
  std::string error;
  EXPECT_TRUE(GrammarReader::Read(chain + "R4000 <- 'y'\n", "t", g, error)) << error;
  EXPECT_EQ(ReadError(chain + "R4000 <- R0\n"), "t.gmr:2:1: rule 'R0' is left-recursive");
  for (int i = 4001; i < 5000; ++i) chain += "R" + std::to_string(i) + " <- 'z'\n";
  EXPECT_EQ(ReadError(chain + "R4000 <- 'y'\n"),
            "t.gmr: grammar too large (at most 4096 rules and 65536 expressions)");
}

TEST(GrammarReaderTest, MissingOrUnreadableFileIsAnError) {
  testsupport::TempDir dir;
  Grammar g;
  std::string error;
  auto missing = (dir.path() / "none.gmr").string();
  EXPECT_FALSE(GrammarReader::ReadFile(missing, g, error));
  EXPECT_EQ(error, missing + ": cannot read the grammar file");
  EXPECT_FALSE(GrammarReader::ReadFile(dir.path().string(), g, error));
  auto bad = dir.Write("bad.gmr", "grammar G\nA <- B\n").string();
  EXPECT_FALSE(GrammarReader::ReadFile(bad, g, error));
  EXPECT_EQ(error, bad + ":2:6: undefined rule 'B'");
}

TEST(GrammarReaderTest, ShippedGrammarsLoad) {
  for (const char* name : {"XML.GMR", "SC.GMR"}) {
    Grammar g;
    std::string error;
    EXPECT_TRUE(GrammarReader::ReadFile(std::string(ANNOTRA_SOURCE_DIR) + "/resources/" + name, g,
                                        error))
        << error;
  }
}

}  // namespace
}  // namespace platform::grammar
