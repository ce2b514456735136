// `annotra analyze` as a CI job runs it, on solutions written to a temporary folder: the
// same command gives the same output whatever ran before, a bad flag changes nothing,
// failures of the set-up and the output are exit 4, first runs may race, every finding
// resolves to its file, and the formats are what build logs and code scanning take.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <thread>

#include "ProgramRunner_test.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"

namespace {

namespace fs = std::filesystem;
using apptest::Invocation;
using apptest::Lines;
using apptest::Outcome;
using apptest::RunAnnotra;
using apptest::Snapshot;
using testsupport::SdkProjectFile;
using testsupport::SlnText;

// A repository like many real ones: solution folders src, test and samples; the project
// Benchmarks in the solution folder test/Benchmarks of the same name; three solution
// folders named Dashboard.
class Repository : public ::testing::Test {
 protected:
  void SetUp() override {
    repo = dir.path() / "repo";
    home = dir.path() / "home";
    const std::vector<testsupport::SolutionProject> projects = {
        {"src/Core/Core.csproj", "src"},
        {"test/Benchmarks/Benchmarks.csproj", "test/Benchmarks"},
        {"src/Dash/Dash.csproj", "src/Dashboard"},
        {"test/DashTests/DashTests.csproj", "test/Dashboard"},
        {"samples/DashSample/DashSample.csproj", "samples/Dashboard"},
    };
    for (const auto& p : projects) Write(p.path, SdkProjectFile());
    Write("App.sln", SlnText(projects));
    Write("src/Core/Engine.cs",
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
          "        private int hidden;\n"
          "    }\n"
          "}\n");
    Write("test/Benchmarks/Dashboard/Thing.cs",
          "namespace Benchmarks.Dashboard\n"
          "{\n"
          "    public class Thing\n"
          "    {\n"
          "    }\n"
          "}\n");
    Write("src/Dash/Dash.cs", "/// <summary>Dash.</summary>\npublic class Dash { }\n");
    Write("test/DashTests/DashTests.cs", "/// <summary>Tests.</summary>\npublic class DashTests { }\n");
    Write("samples/DashSample/Sample.cs", "public class Sample { }\n");
  }

  fs::path Write(const std::string& relative, const std::string& text) { return dir.Write("repo/" + relative, text); }

  Outcome Analyze(std::vector<std::string> args, std::map<std::string, std::optional<std::string>> env = {}) {
    args.insert(args.begin(), "analyze");
    env.emplace("ANNOTRA_HOME", home.string());
    return RunAnnotra({args, repo, env});
  }

