#include "platform/suite/TeamDatabase.h"

#include <filesystem>

#include "platform/dao/DaoConstants.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/ElementKinds.h"
#include "platform/suite/ServiceObject.h"

namespace platform::suite {

const std::vector<TeamDatabase::Template>& TeamDatabase::DefaultTemplates() {
  static const std::string summary = "<summary></summary>";
  static const std::string param = "<param name=\"\" type=\"\"></param>";
  static const std::string returns = "<returns></returns>";
  static const std::vector<Template> templates = {
      {kind::Class, summary, true},
      {kind::Delegate, summary + "\n" + param + "\n" + returns, true},
      {kind::Enum, summary, true},
      {kind::Method, summary + "\n" + param + "\n" + returns, true},
      {kind::Interface, summary, true},
      {kind::Module, summary, true},
      {kind::Namespace, summary, false},
      {kind::Structure, summary, true},
      {kind::Event, summary, true},
      {kind::Property, summary + "\n" + param, true},
      {kind::Field, summary, true},
  };
  return templates;
}

std::string TeamDatabase::DefaultPath() { return ServiceObject().DataFolder() + "team.db"; }

void TeamDatabase::CreateTemplateTable(dao::Database& db, const std::vector<Template>& templates) {
  auto td = db.CreateTableDef("XMLComments");
  auto id = td->CreateField("ID", dao::dbLong);
  id->SetAttributes(dao::dbFixedField | dao::dbAutoIncrField);
  td->Fields()->Append(id);
  auto prototype = td->CreateField("Prototype", dao::dbText, 64);
  prototype->SetRequired(true);
  td->Fields()->Append(prototype);
  auto comment = td->CreateField("Comment", dao::dbMemo);
  comment->SetAllowZeroLength(true);
  td->Fields()->Append(comment);
  td->Fields()->Append(td->CreateField("Enabled", dao::dbBoolean));
  auto pk = td->CreateIndex("PrimaryKey");
  pk->SetPrimary(true);
  pk->SetUnique(true);
  pk->Fields()->Append(pk->CreateField("ID"));
  td->Indexes()->Append(pk);
  db.TableDefs()->Append(td);

  auto rs = db.OpenRecordset("XMLComments", dao::dbOpenTable);
  for (const auto& t : templates) {
    rs->AddNew();
    rs->Fields("Prototype")->SetValue(t.kind);
    rs->Fields("Comment")->SetValue(t.comment);
    rs->Fields("Enabled")->SetValue(t.enabled);
    rs->Update();
  }
  rs->Close();
}

Ref<dao::Database> TeamDatabase::OpenOrCreate(dao::Workspace& workspace, const std::string& path) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) return workspace.OpenDatabase(path);
  auto folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, ec);
  auto db = workspace.CreateDatabase(path, dao::dbLangGeneral);
  try {
    CreateTemplateTable(*db, DefaultTemplates());
  } catch (...) {
    // A half-made team database would hide the defaults from every later run.
    db->Close();
    std::filesystem::remove(path, ec);
    throw;
  }
  return db;
}

}  // namespace platform::suite
