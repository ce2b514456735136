#pragma once
#include <cstdint>
#include <vector>

namespace platform::forms {

class Timer;

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

  void Register(Timer* timer);
  void Unregister(Timer* timer);

 private:
  int64_t m_now = 0;
  std::vector<Timer*> m_timers;
};

}  // namespace platform::forms
