// Fixture tests of the code-model parsers: every testdata/codemodel/**/NAME.cs or NAME.vb
// is parsed (with the symbols of NAME.symbols, when there is one: one "NAME" or
// "NAME=VALUE" per line) and its code model, as JSON lines, must equal
// NAME.expected.jsonl line for line. With ANNOTRA_UPDATE_FIXTURES=1 a differing or
// missing expected file is rewritten instead; read every rewritten file before keeping it.
// Fixtures are UTF-8 files: decoding other encodings is the document loader's business
// and is tested there.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/codemodel/CodeModelJson.h"
#include "platform/codemodel/LanguageParser.h"
#include "testsupport/TempDir.h"

namespace platform::codemodel {
namespace {

namespace fs = std::filesystem;

fs::path FixtureRoot() { return fs::path(ANNOTRA_TESTDATA_DIR) / "codemodel"; }

std::vector<fs::path> FindFixtures() {
  std::vector<fs::path> found;
  std::error_code ec;
  if (!fs::is_directory(FixtureRoot(), ec)) return found;
  for (auto it = fs::recursive_directory_iterator(FixtureRoot(), ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    if (!it->is_regular_file()) continue;
    if (!LanguageOfFile(it->path().filename().string()).empty()) found.push_back(it->path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

PreprocessorSymbols ReadSymbols(const fs::path& file) {
  PreprocessorSymbols symbols;
  for (std::string line : SplitLines(testsupport::ReadFile(file))) {
    line.erase(0, line.find_first_not_of(" \t"));
    line.erase(line.find_last_not_of(" \t") + 1);
    if (line.empty()) continue;
    auto eq = line.find('=');
    if (eq == std::string::npos) symbols.symbols.emplace_back(line, "");
    else symbols.symbols.emplace_back(line.substr(0, eq), line.substr(eq + 1));
  }
  return symbols;
}

// A line diff of `expected` against `actual` ("-" expected only, "+" actual only, " "
// both), from their longest common subsequence; long inputs fall back to the first
// differing line so that a broken parser cannot make the report itself slow.
std::string Diff(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  const size_t n = expected.size(), m = actual.size();
  std::ostringstream out;
  if (n * m > 4'000'000) {
    size_t i = 0;
    while (i < n && i < m && expected[i] == actual[i]) ++i;
    out << "first difference at line " << i + 1 << ":\n-" << (i < n ? expected[i] : "<none>")
        << "\n+" << (i < m ? actual[i] : "<none>") << "\n";
    return out.str();
  }
  std::vector<std::vector<unsigned>> lcs(n + 1, std::vector<unsigned>(m + 1, 0));
  for (size_t i = n; i-- > 0;)
    for (size_t j = m; j-- > 0;)
      lcs[i][j] = expected[i] == actual[j] ? lcs[i + 1][j + 1] + 1 : std::max(lcs[i + 1][j], lcs[i][j + 1]);
  // The edit script, then printed with two lines of context around each change.
  std::vector<std::pair<char, const std::string*>> script;
  size_t i = 0, j = 0;
  while (i < n || j < m) {
    if (i < n && j < m && expected[i] == actual[j]) {
      script.emplace_back(' ', &expected[i]);
      ++i, ++j;
    } else if (i < n && (j == m || lcs[i + 1][j] >= lcs[i][j + 1])) {
      script.emplace_back('-', &expected[i++]);
    } else {
      script.emplace_back('+', &actual[j++]);
    }
  }
  const size_t kContext = 2;
  std::vector<bool> shown(script.size(), false);
  for (size_t k = 0; k < script.size(); ++k) {
    if (script[k].first == ' ') continue;
    for (size_t c = (k >= kContext ? k - kContext : 0); c <= k + kContext && c < script.size(); ++c) shown[c] = true;
  }
  bool gap = false;
  for (size_t k = 0; k < script.size(); ++k) {
    if (!shown[k]) {
      gap = true;
      continue;
    }
    if (gap) out << "  ...\n";
    gap = false;
    out << script[k].first << ' ' << *script[k].second << "\n";
  }
  return out.str();
}

// The JSON lines of the declarations of `source`.
std::string CodeModelOf(const fs::path& source) {
  const std::string text = testsupport::ReadFile(source);
  fs::path symbolsFile = source;
  symbolsFile.replace_extension(".symbols");
  PreprocessorSymbols symbols;
  if (fs::exists(symbolsFile)) symbols = ReadSymbols(symbolsFile);
  const LanguageParser* parser = ParserForLanguage(LanguageOfFile(source.filename().string()));
  std::ostringstream out;
  if (!parser) return out.str();
  DeclarationTree tree(text);
  parser->Parse(tree, symbols);
  WriteCodeModelJson(out, tree, source.filename().string());
  return out.str();
}

class CodeModelFixture : public ::testing::TestWithParam<fs::path> {};

TEST_P(CodeModelFixture, MatchesExpected) {
  const fs::path& source = GetParam();
  fs::path expectedFile = source;
  expectedFile.replace_extension(".expected.jsonl");
  std::string actual = CodeModelOf(source);
  const char* update = std::getenv("ANNOTRA_UPDATE_FIXTURES");
  bool exists = fs::exists(expectedFile);
  std::string expected = exists ? testsupport::ReadFile(expectedFile) : "";
  auto expectedLines = SplitLines(expected), actualLines = SplitLines(actual);
  if (exists && expectedLines == actualLines) return;
  if (update && std::string(update) == "1") {
    std::ofstream(expectedFile, std::ios::binary) << actual;
    std::cerr << "rewrote " << expectedFile << "\n";
    return;
  }
  ASSERT_TRUE(exists) << expectedFile << " is missing; the parser gives:\n" << actual;
  ADD_FAILURE() << source << ": code model differs from " << expectedFile.filename()
                << " (- expected, + actual):\n"
                << Diff(expectedLines, actualLines);
}

std::string FixtureTestName(const ::testing::TestParamInfo<fs::path>& info) {
  std::string name = fs::relative(info.param, FixtureRoot()).generic_string();
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Fixtures, CodeModelFixture, ::testing::ValuesIn(FindFixtures()),
                         FixtureTestName);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CodeModelFixture);

TEST(CodeModelFixtures, EveryExpectedFileHasItsSource) {
  std::error_code ec;
  if (!fs::is_directory(FixtureRoot(), ec)) GTEST_SKIP() << "no fixtures yet";
  for (auto it = fs::recursive_directory_iterator(FixtureRoot(), ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    std::string name = it->path().filename().string();
    const std::string suffix = ".expected.jsonl";
    if (name.size() <= suffix.size() || name.compare(name.size() - suffix.size(), suffix.size(), suffix)) continue;
    std::string stem = it->path().parent_path() / name.substr(0, name.size() - suffix.size());
    EXPECT_TRUE(fs::exists(stem + ".cs") || fs::exists(stem + ".vb")) << it->path() << " has no source";
  }
}

}  // namespace
}  // namespace platform::codemodel
