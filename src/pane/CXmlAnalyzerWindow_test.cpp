#include "pane/CXmlAnalyzerWindow.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "pane/PaneFixture_test.h"
#include "platform/automation/Window.h"
#include "platform/forms/DoEvents.h"
#include "platform/grid/GridLayout.h"

using namespace annotra;
using namespace pane_test;
namespace fs = std::filesystem;

namespace {

class WindowTest : public PaneTest {
 protected:
  void Watch() {
    window->FindMenuPopupAsked.Connect([this](int32_t& hit, bool& docked, bool& box, int32_t& rows, bool& selected,
                                              bool& canRefresh, std::string& extra) {
      events.push_back("menu " + std::to_string(hit) + (docked ? " docked" : "") + (box ? " box" : "") + " " +
                       std::to_string(rows) + (selected ? " selected" : "") + (canRefresh ? " refresh" : "") + " [" +
                       extra + "]");
    });
    window->FindNewAsked.Connect([this] { events.push_back("new"); });
    window->RefreshAsked.Connect([this] { events.push_back("refresh"); });
    window->SelectInCodeEvent.Connect([this](int32_t line) { events.push_back("line " + std::to_string(line)); });
  }
  std::vector<std::string> events;
};

}  // namespace

TEST_F(WindowTest, InitializeMakesTheHiddenToolWindowWithTheDocumentOnItsLayout) {
  AddFindings();
  window = std::make_unique<CXmlAnalyzerWindow>();
  bool posted = false;
  platform::forms::PostAction([&] { posted = true; });
  window->Initialize(kCaption, kGuid, "iwxml1.lyt", "XMLAnalyzer1", false);
  EXPECT_TRUE(posted);  // the host's messages ran
  auto tool = window->WindowObject();
  ASSERT_TRUE(tool);
  EXPECT_EQ(tool->Caption(), kCaption);
  EXPECT_EQ(tool->ObjectKind(), kGuid);
  EXPECT_FALSE(window->Visible());
  ASSERT_TRUE(window->Document());
  EXPECT_EQ(tool->Object(), window->Document());
  EXPECT_EQ(window->Document()->CurrentLayout(), "iwxml1.lyt");
  EXPECT_EQ(window->Document()->GridEx1.RowCount(), 4);

  window->ShowResults();
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(MGlobals::DTEObject->ActiveWindow(), tool);
  EXPECT_TRUE(window->Document()->IsVisible());
  window->RestorePosition();
  EXPECT_TRUE(window->Visible());
  window->Hide();
  EXPECT_FALSE(window->Visible());
  window->ShowResults();
  EXPECT_TRUE(window->Visible());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(WindowTest, InitializeWithEmptyGridLeavesTheGridUnbound) {
  AddFindings();
  window = std::make_unique<CXmlAnalyzerWindow>();
  window->Initialize(kCaption, kGuid, "iwxml1.lyt", "XMLAnalyzer1", true);
  EXPECT_FALSE(window->Document()->GridEx1.IsBound());
  window->LoadLayout("iwxml1.lyt");
  EXPECT_EQ(window->Document()->GridEx1.RowCount(), 4);
}

TEST_F(WindowTest, ClearEmptiesTheResultsAndPutsTheCaptionBack) {
  Open();
  window->WindowObject()->SetCaption(std::string(kCaption) + " (4 problems)");
  window->SetCanRefresh(true);
  window->Clear();
  EXPECT_EQ(window->WindowObject()->Caption(), kCaption);
  EXPECT_FALSE(window->CanRefresh());
  EXPECT_EQ(window->Document()->GridEx1.RowCount(), 0);
  EXPECT_TRUE(window->Document()->GridEx1.IsBound());
  EXPECT_EQ(window->ResultCount(), 0);

  // With ClearNoRefresh the grid reads its table once more: findings written since
  // show.
  AddFindings({{"Demo", "a.cs", "Class", "", "A", 4, 9, "No comment"}});
  window->SetCanRefresh(true);
  window->WindowObject()->SetCaption("x");
  window->Clear(true);
  EXPECT_EQ(window->WindowObject()->Caption(), kCaption);
  EXPECT_FALSE(window->CanRefresh());
  EXPECT_EQ(window->Document()->GridEx1.RowCount(), 0);
  EXPECT_EQ(window->ResultCount(), 0);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(WindowTest, ClearBeforeTheDatabaseExistsChangesNothing) {
  window = std::make_unique<CXmlAnalyzerWindow>();
  // A window made without the document's binding: no database yet.
  window->Initialize(kCaption, kGuid, "other.lyt", "XMLAnalyzer1", true);
  MGlobals::XMLAnalyzerDb_IsCreated() ? (void)MGlobals::XMLAnalyzerDb()->Close() : (void)0;
  MGlobals::ForgetXMLAnalyzerDbForTesting();
  window->WindowObject()->SetCaption("kept");
  window->SetCanRefresh(true);
  window->Clear();
  EXPECT_EQ(window->WindowObject()->Caption(), "kept");
  EXPECT_TRUE(window->CanRefresh());
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
}

TEST_F(WindowTest, TheContextMenuCarriesDockedAndCanRefreshAndHandlersWriteBack) {
  auto& doc = Open();
  Watch();
  auto& grid = doc.GridEx1;
  const int x = ColumnX(grid, "Member"), y = RowY(grid, 1);
  user->MouseDown("GridEx1", platform::forms::vbRightButton, x, y).MouseUp("GridEx1", platform::forms::vbRightButton, x, y);
  user->Play(doc);
  window->WindowObject()->SetLinkedWindowFrame(std::make_shared<platform::automation::Window>("frame", nullptr, nullptr, true));
  window->SetCanRefresh(true);
  user->MouseDown("GridEx1", platform::forms::vbRightButton, x, y).MouseUp("GridEx1", platform::forms::vbRightButton, x, y);
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"menu 5 4 selected []", "menu 5 docked 4 selected refresh []"}));
  // A handler that changes CanRefresh changes the controller's flag.
  window->FindMenuPopupAsked.Connect([](int32_t&, bool&, bool&, int32_t&, bool&, bool& canRefresh, std::string&) {
    canRefresh = false;
  });
  user->MouseDown("GridEx1", platform::forms::vbRightButton, x, y).MouseUp("GridEx1", platform::forms::vbRightButton, x, y);
  user->Play(doc);
  EXPECT_FALSE(window->CanRefresh());
}

