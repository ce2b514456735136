#include "platform/grid/Grid.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/forms/MessageBox.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/TempDir.h"

using namespace platform::grid;
using platform::Ref;
using platform::Variant;
using testsupport::FindingRow;

namespace {

// A grid on a form, bound to a table of findings in a real database file.
class GridTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db = platform::dao::Workspace().CreateDatabase((dir.path() / "r.db").string(), platform::dao::dbLangGeneral);
    testsupport::CreateFindingsTable(*db, "T");
    grid.Move(0, 0, 12000, 240 * 12);
  }
  void Fill(const std::vector<FindingRow>& rows) { testsupport::AddFindings(*db, "T", rows); }
  void Bind() { grid.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset)); }
  std::string CellText(int position, const std::string& key) {
    return platform::ToString(grid.RowAt(position)->Value(grid.Column(key)->Index()));
  }
  // The rows as "G caption (count)" and "member" lines.
  std::vector<std::string> Shown() {
    std::vector<std::string> out;
    for (int i = 1; i <= grid.RowCount(); ++i) {
      auto row = grid.RowAt(i);
      if (row->RowType() == rtGroupHeader)
        out.push_back(std::string(row->GroupLevel(), ' ') + "G " + row->GroupCaption() + " (" +
                      std::to_string(row->RecordCount()) + ")");
      else
        out.push_back(CellText(i, "Member"));
    }
    return out;
  }

  testsupport::TempDir dir;
  Ref<platform::dao::Database> db;
  platform::forms::Form form{"F"};
  Grid grid{form, "GridEx1"};
};

const std::vector<FindingRow> kThree = {
    {"P", "b.cs", "Method", "", "Run", 30, 31, "Missing <summary> tag"},
    {"P", "a.cs", "Class", "", "Shape", 10, 40, "No comment"},
    {"Q", "a.cs", "Method", "Sub", "area", 12, 12, "Missing <summary> tag"},
};

}  // namespace

TEST_F(GridTest, BindsTheRecordsetAndMakesColumnsOfItsFields) {
  Fill(kThree);
  Bind();
  EXPECT_TRUE(grid.IsBound());
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.Row(), 1);
  ASSERT_EQ(grid.ColumnCount(), 11);
  EXPECT_EQ(grid.Column("Problem")->Index(), 11);
  EXPECT_EQ(grid.Column(3)->Key(), "Project");
  EXPECT_EQ(CellText(2, "Member"), "Shape");
  EXPECT_EQ(grid.RowAt(2)->RowType(), rtRecord);
  EXPECT_EQ(grid.RowAt(2)->RecordPosition(), 1);
  EXPECT_EQ(grid.RowAt(4), nullptr);
  EXPECT_EQ(grid.RowAt(0), nullptr);
  EXPECT_THROW(grid.Column("Nope"), platform::Error);
  EXPECT_THROW(grid.Column(12), platform::Error);
  EXPECT_THROW(grid.SetRow(4), platform::Error);
}

TEST_F(GridTest, RecordsAreReadAtTheirFirstUseNotWhenBound) {
  Fill(kThree);
  Bind();
  EXPECT_EQ(grid.MemoryUsed(), 0u);  // a run that never shows the rows holds none
  EXPECT_EQ(grid.Row(), 1);
  grid.Move(0, 0, 9000, 240 * 10);   // laying the grid out reads nothing either
  EXPECT_EQ(grid.MemoryUsed(), 0u);
  grid.SetGroups({{"Project"}});     // grouping needs the records: read now
  EXPECT_GT(grid.MemoryUsed(), 0u);
  EXPECT_EQ(Shown(), (std::vector<std::string>{"G Project: P (2)", "Run", "Shape", "G Project: Q (1)", "area"}));
  EXPECT_EQ(grid.Row(), 2);  // the first record stays current under its group row
}

