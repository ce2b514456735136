// The check-box settings of the module MGlobals: options stored as the integers 0 and 1
// in section "CommentsAnalyzer" of the per-user settings store. Declared in
// host/MGlobals.h.

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "platform/suite/SettingsStore.h"

namespace annotra::MGlobals {
namespace {


// The per-user settings store; error 91 when the host handed over none.
platform::suite::SettingsStore& UserSettings() {
  if (!AppSettingsObject_HKCU) throw platform::Error(platform::err::kObjectNotSet);
  return *AppSettingsObject_HKCU;
}

}  // namespace

int16_t GetCheckBoxData(const std::string& key, const platform::Variant& def) {
  Steps step("Quillmark.MGlobals.GetCheckBoxData");
  int16_t value = 0;
  step(1, [&] { value = platform::ToBool(UserSettings().Read(section::CommentsAnalyzer, key, def)) ? 1 : 0; });
  return value;
}

void SetCheckBoxData(const std::string& key, int16_t value) {
  Steps step("Quillmark.MGlobals.SetCheckBoxData");
  // Only a checked box (1) is stored as 1: a grayed one (2) counts as unchecked.
  step(1, [&] { UserSettings().Write(section::CommentsAnalyzer, key, platform::Variant(value == 1 ? 1 : 0)); });
}

}  // namespace annotra::MGlobals
