#include "platform/forms/MessageBox.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "platform/core/StderrLine.h"
#include "testsupport/TempDir.h"

using namespace platform::forms;

TEST(MessageBox, TheDefaultButtonAnswersWhenNobodyIsAsked) {
  EXPECT_EQ(DefaultAnswer(vbOKOnly | vbCritical), vbOK);
  EXPECT_EQ(DefaultAnswer(vbYesNo | vbExclamation), vbYes);
  EXPECT_EQ(DefaultAnswer(vbYesNo | vbDefaultButton2 | vbExclamation), vbNo);
  EXPECT_EQ(DefaultAnswer(vbOKCancel | vbDefaultButton2), vbCancel);
}

TEST(MessageBox, ScriptedBoxesRecordAndAnswerInOrder) {
  auto boxes = std::make_shared<ScriptedMessageBoxes>();
  ScopedMessageBoxes scoped(boxes);
  boxes->answers = {vbYes};
  EXPECT_EQ(MsgBox("Stop?", vbYesNo | vbDefaultButton2, "Scribane"), vbYes);
  EXPECT_EQ(MsgBox("Stop?", vbYesNo | vbDefaultButton2, "Scribane"), vbNo);
  ASSERT_EQ(boxes->shown.size(), 2u);
  EXPECT_EQ(boxes->shown[0].title, "Scribane");
}

// The command line's message box on standard error: after a progress line drawn in
// place, the message starts on a line of its own.
TEST(MessageBox, AConsoleMessageEndsAnUnfinishedProgressLineFirst) {
  testsupport::TempDir dir;
  const auto file = dir.path() / "stderr.txt";
  std::fflush(stderr);
  const int saved = dup(STDERR_FILENO);
  const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  ASSERT_GE(fd, 0);
  dup2(fd, STDERR_FILENO);
  close(fd);
  // Nobody answers: the question takes its default button.
  const int savedIn = dup(STDIN_FILENO);
  const int null = open("/dev/null", O_RDONLY);
  dup2(null, STDIN_FILENO);
  close(null);

  std::fputs("\r[ 3/10] Searching", stderr);
  platform::stderr_line::MarkOpen(true);
  ConsoleMessageBoxes boxes;
  boxes.Show("Do you want to stop the current operation?", vbYesNo | vbDefaultButton2, "Scribane");
  boxes.Show("Second.", vbOKOnly, "Scribane");  // the line is ended once only

  std::fflush(stderr);
  dup2(saved, STDERR_FILENO);
  close(saved);
  dup2(savedIn, STDIN_FILENO);
  close(savedIn);
  EXPECT_FALSE(platform::stderr_line::IsOpen());
  EXPECT_EQ(testsupport::ReadFile(file),
            "\r[ 3/10] Searching\nScribane: Do you want to stop the current operation?\nScribane: Second.\n");
}
