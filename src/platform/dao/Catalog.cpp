#include "platform/dao/Catalog.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <map>

#include "platform/core/Error.h"
#include "platform/dao/Connection.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Savepoint.h"
#include "platform/dao/SqliteError.h"
#include "platform/dao/Statement.h"
#include "platform/dao/TableDef.h"

namespace platform::dao {
namespace {

constexpr const char* kTables = "MSysDaoTables";
constexpr const char* kFields = "MSysDaoFields";
constexpr const char* kIndexes = "MSysDaoIndexes";
constexpr const char* kIndexFields = "MSysDaoIndexFields";
constexpr const char* kProperties = "MSysDaoProperties";

std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  return s;
}

std::string Lower(std::string s) {
  for (char& c : s)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return s;
}

std::string In(const std::string& schema, const char* table) {
  return Catalog::Quote(schema) + "." + Catalog::Quote(table);
}

bool HasTable(Connection& connection, const std::string& schema, const std::string& name) {
  Statement query(connection, "SELECT 1 FROM " + Catalog::Quote(schema) +
                                  ".sqlite_schema WHERE type='table' AND name=?1 COLLATE NOCASE");
  query.BindText(1, name);
  return query.Step();
}

int ClampInt(int64_t v, int lo, int hi) {
  return static_cast<int>(std::max<int64_t>(lo, std::min<int64_t>(hi, v)));
}

// The DAO type and size of a column that has no catalog row, from its declared type.
std::pair<int, int32_t> InferType(const std::string& declared) {
  std::string d = Upper(declared);
  auto has = [&](const char* s) { return d.find(s) != std::string::npos; };
  if (has("TINYINT")) return {dbByte, 1};
  if (has("SMALLINT")) return {dbInteger, 2};
  if (has("BIGINT")) return {dbBigInt, 8};
  if (has("BOOL") || d == "BIT") return {dbBoolean, 1};
  if (has("INT")) return {dbLong, 4};
  if (has("CURRENCY") || has("MONEY")) return {dbCurrency, 8};
  if (has("SINGLE")) return {dbSingle, 4};
  if (has("REAL") || has("DOUB") || has("FLOA") || has("NUMERIC") || has("DECIMAL"))
    return {dbDouble, 8};
  if (has("DATE") || has("TIME")) return {dbDate, 8};
  if (has("GUID")) return {dbGUID, 16};
  if (has("CHAR(")) {
    size_t open = d.find("CHAR(") + 5;
    int size = 0;
    auto res = std::from_chars(d.data() + open, d.data() + d.size(), size);
    if (res.ec == std::errc() && size >= 1 && size <= 255) return {dbText, size};
    return {dbMemo, 0};
  }
  if (has("BLOB") || has("BINARY")) return {dbLongBinary, 0};
  return {dbMemo, 0};
}

std::string DeclaredType(const Field& field) {
  switch (field.Type()) {
    case dbBoolean: return "BOOLEAN";
    case dbByte: return "TINYINT";
    case dbInteger: return "SMALLINT";
    case dbLong: return "INTEGER";
    case dbCurrency: return "CURRENCY";
    case dbSingle: return "SINGLE";
    case dbDouble: return "DOUBLE";
    case dbDate: return "DATETIME";
    case dbText: return "VARCHAR(" + std::to_string(field.Size()) + ")";
    case dbMemo: return "TEXT";
    case dbGUID: return "GUID";
    case dbBigInt: return "BIGINT";
    default: return "BLOB";
  }
}

std::string SqlLiteral(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty: return "NULL";
    case Variant::Type::Boolean: return value.AsBool() ? "-1" : "0";
    case Variant::Type::Long: return std::to_string(value.AsLong());
    case Variant::Type::Double: {
      char buf[64];
      auto res = std::to_chars(buf, buf + sizeof buf, value.AsDouble());
      std::string text(buf, res.ptr);
      if (text.find_first_of(".eE") == std::string::npos) text += ".0";
      return text;
    }
    case Variant::Type::String: {
      std::string out = "'";
      for (char c : value.AsString()) {
        if (c == '\'') out += '\'';
        out += c;
      }
      return out + "'";
    }
  }
  return "NULL";
}

