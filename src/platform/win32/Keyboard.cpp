#include "platform/win32/Keyboard.h"

#include <atomic>
#include <csignal>

namespace platform::win32 {
namespace {

std::atomic<uint64_t> g_interrupts{0};

extern "C" void OnSigint(int) { g_interrupts.fetch_add(1, std::memory_order_relaxed); }

std::shared_ptr<KeyboardState>& Slot() {
  static std::shared_ptr<KeyboardState> k = std::make_shared<SigintKeyboard>();
  return k;
}

bool IsCtrlOrC(int vk) { return vk == VK_CONTROL || vk == VK_C; }

}  // namespace

KeyboardState& KeyboardState::Current() { return *Slot(); }

std::shared_ptr<KeyboardState> KeyboardState::Install(std::shared_ptr<KeyboardState> k) {
  auto previous = Slot();
  Slot() = k ? std::move(k) : std::make_shared<SigintKeyboard>();
  return previous;
}

int16_t GetAsyncKeyState(int virtualKey) {
  return KeyboardState::Current().IsDown(virtualKey) ? static_cast<int16_t>(0x8000) : 0;
}

SigintKeyboard::SigintKeyboard() {
  static bool installed = false;
  if (!installed) {
    installed = true;
    struct sigaction sa {};
    sa.sa_handler = OnSigint;
    sigemptyset(&sa.sa_mask);
    sigaction(SIGINT, &sa, nullptr);
  }
}

bool SigintKeyboard::IsDown(int virtualKey) {
  // A key read a second time during a hold starts the next test: the hold ends.
  if (m_holding && m_readDuringHold.count(virtualKey)) {
    m_holding = false;
    m_readDuringHold.clear();
  }
  if (!m_holding) {
    uint64_t seen = g_interrupts.load(std::memory_order_relaxed);
    if (seen > m_consumed) {
      m_consumed = seen;
      m_holding = true;
    }
  }
  if (!m_holding) return false;
  m_readDuringHold.insert(virtualKey);
  return IsCtrlOrC(virtualKey);
}

bool ScriptedKeyboard::IsDown(int virtualKey) {
  if (!m_inTest || m_read.count(virtualKey)) {
    m_inTest = true;
    m_read.clear();
    ++m_tests;
    m_holding = m_remaining > 0;
    if (m_holding) --m_remaining;
  }
  m_read.insert(virtualKey);
  return m_holding && IsCtrlOrC(virtualKey);
}

}  // namespace platform::win32
