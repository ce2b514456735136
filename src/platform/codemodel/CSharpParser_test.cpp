#include "platform/codemodel/CSharpParser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/automation/Document.h"
#include "platform/automation/TextPoint.h"
#include "platform/codemodel/CodeElement.h"
#include "platform/core/Error.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

namespace platform::codemodel {
namespace {

using testsupport::ErrorOf;

Ref<FileCodeModel> ModelOf(std::string text, PreprocessorSymbols symbols = {}) {
  auto doc = automation::Document::FromText("A.cs", std::move(text), vsCMLanguageCSharp, std::move(symbols));
  return doc->CodeModel();
}

// Every element of the model, depth first.
void Walk(const std::vector<CodeElement*>& items, int& count) {
  for (const CodeElement* e : items) {
    ++count;
    Walk(e->members(), count);
  }
}

int ElementCount(const FileCodeModel& model) {
  int count = 0;
  auto top = model.CodeElements();
  for (int i = 1; i <= top->Count(); ++i) {
    ++count;
    Walk(top->Item(i)->members(), count);
  }
  return count;
}

TEST(CSharpParser, ReadsFailWith438WhereTheKindHasNoSuchProperty) {
  auto model = ModelOf(
      "using System;\n"
      "[assembly: A]\n"
      "namespace N {\n"
      "  class C {\n"
      "    int F;\n"
      "    int P { get; }\n"
      "    event System.Action E;\n"
      "    void M(int a) { }\n"
      "  }\n"
      "  delegate void D();\n"
      "}\n");
  auto top = model->CodeElements();
  ASSERT_EQ(top->Count(), 3);
  auto import = top->Item(1), attribute = top->Item(2), ns = top->Item(3);
  for (auto& e : {import, attribute, ns}) {
    EXPECT_EQ(ErrorOf([&] { e->Access(); }), 438) << e->Name();
    EXPECT_EQ(ErrorOf([&] { e->Prototype(vsCMPrototypeType); }), 438) << e->Name();
    EXPECT_EQ(ErrorOf([&] { e->Parameters(); }), 438) << e->Name();
  }
  EXPECT_EQ(ErrorOf([&] { import->Members(); }), 438);
  auto cls = ns->Members()->Item(1);
  auto delegate = ns->Members()->Item(2);
  EXPECT_EQ(delegate->Kind(), vsCMElementDelegate);
  EXPECT_EQ(ErrorOf([&] { delegate->Members(); }), 438);
  EXPECT_EQ(delegate->Parameters()->Count(), 0);
  EXPECT_EQ(ErrorOf([&] { cls->Prototype(0); }), 438);
  auto members = cls->Members();
  ASSERT_EQ(members->Count(), 4);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(ErrorOf([&] { members->Item(i)->Parameters(); }), 438);
    EXPECT_EQ(ErrorOf([&] { members->Item(i)->Members(); }), 438);
  }
  auto method = members->Item(4);
  EXPECT_EQ(method->Prototype(vsCMPrototypeType), "void M");
  EXPECT_EQ(method->Prototype(0), "M");
  EXPECT_EQ(method->Parameters()->Item(1)->Type()->AsString(), "int");
  EXPECT_EQ(method->Parameters()->Item(1)->Parent()->Name(), "M");
}

TEST(CSharpParser, AttributesAreElementsOfTheirOwn) {
  auto model = ModelOf(
      "class C {\n"
      "  [method:\n"
      "     First] [Second(1, \"}\")]\n"
      "  [global::Third<int, string>(X = 2)]\n"
      "  void M([In] int a) { }\n"
      "}");
  auto m = model->CodeElements()->Item(1)->Members()->Item(1);
  auto attributes = m->Attributes();
  ASSERT_EQ(attributes->Count(), 3);
  EXPECT_EQ(attributes->Item(1)->Name(), "First");
  EXPECT_EQ(attributes->Item(1)->StartPoint()->Line(), 3);
  EXPECT_EQ(attributes->Item(1)->Kind(), vsCMElementAttribute);
  EXPECT_EQ(attributes->Item(2)->Name(), "Second");
  EXPECT_EQ(attributes->Item(2)->EndPoint()->LineCharOffset(), 28);  // after ")"
  EXPECT_EQ(attributes->Item(3)->Name(), "global::Third<int, string>");
  EXPECT_EQ(TryAs<CodeElement>(attributes->Item(3)->Parent()).get(), m.get());
  EXPECT_EQ(attributes->Item(3)->DocComment(), "");
  EXPECT_EQ(ErrorOf([&] { attributes->Item(3)->Access(); }), 438);
  EXPECT_EQ(m->StartPoint()->Line(), 5);
}

TEST(CSharpParser, ParentsAndLanguage) {
  auto model = ModelOf("namespace N { class C { void M() { } } }");
  auto ns = model->CodeElements()->Item(1);
  auto cls = ns->Members()->Item(1);
  auto method = cls->Members()->Item(1);
  EXPECT_EQ(TryAs<FileCodeModel>(ns->Parent()).get(), model.get());
  EXPECT_EQ(TryAs<CodeElement>(cls->Parent()).get(), ns.get());
  EXPECT_EQ(TryAs<CodeElement>(method->Parent()).get(), cls.get());
  EXPECT_EQ(method->Language(), vsCMLanguageCSharp);
  EXPECT_EQ(model->Language(), vsCMLanguageCSharp);
}

TEST(CSharpParser, PointsCountCharactersOnCrlfAndCrLines) {
  // Multi-byte characters before the declaration: offsets count characters.
  auto model = ModelOf("class K {\r\n/// <summary>ü</summary>\r\n\t[Obsolete] public void Ü() { }\r\n}");
  auto m = model->CodeElements()->Item(1)->Members()->Item(1);
  EXPECT_EQ(m->StartPoint()->Line(), 3);
  EXPECT_EQ(m->StartPoint()->LineCharOffset(), 13);
  EXPECT_EQ(m->EndPoint()->Line(), 3);
  EXPECT_EQ(m->EndPoint()->LineCharOffset(), 32);  // just after the closing brace
  EXPECT_EQ(m->Attributes()->Item(1)->StartPoint()->LineCharOffset(), 3);
  EXPECT_EQ(m->DocComment(), "<doc>\r\n<summary>ü</summary>\r\n</doc>");

  auto cr = ModelOf("/// a\r/// b\rclass C\r{\r}\r");
  auto c = cr->CodeElements()->Item(1);
  EXPECT_EQ(c->StartPoint()->Line(), 3);
  EXPECT_EQ(c->EndPoint()->Line(), 5);
  EXPECT_EQ(c->DocComment(), "<doc>\r\na\r\nb\r\n</doc>");

  auto block = ModelOf("/**\r\n * a\r\n * b\r\n */\r\nclass C { }");
  EXPECT_EQ(block->CodeElements()->Item(1)->DocComment(), "<doc>\r\na\r\nb\r\n</doc>");
}

TEST(CSharpParser, ElementAtTheCaretIsTheInnermostHoldingTheLine) {
  auto model = ModelOf(
      "namespace N;\n"         // 1
      "\n"                     // 2
      "class C\n"              // 3
      "{\n"                    // 4
      "    int a, b;\n"        // 5
      "\n"                     // 6
      "    void M()\n"         // 7
      "    {\n"                // 8
      "        int Local() => 1;\n"  // 9
      "    }\n"                // 10
      "}\n");                  // 11, and the empty line 12
  EXPECT_EQ(model->CodeElementFromLine(9)->Name(), "M");
  EXPECT_EQ(model->CodeElementFromLine(7)->Name(), "M");
  EXPECT_EQ(model->CodeElementFromLine(5)->Name(), "a");
  EXPECT_EQ(model->CodeElementFromLine(6)->Name(), "C");
  EXPECT_EQ(model->CodeElementFromLine(2)->Name(), "N");
  EXPECT_EQ(model->CodeElementFromLine(12)->Name(), "N");
  EXPECT_FALSE(ModelOf("class C { }\n\n")->CodeElementFromLine(3));
}

TEST(CSharpParser, ContainersHoldTheirMembersEvenInBrokenCode) {
  // A file-scoped namespace inside a braced one runs to the end of the text; the outer
  // namespace must still hold it, or the element at a line could not be found.
  auto model = ModelOf("namespace A {\nnamespace B;\nclass C { }\n}\n\n");
  auto a = model->CodeElements()->Item(1);
  auto b = a->Members()->Item(1);
  EXPECT_LE(b->EndPoint()->offset(), a->EndPoint()->offset());
  EXPECT_EQ(model->CodeElementFromLine(3)->Name(), "C");
  EXPECT_EQ(model->CodeElementFromLine(5)->Name(), "B");
}

TEST(CSharpParser, SymbolsChooseTheBranches) {
  const std::string text = "#if DEBUG && NET8_0_OR_GREATER\nclass A { }\n#else\nclass B { }\n#endif\n";
  EXPECT_EQ(ModelOf(text, {{{"DEBUG", ""}, {"NET8_0_OR_GREATER", ""}}})->CodeElements()->Item(1)->Name(), "A");
  EXPECT_EQ(ModelOf(text, {{{"DEBUG", ""}}})->CodeElements()->Item(1)->Name(), "B");
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
    auto model = ModelOf(s);
    ASSERT_TRUE(model);
    EXPECT_GE(ElementCount(*model), 0);
  }
  // Deep nesting keeps every element down to the limit and the file stays readable.
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "class C" + std::to_string(i) + " { ";
  deep += std::string(5000, '}') + " class After { }";
  auto model = ModelOf(deep);
  auto top = model->CodeElements();
  ASSERT_EQ(top->Count(), 2);
  EXPECT_EQ(top->Item(2)->Name(), "After");
}

TEST(CSharpParser, EveryPrefixOfTheFixturesParses) {
  // Cutting a real file anywhere leaves a truncated declaration; the ones before it
  // must survive and nothing may crash.
  const std::filesystem::path file =
      std::filesystem::path(ANNOTRA_TESTDATA_DIR) / "codemodel" / "cs" / "members.cs";
  const std::string text = testsupport::ReadFile(file);
  ASSERT_FALSE(text.empty());
  const int full = ElementCount(*ModelOf(text));
  int previous = 0;
  for (size_t cut = 0; cut <= text.size(); cut += 7) {
    int count = ElementCount(*ModelOf(text.substr(0, cut)));
    EXPECT_LE(count, full + 1) << cut;
    previous = count;
  }
  EXPECT_EQ(previous > 0, true);
}

}  // namespace
}  // namespace platform::codemodel
