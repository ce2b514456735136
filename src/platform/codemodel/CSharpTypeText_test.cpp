#include "platform/codemodel/CSharpTypeText.h"

#include <gtest/gtest.h>

namespace platform::codemodel {
namespace {

std::string Normalized(std::string_view text) {
  CsTokenStream s;
  TokenizeCSharp(text, {}, s);
  return CsTypeText(text, s.tokens.data(), s.tokens.data() + s.tokens.size() - 1);
}

TEST(CSharpTypeText, NormalizesBlanks) {
  EXPECT_EQ(Normalized("Dictionary < string ,List< int > >"), "Dictionary<string, List<int>>");
  EXPECT_EQ(Normalized("int [ , , ]"), "int[,,]");
  EXPECT_EQ(Normalized("Dictionary< , >"), "Dictionary<,>");
  EXPECT_EQ(Normalized("global :: System . String"), "global::System.String");
  EXPECT_EQ(Normalized("ref   readonly\n int"), "ref readonly int");
  EXPECT_EQ(Normalized("int /* c */ [ ] ?"), "int[]?");
  EXPECT_EQ(Normalized("IEnumerable<KeyValuePair<string,JToken>>.GetEnumerator"),
            "IEnumerable<KeyValuePair<string, JToken>>.GetEnumerator");
}

TEST(CSharpTypeText, TuplesKeepTheirElementNames) {
  EXPECT_EQ(Normalized("( int a,string  b )"), "(int a, string b)");
  EXPECT_EQ(Normalized("(int? a, List<int>b, int[]c, int*d, (int, int)e)"),
            "(int? a, List<int> b, int[] c, int* d, (int, int) e)");
}

TEST(CSharpTypeText, FunctionPointers) {
  EXPECT_EQ(Normalized("delegate * unmanaged [ Cdecl ] < int , void >"), "delegate* unmanaged[Cdecl]<int, void>");
  EXPECT_EQ(Normalized("delegate*<int,void>"), "delegate* <int, void>");
}

}  // namespace
}  // namespace platform::codemodel
