#include "platform/dao/TableDef.h"

#include <gtest/gtest.h>

#include "testsupport/DaoFixture.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/RawSqlite.h"

using namespace platform::dao;
using platform::Error;
using platform::Ref;
using testsupport::ErrorOf;

namespace {

Ref<Field> MakeField(const Ref<TableDef>& td, const std::string& name, int type,
                     std::optional<int32_t> size, int32_t attributes, const std::string& def,
                     int16_t ordinal) {
  auto f = td->CreateField(name, type, size);
  f->SetAttributes(attributes);
  f->SetDefaultValue(def);
  f->SetOrdinalPosition(ordinal);
  return f;
}

// A table with one field of most types, a primary index on the auto-numbered field and
// a descending unique index that ignores nulls.
Ref<TableDef> SampleTable(Database& db) {
  auto td = db.CreateTableDef("Sample");
  td->SetAttributes(0);
  // Appended out of ordinal order: the table keeps the ordinal order.
  td->Fields()->Append(MakeField(td, "Name", dbText, 20, dbVariableField, "\"none\"", 2));
  td->Fields()->Append(MakeField(td, "ID", dbLong, 4, dbFixedField + dbAutoIncrField, "", 0));
  td->Fields()->Append(MakeField(td, "Small", dbByte, 1, dbFixedField, "7", 1));
  auto memo = MakeField(td, "Notes", dbMemo, {}, dbVariableField, "", 3);
  memo->SetAllowZeroLength(true);
  td->Fields()->Append(memo);
  auto amount = MakeField(td, "Amount", dbDouble, {}, dbFixedField, "-1.5", 4);
  amount->SetRequired(true);
  td->Fields()->Append(amount);
  td->Fields()->Append(MakeField(td, "Done", dbBoolean, {}, dbFixedField, "False", 5));
  auto pk = td->CreateIndex("PrimaryKey");
  pk->SetPrimary(true);
  pk->SetUnique(true);
  pk->SetRequired(true);
  auto pkField = pk->CreateField("ID");
  pk->Fields()->Append(pkField);
  td->Indexes()->Append(pk);
  auto byName = td->CreateIndex("ByName");
  byName->SetUnique(true);
  byName->SetIgnoreNulls(true);
  byName->SetClustered(true);
  auto nameField = byName->CreateField("Name");
  nameField->SetAttributes(dbDescending);
  byName->Fields()->Append(nameField);
  td->Indexes()->Append(byName);
  return td;
}

using TableDefTest = testsupport::DaoTest;

}  // namespace

TEST_F(TableDefTest, EveryPropertyReadsBackAfterReopening) {
  auto path = PathOf("t.db");
  {
    auto db = CreateDatabase("t.db");
    auto td = SampleTable(*db);
    db->TableDefs()->Append(td);
    EXPECT_FALSE(td->Updatable());
    EXPECT_EQ(ErrorOf([&] { td->Fields()->Append(td->CreateField("Late", dbLong)); }), 3219);
    db->Close();
  }
  auto db = ws.OpenDatabase(path);
  auto td = db->TableDefs()->Item("sample");
  EXPECT_EQ(td->Name(), "Sample");
  EXPECT_EQ(td->Attributes(), 0);
  EXPECT_EQ(td->Connect(), "");
  EXPECT_EQ(td->ValidationRule(), "");
  auto fields = td->Fields();
  ASSERT_EQ(fields->Count(), 6);
  const char* order[] = {"ID", "Small", "Name", "Notes", "Amount", "Done"};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(fields->Item(i)->Name(), order[i]);
    EXPECT_EQ(fields->Item(i)->OrdinalPosition(), i);
  }
  auto id = fields->Item("ID");
  EXPECT_EQ(id->Type(), dbLong);
  EXPECT_EQ(id->Size(), 4);
  EXPECT_EQ(id->Attributes(), 17);
  EXPECT_FALSE(id->AllowZeroLength());
  EXPECT_EQ(id->DefaultValue(), "");
  EXPECT_EQ(fields->Item("Small")->Type(), dbByte);
  EXPECT_EQ(fields->Item("Small")->Size(), 1);
  EXPECT_EQ(fields->Item("Small")->DefaultValue(), "7");
  EXPECT_EQ(fields->Item("Name")->Size(), 20);
  EXPECT_EQ(fields->Item("Name")->DefaultValue(), "\"none\"");
  EXPECT_EQ(fields->Item("Notes")->Size(), 0);
  EXPECT_TRUE(fields->Item("Notes")->AllowZeroLength());
  EXPECT_FALSE(fields->Item("Name")->AllowZeroLength());
  EXPECT_TRUE(fields->Item("Amount")->Required());
  EXPECT_FALSE(fields->Item("Notes")->Required());
  EXPECT_EQ(fields->Item("Done")->DefaultValue(), "False");

  ASSERT_EQ(td->Indexes()->Count(), 2);
  auto pk = td->Indexes()->Item("PrimaryKey");
  EXPECT_TRUE(pk->Primary());
  EXPECT_TRUE(pk->Unique());
  EXPECT_TRUE(pk->Required());
  EXPECT_FALSE(pk->IgnoreNulls());
  EXPECT_FALSE(pk->Clustered());
  ASSERT_EQ(pk->Fields()->Count(), 1);
  EXPECT_EQ(pk->Fields()->Item(0)->Name(), "ID");
  EXPECT_EQ(pk->Fields()->Item(0)->Attributes(), 0);
  auto byName = td->Indexes()->Item("ByName");
  EXPECT_FALSE(byName->Primary());
  EXPECT_TRUE(byName->IgnoreNulls());
  EXPECT_TRUE(byName->Clustered());
  EXPECT_EQ(byName->Fields()->Item("Name")->Attributes(), dbDescending);
  EXPECT_EQ(ErrorOf([&] { td->SetName("Other"); }), 3219);
  EXPECT_EQ(ErrorOf([&] { fields->Item("ID")->SetType(dbText); }), 3219);
}

