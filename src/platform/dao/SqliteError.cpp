#include "platform/dao/SqliteError.h"

#include <sqlite3.h>

namespace platform::dao {
namespace {

// What follows `prefix` in `message`, or "" when the message does not start with it.
std::string After(const std::string& message, const std::string& prefix) {
  if (message.compare(0, prefix.size(), prefix) != 0) return "";
  return message.substr(prefix.size());
}

bool StartsWith(const std::string& s, const std::string& prefix) {
  return s.compare(0, prefix.size(), prefix) == 0;
}

}  // namespace

std::string ZeroLengthConstraintName(const std::string& table, const std::string& field) {
  return "azl:" + table + "." + field;
}

Error DaoErrorFor(int code, const std::string& message) {
  switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return Error(err::kDuplicateValue);
    case SQLITE_CONSTRAINT_NOTNULL: {
      std::string column = After(message, "NOT NULL constraint failed: ");
      return Error(err::kNullInRequiredField,
                   "The field '" + column +
                       "' cannot contain a Null value because the Required property for "
                       "this field is set to True.");
    }
    case SQLITE_CONSTRAINT_CHECK: {
      std::string name = After(message, "CHECK constraint failed: ");
      if (StartsWith(name, "azl:"))
        return Error(err::kZeroLengthString,
                     "Field '" + name.substr(4) + "' cannot be a zero-length string.");
      return Error(err::kInvalidOperation, message);
    }
    default:
      break;
  }
  switch (code & 0xff) {
    case SQLITE_NOTADB: return Error(err::kUnrecognizedFormat, "Unrecognized database format");
    case SQLITE_CORRUPT: return Error(err::kDatabaseCorrupt);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return Error(err::kCouldNotLock);
    case SQLITE_READONLY: return Error(err::kReadOnly);
    case SQLITE_FULL: return Error(err::kDiskFull);
    case SQLITE_IOERR: return Error(err::kDiskIO);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH: return Error(err::kCannotOpenFile);
    case SQLITE_NOMEM: return Error(7, "Out of memory");
    case SQLITE_TOOBIG: return Error(err::kFieldTooSmall);
    case SQLITE_MISMATCH: return Error(err::kTypeMismatchInCriteria);
    case SQLITE_CONSTRAINT: return Error(err::kInvalidOperation, message);
    default: break;
  }
  if (auto table = After(message, "no such table: "); !table.empty()) {
    auto dot = table.find('.');
    if (dot != std::string::npos) table = table.substr(dot + 1);  // "ext1.t" -> "t"
    return Error(err::kTableNotFound,
                 "The database engine cannot find the input table or query '" + table + "'.");
  }
  if (auto column = After(message, "no such column: "); !column.empty())
    return Error(err::kTooFewParameters, "Too few parameters. Expected 1. (" + column + ")");
  if (auto function = After(message, "no such function: "); !function.empty())
    return Error(err::kUndefinedFunction,
                 "Undefined function '" + function + "' in expression.");
  if (StartsWith(message, "table ") && message.find(" already exists") != std::string::npos)
    return Error(err::kTableExists, message);
  return Error(err::kInvalidOperation, "Invalid operation. (" + message + ")");
}

void ThrowSqliteError(sqlite3* db, int code) {
  if (db) {
    int extended = sqlite3_extended_errcode(db);
    if ((extended & 0xff) == (code & 0xff)) code = extended;
    throw DaoErrorFor(code, sqlite3_errmsg(db));
  }
  throw DaoErrorFor(code, sqlite3_errstr(code));
}

}  // namespace platform::dao
