#include "platform/dao/Workspace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/core/Error.h"
#include "platform/dao/Catalog.h"
#include "platform/dao/Connection.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Savepoint.h"

namespace platform::dao {
namespace {

// The absolute form of `name`. An absolute path also keeps SQLite from reading a name
// such as "file:x" or ":memory:" as anything but a file.
std::string AbsolutePath(const std::string& name) {
  if (name.empty() || name.find('\0') != std::string::npos)
    throw Error(err::kInvalidPath, "'" + name + "' is not a valid path.");
  std::error_code ec;
  auto path = std::filesystem::absolute(name, ec);
  if (ec) throw Error(err::kInvalidPath, "'" + name + "' is not a valid path.");
  return path.lexically_normal().string();
}

std::string VersionOf(int options) {
  if (options & dbVersion10) return "1.0";
  if (options & dbVersion11) return "1.1";
  if (options & dbVersion20) return "2.0";
  if (options & dbVersion30) return "3.0";
  return "4.0";
}

// The LANGID of a locale string (";LANGID=0x0409;CP=1252;COUNTRY=0" gives 1033).
int LanguageOf(const std::string& locale) {
  auto at = locale.find("LANGID=");
  if (at == std::string::npos) return 1033;
  try {
    size_t used = 0;
    long id = std::stol(locale.substr(at + 7), &used, 0);
    return id > 0 && id < 0x10000 ? static_cast<int>(id) : 1033;
  } catch (const std::exception&) {
    return 1033;
  }
}

}  // namespace

Ref<Database> Workspace::CreateDatabase(const std::string& name, const std::string& locale,
                                        int options) {
  std::string path = AbsolutePath(name);
  if (options & dbEncrypt)
    throw Error(err::kInvalidArgument, "Invalid argument: encrypted databases are not supported.");
  std::string folder = std::filesystem::path(path).parent_path().string();
  struct stat st {};
  if (::stat(folder.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
    throw Error(err::kInvalidPath, "'" + path + "' is not a valid path.");

  // Claims the name atomically: of two creators of one path, only one gets it.
  int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
  if (fd < 0) {
    if (errno == EEXIST || errno == ELOOP) throw Error(err::kDatabaseExists, "Database already exists.");
    if (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG)
      throw Error(err::kInvalidPath, "'" + path + "' is not a valid path.");
    throw Error(err::kCannotOpenFile);
  }
  ::close(fd);
  try {
    auto connection = Connection::Open(path, true, false);
    {
      Savepoint work(*connection);
      Catalog::Create(*connection, "main");
      Catalog::StoreProperty(*connection, "main", {"Version", dbText, VersionOf(options), true});
      Catalog::StoreProperty(*connection, "main", {"CollatingOrder", dbLong, LanguageOf(locale), true});
      Catalog::StoreProperty(*connection, "main", {"Locale", dbText, locale, true});
      work.Commit();
    }
    return std::make_shared<Database>(connection);
  } catch (...) {
    ::unlink(path.c_str());
    throw;
  }
}

Ref<Database> Workspace::OpenDatabase(const std::string& name, bool /*exclusive*/, bool readOnly,
                                      const std::string& /*connect*/) {
  std::string path = AbsolutePath(name);
  return std::make_shared<Database>(Connection::Open(path, false, readOnly));
}

}  // namespace platform::dao
