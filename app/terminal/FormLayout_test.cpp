#include "terminal/FormLayout.h"

#include <gtest/gtest.h>

#include "options/FOptions.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Screen.h"
#include "platform/forms/UserControl.h"

using namespace app::terminal;
namespace forms = platform::forms;

namespace {
constexpr int kCellX = forms::Screen::TwipsPerCellX, kCellY = forms::Screen::TwipsPerCellY;
}  // namespace

TEST(FormLayoutTest, RoundsTwipsToTheNearestCellEdge) {
  EXPECT_EQ(FormLayout::CellsX(0), 0);
  EXPECT_EQ(FormLayout::CellsX(kCellX / 2 - 1), 0);
  EXPECT_EQ(FormLayout::CellsX(kCellX / 2), 1);  // half a cell goes up
  EXPECT_EQ(FormLayout::CellsX(4455), 50);  // 49.5 cells
  EXPECT_EQ(FormLayout::CellsX(5520), 61);  // 61.3 cells
  EXPECT_EQ(FormLayout::CellsY(3540), 15);
  EXPECT_EQ(FormLayout::CellsY(kCellY / 2 - 1), 0);
  EXPECT_EQ(FormLayout::CellsY(kCellY / 2), 1);
  EXPECT_EQ(FormLayout::CellsX(-kCellX / 2), 0);
  EXPECT_EQ(FormLayout::CellsX(-kCellX / 2 - 1), -1);
}

TEST(FormLayoutTest, PlacesTheOptionsDialogAtTheFixedScale) {
  annotra::FOptions dialog;
  dialog.ctlXMLComments1.Visible = true;
  FormLayout layout(dialog, 10, 5);
  // 6585 by 3975 twips: 73 by 17 cells, which leaves room for the window's border on
  // a terminal of 80 columns.
  EXPECT_EQ(layout.Client(), (CellRect{10, 5, 73, 17}));
  EXPECT_EQ(layout.Find(&dialog.Command1)->rect, (CellRect{10 + 50, 5 + 15, 11, 1}));
  EXPECT_EQ(layout.Find(&dialog.Command2)->rect, (CellRect{10 + 61, 5 + 15, 11, 1}));
  EXPECT_EQ(layout.Find(&dialog.cmbOperationScope)->rect, (CellRect{10 + 9, 5 + 1, 63, 1}));
  EXPECT_EQ(layout.Find(&dialog.lblHint)->rect, (CellRect{10 + 2, 5 + 12, 69, 2}));
  // The hidden page is not laid out at all.
  EXPECT_EQ(layout.Find(&dialog.ctlStdComments1.chkEnabled), nullptr);
  // The page's last row lies below the page's own height but inside the tab strip: it
  // is drawn and can be hit.
  const FormLayout::Placed* extra = layout.Find(&dialog.ctlXMLComments1.chkInheritDoc);
  ASSERT_NE(extra, nullptr);
  EXPECT_GE(extra->rect.y, layout.Find(&dialog.ctlXMLComments1)->rect.Bottom());
  EXPECT_EQ(extra->clip.Intersect(extra->rect), extra->rect);
  EXPECT_EQ(layout.At(extra->rect.x, extra->rect.y), &dialog.ctlXMLComments1.chkInheritDoc);
}

TEST(FormLayoutTest, AControlOfLessThanACellTakesTheCellItsMiddleFallsIn) {
  annotra::FOptions dialog;
  dialog.ctlStdComments1.Visible = true;
  FormLayout layout(dialog, 0, 0);
  // The line limit's labels are lower than a row and start lower than its text box;
  // rounded edge by edge they would take the row below the box. Their middles are on
  // the box's first row, and so is their text.
  const auto& page = dialog.ctlStdComments1;
  const CellRect box = layout.Find(&page.Text1)->rect;
  const CellRect before = layout.Find(&page.Label2)->rect;
  const CellRect after = layout.Find(&page.Label4)->rect;
  EXPECT_EQ(before.h, 1);
  EXPECT_EQ(before.y, box.y);
  EXPECT_EQ(after.y, box.y);
  EXPECT_EQ(before.Right(), FormLayout::CellsX(page.Label2.FormLeft() + page.Label2.Width));
}

