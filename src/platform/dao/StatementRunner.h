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
/// INSERT INTO ... SELECT * matches fields by name.
///
/// SELECT ... INTO [Excel 8.0; DATABASE=file].[sheet] writes a new workbook (BIFF8 in a
/// compound file, see Biff8Workbook) with one sheet: a header row of the column names,
/// then the rows, text as text and numbers as numbers, NULL as a blank cell. The path is
/// everything after "DATABASE=" (so it may hold ";"); other settings of the connect
/// string are passed over. The workbook is written whole or not at all: 3437 when the
/// rows do not fit a sheet (65,535 besides the header) or the columns (256), 3163 for a
/// text longer than a cell holds (32,767 characters), 3204 when a file is at the path,
/// 3044 for a missing folder, 3436 when the file cannot be written. Other targets behind
/// a connect string, and statements other than SELECT INTO on one, fail with 3170.
class StatementRunner {
 public:
  explicit StatementRunner(Connection& connection) : m_connection(connection) {}
  ~StatementRunner();
  StatementRunner(const StatementRunner&) = delete;
  StatementRunner& operator=(const StatementRunner&) = delete;

  /// Runs `statement`; returns the number of rows it changed. Throws: 3065 for a plain
  /// SELECT, 3024 for a file that does not exist, 3343 for one that is no database,
  /// 3078 for a missing table, 3010 when SELECT INTO's table exists, 3127 for an INSERT
  /// field the target lacks, 3170 for a connect-string target other than an Excel 8.0
  /// workbook made by SELECT INTO, the workbook's errors above, and the DAO error of
  /// what SQLite refuses.
  int64_t Run(const SqlStatement& statement);

 private:
  /// The schema that holds `table`: "main", or a file attached for this statement.
  std::string SchemaOf(const SqlStatement::Table& table);
  std::string Qualified(const SqlStatement::Table& table);
  std::string SelectPart(const SqlStatement& statement, const std::string& selectList);
  int64_t RunSelectInto(const SqlStatement& statement);
  int64_t RunInsertSelect(const SqlStatement& statement);
  int64_t RunExportToWorkbook(const SqlStatement& statement, const std::string& path);

  Connection& m_connection;
  std::vector<std::pair<std::string, std::string>> m_attached;  // path, schema
};

}  // namespace platform::dao