TEST_F(WindowTest, TheToolbarReachesTheControllersEvents) {
  auto& doc = Open();
  Watch();
  auto& grid = doc.GridEx1;
  grid.SetGroups({{"Document"}});
  user->Click("Collapse All");
  user->Play(doc);
  EXPECT_EQ(grid.RowCount(), 3);
  user->Click("Expand All");
  user->Play(doc);
  EXPECT_EQ(grid.RowCount(), 7);
  // Next from a record: the next record, shown in the editor.
  grid.SetRow(2);
  user->Click("Next").Click("Refresh").Click("New");
  user->Play(doc);
  EXPECT_EQ(events, (std::vector<std::string>{"line 7", "refresh", "new"}));
  EXPECT_EQ(grid.Row(), 3);
  EXPECT_TRUE(boxes->shown.empty());

  // "New" without a project in the solution: the open-project message, no event.
  events.clear();
  MGlobals::DTEObject->SetSolution(std::make_shared<platform::automation::Solution>(""));
  user->Click("New");
  user->Play(doc);
  EXPECT_TRUE(events.empty());
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, "No project currently open - cannot use this tool.");

  // "Clear All" clears with ClearNoRefresh False.
  window->SetCanRefresh(true);
  user->Click("Clear All");
  user->Play(doc);
  EXPECT_FALSE(window->CanRefresh());
  EXPECT_EQ(grid.RowCount(), 0);
}

TEST_F(WindowTest, SelectInCodeRaisesTheLineOnlyWhenThereIsOne) {
  auto& doc = Open();
  Watch();
  doc.GridEx1.SetRow(1);
  window->SelectInCode();
  doc.GridEx1.SetGroups({{"Document"}});
  doc.GridEx1.SetRow(1);
  window->SelectInCode();
  doc.LoadLayout("iwxml0.lyt");
  window->SelectInCode();
  EXPECT_EQ(events, (std::vector<std::string>{"line 6"}));
}

