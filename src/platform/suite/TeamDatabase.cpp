#include "platform/suite/TeamDatabase.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "platform/dao/DaoConstants.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/ElementKinds.h"
#include "platform/core/Error.h"
#include "platform/suite/ServiceObject.h"
#include "platform/suite/TempFileNamer.h"

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

namespace {

// Publishes the finished file `made` under `path` unless a file is there already, in
// one step (a hard link, else a rename that does not replace). False when `path` was
// taken meanwhile. Throws error 75 when neither step works here.
bool PublishWithoutReplacing(const std::string& made, const std::string& path) {
  if (::link(made.c_str(), path.c_str()) == 0) return true;
  int error = errno;
  if (error == EEXIST) return false;
  // Hard links are not everywhere (some network and FUSE file systems).
  if (::renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno == EEXIST) return false;
  throw Error(err::kPathFileAccess,
              "The team database <" + path + "> cannot be made: " + std::strerror(error));
}

}  // namespace

Ref<dao::Database> TeamDatabase::OpenOrCreate(dao::Workspace& workspace, const std::string& path) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) return workspace.OpenDatabase(path);
  auto folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, ec);
  // The database is made whole in a file of its own beside the real one and only then
  // published under the real name, in a step that never replaces a file: a run that finds
  // the name finds a whole database, and of two first runs at once the second opens the
  // first one's.
  TempFileNamer namer;
  namer.MakeTempName("db", folder.empty() ? "./" : folder.string());
  const std::string made = namer.FullPath();
  try {
    auto db = workspace.CreateDatabase(made, dao::dbLangGeneral);
    try {
      CreateTemplateTable(*db, DefaultTemplates());
    } catch (...) {
      db->Close();
      throw;
    }
    db->Close();
    PublishWithoutReplacing(made, path);
  } catch (...) {
    std::filesystem::remove(made, ec);
    throw;
  }
  std::filesystem::remove(made, ec);
  return workspace.OpenDatabase(path);
}

}  // namespace platform::suite
