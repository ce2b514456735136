// Every `#include "..."` of src/ and app/ against the layer order of the program: a
// folder includes its own headers and those of the folders below it, never those of a
// folder above it or beside it on the same layer. A failure names the file, the line
// and the header, so the include to move (or the code to push down) is plain.
//
// The helpers of src/testsupport serve tests only: production code may not include
// them, and what a helper includes must itself be allowed for the test that includes it.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Lowest first; folders on one line form one layer.
const std::vector<std::vector<std::string>> kLayers = {
    {"platform/core"},
    {"platform/win32"},
    {"platform/dao", "platform/grammar", "platform/forms", "platform/codemodel"},
    {"platform/automation", "platform/grid"},
    {"platform/suite"},
    {"host"},
    {"results"},
    {"analysis"},
    {"options", "pane"},
    {"entry"},
    {"app"},
};

int LayerOf(const std::string& folder) {
  for (size_t i = 0; i < kLayers.size(); ++i)
    for (const auto& f : kLayers[i])
      if (f == folder) return static_cast<int>(i);
  return -1;
}

// The folder of a file, as the layer table names folders ("platform/dao", "host",
// "app", "testsupport").
std::string FolderOf(const fs::path& root, const fs::path& file) {
  fs::path rel = file.lexically_relative(root);
  auto it = rel.begin();
  std::string top = it->string();
  if (top == "app") return "app";
  ++it;  // below src/
  std::string first = it->string();
  if (first == "platform") return first + "/" + (++it)->string();
  return first;
}

bool IsTest(const fs::path& file) {
  std::string stem = file.stem().string();
  return stem.ends_with("_test") || stem.ends_with("_fuzz");
}

struct Include {
  int line;
  std::string header;  // as written
  fs::path resolved;   // the file it names; empty when it names nothing of the tree
};

