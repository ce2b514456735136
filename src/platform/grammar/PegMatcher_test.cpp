#include "platform/grammar/PegMatcher.h"

#include <gtest/gtest.h>

#include "platform/grammar/GrammarReader.h"

namespace platform::grammar {
namespace {

/// Parses with a grammar given as text and shows the tree as "name(text)[kids]".
class Peg {
 public:
  explicit Peg(const std::string& grammar) {
    std::string error;
    EXPECT_TRUE(GrammarReader::Read(grammar, "t", m_g, error)) << error;
    m_matcher = std::make_unique<PegMatcher>(m_g);
  }
  bool Parse(const std::string& text, const std::string& rule = "") {
    m_text = text;
    return m_matcher->Parse(m_text, rule.empty() ? 0 : m_g.FindRule(rule), m_tree);
  }
  std::string Dump() const {
    std::string out;
    for (int32_t id = 1; id <= m_tree.Size(); ++id)
      if (m_tree.At(id).parent == 0) Dump(id, out);
    return out;
  }
  const ParseTree& tree() const { return m_tree; }
  const PegMatcher& matcher() const { return *m_matcher; }

 private:
  void Dump(int32_t id, std::string& out) const {
    const auto& n = m_tree.At(id);
    out += m_g.rules[n.rule].name + "(" + m_text.substr(n.textStart, n.textEnd - n.textStart) + ")";
    if (n.firstChild) {
      out += "[";
      for (int32_t k = n.firstChild; k; k = m_tree.At(k).nextSibling) Dump(k, out);
      out += "]";
    }
  }
  Grammar m_g;
  std::unique_ptr<PegMatcher> m_matcher;
  ParseTree m_tree;
  std::string m_text;
};

TEST(PegMatcherTest, NamedRulesMakeNodesAndUnderscoreRulesPassTheirsOn) {
  Peg p("grammar G\n"
        "list  <- item (_sep item)* !.\n"
        "_sep  <- ',' _ws\n"
        "_ws   <- [ ]*\n"
        "item  <- word / number\n"
        "word  <- [a-z]+\n"
        "number <- [0-9]+\n");
  EXPECT_TRUE(p.Parse("ab, 12,c"));
  EXPECT_EQ(p.Dump(), "list(ab, 12,c)[item(ab)[word(ab)]item(12)[number(12)]item(c)[word(c)]]");
}

TEST(PegMatcherTest, TokenMarksGiveTheNodeItsTextAlsoFromUnnamedRules) {
  Peg p("grammar G\n"
        "attr  <- name '=' _value\n"
        "_value <- '\"' < [^\"]* > '\"'\n"
        "name  <- [a-z]+\n"
        "first <- < 'a' > 'b' < 'c' >\n");
  EXPECT_TRUE(p.Parse("cref=\"T:X\""));
  EXPECT_EQ(p.Dump(), "attr(T:X)[name(cref)]");
  EXPECT_TRUE(p.Parse("abc", "first"));
  EXPECT_EQ(p.Dump(), "first(a)");
}

TEST(PegMatcherTest, FailedAlternativesLeaveNoNodesOrTextBehind) {
  Peg p("grammar G\n"
        "s <- < a > 'x' / a 'y'\n"
        "a <- 'a'\n");
  EXPECT_TRUE(p.Parse("ay"));
  EXPECT_EQ(p.Dump(), "s(ay)[a(a)]");  // the node of the failed first try is gone
}

TEST(PegMatcherTest, LiteralsClassesAnyAndPredicates) {
  Peg p("grammar G\n"
        "s <- 'end'i [^a-c\\n] . &'!' '!' !.\n");
  EXPECT_TRUE(p.Parse("EnD d!"));
  EXPECT_TRUE(p.Parse("eNdx\xff!"));
  EXPECT_FALSE(p.Parse("endad!"));
  EXPECT_FALSE(p.Parse("end d!!"));
}

TEST(PegMatcherTest, LoopFormsMatchLikeTheirPlainForms) {
  Peg p("grammar G\n"
        "s <- c ('/*' < (!'*/' .)* > '*/')? (![;] .)+ ';'\n"
        "c <- [ab]*\n");
  EXPECT_TRUE(p.Parse("abba/* x * / y */tail;"));
  EXPECT_EQ(p.Dump(), "s( x * / y )[c(abba)]");
  EXPECT_FALSE(p.Parse("/* open"));
}

TEST(PegMatcherTest, MatchOfAPrefixIsNoFullParseButKeepsItsTree) {
  Peg p("grammar G\ns <- w\nw <- [a-z]+\n");
  EXPECT_FALSE(p.Parse("abc123"));
  EXPECT_EQ(p.Dump(), "s(abc)[w(abc)]");
}

TEST(PegMatcherTest, FailedParseKeepsWhatItMatched) {
  Peg p("grammar G\n"
        "doc   <- elem+ !.\n"
        "elem  <- '<' name '>' body '</' name '>'\n"
        "body  <- elem / [a-z]*\n"
        "name  <- [a-z]+\n");
  EXPECT_FALSE(p.Parse("<a>x</a><b><c>y</c"));
  // The complete first element, and the second as far as it got.
  EXPECT_EQ(p.Dump(),
            "doc(<a>x</a><b><c>y</c)[elem(<a>x</a>)[name(a)body(x)name(a)]"
            "elem(<b><c>y</c)[name(b)body(<c>y</c)[elem(<c>y</c)[name(c)body(y)name(c)]]]]");
}

TEST(PegMatcherTest, NothingMatchedGivesAnEmptyTree) {
  Peg p("grammar G\ns <- 'a'\n");
  EXPECT_FALSE(p.Parse("b"));
  EXPECT_EQ(p.tree().Size(), 0);
  EXPECT_FALSE(p.Parse(""));
}

TEST(PegMatcherTest, MemoisationKeepsBacktrackingLinear) {
  // Without memoisation each level tries `x` twice: 2^n evaluations.
  Peg p("grammar G\n"
        "s <- x !.\n"
        "x <- '(' x ')' 'a' / '(' x ')' 'b' / 'z'\n");
  std::string text = std::string(30, '(') + "z";
  for (int i = 0; i < 30; ++i) text += ")b";
  EXPECT_TRUE(p.Parse(text));
  EXPECT_LT(p.matcher().Steps(), 100 * static_cast<int64_t>(text.size()));
}

TEST(PegMatcherTest, DeepNestingStopsWithAPartialTreeInsteadOfOverflowing) {
  Peg p("grammar G\n"
        "s <- x !.\n"
        "x <- '(' x? ')'\n");
  std::string text = std::string(100000, '(') + std::string(100000, ')');
  EXPECT_FALSE(p.Parse(text));
  ASSERT_GT(p.tree().Size(), 100);
  EXPECT_EQ(p.tree().At(1).rule, 0);
}

TEST(PegMatcherTest, WorkIsBoundedOnAQuadraticGrammar) {
  // Each start position scans to the end before failing: quadratic without a budget.
  Peg p("grammar G\n"
        "s <- (r / .)*\n"
        "r <- [a]* 'x'\n");
  std::string text(60000, 'a');
  p.Parse(text);
  const int64_t n = static_cast<int64_t>(text.size());
  EXPECT_LE(p.matcher().Steps(), 256 * (n + 1) + (1 << 20) + n);
}

}  // namespace
}  // namespace platform::grammar
