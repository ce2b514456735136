// The entry object driven as a host drives it: a solution written to the test's folder,
// the shipped grammar files, a team database with the default templates, a settings
// store, and a scripted user in the options dialog and the file dialogs.

#include "entry/CXmlAnalyzer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "host/MGlobals.h"
#include "host/MGlobals_Paths.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "pane/DocXMLAnalyzer.h"
#include "pane/PaneFixture_test.h"
#include "platform/automation/Window.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/ResultFileDialog.h"
#include "platform/suite/TeamDatabase.h"
#include "testsupport/FindingsTable.h"

using namespace annotra;
namespace fs = std::filesystem;
using pane_test::ScopedEnv;

namespace {

constexpr const char* kCaption = "Annotra - by Scribane";

// One public class and one public method without comments.
constexpr const char* kTwoFindings = "namespace Demo\n{\n    public class A\n    {\n        public void Run() { }\n    }\n}\n";
// The class commented as the templates want, the method not.
constexpr const char* kOneFinding =
    "namespace Demo\n{\n    /// <summary>A.</summary>\n    /// <remarks>R.</remarks>\n    public class A\n    {\n"
    "        public void Run() { }\n    }\n}\n";
constexpr const char* kNoFinding = "namespace Demo\n{\n}\n";

class EntryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    csproj = dir.Write("Demo/Demo.csproj", testsupport::LegacyProjectFile("    <Compile Include=\"a.cs\" />"));
    Source(kTwoFindings);
    dte = platform::automation::OpenSolution(csproj).dte;
    team = platform::suite::TeamDatabase::OpenOrCreate(*workspace, (dir.path() / "team.db").string());
    settings->Write(section::CommentsAnalyzer, key::LastScope, platform::Variant(4));  // the whole solution
  }
  void TearDown() override {
    analyzer.reset();
    MGlobals::DiscardXMLAnalyzerDbForTesting();
    Quietly([&] { team->Close(); });
    MGlobals::ResetForTesting();
  }

  /// Rewrites the one source file of the solution.
  void Source(const char* text) { dir.Write("Demo/a.cs", text); }

  void Init(bool emptyGrid = false) {
    analyzer = std::make_unique<CXmlAnalyzer>();
    analyzer->SelectInCode.Connect([this](int32_t line) { events.push_back("line " + std::to_string(line)); });
    analyzer->Init(dte, nullptr, settings, nullptr, workspace, team, nullptr, emptyGrid);
  }

  /// Queues a user who begins the analysis in the options dialog.
  void Begin() { user->Click("&Begin >>"); }

  CXmlAnalyzerWindow& Controller() { return *analyzer->Controller(); }
  DocXMLAnalyzer& Doc() { return *Controller().Document(); }
  std::string Caption() { return analyzer->WindowObject()->Caption(); }
  int Rows() { return MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenSnapshot)->RecordCount(); }
  /// The dialogs the user was shown, by caption.
  std::vector<std::string> Modals() const {
    std::vector<std::string> modals;
    for (const auto& line : user->log)
      if (line.rfind("modal ", 0) == 0) modals.push_back(line.substr(6));
    return modals;
  }

  testsupport::TempDir dir;
  ScopedEnv home{"ANNOTRA_HOME", (dir.path() / "home").string()};
  ScopedEnv tmp{"TMPDIR", dir.path().string()};
  ScopedEnv appPath{"ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources"};
  fs::path csproj;
  platform::Ref<platform::automation::DTE> dte;
  platform::Ref<platform::dao::Workspace> workspace = std::make_shared<platform::dao::Workspace>();
  platform::Ref<platform::dao::Database> team;
  std::shared_ptr<platform::suite::IniSettingsStore> settings =
      std::make_shared<platform::suite::IniSettingsStore>(dir.path() / "settings.ini");
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
  std::shared_ptr<platform::suite::RecordingErrorReport> report = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
  std::shared_ptr<platform::forms::ScriptedPresenter> user = std::make_shared<platform::forms::ScriptedPresenter>();
  platform::forms::ScopedPresenter scopedUser{user};
  std::shared_ptr<platform::suite::ScriptedFileDialogs> files = std::make_shared<platform::suite::ScriptedFileDialogs>();
  platform::suite::ScopedFileDialogs scopedFiles{files};
  std::shared_ptr<platform::suite::RecordingPageViewer> viewer = std::make_shared<platform::suite::RecordingPageViewer>();
  platform::suite::ScopedPageViewer scopedViewer{viewer};
  std::unique_ptr<CXmlAnalyzer> analyzer;
  std::vector<std::string> events;
};

}  // namespace

