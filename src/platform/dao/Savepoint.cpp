#include "platform/dao/Savepoint.h"

#include <sqlite3.h>

#include "platform/dao/Connection.h"

namespace platform::dao {
namespace {
int g_next = 0;
}

Savepoint::Savepoint(Connection& connection)
    : m_connection(connection), m_name("dao_sp" + std::to_string(++g_next)) {
  m_connection.Exec("SAVEPOINT " + m_name);
}

Savepoint::~Savepoint() {
  if (m_done || !m_connection.IsOpen()) return;
  sqlite3* db = m_connection.handle();
  std::string rollback = "ROLLBACK TO " + m_name + "; RELEASE " + m_name;
  sqlite3_exec(db, rollback.c_str(), nullptr, nullptr, nullptr);
}

void Savepoint::Commit() {
  m_connection.Exec("RELEASE " + m_name);
  m_done = true;
}

}  // namespace platform::dao
