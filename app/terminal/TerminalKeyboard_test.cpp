#include "terminal/TerminalKeyboard.h"

#include <gtest/gtest.h>

#include "terminal/EventLoop.h"
#include "terminal/MemoryTerminal.h"

using namespace app::terminal;
namespace w = platform::win32;

TEST(TerminalKeyboardTest, CtrlCTypedReadsAsCtrlAndCHeldForOneTestAndOtherKeysWait) {
  MemoryTerminal screen(10, 3);
  EventLoop loop(screen, [&] { return screen.now; });
  TerminalKeyboard keyboard(loop);
  EXPECT_FALSE(keyboard.IsDown(w::VK_C));  // nothing typed yet
  EXPECT_FALSE(keyboard.IsDown(w::VK_CONTROL));
  screen.Key(key::Down);
  screen.Key('C', mod::Ctrl);
  screen.Key(key::Up);
  // The next test: C read first (a new test, since C was read in the one before).
  EXPECT_TRUE(keyboard.IsDown(w::VK_C));
  EXPECT_TRUE(keyboard.IsDown(w::VK_CONTROL));
  EXPECT_FALSE(keyboard.IsDown(w::VK_C));  // read again: the next test, nothing held
  EXPECT_FALSE(keyboard.IsDown(w::VK_CONTROL));
  // The other keys wait for the loop, in order.
  std::vector<int> seen;
  struct Recorder : Layer {
    std::vector<int>& seen;
    explicit Recorder(std::vector<int>& s) : seen(s) {}
    void Draw(Terminal&, bool) override {}
    void Input(const InputEvent& e) override { seen.push_back(e.key); }
  } recorder(seen);
  loop.Push(&recorder);
  loop.Run([&] { return seen.size() < 2; });
  EXPECT_EQ(seen, (std::vector<int>{key::Down, key::Up}));
}
