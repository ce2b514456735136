#include "platform/suite/FormHelper.h"

#include <gtest/gtest.h>

#include "platform/forms/Form.h"
#include "platform/suite/IniSettingsStore.h"
#include "testsupport/TempDir.h"

namespace platform::suite {
namespace {

TEST(FormHelperTest, RestoresOnLoadAndRemembersOnUnload) {
  testsupport::TempDir dir;
  auto store = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
  forms::Form form("FCCOptions");
  form.Left = 10;
  form.Width = 300;
  {
    FormHelper helper;
    helper.Init(store, true);
    helper.HandForm(form);  // nothing stored yet: unchanged
    EXPECT_EQ(form.Left, 10);
    form.Left = 120;
    form.Top = 45;
    helper.HandForm(form);
  }
  EXPECT_EQ(store->Read("Forms\\FCCOptions", "Left", 0), Variant(120));
  EXPECT_EQ(store->Read("Forms\\FCCOptions", "Width", 0), Variant(300));
  forms::Form again("FCCOptions");
  FormHelper helper;
  helper.Init(store, false);
  helper.HandForm(again);
  EXPECT_EQ(again.Left, 120);
  EXPECT_EQ(again.Top, 45);
  EXPECT_EQ(again.Width, 0);  // the size only when asked for
  store->Write("Forms\\FCCOptions", "Top", "abc");
  forms::Form third("FCCOptions");
  FormHelper h3;
  h3.Init(store, true);
  h3.HandForm(third);
  EXPECT_EQ(third.Top, 0);
  EXPECT_EQ(third.Width, 300);
}

}  // namespace
}  // namespace platform::suite
