// Workbooks written by the export statement, read back by spreadsheet readers: xlrd
// (/usr/bin/python3) always, LibreOffice when it is installed.

#include "platform/dao/Biff8Workbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/dao/Field.h"
#include "testsupport/DaoFixture.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/RawSqlite.h"
#include "testsupport/XlrdReadBack.h"

using namespace platform::dao;
using platform::Ref;
using testsupport::ErrorOf;
namespace fs = std::filesystem;

namespace {

using testsupport::XlrdNumber;
using testsupport::XlrdText;

std::string Text(int r, int c, const std::string& v) { return XlrdText(r, c, v); }
std::string Number(int r, int c, const std::string& v) { return XlrdNumber(r, c, v); }

class WorkbookTest : public testsupport::DaoTest {
 protected:
  void SetUp() override {
    db = CreateDatabase("results.db");
    testsupport::CreateFindingsTable(*db, "XMLAnalyzer1");
  }

  /// What xlrd reads of `file`, one line each.
  std::vector<std::string> ReadBack(const fs::path& file) { return testsupport::XlrdReadBack(file, dir.path()); }

  /// No file of the folder but those named.
  std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  void Export(const std::string& columns, const fs::path& file) {
    db->Execute("SELECT " + columns + " INTO [Excel 8.0; DATABASE=" + file.string() + "].[XMLAnalyzer] From [XMLAnalyzer1]",
                dbFailOnError);
  }

  Ref<Database> db;
};

}  // namespace

TEST_F(WorkbookTest, TheVisibleColumnsAndEveryCellReadBackAsTheTableHasThem) {
  const std::string accents = "Méthode «Zähler» – ça ne marche pas";
  const std::string wide = "日本語のコメント 😀 and a tab\there";
  testsupport::AddFindings(*db, "XMLAnalyzer1",
                           {{"Demo", "a.cs", "Method", "", "Run", 6, 9, accents},
                            {"Démo", "b.vb", "Class", "Sub\\Deep", "B", 3, 3, wide, 2},
                            {"", "c.cs", "Field (variable, constant)", "", "x", 0, -7, "line\r\nbreak"}});
  const fs::path file = dir.path() / "out.xls";
  Export("[Problem], [Start], [Project], [Member], [Flag]", file);
  EXPECT_EQ(db->RecordsAffected(), 3);
  auto cells = ReadBack(file);
  std::vector<std::string> expected = {
      "sheet\tXMLAnalyzer\t4\t5",
      Text(0, 0, "Problem"), Text(0, 1, "Start"), Text(0, 2, "Project"), Text(0, 3, "Member"), Text(0, 4, "Flag"),
      Text(1, 0, accents), Number(1, 1, "6.0"), Text(1, 2, "Demo"), Text(1, 3, "Run"), Number(1, 4, "0.0"),
      Text(2, 0, wide), Number(2, 1, "3.0"), Text(2, 2, "Démo"), Text(2, 3, "B"), Number(2, 4, "2.0"),
      // "" is text all the same.
      Text(3, 0, "line\r\nbreak"), Number(3, 1, "0.0"), Text(3, 2, ""), Text(3, 3, "x"), Number(3, 4, "0.0"),
  };
  EXPECT_EQ(cells, expected);
  EXPECT_EQ(FilesIn(dir.path()), (std::vector<std::string>{"out.xls", "results.db", "xlrd_read.py"}));

  // An empty table gives the header alone; NULL gives a blank cell.
  db->Execute("DELETE * FROM XMLAnalyzer1 WHERE TRUE", dbFailOnError);
  Export("[Type], [End]", dir.path() / "empty.xls");
  EXPECT_EQ(ReadBack(dir.path() / "empty.xls"),
            (std::vector<std::string>{"sheet\tXMLAnalyzer\t1\t2", Text(0, 0, "Type"), Text(0, 1, "End")}));
}

