#include "pane/DocXMLAnalyzer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/SettingsKeys.h"
#include "pane/PaneFixture_test.h"
#include "platform/automation/Document.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "platform/suite/Registry.h"
#include "testsupport/TempDir.h"

using namespace annotra;
using namespace pane_test;
using platform::forms::vbLeftButton;
using platform::forms::vbRightButton;
namespace fs = std::filesystem;

namespace {

class DocTest : public PaneTest {
 protected:
  fs::path UserLayout(const char* name) { return dir.path() / "home" / "Layouts" / name; }

  // Records the document's events as lines.
  void Watch(DocXMLAnalyzer& doc) {
    doc.FindMenuPopupAsked.Connect([this](int32_t& hit, bool& box, int32_t& rows, bool& selected, std::string& extra) {
      events.push_back("menu " + std::to_string(hit) + " " + (box ? "box " : "") + std::to_string(rows) +
                       (selected ? " selected" : "") + " [" + extra + "]");
    });
    doc.FindNewAsked.Connect([this] { events.push_back("new"); });
    doc.FindSelectInCode.Connect([this](platform::grid::Grid& g) { events.push_back("select " + std::to_string(g.Row())); });
    doc.NewXmlAnalysis.Connect([this] { events.push_back("newanalysis"); });
    doc.Refresh.Connect([this] { events.push_back("refresh"); });
    doc.CollapseAll.Connect([this] { events.push_back("collapse"); });
    doc.ExpandAll.Connect([this] { events.push_back("expand"); });
    doc.ClearAll.Connect([this] { events.push_back("clear"); });
  }
  std::vector<std::string> events;
};

}  // namespace

