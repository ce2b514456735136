#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace testsupport {

/// A fresh folder under the system's temporary folder, removed with everything in it
/// when the object goes away.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return m_path; }

  /// Writes `content` byte for byte to `relative` below the folder, making the folders
  /// between; returns the full path.
  std::filesystem::path Write(std::string_view relative, std::string_view content) const;

 private:
  std::filesystem::path m_path;
};

/// The whole content of a file, byte for byte; "" when it cannot be read.
std::string ReadFile(const std::filesystem::path& path);

}  // namespace testsupport