TEST_F(WindowTest, ThePrintPreviewHasItsTitleAndHeaderOrSaysThereIsNoPrinter) {
  auto& doc = Open();
  {
    platform::suite::ScopedPrinterProbe probe(std::make_shared<platform::suite::FixedPrinterProbe>(""));
    window->PrintPreview();
    ASSERT_EQ(boxes->shown.size(), 1u);
    EXPECT_EQ(boxes->shown[0].prompt,
              "There is no printer installed or no default printer.\r\nPlease install/set a default printer and then try again.");
    EXPECT_EQ(boxes->shown[0].style, platform::forms::vbExclamation);
    EXPECT_EQ(boxes->shown[0].title, "Scribane");
    EXPECT_TRUE(viewer->opened.empty());
  }
  platform::suite::ScopedPrinterProbe probe(std::make_shared<platform::suite::FixedPrinterProbe>("Office"));
  window->PrintPreview();
  ASSERT_EQ(viewer->opened.size(), 1u);
  std::ifstream in(viewer->opened[0]);
  std::string page((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(page.find("<title>Scribane Print Preview - Annotra</title>"), std::string::npos);
  EXPECT_NE(page.find("<div class=\"l\">Scribane - Annotra (0 results)</div>"), std::string::npos);
  EXPECT_NE(page.find("size: A4 landscape"), std::string::npos);
  EXPECT_NE(page.find("width: 100%"), std::string::npos);
  EXPECT_FALSE(doc.GridEx1.PrinterSettings().FooterString(2).empty());
  EXPECT_NE(page.find(doc.GridEx1.PrinterSettings().FooterString(2)), std::string::npos);
}

TEST_F(WindowTest, TheGroupingIsKeptInTheLayoutAfterShutdown) {
  auto& doc = Open();
  window->GroupByThisColumn(static_cast<int16_t>(doc.GridEx1.Column("Problem")->Index()));
  window->GroupByBox();  // hides the box the grouping showed
  doc.GridEx1.Column("Member")->Width = 2000;
  window->Shutdown();
  EXPECT_FALSE(window->Document());
  auto layout = platform::grid::ReadLayoutFile((dir.path() / "home" / "Layouts" / "iwxml1.lyt").string());
  EXPECT_EQ(layout.groups, (std::vector<platform::grid::ColumnOrder>{{"Problem"}}));
  EXPECT_FALSE(layout.groupByBoxVisible);
  // The next session's window opens on it.
  window = std::make_unique<CXmlAnalyzerWindow>();
  window->Initialize(kCaption, kGuid, "iwxml1.lyt", "XMLAnalyzer1", false);
  EXPECT_EQ(window->Document()->GridEx1.Groups(), layout.groups);
  EXPECT_EQ(window->Document()->GridEx1.Column("Member")->Width, 2000);
  // Commands after a shutdown are reported, not thrown.
  window->Shutdown();
  window->Sort();
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerWindow.Sort");
  EXPECT_EQ(report->entries[0].message, "(91) 'Object variable or With block variable not set'");
}

TEST_F(WindowTest, TheResultsLayoutIsNotSavedWhileTheEmptyOneIsShown) {
  auto& doc = Open();
  window->LoadLayout("iwxml0.lyt");
  doc.GridEx1.SetGroups({{"Type"}});
  window->Shutdown();
  EXPECT_FALSE(fs::exists(dir.path() / "home" / "Layouts" / "iwxml1.lyt"));
  EXPECT_FALSE(fs::exists(dir.path() / "home" / "Layouts" / "iwxml0.lyt"));
}

TEST_F(WindowTest, TheSortAndFieldCommandsOpenTheirDialogs) {
  auto& doc = Open();
  user->Check("lstColumns", "CMember").Click("&OK");
  window->Sort();
  EXPECT_EQ(doc.GridEx1.SortKeys(), (std::vector<platform::grid::ColumnOrder>{{"Member"}}));
  user->Check("lstColumns", "CPath").Click("&OK");
  window->ShowFields();
  EXPECT_FALSE(doc.GridEx1.Column("Path")->Visible);
  user->Check("lstColumns", "CType").Click("&OK");
  window->GroupBy();
  EXPECT_EQ(doc.GridEx1.Groups(), (std::vector<platform::grid::ColumnOrder>{{"Type"}}));
  window->RemoveGroup(1);
  EXPECT_TRUE(doc.GridEx1.Groups().empty());
  EXPECT_TRUE(user->errors.empty());
}
