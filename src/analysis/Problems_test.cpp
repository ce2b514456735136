#include "analysis/Problems.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace annotra {
namespace {

TEST(Problems, RuleIdentifiersAreNumberedInTableOrderAndNamesAreUnique) {
  std::set<std::string> names, texts;
  int number = 1;
  for (const ProblemInfo& p : ProblemTable()) {
    char expected[16];
    std::snprintf(expected, sizeof expected, "AN%04d", number++);
    EXPECT_EQ(p.ruleId, std::string(expected));
    EXPECT_EQ(&Problem(p.id), &p);
    EXPECT_TRUE(names.insert(p.name).second) << p.name;
    EXPECT_TRUE(texts.insert(p.text).second) << p.text;
    EXPECT_NE(std::string(p.summary), "");
    EXPECT_NE(std::string(p.help), "");
  }
}

TEST(Problems, EveryTextLeadsBackToItsRow) {
  for (const ProblemInfo& p : ProblemTable())
    EXPECT_EQ(ProblemOfText(ProblemText(p.id, "summary")), &p) << p.text;
  EXPECT_EQ(ProblemText(ProblemId::MissingTag, "returns"), "Missing <returns> tag");
  EXPECT_EQ(ProblemOfText("Missing <> tag"), &Problem(ProblemId::MissingTag));
  EXPECT_EQ(ProblemText(ProblemId::LongUncommented, "ignored"), "Too large uncommented code block");
}

TEST(Problems, TextsThatAreNoProblemOfTheTableHaveNoRow) {
  EXPECT_EQ(ProblemOfText(""), nullptr);
  EXPECT_EQ(ProblemOfText("Missing <returns> tag."), nullptr);
  EXPECT_EQ(ProblemOfText("Missing <a<b> tag"), nullptr);
  EXPECT_EQ(ProblemOfText("Missing <"), nullptr);
  EXPECT_EQ(ProblemOfText("Code elements without definition comments"), nullptr);
  EXPECT_EQ(ProblemOfText("code elements without definition comments."), nullptr);
  EXPECT_EQ(ProblemOfText("Parameter with different name in XML comment"), nullptr);
}

}  // namespace
}  // namespace annotra
