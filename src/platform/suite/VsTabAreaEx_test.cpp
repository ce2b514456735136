#include "platform/suite/VsTabAreaEx.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Screen.h"
#include "testsupport/ErrorOf.h"

namespace platform::suite {
namespace {

using testsupport::ErrorOf;

/// A form with a strip of two tabs, as a dialog with two pages makes it.
class Dialog : public forms::Form {
 public:
  Dialog() : Form("FDialog", "Dialog") {
    strip.Move(90, 510, 6420, 2295);
    strip.AddTab("Def", "Definition Comments");
    strip.AddTab("Body", "In-method Comments");
    strip.TabClick.Connect([this] { clicks += strip.SelectedTab()->Key() + " "; });
  }
  VsTabAreaEx strip{*this, "VsTabAreaEx1"};
  forms::Label page{strip, "lblPage", "A page"};
  std::string clicks;
};

TEST(VsTabAreaExTest, TabsAreFoundByKeyAndIndexAndSelectedByCodeWithoutTabClick) {
  Dialog d;
  EXPECT_EQ(d.strip.TabsCount(), 2);
  EXPECT_EQ(d.strip.Tab("Body")->Caption(), "In-method Comments");
  EXPECT_EQ(d.strip.Tab("Body")->Index(), 2);
  EXPECT_EQ(d.strip.Tab(1)->Key(), "Def");
  EXPECT_FALSE(d.strip.SelectedTab());
  EXPECT_EQ(ErrorOf([&] { d.strip.SelectedTab()->Key(); }), 91);
  EXPECT_EQ(ErrorOf([&] { d.strip.Tab("None"); }), 35601);
  EXPECT_EQ(ErrorOf([&] { d.strip.Tab(3); }), 35600);
  EXPECT_EQ(ErrorOf([&] { d.strip.AddTab("Def", "Again"); }), 35602);
  d.strip.Tab("Body")->SetSelected(true);
  EXPECT_EQ(d.strip.SelectedTab()->Key(), "Body");
  d.strip.Tab("Def")->SetSelected(true);
  EXPECT_TRUE(d.strip.Tab("Def")->Selected());
  EXPECT_FALSE(d.strip.Tab("Body")->Selected());
  d.strip.Tab("Body")->SetSelected(false);  // not the selected one: nothing changes
  EXPECT_EQ(d.strip.SelectedTab()->Key(), "Def");
  d.strip.Tab("Def")->SetSelected(false);
  EXPECT_FALSE(d.strip.SelectedTab());
  EXPECT_EQ(d.clicks, "");
  EXPECT_EQ(d.page.FormTop(), 510);  // pages sit inside the strip
}

TEST(VsTabAreaExTest, AClickOnATabSelectsItAndRaisesTabClick) {
  Dialog d;
  // A tab is its caption with a blank cell either side.
  constexpr int kCellX = forms::Screen::TwipsPerCellX;
  EXPECT_EQ(d.strip.TabLeft(1), 0);
  EXPECT_EQ(d.strip.TabWidth(1), 21 * kCellX);
  EXPECT_EQ(d.strip.TabLeft(2), 21 * kCellX);
  EXPECT_EQ(d.strip.TabAt(21 * kCellX - 1, 100), 1);
  EXPECT_EQ(d.strip.TabAt(2600, 100), 2);
  EXPECT_EQ(d.strip.TabAt(2600, VsTabAreaEx::HeaderHeight), 0);  // below the tabs
  EXPECT_EQ(d.strip.TabAt(6000, 100), 0);                        // right of them
  EXPECT_TRUE(d.strip.UserMouseDown(forms::vbLeftButton, 2600, 100));
  EXPECT_TRUE(d.strip.UserMouseDown(forms::vbRightButton, 100, 100));  // not the left button
  EXPECT_TRUE(d.strip.UserMouseDown(forms::vbLeftButton, 100, 1000));  // the page area
  EXPECT_TRUE(d.strip.UserClickTab(1));
  EXPECT_FALSE(d.strip.UserClickTab(3));
  d.strip.Enabled = false;
  EXPECT_FALSE(d.strip.UserClickTab(2));
  EXPECT_EQ(d.clicks, "Body Def ");
}

TEST(VsTabAreaExTest, ArrowsMoveBetweenTabsWhileTheStripHasTheFocus) {
  Dialog d;
  d.strip.Tab("Def")->SetSelected(true);
  d.SetFocus(d.strip);
  d.UserKey(37);  // Left on the first tab: nothing
  d.UserKey(39);
  d.UserKey(39);  // Right on the last tab: nothing
  d.UserKey(36);
  EXPECT_EQ(d.clicks, "Body Def ");
}

TEST(VsTabAreaExTest, UnloadingTheFormRemovesTheTabsAndATabHeldSaysItIsNotSelected) {
  Ref<VsTab> tab;
  {
    Dialog d;
    d.Load();
    tab = d.strip.Tab("Def");
    tab->SetSelected(true);
    d.Unload();
    EXPECT_EQ(d.strip.TabsCount(), 0);
    EXPECT_FALSE(d.strip.SelectedTab());
    d.strip.AddTab("Def", "Again");  // a new load adds them again
  }
  EXPECT_FALSE(tab->Selected());
  EXPECT_EQ(ErrorOf([&] { tab->SetSelected(true); }), 91);
  EXPECT_EQ(tab->Caption(), "Definition Comments");
}

}  // namespace
}  // namespace platform::suite
