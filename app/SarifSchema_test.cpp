// The SARIF output against the SARIF 2.1.0 schema, checked by a JSON-schema validator
// from the npm registry that `make test` installs into build/sarif-validator; and the
// fingerprints that let code scanning follow a finding when lines move.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>

#include "ProgramRunner_test.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"

namespace {

namespace fs = std::filesystem;
using apptest::Outcome;
using apptest::RunAnnotra;

// Validates with ajv; the schema that npm package ships is a draft-04 one whose language
// pattern is no valid Unicode regular expression, hence the two options.
constexpr const char* kValidate = R"(
const fs = require('fs');
const Ajv = require('ajv-draft-04');
const addFormats = require('ajv-formats');
const ajv = new Ajv({allErrors: true, strict: false, unicodeRegExp: false});
addFormats(ajv);
const validate = ajv.compile(JSON.parse(fs.readFileSync(process.argv[2], 'utf8')));
if (!validate(JSON.parse(fs.readFileSync(process.argv[3], 'utf8')))) {
  console.log(JSON.stringify(validate.errors, null, 1));
  process.exit(1);
}
)";

const fs::path kValidator = ANNOTRA_SARIF_VALIDATOR;
const fs::path kSchema = kValidator / "node_modules/@microsoft/jest-sarif/lib/schemas/sarif-2.1.0-rtm.5.json";

class Sarif : public ::testing::Test {
 protected:
  void SetUp() override {
    using testsupport::SdkProjectFile;
    dir.Write("repo/src/Core/Core.csproj", SdkProjectFile());
    dir.Write("repo/test/Benchmarks/Benchmarks.csproj", SdkProjectFile());
    dir.Write("repo/App.sln", testsupport::SlnText({{"src/Core/Core.csproj", "src"},
                                                     {"test/Benchmarks/Benchmarks.csproj", "test/Benchmarks"}}));
    dir.Write("repo/src/Core/Odd Name \xC3\xA9.cs",
              "namespace Core\n"
              "{\n"
              "    public class Engine\n"
              "    {\n"
              "        /// <summary>Starts.</summary>\n"
              "        public void Start(int speed) { }\n"
              "        /// <summary>Starts.</summary>\n"
              "        public void Start(string speed) { }\n"
              "    }\n"
              "}\n");
    dir.Write("repo/test/Benchmarks/Dashboard/Thing.cs", "public class Thing { }\n");
  }

  Outcome Analyze(std::vector<std::string> args) {
    args.insert(args.begin(), "analyze");
    return RunAnnotra({args, dir.path() / "repo", {{"ANNOTRA_HOME", (dir.path() / "home").string()}}});
  }

  // "uri startLine fingerprint" of every result.
  static std::multiset<std::string> Results(const std::string& sarif) {
    static const std::regex result(
        R"re("uri": "([^"]*)"[^\n]*"startLine": (\d+)[^\n]*"partialFingerprints": \{"annotraFinding/v1": "([0-9a-f]{16})"\})re");
    std::multiset<std::string> out;
    for (std::sregex_iterator it(sarif.begin(), sarif.end(), result), end; it != end; ++it)
      out.insert((*it)[1].str() + " " + (*it)[2].str() + " " + (*it)[3].str());
    return out;
  }

  testsupport::TempDir dir;
};

TEST_F(Sarif, TheOutputIsValidSarif210) {
  if (!fs::exists(kValidator / "node_modules/ajv-draft-04") || !fs::exists(kSchema)) {
    if (std::getenv("ANNOTRA_SARIF_VALIDATOR_REQUIRED"))
      FAIL() << "the SARIF validator is not installed in " << kValidator << " (the Makefile's test target installs it)";
    GTEST_SKIP() << "the SARIF validator is not installed in " << kValidator << "; `make test` installs it from npm";
  }
  auto script = dir.Write("validate.js", kValidate);
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"App.sln", "--format", "sarif"},
        {"App.sln", "--format", "sarif", "--source-root", ".."},
        {"App.sln", "--format", "sarif", "--scope", "project", "--project", "Benchmarks", "--require", "Class:summary"}}) {
    Outcome sarif = Analyze(args);
    ASSERT_EQ(sarif.status, 0) << sarif.err;
    auto file = dir.Write("out.sarif", sarif.out);
    std::string command = "NODE_PATH='" + (kValidator / "node_modules").string() + "' node '" + script.string() + "' '" +
                          kSchema.string() + "' '" + file.string() + "' > '" + (dir.path() / "errors").string() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << testsupport::ReadFile(dir.path() / "errors") << sarif.out;
  }
  // The file with a blank and an accent in its name, as a URI.
  EXPECT_NE(Analyze({"App.sln", "--format", "sarif"}).out.find("\"uri\": \"src/Core/Odd%20Name%20%C3%A9.cs\""),
            std::string::npos);
}

TEST_F(Sarif, ALineInsertedAboveTheFindingsKeepsTheirFingerprints) {
  const std::string before = Analyze({"App.sln", "--format", "sarif"}).out;
  auto results = Results(before);
  ASSERT_EQ(results.size(), 4u) << before;  // Engine; each Start's param; Thing
  std::set<std::string> fingerprints;
  for (const auto& r : results) fingerprints.insert(r.substr(r.rfind(' ') + 1));
  EXPECT_EQ(fingerprints.size(), results.size()) << "the two overloads must not share a fingerprint";

  const auto file = dir.path() / "repo/src/Core/Odd Name \xC3\xA9.cs";
  dir.Write("repo/src/Core/Odd Name \xC3\xA9.cs", "using System;\n" + testsupport::ReadFile(file));
  const std::string after = Analyze({"App.sln", "--format", "sarif"}).out;
  std::set<std::string> moved;
  for (const auto& r : Results(after)) moved.insert(r.substr(r.rfind(' ') + 1));
  EXPECT_EQ(moved, fingerprints);
  EXPECT_NE(Results(after), results);  // the lines did move
}

}  // namespace