TEST_F(WorkbookTest, ManyAndLongStringsGoOnInContinueRecords) {
  // Strings that straddle the records' ends, at odd and even offsets, and one longer
  // than a record; repeated ones are kept once.
  std::vector<testsupport::FindingRow> rows;
  std::string long1(20000, 'a');
  for (size_t i = 0; i < long1.size(); i += 7) long1[i] = 'z';
  std::string long2;
  for (int i = 0; i < 3000; ++i) long2 += "é日";
  for (int i = 0; i < 900; ++i)
    rows.push_back({"P" + std::to_string(i % 3), "doc" + std::to_string(i) + ".cs", "Method", "",
                    std::string(static_cast<size_t>(i % 37), 'm') + std::to_string(i), i, i, i == 450 ? long1 : i == 451 ? long2 : "same"});
  testsupport::AddFindings(*db, "XMLAnalyzer1", rows);
  const fs::path file = dir.path() / "many.xls";
  Export("[Project], [Document], [Member], [Problem]", file);
  auto cells = ReadBack(file);
  ASSERT_EQ(cells.size(), 1u + 4 + 900 * 4);
  EXPECT_EQ(cells[0], "sheet\tXMLAnalyzer\t901\t4");
  for (int i = 0; i < 900; ++i) {
    const auto& row = rows[static_cast<size_t>(i)];
    const size_t at = 5 + static_cast<size_t>(i) * 4;
    ASSERT_EQ(cells[at], Text(i + 1, 0, row.Project));
    ASSERT_EQ(cells[at + 1], Text(i + 1, 1, row.Document));
    ASSERT_EQ(cells[at + 2], Text(i + 1, 2, row.Member));
    ASSERT_EQ(cells[at + 3], Text(i + 1, 3, row.Problem)) << i;
  }
}

TEST_F(WorkbookTest, ASheetHoldsNoMoreRowsThanTheFormatAndNothingIsLeftBehind) {
  // 65,535 rows and the header fill a sheet exactly.
  ASSERT_EQ(testsupport::RawExec(dir.path() / "results.db",
                                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 65535) "
                                 "INSERT INTO XMLAnalyzer1(Flag, Project, Document, Type, Path, Member, Start, \"End\", Status, Problem) "
                                 "SELECT 0, 'P', 'd.cs', 'Method', '', 'm' || i, i, i, 0, 'p' FROM n"),
            "");
  const fs::path full = dir.path() / "full.xls";
  Export("[Member], [Start]", full);
  auto cells = ReadBack(full);
  ASSERT_FALSE(cells.empty());
  EXPECT_EQ(cells[0], "sheet\tXMLAnalyzer\t65536\t2");

  testsupport::AddFindings(*db, "XMLAnalyzer1", {{"P", "d.cs", "Method", "", "one more", 1, 1, "p"}});
  const fs::path over = dir.path() / "over.xls";
  try {
    Export("[Member], [Start]", over);
    ADD_FAILURE() << "the export did not fail";
  } catch (const platform::Error& e) {
    EXPECT_EQ(e.number, 3437);
    EXPECT_EQ(e.description, "Spreadsheet is full.");
  }
  EXPECT_EQ(FilesIn(dir.path()), (std::vector<std::string>{"full.xls", "results.db", "xlrd_read.py"}));
}

TEST_F(WorkbookTest, WhatCannotBeWrittenFailsWithTheEnginesNumbersAndLeavesNoFile) {
  testsupport::AddFindings(*db, "XMLAnalyzer1", {{"P", "d.cs", "Method", "", "m", 1, 1, "p"}});
  const fs::path taken = dir.Write("taken.xls", "someone's workbook");
  EXPECT_EQ(ErrorOf([&] { Export("[Member]", taken); }), 3204);
  EXPECT_EQ(testsupport::ReadFile(taken), "someone's workbook");
  EXPECT_EQ(ErrorOf([&] { Export("[Member]", dir.path() / "missing" / "x.xls"); }), 3044);
  EXPECT_EQ(ErrorOf([&] { Export("[Nothing]", dir.path() / "x.xls"); }), 3061);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT [Member] INTO [Excel 8.0; DATABASE=" + PathOf("x.xls") + "].[Bad:Name] From [XMLAnalyzer1]", 128); }), 3125);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT [Member] INTO [Text; DATABASE=" + PathOf("x.txt") + "].[XMLAnalyzer] From [XMLAnalyzer1]", 128); }), 3170);
  EXPECT_EQ(ErrorOf([&] { db->Execute("INSERT INTO [Excel 8.0; DATABASE=" + PathOf("x.xls") + "].[XMLAnalyzer] SELECT * FROM XMLAnalyzer1", 128); }), 3170);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT [Member] INTO [Excel 8.0;].[XMLAnalyzer] From [XMLAnalyzer1]", 128); }), 3044);
  // A cell holds 32,767 characters.
  testsupport::AddFindings(*db, "XMLAnalyzer1", {{"P", "d.cs", "Method", "", "m", 1, 1, std::string(32768, 'x')}});
  EXPECT_EQ(ErrorOf([&] { Export("[Problem]", dir.path() / "x.xls"); }), 3163);
  EXPECT_EQ(FilesIn(dir.path()), (std::vector<std::string>{"results.db", "taken.xls"}));
}

