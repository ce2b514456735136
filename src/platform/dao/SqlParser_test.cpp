#include "platform/dao/SqlParser.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/dao/SqlTranslator.h"
#include "testsupport/ErrorOf.h"

using namespace platform::dao;
using platform::Error;

namespace {

// The number of the error the parser refuses `text` with; 0 when it takes it.
int ParseError(const std::string& text) {
  return testsupport::ErrorOf([&] { SqlParser::Parse(text); });
}

std::string Texts(const std::vector<SqlToken>& tokens) {
  std::string out;
  for (auto& t : tokens) out += std::string(out.empty() ? "" : " ") + t.text;
  return out;
}

// Paths the statements must carry through unchanged, whatever they hold.
const char* const kNastyPaths[] = {
    "/tmp/plain.xmm",
    "/tmp/with space/and 'single' quotes.xmm",
    "/tmp/with \"double\" quotes.xmm",
    "/tmp/ends with quote\"",
    "/tmp/\" FROM XMLAnalyzer1 WHERE \"",
    "/tmp/brackets ]. [x] ;.xmm",
    "/tmp/semi;colon -- comment /* c */.xmm",
    "/tmp/ünïcödé/файл.xmm",
    "/tmp/line\nbreak.xmm",
    "\"",
};

}  // namespace

TEST(SqlParser, TheStatementsOfTheResultsStore) {
  auto del = SqlParser::Parse("DELETE * FROM XMLAnalyzer1 WHERE TRUE");
  EXPECT_EQ(del.kind, SqlStatement::Kind::Delete);
  EXPECT_EQ(del.target.name, "XMLAnalyzer1");
  EXPECT_EQ(SqlTranslator::Expression(del.where), "-1");

  auto save = SqlParser::Parse("SELECT XMLAnalyzer1.* INTO XMLAnalyzer IN \"/r/a.xmm\" FROM XMLAnalyzer1");
  EXPECT_EQ(save.kind, SqlStatement::Kind::SelectInto);
  EXPECT_EQ(save.target.name, "XMLAnalyzer");
  EXPECT_EQ(save.target.database, "/r/a.xmm");
  EXPECT_EQ(save.source.name, "XMLAnalyzer1");
  EXPECT_TRUE(SqlTranslator::IsStar(save.selectList));

  auto load = SqlParser::Parse("INSERT INTO XMLAnalyzer1 IN \"/t/x.xmm\" SELECT * FROM XMLAnalyzer;");
  EXPECT_EQ(load.kind, SqlStatement::Kind::InsertSelect);
  EXPECT_EQ(load.target.database, "/t/x.xmm");
  EXPECT_EQ(load.source.name, "XMLAnalyzer");
  EXPECT_EQ(load.source.database, "");

  auto exportTo = SqlParser::Parse(
      "SELECT [Type], [Member] INTO [Excel 8.0; DATABASE=/r/a].b.xls].[XMLAnalyzer] From [XMLAnalyzer1]");
  EXPECT_EQ(exportTo.kind, SqlStatement::Kind::SelectInto);
  EXPECT_EQ(exportTo.target.connect, "Excel 8.0; DATABASE=/r/a].b.xls");
  EXPECT_EQ(exportTo.target.name, "XMLAnalyzer");
  EXPECT_EQ(Texts(exportTo.selectList), "Type , Member");
}

TEST(SqlParser, APathMayHoldAnyCharacter) {
  for (const char* path : kNastyPaths) {
    SCOPED_TRACE(path);
    auto save = SqlParser::Parse(std::string("SELECT XMLAnalyzer1.* INTO XMLAnalyzer IN \"") + path +
                                 "\" FROM XMLAnalyzer1");
    EXPECT_EQ(save.target.database, path);
    EXPECT_EQ(save.source.name, "XMLAnalyzer1");
    auto load = SqlParser::Parse(std::string("INSERT INTO XMLAnalyzer1 IN \"") + path +
                                 "\" SELECT * FROM XMLAnalyzer;");
    EXPECT_EQ(load.target.database, path);
    EXPECT_EQ(load.source.name, "XMLAnalyzer");
    auto exportTo = SqlParser::Parse(std::string("SELECT [Type] INTO [Excel 8.0; DATABASE=") + path +
                                     "].[XMLAnalyzer] From [XMLAnalyzer1]");
    EXPECT_EQ(exportTo.target.connect, std::string("Excel 8.0; DATABASE=") + path);
  }
}