TEST_F(DocTest, TheEmptyLayoutIsNeverSavedTheResultsLayoutIs) {
  auto& doc = Open();
  EXPECT_EQ(doc.CurrentLayout(), "iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.RowCount(), 4);
  EXPECT_FALSE(doc.GridEx1.Column("ID")->Visible);  // from the installed layout
  doc.LoadLayout("iwxml0.lyt");
  EXPECT_EQ(doc.GridEx1.RowCount(), 0);
  EXPECT_TRUE(doc.GridEx1.IsBound());
  doc.SaveLayout();
  EXPECT_FALSE(fs::exists(UserLayout("iwxml0.lyt")));
  EXPECT_FALSE(fs::exists(UserLayout("iwxml1.lyt")));
  doc.LoadLayout("iwxml1.lyt");
  doc.SaveLayout();
  EXPECT_TRUE(fs::exists(UserLayout("iwxml1.lyt")));
  EXPECT_FALSE(fs::exists(UserLayout("iwxml0.lyt")));
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(DocTest, EmptyGridLoadsTheLayoutAndLeavesTheGridUnbound) {
  auto& doc = Open();
  doc.GridEx1.Column("Problem")->Caption = "What";
  doc.LoadLayout("iwxml1.lyt", true);
  EXPECT_FALSE(doc.GridEx1.IsBound());
  EXPECT_EQ(doc.GridEx1.RowCount(), 0);
  EXPECT_EQ(doc.GridEx1.Column("Problem")->Caption, "Problem");
  EXPECT_EQ(doc.CurrentLayout(), "iwxml1.lyt");
}

TEST_F(DocTest, AnotherLayoutNameBindsNothingAndStillAppliesTheFont) {
  auto& doc = Open();
  doc.GridEx1.Font.Name = "Changed";
  doc.GridEx1.SetGroups({{"Problem"}});
  doc.LoadLayout("IWXML1.LYT");  // names are compared exactly
  EXPECT_EQ(doc.CurrentLayout(), "iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.Groups().size(), 1u);
  EXPECT_EQ(doc.GridEx1.RowCount(), 6);
  EXPECT_EQ(doc.GridEx1.Font.Name, "Tahoma");
  // A layout file that cannot be read leaves the grid as it was.
  fs::create_directories(UserLayout("").parent_path());
  std::ofstream(UserLayout("iwxml1.lyt")) << "[Nonsense]\n";
  doc.LoadLayout("iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.Groups().size(), 1u);
  EXPECT_EQ(doc.GridEx1.RowCount(), 6);  // bound again to the table
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(DocTest, FontsFollowTheSettingAndTheEditorsFontOfItsVersion) {
  auto& doc = Open();
  const std::string key8 = "Software\\Microsoft\\VisualStudio\\8.0\\" + std::string(registry::TextEditorFonts);
  const std::string key9 = "Software\\Microsoft\\VisualStudio\\9.0\\" + std::string(registry::TextEditorFonts);
  platform::suite::Registry reg(settings);
  reg.SetValue(platform::suite::HKEY_CURRENT_USER, key9, registry::FontName, "Consolas");
  reg.SetValue(platform::suite::HKEY_CURRENT_USER, key9, registry::FontPointSize, 11);
  reg.SetValue(platform::suite::HKEY_CURRENT_USER, key9, registry::PlainTextFontFlags, 1);

  // "Results" False (the default): Tahoma 8, whatever the editor uses.
  doc.LoadLayout("iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.Font.Name, "Tahoma");
  EXPECT_EQ(doc.GridEx1.Font.Size, 8);
  EXPECT_FALSE(doc.GridEx1.Font.Bold);

  // True, on an 8.0 environment with no font stored there: Courier New 8.
  settings->Write(section::Fonts, key::Results, true);
  doc.LoadLayout("iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.Font.Name, "Courier New");
  EXPECT_EQ(doc.GridEx1.Font.Size, 8);
  EXPECT_EQ(doc.GridEx1.HeaderFont.Name, "Courier New");

  // A 9.0 environment reads below "VisualStudio\9.0".
  MGlobals::DTEObject->SetRegistryRoot("Software\\Microsoft\\VisualStudio\\9.0");
  doc.LoadLayout("another.lyt");
  EXPECT_EQ(doc.GridEx1.Font.Name, "Consolas");
  EXPECT_EQ(doc.GridEx1.Font.Size, 11);
  EXPECT_TRUE(doc.GridEx1.Font.Bold);
  EXPECT_TRUE(doc.GridEx1.HeaderFont.Bold);
  EXPECT_FALSE(doc.GridEx1.Font.Italic);

  // A stored size below 1 leaves the fonts alone.
  reg.SetValue(platform::suite::HKEY_CURRENT_USER, key9, registry::FontPointSize, 0);
  reg.SetValue(platform::suite::HKEY_CURRENT_USER, key9, registry::FontName, "Other");
  doc.LoadLayout("iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.Font.Name, "Consolas");
  (void)key8;
}

TEST_F(DocTest, TheRightButtonAsksForAContextMenuFittingThePlace) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  const int document = grid.Column("Document")->Index();
  int x = ColumnX(grid, "Document"), y = HeaderY(grid);
  user->MouseDown("GridEx1", vbRightButton, x, y).MouseUp("GridEx1", vbRightButton, x, y);
  // A row: the current row follows the press.
  user->MouseDown("GridEx1", vbRightButton, x, RowY(grid, 2)).MouseUp("GridEx1", vbRightButton, x, RowY(grid, 2));
  // The part without rows.
  user->MouseDown("GridEx1", vbRightButton, x, RowY(grid, 9)).MouseUp("GridEx1", vbRightButton, x, RowY(grid, 9));
  // A left press then a right release; a right release where the hit code is 6.
  user->MouseDown("GridEx1", vbLeftButton, x, y).MouseUp("GridEx1", vbRightButton, x, y);
  user->MouseDown("GridEx1", vbRightButton, 10, y).MouseUp("GridEx1", vbRightButton, 10, y);
  // A move with another button between press and release.
  user->MouseDown("GridEx1", vbRightButton, x, y).Do([&](platform::forms::Form&) {
    grid.UserMouseMove(x, y, vbLeftButton);
  });
  user->MouseUp("GridEx1", vbRightButton, x, y);
  user->Play(doc);
  EXPECT_TRUE(user->errors.empty());
  EXPECT_EQ(events, (std::vector<std::string>{"menu 2 4 selected [C" + std::to_string(document) + "]",
                                              "menu 5 4 selected []", "menu 7 4 selected []"}));
  EXPECT_EQ(grid.Row(), 2);
}

TEST_F(DocTest, GroupByBoxEntriesAndHideGroupColumnsGiveTheirInformation) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  doc.GroupByThisColumn(static_cast<int16_t>(grid.Column("Problem")->Index()));
  ASSERT_TRUE(grid.GroupByBoxVisible);
  auto entry = grid.GroupByBoxEntries().at(0);
  user->MouseDown("GridEx1", vbRightButton, entry.left + 10, 100).MouseUp("GridEx1", vbRightButton, entry.left + 10, 100);
  // The box beside its entries is hit code 3: nothing.
  user->MouseDown("GridEx1", vbRightButton, 5000, 100).MouseUp("GridEx1", vbRightButton, 5000, 100);
  grid.AddColumn("HideGroup", "");
  grid.Column("HideGroup")->Width = 600;
  grid.MoveColumn("HideGroup", 2);
  int x = ColumnX(grid, "HideGroup");
  user->MouseDown("GridEx1", vbRightButton, x, HeaderY(grid)).MouseUp("GridEx1", vbRightButton, x, HeaderY(grid));
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"menu 1 box 6 selected [G1]", "menu 2 box 6 selected []"}));
}

TEST_F(DocTest, DoubleClicksGoToTheCodeOrAskForAnAnalysis) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  int x = ColumnX(grid, "Member");
  user->MouseDown("GridEx1", vbLeftButton, x, RowY(grid, 3)).DblClick("GridEx1", x, RowY(grid, 3));
  user->MouseDown("GridEx1", vbLeftButton, x, RowY(grid, 8)).DblClick("GridEx1", x, RowY(grid, 8));
  // After a right press a double click does nothing.
  user->MouseDown("GridEx1", vbRightButton, x, RowY(grid, 8)).DblClick("GridEx1", x, RowY(grid, 8));
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"select 3", "new"}));

  // A group row: neither (the grid opens or closes it itself).
  events.clear();
  grid.SetGroups({{"Problem"}});
  user->MouseDown("GridEx1", vbLeftButton, x, RowY(grid, 1)).DblClick("GridEx1", x, RowY(grid, 1));
  user->Play(doc);
  EXPECT_TRUE(events.empty());
  EXPECT_FALSE(grid.RowAt(1)->Expanded());

  // An empty solution: nothing.
  MGlobals::DTEObject->SetSolution(std::make_shared<platform::automation::Solution>(""));
  user->MouseDown("GridEx1", vbLeftButton, x, RowY(grid, 8)).DblClick("GridEx1", x, RowY(grid, 8));
  user->Play(doc);
  EXPECT_TRUE(events.empty());
}

