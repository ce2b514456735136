// The program as a user runs it: exit statuses, messages and the outputs of the
// solution, codemodel and templates commands.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstdio>
#include <string>

#include "testsupport/TempDir.h"

namespace {

struct Result {
  int status;
  std::string out;  // standard output and standard error together
};

Result Annotra(const std::string& args, const std::string& home) {
  std::string command = "cd '" ANNOTRA_SOURCE_DIR "' && ANNOTRA_HOME='" + home + "' '" ANNOTRA_BINARY "' " + args + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  Result run{-1, ""};
  if (!pipe) return run;
  std::array<char, 4096> buffer;
  while (size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) run.out.append(buffer.data(), n);
  int raw = pclose(pipe);
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return run;
}

class Commands : public testing::Test {
 protected:
  testsupport::TempDir home;
  Result Exec(const std::string& args) { return Annotra(args, home.path().string()); }
};

}  // namespace

TEST_F(Commands, HelpAndUsageErrors) {
  auto help = Exec("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("analyze"), std::string::npos);
  EXPECT_EQ(Exec("").status, 2);
  EXPECT_EQ(Exec("frobnicate").status, 2);
  EXPECT_EQ(Exec("analyze samples/Demo.sln --format xml").status, 2);
  EXPECT_EQ(Exec("analyze samples/Demo.sln --line 0").status, 2);
}

TEST_F(Commands, SolutionShowsTheTreeAndTheWalkCount) {
  auto run = Exec("solution samples/Demo.sln");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("  solution folder Libraries\n    project Demo.Vb\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("      Form1.vb  [VB]\n        Form1.Designer.vb  [VB]\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("items to walk: 16\n"), std::string::npos) << run.out;
}

TEST_F(Commands, InputThatCannotBeLoadedIsOneLineAndStatus3) {
  auto run = Exec("solution samples/NoSuch.sln");
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.out.find("NoSuch.sln"), std::string::npos);
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1) << run.out;
  EXPECT_EQ(Exec("analyze samples/NoSuch.sln").status, 3);
}

TEST_F(Commands, CodemodelPrintsOneJsonLinePerElement) {
  auto run = Exec("codemodel samples/Demo.Vb/Helpers.vb");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("\"kind\":39"), std::string::npos) << run.out;   // the module
  EXPECT_NE(run.out.find("\"name\":\"Twice\""), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\"proto\":\"Integer Twice\""), std::string::npos) << run.out;
}

TEST_F(Commands, TemplatesAreMadeWithTheDefaultsAndCanBeEdited) {
  auto list = Exec("templates list");
  ASSERT_EQ(list.status, 0) << list.out;
  EXPECT_NE(list.out.find("Namespace"), std::string::npos);
  EXPECT_EQ(Exec("templates disable Method").status, 0);
  // With the Method template disabled, the definitions of methods are not checked (their
  // bodies still are).
  auto run = Exec("analyze samples/Demo.sln --require-all --format tsv");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out.find("\tPerimeter\t"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\tDescribe\t43\t63\t0\tToo large uncommented code block"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\tClass\t"), std::string::npos) << run.out;
  EXPECT_EQ(Exec("templates show NoSuchKind").status == 0, false);
}

TEST_F(Commands, FailOnFindingsAndTheTemporaryDatabaseIsRemoved) {
  testsupport::TempDir tmp;
  auto run = Annotra("analyze samples/Demo.sln --fail-on-findings --format msbuild", home.path().string());
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("samples/Demo.CSharp/Shapes/Shape.cs(4): warning AN0002: Code elements without XML comments. [Class Shape]"),
            std::string::npos) << run.out;
  auto clean = Exec("analyze samples/Demo.sln --scope document --document samples/Demo.CSharp/Program.cs --fail-on-findings");
  EXPECT_EQ(clean.status, 0) << clean.out;
  EXPECT_NE(clean.out.find("0 findings"), std::string::npos) << clean.out;
}

TEST_F(Commands, HtmlIsThePrintPreviewsPageOfTheFindings) {
  auto run = Annotra("analyze samples/Demo.sln --format html", home.path().string());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out.rfind("<!DOCTYPE html>", 0), 0u) << run.out.substr(0, 200);
  EXPECT_NE(run.out.find("<title>Scribane Print Preview - Annotra</title>"), std::string::npos);
  auto tsv = Annotra("analyze samples/Demo.sln --format tsv", home.path().string());
  const auto rows = std::count(tsv.out.begin(), tsv.out.end(), '\n') - 1;
  ASSERT_GT(rows, 0);
  EXPECT_NE(run.out.find("Scribane - Annotra (" + std::to_string(rows) + " results)"), std::string::npos);
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n') > rows, true);
  // One row of cells per finding; the installed layout hides "ID".
  size_t cellsRows = 0;
  for (size_t at = run.out.find("<tr><td>"); at != std::string::npos; at = run.out.find("<tr><td>", at + 1)) ++cellsRows;
  for (size_t at = run.out.find("<tr class=\"dimmed\"><td>"); at != std::string::npos;
       at = run.out.find("<tr class=\"dimmed\"><td>", at + 1))
    ++cellsRows;
  EXPECT_EQ(cellsRows, static_cast<size_t>(rows));
  EXPECT_EQ(run.out.find("<th>ID</th>"), std::string::npos);
  // tidy finds nothing to warn about.
  testsupport::TempDir dir;
  auto page = dir.Write("page.html", run.out);
  EXPECT_EQ(std::system(("tidy -errors -quiet " + page.string()).c_str()), 0);
}
