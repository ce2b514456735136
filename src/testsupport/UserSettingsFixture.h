#pragma once
// The setting the component's dialogs are tested in: a per-user settings store in a
// temporary folder, a team database with the default templates, the shipped grammar
// files, and recorded error reports and message boxes.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <memory>
#include <string>

#include "host/MGlobals.h"
#include "host/MGlobals_Paths.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/TeamDatabase.h"
#include "results/MGlobals_ResultsDb.h"
#include "testsupport/TempDir.h"

namespace testsupport {

/// A test with the per-user store and the team database of a temporary folder installed
/// in the shared module; both are closed and forgotten after the test, and
/// ANNOTRA_APP_PATH is put back as it was.
class UserSettingsFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    namespace MGlobals = annotra::MGlobals;
    const char* old = getenv("ANNOTRA_APP_PATH");
    m_oldAppPath = old ? old : "";
    setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
    MGlobals::ForgetGrammarPaths();
    MGlobals::AppSettingsObject_HKCU =
        std::make_shared<platform::suite::IniSettingsStore>(m_dir.path() / "settings.ini");
    MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(m_ws, (m_dir.path() / "team.db").string());
  }
  void TearDown() override {
    namespace MGlobals = annotra::MGlobals;
    if (MGlobals::TeamDB) MGlobals::TeamDB->Close();
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    MGlobals::ForgetGrammarPaths();
    setenv("ANNOTRA_APP_PATH", m_oldAppPath.c_str(), 1);
  }

  TempDir m_dir;
  platform::dao::Workspace m_ws;
  std::string m_oldAppPath;
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> m_boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes m_scopedBoxes{m_boxes};
  std::shared_ptr<platform::suite::RecordingErrorReport> m_report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport m_scopedReport{m_report};
};

}  // namespace testsupport
