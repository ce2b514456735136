#include "platform/dao/Workspace.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testsupport/DaoFixture.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/RawSqlite.h"

using namespace platform::dao;
using platform::Error;
using testsupport::ErrorOf;

namespace {

using WorkspaceTest = testsupport::DaoTest;

// Runs SQL on a file through SQLite itself, as another program would have made it.
void RawSql(const std::filesystem::path& file, const std::string& sql) {
  ASSERT_EQ(testsupport::RawExec(file, sql), "");
}

}  // namespace

TEST_F(WorkspaceTest, CreateDatabaseRefusesAnExistingFileAndAMissingFolder) {
  auto path = (dir.path() / "a.xmm").string();
  auto db = ws.CreateDatabase(path, dbLangGeneral, dbVersion30);
  EXPECT_EQ(db->Name(), path);
  EXPECT_EQ(db->Version(), "3.0");
  EXPECT_EQ(platform::ToInt32(db->Properties()->Item("CollatingOrder")->Value()), 1033);
  db->Close();
  EXPECT_EQ(ErrorOf([&] { ws.CreateDatabase(path, dbLangGeneral, dbVersion30); }), 3204);
  EXPECT_EQ(ErrorOf([&] { ws.CreateDatabase((dir.path() / "no" / "b.xmm").string(), dbLangGeneral); }), 3044);
  EXPECT_EQ(ErrorOf([&] { ws.CreateDatabase("", dbLangGeneral); }), 3044);
  EXPECT_EQ(ErrorOf([&] { ws.CreateDatabase((dir.path() / "e.xmm").string(), dbLangGeneral, dbEncrypt); }), 3001);
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "e.xmm"));
}

TEST_F(WorkspaceTest, NamesThatLookSpecialToSqliteAreOrdinaryFiles) {
  auto previous = std::filesystem::current_path();
  std::filesystem::current_path(dir.path());
  ws.CreateDatabase("file:x?mode=memory", dbLangGeneral)->Close();
  ws.CreateDatabase(":memory:", dbLangGeneral)->Close();
  EXPECT_TRUE(std::filesystem::exists(dir.path() / "file:x?mode=memory"));
  EXPECT_TRUE(std::filesystem::exists(dir.path() / ":memory:"));
  std::filesystem::current_path(previous);
}

TEST_F(WorkspaceTest, BadFilesGiveDaoErrorsNotCrashes) {
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase((dir.path() / "missing.xmm").string()); }), 3024);
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(dir.path().string()); }), 3024);
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(""); }), 3044);
  auto text = dir.Write("text.xmm", "this is not a database at all, just some text\n");
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(text.string()); }), 3343);
  auto empty = dir.Write("empty.xmm", "");
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(empty.string()); }), 3343);
  auto header = dir.Write("header.xmm", std::string("SQLite format 3\0", 16) + std::string(84, '\xff'));
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(header.string()); }), 3343);

  // A real database cut short in the middle of its pages.
  auto whole = (dir.path() / "whole.xmm").string();
  {
    auto db = ws.CreateDatabase(whole, dbLangGeneral);
    auto td = db->CreateTableDef("T");
    td->Fields()->Append(td->CreateField("Text", dbMemo));
    db->TableDefs()->Append(td);
    db->Close();
  }
  RawSql(whole, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
                "INSERT INTO T SELECT printf('%0500d', i) FROM n");
  std::string bytes = testsupport::ReadFile(whole);
  ASSERT_GT(bytes.size(), 100000u);
  auto truncated = dir.Write("truncated.xmm", bytes.substr(0, bytes.size() / 2));
  EXPECT_EQ(ErrorOf([&] { ws.OpenDatabase(truncated.string()); }), 3343);
  EXPECT_NO_THROW(ws.OpenDatabase(whole)->Close());

  // A link to a database opens; a link where a new database should go is refused.
  std::filesystem::create_symlink(whole, dir.path() / "link.xmm");
  EXPECT_NO_THROW(ws.OpenDatabase((dir.path() / "link.xmm").string())->Close());
  std::filesystem::create_symlink(dir.path() / "nowhere", dir.path() / "dangling.xmm");
  EXPECT_EQ(ErrorOf([&] { ws.CreateDatabase((dir.path() / "dangling.xmm").string(), dbLangGeneral); }), 3204);
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "nowhere"));
}

