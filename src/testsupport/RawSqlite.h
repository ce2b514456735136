#pragma once
// SQLite used directly on a database file, as another program would use it: to make
// files the database layer did not write, and to look at what it did write. For tests
// that link SQLite (the database layer's and those above it).

#include <sqlite3.h>

#include <filesystem>
#include <string>

namespace testsupport {

/// Runs the statements `sql` on `file` (made when missing). "" when they all ran, else
/// SQLite's message.
inline std::string RawExec(const std::filesystem::path& file, const std::string& sql) {
  sqlite3* db = nullptr;
  if (sqlite3_open(file.c_str(), &db) != SQLITE_OK) {
    std::string message = db ? sqlite3_errmsg(db) : "cannot open";
    sqlite3_close(db);
    return message;
  }
  char* error = nullptr;
  int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  std::string message = rc == SQLITE_OK ? "" : (error ? error : "failed");
  sqlite3_free(error);
  sqlite3_close(db);
  return message;
}

/// The first column of the first row of the query `sql` on `file`, opened read-only,
/// as text; "" when the file cannot be opened, the query fails or yields no row or NULL.
inline std::string RawText(const std::filesystem::path& file, const std::string& sql) {
  sqlite3* db = nullptr;
  std::string out;
  if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) == SQLITE_OK &&
        sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_text(stmt, 0))
      out = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return out;
}

}  // namespace testsupport
