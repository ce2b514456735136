#include "platform/suite/TempFileNamer.h"

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace platform::suite {
namespace {

bool IsWritableFolder(const char* path) {
  struct stat st {};
  return path && *path && ::stat(path, &st) == 0 && S_ISDIR(st.st_mode) &&
         ::access(path, W_OK | X_OK) == 0;
}

std::string WithSlash(std::string folder) {
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

// A random number drawn once per process.
uint32_t InstanceNonce() {
  static const uint32_t nonce = [] {
    std::random_device device;
    return static_cast<uint32_t>(device());
  }();
  return nonce;
}

}  // namespace

std::string TempFileNamer::Folder() const {
  const char* tmpdir = std::getenv("TMPDIR");
  if (IsWritableFolder(tmpdir)) return WithSlash(tmpdir);
  return "/tmp/";
}

void TempFileNamer::MakeTempName(const std::string& tag, const std::string& folder) {
  static std::atomic<unsigned> counter{0};
  std::string clean;
  for (char c : tag)
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
        c == '-')
      clean += c;
  if (clean.empty()) clean = "tmp";
  char unique[64];
  std::snprintf(unique, sizeof unique, "annotra-%ld-%u-%08x.", static_cast<long>(::getpid()),
                ++counter, InstanceNonce());
  m_fullPath = WithSlash(folder.empty() ? Folder() : folder) + unique + clean;
}

}  // namespace platform::suite
