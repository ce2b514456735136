#include "AnalyzeFlags.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "AnalyzeCommand.h"
#include "platform/suite/Scopes.h"

using namespace app;

namespace {

// The request a command line gives, as the program parses it.
AnalyzeRequest Parse(std::vector<std::string> args) {
  args.insert(args.begin(), {"annotra", "analyze"});
  CLI::App cli;
  AnalyzeRequest request;
  AddAnalyzeCommand(cli, request);
  std::vector<const char*> argv;
  for (auto& a : args) argv.push_back(a.c_str());
  cli.parse(static_cast<int>(argv.size()), argv.data());
  return request;
}

std::string Check(std::vector<std::string> args) {
  CheckedFlags checked;
  return CheckFlags(Parse(std::move(args)), checked);
}

}  // namespace

TEST(AnalyzeFlags, NumbersAreWholeAndInRange) {
  for (const char* good : {"5", "100", "+7", "015"}) EXPECT_EQ(Check({"--max-lines", good}), "") << good;
  for (const char* bad : {"4", "101", "abc", "7.5", "", " 7", "7 ", "1e1", "0x10", "++7", "-", "99999999999999999999"})
    EXPECT_NE(Check({"--max-lines", bad}), "") << bad;
  CheckedFlags checked;
  ASSERT_EQ(CheckFlags(Parse({"--max-lines", "+7", "--keep-open", "30", "--document", "a.cs", "--line", "12"}), checked), "");
  EXPECT_EQ(checked.maxLines, 7);
  EXPECT_EQ(checked.keepOpen, 30);
  EXPECT_EQ(checked.line, 12);
  EXPECT_EQ(Check({"--line", "2147483648", "--document", "a.cs"}),
            "--line 2147483648: expected a line number (a whole number from 1)");
}

TEST(AnalyzeFlags, ValuesAreOnePerOccurrence) {
  AnalyzeRequest r = Parse({"--open", "a.cs", "X.sln", "--open", "b.cs", "--require", "Method:param", "--require",
                            "Field (variable, constant):summary"});
  EXPECT_EQ(r.path, "X.sln");
  EXPECT_EQ(r.open, (std::vector<std::string>{"a.cs", "b.cs"}));
  CheckedFlags checked;
  ASSERT_EQ(CheckFlags(r, checked), "");
  EXPECT_EQ(checked.requiredTags, (std::vector<std::pair<std::string, std::string>>{
                                      {"Method", "param"}, {"Field (variable, constant)", "summary"}}));
  EXPECT_EQ(Check({"--require", "Method:summary,,param,"}), "");
  EXPECT_EQ(Check({"--require", "Method:<summary>"}), "--require Method:<summary>: <summary> is no tag name");
}

TEST(AnalyzeFlags, ScopesNeedTheirState) {
  AnalyzeRequest none = Parse({});
  using namespace platform::suite;
  EXPECT_EQ(CheckScopeNeeds(kScopeSolution, "--scope solution", none), "");
  EXPECT_EQ(CheckScopeNeeds(kScopeProject, "--scope project", Parse({"--document", "a.cs"})), "");
  EXPECT_EQ(CheckScopeNeeds(kScopeSolutionFolder, "--scope folder", Parse({"--project", "P"})), "");
  EXPECT_EQ(CheckScopeNeeds(kScopeOpenDocuments, "x", Parse({"--open", "a.cs"})), "");
  EXPECT_EQ(CheckScopeNeeds(kScopeMethod, "--scope method", Parse({"--document", "a.cs"})),
            "--scope method needs --document FILE and --line N");
}

TEST(AnalyzeFlags, TheDialogIsPlayedWithTheFlags) {
  CheckedFlags checked;
  AnalyzeRequest r = Parse({"--no-public", "--non-public-xml", "--no-param-types", "--inheritdoc", "--skip-generated",
                            "--max-lines", "+30", "--require", "Method:param"});
  ASSERT_EQ(CheckFlags(r, checked), "");
  annotra::OptionsChoices c = ChoicesOf(r, checked, false);
  EXPECT_EQ(c.scope, platform::suite::kScopeSolution);  // a command line has no caret
  EXPECT_EQ(c.enablePublic, false);
  EXPECT_FALSE(c.xmlOnPublic.has_value());
  EXPECT_EQ(c.xmlOnNonPublic, true);
  EXPECT_EQ(c.compareParamTypes, false);
  EXPECT_EQ(c.acceptInheritDoc, true);
  EXPECT_EQ(c.skipGenerated, true);
  EXPECT_FALSE(c.enableBody.has_value());
  EXPECT_EQ(c.maxLines, "30");
  EXPECT_EQ(c.requiredTags, checked.requiredTags);
  // A scope the repository's settings choose is left to the dialog, which shows it.
  EXPECT_FALSE(ChoicesOf(r, checked, true).scope.has_value());
  ASSERT_EQ(CheckFlags(Parse({"--scope", "folder", "--folder", "F"}), checked), "");
  EXPECT_EQ(ChoicesOf(Parse({}), checked, true).scope, platform::suite::kScopeSolutionFolder);
}
