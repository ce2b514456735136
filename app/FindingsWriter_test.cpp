#include "FindingsWriter.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "SarifWriter.h"

using namespace app;

namespace {

Finding Make(int id, std::string project, std::string document, std::string path, std::string type,
             std::string member, int start, std::string problem, std::string file) {
  Finding f;
  f.ID = id;
  f.Project = std::move(project);
  f.Document = std::move(document);
  f.Path = std::move(path);
  f.Type = std::move(type);
  f.Member = std::move(member);
  f.Start = f.End = start;
  f.Problem = std::move(problem);
  f.file = std::move(file);
  return f;
}

std::vector<Finding> Sample() {
  return {
      Make(1, "Lib", "My File.cs", "Sub\\Deep", "Method", "Run:x", 12,
           "Parameter with different name in XML comment vs. definition.", "/src/Lib/Sub/Deep/My File.cs"),
      // No line and no file found: no region in SARIF, a path made of the columns.
      Make(2, "Vb", "M.vb", "", "Field (variable, constant)", "tab\there \"q\"", 0,
           "Code elements without definition comments.", ""),
      // A file outside the source root.
      Make(3, "Shared", "Link.cs", "", "Class", "Linked", 3, "Missing <summary> tag", "/elsewhere/Link.cs"),
  };
}

OutputContext Context() {
  OutputContext c;
  c.currentFolder = "/src";
  c.sourceRoot = "/src";
  c.version = "9.9.9";
  return c;
}

std::string Write(OutputFormat format, std::vector<Finding> findings = Sample(), OutputContext context = Context()) {
  std::ostringstream out;
  ListedFindings source(std::move(findings));
  EXPECT_TRUE(WriteFindings(out, source, format, context));
  return out.str();
}

}  // namespace

TEST(FindingsWriter, TsvHasTheElevenColumnsAndEscapesWhatWouldBreakALine) {
  std::string tsv = Write(OutputFormat::Tsv);
  EXPECT_EQ(tsv.substr(0, tsv.find('\n')), "ID\tFlag\tProject\tDocument\tType\tPath\tMember\tStart\tEnd\tStatus\tProblem");
  EXPECT_NE(tsv.find("\n1\t0\tLib\tMy File.cs\tMethod\tSub\\\\Deep\tRun:x\t12\t12\t0\t"), std::string::npos);
  EXPECT_NE(tsv.find("\ttab\\there \"q\"\t"), std::string::npos);
  EXPECT_EQ(TsvField("a\tb\nc\rd\\e"), "a\\tb\\nc\\rd\\\\e");
  EXPECT_EQ(std::count(tsv.begin(), tsv.end(), '\n'), 4);
}

TEST(FindingsWriter, MsbuildLinesAreTheCanonicalFormWithRuleIdentifiers) {
  std::string msbuild = Write(OutputFormat::Msbuild);
  EXPECT_EQ(msbuild,
            "Lib/Sub/Deep/My File.cs(12): warning AN0005: Parameter with different name in XML comment vs. definition. "
            "[Method Run:x]\n"
            "Vb/M.vb(0): warning AN0001: Code elements without definition comments. [Field (variable, constant) tab\there \"q\"]\n"
            "../elsewhere/Link.cs(3): warning AN0003: Missing <summary> tag [Class Linked]\n");
  const std::regex canonical(R"(^(.+)\((\d+)\): warning (AN\d{4}): (.*)$)");
  std::istringstream lines(msbuild);
  for (std::string line; std::getline(lines, line);) EXPECT_TRUE(std::regex_match(line, canonical)) << line;
}

TEST(FindingsWriter, JsonKeysTheColumnsAndAddsTheFile) {
  std::string json = Write(OutputFormat::Json);
  EXPECT_NE(json.find("\"Problem\": \"Code elements without definition comments.\""), std::string::npos);
  EXPECT_NE(json.find("\"Path\": \"Sub\\\\Deep\""), std::string::npos);
  EXPECT_NE(json.find("\"File\": \"Lib/Sub/Deep/My File.cs\""), std::string::npos);
  EXPECT_NE(json.find("\"Member\": \"tab\\there \\\"q\\\"\""), std::string::npos);
  EXPECT_EQ(Write(OutputFormat::Json, {}), "[]\n");
}

