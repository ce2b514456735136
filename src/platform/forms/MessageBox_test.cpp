#include "platform/forms/MessageBox.h"

#include <gtest/gtest.h>

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
