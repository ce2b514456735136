#pragma once
#include <cstdint>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"
#include "platform/forms/Clock.h"

namespace platform::suite {

/// The suite's timer: no control on a form, but an object code makes when it first needs
/// one. While its interval is above 0 it raises ThatTime every Interval milliseconds of
/// the presenters' clock, counted from when the interval was set; an interval of 0 stops
/// it. Setting the interval, even to the value it has, starts the count afresh.
class Ticklet : public Dispatch, public forms::ClockTimer {
 public:
  Ticklet();
  ~Ticklet() override;
  Ticklet(const Ticklet&) = delete;
  Ticklet& operator=(const Ticklet&) = delete;
  const char* TypeName() const override { return "Ticklet"; }

  int32_t Interval() const { return m_interval; }
  /// Sets the interval in milliseconds; 0 stops the timer. Fails with 5 (invalid
  /// procedure call or argument) for a negative interval, leaving the timer as it was.
  void SetInterval(int32_t milliseconds);

  /// The interval has elapsed.
  Event<> ThatTime;

  int64_t DueAt() const override;
  void Fire() override;

 private:
  forms::Clock* m_clock;
  int32_t m_interval = 0;
  int64_t m_base = 0;
};

}  // namespace platform::suite
