#include "results/MGlobals_ResultsDb.h"

#include <filesystem>
#include <optional>

#include "host/MGlobals.h"
#include "host/Steps.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/TempFileNamer.h"

namespace annotra::MGlobals {
namespace {

using namespace platform::dao;

// The open results database (none until the first use, and after a failed creation)
// and the path of its file.
Ref<Database> g_XMLAnalyzerDb;
std::string g_XMLAnalyzerDbFile;

constexpr int kMaxCreateAttempts = 5000;
constexpr const char* kResultsTable = "XMLAnalyzer1";

// One column of the two results tables.
struct ColumnSpec {
  const char* name;
  int type;
  std::optional<int32_t> size;  // none: CreateField without a size
  int32_t attributes;
  bool allowZeroLength;         // set only for the five memo fields that allow ""
  const char* defaultValue;
};

const ColumnSpec kColumns[] = {
    {"ID", dbLong, 4, dbFixedField + dbAutoIncrField, false, ""},
    {"Flag", dbByte, 1, dbFixedField, false, "0"},
    {"Project", dbMemo, std::nullopt, dbVariableField, true, ""},
    {"Document", dbMemo, std::nullopt, dbVariableField, true, ""},
    {"Type", dbMemo, std::nullopt, dbVariableField, true, ""},
    {"Path", dbMemo, std::nullopt, dbVariableField, true, ""},
    {"Member", dbMemo, std::nullopt, dbVariableField, true, ""},
    {"Start", dbLong, 4, dbFixedField, false, "0"},
    {"End", dbLong, 4, dbFixedField, false, ""},
    {"Status", dbByte, 1, dbFixedField, false, "0"},
    {"Problem", dbMemo, std::nullopt, dbFixedField, false, ""},
};

// Steps 3 to 6 of the creation for one table: its definition, its fields in ordinal
// order, its primary index "ID", and storing it in the database.
void BuildTable(const Ref<Database>& db, const std::string& name, const Steps& step) {
  Ref<TableDef> table;
  step(3, [&] { table = db->CreateTableDef(name); });
  step(3, [&] { table->SetAttributes(0); });
  step(3, [&] { table->SetConnect(""); });
  step(3, [&] { table->SetSourceTableName(""); });
  step(3, [&] { table->SetValidationRule(""); });
  step(3, [&] { table->SetValidationText(""); });

  int16_t ordinal = 0;
  for (const ColumnSpec& column : kColumns) {
    Ref<Field> field;
    step(4, [&] {
      field = column.size ? table->CreateField(column.name, column.type, *column.size)
                          : table->CreateField(column.name, column.type);
    });
    step(4, [&] { field->SetAttributes(column.attributes); });
    if (column.allowZeroLength) step(4, [&] { field->SetAllowZeroLength(true); });
    step(4, [&] { field->SetDefaultValue(column.defaultValue); });
    step(4, [&] { field->SetOrdinalPosition(ordinal); });
    step(4, [&] { field->SetRequired(false); });
    step(4, [&] { field->SetValidationRule(""); });
    step(4, [&] { field->SetValidationText(""); });
    step(4, [&] { table->Fields()->Append(field); });
    ++ordinal;
  }

  Ref<Index> index;
  step(5, [&] { index = table->CreateIndex("ID"); });
  step(5, [&] { index->SetClustered(false); });
  step(5, [&] { index->SetPrimary(true); });
  step(5, [&] { index->SetUnique(true); });
  step(5, [&] { index->SetRequired(true); });
  step(5, [&] { index->SetIgnoreNulls(false); });
  Ref<Field> indexField;
  step(5, [&] { indexField = index->CreateField("ID"); });
  step(5, [&] { indexField->SetAttributes(0); });
  step(5, [&] { index->Fields()->Append(indexField); });
  step(5, [&] { table->Indexes()->Append(index); });

  step(6, [&] { db->TableDefs()->Append(table); });
}

}  // namespace

Ref<platform::dao::Database> XMLAnalyzerDb() {
  Steps step("Quillmark.MGlobals.XMLAnalyzerDb");
  bool exists = false;
  step(1, [&] { exists = g_XMLAnalyzerDb != nullptr; });
  if (exists) return g_XMLAnalyzerDb;

  step(2, [&] {
    auto namer = std::make_shared<platform::suite::TempFileNamer>();
    std::string folder = namer->Folder();
    namer->MakeTempName("xmm", folder);
    g_XMLAnalyzerDbFile = namer->FullPath();
  });
  bool created = false;
  step(3, [&] { created = CreateXMLAnalyzerTempDatabase(g_XMLAnalyzerDbFile); });
  if (created) {
    step(4, [&] {
      g_XMLAnalyzerDb = WorkspaceObject->OpenDatabase(g_XMLAnalyzerDbFile);
      // A scratch file: speed before durability.
      g_XMLAnalyzerDb->FavourSpeed();
    });
  } else {
    step(5, [&] {
      platform::forms::MsgBox("Could not create the 'Annotra' temporary database.",
                              platform::forms::vbOKOnly + platform::forms::vbCritical, "Scribane");
    });
  }
  return g_XMLAnalyzerDb;
}

bool XMLAnalyzerDb_IsCreated() {
  Steps step("Quillmark.MGlobals.XMLAnalyzerDb_IsCreated");
  bool created = false;
  step(1, [&] { created = g_XMLAnalyzerDb != nullptr; });
  return created;
}

std::string XMLAnalyzerDbFile() {
  Steps step("Quillmark.MGlobals.XMLAnalyzerDbFile");
  std::string file;
  step(1, [&] { file = g_XMLAnalyzerDbFile; });
  return file;
}

bool CreateXMLAnalyzerTempDatabase(std::string& path) {
  Steps step("Quillmark.MGlobals.CreateXMLAnalyzerTempDatabase");
  Ref<Database> db;
  for (int attempt = 0; attempt < kMaxCreateAttempts; ++attempt) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    platform::forms::DoEvents();
    try {
      db = WorkspaceObject->CreateDatabase(path, dbLangGeneral, dbVersion30);
      break;
    } catch (const std::exception&) {
      // Counted; the next attempt deletes the file again and retries.
    }
  }
  if (!db) return false;
  // Building the schema of a scratch file need not wait for the disk.
  Quietly([&] { db->FavourSpeed(); });

