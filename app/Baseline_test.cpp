#include "Baseline.h"

#include <gtest/gtest.h>

#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/RawSqlite.h"
#include "testsupport/TempDir.h"

using app::Baseline;
using app::Finding;
using testsupport::ErrorOf;
using testsupport::FindingRow;

namespace {

Finding F(const std::string& project, const std::string& member, const std::string& problem, int start = 1) {
  Finding f;
  f.Project = project;
  f.Document = "a.cs";
  f.Path = "Sub";
  f.Type = "Method";
  f.Member = member;
  f.Problem = problem;
  f.Start = f.End = start;
  return f;
}

class BaselineTest : public ::testing::Test {
 protected:
  std::string MakeFile(const std::string& name, const std::string& type, const std::vector<FindingRow>& rows) {
    const std::string path = (dir.path() / name).string();
    auto db = ws.CreateDatabase(path, platform::dao::dbLangGeneral, platform::dao::dbVersion30);
    if (!type.empty()) db->Properties()->Append(db->CreateProperty("SBType", platform::dao::dbText, type));
    testsupport::CreateFindingsTable(*db, "XMLAnalyzer");
    testsupport::AddFindings(*db, "XMLAnalyzer", rows);
    db->Close();
    return path;
  }

  testsupport::TempDir dir;
  platform::dao::Workspace ws;
};

}  // namespace

TEST(BaselineMatch, FindingsMatchWithoutTheirLinesAndOneForOne) {
  Baseline baseline;
  baseline.Add(F("P", "Run", "No comment", 10));
  baseline.Add(F("P", "Run", "No comment", 30));
  baseline.Add(F("P", "Stop", "Missing <summary> tag", 5));
  EXPECT_EQ(baseline.Size(), 3);
  // Moved down the file: still the baseline's.
  EXPECT_TRUE(baseline.Take(F("P", "Run", "No comment", 110)));
  EXPECT_TRUE(baseline.Take(F("P", "Run", "No comment", 130)));
  // A third like them is new.
  EXPECT_FALSE(baseline.Take(F("P", "Run", "No comment", 150)));
  // Any other column differing is new.
  Finding other = F("P", "Stop", "Missing <summary> tag");
  other.Path = "Other";
  EXPECT_FALSE(baseline.Take(other));
  other = F("P", "Stop", "Missing <summary> tag");
  other.Document = "b.cs";
  EXPECT_FALSE(baseline.Take(other));
  other = F("P", "Stop", "Missing <summary> tag");
  other.Type = "Property";
  EXPECT_FALSE(baseline.Take(other));
  EXPECT_FALSE(baseline.Take(F("Q", "Stop", "Missing <summary> tag")));
  EXPECT_FALSE(baseline.Take(F("P", "Stop", "Missing <returns> tag")));
  // Texts cannot run into one another.
  Finding a = F("P", "ab", "c"), b = F("P", "a", "bc");
  Baseline tricky;
  tricky.Add(a);
  EXPECT_FALSE(tricky.Take(b));
  EXPECT_TRUE(tricky.Take(a));

  EXPECT_EQ(baseline.Remaining(), 1);  // Stop is gone
  baseline.Reset();
  EXPECT_EQ(baseline.Remaining(), 3);
  EXPECT_TRUE(baseline.Take(F("P", "Stop", "Missing <summary> tag")));
  EXPECT_EQ(baseline.Projects(), (std::vector<std::string>{"P"}));
}

TEST_F(BaselineTest, AResultFileIsReadWithoutChangingIt) {
  const std::string path = MakeFile("base.xmm", "XMM",
                                    {{"Demo", "a.cs", "Method", "Sub", "Run", 3, 3, "No comment"},
                                     {"Demo", "a.cs", "Method", "Sub", "Run", 9, 9, "No comment"},
                                     {"Lib", "b.cs", "Class", "", "B", 1, 1, "Missing <summary> tag"}});
  ASSERT_EQ(testsupport::RawExec(path, "CREATE TABLE Pwned(x);"
                                       "CREATE TRIGGER t AFTER UPDATE ON XMLAnalyzer BEGIN INSERT INTO Pwned VALUES(1); END;"
                                       "CREATE VIEW v AS SELECT * FROM XMLAnalyzer;"),
            "");
  const std::string before = testsupport::ReadFile(path);
  Baseline baseline = Baseline::Load(path);
  EXPECT_EQ(baseline.Size(), 3);
  EXPECT_EQ(baseline.Projects(), (std::vector<std::string>{"Demo", "Lib"}));
  Finding run = F("Demo", "Run", "No comment", 40);
  EXPECT_TRUE(baseline.Take(run));
  EXPECT_TRUE(baseline.Take(run));
  EXPECT_FALSE(baseline.Take(run));
  EXPECT_EQ(testsupport::ReadFile(path), before);
  EXPECT_EQ(testsupport::RawText(path, "SELECT count(*) FROM Pwned"), "0");

  // An empty result file is an empty baseline.
  EXPECT_EQ(Baseline::Load(MakeFile("empty.xmm", "xmm", {})).Size(), 0);
}

TEST_F(BaselineTest, OnlyResultFilesAreBaselines) {
  const std::vector<FindingRow> one = {{"Demo", "a.cs", "Method", "", "Run", 3, 3, "No comment"}};
  EXPECT_EQ(ErrorOf([&] { Baseline::Load((dir.path() / "missing.xmm").string()); }), 3024);
  EXPECT_EQ(ErrorOf([&] { Baseline::Load(dir.Write("text.xmm", "ID\tProject\n").string()); }), 3343);
  EXPECT_EQ(ErrorOf([&] { Baseline::Load(MakeFile("unmarked.xmm", "", one)); }), 3343);
  EXPECT_EQ(ErrorOf([&] { Baseline::Load(MakeFile("other.xmm", "mdb", one)); }), 3343);
  const std::string noTable = MakeFile("notable.xmm", "xmm", one);
  ASSERT_EQ(testsupport::RawExec(noTable, "DROP TABLE XMLAnalyzer;"), "");
  EXPECT_EQ(ErrorOf([&] { Baseline::Load(noTable); }), 3078);
  const std::string bytes = testsupport::ReadFile(MakeFile("cut.xmm", "xmm", std::vector<FindingRow>(3000, one[0])));
  EXPECT_EQ(ErrorOf([&] { Baseline::Load(dir.Write("half.xmm", bytes.substr(0, bytes.size() / 2)).string()); }), 3343);
}

TEST(BaselineFilter, EveryPassLeavesOutWhatTheBaselineHolds) {
  Baseline baseline;
  baseline.Add(F("P", "Run", "No comment"));
  baseline.Add(F("P", "Old", "Gone"));
  app::ListedFindings run({F("P", "Run", "No comment", 50), F("P", "Run", "No comment", 60), F("P", "New", "x")});
  app::NewFindings fresh(run, baseline);
  for (int pass = 0; pass < 2; ++pass) {
    fresh.Rewind();
    std::vector<std::string> shown;
    for (Finding f; fresh.Next(f);) shown.push_back(f.Member + ":" + std::to_string(f.Start));
    EXPECT_EQ(shown, (std::vector<std::string>{"Run:60", "New:1"})) << pass;
    EXPECT_EQ(baseline.Remaining(), 1);  // "Old" is gone
  }
}
