#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/dao/SqlStatement.h"

namespace platform::dao {

class Connection;

/// Carries out one parsed action statement on a connection, all or nothing: opens the
/// other database files it names (attached for the statement, checked as defensively as
/// any file opened, and detached after), runs it in SQLite's dialect inside one unit of
/// work and rolls everything back when any part fails.
///
/// SELECT ... INTO makes the new table with the source's field definitions (type, size,
/// attributes, allow-zero-length; no defaults, no indexes) and copies the rows.
/// INSERT INTO ... SELECT * matches fields by name. Tables behind a connect string
/// (spreadsheets) are not written yet: 3170.
class StatementRunner {
 public:
  explicit StatementRunner(Connection& connection) : m_connection(connection) {}
  ~StatementRunner();
  StatementRunner(const StatementRunner&) = delete;
  StatementRunner& operator=(const StatementRunner&) = delete;

  /// Runs `statement`; returns the number of rows it changed. Throws: 3065 for a plain
  /// SELECT, 3024 for a file that does not exist, 3343 for one that is no database,
  /// 3078 for a missing table, 3010 when SELECT INTO's table exists, 3127 for an INSERT
  /// field the target lacks, 3170 for a connect-string target, and the DAO error of
  /// what SQLite refuses.
  int64_t Run(const SqlStatement& statement);

 private:
  /// The schema that holds `table`: "main", or a file attached for this statement.
  std::string SchemaOf(const SqlStatement::Table& table);
  std::string Qualified(const SqlStatement::Table& table);
  std::string SelectPart(const SqlStatement& statement, const std::string& selectList);
  int64_t RunSelectInto(const SqlStatement& statement);
  int64_t RunInsertSelect(const SqlStatement& statement);

  Connection& m_connection;
  std::vector<std::pair<std::string, std::string>> m_attached;  // path, schema
};

}  // namespace platform::dao
