#include "platform/core/Json.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(AppendJsonString, EscapesQuotesBackslashesAndControls) {
  std::string out;
  AppendJsonString(out, std::string("a\"b\\c\r\n\t\x01\x7f\0", 11));
  EXPECT_EQ(out, R"("a\"b\\c\r\n\t\u0001\u007f\u0000")");
}

TEST(AppendJsonString, KeepsUtf8AndReplacesInvalidBytes) {
  std::string out;
  AppendJsonString(out, "\xC3\xA9\xF0\x9F\x98\x80|\xC3|\xED\xA0\x80|\xFF");
  EXPECT_EQ(out, "\"\xC3\xA9\xF0\x9F\x98\x80|\xEF\xBF\xBD|\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD|\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace platform