  testsupport::TempDir dir;
  fs::path repo, home;
};

const std::regex kMsbuildLine(R"(^(.+)\((\d+)\): warning (AN\d{4}): (.*)$)");

TEST_F(Repository, TheSameCommandGivesTheSameOutputWhateverRanBefore) {
  const std::vector<std::string> command = {"App.sln", "--format", "tsv", "--fail-on-findings"};
  Outcome fresh = Analyze(command);
  ASSERT_EQ(fresh.status, 1) << fresh.err;
  const std::string homeAfterFirstRun = Snapshot(home);
  // Runs with every kind of option, and refused ones, between two runs of the command.
  for (const std::vector<std::string>& other :
       {std::vector<std::string>{"App.sln", "--scope", "project", "--project", "Core"},
        {"App.sln", "--no-public", "--no-non-public", "--max-lines", "5", "--keep-open", "1"},
        {"App.sln", "--require", "Method:summary", "--no-param-types", "--inheritdoc", "--skip-generated"},
        {"App.sln", "--require", "Class:remarks"},
        {"App.sln", "--scope", "folder", "--folder", "test/Dashboard", "--public-plain", "--non-public-xml"}}) {
    Outcome o = Analyze(other);
    EXPECT_NE(o.status, -1) << o.err;
    Outcome again = Analyze(command);
    EXPECT_EQ(again.status, 1) << again.err;
    EXPECT_EQ(again.out, fresh.out) << "after analyze " << other[1] << " " << other[2];
  }
  // No run wrote into the per-user folder: a read-only one would do as well.
  EXPECT_EQ(Snapshot(home), homeAfterFirstRun);
  EXPECT_FALSE(fs::exists(home / "settings.ini"));
  // A per-user settings file is not read either.
  std::ofstream(home / "settings.ini") << "[CommentsAnalyzer]\nLastScope=long:3\nEnableBody=long:0\nEnablePublic=long:0\n";
  EXPECT_EQ(Analyze(command).out, fresh.out);
}

TEST_F(Repository, EachBadFlagExits2WithOneLineNamingItAndChangesNothing) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> bad = {
      {{"--max-lines", "abc"}, "--max-lines abc: expected a whole number from 5 to 100"},
      {{"--max-lines", "7.5"}, "--max-lines 7.5: expected a whole number from 5 to 100"},
      {{"--max-lines", ""}, "--max-lines '': expected a whole number from 5 to 100"},
      {{"--max-lines", "4"}, "--max-lines 4:"},
      {{"--max-lines", "101"}, "--max-lines 101:"},
      {{"--keep-open", "0"}, "--keep-open 0: expected a whole number from 1 to 30"},
      {{"--keep-open", "99"}, "--keep-open 99:"},
      {{"--line", "-5", "--document", "src/Core/Engine.cs"}, "--line -5: expected a line number"},
      {{"--line", "0", "--document", "src/Core/Engine.cs"}, "--line 0:"},
      {{"--scope", "method", "--document", "src/Core/Engine.cs", "--line", "400"},
       "--line 400: src/Core/Engine.cs has 15 lines"},
      {{"--scope", "project"}, "--scope project needs --project NAME or --document FILE"},
      {{"--scope", "open"}, "--scope open needs --open FILE"},
      {{"--scope", "method", "--document", "src/Core/Engine.cs"}, "--scope method needs --document FILE and --line N"},
      {{"--scope", "document"}, "--scope document needs --document FILE"},
      {{"--scope", "folder"}, "--scope folder needs --folder NAME or --project NAME"},
      {{"--scope", "everything"}, "--scope everything: expected one of method|document|open|project|solution|folder"},
      {{"--folder", "Dashboard", "--scope", "folder"},
       "--folder Dashboard: 3 solution folders have that name: src/Dashboard, test/Dashboard, samples/Dashboard"},
      {{"--folder", "Core"}, "--folder Core: the solution has no solution folder of that name (a project has it"},
      {{"--project", "NoSuch"}, "--project NoSuch: the solution has no project of that name"},
      {{"--document", "src/Core/Missing.cs"}, "--document src/Core/Missing.cs: no item of the solution is that file"},
      {{"--require", "Class:remarks"}, "--require Class:remarks: the template of Class has no tag \"remarks\""},
      {{"--require", "Klass:summary"}, "--require Klass:summary: no enabled template is of the kind \"Klass\""},
      {{"--require", "summary"}, "--require summary: expected KIND:TAG,TAG"},
      {{"--require-all", "--require", "Method:summary"}, "--require and --require-all exclude each other"},
      {{"--format", "xml"}, "--format xml: expected one of table|tsv|json|msbuild|sarif"},
      {{"--source-root", "nowhere"}, "--source-root nowhere: expected a folder"},
  };
  // From a first run on (nothing in the per-user folder), then with its team database.
  for (bool first : {true, false}) {
    if (!first) {
      ASSERT_EQ(Analyze({"App.sln"}).status, 0);
    }
    const std::string before = Snapshot(home);
    for (const auto& [flags, message] : bad) {
      std::vector<std::string> args = {"App.sln"};
      args.insert(args.end(), flags.begin(), flags.end());
      Outcome o = Analyze(args);
      EXPECT_EQ(o.status, 2) << flags[0] << " " << flags[1] << ": " << o.err;
      EXPECT_EQ(o.err.rfind("annotra analyze: " + message, 0), 0u) << o.err;
      EXPECT_EQ(Lines(o.err).size(), 1u) << o.err;
      EXPECT_EQ(o.out, "");
      EXPECT_EQ(Snapshot(home), before) << flags[0];
    }
  }
}