TEST_F(GridTest, GroupsBySeveralColumnsWithCountsAndSortsInsideTheGroups) {
  Fill(kThree);
  Fill({{"P", "a.cs", "Method", "", "Zed", 5, 5, "Missing <summary> tag"}});
  Bind();
  grid.SetGroups({{"Problem"}, {"Document", soDescending}});
  grid.SetSortKeys({{"Start"}});
  EXPECT_EQ(Shown(), (std::vector<std::string>{"G Problem: Missing <summary> tag (3)", " G Document: b.cs (1)", "Run",
                                               " G Document: a.cs (2)", "Zed", "area", "G Problem: No comment (1)",
                                               " G Document: a.cs (1)", "Shape"}));
  EXPECT_TRUE(grid.IsGroupRow(1));
  EXPECT_EQ(grid.RowAt(3)->GroupLevel(), 2);
  EXPECT_EQ(grid.RowAt(1)->Value(grid.Column("Problem")->Index()), Variant("Missing <summary> tag"));
  EXPECT_TRUE(grid.RowAt(1)->Value(grid.Column("Member")->Index()).IsEmpty());

  grid.CollapseAll();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"G Problem: Missing <summary> tag (3)", "G Problem: No comment (1)"}));
  grid.SetExpanded(2, true);
  EXPECT_EQ(grid.RowCount(), 3);
  grid.ExpandAll();
  EXPECT_EQ(grid.RowCount(), 9);
  // Text sorts without regard to case; a column named twice is refused.
  grid.SetGroups({});
  grid.SetSortKeys({{"Member", soDescending}});
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Zed", "Shape", "Run", "area"}));
  EXPECT_THROW(grid.SetGroups({{"Type"}, {"type"}}), platform::Error);
  EXPECT_THROW(grid.SetGroups({{"Nope"}}), platform::Error);
}

TEST_F(GridTest, AChangedCellIsWrittenToItsRecord) {
  Fill(kThree);
  Bind();
  grid.SetSortKeys({{"Start"}});
  grid.SetRow(2);  // Start 12: the third record
  const int flag = grid.Column("Flag")->Index();
  EXPECT_EQ(grid.EditMode(), 0);
  grid.SetValue(flag, 2);
  EXPECT_EQ(grid.EditMode(), 1);
  EXPECT_EQ(grid.Value(flag), Variant(2));
  grid.Update();
  EXPECT_EQ(grid.EditMode(), 0);
  auto rs = db->OpenRecordset("T", platform::dao::dbOpenSnapshot);
  rs->SetAbsolutePosition(2);
  EXPECT_EQ(platform::ToInt32(rs->Fields("Flag")->Value()), 2);
  rs->SetAbsolutePosition(0);
  EXPECT_EQ(platform::ToInt32(rs->Fields("Flag")->Value()), 0);
  // A group row has no record to change; a value out of the field's range is refused
  // through the error event, whose handler can keep the grid from showing a message.
  grid.SetGroups({{"Project"}});
  grid.SetRow(1);
  EXPECT_THROW(grid.SetValue(flag, 2), platform::Error);
  grid.SetRow(2);
  auto boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scope(boxes);
  int errors = 0;
  grid.Error.Connect([&](int, const std::string&, int& response) {
    ++errors;
    response = 0;
  });
  grid.SetValue(flag, 300);
  EXPECT_THROW(grid.Update(), platform::Error);
  EXPECT_EQ(errors, 1);
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_EQ(grid.EditMode(), 0);
}

TEST_F(GridTest, RefetchReadsWhatTheTableHoldsNowAndKeepsGroupsCollapsed) {
  Fill(kThree);
  Bind();
  grid.SetGroups({{"Project"}});
  grid.SetExpanded(1, false);
  EXPECT_EQ(grid.RowCount(), 3);  // P collapsed, Q and its record
  Fill({{"P", "c.cs", "Enum", "", "E", 1, 2, "No comment"}});
  grid.Refetch();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"G Project: P (3)", "G Project: Q (1)", "area"}));
  grid.ClearRows();
  EXPECT_EQ(grid.RowCount(), 0);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_TRUE(grid.IsBound());
  grid.Refetch();
  EXPECT_EQ(grid.RowCount(), 3);
  grid.Unbind();
  EXPECT_EQ(grid.RowCount(), 0);
  EXPECT_FALSE(grid.IsBound());
}

