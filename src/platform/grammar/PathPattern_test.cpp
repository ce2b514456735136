#include "platform/grammar/PathPattern.h"

#include <gtest/gtest.h>

#include "platform/grammar/GrammarReader.h"
#include "platform/grammar/PegMatcher.h"

namespace platform::grammar {
namespace {

// a(b(c) b(x(c)) c)
class PathPatternTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string error;
    ASSERT_TRUE(GrammarReader::Read("grammar G\n"
                                    "a <- '(' (b / c)* ')'\n"
                                    "b <- '[' (x / c)* ']'\n"
                                    "x <- '{' c* '}'\n"
                                    "c <- < [a-z]+ >\n",
                                    "t", m_g, error))
        << error;
    PegMatcher m(m_g);
    m_text = "([p][{q}]r)";
    ASSERT_TRUE(m.Parse(m_text, 0, m_tree));
  }

  // The ids the pattern selects below `start`, as names with texts.
  std::string Select(const std::string& pattern, int32_t start = 0) {
    PathPattern p;
    std::string error;
    EXPECT_TRUE(PathPattern::Compile(pattern, m_g, p, error)) << error;
    std::string out;
    for (int32_t id = p.FindNext(m_tree, m_g, m_text, start, start); id;
         id = p.FindNext(m_tree, m_g, m_text, start, id)) {
      const auto& n = m_tree.At(id);
      out += m_g.rules[n.rule].name + ":" + m_text.substr(n.textStart, n.textEnd - n.textStart) + " ";
    }
    return out;
  }

  Grammar m_g;
  ParseTree m_tree;
  std::string m_text;
};

TEST_F(PathPatternTest, AnchoredStepsFollowTheLevels) {
  EXPECT_EQ(Select("/a"), "a:([p][{q}]r) ");
  EXPECT_EQ(Select("/a/c"), "c:r ");
  EXPECT_EQ(Select("/a/b/c"), "c:p ");
  EXPECT_EQ(Select("/c"), "");
  EXPECT_EQ(Select("/a/*/c"), "c:p ");
}

TEST_F(PathPatternTest, AnyDepthSelectsInDocumentOrder) {
  EXPECT_EQ(Select("/.*c"), "c:p c:q c:r ");
  EXPECT_EQ(Select(".*c"), "c:p c:q c:r ");
  EXPECT_EQ(Select("c"), "c:p c:q c:r ");
  EXPECT_EQ(Select("/a/.*/c"), "c:p c:q c:r ");
  EXPECT_EQ(Select("/.*b/.*c"), "c:p c:q ");
  EXPECT_EQ(Select("/.*b/c"), "c:p ");
  EXPECT_EQ(Select("/.*"), "a:([p][{q}]r) b:[p] c:p b:[{q}] x:{q} c:q c:r ");
}

TEST_F(PathPatternTest, TextFilterComparesTheNodeTextExactly) {
  EXPECT_EQ(Select("/.*c=\"q\""), "c:q ");
  EXPECT_EQ(Select("/.*c = \"q\""), "c:q ");
  EXPECT_EQ(Select("/.*c ='r'"), "c:r ");
  EXPECT_EQ(Select("/.*c=\"Q\""), "");
  EXPECT_EQ(Select("/.*c=\"a/b\""), "");
}

TEST_F(PathPatternTest, SearchBelowANodeStaysInsideIt) {
  // Node 4 is the second b: [{q}]
  ASSERT_EQ(m_g.rules[m_tree.At(4).rule].name, "b");
  EXPECT_EQ(Select(".*c", 4), "c:q ");
  EXPECT_EQ(Select("/c", 4), "");
  EXPECT_EQ(Select("/x/c", 4), "c:q ");
  EXPECT_EQ(Select("/.*b", 4), "");  // the start node itself is not below itself
}

TEST_F(PathPatternTest, UnknownNamesSelectNothingAndBadPatternsFail) {
  EXPECT_EQ(Select("/.*nothing"), "");
  PathPattern p;
  std::string error;
  EXPECT_FALSE(PathPattern::Compile("", m_g, p, error));
  EXPECT_FALSE(PathPattern::Compile("/a//c", m_g, p, error));
  EXPECT_FALSE(PathPattern::Compile("/.*c=\"q", m_g, p, error));
  EXPECT_NE(error.find("unterminated"), std::string::npos);
}

}  // namespace
}  // namespace platform::grammar
