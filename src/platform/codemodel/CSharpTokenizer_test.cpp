#include "platform/codemodel/CSharpTokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform::codemodel {
namespace {

// The texts of the tokens of `text` (without the End token).
std::vector<std::string> Tokens(std::string_view text, const PreprocessorSymbols& symbols = {}) {
  CsTokenStream s;
  TokenizeCSharp(text, symbols, s);
  std::vector<std::string> out;
  for (const CsToken& t : s.tokens)
    if (t.kind != CsTokenKind::End) out.emplace_back(text.substr(t.start, t.end - t.start));
  return out;
}

using V = std::vector<std::string>;

TEST(CSharpTokenizer, EveryStringFormIsOneToken) {
  const std::vector<std::string> literals = {
      R"("a{b}\"c // /*")",
      R"(@"x "" { } // /* \")",
      R"($"{x} {{ {y:N2} {(a ? "}" : "{")} {$"{z}"}")",
      R"($@"{x}"" {{ }}")",
      R"(@$"{x}")",
      R"("""raw " "" { } """)",
      R"($$"""{{x}} { } {y} }""")",
      R"($"""{x} "" {"}"}""")",
      R"("abc"u8)",
      R"($"{new[] { 1, 2 }.Length} {f(g: 1)} {a::b}")",
      R"($"{x /* } */ }")",
  };
  for (const std::string& lit : literals) {
    std::string text = "a = " + lit + "; b";
    EXPECT_EQ(Tokens(text), (V{"a", "=", lit, ";", "b"})) << lit;
  }
}

TEST(CSharpTokenizer, MultiLineLiteralsHideBracesCommentsAndDirectives) {
  std::string verbatim = "@\"line1 {\n#if X\n// } \"\" /*\n\"";
  EXPECT_EQ(Tokens("a " + verbatim + " b"), (V{"a", verbatim, "b"}));
  std::string raw = "\"\"\"\n  { \"\" \n#endif\n  \"\"\"";
  EXPECT_EQ(Tokens("a " + raw + " b"), (V{"a", raw, "b"}));
  std::string interpolatedRaw = "$$\"\"\"\n  {{x}} { }\n  \"\"\"";
  EXPECT_EQ(Tokens("a " + interpolatedRaw + " b"), (V{"a", interpolatedRaw, "b"}));
  // A hole of a verbatim string may span lines and hold strings of its own.
  std::string hole = "$@\"{(x\n ? \"}\" : @\"{\")}\"";
  EXPECT_EQ(Tokens("a " + hole + " b"), (V{"a", hole, "b"}));
}

TEST(CSharpTokenizer, CharactersAndVerbatimIdentifiers) {
  EXPECT_EQ(Tokens(R"(c = '"'; d = '\''; e = '{'; f = '\u0041'; @class = 1)"),
            (V{"c", "=", "'\"'", ";", "d", "=", R"('\'')", ";", "e", "=", "'{'", ";", "f", "=",
               R"('\u0041')", ";", "@class", "=", "1"}));
  CsTokenStream s;
  TokenizeCSharp("@class class", {}, s);
  EXPECT_EQ(s.tokens[0].keyword, CsKeyword::None);
  EXPECT_EQ(s.tokens[1].keyword, CsKeyword::Class);
}

TEST(CSharpTokenizer, UnterminatedLiteralsEndWhereTheLanguageGivesUp) {
  EXPECT_EQ(Tokens("a = \"abc\n}"), (V{"a", "=", "\"abc", "}"}));
  EXPECT_EQ(Tokens("a = $\"{x\n}"), (V{"a", "=", "$\"{x", "}"}));
  EXPECT_EQ(Tokens("a = 'x\n}"), (V{"a", "=", "'x", "}"}));
  EXPECT_EQ(Tokens("a = \"\"\"abc\n}"), (V{"a", "=", "\"\"\"abc", "}"}));
  EXPECT_EQ(Tokens("a = @\"abc\n}"), (V{"a", "=", "@\"abc\n}"}));
  EXPECT_EQ(Tokens("a /* open"), (V{"a"}));
  EXPECT_EQ(Tokens("\"\\"), (V{"\"\\"}));
}

TEST(CSharpTokenizer, NumbersAndPunctuators) {
  EXPECT_EQ(Tokens("1.5e-3f 0x1E+2 1_000UL .5 1..2 3.ToString()"),
            (V{"1.5e-3f", "0x1E", "+", "2", "1_000UL", ".5", "1", "..", "2", "3", ".", "ToString", "(", ")"}));
  // '>' always stands alone so that >> can close two lists; the others are munched.
  EXPECT_EQ(Tokens("List<List<int>> x >>= y => z ?? w ::"),
            (V{"List", "<", "List", "<", "int", ">", ">", "x", ">", ">", "=", "y", "=>", "z", "??", "w", "::"}));
  EXPECT_EQ(Tokens("a <<= b != c"), (V{"a", "<<=", "b", "!=", "c"}));
}

TEST(CSharpTokenizer, CommentsAreNotTokensAndDocCommentsAreRecorded) {
  std::string text =
      "a // { x\n"
      "/* } */ b /// same line\n"
      "/// doc one\n"
      "//// not doc\n"
      "/**/ /*** not doc */\n"
      "/** block\n doc */ c";
  CsTokenStream s;
  TokenizeCSharp(text, {}, s);
  ASSERT_EQ(s.tokens.size(), 4u);  // a b c End
  ASSERT_EQ(s.docs.size(), 3u);
  auto docText = [&](const CsDocComment& d) { return text.substr(d.start, d.end - d.start); };
  EXPECT_EQ(docText(s.docs[0]), "/// same line");
  EXPECT_TRUE(s.docs[0].sameLine);
  EXPECT_EQ(docText(s.docs[1]), "/// doc one");
  EXPECT_FALSE(s.docs[1].sameLine);
  EXPECT_EQ(docText(s.docs[2]), "/** block\n doc */");
  EXPECT_FALSE(s.docs[2].sameLine);
  EXPECT_TRUE(s.docs[2].block);
  // docEnd counts the doc comments before each token.
  EXPECT_EQ(s.tokens[1].docEnd, 0u);
  EXPECT_EQ(s.tokens[2].docEnd, 3u);
  // A doc comment before the first token is never on "the previous token's line".
  TokenizeCSharp("/// first\nclass", {}, s);
  ASSERT_EQ(s.docs.size(), 1u);
  EXPECT_FALSE(s.docs[0].sameLine);
}

TEST(CSharpTokenizer, DirectivesSelectTheActiveRegions) {
  std::string text =
      "#if DEBUG\n"
      "a\n"
      "#elif RELEASE\n"
      "b\n"
      "#else\n"
      "c \"#endif\n"
      "  #if X\n"
      "x\n"
      "  #endif\n"
      "#endif\n"
      "d";
  EXPECT_EQ(Tokens(text, {{{"DEBUG", ""}}}), (V{"a", "d"}));
  EXPECT_EQ(Tokens(text, {{{"RELEASE", ""}}}), (V{"b", "d"}));
  // In the #else branch the string opened by '"' does not hide the #endif below it: an
  // inactive region is read line by line for directives only.
  EXPECT_EQ(Tokens(text), (V{"c", "\"#endif", "d"}));
  EXPECT_EQ(Tokens(text, {{{"X", ""}}}), (V{"c", "\"#endif", "x", "d"}));
}

TEST(CSharpTokenizer, DirectiveMarkersInsideCommentsAndLiteralsAreText) {
  EXPECT_EQ(Tokens("a /*\n#if FALSE\n*/ b"), (V{"a", "b"}));
  EXPECT_EQ(Tokens("a @\"\n#if FALSE\n\" b"), (V{"a", "@\"\n#if FALSE\n\"", "b"}));
  EXPECT_EQ(Tokens("a \"\"\"\n#if FALSE\n\"\"\" b"), (V{"a", "\"\"\"\n#if FALSE\n\"\"\"", "b"}));
  EXPECT_EQ(Tokens("a /* c */ #if FALSE\nb"), (V{"a", "#", "if", "FALSE", "b"}));
}

TEST(CSharpTokenizer, DefineAndUndefApplyInActiveRegionsOnly) {
  std::string text =
      "#if NEVER\n#define A\n#endif\n"
      "#define B\n#undef DEBUG\n"
      "#if A\na\n#endif\n#if B\nb\n#endif\n#if DEBUG\nd\n#endif\n";
  EXPECT_EQ(Tokens(text, {{{"DEBUG", ""}}}), (V{"b"}));
}

TEST(CSharpTokenizer, StrayAndUnclosedDirectivesDoNotStopReading) {
  EXPECT_EQ(Tokens("#endif\n#else\na\n#region R { \n#pragma warning disable\nb\n#endregion"), (V{"a", "b"}));
  EXPECT_EQ(Tokens("#if X\na\n"), V{});
  EXPECT_EQ(Tokens("#if\na\n#endif\nb"), (V{"b"}));  // malformed: false
}

TEST(CSharpTokenizer, KeywordTableIsComplete) {
  EXPECT_EQ(CsKeywordOf("class"), CsKeyword::Class);
  EXPECT_EQ(CsKeywordOf("__arglist"), CsKeyword::Arglist);
  EXPECT_EQ(CsKeywordOf("where"), CsKeyword::Where);
  EXPECT_EQ(CsKeywordOf("in"), CsKeyword::In);
  EXPECT_EQ(CsKeywordOf("interface"), CsKeyword::Interface);
  EXPECT_EQ(CsKeywordOf("record"), CsKeyword::Record);
  EXPECT_EQ(CsKeywordOf("ref"), CsKeyword::Ref);
  EXPECT_EQ(CsKeywordOf("required"), CsKeyword::Required);
  EXPECT_EQ(CsKeywordOf("readonly"), CsKeyword::Readonly);
  EXPECT_EQ(CsKeywordOf("Class"), CsKeyword::None);
  EXPECT_EQ(CsKeywordOf("int"), CsKeyword::None);
  EXPECT_EQ(CsKeywordOf(""), CsKeyword::None);
}

}  // namespace
}  // namespace platform::codemodel
