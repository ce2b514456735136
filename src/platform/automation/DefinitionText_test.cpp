#include "platform/automation/DefinitionText.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"

namespace platform::automation {
namespace {

TEST(DefinitionText, KnownEncodingsDecodeAndNulMeansUnknown) {
  EXPECT_EQ(DecodeKnownText("\xEF\xBB\xBF<a/>", "f"), "<a/>");
  EXPECT_EQ(DecodeKnownText(std::string("\xFF\xFE<\0a\0/\0>\0", 10), "f"), "<a/>");
  EXPECT_EQ(DecodeKnownText(std::string("\xFE\xFF\0<\0\xE9", 6), "f"), "<\xC3\xA9");
  EXPECT_EQ(DecodeKnownText("caf\xE9", "f"), "caf\xC3\xA9");  // Windows-1252
  for (std::string bytes : {std::string("<\0a\0", 4), std::string("\xFF\xFE\0\0<\0\0\0", 8), std::string("x\0", 2)}) {
    try {
      DecodeKnownText(bytes, "/p/a.sln");
      ADD_FAILURE();
    } catch (const Error& e) {
      EXPECT_EQ(e.number, 5);
      EXPECT_EQ(e.description.rfind("'/p/a.sln' is in an unknown encoding", 0), 0u);
    }
  }
}

TEST(DefinitionText, XmlErrorsNameFileAndLine) {
  EXPECT_EQ(ParseDefinitionXml("<Project>\n <x/>\n</Project>", "f")->document_element().name(), std::string("Project"));
  try {
    ParseDefinitionXml("<Project>\n\n<x>\n</Project>", "/p/a.csproj");
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.description, "'/p/a.csproj' is not well-formed XML: line 4: Start-end tags mismatch");
  }
  EXPECT_THROW(ParseDefinitionXml("", "f"), Error);
  EXPECT_THROW(ParseDefinitionXml("just text", "f"), Error);
}

}  // namespace
}  // namespace platform::automation
