#include "platform/dao/StatementRunner.h"

#include <sqlite3.h>

#include <filesystem>

#include "platform/core/AsciiText.h"
#include "platform/core/Error.h"
#include "platform/dao/Biff8Workbook.h"
#include "platform/dao/Catalog.h"
#include "platform/dao/CompoundFile.h"
#include "platform/dao/Connection.h"
#include "platform/dao/Savepoint.h"
#include "platform/dao/SqlTranslator.h"
#include "platform/dao/Statement.h"
#include "platform/dao/TableDef.h"

namespace platform::dao {
namespace {

std::string Canonical(const std::string& path) {
  std::error_code ec;
  auto absolute = std::filesystem::absolute(path, ec);
  if (ec) return path;
  auto canonical = std::filesystem::weakly_canonical(absolute, ec);
  return ec ? absolute.string() : canonical.string();
}

// The workbook file of an "Excel 8.0" connect string ("Excel 8.0; DATABASE=file"):
// everything after its DATABASE=, which is last in the strings the engine is given, so
// that the path may hold ";". Throws 3170 for another kind of target, 3044 without a
// path.
std::string WorkbookPath(const std::string& connect) {
  std::string kind = Trim(connect.substr(0, connect.find(';')), " \t");
  if (AsciiLower(kind) != "excel 8.0")
    throw Error(err::kIsamNotFound, "Could not find installable ISAM for '" + kind + "'.");
  size_t at = AsciiLower(connect).find("database=", connect.find(';'));
  if (connect.find(';') == std::string::npos || at == std::string::npos || at + 9 == connect.size())
    throw Error(err::kInvalidPath, "The connect string names no workbook.");
  return connect.substr(at + 9);
}

// The class of an Excel workbook, as a compound file stores it:
// {00020820-0000-0000-C000-000000000046}.
const std::string kWorkbookClass("\x20\x08\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46", 16);

}  // namespace

StatementRunner::~StatementRunner() {
  if (!m_connection.IsOpen()) return;
  for (auto& attached : m_attached) {
    std::string detach = "DETACH DATABASE " + Catalog::Quote(attached.second);
    sqlite3_exec(m_connection.handle(), detach.c_str(), nullptr, nullptr, nullptr);
  }
}

std::string StatementRunner::SchemaOf(const SqlStatement::Table& table) {
  if (!table.connect.empty()) {
    std::string kind = table.connect.substr(0, table.connect.find(';'));
    throw Error(err::kIsamNotFound, "Could not find installable ISAM for '" + kind + "'.");
  }
  if (table.database.empty()) return "main";
  if (table.database.find('\0') != std::string::npos) throw Error(err::kInvalidPath);
  std::string path = Canonical(table.database);
  if (path == Canonical(m_connection.Path())) return "main";
  for (auto& attached : m_attached)
    if (attached.first == path) return attached.second;

  // What this process still holds of the file is committed and its lock given up, so
  // that this connection can read and write it; then the same checks as opening it: it
  // must exist and be a database.
  Connection::FlushFile(path);
  Connection::Open(path, false, false)->Close();
  std::string schema = "ext" + std::to_string(m_attached.size() + 1);
  {
    Statement attach(m_connection, "ATTACH DATABASE ?1 AS " + Catalog::Quote(schema));
    attach.BindText(1, path);
    attach.Step();
  }
  m_attached.emplace_back(path, schema);
  return schema;
}

std::string StatementRunner::Qualified(const SqlStatement::Table& table) {
  std::string schema = SchemaOf(table);
  // The table's stored spelling; 3078 when it does not exist.
  auto def = Catalog::LoadTable(m_connection, schema, table.name);
  std::string name = Catalog::Quote(schema) + "." + Catalog::Quote(def->Name());
  if (!table.alias.empty()) name += " AS " + Catalog::Quote(table.alias);
  return name;
}

std::string StatementRunner::SelectPart(const SqlStatement& st, const std::string& selectList) {
  std::string sql = std::string("SELECT ") + std::string(st.distinct ? "DISTINCT " : "") + selectList +
                    " FROM " + Qualified(st.source);
  if (!st.where.empty()) sql += " WHERE " + SqlTranslator::Expression(st.where);
  if (!st.orderBy.empty()) sql += " ORDER BY " + SqlTranslator::Expression(st.orderBy);
  return sql;
}

int64_t StatementRunner::Run(const SqlStatement& st) {
  if (st.kind == SqlStatement::Kind::Select) throw Error(err::kCannotExecuteSelect);
  m_connection.FlushImplicit();
  if (st.kind == SqlStatement::Kind::SelectInto && !st.target.connect.empty())
    return RunExportToWorkbook(st, WorkbookPath(st.target.connect));
  // Files are attached before the unit of work begins: SQLite attaches outside
  // transactions only.
  SchemaOf(st.target);
  if (st.kind == SqlStatement::Kind::SelectInto || st.kind == SqlStatement::Kind::InsertSelect)
    SchemaOf(st.source);

  Savepoint work(m_connection);
  int64_t changed = 0;
  switch (st.kind) {
    case SqlStatement::Kind::Select:
      break;
    case SqlStatement::Kind::SelectInto:
      changed = RunSelectInto(st);
      break;
    case SqlStatement::Kind::InsertSelect:
      changed = RunInsertSelect(st);
      break;
    case SqlStatement::Kind::InsertValues: {
      std::string sql = "INSERT INTO " + Qualified(st.target);
      if (!st.columns.empty()) {
        sql += "(";
        for (size_t i = 0; i < st.columns.size(); ++i) sql += std::string(i ? ", " : "") + Catalog::Quote(st.columns[i]);
        sql += ")";
      }
      m_connection.Exec(sql + " VALUES (" + SqlTranslator::Expression(st.values) + ")");
      changed = m_connection.Changes();
      break;
    }
    case SqlStatement::Kind::Update: {
      std::string sql = "UPDATE " + Qualified(st.target) + " SET ";
      for (size_t i = 0; i < st.assignments.size(); ++i)
        sql += std::string(i ? ", " : "") + Catalog::Quote(st.assignments[i].first) + " = " +
               SqlTranslator::Expression(st.assignments[i].second);
      if (!st.where.empty()) sql += " WHERE " + SqlTranslator::Expression(st.where);
      m_connection.Exec(sql);
      changed = m_connection.Changes();
      break;
    }
    case SqlStatement::Kind::Delete: {
      std::string sql = "DELETE FROM " + Qualified(st.target);
      if (!st.where.empty()) sql += " WHERE " + SqlTranslator::Expression(st.where);
      m_connection.Exec(sql);
      changed = m_connection.Changes();
      break;
    }
  }
  work.Commit();
  return changed;
}

int64_t StatementRunner::RunSelectInto(const SqlStatement& st) {
  std::string schema = SchemaOf(st.target);
  bool exists = true;
  try {
    Catalog::LoadTable(m_connection, schema, st.target.name);
  } catch (const Error& e) {
    if (e.number != err::kTableNotFound) throw;
    exists = false;
  }
  if (exists) throw Error(err::kTableExists, "Table '" + st.target.name + "' already exists.");

  std::string select = SelectPart(st, SqlTranslator::Expression(st.selectList));
  auto table = std::make_shared<TableDef>(st.target.name);
  {
    Statement query(m_connection, select);
    sqlite3_stmt* stmt = query.get();
    int count = query.ColumnCount();
    for (int i = 0; i < count; ++i) {
      const char* name = sqlite3_column_name(stmt, i);
      const char* originDb = sqlite3_column_database_name(stmt, i);
      const char* originTable = sqlite3_column_table_name(stmt, i);
      const char* originColumn = sqlite3_column_origin_name(stmt, i);
      auto field = std::make_shared<Field>(name ? name : "Expr" + std::to_string(1000 + i));
      if (originDb && originTable && originColumn) {
        auto source = Catalog::LoadTable(m_connection, originDb, originTable);
        auto from = source->Fields()->Item(originColumn);
        field->SetType(from->Type());
        if (from->Type() == dbText) field->SetSize(from->Size());
        field->SetAttributes(from->Attributes());
        field->SetAllowZeroLength(from->AllowZeroLength());
      } else {
        field->SetType(dbMemo);
        field->SetAttributes(dbVariableField);
        field->SetAllowZeroLength(true);
      }
      field->SetOrdinalPosition(static_cast<int16_t>(i));
      table->Fields()->Append(field);
    }
  }
  Catalog::StoreTable(m_connection, schema, *table);
  std::string columns;
  int n = 0;
  for (auto& field : *table->Fields()) columns += std::string(n++ ? ", " : "") + Catalog::Quote(field->Name());
  m_connection.Exec("INSERT INTO " + Catalog::Quote(schema) + "." + Catalog::Quote(table->Name()) +
                    "(" + columns + ") " + select);
  return m_connection.Changes();
}

int64_t StatementRunner::RunExportToWorkbook(const SqlStatement& st, const std::string& path) {
  SchemaOf(st.source);
  Biff8Workbook book(st.target.name);
  Statement query(m_connection, SelectPart(st, SqlTranslator::Expression(st.selectList)));
  const int columns = query.ColumnCount();
  if (columns > Biff8Workbook::kMaxColumns) throw Error(err::kSpreadsheetFull);
  for (int c = 0; c < columns; ++c) {
    const char* name = sqlite3_column_name(query.get(), c);
    book.SetText(0, c, name ? name : "Expr" + std::to_string(1000 + c));
  }
  int row = 1;
  while (query.Step()) {
    // Every row fits or none is written.
    if (row >= Biff8Workbook::kMaxRows) throw Error(err::kSpreadsheetFull);
    for (int c = 0; c < columns; ++c) {
      switch (query.ColumnType(c)) {
        case SQLITE_NULL: break;
        case SQLITE_INTEGER: book.SetNumber(row, c, static_cast<double>(query.ColumnInt64(c))); break;
        case SQLITE_FLOAT: book.SetNumber(row, c, query.ColumnDouble(c)); break;
        default: book.SetText(row, c, query.ColumnText(c)); break;
      }
    }
    ++row;
  }
  WriteCompoundFile(path, {{"Workbook", book.Stream()}}, kWorkbookClass);
  return row - 1;
}

int64_t StatementRunner::RunInsertSelect(const SqlStatement& st) {
  std::string target = Qualified(st.target);
  std::string columns, selectList;
  if (st.columns.empty() && SqlTranslator::IsStar(st.selectList)) {
    // The dialect matches the fields of SELECT * to the target's by name.
    auto targetDef = Catalog::LoadTable(m_connection, SchemaOf(st.target), st.target.name);
    auto sourceDef = Catalog::LoadTable(m_connection, SchemaOf(st.source), st.source.name);
    int n = 0;
    for (auto& field : *sourceDef->Fields()) {
      if (!targetDef->Fields()->Contains(field->Name()))
        throw Error(err::kUnknownFieldName, "The INSERT INTO statement contains the following unknown field name: '" +
                                                field->Name() + "'.");
      columns += std::string(n ? ", " : "") + Catalog::Quote(targetDef->Fields()->Item(field->Name())->Name());
      selectList += std::string(n ? ", " : "") + Catalog::Quote(field->Name());
      ++n;
    }
  } else if (st.columns.empty()) {
    // Without a field list the dialect appends each output column to the target field
    // of the same name.
    selectList = SqlTranslator::Expression(st.selectList);
    auto targetDef = Catalog::LoadTable(m_connection, SchemaOf(st.target), st.target.name);
    Statement query(m_connection, SelectPart(st, selectList));
    for (int i = 0; i < query.ColumnCount(); ++i) {
      const char* name = sqlite3_column_name(query.get(), i);
      std::string column = name ? name : "";
      if (!targetDef->Fields()->Contains(column))
        throw Error(err::kUnknownFieldName, "The INSERT INTO statement contains the following unknown field name: '" +
                                                column + "'.");
      columns += std::string(i ? ", " : "") + Catalog::Quote(targetDef->Fields()->Item(column)->Name());
    }
  } else {
    for (size_t i = 0; i < st.columns.size(); ++i) columns += std::string(i ? ", " : "") + Catalog::Quote(st.columns[i]);
    selectList = SqlTranslator::Expression(st.selectList);
  }
  std::string sql = "INSERT INTO " + target + (columns.empty() ? "" : "(" + columns + ")") + " " +
                    SelectPart(st, selectList);
  m_connection.Exec(sql);
  return m_connection.Changes();
}

}  // namespace platform::dao