// A column as SQLite describes it.
struct Column {
  std::string name;
  std::string declared;
  bool notNull = false;
  bool hasDefault = false;
  std::string defaultText;
  bool primaryKey = false;
};

std::vector<Column> ColumnsOf(Connection& connection, const std::string& schema,
                              const std::string& table) {
  Statement query(connection,
                  "SELECT name, type, \"notnull\", dflt_value, pk, hidden "
                  "FROM pragma_table_xinfo(?1, ?2) ORDER BY cid");
  query.BindText(1, table);
  query.BindText(2, schema);
  std::vector<Column> columns;
  while (query.Step()) {
    if (query.ColumnInt64(5) != 0) continue;  // generated or hidden column
    Column c;
    c.name = query.ColumnText(0);
    c.declared = query.ColumnText(1);
    c.notNull = query.ColumnInt64(2) != 0;
    c.hasDefault = query.ColumnType(3) != SQLITE_NULL;
    c.defaultText = query.ColumnText(3);
    c.primaryKey = query.ColumnInt64(4) != 0;
    columns.push_back(std::move(c));
  }
  return columns;
}

// A default value written by SQLite's own schema ('abc', 12, NULL) as DAO's text.
std::string DaoDefaultText(const std::string& sqlDefault) {
  if (sqlDefault.size() >= 2 && sqlDefault.front() == '\'' && sqlDefault.back() == '\'') {
    std::string inner = sqlDefault.substr(1, sqlDefault.size() - 2), out = "\"";
    for (size_t i = 0; i < inner.size(); ++i) {
      if (inner[i] == '\'' && i + 1 < inner.size() && inner[i + 1] == '\'') ++i;
      if (inner[i] == '"') out += '"';
      out += inner[i];
    }
    return out + "\"";
  }
  if (Upper(sqlDefault) == "NULL") return "";
  return sqlDefault;
}

}  // namespace

