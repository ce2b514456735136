#include "platform/suite/ScopeSelector.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/automation/SolutionLoader.h"
#include "platform/core/Error.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/TextBox.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

namespace platform::suite {
namespace {

using testsupport::ErrorOf;

constexpr int kEnter = 13, kEscape = 27, kUp = 38, kDown = 40, kF4 = 115, kAlt = 4;

/// A form with a selector, a box to move the focus to, and default and cancel buttons.
class Dialog : public forms::Form {
 public:
  Dialog() : Form("FDialog", "Dialog") {
    ok.Default = true;
    cancel.Cancel = true;
    ok.Click.Connect([this] { events += "ok "; });
    cancel.Click.Connect([this] { events += "cancel "; });
    scope.Click.Connect([this] { events += "scope=" + std::to_string(scope.ListIndex()) + " "; });
  }
  ScopeSelector scope{*this, "cmbScope"};
  forms::TextBox other{*this, "Text1"};
  forms::CommandButton ok{*this, "cmdOK", "OK"};
  forms::CommandButton cancel{*this, "cmdCancel", "Cancel"};
  std::string events;
};

TEST(ScopeSelectorTest, OffersTheScopesOfTheWalkWithTheirValuesAndSelectsTheOneAsked) {
  Dialog d;
  EXPECT_EQ(d.scope.ScopesCount(), 0);
  EXPECT_EQ(d.scope.ListIndex(), -1);
  EXPECT_EQ(ErrorOf([&] { d.scope.SelectedScope(); }), 5);
  d.scope.Init(nullptr, true, false, true, false, 3);
  ASSERT_EQ(d.scope.ScopesCount(), 6);
  std::string list;
  for (int i = 0; i < d.scope.ScopesCount(); ++i)
    list += std::to_string(d.scope.ScopeValue(i)) + " " + d.scope.ScopeCaption(i) + "\n";
  EXPECT_EQ(list,
            "0 Current method\n1 Current document\n2 All open documents\n3 Current project\n"
            "4 Entire solution\n6 Current solution folder\n");
  EXPECT_EQ(d.scope.ListIndex(), 3);
  EXPECT_EQ(d.scope.SelectedScope(), 3);
  EXPECT_EQ(d.scope.Caption, "Current project");
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(ErrorOf([&] { d.scope.ScopeValue(6); }), 5);
  EXPECT_EQ(ErrorOf([&] { d.scope.ScopeValue(-1); }), 5);
  EXPECT_EQ(ErrorOf([&] { d.scope.SetListIndex(6); }), 5);
  d.scope.SetListIndex(5);
  EXPECT_EQ(d.scope.SelectedScope(), 6);
  EXPECT_EQ(d.events, "scope=3 scope=5 ");
}

TEST(ScopeSelectorTest, LeavesOutWhatItIsNotAskedForAndRefusesASelectionScope) {
  Dialog d;
  d.scope.Init(nullptr, false, false, false, false, 0);  // 0 is not offered: the first is selected
  ASSERT_EQ(d.scope.ScopesCount(), 4);
  EXPECT_EQ(d.scope.ScopeValue(0), 1);
  EXPECT_EQ(d.scope.ScopeValue(3), 4);
  EXPECT_EQ(d.scope.ListIndex(), 0);
  EXPECT_EQ(ErrorOf([&] { d.scope.Init(nullptr, true, true, true, false, 3); }), 5);
  EXPECT_EQ(d.scope.ScopesCount(), 4);  // unchanged
}

TEST(ScopeSelectorTest, CaptionsCanSayWhatTheEnvironmentHoldsNow) {
  testsupport::TempDir dir;
  std::ofstream(dir.path() / "Circle.cs") << "class Circle { }\n";
  auto loaded = automation::OpenSolution(dir.path() / "Circle.cs");
  auto project = loaded.dte->Solution()->Projects()->items().front();
  testsupport::OpenInHost(testsupport::ItemAt(project, "Circle.cs"), true);
  Dialog d;
  d.scope.Init(loaded.dte, true, false, true, true, 4);
  EXPECT_EQ(d.scope.ScopeCaption(1), "Current document (Circle.cs)");
  EXPECT_EQ(d.scope.ScopeCaption(2), "All open documents (1)");
  EXPECT_EQ(d.scope.ScopeCaption(4), "Entire solution");
}

TEST(ScopeSelectorTest, ArrowsSelectAtOnceWhileTheListIsClosed) {
  Dialog d;
  d.scope.Init(nullptr, true, false, true, false, 0);
  d.SetFocus(d.scope);
  d.UserKey(kUp);  // already first
  d.UserKey(kDown);
  d.UserKey(kDown);
  d.UserKey(35);  // End
  d.UserKey(kDown);
  EXPECT_EQ(d.scope.ListIndex(), 5);
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.events, "scope=0 scope=1 scope=2 scope=5 ");
  EXPECT_TRUE(d.scope.UserType("ce"));  // "Current ..." after position 5 wraps to 0, then "Entire"
  EXPECT_EQ(d.scope.ListIndex(), 4);
}

TEST(ScopeSelectorTest, ADroppedListMovesAHighlightAndTakesItOnlyOnEnter) {
  Dialog d;
  d.scope.Init(nullptr, true, false, true, false, 1);
  d.SetFocus(d.scope);
  d.UserKey(kF4);
  EXPECT_TRUE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.scope.HighlightIndex(), 1);
  d.UserKey(kDown);
  d.UserKey(kDown);
  EXPECT_EQ(d.scope.HighlightIndex(), 3);
  EXPECT_EQ(d.scope.ListIndex(), 1);  // not taken yet
  d.UserKey(kEnter);                  // closes the list; the form's default button stays up
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.scope.HighlightIndex(), -1);
  EXPECT_EQ(d.scope.ListIndex(), 3);
  d.UserKey(kEnter);  // closed: the form acts on Enter
  EXPECT_EQ(d.events, "scope=1 scope=3 ok ");
}