TEST(FindingsWriter, SarifLocatesRelativeToTheSourceRootAndDeclaresEveryRule) {
  std::string sarif = Write(OutputFormat::Sarif);
  EXPECT_NE(sarif.find("\"version\": \"2.1.0\""), std::string::npos);
  EXPECT_NE(sarif.find("\"name\": \"annotra\",\n          \"version\": \"9.9.9\""), std::string::npos);
  for (const char* rule : {"AN0001", "AN0002", "AN0003", "AN0004", "AN0005", "AN0006", "AN0007", "AN0008", "AN0009"})
    EXPECT_NE(sarif.find(std::string("{\"id\": \"") + rule + "\", \"name\": "), std::string::npos) << rule;
  EXPECT_NE(sarif.find("\"originalUriBaseIds\": {\"%SRCROOT%\": {\"uri\": \"file:///src/\"}}"), std::string::npos);
  EXPECT_NE(sarif.find("{\"uri\": \"Lib/Sub/Deep/My%20File.cs\", \"uriBaseId\": \"%SRCROOT%\"}"), std::string::npos);
  EXPECT_NE(sarif.find("{\"uri\": \"file:///elsewhere/Link.cs\"}"), std::string::npos);
  EXPECT_NE(sarif.find("\"ruleId\": \"AN0005\", \"ruleIndex\": 4"), std::string::npos);
  EXPECT_NE(sarif.find("\"region\": {\"startLine\": 12, \"endLine\": 12}"), std::string::npos);
  EXPECT_EQ(sarif.find("\"startLine\": 0"), std::string::npos);
  EXPECT_NE(sarif.find("\"message\": {\"text\": \"Missing <summary> tag [Class Linked]\"}"), std::string::npos);
}

TEST(FindingsWriter, FingerprintsIgnoreLinesAndCountOccurrencesWithinADocument) {
  Finding a = Sample()[0];
  Finding moved = a;
  moved.Start = moved.End = 40;
  EXPECT_EQ(FingerprintOf(a, 1), FingerprintOf(moved, 1));
  EXPECT_NE(FingerprintOf(a, 1), FingerprintOf(a, 2));
  Finding other = a;
  other.Member = "Run:y";
  EXPECT_NE(FingerprintOf(a, 1), FingerprintOf(other, 1));
  // Fields do not run into one another.
  Finding split = a, joined = a;
  split.Project = "Li";
  split.Document = "bMy File.cs";
  EXPECT_NE(FingerprintOf(split, 1), FingerprintOf(joined, 1));
  EXPECT_EQ(FingerprintOf(a, 1).size(), 16u);

  // Two overloads with the same finding in one document get two fingerprints; the same
  // in another document starts again at 1.
  Finding first = Make(1, "P", "A.cs", "", "Method", "Run", 5, "Missing <summary> tag", "/src/P/A.cs");
  Finding second = first;
  second.Start = second.End = 9;
  Finding elsewhere = first;
  elsewhere.Document = "B.cs";
  elsewhere.file = "/src/P/B.cs";
  std::string sarif = Write(OutputFormat::Sarif, {first, second, elsewhere});
  EXPECT_NE(sarif.find(FingerprintOf(first, 1)), std::string::npos);
  EXPECT_NE(sarif.find(FingerprintOf(first, 2)), std::string::npos);
  EXPECT_NE(sarif.find(FingerprintOf(elsewhere, 1)), std::string::npos);
}

TEST(FindingsWriter, RulesFollowTheProblemTextsAndFormatsTheirNames) {
  EXPECT_EQ(RuleIdOf("Missing <summary> tag"), "AN0003");
  EXPECT_EQ(RuleIdOf("Less parameters in XML comment than in definition."), "AN0009");
  EXPECT_EQ(RuleIdOf("Too large uncommented code block"), "AN0008");
  EXPECT_EQ(RuleIdOf("Something else"), "AN0000");
  OutputFormat f;
  EXPECT_FALSE(ParseOutputFormat("xml", f));
  EXPECT_TRUE(ParseOutputFormat("sarif", f));
  EXPECT_EQ(f, OutputFormat::Sarif);
  EXPECT_EQ(OutputFormatNames(), "table|tsv|json|msbuild|sarif|html");
  EXPECT_EQ(UriOfPath("a b/ü#.cs"), "a%20b/%C3%BC%23.cs");
}

TEST(FindingsWriter, AFailingStreamIsReported) {
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  ListedFindings source(Sample());
  EXPECT_FALSE(WriteFindings(out, source, OutputFormat::Msbuild, Context()));
}
