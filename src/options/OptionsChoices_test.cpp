#include "options/OptionsChoices.h"

#include <gtest/gtest.h>

#include "options/OptionsFixture_test.h"

namespace annotra {
namespace {

class OptionsChoicesTest : public testing::OptionsFixture {
 protected:
  std::string StoredRules() {
    std::string s;
    for (const char* k : {key::LastScope, key::EnablePublic, key::XMLOnPublic, key::EnableNonPublic,
                          key::XMLOnNonPublic, key::AcceptInheritDoc, key::CompareParamTypes,
                          key::SkipGenerated, key::EnableBody, key::LineCount})
      s += std::string(k) + "=" + Stored(k) + " ";
    return s;
  }
};

TEST_F(OptionsChoicesTest, NoChoicesBeginsWithWhatTheDialogShows) {
  std::vector<std::string> problems;
  EXPECT_TRUE(RunOptionsDialog({}, problems));
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(StoredRules(),
            "LastScope=0 EnablePublic=1 XMLOnPublic=1 EnableNonPublic=1 XMLOnNonPublic=0 "
            "AcceptInheritDoc=0 CompareParamTypes=1 SkipGenerated=0 EnableBody=1 LineCount=15 ");
  EXPECT_EQ(Stored(key::XMLCheck), "<none>");  // the template options were not opened
}

TEST_F(OptionsChoicesTest, EveryChoiceIsMadeAsAPersonMakesIt) {
  OptionsChoices c;
  c.scope = 6;
  c.enablePublic = false;
  c.xmlOnPublic = false;
  c.enableNonPublic = false;
  c.xmlOnNonPublic = true;
  c.acceptInheritDoc = true;
  c.compareParamTypes = false;
  c.skipGenerated = true;
  c.enableBody = false;
  c.maxLines = "40";
  c.requiredTags = {{"Method", "param"}, {"Field (variable, constant)", "summary"}};
  std::vector<std::string> problems;
  EXPECT_TRUE(RunOptionsDialog(c, problems));
  EXPECT_TRUE(problems.empty()) << problems.front();
  EXPECT_EQ(StoredRules(),
            "LastScope=6 EnablePublic=0 XMLOnPublic=0 EnableNonPublic=0 XMLOnNonPublic=1 "
            "AcceptInheritDoc=1 CompareParamTypes=0 SkipGenerated=1 EnableBody=0 LineCount=40 ");
  EXPECT_EQ(Stored(key::XMLCheck),
            "{Class}|{Delegate}|{Enum}|{Method}|param|{Interface}|{Module}|{Structure}|{Event}|"
            "{Property}|{Field (variable, constant)}|summary");
  EXPECT_EQ(Stored(key::Tab), "2");  // the page shown last
}

TEST_F(OptionsChoicesTest, ADependentBoxChangesUnderAnUncheckedGoverningBoxWhichStaysUnchecked) {
  Store(key::EnablePublic, 0);
  Store(key::XMLOnPublic, 0);
  Store(key::EnableBody, 0);
  OptionsChoices c;
  c.xmlOnPublic = true;
  c.maxLines = "77";
  std::vector<std::string> problems;
  EXPECT_TRUE(RunOptionsDialog(c, problems));
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(Stored(key::EnablePublic), "0");
  EXPECT_EQ(Stored(key::XMLOnPublic), "1");
  EXPECT_EQ(Stored(key::EnableBody), "0");
  EXPECT_EQ(Stored(key::LineCount), "77");
}

TEST_F(OptionsChoicesTest, WhatCannotBeChosenIsSaidAndTheRestIsStillMade) {
  OptionsChoices c;
  c.scope = 5;  // no scope
  c.maxLines = "-12x";
  c.requiredTags = {{"Method", "nonesuch"}};
  std::vector<std::string> problems;
  EXPECT_TRUE(RunOptionsDialog(c, problems));
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(problems[0], "the scope selector offers no scope 5");
  EXPECT_NE(problems[1].find("TMethod*nonesuch"), std::string::npos) << problems[1];
  EXPECT_EQ(Stored(key::LastScope), "0");
  EXPECT_EQ(Stored(key::LineCount), "12");  // the digits of what was typed
  EXPECT_EQ(Stored(key::XMLCheck),
            "{Class}|{Delegate}|{Enum}|{Method}|{Interface}|{Module}|{Structure}|{Event}|{Property}|"
            "{Field (variable, constant)}");
}

TEST_F(OptionsChoicesTest, ChoicesNotAllMadeCanCancelTheDialogInstead) {
  OptionsChoices c;
  c.scope = 5;  // no scope
  c.enableBody = false;
  auto user = User();
  QueueOptionsChoices(*user, c, true);
  platform::forms::ScopedPresenter scope(user);
  FOptions dialog;
  EXPECT_FALSE(dialog.GetOptions());
  dialog.Unload();
  EXPECT_EQ(user->errors, (std::vector<std::string>{"the scope selector offers no scope 5"}));
  EXPECT_EQ(user->log.back(), "click Command2");
  EXPECT_EQ(StoredRules().find("EnableBody=0"), std::string::npos);  // nothing stored

  // All made: begun as without the flag.
  c.scope = 4;
  auto good = User();
  QueueOptionsChoices(*good, c, true);
  platform::forms::ScopedPresenter scopeGood(good);
  FOptions again;
  EXPECT_TRUE(again.GetOptions());
  again.Unload();
  EXPECT_TRUE(good->errors.empty());
  EXPECT_EQ(good->log.back(), "click Command1");
  EXPECT_EQ(Stored(key::LastScope), "4");
  EXPECT_EQ(Stored(key::EnableBody), "0");
}

TEST_F(OptionsChoicesTest, RequireAllChecksEveryTagOfTheTemplates) {
  Store(key::XMLCheck, "{Class}");
  OptionsChoices c;
  c.requireAll = true;
  std::vector<std::string> problems;
  EXPECT_TRUE(RunOptionsDialog(c, problems));
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(Stored(key::XMLCheck),
            "{Class}|summary|{Delegate}|summary|param|returns|{Enum}|summary|{Method}|summary|param|"
            "returns|{Interface}|summary|{Module}|summary|{Structure}|summary|{Event}|summary|"
            "{Property}|summary|param|{Field (variable, constant)}|summary");
}

}  // namespace
}  // namespace annotra
