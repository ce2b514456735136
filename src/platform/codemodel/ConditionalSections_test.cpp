#include "platform/codemodel/ConditionalSections.h"

#include <gtest/gtest.h>

namespace platform::codemodel {
namespace {

// A condition that answers `value` and counts how often it was asked.
struct Condition {
  bool value;
  int* asked;
  bool operator()() const {
    ++*asked;
    return value;
  }
};

TEST(ConditionalSections, TheFirstTrueBranchIsTheActiveOne) {
  int asked = 0;
  ConditionalSections s;
  EXPECT_TRUE(s.Active());
  s.If(Condition{false, &asked});
  EXPECT_FALSE(s.Active());
  s.Elif(Condition{true, &asked});
  EXPECT_TRUE(s.Active());
  s.Elif(Condition{true, &asked});  // a branch was taken: not even asked
  EXPECT_FALSE(s.Active());
  s.Else();
  EXPECT_FALSE(s.Active());
  s.EndIf();
  EXPECT_TRUE(s.Active());
  EXPECT_EQ(asked, 2);

  s.If(Condition{false, &asked});
  s.Else();
  EXPECT_TRUE(s.Active());
  s.EndIf();
}

TEST(ConditionalSections, AnInactiveSectionKeepsEverythingInsideInactive) {
  int asked = 0;
  ConditionalSections s;
  s.If(Condition{false, &asked});
  s.If(Condition{true, &asked});
  EXPECT_FALSE(s.Active());
  s.Elif(Condition{true, &asked});
  EXPECT_FALSE(s.Active());
  s.Else();
  EXPECT_FALSE(s.Active());
  EXPECT_EQ(asked, 1);  // only the outer #if was evaluated
  s.EndIf();
  EXPECT_FALSE(s.Active());
  s.EndIf();
  EXPECT_TRUE(s.Active());
}

TEST(ConditionalSections, StrayDirectivesChangeNothing) {
  int asked = 0;
  ConditionalSections s;
  s.EndIf();
  s.Elif(Condition{false, &asked});
  s.Else();
  EXPECT_TRUE(s.Active());
  EXPECT_EQ(asked, 0);
}

TEST(ConditionalSections, ElifOrElseAfterElseChangeNothing) {
  int asked = 0;
  ConditionalSections s;
  // The #else branch is active: it stays so through a malformed #elif or #else.
  s.If(Condition{false, &asked});
  s.Else();
  s.Elif(Condition{false, &asked});
  EXPECT_TRUE(s.Active());
  s.Else();
  EXPECT_TRUE(s.Active());
  s.EndIf();
  // The #else branch is inactive: it stays so, whatever the malformed #elif says.
  s.If(Condition{true, &asked});
  s.Else();
  s.Elif(Condition{true, &asked});
  EXPECT_FALSE(s.Active());
  s.Else();
  EXPECT_FALSE(s.Active());
  s.EndIf();
  EXPECT_TRUE(s.Active());
  EXPECT_EQ(asked, 2);  // only the two #if
}

}  // namespace
}  // namespace platform::codemodel
