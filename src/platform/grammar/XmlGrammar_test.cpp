// The shipped XML grammar (resources/XML.GMR) against documentation comments: each
// testdata/grammar/xml/NAME.xml is parsed and its tree compared with NAME.tree beside it.
// ANNOTRA_UPDATE_FIXTURES=1 writes the .tree files afresh (review them before committing).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/grammar/GrammarParser.h"
#include "testsupport/TempDir.h"

namespace platform::grammar {
namespace {

namespace fs = std::filesystem;

std::string Escaped(const std::string& s) {
  std::string out;
  for (char c : s) {
    if (c == '\r') out += "\\r";
    else if (c == '\n') out += "\\n";
    else if (c == '\t') out += "\\t";
    else out += c;
  }
  return out;
}

class XmlGrammarTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(m_parser.LoadGrammar(std::string(ANNOTRA_SOURCE_DIR) + "/resources/XML.GMR"))
        << m_parser.LastError();
  }
  void Parse(const std::string& text) {
    m_parser.SetInputText(text);
    EXPECT_TRUE(m_parser.Parse()) << "the XML grammar matches any text whole";
  }
  // One line per node: indentation by depth, name, text.
  std::string Dump() {
    std::string out;
    for (int32_t id = 1; id <= m_parser.NodeCount(); ++id) {
      int depth = 0;
      for (int32_t p = m_parser.ParentNode(id); p; p = m_parser.ParentNode(p)) ++depth;
      out += std::string(2 * depth, ' ') + m_parser.NodeName(id) + " \"" +
             Escaped(m_parser.NodeText(id)) + "\"\n";
    }
    return out;
  }
  // Whether the element whose name node is `nameNode` has no content, as the checks ask.
  bool HasNoContent(int32_t nameNode) {
    return m_parser.NodeName(m_parser.NextSibling(m_parser.ParentNode(nameNode))) == "end_tag";
  }
  int32_t Element(const std::string& name) {
    return m_parser.SearchBelow(0, "/.*element_name =\"" + name + "\"");
  }
  std::string Attribute(const std::string& element, const std::string& attr) {
    int32_t tag = m_parser.ParentNode(Element(element));
    int32_t found = m_parser.SearchBelow(tag, ".*attr_name=\"" + attr + "\"");
    return found ? m_parser.NodeText(m_parser.ParentNode(found)) : "<none>";
  }
  GrammarParser m_parser;
};

TEST_F(XmlGrammarTest, FixturesGiveTheExpectedTrees) {
  bool update = std::getenv("ANNOTRA_UPDATE_FIXTURES") != nullptr;
  int seen = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(ANNOTRA_TESTDATA_DIR) / "grammar/xml")) {
    if (entry.path().extension() != ".xml") continue;
    ++seen;
    Parse(testsupport::ReadFile(entry.path()));
    std::string actual = Dump();
    auto expectedPath = fs::path(entry.path()).replace_extension(".tree");
    if (update) std::ofstream(expectedPath, std::ios::binary) << actual;
    EXPECT_EQ(actual, testsupport::ReadFile(expectedPath)) << entry.path();
  }
  EXPECT_GE(seen, 10);
}

TEST_F(XmlGrammarTest, ElementNameHangsBelowTheStartTag) {
  Parse("<doc><summary a=\"1\">x</summary></doc>");
  int32_t h = m_parser.StartSearch("/.*element_name", 0);
  std::string names;
  for (int32_t n = m_parser.NextMatch(h); n; n = m_parser.NextMatch(h)) {
    names += m_parser.NodeText(n) + " ";
    EXPECT_EQ(m_parser.NodeName(m_parser.ParentNode(n)), "start_tag");
  }
  EXPECT_EQ(names, "doc summary ");
}

TEST_F(XmlGrammarTest, EndTagFollowsTheStartTagExactlyWhenThereIsNoContent) {
  Parse("<a/><b></b><c> \r\n\t </c><d >x</d><e><f/></e><g>&amp;</g><h><!-- c --></h>"
        "<i><![CDATA[]]></i><j> <k/> </j><l>\r\n</l><m x='1' />");
  for (const char* empty : {"a", "b", "c", "f", "k", "l", "m"})
    EXPECT_TRUE(HasNoContent(Element(empty))) << empty;
  for (const char* full : {"d", "e", "g", "h", "i", "j"})
    EXPECT_FALSE(HasNoContent(Element(full))) << full;
}

TEST_F(XmlGrammarTest, UnclosedElementWithBlanksOnlyHasNoContent) {
  Parse("<doc><summary>text</summary>\r\n<returns>  ");
  EXPECT_TRUE(HasNoContent(Element("returns")));
  EXPECT_FALSE(HasNoContent(Element("summary")));
}

TEST_F(XmlGrammarTest, AttributeValuesWithoutQuotes) {
  Parse("<doc><param name=\"a\" type='List<int>'>x</param><see cref=T:X/><p name=\"\" b/></doc>");
  EXPECT_EQ(Attribute("param", "name"), "a");
  EXPECT_EQ(Attribute("param", "type"), "List<int>");
  EXPECT_EQ(Attribute("see", "cref"), "T:X");
  EXPECT_EQ(Attribute("p", "name"), "");
  EXPECT_EQ(Attribute("p", "b"), "");
  EXPECT_EQ(Attribute("param", "missing"), "<none>");
}

TEST_F(XmlGrammarTest, TagNamesInsideCdataCommentsAndTextAreNoElements) {
  Parse("<doc><![CDATA[<summary>]]><!-- <returns> -->a <b and <1</doc>");
  EXPECT_EQ(Element("summary"), 0);
  EXPECT_EQ(Element("returns"), 0);
  EXPECT_EQ(Element("b"), 0);
  EXPECT_NE(Element("doc"), 0);
}

TEST_F(XmlGrammarTest, ParamSearchFromTheDocComment) {
  // What the parameter check does: every param element, its name and type.
  Parse("<doc>\r\n<param name=\"b\" type=\"int\">B</param>\r\n<param name=\"a\">A</param>\r\n</doc>");
  int32_t h = m_parser.StartSearch("/.*element_name =\"param\"", 0);
  ASSERT_NE(h, 0);
  std::string seen;
  for (int32_t n = m_parser.NextMatch(h); n; n = m_parser.NextMatch(h)) {
    int32_t tag = m_parser.ParentNode(n);
    for (const char* attr : {"name", "type"}) {
      int32_t a = m_parser.SearchBelow(tag, std::string(".*attr_name=\"") + attr + "\"");
      seen += (a ? m_parser.NodeText(m_parser.ParentNode(a)) : "") + ",";
    }
    seen += ";";
  }
  m_parser.EndSearch(h);
  EXPECT_EQ(seen, "b,int,;a,,;");
}

TEST_F(XmlGrammarTest, DeeplyNestedOrHugeInputNeitherCrashesNorHangs) {
  std::string deep;
  for (int i = 0; i < 50000; ++i) deep += "<a>";
  m_parser.SetInputText(deep);
  m_parser.Parse();
  EXPECT_GT(m_parser.NodeCount(), 0);
  EXPECT_NE(Element("a"), 0);
  std::string big;
  for (int i = 0; i < 20000; ++i) big += "<p x=\"1\">t &amp; <see cref=\"y\"/></p> < ";
  Parse(big);
  EXPECT_EQ(m_parser.NodeText(Element("p")), "p");
}

}  // namespace
}  // namespace platform::grammar
