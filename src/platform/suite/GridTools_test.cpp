#include "platform/suite/GridTools.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/forms/TreeView.h"
#include "platform/grid/Grid.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/Registry.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/TempDir.h"

using namespace platform::suite;
using platform::grid::ColumnOrder;
using platform::grid::Grid;
using platform::grid::soAscending;
using platform::grid::soDescending;
using platform::forms::ScriptedPresenter;
using platform::forms::ScopedPresenter;

namespace {

class GridToolsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db = platform::dao::Workspace().CreateDatabase((dir.path() / "r.db").string(), platform::dao::dbLangGeneral);
    testsupport::CreateFindingsTable(*db, "T");
    testsupport::AddFindings(*db, "T", {{"P", "a.cs", "Method", "", "Run", 3, 4, "No comment"}});
    grid.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset));
    grid.Column("ID")->Visible = false;
    tools.Init(settings);
  }
  testsupport::TempDir dir;
  std::shared_ptr<IniSettingsStore> settings = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
  platform::Ref<platform::dao::Database> db;
  platform::forms::Form form{"F"};
  Grid grid{form, "GridEx1"};
  GridTools tools;
};

}  // namespace

TEST_F(GridToolsTest, GroupsByAColumnOnceAndRemovesGroupings) {
  tools.GroupByThisColumn(grid, grid.Column("Problem")->Index(), true);
  tools.GroupByThisColumn(grid, grid.Column("Problem")->Index(), true);
  tools.GroupByThisColumn(grid, grid.Column("Type")->Index(), true);
  EXPECT_TRUE(grid.GroupByBoxVisible);
  EXPECT_EQ(grid.Groups(), (std::vector<ColumnOrder>{{"Problem"}, {"Type"}}));
  tools.RemoveGrouping(grid, 1, true);
  EXPECT_EQ(grid.Groups(), (std::vector<ColumnOrder>{{"Type"}}));
  EXPECT_THROW(tools.RemoveGrouping(grid, 2, true), platform::Error);
  EXPECT_THROW(tools.GroupByThisColumn(grid, 0, true), platform::Error);
}

TEST_F(GridToolsTest, TheGroupByDialogOffersVisibleColumnsAndKeepsTheOrderChosen) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Check("lstColumns", "CDocument")
      .Check("lstColumns", "CProblem")
      .Do([](platform::forms::Form& f) { static_cast<platform::forms::TreeView*>(f.FindControl("lstColumns"))->UserClickNode("CProblem"); })
      .Click("Move &Up")  // above Status, End, Start, Member, Path, Type and Document
      .Click("Move &Up")
      .Click("Move &Up")
      .Click("Move &Up")
      .Click("Move &Up")
      .Click("Move &Up")
      .Click("Move &Up")
      .Click("D&escending")
      .Do([&](platform::forms::Form& f) {
        // "ID" is hidden: with option 1 it is not offered.
        auto* tree = static_cast<platform::forms::TreeView*>(f.FindControl("lstColumns"));
        EXPECT_EQ(tree->Find("CID"), nullptr);
        EXPECT_EQ(tree->Find("CProblem")->Text, "Problem (descending)");
      })
      .Click("&OK");
  ScopedPresenter scope(user);
  EXPECT_TRUE(tools.GroupByDialog(grid, 1));
  EXPECT_TRUE(user->errors.empty());
  EXPECT_EQ(grid.Groups(), (std::vector<ColumnOrder>{{"Problem", soDescending}, {"Document"}}));
  // The dialog's place is kept in the settings store.
  EXPECT_FALSE(settings->Read("Forms\\FGroupBy", "Left", platform::Variant()).IsEmpty());
}

TEST_F(GridToolsTest, CancelLeavesTheGridAsItWas) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Check("lstColumns", "CType").Click("&Cancel");
  ScopedPresenter scope(user);
  EXPECT_FALSE(tools.SortDialog(grid));
  EXPECT_TRUE(grid.SortKeys().empty());
}

TEST_F(GridToolsTest, TheFieldChooserShowsAndOrdersColumns) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Check("lstColumns", "CID")
      .Check("lstColumns", "CFlag")
      .Do([](platform::forms::Form& f) { static_cast<platform::forms::TreeView*>(f.FindControl("lstColumns"))->UserClickNode("CProject"); })
      .Click("cmdUp")
      .Click("&OK");
  ScopedPresenter scope(user);
  EXPECT_TRUE(tools.FieldChooser(grid));
  EXPECT_TRUE(grid.Column("ID")->Visible);
  EXPECT_FALSE(grid.Column("Flag")->Visible);
  EXPECT_EQ(grid.Column("Project")->Position(), 2);
  EXPECT_EQ(grid.Column("Flag")->Position(), 3);
}

TEST_F(GridToolsTest, TheSortDialogSetsTheSortKeys) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Check("lstColumns", "CStart").Check("lstColumns", "CMember").Click("&OK");
  ScopedPresenter scope(user);
  EXPECT_TRUE(tools.SortDialog(grid));
  EXPECT_EQ(grid.SortKeys(), (std::vector<ColumnOrder>{{"Member"}, {"Start"}}));
}

TEST(Registry, KeepsKeysAsSectionsOfTheSettingsStores) {
  testsupport::TempDir dir;
  auto user = std::make_shared<IniSettingsStore>(dir.path() / "u.ini");
  Registry registry(user);
  const std::string key = "Software\\Microsoft\\VisualStudio\\8.0\\FontAndColors\\{X}";
  EXPECT_EQ(registry.QueryValue(HKEY_CURRENT_USER, key, "FontName", "Courier New"), platform::Variant("Courier New"));
  registry.SetValue(HKEY_CURRENT_USER, key, "FontName", "Consolas");
  EXPECT_EQ(user->Read("HKEY_CURRENT_USER\\" + key, "FontName", ""), platform::Variant("Consolas"));
  EXPECT_EQ(registry.QueryValue(HKEY_LOCAL_MACHINE, key, "FontName", 1), platform::Variant(1));
  EXPECT_THROW(registry.QueryValue(7, key, "FontName", 1), platform::Error);
}