TEST_F(Repository, AScopeNeedsItsStateAndAFolderMayBeNamedByItsPath) {
  // One of three folders of the same name, by its path.
  Outcome folder = Analyze({"App.sln", "--scope", "folder", "--folder", "samples/Dashboard", "--format", "msbuild"});
  EXPECT_EQ(folder.status, 0) << folder.err;
  EXPECT_EQ(folder.out, "samples/DashSample/Sample.cs(1): warning AN0001: Code elements without definition comments. "
                        "[Class Sample]\n");
  // The project, not the solution folder of the same name.
  Outcome project = Analyze({"App.sln", "--scope", "project", "--project", "Benchmarks", "--format", "msbuild"});
  EXPECT_EQ(project.status, 0) << project.err;
  EXPECT_EQ(project.out, "test/Benchmarks/Dashboard/Thing.cs(3): warning AN0001: Code elements without definition "
                         "comments. [Class Thing]\n");
  // --open takes one file each time: what follows is the PATH again.
  Outcome open = RunAnnotra({{"analyze", "--scope", "open", "--open", "repo/src/Core/Engine.cs", "repo/App.sln",
                       "--format", "msbuild"},
                      dir.path(),
                      {{"ANNOTRA_HOME", home.string()}}});
  EXPECT_EQ(open.status, 0) << open.err;
  for (const auto& line : Lines(open.out)) EXPECT_EQ(line.rfind("repo/src/Core/Engine.cs(", 0), 0u) << line;
  EXPECT_EQ(Lines(open.out).size(), 3u) << open.out;
}

TEST_F(Repository, EveryFindingResolvesToItsFileInEveryFormat) {
  Outcome msbuild = Analyze({"App.sln", "--format", "msbuild"});
  ASSERT_EQ(msbuild.status, 0) << msbuild.err;
  std::set<std::string> files;
  for (const auto& line : Lines(msbuild.out)) {
    std::smatch m;
    ASSERT_TRUE(std::regex_match(line, m, kMsbuildLine)) << line;
    files.insert(m[1]);
    EXPECT_TRUE(fs::exists(repo / m[1].str())) << line;
  }
  EXPECT_EQ(files, (std::set<std::string>{"src/Core/Engine.cs", "test/Benchmarks/Dashboard/Thing.cs",
                                          "samples/DashSample/Sample.cs"}));
  Outcome json = Analyze({"App.sln", "--format", "json"});
  EXPECT_NE(json.out.find("\"Path\": \"Dashboard\", \"Member\": \"Thing\""), std::string::npos) << json.out;
  EXPECT_NE(json.out.find("\"File\": \"test/Benchmarks/Dashboard/Thing.cs\""), std::string::npos) << json.out;
  Outcome sarif = Analyze({"App.sln", "--format", "sarif"});
  EXPECT_NE(sarif.out.find("{\"uri\": \"test/Benchmarks/Dashboard/Thing.cs\", \"uriBaseId\": \"%SRCROOT%\"}"),
            std::string::npos);
  EXPECT_NE(sarif.out.find("\"%SRCROOT%\": {\"uri\": \"file://" + repo.string() + "/\"}"), std::string::npos);

  // A one-project solution whose folder is named like the project, run from elsewhere.
  Write("One.sln", SlnText({{"test/Benchmarks/Benchmarks.csproj", "Benchmarks"}}));
  Outcome one = RunAnnotra({{"analyze", "repo/One.sln", "--format", "msbuild"}, dir.path(), {{"ANNOTRA_HOME", home.string()}}});
  EXPECT_EQ(one.out, "repo/test/Benchmarks/Dashboard/Thing.cs(3): warning AN0001: Code elements without definition "
                     "comments. [Class Thing]\n");
}

