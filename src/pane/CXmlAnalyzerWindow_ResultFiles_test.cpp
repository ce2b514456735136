// Saving the results to result files and loading them back, through the results file
// dialog answered by a script, on real database files in the test's folder.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "pane/PaneFixture_test.h"
#include "platform/automation/Window.h"
#include "platform/dao/Field.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/ResultFileDialog.h"
#include "platform/suite/SettingsStore.h"
#include "testsupport/RawSqlite.h"
#include "testsupport/XlrdReadBack.h"

using namespace annotra;
using namespace pane_test;
namespace fs = std::filesystem;
namespace dao = platform::dao;
using testsupport::FindingRow;

namespace {

constexpr const char* kLoadError = "\r\n\r\nThe file has an unrecognized format or is corrupt.";

class ResultFilesTest : public PaneTest {
 protected:
  /// Every row of `table` in `db`, "ID Flag Project|Document|Type|Path|Member Start-End
  /// Status Problem", in "ID" order.
  static std::vector<std::string> Rows(dao::Database& db, const std::string& table) {
    std::vector<std::string> rows;
    auto rs = db.OpenRecordset(table, dao::dbOpenSnapshot);
    auto text = [&](const char* name) { return platform::ToString(rs->Fields(name)->Value()); };
    for (; rs->RecordCount() > 0 && !rs->Eof(); rs->MoveNext())
      rows.push_back(text("ID") + " " + text("Flag") + " " + text("Project") + "|" + text("Document") + "|" +
                     text("Type") + "|" + text("Path") + "|" + text("Member") + " " + text("Start") + "-" +
                     text("End") + " " + text("Status") + " " + text("Problem"));
    rs->Close();
    std::sort(rows.begin(), rows.end(), [](const std::string& a, const std::string& b) {
      return std::stoi(a) < std::stoi(b);
    });
    return rows;
  }
  static std::vector<std::string> Results() { return Rows(*MGlobals::XMLAnalyzerDb(), "XMLAnalyzer1"); }

  /// A database at `path` with the table "XMLAnalyzer" holding `rows`, and the property
  /// "SBType" = `type` unless it is "-".
  void MakeResultFile(const fs::path& path, const std::string& type, const std::vector<FindingRow>& rows) {
    auto db = MGlobals::WorkspaceObject->CreateDatabase(path.string(), dao::dbLangGeneral, dao::dbVersion30);
    if (type != "-") db->Properties()->Append(db->CreateProperty("SBType", dao::dbText, type));
    testsupport::CreateFindingsTable(*db, "XMLAnalyzer");
    testsupport::AddFindings(*db, "XMLAnalyzer", rows);
    db->Close();
  }

  std::string Remembered() {
    return platform::ToString(settings->Read("LastPaths", "SaveRestoreXMLAnalyzer", platform::Variant("")));
  }
  std::string Caption() { return window->WindowObject()->Caption(); }
  fs::path ResultsFolder() const { return dir.path() / "home" / "Results"; }

  std::shared_ptr<platform::suite::ScriptedFileDialogs> files = std::make_shared<platform::suite::ScriptedFileDialogs>();
  platform::suite::ScopedFileDialogs scopedFiles{files};
};

}  // namespace

TEST_F(ResultFilesTest, BothDialogsOpenInTheDefaultFolderUntilOneIsRemembered) {
  Open();
  ASSERT_FALSE(fs::exists(ResultsFolder()));
  window->SaveFile();  // cancelled: nothing happens
  window->LoadFile();
  EXPECT_TRUE(fs::is_directory(ResultsFolder()));
  ASSERT_EQ(files->shown.size(), 2u);
  const auto& save = files->shown[0];
  EXPECT_EQ(save.title, "Save this Annotra pane contents as");
  EXPECT_EQ(save.defaultExt, "xmm");
  EXPECT_EQ(save.filter, "Scribane Annotra Files (*.xmm)|*.xmm|Microsoft Excel Files (*.xls)|*.xls");
  EXPECT_EQ(save.flags, 0x280806);
  EXPECT_EQ(save.mode, 1);
  EXPECT_EQ(save.owner, MGlobals::DTEObject->MainWindow()->HWnd());
  EXPECT_EQ(save.initialFolder, ResultsFolder().string() + "/");
  const auto& load = files->shown[1];
  EXPECT_EQ(load.title, "Select the file to load in the Annotra pane");
  EXPECT_EQ(load.filter, "Scribane Annotra Files (*.xmm)|*.xmm");
  EXPECT_EQ(load.flags, 0x281004);
  EXPECT_EQ(load.mode, 0);
  EXPECT_EQ(load.initialFolder, ResultsFolder().string() + "/");
  EXPECT_EQ(Remembered(), "");
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());

  // A folder of blanks counts as none; a remembered one is used as stored.
  settings->Write("LastPaths", "SaveRestoreXMLAnalyzer", platform::Variant("  "));
  window->LoadFile();
  EXPECT_EQ(files->shown.back().initialFolder, ResultsFolder().string() + "/");
  settings->Write("LastPaths", "SaveRestoreXMLAnalyzer", platform::Variant(" /somewhere/"));
  window->SaveFile();
  EXPECT_EQ(files->shown.back().initialFolder, " /somewhere/");
}

