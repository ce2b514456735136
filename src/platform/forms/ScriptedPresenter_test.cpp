#include "platform/forms/ScriptedPresenter.h"

#include <gtest/gtest.h>

#include "platform/forms/CommandButton.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/Form.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "platform/win32/WindowStyles.h"

namespace platform::forms {
namespace {

class Dialog : public Form {
 public:
  Dialog() : Form("FDialog", "Dialog") {
    ok.Click.Connect([this] { Hide(); });
    more.Click.Connect([this] {
      Dialog inner;
      inner.Caption = "Inner";
      inner.Show(vbModal);
      innerText = inner.text.Text();
    });
    timer.Tick.Connect([this] { ticks++; });
    win32::SetWindowLongA(text.hWnd(), win32::GWL_STYLE,
                          win32::GetWindowLongA(text.hWnd(), win32::GWL_STYLE) | win32::ES_NUMBER);
  }
  CommandButton ok{*this, "cmdOK", "&OK"};
  CommandButton more{*this, "cmdMore", "&More..."};
  TextBox text{*this, "Text1"};
  Timer timer{*this, "Timer1"};
  int ticks = 0;
  std::string innerText;
};

TEST(ScriptedPresenterTest, TypesIntoTheFocusedBoxAndWaitsOnTheClock) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Focus("Text1").Type("1a2\b3").Wait(250).Click("cmdOK");
  ScopedPresenter scope(user);
  Dialog d;
  d.timer.SetInterval(100);
  d.timer.SetEnabled(true);
  int changes = 0;
  d.text.Change.Connect([&] { ++changes; });
  d.Show(vbModal);
  EXPECT_EQ(d.text.Text(), "13");  // digits only; the backspace took the 2
  EXPECT_EQ(changes, 4);
  EXPECT_EQ(d.ticks, 2);
  EXPECT_TRUE(user->errors.empty());
}

TEST(ScriptedPresenterTest, WaitRunsPendingMessages) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Wait(0).Click("cmdOK");
  ScopedPresenter scope(user);
  Dialog d;
  bool ran = false;
  PostAction([&] { ran = true; });
  d.Show(vbModal);
  EXPECT_TRUE(ran);
}

TEST(ScriptedPresenterTest, NestedModalFormsTakeTheNextActions) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("More...").Focus("Text1").Type("42").Click("OK").Click("OK");
  ScopedPresenter scope(user);
  Dialog d;
  d.Show(vbModal);
  EXPECT_EQ(d.innerText, "42");
  EXPECT_FALSE(d.IsVisible());
  EXPECT_EQ(user->Pending(), 0u);
  EXPECT_EQ(user->log, (std::vector<std::string>{"show Dialog", "modal Dialog", "click cmdMore",
                                                 "show Inner", "modal Inner", "click cmdOK",
                                                 "click cmdOK"}));
}

}  // namespace
}  // namespace platform::forms
