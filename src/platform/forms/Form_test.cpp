#include "platform/forms/Form.h"

#include <gtest/gtest.h>

#include "platform/forms/CommandButton.h"
#include "platform/forms/ScriptedPresenter.h"

namespace platform::forms {
namespace {

/// A form that records its events and can refuse to unload.
class Recorder : public Form {
 public:
  Recorder() : Form("FRecorder", "Recorder") {
    ok.Default = true;
    cancel.Cancel = true;
    ok.Click.Connect([this] { events += "ok "; Hide(); });
    cancel.Click.Connect([this] { events += "cancel "; Hide(); });
  }
  CommandButton ok{*this, "cmdOK", "&OK"};
  CommandButton cancel{*this, "cmdCancel", "&Cancel"};
  std::string events;
  bool refuseClose = false;

 protected:
  void Form_Load() override { events += "load "; }
  void Form_Activate() override { events += "activate "; }
  void Form_QueryUnload(int& c, int mode) override {
    events += "query" + std::to_string(mode) + " ";
    if (refuseClose && mode == vbFormControlMenu) {
      c = 1;
      Hide();
    }
  }
  void Form_Unload(int&) override { events += "unload "; }
};

TEST(FormTest, LifecycleEventsInOrder) {
  Recorder f;
  f.Load();
  f.Load();
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_FALSE(f.IsVisible());
  f.Show();
  EXPECT_TRUE(f.IsVisible());
  EXPECT_TRUE(f.Unload());
  EXPECT_FALSE(f.IsLoaded());
  EXPECT_FALSE(f.IsVisible());
  EXPECT_EQ(f.events, "load activate query1 unload ");
}

TEST(FormTest, ModalShowReturnsWhenTheUserHidesTheForm) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("OK");  // by caption, access key ignored
  ScopedPresenter scope(user);
  Recorder f;
  f.Show(vbModal);
  EXPECT_EQ(f.events, "load activate ok ");
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_EQ(user->log, (std::vector<std::string>{"show Recorder", "modal Recorder", "click cmdOK"}));
}

TEST(FormTest, EnterAndEscapePressDefaultAndCancelButtons) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Key(27);
  ScopedPresenter scope(user);
  Recorder f;
  f.Show(vbModal);
  f.UserKey(13);
  EXPECT_EQ(f.events, "load activate cancel ok ");
}

TEST(FormTest, CloseBoxThatIsRefusedStillEndsTheModalShow) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Close();
  ScopedPresenter scope(user);
  Recorder f;
  f.refuseClose = true;
  f.Show(vbModal);
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_FALSE(f.IsVisible());
  EXPECT_EQ(f.events, "load activate query0 ");
}

TEST(FormTest, ScriptThatRunsOutClosesTheFormThroughItsCloseBox) {
  auto user = std::make_shared<ScriptedPresenter>();
  ScopedPresenter scope(user);
  Recorder f;
  f.Show(vbModal);
  EXPECT_FALSE(f.IsLoaded());
  EXPECT_EQ(f.events, "load activate query0 unload ");
  EXPECT_EQ(user->log.back(), "end Recorder");
}

TEST(FormTest, DisabledOrMissingControlsCannotBeClicked) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("cmdOK").Click("nothing").Click("Cancel");
  ScopedPresenter scope(user);
  Recorder f;
  f.ok.Enabled = false;
  f.Show(vbModal);
  EXPECT_EQ(f.events, "load activate cancel ");
  EXPECT_EQ(user->errors.size(), 2u);
}

}  // namespace
}  // namespace platform::forms
