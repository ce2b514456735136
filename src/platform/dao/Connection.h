#pragma once
#include <chrono>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "platform/dao/Statement.h"

struct sqlite3;

namespace platform::dao {


/// One open SQLite database file, opened defensively: triggers and views never run,
/// the schema is not trusted (no function with side effects runs from it), extensions
/// cannot load, writes that would corrupt the file are refused, and an existing file is
/// checked before it is used. Shared by the Database that opened it and the recordsets
/// made from it; closing it finalizes every statement, so later use fails with 3420.
///
/// A connection and what is made from it belong to one thread at a time.
///
/// Recordsets write inside an implicit transaction that is committed at the latest
/// 50 ms after it began, and whenever any other operation needs the file (the way the
/// engine behind DAO batches its writes), so appending rows one by one costs about as
/// much as one transaction.
class Connection {
 public:
  /// Opens the file at `path` (an absolute path). With `create`, the file must exist and
  /// be empty (the caller made it) and becomes a new database; otherwise it must be an
  /// SQLite database. Throws 3024 (missing), 3051 (cannot be opened), 3343 (not a
  /// database, truncated or corrupt).
  static std::shared_ptr<Connection> Open(const std::string& path, bool create, bool readOnly);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// The SQLite handle; throws 3420 when the connection is closed.
  sqlite3* handle() const;
  bool IsOpen() const { return m_db != nullptr; }
  const std::string& Path() const { return m_path; }
  bool ReadOnly() const { return m_readOnly; }

  /// Runs one or more SQL statements that return no rows. Throws the DAO error of a
  /// failure.
  void Exec(const std::string& sql);
  /// The statement for `sql`, prepared on first use and kept until the connection
  /// closes. The caller resets it after use.
  Statement& Cached(const std::string& sql);
  /// Rows changed by the last statement.
  int64_t Changes() const;
  /// Row id of the last row inserted.
  int64_t LastInsertRowId() const;

  /// Makes sure a write of a recordset runs inside the implicit transaction.
  void BeginImplicitWrite();
  /// Counts a finished recordset write; commits the implicit transaction when it is due.
  void EndImplicitWrite();
  /// Commits the implicit transaction if one is open. Throws the DAO error of a failed
  /// commit (the transaction is then rolled back).
  void FlushImplicit();

  /// Trades durability and sharing for speed, for a scratch file of this process whose
  /// content need not survive a crash: no sync to disk, the rollback journal in memory,
  /// and the file locked once and kept locked (exclusive locking mode), so that no
  /// statement takes and drops file locks, probes for a journal or reads the file's
  /// header again, with a page cache of kScratchCacheKiB. Another connection that needs
  /// the file asks for it through FlushFile; the lock is taken again on the next use.
  void FavourSpeed();
  bool FavoursSpeed() const { return m_fast; }

  /// Takes the exclusive lock back after FlushFile gave it up. Cheap when there is
  /// nothing to do; every statement of the connection calls it before it runs.
  void Reclaim() {
    if (m_yielded) ReclaimLock();
  }

  /// The page cache of a connection that favours speed: what a large analysis writes,
  /// with room to spare, yet bounded.
  static constexpr int kScratchCacheKiB = 16384;

  /// Commits pending writes and closes the file. Never throws; closing twice is allowed.
  void Close();

  /// Commits the implicit transactions of every open connection to the file at `path`
  /// and gives up the exclusive lock of those that favour speed, so that another
  /// connection can read and write it. Failures are ignored.
  static void FlushFile(const std::string& path);

  // Bookkeeping of statements, for Statement only.
  void Register(Statement* statement) { m_statements.insert(statement); }
  void Unregister(Statement* statement) { m_statements.erase(statement); }

 private:
  Connection(std::string path, bool readOnly) : m_path(std::move(path)), m_readOnly(readOnly) {}
  void Configure();
  void YieldLock();
  void ReclaimLock();

  sqlite3* m_db = nullptr;
  std::string m_path;
  bool m_readOnly;
  bool m_fast = false;
  // The exclusive lock was given up for another connection and is to be taken again.
  bool m_yielded = false;
  bool m_implicit = false;
  std::chrono::steady_clock::time_point m_implicitSince;
  std::unordered_set<Statement*> m_statements;
  std::unordered_map<std::string, std::unique_ptr<Statement>> m_cache;
};

}  // namespace platform::dao