TEST_F(EntryTest, InitMakesTheHiddenPaneAndShutdownBeforeAnyAnalysisIsQuiet) {
  Init();
  ASSERT_TRUE(analyzer->Controller());
  EXPECT_EQ(MGlobals::DTEObject, dte);
  EXPECT_EQ(MGlobals::AppSettingsObject_HKCU, settings);
  EXPECT_EQ(MGlobals::WorkspaceObject, workspace);
  EXPECT_EQ(MGlobals::TeamDB, team);
  auto window = analyzer->WindowObject();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->Caption(), kCaption);
  EXPECT_EQ(window->ObjectKind(), "{00606204-4A63-44fb-928A-F4FBAF913788}");
  EXPECT_FALSE(analyzer->IsVisible());
  EXPECT_EQ(Doc().CurrentLayout(), "iwxml1.lyt");
  EXPECT_TRUE(Doc().GridEx1.IsBound());
  analyzer->RestorePositions();
  EXPECT_FALSE(analyzer->IsVisible());
  analyzer->ShowResults();
  EXPECT_TRUE(analyzer->IsVisible());

  const std::string file = MGlobals::XMLAnalyzerDbFile();
  ASSERT_TRUE(fs::exists(file));
  analyzer->Shutdown();
  EXPECT_FALSE(analyzer->Controller());
  EXPECT_FALSE(fs::exists(file));
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_TRUE(report->entries.empty());
  EXPECT_TRUE(boxes->shown.empty());

  // With EmptyGrid the results are not bound yet. A database not made by the time of
  // the shutdown is made then, and closed and deleted at once, silently.
  Init(true);
  EXPECT_FALSE(Doc().GridEx1.IsBound());
  const std::string before = MGlobals::XMLAnalyzerDbFile();
  MGlobals::XMLAnalyzerDb()->Close();
  MGlobals::ForgetXMLAnalyzerDbForTesting();
  analyzer->Shutdown();
  EXPECT_NE(MGlobals::XMLAnalyzerDbFile(), "");
  EXPECT_NE(MGlobals::XMLAnalyzerDbFile(), before);
  EXPECT_FALSE(fs::exists(MGlobals::XMLAnalyzerDbFile()));
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_TRUE(report->entries.empty());
  // Commands after the end reach nothing and say so only in the error report.
  analyzer->ExecuteCommand(CXmlAnalyzer::kClear);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzer.ExecuteCommand");
}

