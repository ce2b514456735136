#include "pane/ctlTbrResults.h"

#include <gtest/gtest.h>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/ScriptedPresenter.h"

using namespace annotra;

TEST(ctlTbrResults, SevenButtonsInThreeSeparatedGroupsEachRaisingItsIdentifierOnce) {
  platform::forms::Form form("F");
  ctlTbrResults toolbar(form, "TbrResults1");
  std::vector<int32_t> clicked;
  toolbar.CommandClicked.Connect([&](int32_t& id) { clicked.push_back(id); });
  const auto& buttons = toolbar.tbr.Bars(2).Controls;
  ASSERT_EQ(buttons.size(), 7u);
  EXPECT_EQ(toolbar.tbr.Bars(2).Title, "Standard");
  EXPECT_EQ(toolbar.tbr.Bars(2).Id, ctlTbrResults::IDR_STANDARD);
  EXPECT_TRUE(toolbar.tbr.Bars(1).Controls.empty());
  EXPECT_EQ(toolbar.tbr.VisualTheme, 4);
  struct Expected {
    int id;
    const char* caption;
    const char* tip;
    bool group;
  };
  const Expected expected[] = {{1020, "New", "New comments analysis", false},
                               {1021, "Refresh", "Refresh", false},
                               {1026, "Previous", "Previous", true},
                               {1027, "Next", "Next", false},
                               {1022, "Expand All", "Expand All Groups", true},
                               {1023, "Collapse All", "Collapse All Groups", false},
                               {1025, "Clear All", "Clear results", true}};
  for (size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(buttons[i]->Id, expected[i].id);
    EXPECT_EQ(buttons[i]->Caption, expected[i].caption);
    EXPECT_EQ(buttons[i]->ToolTipText, expected[i].tip);
    EXPECT_EQ(buttons[i]->BeginGroup, expected[i].group);
    EXPECT_EQ(buttons[i]->Style, 2);
    if (i > 0) {
      // A separator cell stands between groups, none inside one.
      int gap = buttons[i]->Left - (buttons[i - 1]->Left + buttons[i - 1]->Width);
      EXPECT_EQ(gap, expected[i].group ? platform::forms::Screen::TwipsPerCellX : 0) << expected[i].caption;
    }
    EXPECT_TRUE(buttons[i]->UserClick());
  }
  EXPECT_EQ(clicked, (std::vector<int32_t>{1020, 1021, 1026, 1027, 1022, 1023, 1025}));
  EXPECT_EQ(toolbar.Height, 240);
}

TEST(ctlTbrResults, TheFrameEndsAtTheControlsRightEdgeWhateverItsWidth) {
  platform::forms::Form form("F");
  ctlTbrResults toolbar(form, "TbrResults1");
  for (int width : {100, 4321, 9600, 0}) {
    toolbar.Move(15, 15, width, -1);
    EXPECT_EQ(toolbar.tbr.Left, -45);
    EXPECT_EQ(toolbar.tbr.Left + toolbar.tbr.Width, width);
    EXPECT_EQ(toolbar.tbr.Height, 240);
  }
  toolbar.Width = 777;  // changed without a move: the public Resize lays it out
  toolbar.Resize();
  EXPECT_EQ(toolbar.tbr.Left + toolbar.tbr.Width, 777);
}
