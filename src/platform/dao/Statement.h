#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/core/Variant.h"

struct sqlite3_stmt;

namespace platform::dao {

class Connection;

/// One prepared SQLite statement of a connection. The connection finalizes it when it is
/// closed; any use after that fails with 3420 (object invalid or no longer set), so a
/// recordset outliving its database fails cleanly.
class Statement {
 public:
  /// Prepares `sql` (one statement) on `connection`. Throws the DAO error of SQLite's
  /// failure (3078 for a missing table, 3219 for a syntax error, ...) or 3420 when the
  /// connection is closed.
  Statement(Connection& connection, std::string_view sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Runs the statement one step: true when a row is ready, false when it is done.
  /// Throws the DAO error of a failure; the statement is then reset.
  bool Step();
  /// Makes the statement ready to run again and clears its bindings. Never throws.
  void Reset();

  // Parameters are numbered from 1. Text is copied unless said otherwise.
  void BindNull(int index);
  void BindInt64(int index, int64_t value);
  void BindDouble(int index, double value);
  void BindText(int index, std::string_view value);
  /// Binds text that stays alive and unchanged until the next Step or Reset.
  void BindTextStatic(int index, std::string_view value);
  void BindBlob(int index, std::string_view value);
  /// Binds a Variant by its own type: Empty as NULL, Boolean as -1/0.
  void Bind(int index, const Variant& value);

  // Columns of the current row are numbered from 0.
  int ColumnCount() const;
  /// SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
  int ColumnType(int index) const;
  int64_t ColumnInt64(int index) const;
  double ColumnDouble(int index) const;
  /// Text (or blob bytes) of the column; "" for NULL.
  std::string ColumnText(int index) const;
  /// The column's value: NULL as Empty, integers in 32-bit range as Long, other
  /// integers and reals as Double, text and blobs as String.
  Variant ColumnVariant(int index) const;

  /// The prepared statement; throws 3420 when the connection closed it.
  sqlite3_stmt* get() const;
  /// Called by the connection when it closes: finalizes the statement.
  void Finalize();

 private:
  Connection* m_connection;
  sqlite3_stmt* m_stmt = nullptr;
};

}  // namespace platform::dao
