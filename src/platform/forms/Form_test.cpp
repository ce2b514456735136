#include "platform/forms/Form.h"

#include <gtest/gtest.h>

#include "platform/forms/CommandButton.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/UserControl.h"
#include "platform/win32/WindowStyles.h"

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

/// A panel of two controls, as the pages of a dialog are made.
class Panel : public UserControl {
 public:
  Panel(Control& container, const std::string& name) : UserControl(container, name) {}
  Label caption{*this, "Label2", "&Limit:"};
  TextBox limit{*this, "Text1"};
  CheckBox enabled{*this, "chkEnabled", "&Enabled"};
};

/// A dialog with a labelled box, a panel inside a frame and two buttons, placed as a
/// designer places them: the panel's controls relative to the panel.
class Dialog : public Form {
 public:
  Dialog() : Form("FDialog", "Dialog") {
    ok.Default = true;
    cancel.Cancel = true;
    frame.Move(100, 1000, 3000, 1000);
    panel.Move(50, 200, 2000, 600);
    panel.limit.Move(300, 100, 400, 285);
    name.Move(800, 100, 1500, 285);
    ok.Click.Connect([this] { events += "ok "; });
    cancel.Click.Connect([this] { events += "cancel "; });
    help.Click.Connect([this] { events += "help "; });
    for (Control* c : std::initializer_list<Control*>{&panel, &panel.limit, &name, &help}) {
      c->GotFocus.Connect([this, c] { events += "+" + c->Name + " "; });
      c->LostFocus.Connect([this, c] { events += "-" + c->Name + " "; });
    }
  }
  Label label{*this, "Label1", "&Name:"};
  TextBox name{*this, "txtName"};
  Frame frame{*this, "Frame1"};
  Panel panel{frame, "ctlPanel1"};
  CommandButton help{*this, "cmdHelp", "&Help"};
  CommandButton ok{*this, "cmdOK", "OK"};
  CommandButton cancel{*this, "cmdCancel", "Cancel"};
  std::string events;
};

TEST(FormContainers, ContainedControlsArePlacedFoundAndReachedThroughTheirContainers) {
  Dialog d;
  EXPECT_EQ(d.panel.limit.FormLeft(), 100 + 50 + 300);
  EXPECT_EQ(d.panel.limit.FormTop(), 1000 + 200 + 100);
  EXPECT_EQ(d.FindControl("ctlPanel1.Text1"), &d.panel.limit);
  EXPECT_EQ(d.FindControl("Frame1.ctlPanel1.Text1"), &d.panel.limit);
  EXPECT_EQ(d.FindControl("Text1"), &d.panel.limit);
  EXPECT_EQ(d.ControlAt(460, 1310), &d.panel.limit);  // the innermost control
  EXPECT_EQ(d.ControlAt(160, 1210), &d.panel);
  EXPECT_EQ(d.ControlAt(5000, 5000), nullptr);

  d.frame.Visible = false;
  EXPECT_FALSE(d.panel.limit.Reachable());
  EXPECT_FALSE(d.panel.limit.Shown());
  EXPECT_EQ(d.ControlAt(460, 1310), nullptr);
  d.frame.Visible = true;
  d.panel.Enabled = false;
  EXPECT_TRUE(d.panel.limit.Shown());
  EXPECT_FALSE(d.panel.limit.UserType("5"));
  EXPECT_FALSE(d.SetFocus(d.panel.limit));
}

TEST(FormContainers, TabOrderFollowsTabIndexWithinEachContainerAndSkipsLabels) {
  Dialog d;
  auto names = [&] {
    std::string s;
    for (Control* c : d.TabOrder()) s += c->Name + " ";
    return s;
  };
  EXPECT_EQ(names(), "txtName Text1 chkEnabled cmdHelp cmdOK cmdCancel ");
  d.panel.enabled.TabIndex = 0;
  d.panel.limit.TabIndex = 1;
  d.frame.TabIndex = 9;  // the frame's controls now come last
  EXPECT_EQ(names(), "txtName cmdHelp cmdOK cmdCancel chkEnabled Text1 ");
}

