// Cancelling a project walk with Ctrl+C: the question asked, and where the walk stops.

#include <gtest/gtest.h>

#include "testsupport/WalkFixture.h"
#include "platform/win32/Keyboard.h"

namespace annotra::walktest {
namespace {

/// Installs a keyboard for the life of the object and puts the previous one back after.
class ScopedKeyboard {
 public:
  explicit ScopedKeyboard(std::shared_ptr<platform::win32::KeyboardState> k)
      : m_previous(platform::win32::KeyboardState::Install(std::move(k))) {}
  ~ScopedKeyboard() { platform::win32::KeyboardState::Install(m_previous); }
  ScopedKeyboard(const ScopedKeyboard&) = delete;
  ScopedKeyboard& operator=(const ScopedKeyboard&) = delete;

 private:
  std::shared_ptr<platform::win32::KeyboardState> m_previous;
};

class CancelTest : public WalkTest {
 protected:
  void SetUp() override {
    WalkTest::SetUp();
    // A project of three files of one class each, followed by Last.
    dir.Write("Three/Three.csproj", SdkProjectFile());
    for (const char* name : {"A", "B", "C"})
      dir.Write(std::string("Three/") + name + ".cs", std::string("class ") + name + " { }\n");
    Load(dir.Write("Cancel.slnx", SlnxText({{"Three/Three.csproj"}, {"Last/Last.vbproj"}})));
    MGlobals::g_AnalysisOptions.EnableBody = false;
  }
  std::shared_ptr<platform::win32::ScriptedKeyboard> keyboard =
      std::make_shared<platform::win32::ScriptedKeyboard>();
  ScopedKeyboard scopedKeyboard{keyboard};
};

TEST_F(CancelTest, CtrlCAsksOncePerItemNoGoesOnYesStopsBeforeTheItem) {
  keyboard->HoldCtrlC(2);
  boxes->answers = {platform::forms::vbNo, platform::forms::vbYes};
  browser.Walk(4);
  // A was asked about and walked; the walk stopped before B, and Last was not entered.
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A"}));
  EXPECT_TRUE(browser.Cancelled());
  ASSERT_EQ(boxes->shown.size(), 2u);
  for (const auto& box : boxes->shown) {
    EXPECT_EQ(box.prompt, "Do you want to stop the current operation?");
    EXPECT_EQ(box.style, platform::forms::vbYesNo | platform::forms::vbDefaultButton2 |
                             platform::forms::vbExclamation);
    EXPECT_EQ(box.title, "Scribane");
  }
  EXPECT_FALSE(dte->StatusBar()->inProgress());
}

TEST_F(WalkTest, ACancelInsideANestedSubProjectEndsTheWholeSolutionWalk) {
  auto keyboard = std::make_shared<platform::win32::ScriptedKeyboard>();
  ScopedKeyboard scoped(keyboard);
  keyboard->HoldCtrlC(100);
  // The nine items of App, then Cli.cs of Tools (in Libraries\Inner): No; Helper.cs: Yes.
  boxes->answers.assign(10, platform::forms::vbNo);
  boxes->answers.push_back(platform::forms::vbYes);
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  Lines expected = kApp;
  expected.insert(expected.end(), kTools.begin(), kTools.begin() + 3);  // Cli.cs
  EXPECT_EQ(browser.Trace(), expected);
  EXPECT_EQ(boxes->shown.size(), 11u);
  EXPECT_TRUE(browser.Cancelled());
}

TEST_F(CancelTest, AnsweringNoEveryTimeWalksEverything) {
  keyboard->HoldCtrlC(100);
  boxes->answers = {};  // the default button: No
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A", "B.cs:B", "C.cs:C", "Main.vb:Entry", "Main.vb:Start"}));
  EXPECT_FALSE(browser.Cancelled());
  EXPECT_EQ(boxes->shown.size(), 4u);  // one per item: A, B, C and Main.vb
}

TEST_F(CancelTest, OnlyProjectWalksCanBeCancelled) {
  auto a = OpenInHost(ItemAt(P("Three"), "A.cs"), true);
  keyboard->HoldCtrlC(100);
  boxes->answers = {platform::forms::vbYes, platform::forms::vbYes, platform::forms::vbYes};
  for (int scope : {0, 1, 2}) browser.Walk(scope);
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A", "A.cs:A"}));  // document and open documents
  EXPECT_TRUE(boxes->shown.empty());
  // Without the keys held a project walk asks nothing.
  keyboard->HoldCtrlC(0);
  browser.calls.clear();
  browser.Walk(4);
  EXPECT_EQ(browser.calls.size(), 5u);
  EXPECT_TRUE(boxes->shown.empty());
}

}  // namespace
}  // namespace annotra::walktest