std::string Catalog::Quote(const std::string& identifier) {
  std::string out = "\"";
  for (char c : identifier) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

bool Catalog::IsSystemTable(const std::string& name) {
  std::string lower = Lower(name);
  return lower.rfind("sqlite_", 0) == 0 || lower.rfind("msysdao", 0) == 0;
}

void Catalog::CheckName(const std::string& name) {
  bool valid = !name.empty() && name.size() <= 64 && name[0] != ' ' && !IsSystemTable(name);
  for (unsigned char c : name)
    if (c < 32 || c == '.' || c == '!' || c == '`' || c == '[' || c == ']') valid = false;
  if (!valid) throw Error(err::kNameInvalid, "'" + name + "' isn't a valid name.");
}

void Catalog::Create(Connection& connection, const std::string& schema) {
  connection.Exec(
      "CREATE TABLE IF NOT EXISTS " + In(schema, kTables) +
      "(Name TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, Attributes INTEGER NOT NULL,"
      " Connect TEXT NOT NULL, SourceTableName TEXT NOT NULL, ValidationRule TEXT NOT NULL,"
      " ValidationText TEXT NOT NULL);"
      "CREATE TABLE IF NOT EXISTS " + In(schema, kFields) +
      "(TableName TEXT NOT NULL COLLATE NOCASE, Name TEXT NOT NULL COLLATE NOCASE,"
      " OrdinalPosition INTEGER NOT NULL, Type INTEGER NOT NULL, Size INTEGER NOT NULL,"
      " Attributes INTEGER NOT NULL, AllowZeroLength INTEGER NOT NULL,"
      " DefaultValue TEXT NOT NULL, Required INTEGER NOT NULL, ValidationRule TEXT NOT NULL,"
      " ValidationText TEXT NOT NULL, PRIMARY KEY (TableName, Name));"
      "CREATE TABLE IF NOT EXISTS " + In(schema, kIndexes) +
      "(TableName TEXT NOT NULL COLLATE NOCASE, Name TEXT NOT NULL COLLATE NOCASE,"
      " SqliteName TEXT NOT NULL, IsPrimary INTEGER NOT NULL, IsUnique INTEGER NOT NULL,"
      " Required INTEGER NOT NULL, IgnoreNulls INTEGER NOT NULL, Clustered INTEGER NOT NULL,"
      " PRIMARY KEY (TableName, Name));"
      "CREATE TABLE IF NOT EXISTS " + In(schema, kIndexFields) +
      "(TableName TEXT NOT NULL COLLATE NOCASE, IndexName TEXT NOT NULL COLLATE NOCASE,"
      " Position INTEGER NOT NULL, FieldName TEXT NOT NULL, Attributes INTEGER NOT NULL,"
      " PRIMARY KEY (TableName, IndexName, Position));"
      "CREATE TABLE IF NOT EXISTS " + In(schema, kProperties) +
      "(Name TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, Type INTEGER NOT NULL, Value,"
      " Engine INTEGER NOT NULL)");
}

std::vector<std::string> Catalog::TableNames(Connection& connection, const std::string& schema) {
  Statement query(connection, "SELECT name FROM " + Quote(schema) +
                                  ".sqlite_schema WHERE type='table' ORDER BY name COLLATE NOCASE");
  std::vector<std::string> names;
  while (query.Step()) {
    std::string name = query.ColumnText(0);
    if (!IsSystemTable(name)) names.push_back(std::move(name));
  }
  return names;
}

Ref<TableDef> Catalog::LoadTable(Connection& connection, const std::string& schema,
                                 const std::string& requested) {
  std::string name;
  {
    Statement query(connection, "SELECT name FROM " + Quote(schema) +
                                    ".sqlite_schema WHERE type='table' AND name=?1 COLLATE NOCASE");
    query.BindText(1, requested);
    if (IsSystemTable(requested) || !query.Step())
      throw Error(err::kTableNotFound,
                  "The database engine cannot find the input table or query '" + requested + "'.");
    name = query.ColumnText(0);
  }
  auto table = std::make_shared<TableDef>(name);
  bool hasCatalog = HasTable(connection, schema, kFields) && HasTable(connection, schema, kTables) &&
                    HasTable(connection, schema, kIndexes) && HasTable(connection, schema, kIndexFields);

  // The catalog's rows are read defensively: a file made to attack the loader may hold
  // anything in them, so every value is checked against what SQLite itself knows.
  bool described = false;
  if (hasCatalog) {
    Statement query(connection, "SELECT Attributes, Connect, SourceTableName, ValidationRule,"
                                " ValidationText FROM " + In(schema, kTables) + " WHERE Name=?1");
    query.BindText(1, name);
    if (query.Step()) {
      described = true;
      table->SetAttributes(ClampInt(query.ColumnInt64(0), INT32_MIN, INT32_MAX));
      table->SetConnect(query.ColumnText(1));
      table->SetSourceTableName(query.ColumnText(2));
      table->SetValidationRule(query.ColumnText(3));
      table->SetValidationText(query.ColumnText(4));
    }
  }

  struct FieldRow {
    int ordinal, type, size, attributes;
    bool allowZeroLength, required;
    std::string defaultValue, validationRule, validationText;
  };
  std::map<std::string, FieldRow> rows;
  if (described) {
    Statement query(connection,
                    "SELECT Name, OrdinalPosition, Type, Size, Attributes, AllowZeroLength,"
                    " DefaultValue, Required, ValidationRule, ValidationText FROM " +
                        In(schema, kFields) + " WHERE TableName=?1");
    query.BindText(1, name);
    while (query.Step()) {
      FieldRow row{ClampInt(query.ColumnInt64(1), INT16_MIN, INT16_MAX),
                   ClampInt(query.ColumnInt64(2), 0, 255),
                   ClampInt(query.ColumnInt64(3), 0, INT32_MAX),
                   ClampInt(query.ColumnInt64(4), INT32_MIN, INT32_MAX),
                   query.ColumnInt64(5) != 0,
                   query.ColumnInt64(7) != 0,
                   query.ColumnText(6),
                   query.ColumnText(8),
                   query.ColumnText(9)};
      rows[Lower(query.ColumnText(0))] = row;
    }
  }

  struct Placed {
    int ordinal;
    size_t cid;
    Ref<Field> field;
  };
  std::vector<Placed> placed;
  auto columns = ColumnsOf(connection, schema, name);
  for (size_t cid = 0; cid < columns.size(); ++cid) {
    const Column& column = columns[cid];
    auto field = std::make_shared<Field>(column.name);
    auto inferred = InferType(column.declared);
    auto it = rows.find(Lower(column.name));
    int ordinal = static_cast<int>(cid);
    if (it != rows.end() && IsDataType(it->second.type)) {
      const FieldRow& row = it->second;
      field->SetType(row.type);
      if (row.type == dbText || row.type == dbBinary)
        field->SetSize(std::max(1, std::min(255, row.size)));
      field->SetAttributes(row.attributes);
      field->SetAllowZeroLength(row.allowZeroLength);
      field->SetDefaultValue(row.defaultValue);
      field->SetRequired(row.required);
      field->SetValidationRule(row.validationRule);
      field->SetValidationText(row.validationText);
      ordinal = row.ordinal;
    } else {
      field->SetType(inferred.first);
      if (inferred.first == dbText) field->SetSize(inferred.second);
      // SQLite numbers the rows of an INTEGER PRIMARY KEY column itself.
      bool autoNumber = column.primaryKey && Upper(column.declared) == "INTEGER";
      field->SetAttributes((field->IsTextual() || inferred.first == dbLongBinary ? dbVariableField
                                                                                 : dbFixedField) |
                           (autoNumber ? dbAutoIncrField : 0));
      field->SetRequired(column.notNull);
      field->SetAllowZeroLength(field->IsTextual());
      if (column.hasDefault) field->SetDefaultValue(DaoDefaultText(column.defaultText));
    }
    field->SetOrdinalPosition(static_cast<int16_t>(ordinal));
    placed.push_back({ordinal, cid, field});
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& a, const Placed& b) { return a.ordinal < b.ordinal; });
  for (auto& p : placed) table->Fields()->Load(p.field);

  if (described) {
    Statement indexes(connection, "SELECT Name, IsPrimary, IsUnique, Required, IgnoreNulls,"
                                  " Clustered FROM " + In(schema, kIndexes) +
                                      " WHERE TableName=?1 ORDER BY rowid");
    Statement fields(connection, "SELECT FieldName, Attributes FROM " + In(schema, kIndexFields) +
                                     " WHERE TableName=?1 AND IndexName=?2 ORDER BY Position");
    indexes.BindText(1, name);
    while (indexes.Step()) {
      auto index = std::make_shared<Index>(indexes.ColumnText(0));
      index->SetPrimary(indexes.ColumnInt64(1) != 0);
      index->SetUnique(indexes.ColumnInt64(2) != 0);
      index->SetRequired(indexes.ColumnInt64(3) != 0);
      index->SetIgnoreNulls(indexes.ColumnInt64(4) != 0);
      index->SetClustered(indexes.ColumnInt64(5) != 0);
      fields.Reset();
      fields.BindText(1, name);
      fields.BindText(2, index->Name());
      bool complete = true;
      while (fields.Step()) {
        std::string fieldName = fields.ColumnText(0);
        if (!table->Fields()->Contains(fieldName) || index->Fields()->Contains(fieldName)) {
          complete = false;
          continue;
        }
        auto field = std::make_shared<Field>(table->Fields()->Item(fieldName)->Name());
        field->SetAttributes(ClampInt(fields.ColumnInt64(1), INT32_MIN, INT32_MAX));
        index->Fields()->Load(field);
      }
      if (complete && index->Fields()->Count() > 0 && !table->Indexes()->Contains(index->Name()))
        table->Indexes()->Load(index);
    }
  } else {
    // A table someone else made: its SQLite indexes, as far as they name plain columns.
    Statement list(connection, "SELECT name, \"unique\", origin, partial FROM pragma_index_list(?1, ?2)");
    Statement info(connection, "SELECT name, \"desc\", key FROM pragma_index_xinfo(?1, ?2) ORDER BY seqno");
    list.BindText(1, name);
    list.BindText(2, schema);
    while (list.Step()) {
      auto index = std::make_shared<Index>(list.ColumnText(0));
      index->SetUnique(list.ColumnInt64(1) != 0);
      index->SetPrimary(list.ColumnText(2) == "pk");
      index->SetIgnoreNulls(list.ColumnInt64(3) != 0);
      info.Reset();
      info.BindText(1, index->Name());
      info.BindText(2, schema);
      bool complete = true;
      while (info.Step()) {
        if (info.ColumnInt64(2) == 0) continue;  // the row id that every index carries
        if (info.ColumnType(0) == SQLITE_NULL) {
          complete = false;  // an expression
          continue;
        }
        auto field = std::make_shared<Field>(info.ColumnText(0));
        field->SetAttributes(info.ColumnInt64(1) != 0 ? dbDescending : 0);
        if (!index->Fields()->Contains(field->Name())) index->Fields()->Load(field);
      }
      if (complete && index->Fields()->Count() > 0) table->Indexes()->Load(index);
    }
  }
  table->Lock();
  return table;
}