TEST_F(GridTest, HitTestNamesThePartsUnderAPoint) {
  Fill(kThree);
  Bind();
  grid.Column("ID")->Visible = false;
  grid.GroupByBoxVisible = true;
  grid.SetGroups({{"Project"}});
  const int columnsLeft = Grid::kSelectorWidth + Grid::kGroupIndent;
  auto entries = grid.GroupByBoxEntries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].caption, "Project");
  EXPECT_EQ(grid.HitTest(entries[0].left + 10, 100), gaGroupByBoxEntry);
  EXPECT_EQ(grid.GroupFromPoint(entries[0].left + 10, 100), 1);
  EXPECT_EQ(grid.HitTest(entries[0].left + entries[0].width + 50, 100), gaGroupByBox);
  // Headers: Flag is the first visible column, right after the indent.
  EXPECT_EQ(grid.HitTest(columnsLeft + 10, 300), gaColumnHeader);
  EXPECT_EQ(grid.ColumnFromPoint(columnsLeft + 10, 300)->Key(), "Flag");
  EXPECT_EQ(grid.HitTest(10, 300), gaHeaderBlank);
  // Rows: two group rows and the records of the expanded groups (4 rows).
  EXPECT_EQ(grid.RowCount(), 5);
  EXPECT_EQ(grid.HitTest(columnsLeft + 10, 480 + 10), gaRow);
  EXPECT_EQ(grid.RowFromPoint(columnsLeft + 10, 480 + 240 + 10), 2);
  EXPECT_EQ(grid.HitTest(10, 480 + 10), gaRowSelector);
  EXPECT_EQ(grid.HitTest(columnsLeft, 480 + 5 * 240 + 10), gaNoRows);
  EXPECT_EQ(grid.HitTest(-1, 10), gaNothing);
  EXPECT_EQ(grid.HitTest(12000, 10), gaNothing);
  // Scrolling moves the rows under the points.
  grid.SetTopRow(3);
  EXPECT_EQ(grid.RowFromPoint(columnsLeft, 480 + 10), 3);
}

TEST_F(GridTest, TheUserMovesThroughTheRowsAndOpensAndClosesGroups) {
  Fill(kThree);
  Bind();
  grid.SetGroups({{"Project"}});
  int downs = 0;
  grid.MouseDown.Connect([&](int, int, int, int) { ++downs; });
  // A press on a row selects it; a press on a group row's sign closes the group.
  grid.UserMouseDown(platform::forms::vbLeftButton, 2000, 240 + 2 * 240 + 10);
  EXPECT_EQ(grid.Row(), 3);
  grid.UserMouseDown(platform::forms::vbLeftButton, Grid::kSelectorWidth + 10, 240 + 10);
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(downs, 2);
  grid.UserDblClick(2000, 240 + 10);
  EXPECT_EQ(grid.RowCount(), 5);
  int key = 35;
  grid.UserKey(key, 0);
  EXPECT_EQ(grid.Row(), 5);
  key = 38;
  grid.UserKey(key, 0);
  EXPECT_EQ(grid.Row(), 4);
  // A handler that takes the key leaves the grid where it was.
  grid.KeyDown.Connect([](int& code, int&) { code = 0; });
  key = 36;
  grid.UserKey(key, 0);
  EXPECT_EQ(grid.Row(), 4);
}

TEST_F(GridTest, LayoutsRoundTripThroughFilesAndKeepTheColumnsOnRebinding) {
  Fill(kThree);
  Bind();
  grid.Column("ID")->Visible = false;
  grid.Column("Problem")->Caption = "Problem\nfound";
  grid.Column("Problem")->Width = 4800;
  grid.MoveColumn("Problem", 1);
  grid.SetGroups({{"Document", soDescending}});
  grid.SetSortKeys({{"Start"}});
  grid.GroupByBoxVisible = true;
  grid.FormatConditions = {{"Flag", "2", "dimmed"}};
  grid.PrinterSettings().SetOrientation(poLandscape);
  const std::string path = (dir.path() / "x.lyt").string();
  grid.SaveLayoutFile(path);

  Grid other(form, "Other");
  other.LoadLayoutFile(path);
  EXPECT_EQ(other.Layout(), grid.Layout());
  other.ClearRows();
  other.KeepColumns = true;
  other.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset));
  EXPECT_EQ(other.Column("Problem")->Position(), 1);
  EXPECT_EQ(other.Column("Problem")->Caption, "Problem\nfound");
  EXPECT_FALSE(other.Column("ID")->Visible);
  EXPECT_EQ(other.Groups(), (std::vector<ColumnOrder>{{"Document", soDescending}}));
  EXPECT_EQ(other.RowCount(), 5);

  // Without the binding option the columns come afresh from the fields.
  other.KeepColumns = false;
  other.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset));
  EXPECT_TRUE(other.Column("ID")->Visible);
  EXPECT_EQ(other.Column("Problem")->Position(), 11);
}

