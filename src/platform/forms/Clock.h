#pragma once
#include <cstdint>
#include <vector>

namespace platform::forms {

/// Something that falls due on the clock: a timer control on a form, or a timer that is
/// no control (the suite's timers, made by code when first needed).
class ClockTimer {
 public:
  virtual ~ClockTimer() = default;
  /// When it falls due next; negative when it does not run.
  virtual int64_t DueAt() const = 0;
  /// Raises its event and sets its next due time (for the clock).
  virtual void Fire() = 0;
};

/// The presenters' clock: milliseconds that pass only when the presenter lets them
/// (a scripted wait, or an interactive presenter's real time). Timers run on it.
class Clock {
 public:
  /// The one clock of the process.
  static Clock& Current();

  int64_t Now() const { return m_now; }
  /// Lets `milliseconds` pass, raising every due timer in the order they fall due (a
  /// timer due several times is raised each time).
  void Advance(int64_t milliseconds);

  /// A timer registers when made and unregisters when destroyed; one that unregisters
  /// while the clock raises timers is not raised again.
  void Register(ClockTimer* timer);
  void Unregister(ClockTimer* timer);

 private:
  int64_t m_now = 0;
  std::vector<ClockTimer*> m_timers;
};

}  // namespace platform::forms
