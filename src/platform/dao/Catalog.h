#pragma once
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/core/Variant.h"

namespace platform::dao {

class Connection;
class TableDef;

/// What SQLite does not keep itself, in catalog tables of the layer's own inside each
/// database file: a table's DAO properties (MSysDaoTables), each field's type, size,
/// attributes, allow-zero-length, default value text, ordinal position and required flag
/// (MSysDaoFields), the indexes with their flags and fields (MSysDaoIndexes,
/// MSysDaoIndexFields) and the database properties (MSysDaoProperties). Tables of a file
/// that has no catalog rows for them (a file someone else made) are described from what
/// SQLite knows. Every function works on one schema of a connection ("main" or an
/// attached one) and quotes or binds every name, so names may hold any character.
class Catalog {
 public:
  /// One database property row.
  struct PropertyRow {
    std::string name;
    int type = 0;
    Variant value;
    bool engine = false;  // kept by the engine (Version, CollatingOrder), not the user
  };

  /// Makes the catalog tables when they are missing. Throws the DAO error of a failure.
  static void Create(Connection& connection, const std::string& schema);

  /// The names of the user tables, in name order (without regard to case); the
  /// catalog's and SQLite's own tables are left out.
  static std::vector<std::string> TableNames(Connection& connection, const std::string& schema);

  /// The stored table named `name` (without regard to case), described as a locked
  /// TableDef. 3078 when there is no such table.
  static Ref<TableDef> LoadTable(Connection& connection, const std::string& schema,
                                 const std::string& name);

  /// Stores `table` in the file: the SQLite table with its constraints and indexes and
  /// the catalog rows, all or nothing. Checks the definition first: 3125 for a name
  /// that is not valid, 3010 for a table that exists, 3264 for a table or index without
  /// fields, 3259 for a field without a valid type or a second auto-numbered field,
  /// 3265 for an index field that is no field of the table, 3388 for a default value
  /// that is not a literal, 3001 for a validation rule (not supported), 3170 for an
  /// attached table (Connect not empty).
  static void StoreTable(Connection& connection, const std::string& schema,
                         const TableDef& table);

  /// The database property rows, in the order they were stored. None when the file has
  /// no catalog.
  static std::vector<PropertyRow> LoadProperties(Connection& connection,
                                                 const std::string& schema);
  /// Stores a property row, replacing one of the same name.
  static void StoreProperty(Connection& connection, const std::string& schema,
                            const PropertyRow& row);

  /// `identifier` as an SQLite quoted identifier ("a""b").
  static std::string Quote(const std::string& identifier);
  /// Throws 3125 unless `name` is a valid object name: 1 to 64 characters, no control
  /// character, none of . ! ` [ ], no leading blank, not reserved for the catalog.
  static void CheckName(const std::string& name);
  /// True for a table of the catalog or of SQLite itself.
  static bool IsSystemTable(const std::string& name);
};

}  // namespace platform::dao