TEST_F(EntryTest, TheColumnAndGroupingRangesIncludeBothEnds) {
  Init();
  testsupport::AddFindings(*MGlobals::XMLAnalyzerDb(), "XMLAnalyzer1",
                           {{"Demo", "a.cs", "Class", "", "A", 3, 3, "x"}, {"Demo", "a.cs", "Method", "", "Run", 5, 5, "y"}});
  Controller().LoadLayout("iwxml1.lyt");
  auto& grid = Doc().GridEx1;
  ASSERT_EQ(grid.RowCount(), 2);
  // Columns and groupings count from 1: 100 and 200 reach the grid with index 0, 199
  // and 299 with 99, and the grid says it has no such one.
  for (int32_t id : {100, 199, 200, 299}) analyzer->ExecuteCommand(id);
  ASSERT_EQ(report->entries.size(), 4u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.DocXMLAnalyzer.GroupByThisColumn");
  EXPECT_EQ(report->entries[0].message, "(5) 'No column has the index 0'");
  EXPECT_EQ(report->entries[1].message, "(5) 'No column has the index 99'");
  EXPECT_EQ(report->entries[2].source, "Quillmark.DocXMLAnalyzer.RemoveGroup");
  EXPECT_EQ(report->entries[2].message, "(5) 'No grouping has the index 0'");
  EXPECT_EQ(report->entries[3].message, "(5) 'No grouping has the index 99'");
  report->entries.clear();

  const int16_t type = static_cast<int16_t>(grid.Column("Type")->Index());
  analyzer->ExecuteCommand(CXmlAnalyzer::kGroupByColumn + type);
  ASSERT_EQ(grid.Groups().size(), 1u);
  EXPECT_EQ(grid.Groups()[0].key, "Type");
  for (int32_t id : {2, 99, 300, 0, -1, 14, 1000}) analyzer->ExecuteCommand(id);
  EXPECT_EQ(grid.Groups().size(), 1u);
  analyzer->ExecuteCommand(CXmlAnalyzer::kRemoveGrouping + 1);
  EXPECT_TRUE(grid.Groups().empty());
  EXPECT_TRUE(report->entries.empty());
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(user->log.empty());

  // The grid's dialogs and the print preview.
  user->Check("lstColumns", "CMember").Click("&OK");
  analyzer->ExecuteCommand(CXmlAnalyzer::kSortDialog);
  EXPECT_EQ(grid.SortKeys(), (std::vector<platform::grid::ColumnOrder>{{"Member"}}));
  user->Check("lstColumns", "CPath").Click("&OK");
  analyzer->ExecuteCommand(CXmlAnalyzer::kFieldChooser);
  EXPECT_FALSE(grid.Column("Path")->Visible);
  user->Check("lstColumns", "CProject").Click("&OK");
  analyzer->ExecuteCommand(CXmlAnalyzer::kGroupByDialog);
  EXPECT_EQ(grid.Groups(), (std::vector<platform::grid::ColumnOrder>{{"Project"}}));
  EXPECT_TRUE(user->errors.empty());
  {
    platform::suite::ScopedPrinterProbe probe(std::make_shared<platform::suite::FixedPrinterProbe>("Office"));
    analyzer->ExecuteCommand(CXmlAnalyzer::kPrintPreview);
    EXPECT_EQ(viewer->opened.size(), 1u);
  }

  // The group-by box, the pane, and the clear command.
  const bool box = grid.GroupByBoxVisible;
  analyzer->ExecuteCommand(CXmlAnalyzer::kGroupByBox);
  EXPECT_NE(grid.GroupByBoxVisible, box);
  analyzer->ShowResults();
  analyzer->ExecuteCommand(CXmlAnalyzer::kHidePane);
  EXPECT_FALSE(analyzer->IsVisible());
  analyzer->ExecuteCommand(CXmlAnalyzer::kClear);
  EXPECT_EQ(Rows(), 0);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(EntryTest, AnAnalysisCaptionsItsCountAndCancellingChangesNothing) {
  Init();
  user->Click("&Cancel");
  analyzer->Find();
  EXPECT_EQ(Modals(), (std::vector<std::string>{kCaption}));
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Caption(), kCaption);
  EXPECT_FALSE(Controller().CanRefresh());
  EXPECT_FALSE(analyzer->IsVisible());

  EXPECT_FALSE(analyzer->LastAnalysis().ran);
  Begin();
  analyzer->Find();
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 problems)");
  EXPECT_TRUE(analyzer->LastAnalysis().ran);
  EXPECT_EQ(analyzer->LastAnalysis().matches, 2);
  EXPECT_FALSE(analyzer->LastAnalysis().cancelled);
  ASSERT_EQ(analyzer->LastAnalysis().tallies.count("Demo"), 1u);
  EXPECT_EQ(analyzer->LastAnalysis().tallies.at("Demo").withoutFinding, 0);
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_TRUE(analyzer->IsVisible());
  EXPECT_EQ(Doc().CurrentLayout(), "iwxml1.lyt");
  EXPECT_EQ(Doc().GridEx1.RowCount(), 2);

  // Cancelled again: the results, the caption and CanRefresh stay.
  analyzer->ExecuteCommand(CXmlAnalyzer::kHidePane);
  user->Close();
  analyzer->ExecuteCommand(CXmlAnalyzer::kNewAnalysis);
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 problems)");
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_FALSE(analyzer->IsVisible());

  Source(kOneFinding);
  Begin();
  analyzer->ExecuteCommand(CXmlAnalyzer::kNewAnalysis);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (1 problems)");
  Source(kNoFinding);
  Begin();
  analyzer->Find();
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (0 problems)");
  EXPECT_EQ(Modals().size(), 5u);
  EXPECT_TRUE(report->entries.empty()) << report->entries[0].message;
  EXPECT_TRUE(boxes->shown.empty());
}