TEST(FormContainers, FocusMovingInAndOutOfAPanelRaisesItsGotAndLostFocus) {
  Dialog d;
  d.SetFocus(d.name);
  d.UserKey(9);  // Tab: into the panel
  d.UserKey(9);  // within the panel
  d.UserKey(9);  // out of it
  d.UserKey(9, 1);  // Shift+Tab: back in
  EXPECT_EQ(d.events,
            "+txtName -txtName +ctlPanel1 +Text1 -Text1 -ctlPanel1 +cmdHelp -cmdHelp +ctlPanel1 ");
  EXPECT_EQ(d.ActiveControl(), &d.panel.enabled);
}

TEST(FormContainers, AccessKeysFocusWhatTheyNameAndLabelsHandTheFocusOn) {
  Dialog d;
  EXPECT_TRUE(d.UserAccessKey('N'));  // the label "&Name:" focuses the box after it
  EXPECT_EQ(d.ActiveControl(), &d.name);
  EXPECT_TRUE(d.UserAccessKey('l'));
  EXPECT_EQ(d.ActiveControl(), &d.panel.limit);
  EXPECT_TRUE(d.UserAccessKey('e'));  // a check box is focused and clicked
  EXPECT_EQ(d.panel.enabled.Value, 1);
  EXPECT_TRUE(d.UserAccessKey('h'));
  EXPECT_FALSE(d.UserAccessKey('z'));
  EXPECT_EQ(AccessKeyOf("Fish && &Chips"), 'c');
  EXPECT_EQ(AccessKeyOf("No key"), 0);
}

TEST(FormContainers, ALabelNamesTheControlThatSharesItsTabIndex) {
  Dialog d;
  d.panel.enabled.TabIndex = 0;
  d.panel.caption.TabIndex = 1;  // the label "&Limit:" and its box share a place
  d.panel.limit.TabIndex = 1;
  EXPECT_TRUE(d.UserAccessKey('l'));
  EXPECT_EQ(d.ActiveControl(), &d.panel.limit);
}

/// A dialog that records where the mouse goes.
class MouseDialog : public Dialog {
 public:
  MouseDialog() {
    for (Control* c : std::initializer_list<Control*>{&frame, &panel, &panel.limit, &name})
      c->MouseMove.Connect([this, c](int, int, int x, int y) {
        moves += c->Name + "@" + std::to_string(x) + "," + std::to_string(y) + " ";
      });
  }
  std::string moves;

 protected:
  void Form_MouseMove(int, int, float x, float y) override {
    moves += "form@" + std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y)) + " ";
  }
};

TEST(FormContainers, AMouseMoveAtAPointReachesTheControlThereAtItsOwnCoordinates) {
  MouseDialog d;
  d.UserMouseMove(460, 1310);  // the box inside the panel inside the frame
  d.UserMouseMove(160, 1210);  // the panel around it
  d.UserMouseMove(5000, 50);   // the bare form
  d.panel.limit.Enabled = false;
  d.UserMouseMove(460, 1310);  // a disabled box leaves the move to its panel
  d.panel.Enabled = false;
  d.UserMouseMove(460, 1310);  // a disabled panel leaves it to the frame
  EXPECT_EQ(d.moves, "Text1@10,10 ctlPanel1@10,10 form@5000,50 ctlPanel1@310,110 Frame1@360,310 ");
}

TEST(FormContainers, EnterClicksTheFocusedButtonElseTheDefaultOneUnlessAHandlerTookIt) {
  Dialog d;
  d.SetFocus(d.help);
  d.UserKey(13);
  d.SetFocus(d.name);
  d.UserKey(13);
  d.name.KeyDown.Connect([](int& key, int&) {
    if (key == 13) key = 0;
  });
  d.UserKey(13);
  d.UserKey(27);
  EXPECT_EQ(d.events, "+cmdHelp help -cmdHelp +txtName ok cancel ");
}

TEST(FormContainers, ABoxTakesDigitsOnlyOnceItsWindowStyleSaysSo) {
  Dialog d;
  EXPECT_TRUE(d.name.UserType("a1-"));
  EXPECT_EQ(d.name.Text(), "a1-");
  win32::SetWindowLongA(d.name.hWnd(), win32::GWL_STYLE,
                        win32::GetWindowLongA(d.name.hWnd(), win32::GWL_STYLE) | win32::ES_NUMBER);
  EXPECT_TRUE(d.name.DigitsOnly());
  EXPECT_TRUE(d.name.UserType("2b+3"));
  EXPECT_EQ(d.name.Text(), "a1-23");
}

}  // namespace
}  // namespace platform::forms