TEST_F(WorkbookTest, APathMayHoldAnyCharacter) {
  testsupport::AddFindings(*db, "XMLAnalyzer1", {{"P", "d.cs", "Method", "", "m", 1, 1, "p"}});
  const fs::path odd = dir.path() / "a]; DATABASE=b \"c\" 'd'.xls";
  Export("[Member]", odd);
  EXPECT_EQ(ReadBack(odd), (std::vector<std::string>{"sheet\tXMLAnalyzer\t2\t1", Text(0, 0, "Member"), Text(1, 0, "m")}));
}

TEST_F(WorkbookTest, LibreOfficeReadsTheSameCells) {
  const char* candidates[] = {"/usr/bin/soffice", "/usr/bin/libreoffice", "/usr/lib/libreoffice/program/soffice"};
  std::string office;
  for (const char* c : candidates)
    if (fs::exists(c)) office = c;
  if (office.empty()) GTEST_SKIP() << "LibreOffice is not installed";
  // Enough strings, and a long one, for the shared strings to go on in CONTINUE records.
  std::vector<testsupport::FindingRow> rows;
  std::string expected = "Project,Start,Problem\n";
  std::string longText;
  for (int i = 0; i < 2500; ++i) longText += "é日";
  for (int i = 0; i < 3000; ++i) {
    std::string problem = i == 1500 ? longText : "日本語 «x» " + std::to_string(i);
    rows.push_back({"Démo" + std::to_string(i % 7), "a.cs", "Method", "", "Run", i, i, problem});
    expected += "Démo" + std::to_string(i % 7) + "," + std::to_string(i) + "," + problem + "\n";
  }
  testsupport::AddFindings(*db, "XMLAnalyzer1", rows);
  const fs::path file = dir.path() / "lo.xls";
  Export("[Project], [Start], [Problem]", file);
  std::string command = "cd '" + dir.path().string() + "' && HOME='" + dir.path().string() + "' '" + office +
                        "' --headless --convert-to csv:\"Text - txt - csv (StarCalc)\":44,34,76 lo.xls >/dev/null 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(testsupport::ReadFile(dir.path() / "lo.csv"), expected);
}

TEST(Biff8Workbook, SheetNamesAndCellsOutsideASheetAreRefused) {
  EXPECT_EQ(ErrorOf([] { Biff8Workbook(""); }), 3125);
  EXPECT_EQ(ErrorOf([] { Biff8Workbook(std::string(32, 'n')); }), 3125);
  for (const char* bad : {"a:b", "a\\b", "a/b", "a?b", "a*b", "a[b", "a]b"})
    EXPECT_EQ(ErrorOf([&] { Biff8Workbook{bad}; }), 3125) << bad;
  Biff8Workbook book(std::string(31, 'n'));
  EXPECT_EQ(ErrorOf([&] { book.SetNumber(65536, 0, 1); }), 3437);
  EXPECT_EQ(ErrorOf([&] { book.SetText(0, 256, "x"); }), 3437);
  EXPECT_EQ(ErrorOf([&] { book.SetText(-1, 0, "x"); }), 3437);
  EXPECT_EQ(ErrorOf([&] { book.SetText(65535, 255, std::string(32767, 'x')); }), 0);
  // Characters outside the basic plane count twice.
  EXPECT_EQ(ErrorOf([&] { book.SetText(0, 0, std::string(32765, 'x') + "é日"); }), 0);
  EXPECT_EQ(ErrorOf([&] { book.SetText(0, 0, std::string(32766, 'x') + "😀"); }), 3163);
}
