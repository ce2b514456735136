#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "platform/core/Ref.h"
#include "platform/core/Variant.h"
#include "platform/dao/Collection.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Property.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"

namespace platform::dao {

class Connection;

/// An open DAO database: one database file, its table definitions, its properties,
/// action statements and recordsets. Made by Workspace::CreateDatabase or
/// OpenDatabase. Once closed, every member fails with 3420.
class Database {
 public:
  /// For Workspace: the database on an open connection.
  explicit Database(std::shared_ptr<Connection> connection);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// The full path of the file.
  std::string Name() const;
  /// Whether the database can be written (false when opened read-only).
  bool Updatable() const;
  /// The file format version given at creation ("3.0" for dbVersion30, "4.0" otherwise).
  std::string Version() const;

  /// The stored tables, in name order; appending a new TableDef stores it in the file
  /// (see Catalog::StoreTable for the errors). Tables of the file that cannot be read
  /// are left out.
  Ref<Collection<TableDef>> TableDefs();
  /// A new table definition, to be filled in and appended to TableDefs.
  Ref<TableDef> CreateTableDef(const std::string& name = "", int32_t attributes = 0,
                               const std::string& sourceTableName = "",
                               const std::string& connect = "");

  /// The database's properties: the engine's (Name, Connect, Transactions, Updatable,
  /// CollatingOrder, QueryTimeout, Version, RecordsAffected; read-only) and then the
  /// user-defined ones. A missing one fails with 3270. Appending a new Property stores
  /// it in the file (3367 when the name is taken, 3259 for a property without a valid
  /// type).
  Ref<Collection<Property>> Properties();
  /// A new user-defined property, to be appended to Properties. `value` is converted to
  /// `type` (13 when it does not convert).
  Ref<Property> CreateProperty(const std::string& name = "", int type = 0,
                               const Variant& value = {});

  /// Runs an action statement of the engine's dialect (see SqlParser and
  /// StatementRunner). It runs whole or not at all, with or without dbFailOnError, and
  /// a failure throws. Sets RecordsAffected.
  void Execute(const std::string& query, int options = 0);
  /// Rows changed by the last Execute.
  int32_t RecordsAffected() const;

  /// A recordset on the table `name` (without regard to case): dbOpenTable or
  /// dbOpenDynaset (updatable), dbOpenSnapshot or dbOpenForwardOnly (read-only);
  /// `options` may add dbReadOnly or dbAppendOnly. 3078 when there is no such table.
  Ref<Recordset> OpenRecordset(const std::string& name, int type = dbOpenTable, int options = 0);

  /// Trades durability for speed on this connection (no sync, journal in memory), for a
  /// scratch database whose content need not survive a crash.
  void FavourSpeed();

  /// Commits what recordsets wrote and closes the file; its recordsets fail with 3420
  /// from now on. Closing twice fails with 3420, as in DAO.
  void Close();

 private:
  Connection& Open() const;

  std::shared_ptr<Connection> m_connection;
  std::string m_name;
  bool m_closed = false;
  int32_t m_recordsAffected = 0;
};

}  // namespace platform::dao