TEST_F(DocTest, EnterHomeAndEndAreTheDocumentsAndTheGridDoesNotSeeThem) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  std::vector<int> seen;
  grid.KeyDown.Connect([&](int& key, int&) { seen.push_back(key); });
  user->Focus("GridEx1").Key(35).Key(13).Key(36).Key(40);
  user->Play(doc);
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(seen, (std::vector<int>{0, 0, 0, 40}));
  EXPECT_EQ(events, (std::vector<std::string>{"select 4"}));

  // No rows: nothing moves, the keys are swallowed all the same.
  doc.LoadLayout("iwxml0.lyt");
  seen.clear();
  user->Key(36).Key(35);
  user->Play(doc);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(seen, (std::vector<int>{0, 0}));
}

TEST_F(DocTest, TheToolbarRaisesItsEventsAnd1024Nothing) {
  auto& doc = Open();
  Watch(doc);
  doc.GridEx1.SetRow(2);
  int32_t id = ctlTbrResults::ID_HIGHLIGHTMATCHES;
  doc.TbrResults1.CommandClicked.Raise(id);
  id = 999;
  doc.TbrResults1.CommandClicked.Raise(id);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(doc.GridEx1.Row(), 2);
  user->Click("New").Click("Refresh").Click("Expand All").Click("Collapse All").Click("Clear All");
  user->Play(doc);
  EXPECT_TRUE(user->errors.empty());
  EXPECT_EQ(events, (std::vector<std::string>{"newanalysis", "refresh", "expand", "collapse", "clear"}));
}