TEST_F(ResultFilesTest, TheExtensionOfTheNameChosenDecidesTheFileWritten) {
  Open();
  const auto expected = Results();
  fs::create_directories(dir.path() / "out");
  dir.Write("out/plain", "not a database");
  files->overwrite = true;
  // The dialog adds the default extension to a new name; a file picked as it is keeps
  // its name, and the save adds ".xmm" itself, removing what was picked.
  files->Answer((dir.path() / "out/report").string())
      .Answer((dir.path() / "out/plain").string())
      .Answer((dir.path() / "out/notes.txt").string())
      .Answer((dir.path() / "out/UPPER.XMM").string());
  for (int i = 0; i < 4; ++i) window->SaveFile();
  EXPECT_TRUE(fs::exists(dir.path() / "out/report.xmm"));
  EXPECT_FALSE(fs::exists(dir.path() / "out/plain"));
  EXPECT_TRUE(fs::exists(dir.path() / "out/plain.xmm"));
  EXPECT_TRUE(fs::exists(dir.path() / "out/notes.txt.xmm"));
  EXPECT_FALSE(fs::exists(dir.path() / "out/notes.txt"));
  EXPECT_TRUE(fs::exists(dir.path() / "out/UPPER.XMM"));
  EXPECT_FALSE(fs::exists(dir.path() / "out/UPPER.XMM.xmm"));
  for (const char* name : {"report.xmm", "plain.xmm", "notes.txt.xmm", "UPPER.XMM"}) {
    auto file = MGlobals::WorkspaceObject->OpenDatabase((dir.path() / "out" / name).string());
    EXPECT_EQ(platform::ToString(file->Properties()->Item("SBType")->Value()), "xmm") << name;
    EXPECT_EQ(file->Properties()->Item("SBType")->Type(), dao::dbText) << name;
    EXPECT_EQ(Rows(*file, "XMLAnalyzer"), expected) << name;
    // The same eleven columns in the same order.
    auto fields = file->TableDefs()->Item("XMLAnalyzer")->Fields();
    std::string names;
    for (auto& field : *fields) names += field->Name() + " ";
    EXPECT_EQ(names, "ID Flag Project Document Type Path Member Start End Status Problem ") << name;
    file->Close();
  }
  EXPECT_EQ(Remembered(), (dir.path() / "out").string() + "/");
  EXPECT_EQ(Caption(), kCaption);  // saving changes nothing in the pane
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultFilesTest, SavingOverAResultFileReplacesItAndAFailureSaysWhy) {
  auto& doc = Open();
  const fs::path file = dir.path() / "same.xmm";
  MakeResultFile(file, "xmm", {{"Old", "old.cs", "Class", "", "Old", 1, 1, "Old"}});
  files->overwrite = true;
  files->Answer(file.string());
  window->SaveFile();
  EXPECT_EQ(files->overwriteQuestions, (std::vector<std::string>{file.string()}));
  auto saved = MGlobals::WorkspaceObject->OpenDatabase(file.string());
  EXPECT_EQ(Rows(*saved, "XMLAnalyzer"), Results());
  saved->Close();

  // The file cannot be made (a folder holds its name): the engine's error in a message,
  // the remembered folder unchanged.
  fs::create_directories(dir.path() / "elsewhere" / "taken.txt.xmm");
  files->Answer((dir.path() / "elsewhere" / "taken.txt").string());
  window->SaveFile();
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt,
            "There was an error saving the Annotra pane contents to the "
                "specified file.\r\n(3204) Database already exists.");
  EXPECT_EQ(boxes->shown[0].style, platform::forms::vbCritical);
  EXPECT_EQ(boxes->shown[0].title, "Scribane");
  EXPECT_EQ(Remembered(), dir.path().string() + "/");
  EXPECT_EQ(doc.GridEx1.RowCount(), 4);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultFilesTest, ALoadedFileShowsTheSameRowsAndIdsWithTheirCount) {
  AddFindings();
  // Gaps in the numbering: the loaded rows keep their numbers.
  MGlobals::XMLAnalyzerDb()->Execute("DELETE * FROM XMLAnalyzer1 WHERE Member = 'Count'", 128);
  AddFindings({{"Demo", "a.cs", "Method", "", "Stop", 8, 8, "Missing <summary> tag", 2}});
  auto& doc = Open(false);
  const auto saved = Results();
  ASSERT_EQ(saved.size(), 4u);
  files->Answer((dir.path() / "kept").string());
  window->SaveFile();
  window->SetCanRefresh(true);
  window->Clear();
  window->Hide();
  EXPECT_TRUE(Results().empty());

  bool pumped = false;
  platform::forms::PostAction([&] { pumped = true; });
  files->Answer((dir.path() / "kept.xmm").string());
  window->LoadFile();
  EXPECT_TRUE(pumped);
  EXPECT_EQ(Results(), saved);
  EXPECT_EQ(saved[3].substr(0, 2), "5 ");
  EXPECT_EQ(Caption(), std::string(kCaption) + " (4 matches)");
  EXPECT_EQ(window->ResultCount(), 4);
  EXPECT_FALSE(window->CanRefresh());
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(doc.CurrentLayout(), "iwxml1.lyt");
  EXPECT_EQ(doc.GridEx1.RowCount(), 4);
  EXPECT_EQ(Remembered(), dir.path().string() + "/");
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());

  // New findings number on after the loaded ones.
  AddFindings({{"Demo", "a.cs", "Class", "", "A", 4, 4, "New"}});
  EXPECT_EQ(Results().back().substr(0, 2), "6 ");

  // A file of no rows: an empty grid and 0 matches.
  MakeResultFile(dir.path() / "empty.xmm", "xmm", {});
  files->Answer((dir.path() / "empty.xmm").string());
  window->LoadFile();
  EXPECT_TRUE(Results().empty());
  EXPECT_EQ(doc.GridEx1.RowCount(), 0);
  EXPECT_EQ(Caption(), std::string(kCaption) + " (0 matches)");
  EXPECT_EQ(window->ResultCount(), 0);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultFilesTest, OnlyFilesMarkedAsResultFilesAreLoaded) {
  Open();
  const auto before = Results();
  window->WindowObject()->SetCaption("kept");
  window->SetCanRefresh(true);
  const std::vector<FindingRow> one = {{"P", "x.cs", "Class", "", "X", 1, 1, "No comment"}};
  MakeResultFile(dir.path() / "none.xmm", "-", one);
  MakeResultFile(dir.path() / "other.xmm", "mdb", one);
  dir.Write("text.xmm", "Project\tDocument\nDemo\ta.cs\n");
  dir.Write("empty.xmm", "");
  for (const char* name : {"none.xmm", "other.xmm", "text.xmm", "empty.xmm"}) {
    boxes->shown.clear();
    files->Answer((dir.path() / name).string());
    window->LoadFile();
    ASSERT_EQ(boxes->shown.size(), 1u) << name;
    EXPECT_EQ(boxes->shown[0].prompt, "Unable to load the file\r\n" + (dir.path() / name).string() + kLoadError);
    EXPECT_EQ(boxes->shown[0].style, platform::forms::vbCritical);
    EXPECT_EQ(Results(), before) << name;
  }
  EXPECT_EQ(Caption(), "kept");
  EXPECT_TRUE(window->CanRefresh());
  // The folder is remembered all the same.
  EXPECT_EQ(Remembered(), dir.path().string() + "/");

  // The mark in capitals is a mark.
  MakeResultFile(dir.path() / "upper.xmm", "XMM", one);
  boxes->shown.clear();
  files->Answer((dir.path() / "upper.xmm").string());
  window->LoadFile();
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_EQ(Results().size(), 1u);
  EXPECT_FALSE(window->CanRefresh());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultFilesTest, NothingInAHostileFileRuns) {
  auto& doc = Open();
  const fs::path file = dir.path() / "hostile.xmm";
  std::string huge(4 * 1024 * 1024, 'x');
  MakeResultFile(file, "xmm", {{"P", "x.cs", "Class", "", "X", 1, 1, huge}, {"P", "y.cs", "Class", "", "Y", 2, 2, "ok"}});
  ASSERT_EQ(testsupport::RawExec(file,
                                 "CREATE TABLE Pwned(x);"
                                 "CREATE TABLE XMLAnalyzer1(ID INTEGER);"
                                 "CREATE TRIGGER t1 AFTER INSERT ON XMLAnalyzer1 BEGIN INSERT INTO Pwned VALUES(1); END;"
                                 "CREATE TRIGGER t2 BEFORE DELETE ON XMLAnalyzer BEGIN INSERT INTO Pwned VALUES(2); END;"
                                 "CREATE VIEW Spy AS SELECT * FROM XMLAnalyzer;"),
            "");
  files->Answer(file.string());
  window->LoadFile();
  auto rows = Results();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].size(), huge.size() + rows[1].size() - 2);
  EXPECT_EQ(testsupport::RawText(file, "SELECT count(*) FROM Pwned"), "0");
  EXPECT_EQ(Caption(), std::string(kCaption) + " (2 matches)");
  EXPECT_TRUE(report->entries.empty());

  // A view in place of the table runs nothing either: the rows cannot be read, which is
  // reported, and the pane is left empty.
  const fs::path viewFile = dir.path() / "view.xmm";
  MakeResultFile(viewFile, "xmm", {});
  ASSERT_EQ(testsupport::RawExec(viewFile,
                                 "CREATE TABLE Pwned(x);"
                                 "CREATE TABLE Real(a);"
                                 "DROP TABLE XMLAnalyzer;"
                                 "CREATE VIEW XMLAnalyzer AS SELECT 1 AS ID;"),
            "");
  files->Answer(viewFile.string());
  window->LoadFile();
  EXPECT_TRUE(Results().empty());
  EXPECT_EQ(Caption(), std::string(kCaption) + " (0 matches)");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerWindow.LoadFile");
  EXPECT_EQ(report->entries[0].message, "(3078) 'The database engine cannot find the input table or query 'XMLAnalyzer'.'");
  EXPECT_EQ(doc.GridEx1.RowCount(), 0);
  report->entries.clear();

  // A result file cut short is no database.
  files->Answer((dir.path() / "full").string());
  window->SaveFile();
  ASSERT_TRUE(fs::exists(dir.path() / "full.xmm"));
  std::string bytes = testsupport::ReadFile(file);  // the large one: many pages to lose
  const fs::path cut = dir.path() / "cut.xmm";
  dir.Write("cut.xmm", bytes.substr(0, bytes.size() / 2));
  files->Answer(cut.string());
  window->LoadFile();
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, "Unable to load the file\r\n" + cut.string() + kLoadError);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultFilesTest, ASpreadsheetNameExportsTheVisibleColumnsInTheirOrder) {
  auto& doc = Open();
  auto& grid = doc.GridEx1;
  grid.Column("Path")->Visible = false;
  grid.Column("Problem")->SetPosition(0);  // first on screen
  const std::string columns = doc.GetGridVisibleColumns();
  ASSERT_EQ(columns.substr(0, 11), "[Problem], ");
  ASSERT_EQ(columns.find("[Path]"), std::string::npos);
  ASSERT_EQ(columns.find("[ID]"), std::string::npos);

  const fs::path sheet = dir.path() / "Findings.XLS";
  dir.Write("Findings.XLS", "an older export");
  files->overwrite = true;
  files->Answer(sheet.string());
  window->SaveFile();
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_FALSE(fs::exists(dir.path() / "Findings.XLS.xmm"));
  auto cells = testsupport::XlrdReadBack(sheet, dir.path());
  ASSERT_FALSE(cells.empty());
  EXPECT_EQ(cells[0], "sheet\tXMLAnalyzer\t5\t9");
  // The header is the select list's names, in its order; each row a row of the table.
  std::string header;
  for (size_t i = 1; i <= 9; ++i) header += "[" + cells[i].substr(cells[i].rfind('\t') + 1) + "], ";
  EXPECT_EQ(header, columns + ", ");
  EXPECT_NE(std::find(cells.begin(), cells.end(), testsupport::XlrdText(2, 0, "Missing <summary> tag")), cells.end());
  EXPECT_EQ(Remembered(), dir.path().string() + "/");
  EXPECT_EQ(Caption(), kCaption);

  // More rows than a sheet holds: the engine's error, no file.
  std::vector<FindingRow> many(65536 - 4, {"Demo", "a.cs", "Class", "", "A", 1, 1, "x"});
  AddFindings(many);
  files->Answer((dir.path() / "big.xls").string());
  window->SaveFile();
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt,
            "There was an error saving the Annotra pane contents to the "
                "specified file.\r\n(3437) Spreadsheet is full.");
  EXPECT_FALSE(fs::exists(dir.path() / "big.xls"));
  EXPECT_TRUE(report->entries.empty());
}
