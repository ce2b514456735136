#include "terminal/ExternalEditor.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "terminal/MemoryTerminal.h"
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
