#pragma once
#include <string>
#include <utility>
#include <vector>

#include "platform/dao/SqlLexer.h"

namespace platform::dao {

/// A statement of the engine's SQL dialect as the parser understood it: its kind, the
/// tables it names (each possibly in another file or behind a connect string) and its
/// expressions as token lists, which the translator turns into SQLite's dialect.
struct SqlStatement {
  /// A table named by a statement.
  struct Table {
    std::string name;
    std::string alias;
    /// IN "file": the path of the database file that holds the table, taken verbatim;
    /// "" for the database the statement runs on.
    std::string database;
    /// [Excel 8.0; DATABASE=file].[name]: the connect string inside the brackets; "" for
    /// a table of a database.
    std::string connect;
  };
  enum class Kind {
    Select,        // SELECT ... FROM ...            (not an action query)
    SelectInto,    // SELECT ... INTO t [IN "f"] FROM ...
    InsertSelect,  // INSERT INTO t [IN "f"] [(c, ...)] SELECT ... FROM ...
    InsertValues,  // INSERT INTO t [IN "f"] [(c, ...)] VALUES (...)
    Update,        // UPDATE t SET c = e, ... [WHERE ...]
    Delete,        // DELETE [*] FROM t [WHERE ...]
  };

  Kind kind = Kind::Select;
  Table target;  // INTO, INSERT INTO, UPDATE, DELETE FROM
  Table source;  // FROM of a SELECT
  bool distinct = false;
  std::vector<SqlToken> selectList;
  std::vector<std::string> columns;                                 // INSERT's column list
  std::vector<SqlToken> values;                                     // inside VALUES ( )
  std::vector<std::pair<std::string, std::vector<SqlToken>>> assignments;  // UPDATE's SET
  std::vector<SqlToken> where;
  std::vector<SqlToken> orderBy;
};

}  // namespace platform::dao
