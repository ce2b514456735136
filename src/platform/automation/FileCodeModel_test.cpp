#include "platform/automation/FileCodeModel.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/automation/Document.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {

using namespace platform::codemodel;  // the element kinds, access flags and languages

Ref<FileCodeModel> ModelOf(std::string text, const char* language = vsCMLanguageCSharp) {
  auto doc = Document::FromText(language == std::string(vsCMLanguageVB) ? "A.vb" : "A.cs", std::move(text), language);
  return doc->CodeModel();
}

int ErrorNumberOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const Error& e) {
    return e.number;
  }
  return 0;
}

TEST(FileCodeModel, ReadsFailWith438WhereTheKindHasNoSuchProperty) {
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
    EXPECT_EQ(ErrorNumberOf([&] { e->Access(); }), 438) << e->Name();
    EXPECT_EQ(ErrorNumberOf([&] { e->Prototype(vsCMPrototypeType); }), 438) << e->Name();
    EXPECT_EQ(ErrorNumberOf([&] { e->Parameters(); }), 438) << e->Name();
  }
  EXPECT_EQ(ErrorNumberOf([&] { import->Members(); }), 438);
  auto cls = ns->Members()->Item(1);
  auto delegate = ns->Members()->Item(2);
  EXPECT_EQ(delegate->Kind(), vsCMElementDelegate);
  EXPECT_EQ(ErrorNumberOf([&] { delegate->Members(); }), 438);
  EXPECT_EQ(delegate->Parameters()->Count(), 0);
  EXPECT_EQ(ErrorNumberOf([&] { cls->Prototype(0); }), 438);
  auto members = cls->Members();
  ASSERT_EQ(members->Count(), 4);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(ErrorNumberOf([&] { members->Item(i)->Parameters(); }), 438);
    EXPECT_EQ(ErrorNumberOf([&] { members->Item(i)->Members(); }), 438);
  }
  EXPECT_EQ(ErrorNumberOf([&] { members->Item(5); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { members->Item(0); }), 5);
  auto method = members->Item(4);
  EXPECT_EQ(method->Prototype(vsCMPrototypeType), "void M");
  EXPECT_EQ(method->Prototype(0), "M");
  EXPECT_EQ(method->Parameters()->Item(1)->Type()->AsString(), "int");
  EXPECT_EQ(method->Parameters()->Item(1)->Parent()->Name(), "M");
  EXPECT_EQ(ErrorNumberOf([&] { method->Parameters()->Item(2); }), 5);
}

TEST(FileCodeModel, AttributesAreElementsOfTheirOwn) {
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
  EXPECT_EQ(ErrorNumberOf([&] { attributes->Item(3)->Access(); }), 438);
  EXPECT_EQ(m->StartPoint()->Line(), 5);
}

TEST(FileCodeModel, ParentsAndLanguage) {
  auto model = ModelOf("namespace N { class C { void M() { } } }");
  auto ns = model->CodeElements()->Item(1);
  auto cls = ns->Members()->Item(1);
  auto method = cls->Members()->Item(1);
  EXPECT_EQ(TryAs<FileCodeModel>(ns->Parent()).get(), model.get());
  EXPECT_EQ(TryAs<CodeElement>(cls->Parent()).get(), ns.get());
  EXPECT_EQ(TryAs<CodeElement>(method->Parent()).get(), cls.get());
  EXPECT_EQ(method->Language(), vsCMLanguageCSharp);
  EXPECT_EQ(model->Language(), vsCMLanguageCSharp);
  EXPECT_FALSE(model->Parent());  // a document outside any project
  // The same declaration is always the same element.
  EXPECT_EQ(ns->Members()->Item(1).get(), cls.get());
}

TEST(FileCodeModel, AnElementKeepsItsDocumentAlive) {
  Ref<CodeElement> method;
  {
    auto model = ModelOf("class C {\n  void M() { }\n}\n");
    method = model->CodeElements()->Item(1)->Members()->Item(1);
  }
  // Nothing holds the document but the element.
  auto cls = TryAs<CodeElement>(method->Parent());
  ASSERT_TRUE(cls);
  EXPECT_EQ(cls->Name(), "C");
  EXPECT_EQ(method->StartPoint()->Line(), 2);
  EXPECT_EQ(As<FileCodeModel>(cls->Parent())->CodeElementFromLine(2).get(), method.get());
}

TEST(FileCodeModel, PointsCountCharactersOnCrlfAndCrLines) {
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

TEST(FileCodeModel, ElementAtTheCaretIsTheInnermostHoldingTheLine) {
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

TEST(FileCodeModel, ContainersHoldTheirMembersEvenInBrokenCode) {
  // A file-scoped namespace inside a braced one runs to the end of the text; the outer
  // namespace must still hold it, or the element at a line could not be found.
  auto model = ModelOf("namespace A {\nnamespace B;\nclass C { }\n}\n\n");
  auto a = model->CodeElements()->Item(1);
  auto b = a->Members()->Item(1);
  EXPECT_LE(b->EndPoint()->offset(), a->EndPoint()->offset());
  EXPECT_EQ(model->CodeElementFromLine(3)->Name(), "C");
  EXPECT_EQ(model->CodeElementFromLine(5)->Name(), "B");
}

TEST(FileCodeModel, VbElementsReadThroughTheModel) {
  auto model = ModelOf(
      "Namespace N\r\n"
      "  ''' <summary>Thing</summary>\r\n"
      "  <Serializable>\r\n"
      "  Public Class C\r\n"
      "    Property P As Integer\r\n"
      "    Function F(x As Integer) As String\r\n"
      "      Return \"\"\r\n"
      "    End Function\r\n"
      "  End Class\r\n"
      "End Namespace\r\n",
      vsCMLanguageVB);
  ASSERT_TRUE(model);
  EXPECT_EQ(model->Language(), vsCMLanguageVB);
  ASSERT_EQ(model->CodeElements()->Count(), 1);
  auto ns = model->CodeElements()->Item(1);
  EXPECT_EQ(ns->Kind(), vsCMElementNamespace);
  EXPECT_EQ(ErrorNumberOf([&] { ns->Access(); }), err::kNotSupported);
  EXPECT_EQ(ErrorNumberOf([&] { ns->Prototype(vsCMPrototypeType); }), err::kNotSupported);
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
  EXPECT_EQ(ErrorNumberOf([&] { p->Parameters(); }), err::kNotSupported);
  EXPECT_EQ(ErrorNumberOf([&] { p->Members(); }), err::kNotSupported);
  auto f = c->Members()->Item(2);
  EXPECT_EQ(f->Prototype(vsCMPrototypeType), "String F");
  EXPECT_EQ(f->Prototype(0), "F");
  ASSERT_EQ(f->Parameters()->Count(), 1);
  EXPECT_EQ(f->Parameters()->Item(1)->Type()->AsString(), "Integer");
  EXPECT_EQ(model->CodeElementFromLine(7)->Name(), "F");
  EXPECT_EQ(model->CodeElementFromLine(5)->Name(), "P");
  EXPECT_EQ(model->CodeElementFromLine(3)->Name(), "N");  // an attribute line is not the class's
}

TEST(FileCodeModel, OtherLanguagesHaveNone) {
  EXPECT_FALSE(Document::FromText("A.txt", "class C { }", "")->CodeModel());
}

}  // namespace
}  // namespace platform::automation
