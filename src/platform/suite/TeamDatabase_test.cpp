#include "platform/suite/TeamDatabase.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include <sstream>

#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/XMLCommentTemplatesManager.h"
#include "testsupport/DaoFixture.h"
#include "testsupport/TempDir.h"

namespace platform::suite {
namespace {

class TeamDatabaseTest : public testsupport::DaoTest {
 protected:
  std::string Run(const std::vector<std::string>& args, int expected = 0) {
    XMLCommentTemplatesManager manager;
    manager.SetTeamDatabase(m_db);
    std::ostringstream out, err;
    EXPECT_EQ(manager.Run(args, out, err), expected) << err.str();
    m_err = err.str();
    return out.str();
  }
  Ref<dao::Database> m_db;
  std::string m_err;
};

TEST_F(TeamDatabaseTest, MissingFileIsMadeWithTheDefaultTemplates) {
  auto path = (dir.path() / "sub" / "team.db").string();
  m_db = TeamDatabase::OpenOrCreate(ws, path);
  EXPECT_EQ(Run({"list"}),
            "enabled   Class\nenabled   Delegate\nenabled   Enum\nenabled   Method\n"
            "enabled   Interface\nenabled   Module\ndisabled  Namespace\nenabled   Structure\n"
            "enabled   Event\nenabled   Property\nenabled   Field (variable, constant)\n");
  EXPECT_EQ(Run({"show", "Method"}),
            "<summary></summary>\n<param name=\"\" type=\"\"></param>\n<returns></returns>\n");
  EXPECT_EQ(Run({"show", "Property"}), "<summary></summary>\n<param name=\"\" type=\"\"></param>\n");
  EXPECT_EQ(Run({"show", "Field (variable, constant)"}), "<summary></summary>\n");
  m_db->Close();
  // Opened again, not made again: changes stay.
  m_db = TeamDatabase::OpenOrCreate(ws, path);
  Run({"disable", "Class"});
  m_db->Close();
  m_db = TeamDatabase::OpenOrCreate(ws, path);
  EXPECT_EQ(Run({"list"}).substr(0, 16), "disabled  Class\n");
}

}  // namespace
}  // namespace platform::suite

namespace platform::suite {
namespace {

// Several processes make the same missing team database at once: each one opens a
// whole database with the default templates, and nothing but the database is left.
TEST(TeamDatabaseRace, ProcessesMakingItAtOnceAllOpenTheWholeDatabase) {
  constexpr int kRounds = 8;
  constexpr int kProcesses = 4;
  for (int round = 0; round < kRounds; ++round) {
    testsupport::TempDir dir;
    const std::string path = (dir.path() / "home" / "team.db").string();
    std::vector<pid_t> children;
    for (int p = 0; p < kProcesses; ++p) {
      pid_t pid = fork();
      ASSERT_GE(pid, 0);
      if (pid == 0) {
        int status = 0;
        try {
          dao::Workspace ws;
          auto db = TeamDatabase::OpenOrCreate(ws, path);
          auto rs = db->OpenRecordset("XMLComments", dao::dbOpenSnapshot);
          if (rs->RecordCount() != static_cast<int32_t>(TeamDatabase::DefaultTemplates().size())) status = 2;
          rs->Close();
          db->Close();
        } catch (const Error&) {
          status = 1;
        }
        _exit(status);
      }
      children.push_back(pid);
    }
    for (pid_t pid : children) {
      int status = -1;
      waitpid(pid, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "round " << round << ": status " << status;
    }
    std::vector<std::string> left;
    for (const auto& entry : std::filesystem::directory_iterator(dir.path() / "home"))
      left.push_back(entry.path().filename().string());
    EXPECT_EQ(left, std::vector<std::string>{"team.db"}) << "round " << round;
  }
}

}  // namespace
}  // namespace platform::suite
