#pragma once
// A table shaped like the results table, made through the DAO layer in a database of a
// test, and rows of findings to fill it. Header only: the tests that include it link
// the DAO layer already.

#include <string>
#include <vector>

#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"

namespace testsupport {

/// One finding as a test writes it.
struct FindingRow {
  std::string Project;
  std::string Document;
  std::string Type;
  std::string Path;
  std::string Member;
  int Start = 1;
  int End = 1;
  std::string Problem;
  int Flag = 0;
};

/// Makes the table `name` with the eleven columns of the results table ("ID"
/// auto-numbered, "Flag", "Project", "Document", "Type", "Path", "Member", "Start",
/// "End", "Status", "Problem").
inline void CreateFindingsTable(platform::dao::Database& db, const std::string& name) {
  using namespace platform::dao;
  auto table = db.CreateTableDef(name);
  struct Column {
    const char* name;
    int type;
    int attributes;
    const char* def;
  };
  const Column columns[] = {{"ID", dbLong, 17, ""},         {"Flag", dbByte, 1, "0"},
                            {"Project", dbMemo, 2, ""},     {"Document", dbMemo, 2, ""},
                            {"Type", dbMemo, 2, ""},        {"Path", dbMemo, 2, ""},
                            {"Member", dbMemo, 2, ""},      {"Start", dbLong, 1, "0"},
                            {"End", dbLong, 1, ""},         {"Status", dbByte, 1, "0"},
                            {"Problem", dbMemo, 1, ""}};
  for (const auto& c : columns) {
    auto field = table->CreateField(c.name, c.type);
    field->SetAttributes(c.attributes);
    if (c.type == dbMemo && c.attributes == 2) field->SetAllowZeroLength(true);
    field->SetDefaultValue(c.def);
    table->Fields()->Append(field);
  }
  db.TableDefs()->Append(table);
}

/// Appends `rows` to the table `name`.
inline void AddFindings(platform::dao::Database& db, const std::string& name,
                        const std::vector<FindingRow>& rows) {
  auto rs = db.OpenRecordset(name, platform::dao::dbOpenDynaset);
  for (const auto& row : rows) {
    rs->AddNew();
    rs->Fields("Flag")->SetValue(row.Flag);
    rs->Fields("Project")->SetValue(row.Project);
    rs->Fields("Document")->SetValue(row.Document);
    rs->Fields("Type")->SetValue(row.Type);
    rs->Fields("Path")->SetValue(row.Path);
    rs->Fields("Member")->SetValue(row.Member);
    rs->Fields("Start")->SetValue(row.Start);
    rs->Fields("End")->SetValue(row.End);
    rs->Fields("Problem")->SetValue(row.Problem);
    rs->Update();
  }
  rs->Close();
}

}  // namespace testsupport