TEST(FormLayoutTest, ACellIsHitExactlyWhereTheFormFindsTheControlAtItsPoint) {
  annotra::FOptions dialog;
  dialog.ctlXMLComments1.Visible = true;
  FormLayout layout(dialog, 3, 2);
  const CellRect& client = layout.Client();
  for (int y = client.y; y < client.Bottom(); ++y) {
    for (int x = client.x; x < client.Right(); ++x) {
      forms::Control* drawn = layout.At(x, y);
      auto [fx, fy] = layout.FormPoint(x, y);
      EXPECT_EQ(dialog.ControlAt(fx, fy), drawn) << "cell " << x - client.x << "," << y - client.y;
      if (drawn) {
        auto [px, py] = layout.PointIn(*drawn, x, y);
        EXPECT_TRUE(px >= 0 && px < drawn->Width && py >= 0 && py < drawn->Height);
      }
    }
  }
}

TEST(FormLayoutTest, TextRunsOnOverFreeCellsUpToTheNextControlOrTheContainersEdge) {
  forms::Form form("F");
  form.Width = 40 * kCellX;
  form.Height = 10 * kCellY;
  forms::Frame frame(form, "Frame1");
  frame.Move(0, 0, 30 * kCellX, 5 * kCellY);
  forms::Label inside(frame, "Label1", "A long caption");
  inside.Move(kCellX, kCellY, 3 * kCellX, kCellY);
  forms::Label near(frame, "Label2", "x");
  near.Move(20 * kCellX, kCellY, 2 * kCellX, kCellY);
  forms::Label alone(form, "Label3", "y");
  alone.Move(kCellX, 7 * kCellY, kCellX, kCellY);
  forms::CommandButton tiny(form, "Command1", "&OK");
  tiny.Move(35 * kCellX, 8 * kCellY, 30, 30);  // smaller than a cell
  FormLayout layout(form, 0, 0);
  EXPECT_EQ(layout.Find(&inside)->textRight, 20);
  EXPECT_TRUE(layout.Find(&inside)->textMeetsControl);
  EXPECT_EQ(layout.Find(&near)->textRight, 30);  // the frame's edge
  EXPECT_FALSE(layout.Find(&near)->textMeetsControl);
  EXPECT_EQ(layout.Find(&alone)->textRight, 40);  // the client area's edge
  EXPECT_EQ(layout.Find(&tiny)->rect, (CellRect{35, 8, 1, 1}));
  // Outer controls come before the ones they hold.
  EXPECT_EQ(layout.Controls().front().control, &frame);
}

TEST(FormLayoutTest, AContainerCutsWhatItHoldsButAPanelDoesNot) {
  forms::Form form("F");
  form.Width = 20 * kCellX;
  form.Height = 10 * kCellY;
  forms::Frame frame(form, "Frame1");
  frame.Move(0, 0, 10 * kCellX, 4 * kCellY);
  forms::UserControl panel(frame, "Panel1");
  panel.Move(0, 0, 5 * kCellX, 2 * kCellY);
  forms::Label beyondPanel(panel, "Label1", "a");
  beyondPanel.Move(0, 3 * kCellY, kCellX, kCellY);  // below the panel, inside the frame
  forms::Label beyondFrame(panel, "Label2", "b");
  beyondFrame.Move(0, 6 * kCellY, kCellX, kCellY);  // below the frame
  FormLayout layout(form, 0, 0);
  EXPECT_EQ(layout.At(0, 3), &beyondPanel);
  EXPECT_EQ(layout.At(0, 6), nullptr);
  EXPECT_TRUE(layout.Find(&beyondFrame)->clip.Intersect(layout.Find(&beyondFrame)->rect).Empty());
}
