#include "platform/automation/TextBuffer.h"

#include <gtest/gtest.h>

#include "platform/automation/FileDecoder.h"

using platform::automation::DecodeOwnedText;
using platform::automation::DecodeText;
using platform::automation::TextBuffer;

TEST(TextBuffer, AnyLineBreakEndsALineAndTextsJoinWithCrlf) {
  TextBuffer t("a\r\nbb\ncc\rd");
  EXPECT_EQ(t.LineCount(), 4);
  EXPECT_EQ(t.Line(2), "bb");
  EXPECT_EQ(t.Line(4), "d");
  EXPECT_EQ(t.GetLines(1, 4), "a\r\nbb\r\ncc");
  EXPECT_EQ(t.GetText(0, 10), "a\r\nbb\r\ncc\r\nd");
  EXPECT_EQ(t.LineOfOffset(3), 2);  // the 'b' after CRLF
  // Ranges that cut a CRLF in two, or end on a break.
  EXPECT_EQ(t.GetText(2, 5), "\r\nbb");   // from the LF of "a\r\n"
  EXPECT_EQ(t.GetText(1, 2), "\r\n");     // the CR alone
  EXPECT_EQ(t.GetText(9, 5), "\r\ncc\r\n");  // either order; CR and LF breaks
  EXPECT_EQ(t.GetText(20, 30), "");
  EXPECT_EQ(t.Line(0), "");
  EXPECT_EQ(t.Line(5), "");
}

TEST(TextBuffer, ATextEndingInABreakHasAnEmptyLastLine) {
  TextBuffer t("x\n");
  EXPECT_EQ(t.LineCount(), 2);
  EXPECT_EQ(t.Line(2), "");
  EXPECT_EQ(TextBuffer("").LineCount(), 1);
}

TEST(TextBuffer, CharacterOffsetsCountCodePointsNotBytes) {
  TextBuffer t("\xC3\xA9t\xC3\xA9 x");  // "été x"
  uint32_t x = static_cast<uint32_t>(t.Text().find('x'));
  EXPECT_EQ(t.CharOffsetOf(x), 5);
  EXPECT_EQ(t.OffsetOf(1, 5), x);
}

TEST(FileDecoder, OwnedBytesDecodeAsViewedBytesDo) {
  for (std::string bytes : {std::string("plain ascii text, long enough to pass eight bytes at a time"),
                            std::string("\xEF\xBB\xBF\xC3\xA9t\xC3\xA9"), std::string("caf\xE9 au lait"),
                            std::string("\xFF\xFEh\0i\0", 6), std::string("x\xC3"), std::string()}) {
    std::string copy = bytes;
    EXPECT_EQ(DecodeOwnedText(std::move(copy)), DecodeText(bytes));
  }
}

TEST(FileDecoder, ByteOrderMarksDecideAndElseUtf8OrWindows1252) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFok"), "ok");
  EXPECT_EQ(DecodeText(std::string("\xFF\xFEh\0i\0", 6)), "hi");
  EXPECT_EQ(DecodeText(std::string("\xFE\xFF\0h\0i", 6)), "hi");
  EXPECT_EQ(DecodeText(std::string("\xFF\xFE\x3D\xD8\x00\xDE", 6)), "\xF0\x9F\x98\x80");  // surrogate pair
  EXPECT_EQ(DecodeText("caf\xC3\xA9"), "caf\xC3\xA9");  // valid UTF-8 stays
  EXPECT_EQ(DecodeText("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");  // 1252: é and €
  EXPECT_EQ(DecodeText("\xC0\xAF"), "\xC3\x80\xC2\xAF");  // an overlong form is not UTF-8
}
