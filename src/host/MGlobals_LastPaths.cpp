// The folders last used by the file dialogs of the module MGlobals, kept in section
// "LastPaths" of the per-user settings store. Declared in host/MGlobals.h.
//
// The stored folder ends in the path separator, so that a dialog can be opened in it as
// it stands; on this system the separator is "/".

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "platform/core/AsciiText.h"
#include "platform/suite/SettingsStore.h"

namespace annotra::MGlobals {

std::string GetLastUsedPath(const std::string& key) {
  Steps step("Quillmark.MGlobals.GetLastUsedPath");
  std::string path;
  bool haveStore = false;
  step(1, [&] { haveStore = AppSettingsObject_HKCU != nullptr; });
  if (haveStore)
    step(2, [&] { path = platform::ToString(AppSettingsObject_HKCU->Read(section::LastPaths, key, platform::Variant(""))); });
  return path;
}

void SaveLastUsedPath(const std::string& key, std::string& path) {
  Steps step("Quillmark.MGlobals.SaveLastUsedPath");
  bool skip = true;
  step(1, [&] { skip = platform::Trim(path, " ").empty() || !AppSettingsObject_HKCU; });
  if (skip) return;
  step(2, [&] {
    if (path.back() != '/') path += '/';
  });
  step(3, [&] { AppSettingsObject_HKCU->Write(section::LastPaths, key, platform::Variant(path)); });
}

}  // namespace annotra::MGlobals
