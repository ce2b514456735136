#include "platform/codemodel/VbPreprocessor.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::codemodel {
namespace {

// Feeds `line` (the text after '#') to `pp`, tokenized the way the statement reader does.
void Feed(VbPreprocessor& pp, const std::string& line) {
  VbLexer lexer(line);
  std::vector<VbToken> tokens;
  for (uint32_t p = 0;;) {
    VbToken t = lexer.Scan(p, VbScanContext{});
    if (t.kind == VbTokenKind::End || t.kind == VbTokenKind::Newline) break;
    if (t.kind != VbTokenKind::Comment) tokens.push_back(t);
  }
  pp.Directive(line, tokens);
}

// Whether "#If <condition> Then" opens an active branch under `symbols`.
bool Holds(const std::string& condition, const PreprocessorSymbols& symbols = {}) {
  VbPreprocessor pp(symbols);
  Feed(pp, "If " + condition + " Then");
  return pp.Active();
}

TEST(VbPreprocessor, ProjectConstantsAsTheLoaderHandsThemIn) {
  PreprocessorSymbols s{{{"DEBUG", "-1"}, {"TRACE", "True"}, {"Target", "\"exe\""}, {"Flag", ""},
                         {"Zero", "0"}, {"Off", "False"}, {"NET48", "True"}}};
  EXPECT_TRUE(Holds("DEBUG", s));
  EXPECT_TRUE(Holds("debug", s));  // names in any letter case
  EXPECT_TRUE(Holds("TRACE", s));
  EXPECT_TRUE(Holds("Flag", s));    // defined without a value: True
  EXPECT_TRUE(Holds("NET48", s));
  EXPECT_FALSE(Holds("Zero", s));
  EXPECT_FALSE(Holds("Off", s));
  EXPECT_FALSE(Holds("UNDEFINED", s));  // Nothing
  EXPECT_TRUE(Holds("Target = \"exe\"", s));
  EXPECT_FALSE(Holds("Target = \"dll\"", s));
  EXPECT_TRUE(Holds("Not UNDEFINED", s));
}

TEST(VbPreprocessor, OperatorsAndPrecedence) {
  PreprocessorSymbols s{{{"A", "1"}, {"B", "True"}, {"V", "3"}}};
  EXPECT_TRUE(Holds("A And B", s));
  EXPECT_TRUE(Holds("A = 1 AndAlso Not C", s));
  EXPECT_TRUE(Holds("C OrElse B", s));
  EXPECT_FALSE(Holds("B Xor True", s));
  EXPECT_TRUE(Holds("V >= 3 And V < 4", s));
  EXPECT_TRUE(Holds("V * 2 + 1 = 7", s));
  EXPECT_TRUE(Holds("(V - 1) \\ 2 = 1", s));
  EXPECT_TRUE(Holds("V Mod 2 = 1", s));
  EXPECT_TRUE(Holds("\"a\" & V = \"a3\"", s));
  EXPECT_TRUE(Holds("If(B, True, False)", s));
  EXPECT_TRUE(Holds("CInt(\"4\") = 4", s));
  EXPECT_TRUE(Holds("Not A = 2", s));  // Not binds looser than comparison
}

TEST(VbPreprocessor, MalformedConditionsAreFalse) {
  EXPECT_FALSE(Holds("("));
  EXPECT_FALSE(Holds("1 +"));
  EXPECT_FALSE(Holds("True True"));
  EXPECT_FALSE(Holds(""));
  EXPECT_FALSE(Holds(std::string(5000, '(') + "True" + std::string(5000, ')')));  // no stack exhaustion
  VbPreprocessor pp(PreprocessorSymbols{});
  Feed(pp, "If (");
  Feed(pp, "Else");
  EXPECT_TRUE(pp.Active());  // the #Else of a false #If
}

TEST(VbPreprocessor, BranchesAndNesting) {
  VbPreprocessor pp(PreprocessorSymbols{{{"X", "2"}}});
  Feed(pp, "If X = 1 Then");
  EXPECT_FALSE(pp.Active());
  Feed(pp, "ElseIf X = 2 Then");
  EXPECT_TRUE(pp.Active());
  Feed(pp, "If False Then");
  EXPECT_FALSE(pp.Active());
  Feed(pp, "Else");
  EXPECT_TRUE(pp.Active());
  Feed(pp, "End If");
  EXPECT_TRUE(pp.Active());
  Feed(pp, "Else If True Then");  // a branch was taken already
  EXPECT_FALSE(pp.Active());
  Feed(pp, "If True Then");  // nested inside an inactive branch
  EXPECT_FALSE(pp.Active());
  Feed(pp, "EndIf");
  Feed(pp, "Else");
  EXPECT_FALSE(pp.Active());
  Feed(pp, "End If");
  EXPECT_TRUE(pp.Active());
  Feed(pp, "End If");  // stray: ignored
  Feed(pp, "Else");
  EXPECT_TRUE(pp.Active());
}

TEST(VbPreprocessor, ElseIfOrElseAfterElseChangeNothing) {
  VbPreprocessor pp(PreprocessorSymbols{{{"A", "True"}}});
  Feed(pp, "If Not A Then");
  Feed(pp, "Else");
  Feed(pp, "ElseIf Not A Then");  // malformed: the #Else branch goes on
  EXPECT_TRUE(pp.Active());
  Feed(pp, "Else");
  EXPECT_TRUE(pp.Active());
  Feed(pp, "End If");
  Feed(pp, "If A Then");
  Feed(pp, "Else");
  Feed(pp, "Else If True Then");
  EXPECT_FALSE(pp.Active());
  Feed(pp, "End If");
  EXPECT_TRUE(pp.Active());
}

TEST(VbPreprocessor, ConstApplyOnlyWhereActive) {
  VbPreprocessor pp(PreprocessorSymbols{});
  Feed(pp, "Const Mode = \"fast\" ' a comment");
  EXPECT_EQ(pp.Value("MODE").text, "fast");
  Feed(pp, "If False Then");
  Feed(pp, "Const Mode = \"slow\"");
  Feed(pp, "End If");
  EXPECT_EQ(pp.Value("mode").text, "fast");
  Feed(pp, "Const Level = 2 * 3");
  EXPECT_EQ(pp.Value("Level").number, 6);
  Feed(pp, "Const Derived = Level > 5");
  EXPECT_TRUE(pp.Value("Derived").IsTrue());
}

}  // namespace
}  // namespace platform::codemodel
