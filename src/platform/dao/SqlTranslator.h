#pragma once
#include <string>
#include <vector>

#include "platform/dao/SqlLexer.h"

namespace platform::dao {

/// Turns expressions of the engine's SQL dialect, as token lists, into SQLite's dialect:
/// every name becomes a quoted identifier and every string a quoted literal, so nothing
/// inside a name or a string can change the statement; True is -1 and False 0, & joins
/// text, Mod is %, ! separates a table from its field, and the * and ? wildcards of Like
/// become % and _. Dates between # signs and the operators \ ^ Eqv Imp are not
/// translated (3075).
class SqlTranslator {
 public:
  /// The SQLite text of `tokens`. Throws platform::Error 3075 for what cannot be
  /// translated, 3061 for a parameter (?).
  static std::string Expression(const std::vector<SqlToken>& tokens);
  /// True when `tokens` is * or table.* alone.
  static bool IsStar(const std::vector<SqlToken>& tokens);
  /// A quoted SQLite identifier.
  static std::string Quote(const std::string& name);
};

}  // namespace platform::dao
