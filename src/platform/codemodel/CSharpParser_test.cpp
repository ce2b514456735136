#include "platform/codemodel/CSharpParser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "testsupport/TempDir.h"

namespace platform::codemodel {
namespace {

// The declarations of `text`, which must outlive them.
DeclarationTree Parse(std::string_view text, const PreprocessorSymbols& symbols = {}) {
  DeclarationTree tree(text);
  CSharpParser().Parse(tree, symbols);
  return tree;
}

// Every declaration below `items`, depth first, attributes not counted.
void Walk(const std::vector<Declaration*>& items, int& count) {
  for (const Declaration* d : items) {
    ++count;
    Walk(d->members, count);
  }
}

int DeclarationCount(const DeclarationTree& tree) {
  int count = 0;
  Walk(tree.TopLevel(), count);
  return count;
}

TEST(CSharpParser, SymbolsChooseTheBranches) {
  const std::string_view text = "#if DEBUG && NET8_0_OR_GREATER\nclass A { }\n#else\nclass B { }\n#endif\n";
  EXPECT_EQ(Parse(text, {{{"DEBUG", ""}, {"NET8_0_OR_GREATER", ""}}}).TopLevel().at(0)->name, "A");
  EXPECT_EQ(Parse(text, {{{"DEBUG", ""}}}).TopLevel().at(0)->name, "B");
}

TEST(CSharpParser, AMalformedDirectiveAfterElseCostsNoDeclarations) {
  const std::string_view text =
      "#if false\nclass A { }\n#else\nclass B { }\n#elif true\nclass C { }\n#else\nclass D { }\n#endif\n";
  auto tree = Parse(text);
  ASSERT_EQ(tree.TopLevel().size(), 3u);
  EXPECT_EQ(tree.TopLevel()[0]->name, "B");
  EXPECT_EQ(tree.TopLevel()[1]->name, "C");
  EXPECT_EQ(tree.TopLevel()[2]->name, "D");
}

TEST(CSharpParser, AdversarialInputEndsQuicklyWithoutCrashing) {
  const std::string shapes[] = {
      std::string(200000, '{'),
      std::string(200000, '}'),
      std::string(100000, '(') + std::string(100000, ')'),
      std::string(200000, '<'),
      std::string(200000, '>'),
      std::string(100000, '['),
      [] {
        std::string s = "class C { int F = ";
        for (int i = 0; i < 20000; ++i) s += "$\"{";
        return s;
      }(),
      [] {
        std::string s;
        for (int i = 0; i < 20000; ++i) s += "namespace N" + std::to_string(i) + " { class C { ";
        return s;
      }(),
      [] {
        std::string s = "class C { List<";
        for (int i = 0; i < 50000; ++i) s += "List<";
        return s + "int";
      }(),
      [] {
        std::string s = "class C { int x = ";
        for (int i = 0; i < 50000; ++i) s += "a < b, ";
        return s;
      }(),
      [] {
        std::string s;
        for (int i = 0; i < 50000; ++i) s += "#if A\n#else\n";
        return s;
      }(),
      std::string("class C { void M() { \"") + std::string(100000, '\\'),
      std::string(100000, '@') + std::string(100000, '$') + "\"",
      std::string("\0\0\xff\xfe class \x80\x81 C {", 17),
  };
  for (const std::string& s : shapes) {
    auto tree = Parse(s);
    for (size_t i = 0; i < tree.Size(); ++i) {
      EXPECT_LE(tree.At(i).start, tree.At(i).end);
      EXPECT_LE(tree.At(i).end, s.size());
    }
  }
  // Deep nesting keeps every element down to the limit and the file stays readable.
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "class C" + std::to_string(i) + " { ";
  deep += std::string(5000, '}') + " class After { }";
  auto tree = Parse(deep);
  ASSERT_EQ(tree.TopLevel().size(), 2u);
  EXPECT_EQ(tree.TopLevel()[1]->name, "After");
}

TEST(CSharpParser, EveryPrefixOfTheFixturesParses) {
  // Cutting a real file anywhere leaves a truncated declaration; the ones before it
  // must survive and nothing may crash.
  const std::filesystem::path file =
      std::filesystem::path(ANNOTRA_TESTDATA_DIR) / "codemodel" / "cs" / "members.cs";
  const std::string text = testsupport::ReadFile(file);
  ASSERT_FALSE(text.empty());
  const int full = DeclarationCount(Parse(text));
  int previous = 0;
  for (size_t cut = 0; cut <= text.size(); cut += 7) {
    int count = DeclarationCount(Parse(std::string_view(text).substr(0, cut)));
    EXPECT_LE(count, full + 1) << cut;
    previous = count;
  }
  EXPECT_EQ(previous > 0, true);
}

}  // namespace
}  // namespace platform::codemodel
