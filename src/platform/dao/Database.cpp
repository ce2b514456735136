#include "platform/dao/Database.h"

#include <cstdlib>

#include "platform/core/Error.h"
#include "platform/dao/Catalog.h"
#include "platform/dao/Connection.h"
#include "platform/dao/Field.h"
#include "platform/dao/Savepoint.h"
#include "platform/dao/SqlParser.h"
#include "platform/dao/StatementRunner.h"

namespace platform::dao {

Database::Database(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection)), m_name(m_connection->Path()) {}

Database::~Database() = default;

Connection& Database::Open() const {
  if (m_closed || !m_connection->IsOpen()) throw Error(err::kObjectInvalid);
  return *m_connection;
}

std::string Database::Name() const {
  Open();
  return m_name;
}

bool Database::Updatable() const { return !Open().ReadOnly(); }

std::string Database::Version() const {
  for (auto& row : Catalog::LoadProperties(Open(), "main"))
    if (row.engine && SameName(row.name, "Version")) return ToString(row.value);
  return "4.0";
}

Ref<Collection<TableDef>> Database::TableDefs() {
  Connection& connection = Open();
  connection.FlushImplicit();
  auto tables = std::make_shared<Collection<TableDef>>();
  for (auto& name : Catalog::TableNames(connection, "main")) {
    try {
      tables->Load(Catalog::LoadTable(connection, "main", name));
    } catch (const Error&) {
      // A table this layer cannot describe (made by someone else) is left out.
    }
  }
  tables->SetDuplicateError(err::kTableExists);
  std::weak_ptr<Connection> weak = m_connection;
  tables->SetAppendHook([weak](const Ref<TableDef>& table) {
    auto connection = weak.lock();
    if (!connection || !connection->IsOpen()) throw Error(err::kObjectInvalid);
    if (connection->ReadOnly()) throw Error(err::kReadOnly);
    connection->FlushImplicit();
    Catalog::StoreTable(*connection, "main", *table);
    table->Lock();
  });
  return tables;
}

Ref<TableDef> Database::CreateTableDef(const std::string& name, int32_t attributes,
                                       const std::string& sourceTableName,
                                       const std::string& connect) {
  Open();
  return std::make_shared<TableDef>(name, attributes, sourceTableName, connect);
}

Ref<Collection<Property>> Database::Properties() {
  Connection& connection = Open();
  auto properties = std::make_shared<Collection<Property>>(err::kPropertyNotFound);
  auto rows = Catalog::LoadProperties(connection, "main");
  auto engine = [&](const std::string& name, int type, const Variant& value) {
    Variant stored = value;
    for (auto& row : rows)
      if (row.engine && SameName(row.name, name)) stored = row.value;
    auto property = std::make_shared<Property>(name, type, stored);
    property->MakeReadOnly();
    properties->Load(property);
  };
  engine("Name", dbText, m_name);
  engine("Connect", dbText, "");
  engine("Transactions", dbBoolean, true);
  engine("Updatable", dbBoolean, !connection.ReadOnly());
  engine("CollatingOrder", dbLong, 1033);
  engine("QueryTimeout", dbInteger, 60);
  engine("Version", dbText, "4.0");
  engine("RecordsAffected", dbLong, m_recordsAffected);

  std::weak_ptr<Connection> weak = m_connection;
  auto store = [weak](const Property& property) {
    auto connection = weak.lock();
    if (!connection || !connection->IsOpen()) throw Error(err::kObjectInvalid);
    if (connection->ReadOnly()) throw Error(err::kReadOnly);
    connection->FlushImplicit();
    Catalog::PropertyRow row{property.Name(), property.Type(), property.Value(), false};
    Savepoint work(*connection);
    Catalog::StoreProperty(*connection, "main", row);
    work.Commit();
  };
  for (auto& row : rows) {
    if (row.engine) continue;
    Variant value = row.value;
    try {
      value = Property::Convert(row.type, row.value);
    } catch (const Error&) {
      // A value that does not fit its type (a file made elsewhere) is shown as stored.
    }
    auto property = std::make_shared<Property>(row.name, 0, value);
    property->SetType(IsDataType(row.type) ? row.type : dbText);
    property->Bind(store);
    properties->Load(property);
  }
  properties->SetAppendHook([store](const Ref<Property>& property) {
    if (!IsDataType(property->Type())) throw Error(err::kInvalidFieldType);
    store(*property);
    property->Bind(store);
  });
  return properties;
}

Ref<Property> Database::CreateProperty(const std::string& name, int type, const Variant& value) {
  Open();
  return std::make_shared<Property>(name, type, value);
}

void Database::Execute(const std::string& query, int /*options*/) {
  Connection& connection = Open();
  if (connection.ReadOnly()) throw Error(err::kReadOnly);
  SqlStatement statement = SqlParser::Parse(query);
  StatementRunner runner(connection);
  int64_t changed = runner.Run(statement);
  m_recordsAffected = changed > INT32_MAX ? INT32_MAX : static_cast<int32_t>(changed);
}

int32_t Database::RecordsAffected() const {
  Open();
  return m_recordsAffected;
}

Ref<Recordset> Database::OpenRecordset(const std::string& name, int type, int options) {
  Connection& connection = Open();
  if (type != dbOpenTable && type != dbOpenDynaset && type != dbOpenSnapshot &&
      type != dbOpenForwardOnly)
    throw Error(err::kInvalidArgument);
  auto table = Catalog::LoadTable(connection, "main", name);
  return std::make_shared<Recordset>(m_connection, table, type, options);
}

void Database::FavourSpeed() { Open().FavourSpeed(); }

void Database::Close() {
  Open();
  m_closed = true;
  m_connection->Close();
}

}  // namespace platform::dao