  BuildTable(db, "XMLAnalyzer0", step);
  BuildTable(db, kResultsTable, step);

  Ref<Property> property;
  step(8, [&] { property = db->CreateProperty("SBType", dbText, "xmm"); });
  step(8, [&] { db->Properties()->Append(property); });
  step(9, [&] { db->Close(); });
  db.reset();
  return true;
}

void ClearXMLAnalyzerDb() {
  if (g_XMLAnalyzerDb) {
    Quietly([] { g_XMLAnalyzerDb->Execute("DELETE * FROM XMLAnalyzer1 WHERE TRUE", dbFailOnError); });
    Quietly([] { g_XMLAnalyzerDb->Close(); });
  }
  bool reopened = Quietly([] {
    auto db = WorkspaceObject->OpenDatabase(XMLAnalyzerDbFile());
    Quietly([&] { db->FavourSpeed(); });
    g_XMLAnalyzerDb = db;
  });
  // A database that was closed and cannot be opened again is dropped, with its file,
  // so that the next XMLAnalyzerDb makes a new one instead of handing out a closed one.
  if (!reopened && g_XMLAnalyzerDb) {
    g_XMLAnalyzerDb.reset();
    std::error_code ignored;
    if (!g_XMLAnalyzerDbFile.empty()) std::filesystem::remove(g_XMLAnalyzerDbFile, ignored);
  }
}

void EraseXMLAnalyzerDbObject() {
  Steps step("Quillmark.MGlobals.EraseXMLAnalyzerDbObject");
  step(1, [&] { g_XMLAnalyzerDb.reset(); });
}

void ForgetXMLAnalyzerDbForTesting() {
  g_XMLAnalyzerDb.reset();
  g_XMLAnalyzerDbFile.clear();
}

void DiscardXMLAnalyzerDbForTesting() {
  if (g_XMLAnalyzerDb) {
    try {
      g_XMLAnalyzerDb->Close();
    } catch (const std::exception&) {
    }
  }
  if (!g_XMLAnalyzerDbFile.empty()) {
    std::error_code ec;
    std::filesystem::remove(g_XMLAnalyzerDbFile, ec);
  }
  ForgetXMLAnalyzerDbForTesting();
}

}  // namespace annotra::MGlobals
