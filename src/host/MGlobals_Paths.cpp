// The component's folder and the paths of its grammar files.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

#include "host/MGlobals.h"
#include "host/MGlobals_Paths.h"

namespace annotra::MGlobals {
namespace {

std::optional<std::string>& XmlPath() {
  static std::optional<std::string> path;
  return path;
}
std::optional<std::string>& ScPath() {
  static std::optional<std::string> path;
  return path;
}

// The folder of the running executable; "" when it cannot be told.
std::filesystem::path ExecutableFolder() {
  std::error_code ec;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec || exe.empty()) return {};
  return exe.parent_path();
}

}  // namespace

std::string WithTrailingSeparator(const std::string& folder) {
  if (folder.empty() || folder.back() == '/') return folder;
  return folder + "/";
}

std::string GetAppPath() {
  if (const char* over = std::getenv("ANNOTRA_APP_PATH"); over && *over)
    return WithTrailingSeparator(over);
  std::filesystem::path exe = ExecutableFolder();
  if (exe.empty()) return "./";
  // Beside the executable (a build tree, or a folder it was copied to), else in the
  // share/annotra folder of its installation prefix.
  std::error_code ec;
  if (std::filesystem::exists(exe / "XML.GMR", ec)) return WithTrailingSeparator(exe.string());
  auto shared = exe.parent_path() / "share" / "annotra";
  if (std::filesystem::is_directory(shared, ec)) return WithTrailingSeparator(shared.string());
  return WithTrailingSeparator(exe.string());
}

std::string XMLGrammarFile() {
  if (!XmlPath()) XmlPath() = GetAppPath() + "XML.GMR";
  return *XmlPath();
}

std::string StrConstsGrammarFile() {
  if (!ScPath()) ScPath() = GetAppPath() + "SC.GMR";
  return *ScPath();
}

void ForgetGrammarPaths() {
  XmlPath().reset();
  ScPath().reset();
}

}  // namespace annotra::MGlobals
