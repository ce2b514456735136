#include "terminal/EventLoop.h"

#include <algorithm>
#include <chrono>

#include "platform/forms/Clock.h"
#include "platform/forms/DoEvents.h"

namespace app::terminal {

namespace {
int64_t SteadyMilliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
}  // namespace

EventLoop::EventLoop(Terminal& terminal, std::function<int64_t()> now)
    : m_t(terminal), m_now(now ? std::move(now) : SteadyMilliseconds), m_last(m_now()) {}

void EventLoop::Pop(Layer* layer) {
  auto it = std::find(m_layers.begin(), m_layers.end(), layer);
  if (it != m_layers.end()) m_layers.erase(it, m_layers.end());
}

void EventLoop::AdvanceClock() {
  int64_t now = m_now();
  if (now > m_last) platform::forms::Clock::Current().Advance(now - m_last);
  m_last = now;
}

void EventLoop::Redraw() {
  m_t.Clear();
  for (size_t i = 0; i < m_layers.size(); ++i) m_layers[i]->Draw(m_t, i + 1 == m_layers.size());
  m_t.Flush();
}

InputEvent EventLoop::Next(int timeoutMs) {
  if (m_pending.empty()) return m_t.Read(timeoutMs);
  InputEvent e = std::move(m_pending.front());
  m_pending.pop_front();
  return e;
}

bool EventLoop::TakeKey(int keyCode, int shift) {
  // What has arrived: a bounded number of events, so a flood cannot hold the caller.
  for (int i = 0; i < 256; ++i) {
    InputEvent e = m_t.Read(0);
    if (e.kind == InputEvent::None) break;
    m_pending.push_back(std::move(e));
    if (m_pending.back().kind == InputEvent::Closed) break;
  }
  for (auto it = m_pending.begin(); it != m_pending.end(); ++it)
    if (it->kind == InputEvent::Key && it->key == keyCode && it->shift == shift) {
      m_pending.erase(it);
      return true;
    }
  return false;
}

void EventLoop::Run(const std::function<bool()>& running) {
  while (!m_closed && running()) {
    Redraw();
    InputEvent e = Next(kTickMs);
    AdvanceClock();
    if (e.kind == InputEvent::Closed) {
      m_closed = true;
      break;
    }
    if (e.kind != InputEvent::None && e.kind != InputEvent::Resize && !m_layers.empty()) m_layers.back()->Input(e);
    platform::forms::DoEvents();
    if (m_idle) m_idle();
  }
}

}  // namespace app::terminal
