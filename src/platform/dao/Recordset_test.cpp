#include "platform/dao/Recordset.h"

#include <gtest/gtest.h>

#include "testsupport/DaoFixture.h"
#include "testsupport/ErrorOf.h"

using namespace platform::dao;
using platform::Error;
using platform::Ref;
using platform::Variant;
using testsupport::ErrorOf;

namespace {

// A database with table "Rows": ID (auto-numbered, primary), Flag (byte, default 0),
// Code (text 5), Memo (memo, zero length allowed), Strict (memo, zero length refused),
// Need (long, required).
class RecordsetTest : public testsupport::DaoTest {
 protected:
  void SetUp() override {
    path = PathOf("r.db");
    db = CreateDatabase("r.db");
    auto td = db->CreateTableDef("Rows");
    auto id = td->CreateField("ID", dbLong);
    id->SetAttributes(dbFixedField | dbAutoIncrField);
    td->Fields()->Append(id);
    auto flag = td->CreateField("Flag", dbByte);
    flag->SetDefaultValue("0");
    td->Fields()->Append(flag);
    td->Fields()->Append(td->CreateField("Code", dbText, 5));
    auto memo = td->CreateField("Memo", dbMemo);
    memo->SetAllowZeroLength(true);
    td->Fields()->Append(memo);
    td->Fields()->Append(td->CreateField("Strict", dbMemo));
    auto need = td->CreateField("Need", dbLong);
    need->SetRequired(true);
    td->Fields()->Append(need);
    auto pk = td->CreateIndex("ID");
    pk->SetPrimary(true);
    pk->SetUnique(true);
    pk->Fields()->Append(pk->CreateField("ID"));
    td->Indexes()->Append(pk);
    db->TableDefs()->Append(td);
  }

  void Add(Recordset& rs, int need, const std::string& strict = "x") {
    rs.AddNew();
    rs.Fields("Need")->SetValue(need);
    rs.Fields("Strict")->SetValue(strict);
    rs.Update();
  }

  std::string path;
  Ref<Database> db;
};

}  // namespace

TEST_F(RecordsetTest, NewRowsGetDefaultsAndIncreasingNumbers) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  EXPECT_TRUE(rs->Eof());
  EXPECT_TRUE(rs->Bof());
  EXPECT_EQ(rs->RecordCount(), 0);
  rs->AddNew();
  EXPECT_EQ(rs->EditMode(), dbEditAdd);
  EXPECT_EQ(rs->Fields("Flag")->Value(), Variant(0));  // the default shows at once
  EXPECT_TRUE(rs->Fields("ID")->Value().IsEmpty());
  rs->Fields("need")->SetValue("12");                  // converted to the field's type
  rs->Fields("Strict")->SetValue("a");
  rs->Update();
  Add(*rs, 2);
  Add(*rs, 3);
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(rs->EditMode(), dbEditNone);
  rs->MoveFirst();
  std::vector<int> ids;
  while (!rs->Eof()) {
    ids.push_back(rs->Fields("ID")->Value().AsLong());
    EXPECT_EQ(rs->Fields("Flag")->Value(), Variant(0));
    EXPECT_TRUE(rs->Fields("Code")->Value().IsEmpty());
    rs->MoveNext();
  }
  ASSERT_EQ(ids.size(), 3u);
  EXPECT_LT(ids[0], ids[1]);
  EXPECT_LT(ids[1], ids[2]);
  EXPECT_EQ(ErrorOf([&] { rs->MoveNext(); }), 3021);
  rs->MoveLast();
  EXPECT_EQ(rs->Fields("Need")->Value(), Variant(3));
  EXPECT_EQ(rs->AbsolutePosition(), 2);
  rs->MovePrevious();
  EXPECT_EQ(rs->Fields(1)->Name(), "Flag");
  EXPECT_EQ(rs->Fields()->Count(), 6);
}

TEST_F(RecordsetTest, ZeroLengthRequiredSizeAndTypeRulesHold) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  rs->AddNew();
  rs->Fields("Need")->SetValue(1);
  rs->Fields("Memo")->SetValue("");
  rs->Fields("Strict")->SetValue("");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3315);
  EXPECT_EQ(rs->EditMode(), dbEditAdd);  // still in progress: the caller can fix it
  rs->Fields("Strict")->SetValue("ok");
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 1);

  rs->AddNew();
  rs->Fields("Strict")->SetValue("ok");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3314);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Code")->SetValue("toolong"); }), 3163);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Need")->SetValue("abc"); }), 3421);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Flag")->SetValue(256); }), 6);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("ID")->SetValue(5); }), 3027);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Nope"); }), 3265);
  rs->CancelUpdate();
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Need")->SetValue(1); }), 3020);
  EXPECT_EQ(rs->RecordCount(), 1);
}

TEST_F(RecordsetTest, EditChangesTheCurrentRowOnly) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  Add(*rs, 1);
  Add(*rs, 2);
  EXPECT_EQ(ErrorOf([&] { rs->Edit(); }), 3021);  // appending moved to no row
  rs->MoveFirst();
  rs->Edit();
  EXPECT_EQ(rs->EditMode(), dbEditInProgress);
  rs->Fields("Flag")->SetValue(2);
  rs->Update();
  EXPECT_EQ(rs->Fields("Flag")->Value(), Variant(2));
  rs->Close();

  auto again = db->OpenRecordset("Rows", dbOpenDynaset);
  EXPECT_EQ(again->Fields("Flag")->Value(), Variant(2));
  again->MoveNext();
  EXPECT_EQ(again->Fields("Flag")->Value(), Variant(0));
}

