#include "platform/forms/ScriptedPresenter.h"

#include <gtest/gtest.h>

#include "platform/forms/CommandButton.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/Form.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "platform/forms/Clock.h"
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

/// A timer that is no control: it counts its own firings and stops after `shots`.
class CountingTimer : public ClockTimer {
 public:
  CountingTimer(int64_t due, int shots) : m_due(due), m_shots(shots) { Clock::Current().Register(this); }
  ~CountingTimer() override { Clock::Current().Unregister(this); }
  int64_t DueAt() const override { return fired < m_shots ? m_due : -1; }
  void Fire() override {
    ++fired;
    m_due += 100;
  }
  int fired = 0;

 private:
  int64_t m_due;
  int m_shots;
};

TEST(ScriptedPresenterTest, TimersThatAreNoControlsRunOnTheSameClock) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Wait(250).Click("cmdOK");
  ScopedPresenter scope(user);
  Dialog d;
  d.timer.SetInterval(100);
  d.timer.SetEnabled(true);
  CountingTimer counting(Clock::Current().Now() + 50, 2);
  auto gone = std::make_unique<CountingTimer>(Clock::Current().Now() + 10, 5);
  d.timer.Tick.Connect([&] { gone.reset(); });  // unregisters while the clock runs
  d.Show(vbModal);
  EXPECT_EQ(d.ticks, 2);
  EXPECT_EQ(counting.fired, 2);  // at 50 and 150, then it stops
}

TEST(ScriptedPresenterTest, AMouseMoveAtAPointGoesToTheControlThere) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->MouseMoveAt(1100, 1050).Click("cmdOK");
  ScopedPresenter scope(user);
  Dialog d;
  d.text.Move(1000, 1000, 600, 285);
  std::string seen;
  d.text.MouseMove.Connect([&](int, int, int x, int y) { seen = std::to_string(x) + "," + std::to_string(y); });
  d.Show(vbModal);
  EXPECT_EQ(seen, "100,50");
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
