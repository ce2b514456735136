#include "platform/codemodel/CSharpPreprocessor.h"

#include <gtest/gtest.h>

namespace platform::codemodel {
namespace {

TEST(CSharpPreprocessor, EvaluatesConditions) {
  CSharpPreprocessor pp(PreprocessorSymbols{{{"DEBUG", ""}, {"NET8_0", ""}, {"TRACE", "ignored"}}});
  EXPECT_TRUE(pp.Evaluate("DEBUG"));
  EXPECT_FALSE(pp.Evaluate("RELEASE"));
  EXPECT_TRUE(pp.Evaluate("DEBUG && !RELEASE"));
  EXPECT_TRUE(pp.Evaluate("(RELEASE || NET8_0) && TRACE"));
  EXPECT_TRUE(pp.Evaluate("RELEASE || DEBUG && NET8_0"));
  EXPECT_FALSE(pp.Evaluate("(RELEASE || DEBUG) && NET6_0"));
  EXPECT_TRUE(pp.Evaluate("DEBUG == true"));
  EXPECT_TRUE(pp.Evaluate("RELEASE != DEBUG"));
  EXPECT_TRUE(pp.Evaluate("!!DEBUG // comment"));
  EXPECT_TRUE(pp.Evaluate("true"));
  EXPECT_FALSE(pp.Evaluate("false || !true"));
  EXPECT_FALSE(pp.Evaluate("debug"));  // symbols are case-sensitive
}

TEST(CSharpPreprocessor, MalformedConditionsAreFalse) {
  CSharpPreprocessor pp(PreprocessorSymbols{{{"A", ""}, {"B", ""}}});
  for (const char* bad : {"", "A &&", "(A", "A)", "A B", "A & B", "A || || B", "!", "A == ", "\"A\"", "1"})
    EXPECT_FALSE(pp.Evaluate(bad)) << bad;
  // Nesting deeper than the reader allows is malformed, not a crash.
  std::string deep(100000, '(');
  deep += "A";
  deep += std::string(100000, ')');
  EXPECT_FALSE(pp.Evaluate(deep));
  EXPECT_FALSE(pp.Evaluate(std::string(100000, '!') + "A"));
}

TEST(CSharpPreprocessor, SectionsAndBranches) {
  CSharpPreprocessor pp(PreprocessorSymbols{{{"A", ""}}});
  pp.Directive("if B");
  EXPECT_FALSE(pp.Active());
  pp.Directive("elif A");
  EXPECT_TRUE(pp.Active());
  pp.Directive("if true");  // nested in an active branch
  EXPECT_TRUE(pp.Active());
  pp.Directive("endif");
  pp.Directive("elif true");  // a branch after the taken one stays inactive
  EXPECT_FALSE(pp.Active());
  pp.Directive("if true");  // nested in an inactive branch: inactive whatever it says
  EXPECT_FALSE(pp.Active());
  pp.Directive("else");
  EXPECT_FALSE(pp.Active());
  pp.Directive("endif");
  pp.Directive("else");
  EXPECT_FALSE(pp.Active());
  pp.Directive("endif");
  EXPECT_TRUE(pp.Active());
  pp.Directive("endif");  // stray
  EXPECT_TRUE(pp.Active());
  pp.Directive("  if   !A   ");
  EXPECT_FALSE(pp.Active());
  pp.Directive("else // the rest");
  EXPECT_TRUE(pp.Active());
  pp.Directive("else");  // a second #else is ignored
  EXPECT_TRUE(pp.Active());
}

TEST(CSharpPreprocessor, ElifOrElseAfterElseChangeNothing) {
  CSharpPreprocessor pp(PreprocessorSymbols{{{"A", ""}}});
  pp.Directive("if !A");
  pp.Directive("else");
  pp.Directive("elif !A");  // malformed: the #else branch goes on
  EXPECT_TRUE(pp.Active());
  pp.Directive("endif");
  pp.Directive("if A");
  pp.Directive("else");
  pp.Directive("elif true");
  EXPECT_FALSE(pp.Active());
  pp.Directive("else");
  EXPECT_FALSE(pp.Active());
  pp.Directive("endif");
  EXPECT_TRUE(pp.Active());
}

TEST(CSharpPreprocessor, DefineAndUndef) {
  CSharpPreprocessor pp(PreprocessorSymbols{});
  pp.Directive("define X // comment");
  EXPECT_TRUE(pp.IsDefined("X"));
  pp.Directive("if false");
  pp.Directive("undef X");
  pp.Directive("define Y");
  pp.Directive("endif");
  EXPECT_TRUE(pp.IsDefined("X"));
  EXPECT_FALSE(pp.IsDefined("Y"));
  pp.Directive("undef X");
  EXPECT_FALSE(pp.IsDefined("X"));
  pp.Directive("define true");  // not a symbol
  EXPECT_FALSE(pp.IsDefined("true"));
}

}  // namespace
}  // namespace platform::codemodel
