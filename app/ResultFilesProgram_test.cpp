// The result files on the command line, as a user runs the program: `analyze --save`,
// `show` and `analyze --baseline`, on a repository written to a temporary folder.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ProgramRunner_test.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"
#include "testsupport/XlrdReadBack.h"

namespace {

namespace fs = std::filesystem;
using apptest::Lines;
using apptest::Outcome;
using apptest::RunAnnotra;
using apptest::Snapshot;

// Engine.cs: the class commented; Start without a comment (line 6), Stop with its tags,
// the field without a comment (line 12).
constexpr const char* kEngine =
    "namespace Core\n"
    "{\n"
    "    /// <summary>Runs things.</summary>\n"
    "    public class Engine\n"
    "    {\n"
    "        public void Start(int speed) { }\n"
    "\n"
    "        /// <summary>Stops.</summary>\n"
    "        /// <param name=\"when\">When.</param>\n"
    "        public void Stop(int when) { }\n"
    "\n"
    "        public int Count;\n"
    "    }\n"
    "}\n";

class ResultFilesProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    repo = dir.path() / "repo";
    home = dir.path() / "home";
    const std::vector<testsupport::SolutionProject> projects = {{"Core/Core.csproj"}};
    dir.Write("repo/Core/Core.csproj", testsupport::SdkProjectFile());
    dir.Write("repo/App.sln", testsupport::SlnText(projects));
    dir.Write("repo/Core/Engine.cs", kEngine);
    // The options every run here uses: no parameter types, so that only the comments
    // count.
    args = {"App.sln", "--no-param-types"};
  }

  Outcome Run(std::vector<std::string> command, const fs::path& cwd) {
    return RunAnnotra({std::move(command), cwd, {{"ANNOTRA_HOME", home.string()}}});
  }
  Outcome Analyze(const std::vector<std::string>& more) {
    std::vector<std::string> command = {"analyze"};
    command.insert(command.end(), args.begin(), args.end());
    command.insert(command.end(), more.begin(), more.end());
    return Run(command, repo);
  }
  Outcome Show(std::vector<std::string> more) {
    more.insert(more.begin(), "show");
    return Run(more, repo);
  }

  testsupport::TempDir dir;
  fs::path repo, home;
  std::vector<std::string> args;
};

}  // namespace

TEST_F(ResultFilesProgram, SaveWritesTheFileTheNameAsksForAndPrintsAsWithout) {
  const Outcome plain = Analyze({"--format", "tsv"});
  ASSERT_EQ(plain.status, 0) << plain.err;
  ASSERT_EQ(Lines(plain.out).size(), 3u) << plain.out;  // the header and two findings
  const std::string homeBefore = Snapshot(home);

  fs::create_directories(repo / "out");
  for (const char* name : {"out/a", "out/b.txt", "out/C.XMM"}) {
    Outcome o = Analyze({"--format", "tsv", "--save", name});
    EXPECT_EQ(o.status, 0) << o.err;
    EXPECT_EQ(o.out, plain.out);
    EXPECT_EQ(o.err, "");
  }
  EXPECT_TRUE(fs::exists(repo / "out/a.xmm"));
  EXPECT_TRUE(fs::exists(repo / "out/b.txt.xmm"));
  EXPECT_TRUE(fs::exists(repo / "out/C.XMM"));
  // A file that is there is replaced.
  std::ofstream(repo / "out/C.XMM") << "old";
  EXPECT_EQ(Analyze({"--save", "out/C.XMM"}).status, 0);
  EXPECT_EQ(Show({"out/C.XMM", "--format", "tsv"}).out, plain.out);

  // A spreadsheet of the installed layout's visible columns.
  Outcome sheet = Analyze({"--save", "out/Findings.XLS"});
  ASSERT_EQ(sheet.status, 0) << sheet.err;
  auto cells = testsupport::XlrdReadBack(repo / "out/Findings.XLS", dir.path());
  ASSERT_GE(cells.size(), 3u);
  EXPECT_EQ(cells[0].substr(0, 19), "sheet\tXMLAnalyzer\t3");
  EXPECT_NE(std::find(cells.begin(), cells.end(), testsupport::XlrdText(0, 1, "Project")), cells.end());
  EXPECT_NE(std::find(cells.begin(), cells.end(), testsupport::XlrdText(1, 5, "Start")), cells.end());
  EXPECT_EQ(Snapshot(home), homeBefore);  // nothing of the user's was written

  // Nowhere to write: exit 4 and one line, before anything ran.
  Outcome nowhere = Analyze({"--save", "no/such/folder/x.xmm"});
  EXPECT_EQ(nowhere.status, 4);
  EXPECT_EQ(nowhere.out, "");
  EXPECT_EQ(Lines(nowhere.err).size(), 1u) << nowhere.err;
  // Written where it cannot be: the component's message on one line, exit 4.
  fs::create_directories(repo / "out" / "taken.txt.xmm");
  Outcome taken = Analyze({"--save", "out/taken.txt"});
  EXPECT_EQ(taken.status, 4);
  EXPECT_EQ(taken.out, "");
  EXPECT_EQ(taken.err,
            "annotra: the findings cannot be saved to <out/taken.txt>: There was an error saving the Annotra pane "
            "contents to the "
            "specified file. (3204) Database already exists.\n");
}

