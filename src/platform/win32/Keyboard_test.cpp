#include "platform/win32/Keyboard.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace platform::win32;

namespace {
bool CtrlC(KeyboardState& k) { return k.IsDown(VK_C) && k.IsDown(VK_CONTROL); }
}  // namespace

TEST(SigintKeyboard, AnInterruptHoldsCtrlAndCUntilTheNextTest) {
  SigintKeyboard keyboard;
  EXPECT_FALSE(CtrlC(keyboard));
  std::raise(SIGINT);
  EXPECT_TRUE(CtrlC(keyboard));   // the test right after the interrupt
  EXPECT_FALSE(CtrlC(keyboard));  // and only that one
  EXPECT_FALSE(keyboard.IsDown(65));
  std::raise(SIGINT);
  EXPECT_FALSE(keyboard.IsDown(65));  // other keys are never down
  EXPECT_TRUE(keyboard.IsDown(VK_CONTROL));
}

TEST(ScriptedKeyboard, HoldsCtrlCForTheNumberOfTestsAsked) {
  auto keyboard = std::make_shared<ScriptedKeyboard>();
  auto previous = KeyboardState::Install(keyboard);
  keyboard->HoldCtrlC(2);
  auto down = [] { return (GetAsyncKeyState(VK_C) & 0x8000) && (GetAsyncKeyState(VK_CONTROL) & 0x8000); };
  EXPECT_TRUE(down());
  EXPECT_TRUE(down());
  EXPECT_FALSE(down());
  EXPECT_EQ(keyboard->tests(), 3);
  KeyboardState::Install(previous);
}