TEST_F(EntryTest, TheNewButtonStartsWhatCommandThreeStarts) {
  Init();
  Begin();
  analyzer->ExecuteCommand(CXmlAnalyzer::kNewAnalysis);
  // What the user saw, without the pane's own showing.
  auto seen = [this] {
    std::vector<std::string> lines;
    for (const auto& line : user->log)
      if (line != "show ") lines.push_back(line);
    return lines;
  };
  const auto byCommand = seen();
  ASSERT_EQ(byCommand.size(), 3u);
  user->log.clear();
  // The toolbar's "New" reaches the entry object as the controller's FindNewAsked; the
  // options dialog it shows takes the next action.
  user->Click("New");
  Begin();
  user->Play(Doc());
  auto byButton = seen();
  ASSERT_FALSE(byButton.empty());
  EXPECT_EQ(byButton.front().substr(0, 6), "click ");  // the toolbar's button
  byButton.erase(byButton.begin());
  EXPECT_EQ(byButton, byCommand);
  EXPECT_EQ(Modals(), (std::vector<std::string>{kCaption}));
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 problems)");
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(EntryTest, RefreshRunsTheStoredOptionsWithoutTheDialog) {
  Init();
  Begin();
  analyzer->Find();
  ASSERT_EQ(Rows(), 2);
  // The options as stored now are the ones a refresh runs with.
  settings->Write(section::CommentsAnalyzer, key::EnablePublic, platform::Variant(0));
  analyzer->ExecuteCommand(CXmlAnalyzer::kHidePane);
  user->log.clear();
  analyzer->ExecuteCommand(CXmlAnalyzer::kRefresh);
  EXPECT_TRUE(Modals().empty());
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (0 problems)");
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_TRUE(analyzer->IsVisible());

  // The toolbar's "Refresh" is the controller's RefreshAsked.
  settings->Write(section::CommentsAnalyzer, key::EnablePublic, platform::Variant(1));
  user->Click("Refresh");
  user->Play(Doc());
  EXPECT_TRUE(Modals().empty());
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 problems)");
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(EntryTest, AMissingGrammarFileKeepsThePreviousResults) {
  Init();
  Begin();
  analyzer->Find();
  ASSERT_EQ(Rows(), 2);
  Controller().SetCanRefresh(false);
  analyzer->ExecuteCommand(CXmlAnalyzer::kHidePane);

  ScopedEnv elsewhere{"ANNOTRA_APP_PATH", (dir.path() / "nothing").string()};
  MGlobals::ForgetGrammarPaths();
  Begin();
  analyzer->Find();
  EXPECT_EQ(Modals().size(), 2u);  // the dialog was shown first
  EXPECT_FALSE(analyzer->LastAnalysis().ran);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].message, "Could not find the file <" + (dir.path() / "nothing" / "XML.GMR").string() + ">");
  EXPECT_EQ(report->entries[0].source, "");
  EXPECT_EQ(report->entries[0].line, 0);
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Doc().GridEx1.RowCount(), 2);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 problems)");
  EXPECT_TRUE(Controller().CanRefresh());
  EXPECT_TRUE(analyzer->IsVisible());
  MGlobals::ForgetGrammarPaths();
}

