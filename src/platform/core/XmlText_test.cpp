#include "platform/core/XmlText.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(XmlText, ReferencesAreReplacedByTheirCharacters) {
  EXPECT_EQ(DecodeXmlAttributeValue("List&lt;int&gt;"), "List<int>");
  EXPECT_EQ(DecodeXmlAttributeValue("Dictionary&lt;string, List&lt;int&gt;&gt;"), "Dictionary<string, List<int>>");
  EXPECT_EQ(DecodeXmlAttributeValue("a&amp;b &quot;c&quot; &apos;d&apos;"), "a&b \"c\" 'd'");
  EXPECT_EQ(DecodeXmlAttributeValue("&#60;&#x3C;&#x3c;"), "<<<");
  EXPECT_EQ(DecodeXmlAttributeValue("&#233;t&#xE9;"), "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(DecodeXmlAttributeValue("&#x1F600;"), "\xF0\x9F\x98\x80");
  // A decoded "&" does not start another reference.
  EXPECT_EQ(DecodeXmlAttributeValue("&amp;lt;"), "&lt;");
  EXPECT_EQ(DecodeXmlAttributeValue("List<int>"), "List<int>");
}

TEST(XmlText, LiteralBlanksBecomeSpacesAndReferencesToThemStay) {
  EXPECT_EQ(DecodeXmlAttributeValue("a\tb\nc\r\nd\re"), "a b c d e");
  EXPECT_EQ(DecodeXmlAttributeValue("a&#9;b&#10;c"), "a\tb\nc");
}

TEST(XmlText, ReferencesThatAreNotWellFormedStayAsWritten) {
  for (const char* text : {"a & b", "&lt", "&nbsp;", "&#;", "&#x;", "&#xZZ;", "&#0;", "&#xD800;", "&#x110000;",
                           "&#12a;", "&#99999999999;", "&;", "&LT;", "trailing &"})
    EXPECT_EQ(DecodeXmlAttributeValue(text), text) << text;
  EXPECT_EQ(DecodeXmlAttributeValue(""), "");
}

}  // namespace
}  // namespace platform
