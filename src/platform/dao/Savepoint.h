#pragma once
#include <string>

namespace platform::dao {

class Connection;

/// A unit of work on a connection that either commits whole or leaves nothing behind:
/// begun by the constructor, kept by Commit, rolled back by the destructor otherwise.
/// Savepoints nest.
class Savepoint {
 public:
  /// Begins the unit of work. Throws the DAO error when SQLite refuses it.
  explicit Savepoint(Connection& connection);
  /// Rolls back unless Commit ran. Never throws.
  ~Savepoint();
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;

  /// Keeps the work. Throws the DAO error of a failed commit; the work is then rolled
  /// back by the destructor.
  void Commit();

 private:
  Connection& m_connection;
  std::string m_name;
  bool m_done = false;
};

}  // namespace platform::dao
