// Golden tests of `annotra analyze`: each testdata/analysis/SOLUTION/cases/NAME.args (one
// argument a line, run from the SOLUTION folder, with --format tsv added) is compared with
// NAME.expected beside it. NAME.settings, when present, is a per-user settings store left
// in ANNOTRA_HOME, which the run must not read. NAME.ini, when present, is the
// repository's settings file: the run is made on a copy of the SOLUTION folder in a
// temporary folder, with NAME.ini as its .annotra.ini. ANNOTRA_UPDATE_FIXTURES=1 rewrites
// the expected files (read them before committing them). These cases are about the command line: scopes, flags, bad input and
// exit statuses. What the checks find is tested on annotated inputs (testdata/checks/,
// src/analysis/Checks_test.cpp), where a new line moves no other expectation.

#include <gtest/gtest.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "AnalyzeCommand.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "testsupport/TempDir.h"

namespace fs = std::filesystem;

namespace {

struct Case {
  fs::path folder;  // the solution's folder
  fs::path args;    // cases/NAME.args
  std::string name;
};

// Names a case in test output instead of dumping its bytes.
void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }

std::vector<Case> AllCases() {
  std::vector<Case> cases;
  fs::path root = fs::path(ANNOTRA_TESTDATA_DIR) / "analysis";
  for (auto& dir : fs::directory_iterator(root)) {
    if (!fs::is_directory(dir.path() / "cases")) continue;
    for (auto& f : fs::directory_iterator(dir.path() / "cases"))
      if (f.path().extension() == ".args")
        cases.push_back({dir.path(), f.path(), dir.path().filename().string() + "_" + f.path().stem().string()});
  }
  std::sort(cases.begin(), cases.end(), [](const Case& a, const Case& b) { return a.name < b.name; });
  return cases;
}

std::vector<std::string> ReadArgs(const fs::path& file) {
  std::vector<std::string> args;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);)
    if (!line.empty() && line[0] != '#') args.push_back(line);
  return args;
}

class AnalyzeFixture : public testing::TestWithParam<Case> {};

TEST_P(AnalyzeFixture, FindingsMatchTheExpectedFile) {
  const Case& c = GetParam();
  testsupport::TempDir home;
  fs::path settings = c.args;
  settings.replace_extension(".settings");
  if (fs::exists(settings)) fs::copy_file(settings, home.path() / "settings.ini");
  setenv("ANNOTRA_HOME", home.path().c_str(), 1);
  auto previous = fs::current_path();
  fs::path ini = c.args;
  ini.replace_extension(".ini");
  testsupport::TempDir repository;
  if (fs::exists(ini)) {
    fs::copy(c.folder, repository.path(), fs::copy_options::recursive);
    fs::remove_all(repository.path() / "cases");
    fs::copy_file(ini, repository.path() / ".annotra.ini");
    fs::current_path(repository.path());
  } else {
    fs::current_path(c.folder);
  }

  std::vector<std::string> args = {"annotra", "analyze"};
  for (auto& a : ReadArgs(c.args)) args.push_back(a);
  args.push_back("--format");
  args.push_back("tsv");
  CLI::App cli;
  app::AnalyzeRequest request;
  app::AddAnalyzeCommand(cli, request);
  std::vector<const char*> argv;
  for (auto& a : args) argv.push_back(a.c_str());
  cli.parse(static_cast<int>(argv.size()), argv.data());
  std::ostringstream out;
  int status = app::RunAnalyzeCommand(request, out);
  fs::current_path(previous);
  annotra::MGlobals::ResetForTesting();
  annotra::MGlobals::ForgetXMLAnalyzerDbForTesting();

  std::string actual = "exit " + std::to_string(status) + "\n" + out.str();
  fs::path expectedFile = c.args;
  expectedFile.replace_extension(".expected");
  if (const char* update = std::getenv("ANNOTRA_UPDATE_FIXTURES"); update && std::string(update) == "1") {
    std::ofstream(expectedFile, std::ios::binary) << actual;
  }
  EXPECT_EQ(testsupport::ReadFile(expectedFile), actual) << "case " << c.args;
}

INSTANTIATE_TEST_SUITE_P(Golden, AnalyzeFixture, testing::ValuesIn(AllCases()),
                         [](const testing::TestParamInfo<Case>& info) {
                           std::string n = info.param.name;
                           for (char& ch : n)
                             if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
                           return n;
                         });

}  // namespace