TEST_F(ResultFilesProgram, ShowPrintsWhatTheFileHoldsOrSaysWhyItCannot) {
  ASSERT_EQ(Analyze({"--save", "run.xmm"}).status, 0);
  const Outcome tsv = Analyze({"--format", "tsv"});
  Outcome shown = Show({"run.xmm", "--format", "tsv"});
  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_EQ(shown.out, tsv.out);
  // Files named after project, folders and document without the solution; with it,
  // as analyze names them.
  EXPECT_EQ(Lines(Show({"run.xmm", "--format", "msbuild"}).out)[0],
            "Core/Engine.cs(6): warning AN0001: Code elements without definition comments. [Method Start]");
  EXPECT_EQ(Show({"run.xmm", "--format", "msbuild", "--solution", "App.sln"}).out,
            Analyze({"--format", "msbuild"}).out);
  Outcome table = Show({"run.xmm"});
  EXPECT_NE(table.out.find("2 findings"), std::string::npos) << table.out;

  std::ofstream(repo / "text.xmm") << "Project\tDocument\n";
  for (const char* bad : {"text.xmm", "missing.xmm", "App.sln"}) {
    Outcome o = Show({bad});
    EXPECT_EQ(o.status, 3) << bad;
    EXPECT_EQ(o.out, "");
    EXPECT_EQ(Lines(o.err).size(), 1u) << o.err;
    EXPECT_NE(o.err.find(bad), std::string::npos) << o.err;
  }
  EXPECT_EQ(Show({"run.xmm", "--format", "xml"}).status, 2);
  EXPECT_EQ(Show({"run.xmm", "--output", "no/folder/x"}).status, 4);
}

TEST_F(ResultFilesProgram, ABaselineLeavesOutTheFindingsItHoldsWhereverTheyMoved) {
  ASSERT_EQ(Analyze({"--save", "base.xmm"}).status, 0);
  Outcome same = Analyze({"--baseline", "base.xmm", "--fail-on-findings", "--format", "tsv"});
  EXPECT_EQ(same.status, 0) << same.err;
  EXPECT_EQ(Lines(same.out).size(), 1u);  // the header alone
  EXPECT_EQ(same.err, "annotra: 0 new findings; 0 findings of the baseline are gone\n");

  // The code moves down the file and a new method comes: only that one shows.
  std::string moved = kEngine;
  moved.insert(moved.find("        public int Count;"), "        public void Pause() { }\n\n");
  dir.Write("repo/Core/Engine.cs", "// A header.\n\n\n" + moved);
  Outcome one = Analyze({"--baseline", "base.xmm", "--fail-on-findings", "--format", "msbuild"});
  EXPECT_EQ(one.status, 1) << one.err;
  EXPECT_EQ(one.out,
            "Core/Engine.cs(15): warning AN0001: Code elements without definition comments. [Method Pause]\n");
  EXPECT_EQ(one.err, "annotra: 1 new finding; 0 findings of the baseline are gone\n");
  // Without --fail-on-findings the old ones do not fail either way.
  EXPECT_EQ(Analyze({"--baseline", "base.xmm"}).status, 0);

  // Start documented: its finding is gone.
  std::string fixed = moved;
  fixed.insert(fixed.find("        public void Start"), "        /// <summary>Starts.</summary>\n        /// <param name=\"speed\">How fast.</param>\n");
  dir.Write("repo/Core/Engine.cs", fixed);
  Outcome gone = Analyze({"--baseline", "base.xmm", "--format", "tsv"});
  EXPECT_EQ(gone.status, 0);
  EXPECT_EQ(Lines(gone.out).size(), 2u);  // Pause
  EXPECT_EQ(gone.err, "annotra: 1 new finding; 1 findings of the baseline are gone\n");

  // The print preview's page leaves them out too.
  Outcome page = Analyze({"--baseline", "base.xmm", "--format", "html"});
  EXPECT_EQ(page.status, 0) << page.err;
  EXPECT_NE(page.out.find("Pause"), std::string::npos);
  EXPECT_EQ(page.out.find(">Count<"), std::string::npos);
  EXPECT_NE(page.out.find("(1 results)"), std::string::npos);
}

TEST_F(ResultFilesProgram, ABaselineOfAnotherSolutionIsSaidToBeOne) {
  // The same code as a project of another name.
  testsupport::TempDir other;
  other.Write("Other/Other.csproj", testsupport::SdkProjectFile());
  other.Write("Other.sln", testsupport::SlnText({{"Other/Other.csproj"}}));
  other.Write("Other/Engine.cs", kEngine);
  Outcome saved = RunAnnotra({{"analyze", "Other.sln", "--no-param-types", "--save", (repo / "other.xmm").string()}, other.path(),
                              {{"ANNOTRA_HOME", home.string()}}});
  ASSERT_EQ(saved.status, 0) << saved.err;
  Outcome o = Analyze({"--baseline", "other.xmm", "--fail-on-findings", "--format", "tsv"});
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(Lines(o.out).size(), 3u);
  EXPECT_EQ(Lines(o.err),
            (std::vector<std::string>{"annotra: warning: the baseline <other.xmm> names none of this solution's "
                                      "projects: it comes from another solution",
                                      "annotra: 2 new findings; 2 findings of the baseline are gone"}));

  // A baseline that is no result file stops the run before it starts.
  std::ofstream(repo / "bad.xmm") << "nothing";
  Outcome bad = Analyze({"--baseline", "bad.xmm"});
  EXPECT_EQ(bad.status, 3);
  EXPECT_EQ(bad.out, "");
  EXPECT_EQ(Lines(bad.err).size(), 1u) << bad.err;
  EXPECT_EQ(Analyze({"--baseline", ""}).status, 2);
}
