// End to end: `annotra pane` on the sample solution in a real terminal (tmux), a whole
// review done as a person does it, with the keyboard alone and with the mouse alone.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <regex>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <thread>

#include "terminal/TmuxSession_test.h"
#include "testsupport/TempDir.h"

using app::terminal::testing::TmuxSession;

namespace {

class PaneTmuxTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The person's editor: notes how it was called.
    editor = home.Write("bin/editor", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$(dirname \"$0\")/called\"\n");
    chmod(editor.c_str(), 0755);
  }
  std::unique_ptr<TmuxSession> Start(const std::string& solution = std::string(ANNOTRA_SOURCE_DIR) + "/samples/Demo.sln") {
    std::string command = "env TERM=xterm-256color LANG=C.UTF-8 ANNOTRA_HOME=" + TmuxSession::Quote(home.path().string()) +
                          " VISUAL=" + TmuxSession::Quote(editor.string()) + " " + ANNOTRA_BINARY + " pane " +
                          TmuxSession::Quote(solution) +
                          " & wait $!; echo EXIT=$?; echo \"TTY=$(stty -a | tr -s ' ;' '\\n\\n' | "
                          "grep -E '^-?(icanon|echo)$' | tr '\\n' ' ')\"; echo SHELL-DONE; exec sleep 600";
    return std::make_unique<TmuxSession>(command);
  }
  static void ExpectRestored(const TmuxSession& t) {
    ASSERT_TRUE(t.WaitFor("SHELL-DONE")) << t.Screen();
    EXPECT_NE(t.Screen().find("EXIT=0\n"), std::string::npos) << t.Screen();
    EXPECT_NE(t.Screen().find("TTY=icanon echo"), std::string::npos) << t.Screen();
    EXPECT_EQ(t.Format("#{alternate_on} #{mouse_any_flag} #{mouse_all_flag} #{cursor_flag}"), "0 0 0 1");
  }
  // The lines of the screen that hold `mark`, top first.
  static std::vector<std::string> LinesWith(const TmuxSession& t, const std::string& mark) {
    std::vector<std::string> out;
    std::string screen = t.Screen();
    for (size_t begin = 0; begin < screen.size();) {
      size_t end = screen.find('\n', begin);
      std::string line = screen.substr(begin, end - begin);
      if (line.find(mark) != std::string::npos) out.push_back(line);
      if (end == std::string::npos) break;
      begin = end + 1;
    }
    return out;
  }
  // The editor window's marked line: the second line with the current-row mark (the
  // first is the grid's current row).
  static std::string MarkedCode(const TmuxSession& t) {
    auto lines = LinesWith(t, "│▶");
    return lines.size() >= 2 ? lines[1] : "";
  }
  static bool WaitForFile(const std::filesystem::path& p) {
    for (int i = 0; i < 400; ++i) {
      if (std::filesystem::exists(p)) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    return false;
  }

  testsupport::TempDir home;
  std::filesystem::path editor;
};

}  // namespace

