#include "terminal/TerminalKeyboard.h"

#include "terminal/EventLoop.h"
#include "terminal/Terminal.h"

namespace app::terminal {

namespace w = platform::win32;

bool TerminalKeyboard::IsDown(int virtualKey) {
  // A key read a second time during a hold starts the next test: the hold ends.
  if (m_holding && m_readDuringHold.count(virtualKey)) {
    m_holding = false;
    m_readDuringHold.clear();
  }
  if (!m_holding && m_loop.TakeKey('C', mod::Ctrl)) m_holding = true;
  if (!m_holding) return false;
  m_readDuringHold.insert(virtualKey);
  return virtualKey == w::VK_CONTROL || virtualKey == w::VK_C;
}

}  // namespace app::terminal
