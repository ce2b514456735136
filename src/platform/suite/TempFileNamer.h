#pragma once
#include <string>

namespace platform::suite {

/// The suite's temporary-file naming service: a folder the user can write and, in it,
/// file names that no other running instance of the program uses. The folder is
/// $TMPDIR when that names a folder the user can write, else /tmp. A name is
/// "annotra-<process id>-<count>-<random>.<tag>": the process id keeps running
/// instances apart, the count keeps names of one instance apart, and the random part
/// keeps apart instances that share a folder but not a process numbering (containers).
/// The file itself is not made; one may already exist at a name made earlier by a
/// program that ended, and the caller deletes it.
class TempFileNamer {
 public:
  /// The folder for temporary files, ending in "/".
  std::string Folder() const;

  /// Makes a new name from `tag` (letters, digits, "_" and "-" only: anything else is
  /// left out; an empty tag gives "tmp") in `folder` ("" means Folder()). The full path
  /// is then FullPath.
  void MakeTempName(const std::string& tag, const std::string& folder);

  /// The full path of the last name made; "" before the first.
  const std::string& FullPath() const { return m_fullPath; }

 private:
  std::string m_fullPath;
};

}  // namespace platform::suite
