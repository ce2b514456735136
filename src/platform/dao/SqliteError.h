#pragma once
#include <string>

#include "platform/core/Error.h"

struct sqlite3;

namespace platform::dao {

/// The DAO error that stands for an SQLite failure: `code` is SQLite's extended result
/// code and `message` its error text. Constraint failures become the DAO errors of the
/// rule that failed (duplicate key 3022, required field 3314, zero-length string 3315),
/// a missing table 3078, a missing column 3061, a missing function 3085, a file that is
/// not a database 3343, a corrupt one 3049, a lock 3218, a read-only file 3027, a full
/// disk 3026, other I/O failures 3043; anything else is 3219 with SQLite's text.
Error DaoErrorFor(int code, const std::string& message);

/// Throws DaoErrorFor the connection's last error, whose result code is `code`.
/// A null connection gives the error of `code` alone.
[[noreturn]] void ThrowSqliteError(sqlite3* db, int code);

/// The name that a CHECK constraint guarding the zero-length rule of a field carries:
/// "azl:" + table + "." + field. DaoErrorFor turns its failure into error 3315 naming
/// the field.
std::string ZeroLengthConstraintName(const std::string& table, const std::string& field);

}  // namespace platform::dao
