#include "platform/codemodel/CodeModelJson.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/automation/Document.h"

namespace platform::codemodel {
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

// Elements added by hand (not by a parser), so the writer is tested on its own: walk
// order, depth, lines, nulls, attributes and parameters.
TEST(WriteCodeModelJson, WritesElementsInWalkOrder) {
  // A model needs a document: the text below declares nothing, and the test adds the
  // elements itself.
  std::string text = "line1\nline2\r\nline3\rline4\n";
  auto doc = automation::Document::FromText("X.cs", text, vsCMLanguageCSharp);
  auto model = doc->CodeModel();
  ASSERT_TRUE(model);
  auto top = model->CodeElements();
  const int parsed = top->Count();

  CodeElement& ns = model->AddElement(nullptr, vsCMElementNamespace);
  ns.name = "N";
  ns.start = 0;
  ns.end = 26;
  CodeElement& cls = model->AddElement(&ns, vsCMElementClass);
  cls.name = "C";
  cls.access = vsCMAccessPublic;
  cls.start = 6;
  cls.end = 20;
  cls.docComment = "<doc>\r\nx\r\n</doc>";
  CodeElement& attr = model->AddAttribute(cls);
  attr.name = "Serializable";
  attr.start = 0;
  CodeElement& fn = model->AddElement(&cls, vsCMElementFunction);
  fn.name = "Run";
  fn.access = vsCMAccessPrivate;
  fn.start = 13;
  fn.end = 18;
  fn.parameters = std::vector<ParameterData>{{"a", "int"}, {"b", "List<string>"}};
  fn.prototypeType = "void";
  CodeElement& ctor = model->AddElement(&cls, vsCMElementFunction);
  ctor.name = "C";
  ctor.parameters = std::vector<ParameterData>{};
  ctor.prototypeType = "";

  std::ostringstream out;
  WriteCodeModelJson(out, *model, "dir/X.cs");
  std::string expected =
      R"({"file":"dir/X.cs","depth":0,"kind":5,"name":"N","access":null,"start":1,"end":5,"attr":null,"doc":"","params":null,"proto":null})"
      "\n"
      R"({"file":"dir/X.cs","depth":1,"kind":1,"name":"C","access":1,"start":2,"end":4,"attr":1,"doc":"<doc>\r\nx\r\n</doc>","params":null,"proto":null})"
      "\n"
      R"({"file":"dir/X.cs","depth":2,"kind":2,"name":"Run","access":2,"start":3,"end":3,"attr":null,"doc":"","params":[["a","int"],["b","List<string>"]],"proto":"void Run"})"
      "\n"
      R"({"file":"dir/X.cs","depth":2,"kind":2,"name":"C","access":null,"start":1,"end":1,"attr":null,"doc":"","params":[],"proto":"C"})"
      "\n";
  // Whatever the parser itself found comes first; the hand-made elements follow.
  std::string all = out.str();
  size_t pos = 0;
  for (int i = 0; i < parsed; ++i) pos = all.find('\n', pos) + 1;
  EXPECT_EQ(all.substr(pos), expected);
}

}  // namespace
}  // namespace platform::codemodel
