#include "platform/automation/PathProbe.h"

#include <sys/stat.h>

namespace platform::automation {
namespace {

PathProbe::Kind Examine(const std::filesystem::path& path) {
  struct stat st {};
  if (path.empty() || ::stat(path.c_str(), &st) != 0) return PathProbe::Kind::Missing;
  if (S_ISREG(st.st_mode)) return PathProbe::Kind::File;
  if (S_ISDIR(st.st_mode)) return PathProbe::Kind::Folder;
  return PathProbe::Kind::Other;
}

}  // namespace

PathProbe::Kind PathProbe::KindOf(const std::filesystem::path& path) {
  auto it = m_known.find(path.native());
  if (it != m_known.end()) return it->second;
  ++m_calls;
  Kind kind = Examine(path);
  m_known.emplace(path.native(), kind);
  return kind;
}

PathProbe::Kind KindOfPath(PathProbe* probe, const std::filesystem::path& path) {
  return probe ? probe->KindOf(path) : Examine(path);
}

}  // namespace platform::automation
