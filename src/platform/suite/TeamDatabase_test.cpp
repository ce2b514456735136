#include "platform/suite/TeamDatabase.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/suite/XMLCommentTemplatesManager.h"
#include "testsupport/DaoFixture.h"

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
