#include "FindingsWriter.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace app;

namespace {

std::vector<Finding> Sample() {
  Finding a;
  a.ID = 1;
  a.Project = "Lib";
  a.Document = "My File.cs";
  a.Type = "Method";
  a.Path = "Sub\\Deep";
  a.Member = "Run:x";
  a.Start = 12;
  a.End = 12;
  a.Problem = "Parameter with different name in XML comment vs. definition.";
  a.file = "/src/Lib/Sub/Deep/My File.cs";
  Finding b;
  b.ID = 2;
  b.Project = "Vb";
  b.Document = "M.vb";
  b.Type = "Field (variable, constant)";
  b.Member = "tab\there";
  b.Start = 0;  // no line: no region in SARIF
  b.Problem = "Code elements without \"definition\" comments.";
  return {a, b};
}

std::string Write(OutputFormat format) {
  std::ostringstream out;
  WriteFindings(out, Sample(), format, "/src");
  return out.str();
}

}  // namespace

TEST(FindingsWriter, TsvHasTheElevenColumnsAndEscapesTabs) {
  std::string tsv = Write(OutputFormat::Tsv);
  EXPECT_EQ(tsv.substr(0, tsv.find('\n')), "ID\tFlag\tProject\tDocument\tType\tPath\tMember\tStart\tEnd\tStatus\tProblem");
  EXPECT_NE(tsv.find("1\t0\tLib\tMy File.cs\tMethod\tSub\\\\Deep\tRun:x\t12\t12\t0\t"), std::string::npos);
  EXPECT_NE(tsv.find("tab\\there"), std::string::npos);
}

TEST(FindingsWriter, MsbuildLinesArePathsRelativeToTheBase) {
  std::string msbuild = Write(OutputFormat::Msbuild);
  EXPECT_NE(msbuild.find("Lib/Sub/Deep/My File.cs(12): warning Method: Parameter with different name in XML comment vs. definition. [Run:x]\n"),
            std::string::npos);
  // A row whose file was not found is named after its project, folder and document.
  EXPECT_NE(msbuild.find("Vb/M.vb(0): warning Field (variable, constant):"), std::string::npos);
}

TEST(FindingsWriter, JsonAndSarifEscapeTextAndSarifEncodesUris) {
  std::string json = Write(OutputFormat::Json);
  EXPECT_NE(json.find("\"Problem\": \"Code elements without \\\"definition\\\" comments.\""), std::string::npos);
  EXPECT_NE(json.find("\"Start\": 12"), std::string::npos);
  std::string sarif = Write(OutputFormat::Sarif);
  EXPECT_NE(sarif.find("\"version\": \"2.1.0\""), std::string::npos);
  EXPECT_NE(sarif.find("\"uri\": \"Lib/Sub/Deep/My%20File.cs\""), std::string::npos);
  EXPECT_NE(sarif.find("\"ruleId\": \"AN0005\""), std::string::npos);
  EXPECT_NE(sarif.find("\"region\": {\"startLine\": 12, \"endLine\": 12}"), std::string::npos);
  EXPECT_EQ(sarif.find("\"startLine\": 0"), std::string::npos);
}

TEST(FindingsWriter, TableCountsTheRows) {
  EXPECT_NE(Write(OutputFormat::Table).find("\n2 findings\n"), std::string::npos);
  std::ostringstream empty;
  WriteFindings(empty, {}, OutputFormat::Table, "/");
  EXPECT_EQ(empty.str(), "0 findings\n");
}

TEST(FindingsWriter, RulesFollowTheProblemTexts) {
  EXPECT_EQ(RuleIdOf("Missing <summary> tag"), "AN0003");
  EXPECT_EQ(RuleIdOf("Less parameters in XML comment than in definition."), "AN0009");
  EXPECT_EQ(RuleIdOf("Too large uncommented code block"), "AN0008");
  OutputFormat f;
  EXPECT_FALSE(ParseOutputFormat("xml", f));
  EXPECT_TRUE(ParseOutputFormat("sarif", f));
  EXPECT_EQ(f, OutputFormat::Sarif);
}
