#include "platform/dao/Connection.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/core/Error.h"
#include "platform/dao/SqliteError.h"
#include "platform/dao/Statement.h"

namespace platform::dao {
namespace {

constexpr auto kImplicitCommitDelay = std::chrono::milliseconds(50);

// Every open connection, so that a statement writing a file through another connection
// can first commit what this process still holds of it.
std::vector<Connection*>& OpenConnections() {
  static std::vector<Connection*> connections;
  return connections;
}

std::string Canonical(const std::string& path) {
  std::error_code ec;
  auto canonical = std::filesystem::weakly_canonical(path, ec);
  return ec ? path : canonical.string();
}

// Checks an existing file before SQLite sees it: it must be a readable regular file that
// starts with SQLite's header. An empty file is no database either (SQLite would take it
// for a new one).
void CheckExistingFile(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0)
    throw Error(err::kCouldNotFindFile, "Could not find file '" + path + "'.");
  if (!S_ISREG(st.st_mode))
    throw Error(err::kCouldNotFindFile, "Could not find file '" + path + "'.");
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Error(err::kCannotOpenFile);
  char header[16] = {};
  in.read(header, sizeof header);
  if (in.gcount() != sizeof header || std::memcmp(header, "SQLite format 3", 16) != 0)
    throw Error(err::kUnrecognizedFormat, "Unrecognized database format '" + path + "'.");
}

}  // namespace

std::shared_ptr<Connection> Connection::Open(const std::string& path, bool create,
                                             bool readOnly) {
  // This layer counts no memory of SQLite's: without the statistics every allocation of
  // the engine saves taking a global lock. Possible only before the engine starts; when
  // something else started it first, the statistics stay and nothing else changes.
  static const bool configured = [] {
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    return true;
  }();
  (void)configured;
  if (!create) CheckExistingFile(path);
  std::shared_ptr<Connection> connection(new Connection(path, readOnly));
  // A file just made by the caller must still be that file, not a link put in its place.
  // A connection is used by one thread at a time (its owner's), so SQLite need not lock
  // it on every call.
  int flags = (readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) |
              (create ? SQLITE_OPEN_NOFOLLOW : 0) | SQLITE_OPEN_NOMUTEX;
  int rc = sqlite3_open_v2(path.c_str(), &connection->m_db, flags, nullptr);
  if (rc != SQLITE_OK) {
    sqlite3_close_v2(connection->m_db);
    connection->m_db = nullptr;
    if (rc == SQLITE_CANTOPEN && access(path.c_str(), F_OK) != 0)
      throw Error(err::kCouldNotFindFile, "Could not find file '" + path + "'.");
    ThrowSqliteError(nullptr, rc);
  }
  OpenConnections().push_back(connection.get());
  try {
    connection->Configure();
    if (!create) {
      // Reads every page of the file once: a truncated or damaged file fails here rather
      // than in the middle of later work.
      Statement check(*connection, "PRAGMA quick_check(1)");
      if (!check.Step() || check.ColumnText(0) != "ok") throw Error(err::kDatabaseCorrupt);
    }
  } catch (const Error& e) {
    connection->Close();
    if (e.number == err::kDatabaseCorrupt || e.number == err::kUnrecognizedFormat)
      throw Error(err::kUnrecognizedFormat, "Unrecognized database format '" + path + "'.");
    throw;
  }
  return connection;
}

void Connection::Configure() {
  sqlite3_extended_result_codes(m_db, 1);
  int ignored = 0;
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_DEFENSIVE, 1, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DDL, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DML, 0, &ignored);
  sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_FKEY, 0, &ignored);
  sqlite3_limit(m_db, SQLITE_LIMIT_ATTACHED, 2);
  // A lock held by another process is waited for, but not for ever.
  sqlite3_busy_timeout(m_db, 2000);
  Exec("PRAGMA cell_size_check=ON");
  if (!m_readOnly) Exec("PRAGMA synchronous=FULL");
}

Connection::~Connection() { Close(); }

sqlite3* Connection::handle() const {
  if (!m_db) throw Error(err::kObjectInvalid);
  return m_db;
}

void Connection::Exec(const std::string& sql) {
  Reclaim();
  char* message = nullptr;
  int rc = sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, &message);
  sqlite3_free(message);
  if (rc != SQLITE_OK) ThrowSqliteError(m_db, rc);
}

Statement& Connection::Cached(const std::string& sql) {
  handle();
  auto it = m_cache.find(sql);
  if (it != m_cache.end()) return *it->second;
  auto statement = std::make_unique<Statement>(*this, sql);
  Statement& result = *statement;
  m_cache.emplace(sql, std::move(statement));
  return result;
}

int64_t Connection::Changes() const { return sqlite3_changes64(handle()); }
int64_t Connection::LastInsertRowId() const { return sqlite3_last_insert_rowid(handle()); }

void Connection::BeginImplicitWrite() {
  sqlite3* db = handle();
  if (m_implicit && sqlite3_get_autocommit(db)) m_implicit = false;  // rolled back by SQLite
  if (!m_implicit && sqlite3_get_autocommit(db)) {
    Exec("BEGIN");
    m_implicit = true;
    m_implicitSince = std::chrono::steady_clock::now();
  }
}

void Connection::EndImplicitWrite() {
  if (m_implicit && std::chrono::steady_clock::now() - m_implicitSince >= kImplicitCommitDelay)
    FlushImplicit();
}

void Connection::FlushImplicit() {
  if (!m_implicit || !m_db) return;
  m_implicit = false;
  if (sqlite3_get_autocommit(m_db)) return;
  try {
    Exec("COMMIT");
  } catch (const Error&) {
    sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

void Connection::FavourSpeed() {
  FlushImplicit();
  Exec("PRAGMA synchronous=OFF");
  Exec("PRAGMA journal_mode=MEMORY");
  Exec("PRAGMA cache_size=-" + std::to_string(kScratchCacheKiB));
  Exec("PRAGMA locking_mode=EXCLUSIVE");
  m_fast = true;
}

void Connection::YieldLock() {
  if (!m_fast || !m_db || m_yielded) return;
  // SQLite drops an exclusive lock at the first access after the mode is back to normal.
  sqlite3_exec(m_db, "PRAGMA locking_mode=NORMAL; SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
  m_yielded = true;
}

void Connection::ReclaimLock() {
  m_yielded = false;
  if (!m_db) return;
  // The lock itself is taken by the next statement that reads or writes and then kept.
  sqlite3_exec(m_db, "PRAGMA locking_mode=EXCLUSIVE", nullptr, nullptr, nullptr);
}

void Connection::Close() {
  if (!m_db) return;
  try {
    FlushImplicit();
  } catch (const Error&) {
    // Closing never fails; what could not be committed is lost, as on a crash.
  }
  m_cache.clear();
  for (Statement* statement : m_statements) statement->Finalize();
  m_statements.clear();
  sqlite3_close_v2(m_db);
  m_db = nullptr;
  auto& open = OpenConnections();
  open.erase(std::remove(open.begin(), open.end(), this), open.end());
}

void Connection::FlushFile(const std::string& path) {
  std::string target = Canonical(path);
  auto open = OpenConnections();  // a copy: flushing never closes, but stay safe
  for (Connection* connection : open) {
    if (Canonical(connection->m_path) != target) continue;
    try {
      connection->FlushImplicit();
    } catch (const Error&) {
      // The writer that asked will meet the lock and report it.
    }
    connection->YieldLock();
  }
}

}  // namespace platform::dao