TEST_F(Repository, TheTableSaysWhatEachProjectHasCommented) {
  Outcome table = Analyze({"App.sln"});
  ASSERT_EQ(table.status, 0) << table.err;
  // Core: Engine is commented as required; Start and the private field hidden have no
  // comment, Stop's param no type. The projects without findings come last.
  EXPECT_NE(table.out.find("5 findings\n"
                           "\n"
                           "Rule    Findings  Problem\n"
                           "AN0001  4         Code elements without definition comments.\n"
                           "AN0006  1         Parameter with different type in XML comment vs. definition (or no type "
                           "specified in XML comment).\n"
                           "\n"
                           "Project     Findings  Definitions  Commented as required\n"
                           "Core        3         4            1 (25%)\n"
                           "Benchmarks  1         1            0 (0%)\n"
                           "DashSample  1         1            0 (0%)\n"
                           "Dash        0         1            1 (100%)\n"
                           "DashTests   0         1            1 (100%)\n"),
            std::string::npos)
      << table.out;
  // Paths with "/", as everywhere.
  EXPECT_EQ(table.out.find('\\'), std::string::npos);
}

TEST_F(Repository, TheRepositorysSettingsFileIsReadUnderTheCommandLine) {
  Write(".annotra.ini", "[CommentsAnalyzer]\nEnableNonPublic = 0\nCompareParamTypes = 0\n");
  Outcome o = Analyze({"App.sln", "--format", "msbuild"});
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out.find("hidden"), std::string::npos) << o.out;
  EXPECT_EQ(o.out.find("AN0006"), std::string::npos) << o.out;
  // The command line wins.
  o = Analyze({"App.sln", "--format", "msbuild", "--non-public", "--param-types"});
  EXPECT_NE(o.out.find("AN0006"), std::string::npos) << o.out;
  EXPECT_NE(o.out.find("hidden"), std::string::npos) << o.out;
  // A scope from the file needs its state as much as one from the command line.
  Write(".annotra.ini", "[CommentsAnalyzer]\nLastScope = project\n");
  o = Analyze({"App.sln"});
  EXPECT_EQ(o.status, 2);
  EXPECT_EQ(o.err, "annotra analyze: the scope project of " + (repo / ".annotra.ini").string() +
                       " needs --project NAME or --document FILE\n");
  EXPECT_EQ(Analyze({"App.sln", "--project", "Benchmarks", "--format", "msbuild"}).out.substr(0, 34),
            "test/Benchmarks/Dashboard/Thing.cs");
  // A typo names file and line.
  Write(".annotra.ini", "[CommentsAnalyzer]\n\nEnableNonPublc = 0\n");
  o = Analyze({"App.sln"});
  EXPECT_EQ(o.status, 2);
  EXPECT_EQ(o.err.rfind("annotra analyze: " + (repo / ".annotra.ini").string() + ":3: unknown key EnableNonPublc", 0),
            0u)
      << o.err;
  // A team database named by the file is used, and must be there.
  fs::remove(repo / ".annotra.ini");
  ASSERT_EQ(RunAnnotra({{"templates", "disable", "Class"}, repo, {{"ANNOTRA_HOME", (dir.path() / "team").string()}}}).status, 0);
  Write(".annotra.ini", "[Annotra]\nTeamDatabase = ../team/team.db\n");
  o = Analyze({"App.sln", "--format", "msbuild"});
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out.find("[Class "), std::string::npos) << o.out;
  Write(".annotra.ini", "[Annotra]\nTeamDatabase = nowhere/team.db\n");
  o = Analyze({"App.sln"});
  EXPECT_EQ(o.status, 3) << o.err;
  EXPECT_NE(o.err.find("nowhere/team.db"), std::string::npos) << o.err;
}

