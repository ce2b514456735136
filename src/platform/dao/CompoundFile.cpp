#include "platform/dao/CompoundFile.h"

#include <fcntl.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <mutex>

#include "platform/core/Error.h"

namespace platform::dao {
namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& why) {
  throw Error(err::kFailureCreatingFile, "Failure creating file '" + path + "': " + why + ".");
}

// Syncs what was written to `path` (a file or a folder) to the disk.
bool Sync(const std::string& path, bool folder) {
  int fd = ::open(path.c_str(), (folder ? O_RDONLY | O_DIRECTORY : O_RDONLY) | O_CLOEXEC);
  if (fd < 0) return false;
  bool ok = ::fsync(fd) == 0 || (folder && errno == EINVAL);
  ::close(fd);
  return ok;
}

// Writes the container to the open `file` (closed here). "" when all went well, else
// what failed.
std::string WriteContainer(const std::string& name, FILE* file, const std::vector<CompoundStream>& streams,
                           const std::string& classId) {
  static std::once_flag once;
  std::call_once(once, [] { gsf_init(); });
  GsfOutput* sink = gsf_output_stdio_new_FILE(name.c_str(), file, FALSE);
  if (!sink) {
    std::fclose(file);
    return "the file cannot be opened for writing";
  }
  GsfOutfile* ole = gsf_outfile_msole_new(sink);
  bool ok = ole != nullptr;
  if (ok && classId.size() == 16)
    ok = gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(ole), reinterpret_cast<const guint8*>(classId.data()));
  for (const auto& [streamName, bytes] : streams) {
    if (!ok) break;
    GsfOutput* child = gsf_outfile_new_child(ole, streamName.c_str(), FALSE);
    if (!child) {
      ok = false;
      break;
    }
    ok = gsf_output_write(child, bytes.size(), reinterpret_cast<const guint8*>(bytes.data()));
    ok = gsf_output_close(child) && ok;
    g_object_unref(child);
  }
  if (ole) {
    ok = gsf_output_close(GSF_OUTPUT(ole)) && ok;
    g_object_unref(ole);
  }
  std::string why;
  if (!gsf_output_is_closed(sink)) ok = gsf_output_close(sink) && ok;
  if (const GError* error = gsf_output_error(sink)) why = error->message ? error->message : "write error";
  g_object_unref(sink);
  if (!ok && why.empty()) why = "the container cannot be written";
  return why;
}

}  // namespace

void WriteCompoundFile(const std::string& path, const std::vector<CompoundStream>& streams, const std::string& classId) {
  namespace fs = std::filesystem;
  if (path.empty() || path.find('\0') != std::string::npos) throw Error(err::kInvalidPath);
  std::error_code ec;
  const fs::path target = fs::absolute(path, ec);
  if (ec || target.filename().empty()) throw Error(err::kInvalidPath, "'" + path + "' is not a valid path.");
  const std::string folder = target.parent_path().string();
  if (!fs::is_directory(folder, ec)) throw Error(err::kInvalidPath, "'" + path + "' is not a valid path.");
  if (fs::symlink_status(target, ec).type() != fs::file_type::not_found)
    throw Error(err::kDatabaseExists, "'" + path + "' already exists.");

  std::string temporary = folder;
  temporary.append("/.").append(target.filename().string()).append(".XXXXXX");
  int fd = ::mkstemp(temporary.data());
  if (fd < 0) Fail(path, std::string("no file can be made in its folder (") + std::strerror(errno) + ")");
  ::fchmod(fd, 0644);
  FILE* file = ::fdopen(fd, "wb");
  if (!file) {
    ::close(fd);
    ::unlink(temporary.c_str());
    Fail(path, "the file cannot be opened for writing");
  }
  std::string why = WriteContainer(temporary, file, streams, classId);
  if (why.empty() && !Sync(temporary, false)) why = "it cannot be synced to the disk";
  if (why.empty()) {
    // A link takes the name only when nothing has it; a file system without links
    // takes a rename, after the check above.
    if (::link(temporary.c_str(), target.c_str()) == 0) {
      ::unlink(temporary.c_str());
    } else if (errno == EEXIST) {
      ::unlink(temporary.c_str());
      throw Error(err::kDatabaseExists, "'" + path + "' already exists.");
    } else if (::rename(temporary.c_str(), target.c_str()) != 0) {
      why = std::string("it cannot be given its name (") + std::strerror(errno) + ")";
    }
  }
  if (!why.empty()) {
    ::unlink(temporary.c_str());
    Fail(path, why);
  }
  Sync(folder, true);
}

}  // namespace platform::dao
