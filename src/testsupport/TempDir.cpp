#include "testsupport/TempDir.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace testsupport {

TempDir::TempDir() {
  std::random_device rd;
  auto base = std::filesystem::temp_directory_path();
  for (int attempt = 0; attempt < 100; ++attempt) {
    auto candidate = base / ("annotra-test-" + std::to_string(rd()));
    std::error_code ec;
    if (std::filesystem::create_directory(candidate, ec)) {
      m_path = candidate;
      return;
    }
  }
  throw std::runtime_error("cannot make a temporary folder");
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::permissions(m_path, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, ec);
  std::filesystem::remove_all(m_path, ec);
}

std::filesystem::path TempDir::Write(std::string_view relative, std::string_view content) const {
  auto full = m_path / std::filesystem::path(std::string(relative));
  std::filesystem::create_directories(full.parent_path());
  std::ofstream out(full, std::ios::binary | std::ios::trunc);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  if (!out) throw std::runtime_error("cannot write " + full.string());
  return full;
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return "";
  std::ostringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

}  // namespace testsupport
