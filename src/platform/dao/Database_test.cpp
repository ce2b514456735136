#include "platform/dao/Database.h"

#include <gtest/gtest.h>

#include "testsupport/DaoFixture.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/RawSqlite.h"

using namespace platform::dao;
using platform::Error;
using platform::Ref;
using platform::Variant;
using testsupport::ErrorOf;

namespace {

// Makes table `name` with an auto-numbered ID, a byte Flag defaulting to 0 and a memo
// Problem that refuses "".
void MakeTable(Database& db, const std::string& name) {
  auto td = db.CreateTableDef(name);
  auto id = td->CreateField("ID", dbLong, 4);
  id->SetAttributes(17);
  td->Fields()->Append(id);
  auto flag = td->CreateField("Flag", dbByte, 1);
  flag->SetDefaultValue("0");
  td->Fields()->Append(flag);
  auto problem = td->CreateField("Problem", dbMemo);
  problem->SetAttributes(dbFixedField);
  td->Fields()->Append(problem);
  auto pk = td->CreateIndex("ID");
  pk->SetPrimary(true);
  pk->Fields()->Append(pk->CreateField("ID"));
  td->Indexes()->Append(pk);
  db.TableDefs()->Append(td);
}

void AddRows(Database& db, const std::string& table, int count) {
  auto rs = db.OpenRecordset(table, dbOpenDynaset);
  for (int i = 0; i < count; ++i) {
    rs->AddNew();
    rs->Fields("Problem")->SetValue("problem " + std::to_string(i));
    rs->Update();
  }
  rs->Close();
}

class DatabaseTest : public testsupport::DaoTest {
 protected:
  void SetUp() override {
    db = CreateDatabase("tmp.db");
    db->FavourSpeed();
    MakeTable(*db, "XMLAnalyzer1");
  }
  Ref<Database> db;
};

}  // namespace

TEST_F(DatabaseTest, SaveAndLoadThroughOtherFilesKeepRowsIdsAndFieldDefinitions) {
  AddRows(*db, "XMLAnalyzer1", 3);
  db->Execute("DELETE * FROM XMLAnalyzer1 WHERE ID = 1", dbFailOnError);
  EXPECT_EQ(db->RecordsAffected(), 1);

  // A result file whose name holds quotes, brackets and blanks.
  std::string file = (dir.path() / "my \"best\" [results] 'x'.xmm").string();
  ws.CreateDatabase(file, dbLangGeneral, dbVersion30)->Close();
  db->Execute("SELECT XMLAnalyzer1.* INTO XMLAnalyzer IN \"" + file + "\" FROM XMLAnalyzer1", dbFailOnError);
  EXPECT_EQ(db->RecordsAffected(), 2);

  auto saved = ws.OpenDatabase(file);
  auto def = saved->TableDefs()->Item("XMLAnalyzer");
  EXPECT_EQ(def->Fields()->Item("ID")->Attributes(), 17);
  EXPECT_EQ(def->Fields()->Item("Flag")->Type(), dbByte);
  EXPECT_EQ(def->Fields()->Item("Problem")->Type(), dbMemo);
  auto rs = saved->OpenRecordset("XMLAnalyzer", dbOpenDynaset);
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->Fields("ID")->Value(), Variant(2));
  rs->Close();

  // Loading back: empty the table, then insert the file's rows into it by its path.
  db->Execute("DELETE * FROM XMLAnalyzer1 WHERE TRUE", dbFailOnError);
  saved->Execute("INSERT INTO XMLAnalyzer1 IN \"" + db->Name() + "\" SELECT * FROM XMLAnalyzer;", dbFailOnError);
  EXPECT_EQ(saved->RecordsAffected(), 2);
  saved->Close();
  auto back = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  ASSERT_EQ(back->RecordCount(), 2);
  EXPECT_EQ(back->Fields("ID")->Value(), Variant(2));
  EXPECT_EQ(back->Fields("Problem")->Value(), Variant("problem 1"));
  back->MoveLast();
  EXPECT_EQ(back->Fields("ID")->Value(), Variant(3));
  // New rows go on numbering after the highest one.
  back->AddNew();
  back->Fields("Problem")->SetValue("new");
  back->Update();
  back->MoveLast();
  EXPECT_EQ(back->Fields("ID")->Value(), Variant(4));
}