// The quoted includes of `file` that are not commented out.
std::vector<Include> IncludesOf(const fs::path& root, const fs::path& file) {
  static const std::regex kInclude(R"re(^\s*#\s*include\s*"([^"]+)")re");
  std::vector<Include> found;
  std::ifstream in(file);
  int number = 0;
  for (std::string text; std::getline(in, text);) {
    ++number;
    std::smatch m;
    if (!std::regex_search(text, m, kInclude)) continue;
    Include inc{number, m[1].str(), {}};
    // As the compiler looks: beside the including file first, then from src/ and app/.
    for (const fs::path& base : {file.parent_path(), root / "src", root / "app"}) {
      if (fs::exists(base / inc.header)) {
        inc.resolved = fs::weakly_canonical(base / inc.header);
        break;
      }
    }
    found.push_back(inc);
  }
  return found;
}

// Checks what `file` includes on behalf of `owner` (the file itself, or the test that
// reaches a testsupport helper); problems go to `out`.
void Check(const fs::path& root, const fs::path& file, const fs::path& owner,
           std::set<fs::path>& seen, std::vector<std::string>& out) {
  const std::string ownerFolder = FolderOf(root, owner);
  const int ownerLayer = LayerOf(ownerFolder);
  for (const Include& inc : IncludesOf(root, file)) {
    std::string where = file.lexically_relative(root).string() + ":" + std::to_string(inc.line) +
                        ": includes \"" + inc.header + "\"";
    if (owner != file) where += " (reached from " + owner.lexically_relative(root).string() + ")";
    if (inc.resolved.empty()) {
      out.push_back(where + ", which is no file of the tree");
      continue;
    }
    const std::string target = FolderOf(root, inc.resolved);
    if (target == "testsupport") {
      if (!IsTest(owner) && ownerFolder != "testsupport") {
        out.push_back(where + ": test helpers are for tests only");
      } else if (seen.insert(inc.resolved).second) {
        Check(root, inc.resolved, owner, seen, out);
      }
      continue;
    }
    if (target == ownerFolder) continue;
    const int targetLayer = LayerOf(target);
    if (ownerFolder == "testsupport") continue;  // checked for each test that uses it
    if (targetLayer < 0) {
      out.push_back(where + ": folder " + target + " has no place in the layer order");
    } else if (targetLayer > ownerLayer) {
      out.push_back(where + ": " + target + " lies above " + ownerFolder);
    } else if (targetLayer == ownerLayer) {
      out.push_back(where + ": " + target + " lies beside " + ownerFolder + " on the same layer");
    }
  }
}

// Every .cpp and .h of src/ and app/ below `root` but the files at the top of src/ (this
// test), sorted.
std::vector<fs::path> SourceFiles(const fs::path& root) {
  std::vector<fs::path> files;
  const fs::path srcTop = fs::weakly_canonical(root / "src");
  for (const char* top : {"src", "app"}) {
    if (!fs::exists(root / top)) continue;
    for (auto& e : fs::recursive_directory_iterator(root / top)) {
      auto ext = e.path().extension();
      fs::path file = fs::weakly_canonical(e.path());
      if (e.is_regular_file() && (ext == ".cpp" || ext == ".h") && file.parent_path() != srcTop)
        files.push_back(file);
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

// What is wrong with the includes of the tree at `root`, one line each.
std::vector<std::string> Problems(const fs::path& root) {
  std::vector<std::string> problems;
  std::set<std::string> unplaced;
  for (const fs::path& file : SourceFiles(root)) {
    std::string folder = FolderOf(root, file);
    if (folder != "testsupport" && LayerOf(folder) < 0) {
      if (unplaced.insert(folder).second) problems.push_back(folder + ": folder without a place in the layer order");
      continue;
    }
    std::set<fs::path> seen;
    Check(root, file, file, seen, problems);
  }
  return problems;
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string out;
  for (const auto& l : lines) out += l + "\n";
  return out;
}

TEST(Layering, EveryIncludeOfTheTreePointsToItsOwnFolderOrALowerLayer) {
  auto problems = Problems(fs::weakly_canonical(ANNOTRA_SOURCE_DIR));
  EXPECT_TRUE(problems.empty()) << Lines(problems);
}

// A small tree written for the test, so that the check is seen to catch what it must.
class LayeringCheck : public testing::Test {
 protected:
  void SetUp() override {
    root = fs::temp_directory_path() / ("layering-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                                        "-" + testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(root);
    Write("src/platform/core/Error.h", "#pragma once\n");
    Write("src/platform/dao/Database.h", "#pragma once\n#include \"platform/core/Error.h\"\n");
    Write("src/platform/grammar/Grammar.h", "#pragma once\n");
    Write("src/host/MGlobals.h", "#pragma once\n#include \"platform/dao/Database.h\"\n");
    Write("src/testsupport/DaoFixture.h", "#pragma once\n#include \"platform/dao/Database.h\"\n");
    root = fs::weakly_canonical(root);
  }
  void TearDown() override { fs::remove_all(root); }
  void Write(const std::string& rel, const std::string& text) {
    fs::create_directories((root / rel).parent_path());
    std::ofstream(root / rel) << text;
  }
  fs::path root;
};

TEST_F(LayeringCheck, ATreeThatIncludesDownwardsOnlyPasses) {
  Write("src/platform/dao/Database_test.cpp", "#include \"testsupport/DaoFixture.h\"\n");
  EXPECT_TRUE(Problems(root).empty()) << Lines(Problems(root));
}

TEST_F(LayeringCheck, UpwardsSidewaysAndUnknownIncludesAreNamedWithFileAndLine) {
  Write("src/platform/dao/Database.cpp", "#include \"platform/dao/Database.h\"\n\n#include \"host/MGlobals.h\"\n");
  Write("src/platform/grammar/Grammar.cpp", "// #include \"platform/dao/Database.h\"\n#include \"platform/dao/Database.h\"\n");
  Write("src/platform/stray/Stray.h", "#pragma once\n");
  auto problems = Problems(root);
  EXPECT_EQ(Lines(problems),
            "src/platform/dao/Database.cpp:3: includes \"host/MGlobals.h\": host lies above platform/dao\n"
            "src/platform/grammar/Grammar.cpp:2: includes \"platform/dao/Database.h\": platform/dao lies beside "
            "platform/grammar on the same layer\n"
            "platform/stray: folder without a place in the layer order\n");
}

TEST_F(LayeringCheck, TestHelpersAreForTestsOnlyAndCarryTheirIncludesIntoTheTest) {
  Write("src/platform/dao/Recordset.cpp", "#include \"testsupport/DaoFixture.h\"\n");
  Write("src/platform/grammar/Grammar_test.cpp", "#include \"testsupport/DaoFixture.h\"\n");
  auto problems = Problems(root);
  EXPECT_EQ(Lines(problems),
            "src/platform/dao/Recordset.cpp:1: includes \"testsupport/DaoFixture.h\": test helpers are for tests only\n"
            "src/testsupport/DaoFixture.h:2: includes \"platform/dao/Database.h\" (reached from "
            "src/platform/grammar/Grammar_test.cpp): platform/dao lies beside platform/grammar on the same layer\n");
}

}  // namespace
