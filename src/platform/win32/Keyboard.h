#pragma once
#include <cstdint>
#include <memory>
#include <set>

namespace platform::win32 {

constexpr int VK_CONTROL = 17;
constexpr int VK_C = 67;

/// Which keys are held down at this moment.
class KeyboardState {
 public:
  virtual ~KeyboardState() = default;
  virtual bool IsDown(int virtualKey) = 0;

  /// The keyboard in use (SigintKeyboard until another is installed).
  static KeyboardState& Current();
  static std::shared_ptr<KeyboardState> Install(std::shared_ptr<KeyboardState> k);
};

/// The state of a key as GetAsyncKeyState gives it: the high bit (0x8000) set when the
/// key is down.
int16_t GetAsyncKeyState(int virtualKey);

/// The terminal's keyboard: Ctrl+C arrives as SIGINT and reads as Ctrl and C held down
/// until the next test, that is, until a key already read since the interrupt is read
/// again. Only Ctrl and C are ever down.
class SigintKeyboard : public KeyboardState {
 public:
  /// Installs the SIGINT handler (once per process).
  SigintKeyboard();
  bool IsDown(int virtualKey) override;

 private:
  uint64_t m_consumed = 0;
  bool m_holding = false;
  std::set<int> m_readDuringHold;
};

/// A keyboard for tests: `holdFor[n]` keys are held during the n-th test; a test is the
/// run of reads up to the first key read twice.
class ScriptedKeyboard : public KeyboardState {
 public:
  bool IsDown(int virtualKey) override;
  /// Holds Ctrl and C for the next `tests` tests.
  void HoldCtrlC(int tests = 1) { m_remaining = tests; }
  int tests() const { return m_tests; }

 private:
  int m_remaining = 0;
  int m_tests = 0;
  bool m_inTest = false;
  bool m_holding = false;
  std::set<int> m_read;
};

}  // namespace platform::win32