TEST_F(DocTest, SelectInCodeMovesTheEditorAndMarksTheRowVisitedOnce) {
  auto& doc = Open();
  auto& grid = doc.GridEx1;
  grid.SetRow(2);  // Count, line 7 of a.cs
  EXPECT_EQ(doc.SelectInCode(""), 7);
  auto dte = MGlobals::DTEObject;
  ASSERT_TRUE(dte->ActiveDocument());
  EXPECT_EQ(dte->ActiveDocument()->Name(), "a.cs");
  auto text = dte->ActiveDocument()->Object("TextDocument");
  EXPECT_EQ(text->Selection()->ActivePoint()->Line(), 7);
  EXPECT_EQ(text->Selection()->ActivePoint()->LineCharOffset(), 1);
  EXPECT_TRUE(text->Selection()->IsEmpty());
  EXPECT_EQ(text->ShownLine(), 7);
  EXPECT_TRUE(dte->ActiveWindow()->Visible());
  EXPECT_EQ(FlagOf("Count"), 2);
  EXPECT_EQ(grid.RowStyle(2), "dimmed");

  // A second visit writes nothing: the table's value stays what it was made meanwhile.
  MGlobals::XMLAnalyzerDb()->Execute("UPDATE XMLAnalyzer1 SET Flag = 5 WHERE Member = 'Count'");
  EXPECT_EQ(doc.SelectInCode("unused"), 7);
  EXPECT_EQ(FlagOf("Count"), 5);

  // A document in a folder of the project.
  grid.SetRow(3);
  EXPECT_EQ(doc.SelectInCode(""), 3);
  EXPECT_EQ(dte->ActiveDocument()->Name(), "b.cs");
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(DocTest, SelectInCodeWithoutAFindingShowsNothing) {
  auto& doc = Open();
  auto& grid = doc.GridEx1;
  grid.SetGroups({{"Document"}});
  grid.SetRow(1);
  EXPECT_EQ(doc.SelectInCode(""), 0);
  EXPECT_FALSE(doc.IsGridRecordSelected());
  doc.LoadLayout("iwxml0.lyt");
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(doc.SelectInCode(""), 0);
  EXPECT_FALSE(doc.IsGridRecordSelected());
  EXPECT_EQ(MGlobals::DTEObject->ActiveDocument(), nullptr);
  EXPECT_TRUE(boxes->shown.empty());
}

TEST_F(DocTest, ARemovedDocumentIsNotReachableAndKeepsItsFlag) {
  auto& doc = Open();
  doc.GridEx1.SetRow(4);  // gone.cs
  EXPECT_EQ(doc.SelectInCode(""), 0);
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, "Could not locate item. The corresponding document is not reachable.");
  EXPECT_EQ(boxes->shown[0].title, "Scribane");
  EXPECT_EQ(boxes->shown[0].style, platform::forms::vbExclamation);
  EXPECT_EQ(FlagOf("G"), 0);
  // So does a row of a project the solution does not hold.
  AddFindings({{"Unloaded", "a.cs", "Class", "", "U", 1, 1, "No comment"}});
  doc.RefetchGridEx();
  doc.GridEx1.SetRow(5);
  EXPECT_EQ(doc.SelectInCode(""), 0);
  EXPECT_EQ(boxes->shown.size(), 2u);
  EXPECT_EQ(FlagOf("U"), 0);
}

TEST_F(DocTest, ALinePastTheEndIsTheEditorsLastLine) {
  AddFindings({{"Demo", "b.cs", "Class", "Sub", "Far", 400, 400, "No comment"}});
  auto& doc = Open(false);
  doc.GridEx1.SetRow(1);
  EXPECT_EQ(doc.SelectInCode(""), 5);  // b.cs ends in a line break: its last line is 5
  EXPECT_EQ(FlagOf("Far"), 2);
}

TEST_F(DocTest, NextAndPreviousWrapAroundAndSkipGroupRows) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  grid.SetRow(4);
  user->Click("Next").Click("Previous").Click("Previous");
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"select 1", "select 4", "select 3"}));

  // Grouped by document: rows G(a.cs) Run Count G(b.cs) B G(gone.cs) G.
  grid.SetGroups({{"Document"}});
  ASSERT_EQ(grid.RowCount(), 7);
  events.clear();
  grid.SetRow(3);
  user->Click("Next").Click("Next").Click("Next").Click("Previous").Click("Previous");
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"select 5", "select 7", "select 2", "select 7", "select 5"}));
}

