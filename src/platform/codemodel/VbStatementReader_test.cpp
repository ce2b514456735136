#include "platform/codemodel/VbStatementReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>


namespace platform::codemodel {
namespace {

struct Read {
  std::vector<std::string> statements;  // each statement's tokens, joined by one blank
  std::vector<std::string> docs;        // the doc comments before each, joined by '|'
};

Read ReadAll(const std::string& text, PreprocessorSymbols symbols = {}) {
  Read r;
  VbStatementReader reader(text, symbols);
  VbStatement st;
  while (reader.Next(st)) {
    std::string joined;
    for (const VbToken& t : st.tokens) joined += (joined.empty() ? "" : " ") + text.substr(t.offset, t.length);
    r.statements.push_back(joined);
    std::string docs;
    for (const VbSpan& s : st.docComments) docs += (docs.empty() ? "" : "|") + text.substr(s.offset, s.length);
    r.docs.push_back(docs);
  }
  return r;
}

using Lines = std::vector<std::string>;

TEST(VbStatementReader, ExplicitAndImplicitContinuations) {
  EXPECT_EQ(ReadAll("Sub F(a As Integer, _\r\n      b As Long) ' c\r\nEnd Sub\r\n").statements,
            (Lines{"Sub F ( a As Integer , b As Long )", "End Sub"}));
  EXPECT_EQ(ReadAll("x = Foo(a,\n  b\n)\ny = 1 +\n\n 2\nz = a.\nB\n").statements,
            (Lines{"x = Foo ( a , b )", "y = 1 + 2", "z = a . B"}));
  // An attribute list continues onto its declaration; an assembly attribute does not.
  EXPECT_EQ(ReadAll("<Serializable>\n' note\nClass C\n<Assembly: A>\n<Assembly: B>\n").statements,
            (Lines{"< Serializable > Class C", "< Assembly : A >", "< Assembly : B >"}));
  // Query keywords continue a query only.
  EXPECT_EQ(ReadAll("Dim q = From c In cs\n Where c > 1\n Select c\nSelect Case q\nDim o As Order\nx = 1\n").statements,
            (Lines{"Dim q = From c In cs Where c > 1 Select c", "Select Case q", "Dim o As Order", "x = 1"}));
  // x.<name> at the end of a line ends like a name.
  EXPECT_EQ(ReadAll("Dim y = x.<child>\nDim z = 2\n").statements, (Lines{"Dim y = x . < child >", "Dim z = 2"}));
}

TEST(VbStatementReader, ColonsSplitStatementsButNotAttributesOrArguments) {
  EXPECT_EQ(ReadAll("Sub Z() : End Sub\n<Assembly: Guid(\"a:b\")>\nFoo(x:=1) : : Bar()\n").statements,
            (Lines{"Sub Z ( )", "End Sub", "< Assembly : Guid ( \"a:b\" ) >", "Foo ( x := 1 )", "Bar ( )"}));
}

TEST(VbStatementReader, LiteralsHideCommentMarkersAndLineBreaks) {
  Read r = ReadAll("a = \"it's \"\" REM\" ' real\nb = \"two\nlines ' x\" : c = $\"{If(a, \"}\", \"'\")}\"\n"
                   "d = <x a='1'>'End Sub\n</x> REM end\ne = #1/2/2003# + 1\n");
  ASSERT_EQ(r.statements.size(), 5u);
  EXPECT_EQ(r.statements[0], "a = \"it's \"\" REM\"");
  EXPECT_EQ(r.statements[1], "b = \"two\nlines ' x\"");
  EXPECT_EQ(r.statements[2], "c = $\"{If(a, \"}\", \"'\")}\"");
  EXPECT_EQ(r.statements[3], "d = <x a='1'>'End Sub\n</x>");
  EXPECT_EQ(r.statements[4], "e = #1/2/2003# + 1");
}

TEST(VbStatementReader, DocCommentsBeforeEachStatement) {
  Read r = ReadAll(
      "x = 1 ''' trailing: not for the next\n"
      "''' one\n"
      "\n"
      "' plain\n"
      "'''' four marks: plain\n"
      "#Region \"r\"\n"
      "''' two\n"
      "Sub A()\n"
      "\xE2\x80\x99\xE2\x80\x99\xE2\x80\x99 typographic\n"
      "Sub B()\n");
  ASSERT_EQ(r.docs.size(), 3u);
  EXPECT_EQ(r.docs[0], "");
  EXPECT_EQ(r.docs[1], "''' one|''' two");
  EXPECT_EQ(r.docs[2], "\xE2\x80\x99\xE2\x80\x99\xE2\x80\x99 typographic");
}

TEST(VbStatementReader, InactiveBranchesAreLeftOut) {
  std::string text =
      "#If DEBUG Then\nA\n#ElseIf Mode = \"x\" Then\nB \"open\n#Else\n''' doc of C\nC\n#End If\nD\n"
      "#Const Mode = \"x\"\n#If Mode = \"x\" Then\nE\n#End If\n";
  EXPECT_EQ(ReadAll(text, {{{"DEBUG", "-1"}}}).statements, (Lines{"A", "D", "E"}));
  Read r = ReadAll(text);
  EXPECT_EQ(r.statements, (Lines{"C", "D", "E"}));
  EXPECT_EQ(r.docs[0], "''' doc of C");
}

}  // namespace
}  // namespace platform::codemodel
