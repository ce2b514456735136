#include "platform/codemodel/VbParser.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/automation/Document.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"
#include "testsupport/ErrorOf.h"

namespace platform::codemodel {
namespace {

using testsupport::ErrorOf;

Ref<automation::Document> Open(const std::string& text, PreprocessorSymbols symbols = {}) {
  return automation::Document::FromText("A.vb", text, vsCMLanguageVB, std::move(symbols));
}

TEST(VbParser, ElementsReadThroughTheAutomationModel) {
  auto doc = Open(
      "Namespace N\r\n"
      "  ''' <summary>Thing</summary>\r\n"
      "  <Serializable>\r\n"
      "  Public Class C\r\n"
      "    Property P As Integer\r\n"
      "    Function F(x As Integer) As String\r\n"
      "      Return \"\"\r\n"
      "    End Function\r\n"
      "  End Class\r\n"
      "End Namespace\r\n");
  auto model = doc->CodeModel();
  ASSERT_TRUE(model);
  EXPECT_EQ(model->Language(), vsCMLanguageVB);
  ASSERT_EQ(model->CodeElements()->Count(), 1);
  auto ns = model->CodeElements()->Item(1);
  EXPECT_EQ(ns->Kind(), vsCMElementNamespace);
  EXPECT_EQ(ErrorOf([&] { ns->Access(); }), err::kNotSupported);
  EXPECT_EQ(ErrorOf([&] { ns->Prototype(vsCMPrototypeType); }), err::kNotSupported);
  auto c = ns->Members()->Item(1);
  EXPECT_EQ(c->Name(), "C");
  EXPECT_EQ(c->Access(), vsCMAccessPublic);
  EXPECT_EQ(c->DocComment(), "<doc>\r\n<summary>Thing</summary>\r\n</doc>");
  EXPECT_EQ(c->StartPoint()->Line(), 4);
  EXPECT_EQ(c->StartPoint()->LineCharOffset(), 3);
  EXPECT_EQ(c->EndPoint()->Line(), 9);
  EXPECT_EQ(c->EndPoint()->LineCharOffset(), 12);  // just after "End Class"
  ASSERT_EQ(c->Attributes()->Count(), 1);
  EXPECT_EQ(c->Attributes()->Item(1)->StartPoint()->Line(), 3);
  EXPECT_EQ(c->Attributes()->Item(1)->StartPoint()->LineCharOffset(), 4);  // the name, after '<'
  EXPECT_EQ(As<CodeElement>(c->Parent())->Name(), "N");
  auto p = c->Members()->Item(1);
  EXPECT_EQ(p->Prototype(vsCMPrototypeType), "Integer P");
  EXPECT_EQ(ErrorOf([&] { p->Parameters(); }), err::kNotSupported);
  EXPECT_EQ(ErrorOf([&] { p->Members(); }), err::kNotSupported);
  auto f = c->Members()->Item(2);
  EXPECT_EQ(f->Prototype(vsCMPrototypeType), "String F");
  EXPECT_EQ(f->Prototype(0), "F");
  ASSERT_EQ(f->Parameters()->Count(), 1);
  EXPECT_EQ(f->Parameters()->Item(1)->Type()->AsString(), "Integer");
  EXPECT_EQ(model->CodeElementFromLine(7)->Name(), "F");
  EXPECT_EQ(model->CodeElementFromLine(5)->Name(), "P");
  EXPECT_EQ(model->CodeElementFromLine(3)->Name(), "N");  // an attribute line is not the class's
}

TEST(VbParser, LambdaEndsAndXmlDoNotEndTheMethod) {
  auto doc = Open(
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
  auto c = doc->CodeModel()->CodeElements()->Item(1);
  ASSERT_EQ(c->Members()->Count(), 2);
  EXPECT_EQ(c->Members()->Item(1)->EndPoint()->Line(), 11);
  EXPECT_EQ(c->Members()->Item(2)->Name(), "B");
}

TEST(VbParser, AMissingEndCostsOnlyThatDeclaration) {
  auto doc = Open(
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
  auto top = doc->CodeModel()->CodeElements();
  ASSERT_EQ(top->Count(), 2);
  auto c = top->Item(1);
  ASSERT_EQ(c->Members()->Count(), 6);
  const char* names[] = {"A", "B", "P", "field", "D", "E"};
  int ends[] = {3, 5, 9, 10, 13, 15};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(c->Members()->Item(i + 1)->Name(), names[i]);
    EXPECT_EQ(c->Members()->Item(i + 1)->EndPoint()->Line(), ends[i]) << names[i];
  }
  EXPECT_EQ(c->EndPoint()->Line(), 16);
}

TEST(VbParser, AnXmlLiteralThatNeverClosesCostsOnlyItsStatement) {
  auto doc = Open("Class C\n  Sub A()\n    Dim x = <a><b>\n  End Sub\n  Sub B()\n  End Sub\nEnd Class\n");
  auto c = doc->CodeModel()->CodeElements()->Item(1);
  ASSERT_EQ(c->Members()->Count(), 2);
  EXPECT_EQ(c->Members()->Item(1)->EndPoint()->Line(), 4);
  EXPECT_EQ(c->Members()->Item(2)->Name(), "B");
}

TEST(VbParser, AStringThatNeverClosesCostsOnlyItsStatement) {
  // VB strings may span lines, so any later quote would close it; with none, the string
  // ends at its own line.
  for (const char* open : {"\"open", "$\"{x", "$\"a{\"b"}) {
    auto doc = Open(std::string("Class C\n  Sub A()\n    Dim s = ") + open +
                    "\n  End Sub\n  Sub B()\n  End Sub\nEnd Class\n");
    auto c = doc->CodeModel()->CodeElements()->Item(1);
    ASSERT_EQ(c->Members()->Count(), 2) << open;
    EXPECT_EQ(c->Members()->Item(1)->EndPoint()->Line(), 4);
    EXPECT_EQ(c->Members()->Item(2)->Name(), "B");
    EXPECT_EQ(c->EndPoint()->Line(), 7);
  }
}

// Checks what must hold for any input: every element lies in the text, members inside
// their parent.
void CheckShape(const std::vector<CodeElement*>& elements, uint32_t from, uint32_t to, size_t size) {
  for (const CodeElement* e : elements) {
    EXPECT_LE(e->start, e->end);
    EXPECT_LE(e->end, size);
    EXPECT_GE(e->start, from);
    EXPECT_LE(e->end, to);
    CheckShape(e->members(), e->start, e->end, size);
  }
}

TEST(VbParser, EveryPrefixOfAFileParsesIntoAWellFormedModel) {
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
    auto doc = Open(text.substr(0, n), PreprocessorSymbols{{{"DEBUG", "-1"}}});
    auto model = doc->CodeModel();
    std::vector<CodeElement*> top;
    for (int i = 1; i <= model->CodeElements()->Count(); ++i) top.push_back(model->CodeElements()->Item(i).get());
    CheckShape(top, 0, static_cast<uint32_t>(n), n);
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
    auto model = Open(text)->CodeModel();
    ASSERT_TRUE(model);
  }
  // 20000 nested classes without End: every one is there, nested.
  auto model = Open(inputs[6])->CodeModel();
  int depth = 0;
  for (CodeElement* e = model->CodeElements()->Item(1).get(); e; e = e->members().empty() ? nullptr : e->members()[0]) ++depth;
  EXPECT_EQ(depth, 20000);
}

}  // namespace
}  // namespace platform::codemodel
