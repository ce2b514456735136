#include "platform/codemodel/LineIndex.h"

#include <gtest/gtest.h>

namespace platform::codemodel {
namespace {

TEST(LineIndex, CountsCrlfLfAndCrBreaksOnce) {
  //                 0 1 2 3  4  5 6  7 8 9
  LineIndex lines("a\r\nb\nc\rd");
  EXPECT_EQ(lines.LineCount(), 4);
  EXPECT_EQ(lines.LineOfOffset(0), 1);
  EXPECT_EQ(lines.LineOfOffset(1), 1);  // the CR of CRLF
  EXPECT_EQ(lines.LineOfOffset(2), 1);  // its LF
  EXPECT_EQ(lines.LineOfOffset(3), 2);
  EXPECT_EQ(lines.LineOfOffset(5), 3);
  EXPECT_EQ(lines.LineOfOffset(7), 4);
  EXPECT_EQ(lines.LineOfOffset(1000), 4);  // past the end: the last line
}

TEST(LineIndex, AFinalBreakStartsAnEmptyLastLine) {
  EXPECT_EQ(LineIndex("").LineCount(), 1);
  EXPECT_EQ(LineIndex("x\n").LineCount(), 2);
  EXPECT_EQ(LineIndex("x\n").LineOfOffset(2), 2);
  EXPECT_EQ(LineIndex("\r\r\n\n").LineCount(), 4);
}

}  // namespace
}  // namespace platform::codemodel
