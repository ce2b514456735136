#include "terminal/ExternalEditor.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "terminal/MemoryTerminal.h"
#include "terminal/TerminalPageViewer.h"
#include "testsupport/TempDir.h"

using app::terminal::ExternalEditor;
using Words = std::vector<std::string>;

TEST(ExternalEditorTest, CallsEditorsAtTheLineTheWayTheyTakeIt) {
  EXPECT_EQ(ExternalEditor::CommandLine("vim", "/s/a.cs", 24), (Words{"vim", "+24", "/s/a.cs"}));
  EXPECT_EQ(ExternalEditor::CommandLine("emacs -nw", "a b.cs", 3), (Words{"emacs", "-nw", "+3", "a b.cs"}));
  EXPECT_EQ(ExternalEditor::CommandLine("code --wait", "/s/a.cs", 7), (Words{"code", "--wait", "-g", "/s/a.cs:7"}));
  EXPECT_EQ(ExternalEditor::CommandLine("/usr/bin/codium", "x.vb", 1), (Words{"/usr/bin/codium", "-g", "x.vb:1"}));
  EXPECT_EQ(ExternalEditor::CommandLine("", "x.vb", 0), (Words{"vi", "+1", "x.vb"}));
}

TEST(ExternalEditorTest, SplitsTheCommandAsAShellWould) {
  EXPECT_EQ(ExternalEditor::Split("  '/opt/my editor/ed'  -x \"a \\\"b\\\"\" c\\ d"),
            (Words{"/opt/my editor/ed", "-x", "a \"b\"", "c d"}));
  EXPECT_EQ(ExternalEditor::Split(""), Words{});
}

TEST(ExternalEditorTest, RunsTheEditorWithTheTerminalGivenBackAndWaitsForIt) {
  testsupport::TempDir dir;
  auto script = dir.Write("ed.sh", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$(dirname \"$0\")/args\"\nexit 3\n");
  chmod(script.c_str(), 0755);
  app::terminal::MemoryTerminal screen(20, 5);
  std::string error;
  int status = ExternalEditor::Run(screen, ExternalEditor::CommandLine(script.string(), "/s/a.cs", 9), error);
  EXPECT_EQ(status, 3);
  EXPECT_EQ(testsupport::ReadFile(dir.path() / "args"), "+9|/s/a.cs|");
  EXPECT_FALSE(screen.suspended);  // taken again after

  status = ExternalEditor::Run(screen, {(dir.path() / "none").string(), "+1", "a"}, error);
  EXPECT_EQ(status, -1);
  EXPECT_NE(error.find("could not be started"), std::string::npos);
  EXPECT_FALSE(screen.suspended);
}

TEST(TerminalPageViewerTest, RunsATextBrowserOnTheTerminalAndWaitsForIt) {
  testsupport::TempDir dir;
  auto browser = dir.Write("bin/w3m", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$(dirname \"$0\")/args\"\n");
  chmod(browser.c_str(), 0755);
  EXPECT_TRUE(app::terminal::TerminalPageViewer::IsTextBrowser(browser.string()));
  EXPECT_FALSE(app::terminal::TerminalPageViewer::IsTextBrowser("firefox"));
  const char* old = std::getenv("BROWSER");
  std::string saved = old ? old : "";
  setenv("BROWSER", ("firefox:" + browser.string() + " -o display_image=0").c_str(), 1);
  // Without a display (as over SSH).
  const char* display = std::getenv("DISPLAY");
  std::string savedDisplay = display ? display : "";
  unsetenv("DISPLAY");
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  std::string savedWayland = wayland ? wayland : "";
  unsetenv("WAYLAND_DISPLAY");
  app::terminal::MemoryTerminal screen(20, 5);
  app::terminal::TerminalPageViewer viewer(screen);
  EXPECT_TRUE(viewer.Open("/tmp/preview.html"));
  EXPECT_EQ(testsupport::ReadFile(dir.path() / "bin/args"), "-o|display_image=0|/tmp/preview.html|");
  EXPECT_FALSE(screen.suspended);
  setenv("BROWSER", "firefox", 1);
  EXPECT_FALSE(viewer.Open("/tmp/preview.html"));  // nothing that runs here
  if (old) setenv("BROWSER", saved.c_str(), 1);
  else unsetenv("BROWSER");
  if (display) setenv("DISPLAY", savedDisplay.c_str(), 1);
  if (wayland) setenv("WAYLAND_DISPLAY", savedWayland.c_str(), 1);
}
