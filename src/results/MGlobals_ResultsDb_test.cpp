#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/RawSqlite.h"
#include "testsupport/TempDir.h"

using namespace annotra;
using namespace platform::dao;
using platform::Error;
using platform::Ref;
using platform::Variant;
using testsupport::ErrorOf;
namespace fs = std::filesystem;

namespace {

// Each test gets its own temporary folder (through TMPDIR), a workspace, and recorded
// message boxes and error reports; the module state is forgotten before and after.
class ResultsDbTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* old = std::getenv("TMPDIR");
    if (old) oldTmpdir = old;
    hadTmpdir = old != nullptr;
    setenv("TMPDIR", dir.path().c_str(), 1);
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    MGlobals::WorkspaceObject = std::make_shared<Workspace>();
  }
  void TearDown() override {
    MGlobals::DiscardXMLAnalyzerDbForTesting();
    MGlobals::ResetForTesting();
    if (hadTmpdir) setenv("TMPDIR", oldTmpdir.c_str(), 1);
    else unsetenv("TMPDIR");
  }
  std::vector<fs::path> FilesInFolder() const {
    std::vector<fs::path> files;
    for (auto& entry : fs::directory_iterator(dir.path())) files.push_back(entry.path());
    return files;
  }

  testsupport::TempDir dir;
  std::string oldTmpdir;
  bool hadTmpdir = false;
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
};

struct Expected {
  const char* name;
  int type;
  int size;
  int attributes;
  bool allowZeroLength;
  const char* defaultValue;
};

const Expected kSchema[] = {
    {"ID", dbLong, 4, 17, false, ""},        {"Flag", dbByte, 1, 1, false, "0"},
    {"Project", dbMemo, 0, 2, true, ""},     {"Document", dbMemo, 0, 2, true, ""},
    {"Type", dbMemo, 0, 2, true, ""},        {"Path", dbMemo, 0, 2, true, ""},
    {"Member", dbMemo, 0, 2, true, ""},      {"Start", dbLong, 4, 1, false, "0"},
    {"End", dbLong, 4, 1, false, ""},        {"Status", dbByte, 1, 1, false, "0"},
    {"Problem", dbMemo, 0, 1, false, ""},
};

void AddFinding(Recordset& rs, const std::string& memo, const std::string& problem) {
  rs.AddNew();
  for (const char* field : {"Project", "Document", "Type", "Path", "Member"})
    rs.Fields(field)->SetValue(memo);
  rs.Fields("Start")->SetValue(3);
  rs.Fields("End")->SetValue(9);
  rs.Fields("Problem")->SetValue(problem);
  rs.Update();
}

}  // namespace