TEST_F(Repository, ABrokenSetUpOrAnOutputThatCannotBeWrittenIsExit4) {
  testsupport::TempDir empty;
  Outcome noGrammar = Analyze({"App.sln"}, {{"ANNOTRA_APP_PATH", empty.path().string()}});
  EXPECT_EQ(noGrammar.status, 4);
  EXPECT_EQ(noGrammar.out, "");
  EXPECT_EQ(Lines(noGrammar.err).size(), 1u) << noGrammar.err;
  EXPECT_NE(noGrammar.err.find((empty.path() / "XML.GMR").string()), std::string::npos) << noGrammar.err;
  // The program copied elsewhere, without its grammar files beside it.
  fs::copy_file(ANNOTRA_BINARY, empty.path() / "annotra");
  std::string command = "cd '" + repo.string() + "' && ANNOTRA_HOME='" + home.string() + "' env -u ANNOTRA_APP_PATH '" +
                        (empty.path() / "annotra").string() + "' analyze App.sln >/dev/null 2>&1";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 4);

  Outcome full = Analyze({"App.sln", "--output", "/dev/full"});
  EXPECT_EQ(full.status, 4);
  EXPECT_NE(full.err.find("/dev/full"), std::string::npos) << full.err;
  Outcome fullStdout = RunAnnotra({{"analyze", "App.sln"}, repo, {{"ANNOTRA_HOME", home.string()}}, "/dev/full"});
  EXPECT_EQ(fullStdout.status, 4);
  EXPECT_EQ(fullStdout.err, "annotra: the output cannot be written to standard output: No space left on device\n");
  Outcome noFolder = Analyze({"App.sln", "--output", "no/such/folder/out.sarif"});
  EXPECT_EQ(noFolder.status, 4);
  EXPECT_EQ(Lines(noFolder.err).size(), 1u) << noFolder.err;

  // An output file is written whole.
  Outcome file = Analyze({"App.sln", "--output", "out.txt", "--format", "msbuild"});
  EXPECT_EQ(file.status, 0) << file.err;
  EXPECT_EQ(file.out, "");
  EXPECT_EQ(testsupport::ReadFile(repo / "out.txt"), Analyze({"App.sln", "--format", "msbuild"}).out);
}

TEST_F(Repository, TwoFirstRunsAtOnceBothSucceed) {
  const std::string expected = Analyze({"App.sln", "--format", "msbuild"}).out;
  for (int round = 0; round < 10; ++round) {
    const std::string fresh = (dir.path() / ("home" + std::to_string(round))).string();
    Invocation how{{"analyze", "App.sln", "--format", "msbuild"}, repo, {{"ANNOTRA_HOME", fresh}}};
    apptest::Running a(how), b(how);
    Outcome first = a.Wait(), second = b.Wait();
    EXPECT_EQ(first.status, 0) << "round " << round << ": " << first.err;
    EXPECT_EQ(second.status, 0) << "round " << round << ": " << second.err;
    EXPECT_EQ(first.out, expected);
    EXPECT_EQ(second.out, expected);
  }
}

TEST_F(Repository, OnlyMissingCompiledFilesAreWarnedOfUnlessVerbose) {
  Write("legacy/Legacy.csproj", testsupport::LegacyProjectFile("    <Compile Include=\"Gone.cs\" />\n"
                                                               "    <Compile Include=\"Here.cs\" />\n"
                                                               "    <None Include=\"README.md\" />\n"
                                                               "    <Content Include=\"logo.png\" />\n"
                                                               "    <None Include=\"$(Unset)\\lib\\x.dll\" />"));
  Write("legacy/Here.cs", "/// <summary>Here.</summary>\npublic class Here { }\n");
  Write("Legacy.sln", SlnText({{"legacy/Legacy.csproj"}}));
  Outcome quiet = Analyze({"Legacy.sln"});
  EXPECT_EQ(quiet.status, 0);
  EXPECT_EQ(Lines(quiet.err).size(), 1u) << quiet.err;
  EXPECT_NE(quiet.err.find("Gone.cs' does not exist"), std::string::npos) << quiet.err;
  Outcome verbose = Analyze({"Legacy.sln", "--verbose"});
  EXPECT_EQ(Lines(verbose.err).size(), 4u) << verbose.err;
  EXPECT_NE(verbose.err.find("README.md"), std::string::npos) << verbose.err;
  EXPECT_EQ(verbose.out, quiet.out);
}

TEST(Program, VersionAndHelp) {
  Outcome version = RunAnnotra({{"--version"}});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "annotra 0.1.0\n");
  Outcome help = RunAnnotra({{"analyze", "--help"}});
  EXPECT_EQ(help.status, 0);
  for (const char* flag : {"--output", "--inheritdoc", "--no-param-types", "--skip-generated", "--source-root", "--verbose"})
    EXPECT_NE(help.out.find(flag), std::string::npos) << flag;
}

}  // namespace