TEST(SqlParser, PlainStatementsAndTheirTranslation) {
  auto update = SqlParser::Parse("UPDATE [My Table] SET Flag = 2, Member = 'it''s' WHERE ID = 3 AND Type Like \"M*e?\"");
  EXPECT_EQ(update.kind, SqlStatement::Kind::Update);
  EXPECT_EQ(update.target.name, "My Table");
  ASSERT_EQ(update.assignments.size(), 2u);
  EXPECT_EQ(SqlTranslator::Expression(update.assignments[1].second), "'it''s'");
  EXPECT_EQ(SqlTranslator::Expression(update.where), "\"ID\" = 3 AND \"Type\" LIKE 'M%e_' ESCAPE '\\'");

  auto insert = SqlParser::Parse("INSERT INTO t (a, [b c]) VALUES (1, \"x\" & 'y')");
  EXPECT_EQ(insert.kind, SqlStatement::Kind::InsertValues);
  EXPECT_EQ(insert.columns, (std::vector<std::string>{"a", "b c"}));
  EXPECT_EQ(SqlTranslator::Expression(insert.values), "1, 'x' || 'y'");

  auto select = SqlParser::Parse("SELECT DISTINCT t!a, len(b) FROM t AS q ORDER BY a DESC");
  EXPECT_EQ(select.kind, SqlStatement::Kind::Select);
  EXPECT_TRUE(select.distinct);
  EXPECT_EQ(select.source.alias, "q");
  EXPECT_EQ(SqlTranslator::Expression(select.selectList), "\"t\".\"a\", len(\"b\")");
  EXPECT_EQ(SqlTranslator::Expression(select.orderBy), "\"a\" DESC");

  // A name cannot smuggle SQL through: it stays one quoted identifier.
  auto sneaky = SqlParser::Parse("DELETE FROM [x\"; DROP TABLE y; --] WHERE [a\"b] = 1");
  EXPECT_EQ(sneaky.target.name, "x\"; DROP TABLE y; --");
  EXPECT_EQ(SqlTranslator::Expression(sneaky.where), "\"a\"\"b\" = 1");
}

TEST(SqlParser, FaultyStatementsGiveTheEnginesNumbers) {
  EXPECT_EQ(ParseError("DROP TABLE x"), 3129);
  EXPECT_EQ(ParseError(""), 3129);
  EXPECT_EQ(ParseError("INSERT INTO"), 3134);
  EXPECT_EQ(ParseError("INSERT INTO t SELECT"), 3134);
  EXPECT_EQ(ParseError("UPDATE t"), 3144);
  EXPECT_EQ(ParseError("UPDATE t SET a ="), 3144);
  EXPECT_EQ(ParseError("SELECT FROM t"), 3075);
  EXPECT_EQ(ParseError("SELECT a FROM"), 3131);
  EXPECT_EQ(ParseError("DELETE FROM t WHERE a = \"x"), 3075);
  EXPECT_EQ(ParseError("DELETE FROM t WHERE (a = 1"), 3075);
  EXPECT_EQ(ParseError("DELETE FROM t WHERE TRUE garbage ("), 3075);
  EXPECT_EQ(ParseError("SELECT a INTO b IN /no/quotes FROM t"), 3075);
  EXPECT_EQ(ParseError("DELETE FROM t WHERE a = 1; DELETE FROM u"), 3075);
  EXPECT_THROW(SqlTranslator::Expression(SqlParser::Parse("DELETE FROM t WHERE d = #1/1/2000#").where), Error);
}

TEST(SqlParser, AStatementOfQuotesEndsWithAnError) {
  std::string quotes(3000, '"');
  EXPECT_NE(ParseError("SELECT a INTO b IN \"" + quotes + " FROM t IN \"" + quotes), 0);
  EXPECT_NE(ParseError("INSERT INTO a IN \"" + quotes + "\" SELECT * FROM b IN \"" + quotes + " x"), 0);
  std::string brackets(3000, ']');
  EXPECT_NE(ParseError("SELECT a INTO [Excel 8.0;" + brackets + ".[x] y"), 0);
}
