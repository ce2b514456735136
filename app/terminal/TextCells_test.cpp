#include "terminal/TextCells.h"

#include <gtest/gtest.h>

#include <clocale>

using namespace app::terminal;

namespace {
// Widths of characters beyond ASCII come from the locale's tables.
class TextCellsTest : public ::testing::Test {
 protected:
  void SetUp() override { std::setlocale(LC_CTYPE, "C.UTF-8"); }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
};
}  // namespace

TEST_F(TextCellsTest, MeasuresWideAndCombiningCharactersAndBadBytes) {
  EXPECT_EQ(text::Width("Begin >>"), 8);
  EXPECT_EQ(text::Width("日本"), 4);          // two wide characters
  EXPECT_EQ(text::Width("e\xCC\x81"), 1);      // e and a combining acute accent
  EXPECT_EQ(text::Width("a\xFF" "b"), 3);      // a stray byte counts as one cell
  EXPECT_EQ(text::Characters("a\xFF" "b")[1], "?");
  EXPECT_EQ(text::Characters("\xE2\x94")[0], "?");  // a sequence cut short
}

TEST_F(TextCellsTest, FitsTextIntoCellsWithAnEllipsisWhereItIsCut) {
  EXPECT_EQ(text::Fit("Compare parameter types", 10, "…"), "Compare p…");
  EXPECT_EQ(text::Fit("Compare", 10, "…"), "Compare");
  EXPECT_EQ(text::Fit("日本語", 5, "…"), "日本…");  // a wide character never half drawn
  EXPECT_EQ(text::Fit("日本語", 5), "日本");
  EXPECT_EQ(text::Fit("abc", 0, "…"), "");
  EXPECT_EQ(text::Pad("ab", 4), "ab  ");
  EXPECT_EQ(text::Pad("abcdef", 4), "abcd");
}

TEST_F(TextCellsTest, ClipsTextWrittenAtAColumnToTheColumnsBetweenTwoEdges) {
  auto clip = [](std::string_view s, int x, int left, int right) {
    text::Span span = text::Clip(s, x, left, right);
    return std::to_string(span.column) + ":" + span.text;
  };
  EXPECT_EQ(clip("abcdef", 2, 0, 80), "2:abcdef");
  EXPECT_EQ(clip("abcdef", 2, 4, 6), "4:cd");     // cut on both sides
  EXPECT_EQ(clip("abcdef", -3, 0, 80), "0:def");  // scrolled past the left edge
  EXPECT_EQ(clip("abc", 5, 0, 5), "-1:");         // wholly right of the edge
  EXPECT_EQ(clip("日本語", 0, 1, 6), "2:本語");     // a wide character across the edge left out
  EXPECT_EQ(clip("日本語", 0, 0, 5), "0:日本");
}

TEST_F(TextCellsTest, WrapsAtSpacesBreaksLongWordsAndKeepsLineBreaks) {
  EXPECT_EQ(text::Wrap("Click to open this subsystem's online documentation.", 20),
            (std::vector<std::string>{"Click to open this", "subsystem's online", "documentation."}));
  EXPECT_EQ(text::Wrap("abcdefghij kl", 4), (std::vector<std::string>{"abcd", "efgh", "ij", "kl"}));
  EXPECT_EQ(text::Wrap("one\n\ntwo", 10), (std::vector<std::string>{"one", "", "two"}));
  EXPECT_EQ(text::Wrap("a  b", 10), (std::vector<std::string>{"a b"}));
  EXPECT_EQ(text::Wrap("", 10), (std::vector<std::string>{""}));
}