TEST_F(EntryTest, TheFileCommandsSaveAndLoadAndALoadCannotBeRefreshed) {
  Init();
  Begin();
  analyzer->Find();
  files->Answer((dir.path() / "first").string());
  analyzer->ExecuteCommand(CXmlAnalyzer::kSaveToFile);
  ASSERT_TRUE(fs::exists(dir.path() / "first.xmm"));

  // A result file of twelve rows.
  {
    auto file = workspace->CreateDatabase((dir.path() / "twelve.xmm").string(), platform::dao::dbLangGeneral, 32);
    file->Properties()->Append(file->CreateProperty("SBType", platform::dao::dbText, "xmm"));
    testsupport::CreateFindingsTable(*file, "XMLAnalyzer");
    std::vector<testsupport::FindingRow> rows;
    for (int i = 1; i <= 12; ++i) rows.push_back({"Demo", "a.cs", "Method", "", "M" + std::to_string(i), i, i, "p"});
    testsupport::AddFindings(*file, "XMLAnalyzer", rows);
    file->Close();
  }
  files->Answer((dir.path() / "twelve.xmm").string());
  analyzer->ExecuteCommand(CXmlAnalyzer::kLoadFromFile);
  EXPECT_EQ(Rows(), 12);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (12 matches)");
  EXPECT_FALSE(Controller().CanRefresh());
  EXPECT_TRUE(analyzer->IsVisible());

  files->Answer((dir.path() / "first.xmm").string());
  analyzer->ExecuteCommand(CXmlAnalyzer::kLoadFromFile);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 matches)");
  EXPECT_EQ(Doc().GridEx1.RowCount(), 2);
  EXPECT_TRUE(report->entries.empty());
  EXPECT_TRUE(boxes->shown.empty());
}

TEST_F(EntryTest, TheControllersEventsReachTheHost) {
  Init();
  Begin();
  analyzer->Find();
  analyzer->FindMenuPopupAsked.Connect([this](int32_t& hit, bool& docked, bool&, int32_t& rows, bool& selected,
                                              bool& canRefresh, std::string& extra) {
    events.push_back("menu " + std::to_string(hit) + (docked ? " docked" : "") + " " + std::to_string(rows) +
                     (selected ? " selected" : "") + (canRefresh ? " refresh" : "") + " [" + extra + "]");
    canRefresh = false;  // written back to the controller
  });
  auto& grid = Doc().GridEx1;
  grid.SetRow(1);
  analyzer->ExecuteCommand(CXmlAnalyzer::kShowInCode);
  // The middle of the first row's first column.
  const int y = (grid.GroupByBoxVisible ? 240 : 0) + 240 + (1 - grid.TopRow()) * 240 + 120;
  const auto span = grid.VisibleColumns().front();
  const int x = span.left + span.width / 2;
  user->MouseDown("GridEx1", platform::forms::vbRightButton, x, y).MouseUp("GridEx1", platform::forms::vbRightButton, x, y);
  user->Play(Doc());
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0], "line 3");
  EXPECT_EQ(events[1].substr(0, 7), "menu 5 ");
  EXPECT_NE(events[1].find(" 2 selected refresh ["), std::string::npos);
  EXPECT_FALSE(Controller().CanRefresh());
  EXPECT_TRUE(report->entries.empty());
}
