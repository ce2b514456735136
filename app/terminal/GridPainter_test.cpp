#include "terminal/GridPainter.h"

#include <gtest/gtest.h>

#include <clocale>
#include <iterator>

#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/grid/Grid.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/TempDir.h"
#include "terminal/MemoryTerminal.h"

using namespace app::terminal;
using testsupport::FindingRow;

namespace {

constexpr int kCellX = platform::forms::Screen::TwipsPerCellX, kCellY = platform::forms::Screen::TwipsPerCellY;

// A grid bound to findings in a real database file, drawn on a screen in memory.
class GridPainterTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    db = platform::dao::Workspace().CreateDatabase((dir.path() / "r.db").string(), platform::dao::dbLangGeneral);
    testsupport::CreateFindingsTable(*db, "T");
    testsupport::AddFindings(*db, "T",
                             {{"P", "b.cs", "Method", "", "Run", 30, 31, "Missing <summary> tag", 2},
                              {"P", "a.cs", "Class", "", "Shape", 10, 40, "No comment"},
                              {"Q", "a.cs", "Method", "Sub", "area", 12, 12, "Missing <summary> tag"}});
    grid.Move(0, 0, 40 * kCellX, 6 * kCellY);
    grid.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset));
    for (const char* key : {"ID", "Flag", "Path", "Start", "End", "Status", "Problem"}) grid.Column(key)->Visible = false;
    for (const char* key : {"Project", "Document", "Type", "Member"}) grid.Column(key)->Width = 8 * kCellX;
    grid.FormatConditions.push_back({"Flag", "2", "dimmed"});
  }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
  void Draw(bool focused = true) {
    screen.Clear();
    GridPainter(screen, Glyphs::For(true)).Draw(grid, {0, 0, 40, 6}, focused, Style::Plain);
  }

  testsupport::TempDir dir;
  platform::Ref<platform::dao::Database> db;
  platform::forms::Form form{"F"};
  platform::grid::Grid grid{form, "GridEx1"};
  MemoryTerminal screen{40, 6};
};

}  // namespace

TEST_F(GridPainterTest, DrawsHeadersRecordsTheCurrentRowAndVisitedRowsDimmed) {
  grid.SetRow(2);
  Draw();
  EXPECT_EQ(screen.Line(0), "  Project Docume… Type    Member");
  EXPECT_EQ(screen.Line(1), "  P       b.cs    Method  Run");
  EXPECT_EQ(screen.Line(2), "▶ P       a.cs    Class   Shape");
  EXPECT_EQ(screen.Line(3), "  Q       a.cs    Method  area");
  EXPECT_TRUE(screen.StyleAt(2, 1).dim);  // Flag 2: visited
  EXPECT_FALSE(screen.StyleAt(2, 3).dim);
  EXPECT_EQ(screen.StyleAt(10, 2).color, Style::Selection);
  EXPECT_TRUE(screen.StyleAt(2, 0).underline);
  // Without the focus the current row is still marked, in reverse.
  Draw(false);
  EXPECT_TRUE(screen.StyleAt(10, 2).reverse);
}

TEST_F(GridPainterTest, DrawsTheGroupByBoxAndGroupRowsIndentedWithTheirCounts) {
  grid.GroupByBoxVisible = true;
  grid.SetGroups({{"Problem", platform::grid::soAscending}});
  grid.CollapseAll();
  grid.SetExpanded(2, true);
  Draw();
  EXPECT_EQ(screen.Line(0), " [Problem ×]");
  EXPECT_EQ(screen.Line(1), "    Project Docume… Type    Member");
  EXPECT_EQ(screen.Line(2), "▶ ▸ Problem: Missing <summary> tag (2)");
  EXPECT_EQ(screen.Line(3), "  ▾ Problem: No comment (1)");
  EXPECT_EQ(screen.Line(4), "    P       a.cs    Class   Shape");
  EXPECT_TRUE(screen.StyleAt(4, 3).bold);
}

TEST_F(GridPainterTest, AGroupByBoxEntryIsDrawnOverTheCellsWhereTheGridFindsIt) {
  grid.GroupByBoxVisible = true;
  grid.SetGroups({{"Problem", platform::grid::soAscending}, {"Document", platform::grid::soAscending}});
  Draw();
  EXPECT_EQ(screen.Line(0), " [Problem ×] [Document ×]");
  // A cell's centre lies in the entry drawn there, and in none where no entry is.
  const int entry[] = {0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 0};
  for (int x = 0; x < static_cast<int>(std::size(entry)); ++x)
    EXPECT_EQ(grid.GroupFromPoint(x * kCellX + kCellX / 2, kCellY / 2), entry[x]) << "cell " << x;
}

TEST_F(GridPainterTest, CutsColumnsScrolledToTheLeftAndMarksRowsOutOfSight) {
  grid.Move(0, 0, 20 * kCellX, 3 * kCellY);  // the headers and two rows
  grid.SetScrollLeft(6 * kCellX);
  screen.Clear();
  GridPainter(screen, Glyphs::For(true)).Draw(grid, {0, 0, 20, 3}, true, Style::Plain);
  EXPECT_EQ(screen.Line(0), "  t Docume… Type");  // "Project" scrolled off but its end
  EXPECT_EQ(screen.Line(1), "▶   b.cs    Method");
  EXPECT_EQ(screen.Line(2), "    a.cs    Class  ▼");
  grid.SetTopRow(2);
  screen.Clear();
  GridPainter(screen, Glyphs::For(true)).Draw(grid, {0, 0, 20, 3}, true, Style::Plain);
  EXPECT_EQ(screen.Line(1), "    a.cs    Class  ▲");
  EXPECT_EQ(screen.Line(2), "    a.cs    Method");
}

TEST_F(GridPainterTest, SaysHowToGroupWhenTheGroupByBoxIsEmpty) {
  grid.GroupByBoxVisible = true;
  Draw();
  EXPECT_EQ(screen.Line(0), " Group by: none (right button on a colum");
}
