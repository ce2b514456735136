// The program ended by a signal leaves no temporary results database behind; Ctrl+C in
// the walk asks on a line of its own (on a terminal, driven through tmux); the table fits
// the terminal it is printed on.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "ProgramRunner_test.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"

namespace {

namespace fs = std::filesystem;
using apptest::Outcome;

// A solution whose walk takes a while: many files of many members.
fs::path WriteLargeSolution(const testsupport::TempDir& dir, int files) {
  std::string members;
  for (int m = 0; m < 40; ++m)
    members += "        public int M" + std::to_string(m) + "(int a, string b) { return a; }\n";
  for (int f = 0; f < files; ++f)
    dir.Write("big/Big/F" + std::to_string(f) + ".cs",
              "namespace Big\n{\n    public class C" + std::to_string(f) + "\n    {\n" + members + "    }\n}\n");
  dir.Write("big/Big/Big.csproj", testsupport::SdkProjectFile());
  return dir.Write("big/Big.sln", testsupport::SlnText({{"Big/Big.csproj"}}));
}

// The results databases in `folder`.
int ResultsDatabases(const fs::path& folder) {
  int n = 0;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".xmm") ++n;
  return n;
}

// Waits until the run has made its results database; false when it ended first.
bool WaitForResultsDatabase(const fs::path& tmp, apptest::Running& run) {
  for (int i = 0; i < 6000; ++i) {
    if (ResultsDatabases(tmp) > 0) return true;
    if (waitpid(run.pid(), nullptr, WNOHANG) != 0) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return false;
}

TEST(SignalCleanup, TermAndIntRemoveTheTemporaryDatabase) {
  testsupport::TempDir dir, tmp;
  auto sln = WriteLargeSolution(dir, 150);
  for (int signal : {SIGTERM, SIGINT, SIGHUP}) {
    apptest::Running run({{"analyze", sln.string(), "--format", "tsv"},
                          dir.path(),
                          {{"ANNOTRA_HOME", (dir.path() / "home").string()}, {"TMPDIR", tmp.path().string()}}});
    ASSERT_TRUE(WaitForResultsDatabase(tmp.path(), run)) << "signal " << signal;
    kill(run.pid(), signal);
    Outcome o = run.Wait();
    if (signal == SIGINT && o.signal == 0) {
      // It came during the walk: Ctrl+C asks, nobody answers, the walk goes on to its end.
      EXPECT_NE(o.err.find("Scribane: Do you want to stop the current operation?\n"), std::string::npos) << o.err;
      EXPECT_EQ(o.status, 0) << o.err;
    } else {
      EXPECT_EQ(o.signal, signal) << o.err;
    }
    EXPECT_EQ(ResultsDatabases(tmp.path()), 0) << "signal " << signal;
  }
  // And a run that ends as it should removes it too.
  Outcome done = apptest::RunAnnotra({{"analyze", sln.string(), "--scope", "document", "--document",
                                       (dir.path() / "big/Big/F1.cs").string()},
                                      dir.path(),
                                      {{"ANNOTRA_HOME", (dir.path() / "home").string()}, {"TMPDIR", tmp.path().string()}}});
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_EQ(ResultsDatabases(tmp.path()), 0);
}

// A terminal of tmux: a detached session of the given size running one command.
class Terminal {
 public:
  Terminal(const std::string& command, int width) : m_name("annotra-test-" + std::to_string(getpid())) {
    Tmux("new-session -d -s " + m_name + " -x " + std::to_string(width) + " -y 50 \"" + command + "\"");
  }
  ~Terminal() { Tmux("kill-session -t " + m_name + " 2>/dev/null"); }
  std::string Screen() {
    testsupport::TempDir dir;
    Tmux("capture-pane -p -t " + m_name + " > " + (dir.path() / "screen").string());
    return testsupport::ReadFile(dir.path() / "screen");
  }
  void Keys(const std::string& keys) { Tmux("send-keys -t " + m_name + " " + keys); }
  // Waits until the screen shows `text`; false after `seconds`.
  bool WaitFor(const std::string& text, int seconds = 60) {
    for (int i = 0; i < seconds * 20; ++i) {
      if (Screen().find(text) != std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }
  static bool Available() { return std::system("command -v tmux >/dev/null 2>&1") == 0; }

 private:
  static int Tmux(const std::string& args) { return std::system(("tmux " + args).c_str()); }
  std::string m_name;
};

std::string Environment(const testsupport::TempDir& dir) {
  return "ANNOTRA_HOME=" + (dir.path() / "home").string() + " ANNOTRA_APP_PATH=" ANNOTRA_SOURCE_DIR "/resources";
}

TEST(Terminal, CtrlCAsksOnALineOfItsOwnBelowTheProgress) {
  if (!Terminal::Available()) GTEST_SKIP() << "tmux is not installed";
  testsupport::TempDir dir;
  auto sln = WriteLargeSolution(dir, 400);
  Terminal terminal(Environment(dir) + " '" ANNOTRA_BINARY "' analyze '" + sln.string() +
                        "' --format tsv > /dev/null; echo exit=\\$?; sleep 30",
                    120);
  ASSERT_TRUE(terminal.WaitFor("] Searching")) << terminal.Screen();
  terminal.Keys("C-c");
  ASSERT_TRUE(terminal.WaitFor("[y/n]")) << terminal.Screen();
  std::string screen = terminal.Screen();
  // The progress line stays, ended; the question starts the next line.
  const size_t question = screen.find("Scribane: Do you want to stop the current operation?");
  ASSERT_NE(question, std::string::npos) << screen;
  EXPECT_TRUE(question == 0 || screen[question - 1] == '\n') << screen;
  terminal.Keys("y Enter");
  ASSERT_TRUE(terminal.WaitFor("exit=")) << terminal.Screen();
  screen = terminal.Screen();
  // Stopped: what was printed is not the whole run's.
  EXPECT_NE(screen.find("exit=4"), std::string::npos) << screen;
  EXPECT_NE(screen.find("the analysis was stopped"), std::string::npos) << screen;
}

TEST(Terminal, TheTableFitsTheTerminal) {
  if (!Terminal::Available()) GTEST_SKIP() << "tmux is not installed";
  testsupport::TempDir dir;
  Terminal terminal(Environment(dir) + " '" ANNOTRA_BINARY "' analyze '" ANNOTRA_SOURCE_DIR
                                       "/samples/Demo.sln'; echo exit=\\$?; sleep 30",
                    90);
  ASSERT_TRUE(terminal.WaitFor("exit=")) << terminal.Screen();
  const std::string screen = terminal.Screen();
  EXPECT_NE(screen.find("17 findings"), std::string::npos) << screen;
  EXPECT_NE(screen.find("\xE2\x80\xA6"), std::string::npos) << screen;  // the Problem column cut
  for (const auto& line : apptest::Lines(screen)) {
    size_t width = 0;
    for (unsigned char c : line) width += (c & 0xC0) != 0x80;
    EXPECT_LE(width, 90u) << line;
  }
}

}  // namespace
