#include "platform/automation/ProjectSymbols.h"

#include <gtest/gtest.h>

namespace platform::automation {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(ProjectSymbols, CSharpSplitsAtSemicolonsCommasAndBlanks) {
  auto s = CSharpSymbols(" DEBUG;A,B  C;\tD\r\n;;A ", {"NET", "NET8_0"});
  EXPECT_EQ(s.symbols, (Pairs{{"DEBUG", ""}, {"TRACE", ""}, {"A", ""}, {"B", ""}, {"C", ""}, {"D", ""},
                              {"NET", ""}, {"NET8_0", ""}}));
  EXPECT_EQ(CSharpSymbols("", {}).symbols, (Pairs{{"DEBUG", ""}, {"TRACE", ""}}));
}

TEST(ProjectSymbols, VisualBasicPairsKeepTheirValues) {
  auto s = VbSymbols(R"(A=1,B=True;Text="x,y", Bare ,debug=0)", "Debug", "AnyCPU", "WindowsForms", {"NET48"});
  EXPECT_EQ(s.symbols, (Pairs{{"DEBUG", "0"},
                              {"TRACE", "-1"},
                              {"CONFIG", "\"Debug\""},
                              {"PLATFORM", "\"AnyCPU\""},
                              {"_MyType", "\"WindowsForms\""},
                              {"NET48", "-1"},
                              {"A", "1"},
                              {"B", "True"},
                              {"Text", "\"x,y\""},
                              {"Bare", "True"}}));
}

}  // namespace
}  // namespace platform::automation