TEST(ScopeSelectorTest, EscapeAClickOnTheBoxOrLeavingCloseTheListWithoutChoosing) {
  Dialog d;
  d.scope.Init(nullptr, true, false, true, false, 0);
  d.SetFocus(d.scope);
  d.UserKey(kDown, kAlt);
  d.UserKey(kDown);
  d.UserKey(kEscape);  // closes the list only
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_TRUE(d.scope.UserClick());
  EXPECT_TRUE(d.scope.IsDroppedDown());
  d.UserKey(kDown);
  EXPECT_TRUE(d.scope.UserClick());
  EXPECT_FALSE(d.scope.IsDroppedDown());
  d.scope.SetDroppedDown(true);
  d.UserKey(9);  // Tab moves the focus away
  EXPECT_EQ(d.ActiveControl(), &d.other);
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.scope.ListIndex(), 0);
  d.SetFocus(d.scope);
  d.UserKey(kEscape);  // closed: the form cancels
  EXPECT_EQ(d.events, "scope=0 cancel ");
}

TEST(ScopeSelectorTest, TheMouseHighlightsAndPicksRowsOfTheDroppedList) {
  Dialog d;
  d.scope.Init(nullptr, true, false, true, false, 0);
  EXPECT_FALSE(d.scope.UserPick(2));  // the list is closed
  d.scope.UserClick();
  EXPECT_TRUE(d.scope.UserHighlight(4));
  EXPECT_EQ(d.scope.HighlightIndex(), 4);
  EXPECT_FALSE(d.scope.UserPick(6));
  EXPECT_TRUE(d.scope.UserPick(2));
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.scope.SelectedScope(), 2);
  d.scope.Enabled = false;
  EXPECT_FALSE(d.scope.UserClick());
}

TEST(ScopeSelectorTest, KeyDownHandlersSeeTheKeyBeforeTheListActsAndMayTakeIt) {
  Dialog d;
  d.scope.Init(nullptr, true, false, true, false, 0);
  std::string seen;
  d.scope.KeyDown.Connect([&](int& key, int&) {
    seen += std::to_string(key) + (d.scope.IsDroppedDown() ? "v " : "- ");
    if (key == kDown) key = 0;
  });
  d.SetFocus(d.scope);
  d.UserKey(kF4);
  d.UserKey(kDown);  // taken by the handler: the highlight stays
  d.UserKey(kEnter);
  EXPECT_EQ(seen, "115- 40v 13v ");
  EXPECT_EQ(d.scope.ListIndex(), 0);
  EXPECT_FALSE(d.scope.IsDroppedDown());
  EXPECT_EQ(d.events, "scope=0 ");
}

}  // namespace
}  // namespace platform::suite
