#include "platform/codemodel/CodeModelJson.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {
namespace {

// Declarations added by hand (not by a parser), so the writer is tested on its own:
// walk order, depth, lines on every kind of line break, nulls, attributes and parameters.
TEST(WriteCodeModelJson, WritesDeclarationsInWalkOrder) {
  const std::string text = "line1\nline2\r\nline3\rline4\n";
  DeclarationTree tree(text);
  Declaration& ns = tree.AddDeclaration(nullptr, vsCMElementNamespace);
  ns.name = "N";
  ns.start = 0;
  ns.end = 26;
  Declaration& cls = tree.AddDeclaration(&ns, vsCMElementClass);
  cls.name = "C";
  cls.access = vsCMAccessPublic;
  cls.start = 6;
  cls.end = 20;
  cls.docComment = "<doc>\r\nx\r\n</doc>";
  Declaration& attr = tree.AddAttribute(cls);
  attr.name = "Serializable";
  attr.start = 0;
  Declaration& fn = tree.AddDeclaration(&cls, vsCMElementFunction);
  fn.name = "Run";
  fn.access = vsCMAccessPrivate;
  fn.start = 13;
  fn.end = 18;
  fn.parameters = std::vector<ParameterData>{{"a", "int"}, {"b", "List<string>"}};
  fn.prototypeType = "void";
  Declaration& ctor = tree.AddDeclaration(&cls, vsCMElementFunction);
  ctor.name = "C";
  ctor.parameters = std::vector<ParameterData>{};
  ctor.prototypeType = "";
  Declaration& after = tree.AddDeclaration(nullptr, vsCMElementImportStmt);
  after.name = "Q\"\xFF";
  after.start = after.end = 1000;  // past the end: the last line

  std::ostringstream out;
  WriteCodeModelJson(out, tree, "dir/X.cs");
  std::string expected =
      R"({"file":"dir/X.cs","depth":0,"kind":5,"name":"N","access":null,"start":1,"end":5,"attr":null,"doc":"","params":null,"proto":null})"
      "\n"
      R"({"file":"dir/X.cs","depth":1,"kind":1,"name":"C","access":1,"start":2,"end":4,"attr":1,"doc":"<doc>\r\nx\r\n</doc>","params":null,"proto":null})"
      "\n"
      R"({"file":"dir/X.cs","depth":2,"kind":2,"name":"Run","access":2,"start":3,"end":3,"attr":null,"doc":"","params":[["a","int"],["b","List<string>"]],"proto":"void Run"})"
      "\n"
      R"({"file":"dir/X.cs","depth":2,"kind":2,"name":"C","access":null,"start":1,"end":1,"attr":null,"doc":"","params":[],"proto":"C"})"
      "\n"
      R"({"file":"dir/X.cs","depth":0,"kind":35,"name":"Q\")" "\xEF\xBF\xBD" R"(","access":null,"start":5,"end":5,"attr":null,"doc":"","params":null,"proto":null})"
      "\n";
  EXPECT_EQ(out.str(), expected);
}

TEST(WriteCodeModelJson, DeepNestingDoesNotExhaustTheStack) {
  DeclarationTree tree("");
  Declaration* parent = nullptr;
  for (int i = 0; i < 100000; ++i) parent = &tree.AddDeclaration(parent, vsCMElementNamespace);
  std::ostringstream out;
  WriteCodeModelJson(out, tree, "F.cs");
  std::string all = out.str();
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 100000);
  EXPECT_NE(all.find("\"depth\":99999,"), std::string::npos);
}

}  // namespace
}  // namespace platform::codemodel
