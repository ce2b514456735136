#include "Host.h"

#include <cstdio>

#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/DTE.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/core/Error.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/ServiceObject.h"
#include "platform/suite/TeamDatabase.h"
#include "platform/win32/Keyboard.h"

namespace app {

using namespace annotra;

Host::Host() {
  platform::suite::ErrorReport::Install(std::make_shared<platform::suite::StderrErrorReport>());
  platform::forms::MessageBoxPresenter::Install(std::make_shared<platform::forms::ConsoleMessageBoxes>());
  platform::win32::KeyboardState::Install(std::make_shared<platform::win32::SigintKeyboard>());
  // Nobody sits at a modal form on the command line: an empty script closes each one
  // through its close box. Commands that play the user install their own script.
  platform::forms::Presenter::Install(std::make_shared<platform::forms::ScriptedPresenter>());
  std::string data = MGlobals::Service()->DataFolder();
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(data + "settings.ini");
  MGlobals::AppSettingsObject_HKLM =
      std::make_shared<platform::suite::IniSettingsStore>("/etc/annotra/settings.ini", true);
  MGlobals::Service()->TakeSettings(MGlobals::AppSettingsObject_HKCU);
}

Host::~Host() {
  DropResultsDatabase();
  MGlobals::DTEObject.reset();
  MGlobals::TeamDB.reset();
  MGlobals::PersonalDB.reset();
}

bool Host::OpenDatabases() {
  namespace dao = platform::dao;
  MGlobals::WorkspaceObject = std::make_shared<dao::Workspace>();
  try {
    MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(
        *MGlobals::WorkspaceObject, platform::suite::TeamDatabase::DefaultPath());
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: the team database <%s> cannot be opened: %s\n",
                 platform::suite::TeamDatabase::DefaultPath().c_str(), e.description.c_str());
    return false;
  }
  // The personal database is only handed on to the templates manager; a missing or
  // unreadable one is no reason to stop.
  std::string personal = MGlobals::Service()->DataFolder() + "personal.db";
  try {
    MGlobals::PersonalDB = MGlobals::WorkspaceObject->OpenDatabase(personal);
  } catch (const platform::Error&) {
    MGlobals::PersonalDB.reset();
  }
  return true;
}

void Host::DropResultsDatabase() {
  if (!MGlobals::XMLAnalyzerDb_IsCreated()) return;
  std::string file = MGlobals::XMLAnalyzerDbFile();
  try {
    MGlobals::XMLAnalyzerDb()->Close();
  } catch (const platform::Error&) {
  }
  std::error_code ec;
  std::filesystem::remove(file, ec);
  MGlobals::EraseXMLAnalyzerDbObject();
}

bool Host::OpenSolution(const std::filesystem::path& path) {
  try {
    auto result = platform::automation::OpenSolution(path);
    for (const auto& warning : result.warnings) std::fprintf(stderr, "annotra: warning: %s\n", warning.text.c_str());
    m_dte = result.dte;
    MGlobals::DTEObject = m_dte;
    return true;
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: %s\n", e.description.c_str());
    return false;
  }
}

}  // namespace app
