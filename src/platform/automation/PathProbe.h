#pragma once
#include <filesystem>
#include <string>
#include <unordered_map>

namespace platform::automation {

/// What the loader asks the file system about paths (does it exist, is it a file or a
/// folder), remembered for the length of one load. The projects of a solution ask the
/// same questions again and again (Directory.Build.props in every folder above each
/// project, the same imports, the existence of every item the glob has just listed);
/// with one probe per load each path costs at most one system call. What a folder
/// listing has already shown is learnt without any call.
///
/// A probe sees the file system as it was when it first asked: it serves one load, not
/// a program's lifetime. Not thread-safe; symbolic links are followed, as the build
/// follows them.
class PathProbe {
 public:
  enum class Kind { Missing, File, Folder, Other };

  /// What `path` is (following symbolic links); Missing when it does not exist or
  /// cannot be examined.
  Kind KindOf(const std::filesystem::path& path);
  bool Exists(const std::filesystem::path& path) { return KindOf(path) != Kind::Missing; }
  bool IsFile(const std::filesystem::path& path) { return KindOf(path) == Kind::File; }
  bool IsFolder(const std::filesystem::path& path) { return KindOf(path) == Kind::Folder; }

  /// Records that `path` is of `kind`, as a folder listing has just shown it.
  void Learn(const std::filesystem::path& path, Kind kind) { m_known[path.native()] = kind; }

  /// The number of system calls made so far; for tests.
  int Calls() const { return m_calls; }

 private:
  std::unordered_map<std::string, Kind> m_known;
  int m_calls = 0;
};

/// `probe`'s answer, or the file system's own when `probe` is null.
PathProbe::Kind KindOfPath(PathProbe* probe, const std::filesystem::path& path);

}  // namespace platform::automation
