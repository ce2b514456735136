#include "platform/suite/Help.h"

#include <gtest/gtest.h>

#include <sstream>

namespace platform::suite {
namespace {

TEST(HelpTest, OpeningATopicSaysWhereItsPageIs) {
  std::ostringstream out;
  std::string folder = std::string(ANNOTRA_SOURCE_DIR) + "/resources/help/";
  Help help(folder, out);
  EXPECT_TRUE(help.ShowHelp("htm/XMLAnalyzer_Using.htm"));
  EXPECT_FALSE(help.ShowHelp("htm/Missing.htm"));
  EXPECT_FALSE(help.ShowHelp("../help/htm/XMLAnalyzer_Using.htm"));
  EXPECT_FALSE(help.ShowHelp(""));
  std::istringstream lines(out.str());
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "Help: " + folder + "htm/XMLAnalyzer_Using.htm");
  std::getline(lines, line);
  EXPECT_EQ(line, "Help topic not found: " + folder + "htm/Missing.htm");
}

}  // namespace
}  // namespace platform::suite
