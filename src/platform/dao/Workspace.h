#pragma once
#include <string>

#include "platform/core/Ref.h"
#include "platform/dao/Database.h"

namespace platform::dao {

/// A DAO workspace: where databases are created and opened. Paths are file system
/// paths; a relative one is taken from the current folder.
class Workspace {
 public:
  explicit Workspace(std::string name = "#Default Workspace#") : m_name(std::move(name)) {}

  const std::string& Name() const { return m_name; }

  /// Creates a new, empty database file at `name` and returns it open. `locale` is the
  /// collating order (dbLangGeneral; kept, not applied: text compares as SQLite does),
  /// `options` the format version (dbVersion30 reads back as Version "3.0").
  /// Throws 3044 when the path is empty or its folder does not exist, 3204 when the
  /// file exists, 3051 when it cannot be written, 3001 for dbEncrypt (not supported).
  /// A file left half made by a failure is removed.
  Ref<Database> CreateDatabase(const std::string& name, const std::string& locale, int options = 0);

  /// Opens an existing database file, shared, for reading and writing (or read-only).
  /// Throws 3044 for an empty path, 3024 when the file does not exist, 3051 when it
  /// cannot be opened, 3343 when it is no database (not SQLite, empty, truncated or
  /// corrupt). A file someone else made is opened defensively: none of its triggers or
  /// views runs and its schema is not trusted.
  Ref<Database> OpenDatabase(const std::string& name, bool exclusive = false,
                             bool readOnly = false, const std::string& connect = "");

 private:
  std::string m_name;
};

}  // namespace platform::dao
