#pragma once
#include <cstdint>

#include "platform/core/Event.h"
#include "platform/forms/Clock.h"
#include "platform/forms/Control.h"

namespace platform::forms {

/// A timer control: while enabled with an interval above 0, raises Tick every
/// Interval milliseconds of the presenter's clock, counted from when it was enabled or
/// its interval set.
class Timer : public Control, public ClockTimer {
 public:
  Timer(Form& owner, std::string name);
  ~Timer() override;
  const char* TypeName() const override { return "Timer"; }
  bool CanFocus() const override { return false; }
  bool UserClick() override { return false; }

  int Interval() const { return m_interval; }
  void SetInterval(int milliseconds);
  bool IsEnabled() const { return Enabled; }
  void SetEnabled(bool enabled);

  platform::Event<> Tick;

  /// When it falls due next; negative when it does not run.
  int64_t DueAt() const override;
  /// Raises Tick and sets the next due time (for the clock).
  void Fire() override;

 private:
  Clock* m_clock;
  int m_interval = 0;
  int64_t m_base = 0;
};

}  // namespace platform::forms
