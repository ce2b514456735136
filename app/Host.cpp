#include "Host.h"

#include <cstdio>

#include "host/MGlobals.h"
#include "platform/automation/DTE.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/core/Error.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/ServiceObject.h"
#include "platform/win32/Keyboard.h"

namespace app {

using namespace annotra;

Host::Host() {
  platform::suite::ErrorReport::Install(std::make_shared<platform::suite::StderrErrorReport>());
  platform::forms::MessageBoxPresenter::Install(std::make_shared<platform::forms::ConsoleMessageBoxes>());
  platform::win32::KeyboardState::Install(std::make_shared<platform::win32::SigintKeyboard>());
  std::string data = MGlobals::Service()->DataFolder();
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(data + "settings.ini");
  MGlobals::AppSettingsObject_HKLM =
      std::make_shared<platform::suite::IniSettingsStore>("/etc/annotra/settings.ini", true);
  MGlobals::Service()->TakeSettings(MGlobals::AppSettingsObject_HKCU);
}

Host::~Host() = default;

bool Host::OpenSolution(const std::filesystem::path& path) {
  try {
    auto result = platform::automation::OpenSolution(path);
    for (const auto& warning : result.warnings) std::fprintf(stderr, "annotra: warning: %s\n", warning.c_str());
    m_dte = result.dte;
    MGlobals::DTEObject = m_dte;
    return true;
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: %s\n", e.description.c_str());
    return false;
  }
}

}  // namespace app