TEST_F(PaneTmuxTest, AReviewWithTheKeyboardAlone) {
  auto t = Start();
  // The empty pane at start.
  ASSERT_TRUE(t->WaitFor("┌─ Annotra - by Scribane ─")) << t->Screen();
  ASSERT_TRUE(t->WaitFor("No document")) << t->Screen();
  EXPECT_NE(t->Screen().find(" New  Refresh │ Previous  Next │"), std::string::npos);
  EXPECT_EQ(t->Screen().find("problems)"), std::string::npos);

  // A new analysis through the options dialog: the scope, a check box, Begin.
  t->Keys({"C-n"});
  ASSERT_TRUE(t->WaitFor("Definition Comments")) << t->Screen();
  t->Keys({"e"});  // the scope selector has the focus: "Entire solution"
  ASSERT_TRUE(t->WaitFor("Entire solution")) << t->Screen();
  t->Keys({"Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Space"});  // to "Accept <inheritdoc/>"
  ASSERT_TRUE(t->WaitFor("[x] Accept")) << t->Screen();
  t->Keys({"M-b"});
  ASSERT_TRUE(t->WaitFor("Annotra - by Scribane (17 problems)")) << t->Screen();

  // Grouping by Problem through the context menu: "Group by..." and the dialog.
  t->Keys({"F10"});
  ASSERT_TRUE(t->WaitFor("Group by...")) << t->Screen();
  t->Keys({"b"});
  ASSERT_TRUE(t->WaitFor("Group by the checked columns")) << t->Screen();
  t->Keys({"End", "Space", "Enter"});
  ASSERT_TRUE(t->WaitFor("Problem: Code elements without definition comments.")) << t->Screen();

  // Enter on a finding: its line in the editor window, the row visited (Flag 2).
  t->Keys({"Down", "Enter"});
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return !MarkedCode(*t).empty(); })) << t->Screen();
  std::string first = MarkedCode(*t);
  EXPECT_TRUE(std::regex_search(LinesWith(*t, "│▶").front(), std::regex("▶ +2 ")));
  // Next and Previous.
  t->Keys({"n"});
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return MarkedCode(*t) != first; })) << t->Screen();
  t->Keys({"p"});
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return MarkedCode(*t) == first; })) << t->Screen();
  // The person's editor at the line.
  t->Keys({"e"});
  ASSERT_TRUE(WaitForFile(home.path() / "bin/called"));
  EXPECT_TRUE(std::regex_match(testsupport::ReadFile(home.path() / "bin/called"), std::regex("\\+[0-9]+\\|/.*\\.(cs|vb)\\|")));

  // Saved to a file and loaded back.
  t->Keys({"C-s"});
  ASSERT_TRUE(t->WaitFor("Save this Annotra pane contents as")) << t->Screen();
  t->Bytes((home.path() / "review").string());
  t->Keys({"Enter"});
  ASSERT_TRUE(WaitForFile(home.path() / "review.xmm"));
  ASSERT_TRUE(t->WaitUntil([](const std::string& s) { return s.find("Save this Annotra") == std::string::npos; }));
  t->Keys({"C-o"});
  ASSERT_TRUE(t->WaitFor("Select the file to load in the Annotra pane")) << t->Screen();
  t->Bytes((home.path() / "review.xmm").string());
  t->Keys({"Enter"});
  ASSERT_TRUE(t->WaitFor("Annotra - by Scribane (17 matches)")) << t->Screen();

  t->Keys({"q"});
  ExpectRestored(*t);
}

TEST_F(PaneTmuxTest, AReviewWithTheMouseAlone) {
  auto t = Start();
  ASSERT_TRUE(t->WaitFor(" New  Refresh ")) << t->Screen();
  auto newButton = t->Find(" New ");
  t->Click(newButton.first + 2, newButton.second);
  ASSERT_TRUE(t->WaitFor("Definition Comments")) << t->Screen();
  auto scope = t->Find("Current method");
  t->Click(scope.first, scope.second);
  ASSERT_TRUE(t->WaitFor("Entire solution")) << t->Screen();
  auto entire = t->Find("Entire solution");
  t->Click(entire.first + 1, entire.second);
  ASSERT_TRUE(t->WaitUntil([](const std::string& s) { return s.find("Current project") == std::string::npos; }));
  auto begin = t->Find("Begin >>");
  t->Click(begin.first + 1, begin.second);
  ASSERT_TRUE(t->WaitFor("(17 problems)")) << t->Screen();

  // The right button on the Problem header, and the menu's first offer.
  auto header = t->Find("Problem ");
  t->Click(header.first + 1, header.second, 2);
  ASSERT_TRUE(t->WaitFor("Group by this column")) << t->Screen();
  auto group = t->Find("Group by this column");
  t->Click(group.first + 1, group.second);
  ASSERT_TRUE(t->WaitFor("Problem: ")) << t->Screen();

  // A double click on a finding, then the toolbar's Next.
  auto record = t->Find("radius");
  t->Bytes("\033[<0;" + std::to_string(record.first + 2) + ";" + std::to_string(record.second + 1) + "M\033[<0;" +
           std::to_string(record.first + 2) + ";" + std::to_string(record.second + 1) + "m\033[<0;" +
           std::to_string(record.first + 2) + ";" + std::to_string(record.second + 1) + "M\033[<0;" +
           std::to_string(record.first + 2) + ";" + std::to_string(record.second + 1) + "m");
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return !MarkedCode(*t).empty(); })) << t->Screen();
  std::string first = MarkedCode(*t);
  auto next = t->Find(" Next ");
  t->Click(next.first + 2, next.second);
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return MarkedCode(*t) != first; })) << t->Screen();

  // Quit from the keys' line.
  auto quit = t->Find(" q quit ");
  t->Click(quit.first + 2, quit.second);
  ExpectRestored(*t);
}