TEST_F(TableDefTest, SqliteItselfSeesTheColumnsConstraintsAndIndexes) {
  auto path = PathOf("t.db");
  auto db = CreateDatabase("t.db");
  db->TableDefs()->Append(SampleTable(*db));
  db->Close();

  auto one = [&](const std::string& sql) { return testsupport::RawText(path, sql); };
  EXPECT_EQ(one("SELECT group_concat(name || ':' || type || ':' || \"notnull\" || ':' || pk || ':' || "
                "ifnull(dflt_value, '-'), ' ') FROM pragma_table_info('Sample')"),
            "ID:INTEGER:1:1:- Small:TINYINT:0:0:7 Name:VARCHAR(20):0:0:'none' Notes:TEXT:0:0:- "
            "Amount:DOUBLE:1:0:-1.5 Done:BOOLEAN:0:0:0");
  EXPECT_EQ(one("SELECT count(*) FROM sqlite_sequence WHERE name='Sample'"), "0");  // AUTOINCREMENT
  EXPECT_EQ(one("SELECT \"unique\" || partial FROM pragma_index_list('Sample')"), "11");
  // The zero-length rule holds for SQL written by anyone: "" is refused in Name.
  EXPECT_NE(testsupport::RawExec(path, "INSERT INTO Sample(Name, Amount) VALUES ('', 1)"), "");
  EXPECT_EQ(testsupport::RawExec(path, "INSERT INTO Sample(Notes, Amount) VALUES ('', 1)"), "");
  EXPECT_EQ(one("SELECT Small || Name || Done FROM Sample"), "7none0");
}

TEST_F(TableDefTest, DefinitionsTheEngineWouldRefuseAreRefusedWithItsNumbers) {
  auto db = CreateDatabase("t.db");
  auto tables = db->TableDefs();

  auto empty = db->CreateTableDef("Empty");
  EXPECT_EQ(ErrorOf([&] { tables->Append(empty); }), 3264);

  auto twice = db->CreateTableDef("Twice");
  twice->Fields()->Append(twice->CreateField("A", dbLong));
  EXPECT_EQ(ErrorOf([&] { twice->Fields()->Append(twice->CreateField("a", dbText)); }), 3367);
  EXPECT_EQ(ErrorOf([&] { twice->Fields()->Append(twice->CreateField("NoType")); }), 3259);
  EXPECT_EQ(ErrorOf([&] { twice->CreateField("Bad", 99); }), 3259);
  EXPECT_EQ(ErrorOf([&] { twice->CreateField("Big", dbText, 300); }), 3001);

  auto badName = db->CreateTableDef("a.b");
  badName->Fields()->Append(badName->CreateField("A", dbLong));
  EXPECT_EQ(ErrorOf([&] { tables->Append(badName); }), 3125);

  auto badIndex = db->CreateTableDef("BadIndex");
  badIndex->Fields()->Append(badIndex->CreateField("A", dbLong));
  auto index = badIndex->CreateIndex("I");
  index->Fields()->Append(index->CreateField("Missing"));
  badIndex->Indexes()->Append(index);
  EXPECT_EQ(ErrorOf([&] { tables->Append(badIndex); }), 3265);

  auto twoCounters = db->CreateTableDef("TwoCounters");
  for (const char* name : {"A", "B"}) {
    auto f = twoCounters->CreateField(name, dbLong);
    f->SetAttributes(dbAutoIncrField);
    twoCounters->Fields()->Append(f);
  }
  EXPECT_EQ(ErrorOf([&] { tables->Append(twoCounters); }), 3259);

  auto badDefault = db->CreateTableDef("BadDefault");
  auto f = badDefault->CreateField("A", dbLong);
  f->SetDefaultValue("Now()");
  badDefault->Fields()->Append(f);
  EXPECT_EQ(ErrorOf([&] { tables->Append(badDefault); }), 3388);

  auto ok = db->CreateTableDef("Ok");
  ok->Fields()->Append(ok->CreateField("A", dbLong));
  tables->Append(ok);
  auto again = db->CreateTableDef("OK");
  again->Fields()->Append(again->CreateField("A", dbLong));
  EXPECT_EQ(ErrorOf([&] { db->TableDefs()->Append(again); }), 3010);
  // Nothing of the refused tables was left behind.
  EXPECT_EQ(db->TableDefs()->Count(), 1);
}
