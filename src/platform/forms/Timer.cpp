#include "platform/forms/Timer.h"

#include "platform/forms/Clock.h"

namespace platform::forms {

Timer::Timer(Form& owner, std::string name)
    : Control(owner, std::move(name)), m_clock(&Clock::Current()) {
  Enabled = false;
  m_base = m_clock->Now();
  m_clock->Register(this);
}

Timer::~Timer() { m_clock->Unregister(this); }

void Timer::SetInterval(int milliseconds) {
  m_interval = milliseconds < 0 ? 0 : milliseconds;
  m_base = m_clock->Now();
}

void Timer::SetEnabled(bool enabled) {
  if (enabled && !Enabled) m_base = m_clock->Now();
  Enabled = enabled;
}

int64_t Timer::DueAt() const {
  if (!Enabled || m_interval <= 0) return -1;
  return m_base + m_interval;
}

void Timer::Fire() {
  m_base += m_interval;
  Tick.Raise();
}

Clock& Clock::Current() {
  static Clock clock;
  return clock;
}

void Clock::Register(ClockTimer* timer) { m_timers.push_back(timer); }

void Clock::Unregister(ClockTimer* timer) {
  for (auto& t : m_timers)
    if (t == timer) t = nullptr;
}

void Clock::Advance(int64_t milliseconds) {
  int64_t target = m_now + (milliseconds > 0 ? milliseconds : 0);
  for (;;) {
    ClockTimer* next = nullptr;
    int64_t due = 0;
    for (ClockTimer* t : m_timers) {
      if (!t) continue;
      int64_t d = t->DueAt();
      if (d >= 0 && d <= target && (!next || d < due)) next = t, due = d;
    }
    if (!next) break;
    m_now = due;
    next->Fire();
  }
  m_now = target;
  std::erase(m_timers, nullptr);
}

}  // namespace platform::forms
