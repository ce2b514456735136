#include "platform/suite/XMLCommentTemplatesManager.h"

#include <gtest/gtest.h>

#include "platform/suite/TeamDatabase.h"

#include <sstream>

#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/suite/XMLCommentTemplatesManager.h"
#include "testsupport/DaoFixture.h"

namespace platform::suite {
namespace {

class TemplatesManagerTest : public testsupport::DaoTest {
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

TEST_F(TemplatesManagerTest, ManagerEditsTemplates) {
  m_db = TeamDatabase::OpenOrCreate(ws, (dir.path() / "team.db").string());
  EXPECT_EQ(Run({"enable", "Namespace"}), "Namespace: enabled\n");
  EXPECT_EQ(Run({"set", "Event", "<summary></summary><remarks></remarks>"}), "Event: template set\n");
  EXPECT_EQ(Run({"show", "Event"}), "<summary></summary><remarks></remarks>\n");
  std::string list = Run({"list"});
  EXPECT_NE(list.find("enabled   Namespace"), std::string::npos);
  EXPECT_EQ(list.find("Event"), list.rfind("Event"));  // changed in place, not added
}

TEST_F(TemplatesManagerTest, MissingKindRecordIsAdded) {
  m_db = ws.CreateDatabase((dir.path() / "t.db").string(), "");
  TeamDatabase::CreateTemplateTable(*m_db, {{"Class", "<summary/>", true}});
  EXPECT_EQ(Run({"set", "Enum", "<summary></summary>"}), "Enum: template set\n");
  EXPECT_EQ(Run({"disable", "Module"}), "Module: disabled\n");
  EXPECT_EQ(Run({"list"}), "enabled   Class\nenabled   Enum\ndisabled  Module\n");
  EXPECT_EQ(Run({"show", "Module"}), "\n");
}

TEST_F(TemplatesManagerTest, WrongKindsOperationsAndDatabasesAreReported) {
  m_db = TeamDatabase::OpenOrCreate(ws, (dir.path() / "team.db").string());
  Run({"show", "class"}, 2);  // kind names are exact
  EXPECT_NE(m_err.find("unknown kind 'class'"), std::string::npos);
  Run({"set", "Enum"}, 2);
  Run({"rename", "Enum"}, 2);
  Run({}, 2);
  EXPECT_NE(m_err.find("usage: annotra templates"), std::string::npos);
  m_db = ws.CreateDatabase((dir.path() / "empty.db").string(), "");
  Run({"list"}, 3);
  Run({"enable", "Enum"}, 3);
  EXPECT_NE(m_err.find("cannot change the XML comment template of Enum"), std::string::npos);
}

TEST_F(TemplatesManagerTest, ShowListsAndExplains) {
  m_db = TeamDatabase::OpenOrCreate(ws, (dir.path() / "team.db").string());
  XMLCommentTemplatesManager manager;
  manager.Init(nullptr, nullptr, nullptr, nullptr, nullptr, m_db, nullptr);
  std::ostringstream out, err;
  EXPECT_EQ(manager.Show(out, err), 0);
  EXPECT_EQ(out.str().rfind("XML comment templates:\nenabled   Class\n", 0), 0u);
  EXPECT_NE(out.str().find("annotra templates set KIND TEXT"), std::string::npos);
}

}  // namespace
}  // namespace platform::suite