TEST_F(PaneTmuxTest, AToolbarButtonsHintShowsOnlyAfterTheMouseRestedAndResizingRedraws) {
  auto t = Start();
  ASSERT_TRUE(t->WaitFor(" New  Refresh ")) << t->Screen();
  auto button = t->Find(" New ");
  const std::string hint = "New comments analysis";
  auto moved = std::chrono::steady_clock::now();
  t->Move(button.first + 2, button.second);
  std::string soon = t->Screen();
  if (std::chrono::steady_clock::now() - moved < std::chrono::milliseconds(300)) {
    EXPECT_EQ(soon.find(hint), std::string::npos) << soon;
  }
  ASSERT_TRUE(t->WaitFor(hint, 5000)) << t->Screen();
  EXPECT_GE(std::chrono::steady_clock::now() - moved, std::chrono::milliseconds(500));
  // A resized terminal is drawn anew at its size: the keys' line along its lower edge.
  t->Resize(120, 40);
  ASSERT_TRUE(t->WaitUntil([&](const std::string&) { return t->Find(" Enter code ").second == 38; })) << t->Screen();
  EXPECT_EQ(t->Find("[×]┐").first, 116);
  t->Keys({"q"});
  ExpectRestored(*t);
}

TEST_F(PaneTmuxTest, CtrlCDuringAnAnalysisAsksWhetherToStop) {
  // A project large enough that its walk is still going when Ctrl+C arrives.
  testsupport::TempDir big;
  big.Write("P/P.csproj", "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework>"
                          "</PropertyGroup></Project>\n");
  const int files = 10000;
  for (int i = 0; i < files; ++i)
    big.Write("P/C" + std::to_string(i) + ".cs", "namespace Big\n{\n  public class C" + std::to_string(i) +
                                                     "\n  {\n    public int A(int x) { return x; }\n  }\n}\n");
  auto t = Start((big.path() / "P/P.csproj").string());
  ASSERT_TRUE(t->WaitFor(" New  Refresh ", 60000)) << t->Screen();
  t->Keys({"C-n"});
  ASSERT_TRUE(t->WaitFor("Definition Comments")) << t->Screen();
  t->Keys({"e", "M-b"});
  // The walk's progress is drawn as it goes; Ctrl+C asks.
  ASSERT_TRUE(t->WaitFor("(press <Ctrl+C> to cancel)", 60000)) << t->Screen();
  t->Keys({"C-c"});
  ASSERT_TRUE(t->WaitFor("Do you want to stop the current operation?")) << t->Screen();
  t->Keys({"y"});
  ASSERT_TRUE(t->WaitFor(" problems)")) << t->Screen();
  std::smatch count;
  std::string screen = t->Screen();
  ASSERT_TRUE(std::regex_search(screen, count, std::regex("\\(([0-9]+) problems\\)")));
  EXPECT_LT(std::stoi(count[1]), 2 * files);  // stopped before the end
  t->Keys({"q"});
  ExpectRestored(*t);
}

TEST(PaneCommandTest, WithoutATerminalOrASolutionItSaysSoAndEnds) {
  testsupport::TempDir home;
  auto run = [&](const std::string& args) {
    // setsid: a session of its own, with no terminal to open.
    std::string line = "cd " + TmuxSession::Quote(home.path().string()) + " && ANNOTRA_HOME=. setsid -w " +
                       ANNOTRA_BINARY + " pane " + args + " > out 2>&1 < /dev/null";
    int status = std::system(line.c_str());
    return std::make_pair(WIFEXITED(status) ? WEXITSTATUS(status) : -1, testsupport::ReadFile(home.path() / "out"));
  };
  auto [noTerminal, said] = run(TmuxSession::Quote(std::string(ANNOTRA_SOURCE_DIR) + "/samples/Demo.sln"));
  EXPECT_EQ(noTerminal, 4);
  EXPECT_NE(said.find("annotra: there is no terminal to show the pane on"), std::string::npos) << said;
  auto [noSolution, told] = run("missing.sln");
  EXPECT_EQ(noSolution, 3);
  EXPECT_NE(told.find("missing.sln"), std::string::npos) << told;
}
