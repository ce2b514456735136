#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "platform/dao/SqlLexer.h"
#include "platform/dao/SqlStatement.h"

namespace platform::dao {

/// Parses one statement of the engine's SQL dialect: SELECT (with INTO), INSERT INTO
/// (with SELECT or VALUES), UPDATE and DELETE (DELETE * FROM t as well), each over one
/// table, with [bracketed] names, "double" or 'single' quoted strings, and tables in
/// other files (IN "file") or behind a connect string ([Excel 8.0; DATABASE=file].[t]).
///
/// A file path is inserted into these statements as it is, without escaping, so it may
/// hold quotes, brackets or any other character. The parser therefore reads a path up to
/// the closing quote (or bracket) after which the rest of the statement parses, trying
/// the farthest one first; the number of tries is bounded, so no input makes it hang.
class SqlParser {
 public:
  /// The statement in `text`. Throws platform::Error for a statement it does not
  /// understand: 3129 when it does not start with SELECT, INSERT, UPDATE or DELETE,
  /// 3134 for a faulty INSERT, 3144 for a faulty UPDATE, 3131 for a faulty FROM clause,
  /// 3075 for anything else.
  static SqlStatement Parse(std::string_view text);

 private:
  using Continuation = std::function<SqlStatement(size_t, SqlStatement)>;
  enum class Slot { Target, Source };

  explicit SqlParser(std::string_view text) : m_lexer(text) {}

  SqlStatement ParseSelect(size_t pos, SqlStatement st);
  SqlStatement ParseInsert(size_t pos, SqlStatement st);
  SqlStatement ParseUpdate(size_t pos, SqlStatement st);
  SqlStatement ParseDelete(size_t pos, SqlStatement st);
  SqlStatement ParseFrom(size_t pos, SqlStatement st);
  SqlStatement ParseInsertBody(size_t pos, SqlStatement st);
  /// A table reference, then `rest` from where it ends.
  SqlStatement ParseTable(size_t pos, SqlStatement st, Slot slot, bool allowAlias,
                          const Continuation& rest);
  /// [WHERE ...] [ORDER BY ...] [;] and the end of the text.
  SqlStatement ParseTail(size_t pos, SqlStatement st, bool allowOrder);
  /// Tokens from `pos` up to (not including) a word of `stops` at parenthesis depth 0,
  /// ";" or the end; `pos` moves to the stop.
  std::vector<SqlToken> Collect(size_t& pos, std::initializer_list<std::string_view> stops);
  void Expect(size_t& pos, std::string_view word);
  void CountAttempt();
  [[noreturn]] void Fail(const std::string& what) const;

  SqlLexer m_lexer;
  int m_attempts = 0;
};

}  // namespace platform::dao