TEST_F(ResultsDbTest, FirstUseCreatesTheSchemaThatReadsBackFieldByField) {
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_EQ(MGlobals::XMLAnalyzerDbFile(), "");
  auto db = MGlobals::XMLAnalyzerDb();
  ASSERT_TRUE(db);
  EXPECT_TRUE(MGlobals::XMLAnalyzerDb_IsCreated());
  std::string file = MGlobals::XMLAnalyzerDbFile();
  EXPECT_EQ(fs::path(file).parent_path(), dir.path());
  EXPECT_EQ(db->Name(), file);
  EXPECT_EQ(db->Version(), "3.0");
  EXPECT_EQ(db->Properties()->Item("SBType")->Type(), dbText);
  EXPECT_EQ(db->Properties()->Item("SBType")->Value(), Variant("xmm"));

  auto tables = db->TableDefs();
  ASSERT_EQ(tables->Count(), 2);
  for (const char* name : {"XMLAnalyzer0", "XMLAnalyzer1"}) {
    SCOPED_TRACE(name);
    auto table = tables->Item(name);
    EXPECT_EQ(table->Attributes(), 0);
    EXPECT_EQ(table->Connect(), "");
    EXPECT_EQ(table->SourceTableName(), "");
    EXPECT_EQ(table->ValidationRule(), "");
    EXPECT_EQ(table->ValidationText(), "");
    ASSERT_EQ(table->Fields()->Count(), 11);
    for (int i = 0; i < 11; ++i) {
      auto field = table->Fields()->Item(i);
      const Expected& e = kSchema[i];
      SCOPED_TRACE(e.name);
      EXPECT_EQ(field->Name(), e.name);
      EXPECT_EQ(field->OrdinalPosition(), i);
      EXPECT_EQ(field->Type(), e.type);
      EXPECT_EQ(field->Size(), e.size);
      EXPECT_EQ(field->Attributes(), e.attributes);
      EXPECT_EQ(field->AllowZeroLength(), e.allowZeroLength);
      EXPECT_EQ(field->DefaultValue(), e.defaultValue);
      EXPECT_FALSE(field->Required());
      EXPECT_EQ(field->ValidationRule(), "");
      EXPECT_EQ(field->ValidationText(), "");
    }
    ASSERT_EQ(table->Indexes()->Count(), 1);
    auto index = table->Indexes()->Item("ID");
    EXPECT_TRUE(index->Primary());
    EXPECT_TRUE(index->Unique());
    EXPECT_TRUE(index->Required());
    EXPECT_FALSE(index->IgnoreNulls());
    EXPECT_FALSE(index->Clustered());
    ASSERT_EQ(index->Fields()->Count(), 1);
    EXPECT_EQ(index->Fields()->Item(0)->Name(), "ID");
    EXPECT_EQ(index->Fields()->Item(0)->Attributes(), 0);
  }

  // The same, as SQLite itself holds it.
  db->Close();
  for (const char* name : {"XMLAnalyzer0", "XMLAnalyzer1"}) {
    std::string t = name;
    EXPECT_EQ(testsupport::RawText(file, "SELECT group_concat(name || ' ' || type, ', ') FROM pragma_table_info('" + t + "')"),
              "ID INTEGER, Flag TINYINT, Project TEXT, Document TEXT, Type TEXT, Path TEXT, Member TEXT, "
              "Start INTEGER, End INTEGER, Status TINYINT, Problem TEXT");
    EXPECT_EQ(testsupport::RawText(file, "SELECT pk FROM pragma_table_info('" + t + "') WHERE name='ID'"), "1");
    EXPECT_EQ(testsupport::RawText(file, "SELECT group_concat(f, ' ') FROM (SELECT Name || ':' || Type || ':' || Attributes || ':' || "
                           "AllowZeroLength || ':' || DefaultValue AS f FROM MSysDaoFields WHERE TableName='" + t +
                           "' ORDER BY OrdinalPosition)"),
              "ID:4:17:0: Flag:2:1:0:0 Project:12:2:1: Document:12:2:1: Type:12:2:1: Path:12:2:1: "
              "Member:12:2:1: Start:4:1:0:0 End:4:1:0: Status:2:1:0:0 Problem:12:1:0:");
  }
  EXPECT_EQ(testsupport::RawText(file, "SELECT Type || ':' || Value FROM MSysDaoProperties WHERE Name='SBType'"), "10:xmm");
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultsDbTest, ASecondUseCreatesNothing) {
  auto first = MGlobals::XMLAnalyzerDb();
  auto files = FilesInFolder();
  auto second = MGlobals::XMLAnalyzerDb();
  EXPECT_EQ(first.get(), second.get());
  EXPECT_EQ(FilesInFolder(), files);
  EXPECT_EQ(files.size(), 1u);
}

TEST_F(ResultsDbTest, RowsGetFlagAndStatusZeroAndIncreasingIds) {
  auto rs = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  for (int i = 0; i < 3; ++i) AddFinding(*rs, "x", "Too large uncommented code block");
  EXPECT_EQ(rs->RecordCount(), 3);
  rs->MoveFirst();
  int previous = 0;
  while (!rs->Eof()) {
    EXPECT_EQ(rs->Fields("Flag")->Value(), Variant(0));
    EXPECT_EQ(rs->Fields("Status")->Value(), Variant(0));
    int id = rs->Fields("ID")->Value().AsLong();
    EXPECT_GT(id, previous);
    previous = id;
    rs->MoveNext();
  }
  rs->Close();
}