TEST_F(WorkspaceTest, AFileWithoutTheExpectedTablesOpensButHasNoneOfThem) {
  auto file = dir.path() / "other.db";
  RawSql(file, "CREATE TABLE People(Id INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL DEFAULT 'x',"
               " Notes TEXT, Born DATETIME); INSERT INTO People(Name) VALUES ('Ada')");
  auto db = ws.OpenDatabase(file.string());
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db->TableDefs()->Item("XMLAnalyzer1"); }), 3265);
  EXPECT_EQ(ErrorOf([&] { db->Properties()->Item("SBType"); }), 3270);

  // Its own tables are described from what SQLite knows of them.
  auto people = db->TableDefs()->Item("people");
  EXPECT_EQ(people->Name(), "People");
  EXPECT_EQ(people->Fields()->Item("Id")->Attributes() & dbAutoIncrField, dbAutoIncrField);
  EXPECT_EQ(people->Fields()->Item("Name")->Type(), dbText);
  EXPECT_EQ(people->Fields()->Item("Name")->Size(), 40);
  EXPECT_TRUE(people->Fields()->Item("Name")->Required());
  EXPECT_EQ(people->Fields()->Item("Name")->DefaultValue(), "\"x\"");
  EXPECT_EQ(people->Fields()->Item("Notes")->Type(), dbMemo);
  EXPECT_EQ(people->Fields()->Item("Born")->Type(), dbDate);
  auto rs = db->OpenRecordset("People", dbOpenDynaset);
  EXPECT_EQ(rs->Fields("Name")->Value(), platform::Variant("Ada"));
}

TEST_F(WorkspaceTest, TriggersViewsAndHostileSchemasOfAForeignFileDoNotRun) {
  auto file = dir.path() / "hostile.xmm";
  auto marker = dir.path() / "marker.db";
  RawSql(file,
         "CREATE TABLE T(ID INTEGER PRIMARY KEY AUTOINCREMENT, Problem TEXT);"
         "CREATE TABLE Log(What TEXT);"
         "CREATE TRIGGER t_ins AFTER INSERT ON T BEGIN INSERT INTO Log VALUES ('trigger ran'); END;"
         "CREATE TRIGGER t_del BEFORE DELETE ON T BEGIN SELECT RAISE(ABORT, 'no'); END;"
         "CREATE VIEW V AS SELECT * FROM T;"
         // A catalog that lies: a type that is none, an absurd size and ordinal.
         "CREATE TABLE MSysDaoTables(Name TEXT PRIMARY KEY COLLATE NOCASE, Attributes, Connect,"
         " SourceTableName, ValidationRule, ValidationText);"
         "INSERT INTO MSysDaoTables VALUES ('T', 99999999999, NULL, NULL, NULL, NULL);"
         "CREATE TABLE MSysDaoFields(TableName, Name, OrdinalPosition, Type, Size, Attributes,"
         " AllowZeroLength, DefaultValue, Required, ValidationRule, ValidationText);"
         "INSERT INTO MSysDaoFields VALUES ('T', 'Problem', 99999999, 77, -5, 2, 1, 'x''); DROP TABLE T; --', 0, '', '');"
         "INSERT INTO MSysDaoFields VALUES ('T', 'NoSuchColumn', 1, 10, 10, 2, 1, '', 0, '', '');"
         "CREATE TABLE MSysDaoIndexes(TableName, Name, SqliteName, IsPrimary, IsUnique, Required, IgnoreNulls, Clustered);"
         "CREATE TABLE MSysDaoIndexFields(TableName, IndexName, Position, FieldName, Attributes);"
         "INSERT INTO MSysDaoIndexes VALUES ('T', 'Ghost', '', 1, 1, 1, 0, 0);"
         "INSERT INTO MSysDaoIndexFields VALUES ('T', 'Ghost', 0, 'NoSuchColumn', 0);");
  RawSql(file, "ATTACH '" + marker.string() + "' AS m; CREATE TABLE m.Hit(x)");

  auto db = ws.OpenDatabase(file.string());
  auto table = db->TableDefs()->Item("T");
  ASSERT_EQ(table->Fields()->Count(), 2);
  EXPECT_EQ(table->Fields()->Item("Problem")->Type(), dbMemo);  // 77 is no type: inferred
  EXPECT_EQ(table->Indexes()->Count(), 0);                      // names a missing field
  EXPECT_FALSE(db->TableDefs()->Contains("V"));

  auto rs = db->OpenRecordset("T", dbOpenDynaset);
  rs->AddNew();
  rs->Fields("Problem")->SetValue("found");
  rs->Update();
  rs->Close();
  EXPECT_EQ(ErrorOf([&] { db->Execute("DELETE * FROM T WHERE TRUE", dbFailOnError); }), 0);
  EXPECT_NE(ErrorOf([&] { db->Execute("DELETE * FROM V WHERE TRUE", dbFailOnError); }), 0);
  db->Close();
  EXPECT_EQ(testsupport::RawText(file, "SELECT count(*) FROM Log"), "0");  // no trigger ran
  EXPECT_EQ(testsupport::RawText(file, "SELECT count(*) FROM T"), "0");    // the RAISE trigger did not stop it
}
