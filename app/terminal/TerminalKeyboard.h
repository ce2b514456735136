#pragma once
#include <set>

#include "platform/win32/Keyboard.h"

namespace app::terminal {

class EventLoop;

/// The keyboard state on a terminal, where keys arrive as input rather than as states:
/// Ctrl+C typed (raw keys: no signal) reads as Ctrl and C held down until the next
/// test, a test being the run of reads up to the first key read twice; only Ctrl and C
/// are ever down. Reading looks at the keys typed so far without waiting and leaves
/// every other key for the event loop.
class TerminalKeyboard : public platform::win32::KeyboardState {
 public:
  explicit TerminalKeyboard(EventLoop& loop) : m_loop(loop) {}
  bool IsDown(int virtualKey) override;

 private:
  EventLoop& m_loop;
  bool m_holding = false;
  std::set<int> m_readDuringHold;
};

}  // namespace app::terminal
