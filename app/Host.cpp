#include "Host.h"

#include <cstdio>

#include "SignalCleanup.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/DTE.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/core/Error.h"
#include "platform/core/StderrLine.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/ServiceObject.h"
#include "platform/suite/TeamDatabase.h"
#include "platform/suite/TempFileNamer.h"
#include "platform/win32/Keyboard.h"

namespace app {

using namespace annotra;

Host::Host() {
  InstallServices();
  std::string data = MGlobals::Service()->DataFolder();
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(data + "settings.ini");
  MGlobals::AppSettingsObject_HKLM =
      std::make_shared<platform::suite::IniSettingsStore>("/etc/annotra/settings.ini", true);
  MGlobals::Service()->TakeSettings(MGlobals::AppSettingsObject_HKCU);
}

Host::Host(std::shared_ptr<platform::suite::SettingsStore> user,
           std::shared_ptr<platform::suite::SettingsStore> machine) {
  InstallServices();
  MGlobals::AppSettingsObject_HKCU = std::move(user);
  MGlobals::AppSettingsObject_HKLM = std::move(machine);
  MGlobals::Service()->TakeSettings(MGlobals::AppSettingsObject_HKCU);
}

void Host::InstallServices() {
  platform::suite::ErrorReport::Install(std::make_shared<platform::suite::StderrErrorReport>());
  platform::forms::MessageBoxPresenter::Install(std::make_shared<platform::forms::ConsoleMessageBoxes>());
  platform::win32::KeyboardState::Install(std::make_shared<platform::win32::SigintKeyboard>());
  // After the keyboard's handler: SIGINT outside the walk, and SIGTERM, end the program
  // and take the temporary results database with them.
  signals::InstallCleanup();
  // Nobody sits at a modal form on the command line: an empty script closes each one
  // through its close box. Commands that play the user install their own script.
  platform::forms::Presenter::Install(std::make_shared<platform::forms::ScriptedPresenter>());
}

Host::~Host() {
  DropResultsDatabase();
  MGlobals::DTEObject.reset();
  CloseDatabases();
}

void Host::CloseDatabases() {
  for (auto* db : {&MGlobals::TeamDB, &MGlobals::PersonalDB}) {
    if (*db) {
      try {
        (*db)->Close();
      } catch (const platform::Error&) {
      }
    }
    db->reset();
  }
  if (!m_scratchTeamDatabase.empty()) {
    std::error_code ec;
    std::filesystem::remove(m_scratchTeamDatabase, ec);
    m_scratchTeamDatabase.clear();
  }
}

bool Host::OpenDatabases(const std::string& teamDatabase, bool makeMissing) {
  namespace dao = platform::dao;
  CloseDatabases();
  MGlobals::WorkspaceObject = std::make_shared<dao::Workspace>();
  std::string team = teamDatabase.empty() ? platform::suite::TeamDatabase::DefaultPath() : teamDatabase;
  std::error_code ec;
  if (teamDatabase.empty() && !makeMissing && !std::filesystem::exists(team, ec)) {
    platform::suite::TempFileNamer namer;
    namer.MakeTempName("db", "");
    team = m_scratchTeamDatabase = namer.FullPath();
  }
  try {
    // The per-user one is made when missing; one named by the repository must be there.
    if (teamDatabase.empty()) MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(*MGlobals::WorkspaceObject, team);
    else MGlobals::TeamDB = MGlobals::WorkspaceObject->OpenDatabase(team);
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: the team database <%s> cannot be opened: %s\n", team.c_str(), e.description.c_str());
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
  signals::ForgetCleanupFile();
  MGlobals::EraseXMLAnalyzerDbObject();
}

bool Host::OpenSolution(const std::filesystem::path& path, bool verbose) {
  using Kind = platform::automation::LoadWarning::Kind;
  try {
    auto result = platform::automation::OpenSolution(path);
    // Items that are not compiled (read-mes, images, references) change nothing that is
    // analysed: they are shown when asked for only.
    for (const auto& warning : result.warnings) {
      if (!verbose && warning.kind == Kind::Other) continue;
      platform::stderr_line::End();
      std::fprintf(stderr, "annotra: warning: %s\n", warning.text.c_str());
    }
    m_dte = result.dte;
    MGlobals::DTEObject = m_dte;
    return true;
  } catch (const platform::Error& e) {
    std::fprintf(stderr, "annotra: %s\n", e.description.c_str());
    return false;
  }
}

}  // namespace app