TEST(GridLayout, ReportsWhereAFileIsWrong) {
  try {
    ParseLayout("[Grid]\nGroupByBoxVisible=1\n[Column A]\nWidht=3\n", "my.lyt");
    FAIL();
  } catch (const platform::Error& e) {
    EXPECT_EQ(e.number, 5);
    EXPECT_EQ(e.description, "my.lyt:4: unknown setting \"Widht\" of a column");
  }
  EXPECT_THROW(ParseLayout("[Groups]\nsideways A\n", "x"), platform::Error);
  EXPECT_THROW(ParseLayout("Width=3\n", "x"), platform::Error);
  EXPECT_THROW(ParseLayout("[Column A]\n[Column A]\n", "x"), platform::Error);
  EXPECT_THROW(ReadLayoutFile("/nonexistent/x.lyt"), platform::Error);
  auto layout = ParseLayout("; comment\n[Conditions]\ndimmed Flag=2\n[Sort]\ndescending Start\n", "x");
  EXPECT_EQ(layout.conditions, (std::vector<FormatCondition>{{"Flag", "2", "dimmed"}}));
  EXPECT_EQ(layout.sortKeys, (std::vector<ColumnOrder>{{"Start", soDescending}}));
}

TEST_F(GridTest, FormatConditionsStyleTheRecordsTheyMatch) {
  Fill({{"P", "a.cs", "Class", "", "A", 1, 1, "No comment", 2}, {"P", "a.cs", "Class", "", "B", 2, 2, "No comment", 0}});
  Bind();
  grid.FormatConditions = {{"Flag", "2", "dimmed"}};
  EXPECT_EQ(grid.RowStyle(1), "dimmed");
  EXPECT_EQ(grid.RowStyle(2), "");
}

TEST(CompareCells, OrdersEmptyThenNumbersThenTextWithoutCase) {
  EXPECT_LT(CompareCells(Variant(), Variant(0)), 0);
  EXPECT_LT(CompareCells(Variant(2), Variant(10.5)), 0);
  EXPECT_LT(CompareCells(Variant(99), Variant("1")), 0);
  EXPECT_LT(CompareCells(Variant("apple"), Variant("Banana")), 0);
  EXPECT_EQ(CompareCells(Variant(2), Variant(2.0)), 0);
  EXPECT_NE(CompareCells(Variant("a"), Variant("A")), 0);
}

TEST_F(GridTest, ManyNestedGroupsCountEveryRecordOnce) {
  std::vector<FindingRow> rows;
  for (int i = 0; i < 300; ++i)
    rows.push_back({"P" + std::to_string(i % 7), "d" + std::to_string(i % 23) + ".cs", "T" + std::to_string(i % 3), "",
                    "m" + std::to_string(i), i, i, "No comment"});
  Fill(rows);
  Bind();
  grid.SetGroups({{"Project"}, {"Document"}, {"Type"}});
  int records = 0, innermost = 0, top = 0;
  for (int i = 1; i <= grid.RowCount(); ++i) {
    auto row = grid.RowAt(i);
    if (row->RowType() == rtRecord) ++records;
    else if (row->GroupLevel() == 2) innermost += row->RecordCount();
    else if (row->GroupLevel() == 0) top += row->RecordCount();
  }
  EXPECT_EQ(records, 300);
  EXPECT_EQ(innermost, 300);
  EXPECT_EQ(top, 300);
}
