#include "platform/dao/Statement.h"

#include <sqlite3.h>

#include <climits>

#include "platform/dao/Connection.h"
#include "platform/dao/SqliteError.h"

namespace platform::dao {

Statement::Statement(Connection& connection, std::string_view sql) : m_connection(&connection) {
  sqlite3* db = connection.handle();
  if (sql.size() > INT_MAX) throw Error(err::kInvalidArgument);
  int rc = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &m_stmt, nullptr);
  if (rc != SQLITE_OK) {
    sqlite3_finalize(m_stmt);
    m_stmt = nullptr;
    ThrowSqliteError(db, rc);
  }
  connection.Register(this);
}

Statement::~Statement() {
  if (m_stmt) {
    m_connection->Unregister(this);
    sqlite3_finalize(m_stmt);
  }
}

void Statement::Finalize() {
  if (m_stmt) sqlite3_finalize(m_stmt);
  m_stmt = nullptr;
}

sqlite3_stmt* Statement::get() const {
  if (!m_stmt) throw Error(err::kObjectInvalid);
  return m_stmt;
}

bool Statement::Step() {
  sqlite3_stmt* stmt = get();
  m_connection->Reclaim();
  int rc = sqlite3_step(stmt);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  sqlite3* db = sqlite3_db_handle(stmt);
  Error error = [&] {
    try {
      ThrowSqliteError(db, rc);
    } catch (const Error& e) {
      return e;
    }
  }();
  sqlite3_reset(stmt);
  throw error;
}

void Statement::Reset() {
  if (!m_stmt) return;
  sqlite3_reset(m_stmt);
  sqlite3_clear_bindings(m_stmt);
}

void Statement::BindNull(int index) { sqlite3_bind_null(get(), index); }
void Statement::BindInt64(int index, int64_t value) { sqlite3_bind_int64(get(), index, value); }
void Statement::BindDouble(int index, double value) { sqlite3_bind_double(get(), index, value); }

void Statement::BindText(int index, std::string_view value) {
  sqlite3_bind_text64(get(), index, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Statement::BindTextStatic(int index, std::string_view value) {
  sqlite3_bind_text64(get(), index, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::BindBlob(int index, std::string_view value) {
  sqlite3_bind_blob64(get(), index, value.data(), value.size(), SQLITE_TRANSIENT);
}

void Statement::Bind(int index, const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty: BindNull(index); break;
    case Variant::Type::Boolean: BindInt64(index, value.AsBool() ? -1 : 0); break;
    case Variant::Type::Long: BindInt64(index, value.AsLong()); break;
    case Variant::Type::Double: BindDouble(index, value.AsDouble()); break;
    case Variant::Type::String: BindText(index, value.AsString()); break;
  }
}

int Statement::ColumnCount() const { return sqlite3_column_count(get()); }
int Statement::ColumnType(int index) const { return sqlite3_column_type(get(), index); }
int64_t Statement::ColumnInt64(int index) const { return sqlite3_column_int64(get(), index); }
double Statement::ColumnDouble(int index) const { return sqlite3_column_double(get(), index); }

std::string Statement::ColumnText(int index) const {
  sqlite3_stmt* stmt = get();
  if (sqlite3_column_type(stmt, index) == SQLITE_BLOB) {
    auto* data = static_cast<const char*>(sqlite3_column_blob(stmt, index));
    int size = sqlite3_column_bytes(stmt, index);
    return data ? std::string(data, static_cast<size_t>(size)) : std::string();
  }
  auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, index));
  int size = sqlite3_column_bytes(stmt, index);
  return text ? std::string(text, static_cast<size_t>(size)) : std::string();
}

Variant Statement::ColumnVariant(int index) const {
  switch (ColumnType(index)) {
    case SQLITE_NULL: return Variant();
    case SQLITE_INTEGER: {
      int64_t v = ColumnInt64(index);
      if (v >= INT32_MIN && v <= INT32_MAX) return Variant(static_cast<int>(v));
      return Variant(static_cast<double>(v));
    }
    case SQLITE_FLOAT: return Variant(ColumnDouble(index));
    default: return Variant(ColumnText(index));
  }
}

}  // namespace platform::dao
