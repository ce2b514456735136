#include "platform/suite/Ticklet.h"

#include "platform/core/Error.h"

namespace platform::suite {

Ticklet::Ticklet() : m_clock(&forms::Clock::Current()) {
  m_base = m_clock->Now();
  m_clock->Register(this);
}

Ticklet::~Ticklet() { m_clock->Unregister(this); }

void Ticklet::SetInterval(int32_t milliseconds) {
  if (milliseconds < 0) throw Error(err::kInvalidCall);
  m_interval = milliseconds;
  m_base = m_clock->Now();
}

int64_t Ticklet::DueAt() const { return m_interval > 0 ? m_base + m_interval : -1; }

void Ticklet::Fire() {
  m_base += m_interval;
  ThatTime.Raise();
}

}  // namespace platform::suite