TEST_F(RecordsetTest, ClosedReadOnlyAndDeletedAreRefused) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  Add(*rs, 1);
  auto field = rs->Fields("Need");
  rs->MoveFirst();
  db->Execute("DELETE * FROM Rows WHERE TRUE", dbFailOnError);
  EXPECT_EQ(ErrorOf([&] { field->Value(); }), 3167);
  rs->Close();
  EXPECT_EQ(ErrorOf([&] { field->Value(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rs->AddNew(); }), 3420);
  EXPECT_NO_THROW(rs->Close());

  auto snapshot = db->OpenRecordset("Rows", dbOpenSnapshot);
  EXPECT_EQ(ErrorOf([&] { snapshot->AddNew(); }), 3027);
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("Missing", dbOpenDynaset); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("Rows", 3); }), 3001);

  auto open = db->OpenRecordset("Rows", dbOpenDynaset);
  db->Close();
  EXPECT_EQ(ErrorOf([&] { open->AddNew(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("Rows", dbOpenDynaset); }), 3420);
}

TEST_F(RecordsetTest, RowsAppendedAreInTheFileOnceTheRecordsetCloses) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  for (int i = 0; i < 50; ++i) Add(*rs, i);
  rs->Close();
  auto other = ws.OpenDatabase(path);
  auto count = other->OpenRecordset("Rows", dbOpenSnapshot);
  EXPECT_EQ(count->RecordCount(), 50);
}

TEST_F(RecordsetTest, ReadRowsHandsOverTheSetInOnePassAndRequeryRemakesIt) {
  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  for (int i = 1; i <= 3; ++i) Add(*rs, i * 10);
  auto other = db->OpenRecordset("Rows", dbOpenDynaset);
  Add(*rs, 40);  // joins rs, not other
  db->Execute("DELETE FROM Rows WHERE Need = 20");
  std::vector<std::pair<int32_t, int32_t>> seen;
  other->ReadRows([&](int32_t position, std::vector<Variant>& values) {
    seen.emplace_back(position, platform::ToInt32(values[5]));
  });
  EXPECT_EQ(seen, (std::vector<std::pair<int32_t, int32_t>>{{0, 10}, {2, 30}}));
  other->Requery();
  EXPECT_EQ(other->RecordCount(), 3);
  EXPECT_EQ(platform::ToInt32(other->Fields("Need")->Value()), 10);
  seen.clear();
  other->ReadRows([&](int32_t position, std::vector<Variant>& values) {
    seen.emplace_back(position, platform::ToInt32(values[5]));
  });
  EXPECT_EQ(seen, (std::vector<std::pair<int32_t, int32_t>>{{0, 10}, {1, 30}, {2, 40}}));
}

TEST_F(RecordsetTest, ForwardOnlyScansTheTableInOrderOnceAndStartsAgainOnRequery) {
  auto empty = db->OpenRecordset("Rows", dbOpenForwardOnly);
  EXPECT_TRUE(empty->Eof());
  EXPECT_TRUE(empty->Bof());
  EXPECT_EQ(empty->RecordCount(), 0);
  EXPECT_EQ(ErrorOf([&] { empty->Fields("Need")->Value(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { empty->MoveNext(); }), 3021);

  auto rs = db->OpenRecordset("Rows", dbOpenDynaset);
  for (int i = 1; i <= 4; ++i) Add(*rs, i * 10, "s" + std::to_string(i));
  rs->MoveFirst();
  rs->MoveNext();
  rs->Edit();
  rs->Fields("Memo")->SetValue(std::string("edited"));
  rs->Update();
  db->Execute("DELETE FROM Rows WHERE Need = 30");
  rs->Close();

  auto scan = db->OpenRecordset("Rows", dbOpenForwardOnly);
  EXPECT_FALSE(scan->Updatable());
  std::vector<std::string> seen;
  for (; !scan->Eof(); scan->MoveNext()) {
    EXPECT_EQ(scan->AbsolutePosition() + 1, scan->RecordCount());
    seen.push_back(platform::ToString(scan->Fields("ID")->Value()) + ":" +
                   platform::ToString(scan->Fields(5)->Value()) + ":" +
                   platform::ToString(scan->Fields("Memo")->Value()) + ":" +
                   platform::ToString(scan->Fields("Flag")->Value()));
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"1:10::0", "2:20:edited:0", "4:40::0"}));
  EXPECT_EQ(scan->RecordCount(), 3);
  EXPECT_EQ(scan->AbsolutePosition(), -1);
  EXPECT_FALSE(scan->Bof());
  EXPECT_EQ(ErrorOf([&] { scan->MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { scan->Fields("Need")->Value(); }), 3021);

  // Only forwards: the other moves, whole-set reads and writes are refused.
  EXPECT_EQ(ErrorOf([&] { scan->MoveFirst(); }), 3219);
  EXPECT_EQ(ErrorOf([&] { scan->MoveLast(); }), 3219);
  EXPECT_EQ(ErrorOf([&] { scan->MovePrevious(); }), 3219);
  EXPECT_EQ(ErrorOf([&] { scan->SetAbsolutePosition(0); }), 3219);
  EXPECT_EQ(ErrorOf([&] { scan->ReadRows([](int32_t, std::vector<Variant>&) {}); }), 3219);
  EXPECT_EQ(ErrorOf([&] { scan->AddNew(); }), 3027);

  // A scan at its end holds no lock: another connection can write meanwhile.
  auto other = ws.OpenDatabase(path);
  other->Execute("DELETE FROM Rows WHERE Need = 10");

  scan->Requery();
  ASSERT_FALSE(scan->Eof());
  EXPECT_EQ(scan->RecordCount(), 1);
  EXPECT_EQ(platform::ToInt32(scan->Fields("Need")->Value()), 20);
  scan->Close();
  EXPECT_EQ(ErrorOf([&] { scan->MoveNext(); }), 3420);
}
