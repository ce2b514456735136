#include "terminal/PopupMenu.h"

#include <gtest/gtest.h>

#include <clocale>

#include "terminal/EventLoop.h"
#include "terminal/MemoryTerminal.h"
#include "terminal/PaneMenu.h"

using namespace app::terminal;

namespace {

class PopupMenuTest : public ::testing::Test {
 protected:
  void SetUp() override { std::setlocale(LC_CTYPE, "C.UTF-8"); }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
  int Run(int x = 10, int y = 5) {
    PopupMenu menu(items, x, y);
    return menu.Run(loop);
  }

  MemoryTerminal screen{40, 12};
  EventLoop loop{screen, [this] { return screen.now; }};
  std::vector<PopupMenu::Item> items = {{"&Show in code", 1, true, "Enter"},
                                        {"", 0, true, ""},
                                        {"&Refresh", 4, false, "F5"},
                                        {"Sa&ve to file...", 7, true, "Ctrl+S"}};
};

}  // namespace

TEST_F(PopupMenuTest, DrawsItsItemsAndKeysInABoxKeptOnTheScreen) {
  screen.Call([&] {
    EXPECT_EQ(screen.Line(5), std::string(10, ' ') + "┌──────────────────────────┐");
    EXPECT_EQ(screen.Line(6), std::string(10, ' ') + "│ Show in code       Enter │");
    EXPECT_EQ(screen.Line(7), std::string(10, ' ') + "├──────────────────────────┤");
    auto [x, y] = screen.Find("Refresh");
    EXPECT_TRUE(screen.StyleAt(x, y).dim);
    EXPECT_EQ(screen.StyleAt(12, 6).color, Style::Selection);  // the first item
    EXPECT_TRUE(screen.StyleAt(12, 6).underline);              // its access key
  });
  screen.Key(key::Escape);
  EXPECT_EQ(Run(), 0);
  // Opened low on the right, it goes up and left to stay on the screen.
  PopupMenu menu(items, 35, 9);
  EXPECT_EQ(menu.Box(40, 12), (CellRect{12, 4, 28, 6}));
}

TEST_F(PopupMenuTest, TheKeysMovePastWhatCannotBeChosenAndChoose) {
  screen.Key(key::Down);  // past the separator and the disabled item
  screen.Key(key::Return);
  EXPECT_EQ(Run(), 7);
  screen.Key(key::Up);  // wraps round to the last
  screen.Key(key::Up);
  screen.Key(key::Return);
  EXPECT_EQ(Run(), 1);
  screen.Type("v");  // the access key
  EXPECT_EQ(Run(), 7);
  screen.Type("r");  // a disabled item's key does nothing
  screen.Key(key::F10);
  EXPECT_EQ(Run(), 0);
}

TEST_F(PopupMenuTest, TheMouseHighlightsChoosesAndClosesFromOutside) {
  // The menu's box starts at (10, 5): items from row 6.
  screen.Mouse(InputEvent::Move, 0, 14, 9);
  screen.Call([&] { EXPECT_EQ(screen.StyleAt(14, 9).color, Style::Selection); });
  screen.Click(14, 9);
  EXPECT_EQ(Run(), 7);
  screen.Click(14, 8);  // disabled
  screen.Click(2, 2);   // outside: closes
  EXPECT_EQ(Run(), 0);
}

TEST(PaneMenuTest, OffersWhatThePlaceAllowsWithTheCommandIdentifiers) {
  auto ids = [](const std::vector<PopupMenu::Item>& items) {
    std::vector<int> out;
    for (const auto& i : items)
      if (i.id != 0 && i.enabled) out.push_back(i.id);
    return out;
  };
  auto header = pane_menu::Items(2, false, 4, true, true, "C3", true);
  EXPECT_EQ(ids(header), (std::vector<int>{1, pane_menu::kEdit, 3, 4, 103, 9, 11, 12, 10, 5, 6, 7, 8, 13, pane_menu::kQuit}));
  auto box = pane_menu::Items(1, true, 0, false, false, "G1", false);
  EXPECT_EQ(ids(box), (std::vector<int>{3, 201, 9, 11, 12, 10, 6, 7, 8, 13, pane_menu::kQuit}));
  EXPECT_EQ(box[7].caption, "Hide group-by bo&x");
  EXPECT_EQ(pane_menu::IndexIn("C12", 'C'), 12);
  EXPECT_EQ(pane_menu::IndexIn("C", 'C'), -1);
  EXPECT_EQ(pane_menu::IndexIn("G1", 'C'), -1);
  EXPECT_EQ(pane_menu::IndexIn("C1x", 'C'), -1);
  EXPECT_EQ(pane_menu::IndexIn("C100", 'C'), -1);
}