TEST_F(DocTest, AGridOfGroupRowsOnlyComesBackToItsStartAndAnEmptyGridRaisesNothing) {
  auto& doc = Open();
  Watch(doc);
  auto& grid = doc.GridEx1;
  grid.SetGroups({{"Document"}});
  grid.CollapseAll();
  ASSERT_EQ(grid.RowCount(), 3);
  grid.SetRow(2);
  user->Click("Next").Click("Previous");
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"select 2", "select 2"}));
  EXPECT_EQ(doc.SelectInCode(""), 0);

  events.clear();
  doc.LoadLayout("iwxml0.lyt");
  user->Click("Next").Click("Previous");
  user->Play(doc);
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(DocTest, GridCommandsKeepTheLayoutFileUpToDate) {
  auto& doc = Open();
  auto& grid = doc.GridEx1;
  doc.ChangeGroupByBoxVisible();
  auto layout = platform::grid::ReadLayoutFile(UserLayout("iwxml1.lyt").string());
  EXPECT_TRUE(layout.groupByBoxVisible);
  doc.GroupByThisColumn(static_cast<int16_t>(grid.Column("Type")->Index()));
  doc.GroupByThisColumn(static_cast<int16_t>(grid.Column("Project")->Index()));
  doc.RemoveGroup(1);
  layout = platform::grid::ReadLayoutFile(UserLayout("iwxml1.lyt").string());
  EXPECT_EQ(layout.groups, (std::vector<platform::grid::ColumnOrder>{{"Project"}}));

  // The sort dialog, played by the user.
  user->Check("lstColumns", "CStart").Click("&OK");
  doc.Grid_Sort();
  layout = platform::grid::ReadLayoutFile(UserLayout("iwxml1.lyt").string());
  EXPECT_EQ(layout.sortKeys, (std::vector<platform::grid::ColumnOrder>{{"Start"}}));
  // The field chooser hides a column; the group-by dialog regroups.
  user->Check("lstColumns", "CType").Click("&OK");
  doc.Grid_ShowFields();
  EXPECT_FALSE(grid.Column("Type")->Visible);
  user->Check("lstColumns", "CProject").Check("lstColumns", "CDocument").Click("&OK");
  doc.Grid_GroupBy();
  layout = platform::grid::ReadLayoutFile(UserLayout("iwxml1.lyt").string());
  EXPECT_EQ(layout.groups, (std::vector<platform::grid::ColumnOrder>{{"Document"}}));
  EXPECT_TRUE(user->errors.empty());
  EXPECT_EQ(doc.GetGridVisibleColumns(), "[Flag], [Project], [Document], [Path], [Member], [Start], [End], [Status], [Problem]");

  // A bad index is reported with the operation's name and still saves.
  doc.RemoveGroup(9);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.DocXMLAnalyzer.RemoveGroup");
  EXPECT_EQ(report->entries[0].line, 3);
}

TEST_F(DocTest, TheLayoutKeepsOnePixelMarginsAndTheGridFillsTheRest) {
  auto& doc = Open();
  EXPECT_EQ(doc.TbrResults1.Left, 15);
  EXPECT_EQ(doc.TbrResults1.Top, 15);
  EXPECT_EQ(doc.TbrResults1.Width, 9600 - 30);
  EXPECT_EQ(doc.GridEx1.Top, doc.TbrResults1.Height + 30);
  EXPECT_EQ(doc.GridEx1.Height, 4800 - 30 - doc.TbrResults1.Height);
  EXPECT_FALSE(doc.GridEx1.ContinuousScroll);
  // A window too small for the controls leaves them where they were.
  window->WindowObject()->Resize(20, 100);
  EXPECT_EQ(doc.GridEx1.Width, 9600 - 30);
  window->WindowObject()->Resize(12000, 6000);
  EXPECT_EQ(doc.GridEx1.Width, 12000 - 30);
  // The toolbar's frame hides its grip and ends at the control's right edge.
  auto& frame = doc.TbrResults1.tbr;
  EXPECT_EQ(frame.Left, -45);
  EXPECT_EQ(frame.Left + frame.Width, doc.TbrResults1.Width);
}

TEST_F(DocTest, TheGridsErrorsAreAnsweredWithoutAMessage) {
  auto& doc = Open();
  doc.GridEx1.SetRow(1);
  MGlobals::XMLAnalyzerDb()->Close();  // the recordset goes with it
  doc.GridEx1.SetValue(doc.GridEx1.Column("Flag")->Index(), 2);
  EXPECT_THROW(doc.GridEx1.Update(), platform::Error);
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());
}
