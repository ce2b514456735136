#include "platform/codemodel/VbParser.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/LineIndex.h"

namespace platform::codemodel {
namespace {

// The declarations of `text`, which must outlive them.
DeclarationTree Parse(std::string_view text, const PreprocessorSymbols& symbols = {}) {
  DeclarationTree tree(text);
  VbParser().Parse(tree, symbols);
  return tree;
}

// The line of the end of `d`, a declaration of `tree`.
int EndLine(const DeclarationTree& tree, const Declaration& d) { return LineIndex(tree.Text()).LineOfOffset(d.end); }

TEST(VbParser, AMalformedDirectiveAfterElseCostsNoDeclarations) {
  auto tree = Parse(
      "#If False Then\nClass A\nEnd Class\n#Else\nClass B\nEnd Class\n"
      "#ElseIf True Then\nClass C\nEnd Class\n#Else\nClass D\nEnd Class\n#End If\n");
  ASSERT_EQ(tree.TopLevel().size(), 3u);
  EXPECT_EQ(tree.TopLevel()[0]->name, "B");
  EXPECT_EQ(tree.TopLevel()[1]->name, "C");
  EXPECT_EQ(tree.TopLevel()[2]->name, "D");
}

TEST(VbParser, LambdaEndsAndXmlDoNotEndTheMethod) {
  auto tree = Parse(
      "Class C\n"
      "  Sub A()\n"
      "    Dim f = Function(x As Integer) As Integer\n"
      "              Return x\n"
      "            End Function\n"
      "    Task.Run(Async Sub()\n"
      "               Await Task.Delay(1)\n"
      "             End Sub).Wait()\n"
      "    Dim x = <doc><![CDATA[End Sub]]><%= f(1) %>\n"
      "              End Sub</doc>\n"
      "  End Sub\n"
      "  Function B() As Integer\n"
      "  End Function\n"
      "End Class\n");
  const Declaration& c = *tree.TopLevel().at(0);
  ASSERT_EQ(c.members.size(), 2u);
  EXPECT_EQ(EndLine(tree, *c.members[0]), 11);
  EXPECT_EQ(c.members[1]->name, "B");
}

TEST(VbParser, AMissingEndCostsOnlyThatDeclaration) {
  auto tree = Parse(
      "Class C\n"
      "  Sub A()\n"
      "    Dim local = 1\n"
      "  Private Sub B()\n"         // A has no End Sub
      "  End Sub\n"
      "  Property P As Integer\n"
      "    Get\n"
      "      Return 1\n"
      "    End Get\n"
      "  Private field As Integer\n"  // P has no End Property
      "  Sub D()\n"
      "    list.ForEach(Sub(x)\n"   // the lambda never ends
      "  End Sub\n"
      "  Sub E()\n"
      "  End Sub\n"
      "End Class\n"
      "Class After\n"
      "End Class\n");
  ASSERT_EQ(tree.TopLevel().size(), 2u);
  const Declaration& c = *tree.TopLevel()[0];
  ASSERT_EQ(c.members.size(), 6u);
  const char* names[] = {"A", "B", "P", "field", "D", "E"};
  int ends[] = {3, 5, 9, 10, 13, 15};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(c.members[i]->name, names[i]);
    EXPECT_EQ(EndLine(tree, *c.members[i]), ends[i]) << names[i];
  }
  EXPECT_EQ(EndLine(tree, c), 16);
}

TEST(VbParser, AnXmlLiteralThatNeverClosesCostsOnlyItsStatement) {
  auto tree = Parse("Class C\n  Sub A()\n    Dim x = <a><b>\n  End Sub\n  Sub B()\n  End Sub\nEnd Class\n");
  const Declaration& c = *tree.TopLevel().at(0);
  ASSERT_EQ(c.members.size(), 2u);
  EXPECT_EQ(EndLine(tree, *c.members[0]), 4);
  EXPECT_EQ(c.members[1]->name, "B");
}

TEST(VbParser, AStringThatNeverClosesCostsOnlyItsStatement) {
  // VB strings may span lines, so any later quote would close it; with none, the string
  // ends at its own line.
  for (const char* open : {"\"open", "$\"{x", "$\"a{\"b"}) {
    const std::string text =
        std::string("Class C\n  Sub A()\n    Dim s = ") + open + "\n  End Sub\n  Sub B()\n  End Sub\nEnd Class\n";
    auto tree = Parse(text);
    const Declaration& c = *tree.TopLevel().at(0);
    ASSERT_EQ(c.members.size(), 2u) << open;
    EXPECT_EQ(EndLine(tree, *c.members[0]), 4);
    EXPECT_EQ(c.members[1]->name, "B");
    EXPECT_EQ(EndLine(tree, c), 7);
  }
}

// Checks what must hold for any input: every declaration lies in the text, members
// inside their parent. Declaration by declaration, so that deep nesting cannot exhaust
// the stack.
void CheckShape(const DeclarationTree& tree) {
  const size_t size = tree.Text().size();
  for (size_t i = 0; i < tree.Size(); ++i) {
    const Declaration& d = tree.At(i);
    EXPECT_LE(d.start, d.end);
    EXPECT_LE(d.end, size);
    if (!d.parent || d.kind == vsCMElementAttribute) continue;  // an attribute precedes its owner
    EXPECT_GE(d.start, d.parent->start);
    EXPECT_LE(d.end, d.parent->end);
  }
}

TEST(VbParser, EveryPrefixOfAFileParsesIntoAWellFormedTree) {
  const std::string text =
      "Option Strict On\nImports A, B = C.D(Of E)\n<Assembly: X(1)>\n#If DEBUG Then\nNamespace N\n#End If\n"
      "''' d\n<A, B(\"s\")> _\nPartial Public MustInherit Class K(Of T As {New})\n Inherits Base\n"
      " Private WithEvents w As Button, q$(), r? As Integer = 5\n Const Z = &HFF\n"
      " Public Custom Event E As EventHandler\n  AddHandler(v As EventHandler)\n  End AddHandler\n End Event\n"
      " Default Property Item(i%) As T\n  Get\n   Return Nothing\n  End Get\n  Set(value As T)\n  End Set\n End Property\n"
      " Public Shared Narrowing Operator CType(x As K(Of T)) As Integer\n  Return 0\n End Operator\n"
      " Sub M(Optional ByVal s As String = \"'\", ParamArray a() As Object)\n"
      "  Dim f = Sub()\n   Dim x = <a b=\"'\"><%= $\"{1}\" %></a>\n  End Sub : REM x\n"
      " End Sub\n Enum E2 : A = 1 : B : End Enum\n Declare Function G Lib \"k\" Alias \"H\" (x As Integer) As Long\n"
      " Delegate Function Fn(Of U)(u As U) As U\nEnd Class\nModule Mo\n Interface I : Sub S() : End Interface\nEnd Module\n"
      "End Namespace\n";
  for (size_t n = 0; n <= text.size(); ++n) {
    auto tree = Parse(std::string_view(text).substr(0, n), PreprocessorSymbols{{{"DEBUG", "-1"}}});
    CheckShape(tree);
    if (HasFailure()) {
      ADD_FAILURE() << "prefix of " << n << " bytes";
      return;
    }
  }
}

TEST(VbParser, HostileInputFinishes) {
  const std::string inputs[] = {
      std::string(100000, '('),
      std::string(20000, '<') + "a",
      [] { std::string s; for (int i = 0; i < 5000; ++i) s += "x = <a <%= "; return s; }(),
      [] { std::string s; for (int i = 0; i < 5000; ++i) s += "x = $\"{ $\"{"; return s; }(),
      [] { std::string s; for (int i = 0; i < 5000; ++i) s += "x = <a b=\"\n"; return s; }(),
      [] { std::string s; for (int i = 0; i < 3000; ++i) s += "#If (((\n"; return s; }(),
      [] { std::string s; for (int i = 0; i < 20000; ++i) s += "Class C\n"; return s; }(),
      [] { std::string s; for (int i = 0; i < 20000; ++i) s += "Sub F(Sub(x)\n"; return s; }(),
      [] { std::string s; for (int i = 0; i < 20000; ++i) s += "x = \"a\" & $\"{\"\n"; return s; }(),
      // Interpolations nested across lines that never close (found by fuzzing: each
      // enclosing one used to read again what the inner ones had read).
      [] { std::string s; for (int i = 0; i < 40; ++i) s += "  = $\"{If(T = $\"{If(s ? $\"{I = $\"{If(T, \"} x {{b line\"\n"; return s; }(),
      std::string("\xEF\xBB\xBF\xE2\x80\x98\xFF\xFE\x00_ _\n[\"#", 14),
  };
  for (const std::string& text : inputs) {
    CheckShape(Parse(text));
  }
  // 20000 nested classes without End: every one is there, nested.
  auto tree = Parse(inputs[6]);
  int depth = 0;
  for (const Declaration* d = tree.TopLevel().at(0); d; d = d->members.empty() ? nullptr : d->members[0]) ++depth;
  EXPECT_EQ(depth, 20000);
}

}  // namespace
}  // namespace platform::codemodel