void Catalog::StoreTable(Connection& connection, const std::string& schema, const TableDef& table) {
  CheckName(table.Name());
  if (!table.Connect().empty())
    throw Error(err::kIsamNotFound, "Could not find installable ISAM: attached tables are not supported.");
  if (!table.ValidationRule().empty())
    throw Error(err::kInvalidArgument, "Invalid argument: validation rules are not supported.");
  auto fields = table.Fields();
  if (fields->Count() == 0) throw Error(err::kNoFieldDefined);

  // Fields in ordinal order (stable: fields of equal ordinal keep their append order).
  std::vector<Ref<Field>> ordered(fields->begin(), fields->end());
  std::stable_sort(ordered.begin(), ordered.end(), [](const Ref<Field>& a, const Ref<Field>& b) {
    return a->OrdinalPosition() < b->OrdinalPosition();
  });

  Ref<Field> autoNumber;
  for (auto& field : ordered) {
    CheckName(field->Name());
    if (!IsDataType(field->Type())) throw Error(err::kInvalidFieldType);
    if (!field->ValidationRule().empty())
      throw Error(err::kInvalidArgument, "Invalid argument: validation rules are not supported.");
    field->DefaultAsValue();  // refuses what is not a literal
    if (field->Attributes() & dbAutoIncrField) {
      if (autoNumber || field->Type() != dbLong) throw Error(err::kInvalidFieldType);
      autoNumber = field;
    }
  }
  std::map<std::string, bool> notNull;
  for (auto& index : *table.Indexes()) {
    CheckName(index->Name());
    if (index->Fields()->Count() == 0) throw Error(err::kNoFieldDefined);
    for (auto& f : *index->Fields()) {
      if (!fields->Contains(f->Name()))
        throw Error(err::kItemNotFound, "Item not found in this collection: index field '" +
                                            f->Name() + "' is no field of '" + table.Name() + "'.");
      if (index->Primary() || index->Required()) notNull[Lower(f->Name())] = true;
    }
  }

  std::string sql = "CREATE TABLE " + Quote(schema) + "." + Quote(table.Name()) + "(";
  std::string checks;
  for (size_t i = 0; i < ordered.size(); ++i) {
    const Field& field = *ordered[i];
    if (i) sql += ", ";
    sql += Quote(field.Name()) + " " + DeclaredType(field);
    if (&field == autoNumber.get()) sql += " PRIMARY KEY AUTOINCREMENT";
    if (field.Required() || notNull.count(Lower(field.Name()))) sql += " NOT NULL";
    Variant def = field.DefaultAsValue();
    if (!def.IsEmpty()) sql += " DEFAULT " + SqlLiteral(def);
    if (field.IsTextual() && !field.AllowZeroLength())
      checks += ", CONSTRAINT " + Quote(ZeroLengthConstraintName(table.Name(), field.Name())) +
                " CHECK (" + Quote(field.Name()) + " <> '')";
  }
  sql += checks + ")";

  Savepoint work(connection);
  Create(connection, schema);
  if (HasTable(connection, schema, table.Name()))
    throw Error(err::kTableExists, "Table '" + table.Name() + "' already exists.");
  connection.Exec(sql);

  {
    Statement insert(connection, "INSERT INTO " + In(schema, kTables) + " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
    insert.BindText(1, table.Name());
    insert.BindInt64(2, table.Attributes());
    insert.BindText(3, table.Connect());
    insert.BindText(4, table.SourceTableName());
    insert.BindText(5, table.ValidationRule());
    insert.BindText(6, table.ValidationText());
    insert.Step();
  }
  {
    Statement insert(connection, "INSERT INTO " + In(schema, kFields) +
                                     " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
    for (auto& field : ordered) {
      insert.Reset();
      insert.BindText(1, table.Name());
      insert.BindText(2, field->Name());
      insert.BindInt64(3, field->OrdinalPosition());
      insert.BindInt64(4, field->Type());
      insert.BindInt64(5, field->Size());
      insert.BindInt64(6, field->Attributes());
      insert.BindInt64(7, field->AllowZeroLength() ? 1 : 0);
      insert.BindText(8, field->DefaultValue());
      insert.BindInt64(9, field->Required() ? 1 : 0);
      insert.BindText(10, field->ValidationRule());
      insert.BindText(11, field->ValidationText());
      insert.Step();
    }
  }
  Statement insertIndex(connection, "INSERT INTO " + In(schema, kIndexes) + " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)");
  Statement insertField(connection, "INSERT INTO " + In(schema, kIndexFields) + " VALUES (?1, ?2, ?3, ?4, ?5)");
  for (auto& index : *table.Indexes()) {
    // The auto-numbered field is SQLite's row id: an index of it alone needs no SQLite
    // index of its own.
    bool onRowId = autoNumber && index->Fields()->Count() == 1 &&
                   SameName(index->Fields()->Item(0)->Name(), autoNumber->Name());
    std::string sqliteName = onRowId ? "" : "idx:" + table.Name() + ":" + index->Name();
    if (!onRowId) {
      std::string create = std::string("CREATE ") + (index->Unique() || index->Primary() ? "UNIQUE " : "") +
                           "INDEX " + Quote(schema) + "." + Quote(sqliteName) + " ON " +
                           Quote(table.Name()) + "(";
      std::string where;
      int n = 0;
      for (auto& f : *index->Fields()) {
        std::string column = Quote(fields->Item(f->Name())->Name());
        create += std::string(n ? ", " : "") + column + ((f->Attributes() & dbDescending) ? " DESC" : "");
        if (index->IgnoreNulls()) where += std::string(n ? " AND " : " WHERE ") + column + " IS NOT NULL";
        ++n;
      }
      connection.Exec(create + ")" + where);
    }
    insertIndex.Reset();
    insertIndex.BindText(1, table.Name());
    insertIndex.BindText(2, index->Name());
    insertIndex.BindText(3, sqliteName);
    insertIndex.BindInt64(4, index->Primary() ? 1 : 0);
    insertIndex.BindInt64(5, index->Unique() ? 1 : 0);
    insertIndex.BindInt64(6, index->Required() ? 1 : 0);
    insertIndex.BindInt64(7, index->IgnoreNulls() ? 1 : 0);
    insertIndex.BindInt64(8, index->Clustered() ? 1 : 0);
    insertIndex.Step();
    int position = 0;
    for (auto& f : *index->Fields()) {
      insertField.Reset();
      insertField.BindText(1, table.Name());
      insertField.BindText(2, index->Name());
      insertField.BindInt64(3, position++);
      insertField.BindText(4, fields->Item(f->Name())->Name());
      insertField.BindInt64(5, f->Attributes());
      insertField.Step();
    }
  }
  work.Commit();
}

std::vector<Catalog::PropertyRow> Catalog::LoadProperties(Connection& connection,
                                                          const std::string& schema) {
  std::vector<PropertyRow> rows;
  if (!HasTable(connection, schema, kProperties)) return rows;
  Statement query(connection, "SELECT Name, Type, Value, Engine FROM " + In(schema, kProperties) +
                                  " ORDER BY rowid");
  while (query.Step()) {
    PropertyRow row;
    row.name = query.ColumnText(0);
    row.type = ClampInt(query.ColumnInt64(1), 0, 255);
    row.value = query.ColumnVariant(2);
    row.engine = query.ColumnInt64(3) != 0;
    rows.push_back(std::move(row));
  }
  return rows;
}

void Catalog::StoreProperty(Connection& connection, const std::string& schema, const PropertyRow& row) {
  Create(connection, schema);
  Statement update(connection, "INSERT INTO " + In(schema, kProperties) +
                                   " VALUES (?1, ?2, ?3, ?4) ON CONFLICT(Name) DO UPDATE SET"
                                   " Type=excluded.Type, Value=excluded.Value");
  update.BindText(1, row.name);
  update.BindInt64(2, row.type);
  update.Bind(3, row.value);
  update.BindInt64(4, row.engine ? 1 : 0);
  update.Step();
}

}  // namespace platform::dao