TEST_F(DatabaseTest, ExecuteFailsWholeAndWithTheEnginesNumbers) {
  AddRows(*db, "XMLAnalyzer1", 2);
  std::string file = (dir.path() / "out.xmm").string();
  std::string missing = (dir.path() / "missing.xmm").string();
  auto notDb = dir.Write("text.xmm", "hello");
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT * INTO X IN \"" + missing + "\" FROM XMLAnalyzer1", 128); }), 3024);
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT * INTO X IN \"" + notDb.string() + "\" FROM XMLAnalyzer1", 128); }), 3343);
  ws.CreateDatabase(file, dbLangGeneral)->Close();
  db->Execute("SELECT * INTO X IN \"" + file + "\" FROM XMLAnalyzer1", 128);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT * INTO X IN \"" + file + "\" FROM XMLAnalyzer1", 128); }), 3010);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT * FROM XMLAnalyzer1", 128); }), 3065);
  EXPECT_EQ(ErrorOf([&] { db->Execute("SELECT [Flag] INTO [dBASE IV; DATABASE=" + file + ".dbf].[XMLAnalyzer] From [XMLAnalyzer1]", 128); }), 3170);
  EXPECT_EQ(ErrorOf([&] { db->Execute("DELETE * FROM Nothing WHERE TRUE", 128); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db->Execute("DELETE * FROM XMLAnalyzer1 WHERE NoField = 1", 128); }), 3061);
  EXPECT_EQ(ErrorOf([&] { db->Execute("DROP TABLE XMLAnalyzer1", 128); }), 3129);

  MakeTable(*db, "Other");
  auto td = db->CreateTableDef("Wider");
  auto wideProblem = td->CreateField("Problem", dbMemo);
  wideProblem->SetAllowZeroLength(true);
  td->Fields()->Append(wideProblem);
  td->Fields()->Append(td->CreateField("Extra", dbLong));
  db->TableDefs()->Append(td);
  db->Execute("INSERT INTO Wider (Extra) VALUES (1)", 128);
  EXPECT_EQ(ErrorOf([&] { db->Execute("INSERT INTO Other SELECT * FROM Wider", 128); }), 3127);

  // The second row breaks the zero-length rule: the first is not kept either.
  db->Execute("UPDATE Wider SET Problem = 'a'", 128);
  db->Execute("INSERT INTO Wider (Problem, Extra) VALUES ('', 2)", 128);
  EXPECT_EQ(ErrorOf([&] { db->Execute("INSERT INTO Other (Problem) SELECT Problem FROM Wider ORDER BY Extra", 128); }), 3315);
  EXPECT_EQ(db->OpenRecordset("Other", dbOpenSnapshot)->RecordCount(), 0);
}

TEST_F(DatabaseTest, UserPropertiesAreKeptInTheFile) {
  auto prop = db->CreateProperty("SBType", dbText, "xmm");
  db->Properties()->Append(prop);
  EXPECT_EQ(ErrorOf([&] { db->Properties()->Append(db->CreateProperty("sbtype", dbText, "x")); }), 3367);
  EXPECT_EQ(ErrorOf([&] { db->Properties()->Append(db->CreateProperty("Untyped")); }), 3259);
  EXPECT_EQ(ErrorOf([&] { db->Properties()->Item("Missing"); }), 3270);
  EXPECT_EQ(ErrorOf([&] { db->Properties()->Item("Name")->SetValue("x"); }), 3219);
  auto count = db->CreateProperty("Count", dbLong, "12");
  EXPECT_EQ(count->Value(), Variant(12));
  db->Properties()->Append(count);
  count->SetValue(13);
  std::string name = db->Name();
  db->Close();
  EXPECT_EQ(ErrorOf([&] { db->Name(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { db->Close(); }), 3420);

  auto again = ws.OpenDatabase(name);
  auto sbtype = again->Properties()->Item("SBType");
  EXPECT_EQ(sbtype->Type(), dbText);
  EXPECT_EQ(sbtype->Value(), Variant("xmm"));
  EXPECT_EQ(again->Properties()->Item("Count")->Value(), Variant(13));
  EXPECT_EQ(again->Properties()->Item("Version")->Value(), Variant("3.0"));
  EXPECT_EQ(again->Properties()->Item("Name")->Value(), Variant(name));
}

TEST_F(DatabaseTest, AnotherConnectionCanWriteWhileARecordsetHasRowsPending) {
  std::string file = (dir.path() / "saved.xmm").string();
  auto saved = ws.CreateDatabase(file, dbLangGeneral, dbVersion30);
  MakeTable(*saved, "XMLAnalyzer");
  AddRows(*saved, "XMLAnalyzer", 2);

  auto rs = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  rs->AddNew();
  rs->Fields("Problem")->SetValue("pending");
  rs->Update();  // inside the implicit transaction, not yet committed
  saved->Execute("INSERT INTO XMLAnalyzer1 IN \"" + db->Name() + "\" SELECT Flag, Problem FROM XMLAnalyzer;",
                 dbFailOnError);
  EXPECT_EQ(saved->RecordsAffected(), 2);
  rs->AddNew();
  rs->Fields("Problem")->SetValue("after");
  rs->Update();
  rs->Close();
  EXPECT_EQ(db->OpenRecordset("XMLAnalyzer1", dbOpenSnapshot)->RecordCount(), 4);
}

TEST_F(DatabaseTest, AScratchFileStaysLockedByItsConnectionUntilAnotherConnectionAsksForIt) {
  AddRows(*db, "XMLAnalyzer1", 2);
  const std::string count = "SELECT count(*) FROM XMLAnalyzer1";
  // Held for the whole time it is open, not statement by statement: others cannot read.
  EXPECT_EQ(testsupport::RawText(db->Name(), count), "");

  std::string file = (dir.path() / "saved.xmm").string();
  auto saved = ws.CreateDatabase(file, dbLangGeneral, dbVersion30);
  MakeTable(*saved, "XMLAnalyzer");
  AddRows(*saved, "XMLAnalyzer", 3);
  saved->Execute("INSERT INTO XMLAnalyzer1 IN \"" + db->Name() + "\" SELECT Flag, Problem FROM XMLAnalyzer;",
                 dbFailOnError);
  EXPECT_EQ(saved->RecordsAffected(), 3);
  saved->Close();

  // The owner sees what the other connection wrote, and locks the file again.
  auto rs = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
  EXPECT_EQ(rs->RecordCount(), 5);
  rs->MoveLast();
  EXPECT_EQ(rs->Fields("Problem")->Value(), Variant("problem 2"));
  rs->AddNew();
  rs->Fields("Problem")->SetValue("after");
  rs->Update();
  rs->Close();
  EXPECT_EQ(testsupport::RawText(db->Name(), count), "");

  std::string name = db->Name();
  db->Close();
  EXPECT_EQ(testsupport::RawText(name, count), "6");
}
