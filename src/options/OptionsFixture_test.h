#pragma once
// The options dialog and its pages are tested in the per-user setting of
// UserSettingsFixture, played by a scripted user.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "options/FOptions.h"
#include "platform/core/Variant.h"
#include "platform/forms/ScriptedPresenter.h"
#include "testsupport/UserSettingsFixture.h"

namespace annotra::testing {

/// A test of the options dialog or a page of it, with a scripted user to play it.
class OptionsFixture : public testsupport::UserSettingsFixture {
 protected:
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

};

}  // namespace annotra::testing
