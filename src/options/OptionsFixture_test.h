#pragma once
// The setting the options dialog and its pages are tested in: a per-user settings store
// in a temporary folder, a team database with the default templates (for the template
// options), the shipped grammar files, and recorded error reports and message boxes.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <memory>
#include <string>

#include "host/MGlobals.h"
#include "host/MGlobals_Paths.h"
#include "host/SettingsKeys.h"
#include "options/FOptions.h"
#include "platform/core/Variant.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/TeamDatabase.h"
#include "results/MGlobals_ResultsDb.h"
#include "testsupport/TempDir.h"

namespace annotra::testing {

class OptionsFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* old = getenv("ANNOTRA_APP_PATH");
    m_oldAppPath = old ? old : "";
    setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
    MGlobals::ForgetGrammarPaths();
    MGlobals::AppSettingsObject_HKCU =
        std::make_shared<platform::suite::IniSettingsStore>(m_dir.path() / "settings.ini");
    MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(m_ws, (m_dir.path() / "team.db").string());
  }
  void TearDown() override {
    if (MGlobals::TeamDB) MGlobals::TeamDB->Close();
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    MGlobals::ForgetGrammarPaths();
    setenv("ANNOTRA_APP_PATH", m_oldAppPath.c_str(), 1);
  }

  /// A user who plays the actions queued on it.
  static std::shared_ptr<platform::forms::ScriptedPresenter> User() {
    return std::make_shared<platform::forms::ScriptedPresenter>();
  }

  /// Plays `user` on a new options dialog from GetOptions to the caller's unload, and
  /// checks that every action could be played; GetOptions' answer.
  static bool Run(const std::shared_ptr<platform::forms::ScriptedPresenter>& user) {
    platform::forms::ScopedPresenter scope(user);
    FOptions dialog;
    bool ok = dialog.GetOptions();
    dialog.Unload();
    EXPECT_TRUE(user->errors.empty()) << (user->errors.empty() ? "" : user->errors.front());
    EXPECT_EQ(user->Pending(), 0u);
    return ok;
  }

  /// Stores `value` under `key` of section "CommentsAnalyzer".
  static void Store(const char* key, const platform::Variant& value) {
    MGlobals::AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key, value);
  }
  /// The value under `key` of section "CommentsAnalyzer" as text; "<none>" when absent.
  static std::string Stored(const char* key) {
    platform::Variant v = MGlobals::AppSettingsObject_HKCU->Read(section::CommentsAnalyzer, key, platform::Variant());
    return v.IsEmpty() ? "<none>" : platform::ToString(v);
  }

  testsupport::TempDir m_dir;
  platform::dao::Workspace m_ws;
  std::string m_oldAppPath;
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> m_boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes m_scopedBoxes{m_boxes};
  std::shared_ptr<platform::suite::RecordingErrorReport> m_report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport m_scopedReport{m_report};
};

}  // namespace annotra::testing