TEST_F(ResultsDbTest, EmptyTextIsRefusedInProblemOnly) {
  auto rs = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  AddFinding(*rs, "", "a problem");  // "" in the five memo fields that allow it
  EXPECT_EQ(ErrorOf([&] { AddFinding(*rs, "x", ""); }), 3315);
  rs->CancelUpdate();
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->MoveFirst();
  EXPECT_EQ(rs->Fields("Member")->Value(), Variant(""));
  // The rule holds for statements too.
  EXPECT_EQ(ErrorOf([] {
              MGlobals::XMLAnalyzerDb()->Execute("INSERT INTO XMLAnalyzer1 (Problem) VALUES ('')", dbFailOnError);
            }),
            3315);
}

TEST_F(ResultsDbTest, AFileAlreadyAtThePathIsReplaced) {
  std::string path = dir.Write("taken.xmm", "left over from an earlier run").string();
  ASSERT_TRUE(MGlobals::CreateXMLAnalyzerTempDatabase(path));
  auto db = MGlobals::WorkspaceObject->OpenDatabase(path);
  EXPECT_EQ(db->TableDefs()->Count(), 2);
  db->Close();
}

TEST_F(ResultsDbTest, ACreationThatCannotSucceedShowsTheMessageOncePerCall) {
  std::string impossible = (dir.path() / "no folder" / "x.xmm").string();
  EXPECT_FALSE(MGlobals::CreateXMLAnalyzerTempDatabase(impossible));
  EXPECT_TRUE(boxes->shown.empty());

  MGlobals::WorkspaceObject.reset();  // every CreateDatabase fails
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb());
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, "Could not create the 'Annotra' temporary database.");
  EXPECT_EQ(boxes->shown[0].title, "Scribane");
  EXPECT_EQ(boxes->shown[0].style, platform::forms::vbOKOnly + platform::forms::vbCritical);
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  std::string firstPath = MGlobals::XMLAnalyzerDbFile();
  EXPECT_NE(firstPath, "");

  // The next use tries again, with a new name.
  MGlobals::WorkspaceObject = std::make_shared<Workspace>();
  EXPECT_TRUE(MGlobals::XMLAnalyzerDb());
  EXPECT_EQ(boxes->shown.size(), 1u);
  EXPECT_NE(MGlobals::XMLAnalyzerDbFile(), firstPath);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultsDbTest, ClearBeforeFirstUseLeavesItUncreated) {
  MGlobals::ClearXMLAnalyzerDb();
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_EQ(MGlobals::XMLAnalyzerDbFile(), "");
  EXPECT_TRUE(boxes->shown.empty());
  EXPECT_TRUE(report->entries.empty());
  EXPECT_TRUE(FilesInFolder().empty());
}

TEST_F(ResultsDbTest, ClearEmptiesTheResultsAndReopens) {
  auto db = MGlobals::XMLAnalyzerDb();
  auto rs = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  AddFinding(*rs, "x", "p");
  AddFinding(*rs, "x", "p");
  MGlobals::ClearXMLAnalyzerDb();
  EXPECT_EQ(ErrorOf([&] { rs->AddNew(); }), 3420);  // the old database was closed
  auto reopened = MGlobals::XMLAnalyzerDb();
  ASSERT_TRUE(reopened);
  EXPECT_NE(reopened.get(), db.get());
  EXPECT_EQ(reopened->Name(), MGlobals::XMLAnalyzerDbFile());
  EXPECT_EQ(reopened->OpenRecordset("XMLAnalyzer1", dbOpenDynaset)->RecordCount(), 0);
  EXPECT_EQ(reopened->TableDefs()->Count(), 2);

  // A reopen that fails drops the closed database and its file; the next use makes anew.
  std::string file = MGlobals::XMLAnalyzerDbFile();
  MGlobals::WorkspaceObject.reset();
  MGlobals::ClearXMLAnalyzerDb();
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_FALSE(fs::exists(file));
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(ResultsDbTest, NothingIsLeftOnDiskAfterCloseAndDelete) {
  auto db = MGlobals::XMLAnalyzerDb();
  auto rs = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  for (int i = 0; i < 200; ++i) AddFinding(*rs, "x", "p");
  // As the entry object's shutdown does it.
  db->Close();
  fs::remove(MGlobals::XMLAnalyzerDbFile());
  MGlobals::EraseXMLAnalyzerDbObject();
  EXPECT_FALSE(MGlobals::XMLAnalyzerDb_IsCreated());
  EXPECT_TRUE(FilesInFolder().empty());
}
