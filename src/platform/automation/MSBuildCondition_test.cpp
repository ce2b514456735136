#include "platform/automation/MSBuildCondition.h"

#include <gtest/gtest.h>

#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(MSBuildCondition, Table) {
  testsupport::TempDir dir;
  dir.Write("present.props", "<Project/>");
  MSBuildProperties props;
  props.Set("Configuration", "Debug");
  props.Set("Platform", "AnyCPU");
  props.Set("TargetFramework", "net8.0");
  props.Set("Dir", "src\\");
  props.Set("Count", "10");
  props.Set("Flag", "true");
  MSBuildScope scope{&props, dir.path(), nullptr, nullptr};
  struct Case {
    const char* condition;
    bool expected;
  } cases[] = {
      {"", true},
      {"   ", true},
      {" '$(Configuration)|$(Platform)' == 'Debug|AnyCPU' ", true},
      {"'$(Configuration)' == 'debug'", true},  // text compares without case
      {"'$(Configuration)' != 'Release'", true},
      {"'$(Undefined)' == ''", true},
      {"$(Flag)", true},
      {"!$(Flag)", false},
      {"'$(Flag)' and '$(Configuration)' == 'Debug'", true},
      {"false or ('$(Platform)' == 'x86' or '$(Platform)' == 'AnyCPU')", true},
      {"true AND (false OR !true)", false},
      {"$(Count) > 9 and $(Count) <= 10 and 0x10 == 16", true},
      {"'$(Count)' == '10.0'", true},  // numbers compare as numbers
      {"Exists('present.props')", true},
      {"Exists('$(MSBuildThisFileDirectory)missing.props')", false},
      {"!Exists('')", true},
      {"HasTrailingSlash('$(Dir)') and !HasTrailingSlash('src')", true},
      {"'$([MSBuild]::GetTargetFrameworkIdentifier('$(TargetFramework)'))' == '.NETCoreApp'", true},
      {"$(TargetFramework.StartsWith('net8'))", true},
      {"$([MSBuild]::IsTargetFrameworkCompatible('$(TargetFramework)', 'net6.0'))", true},
      // Malformed or unknown: false, never an error.
      {"'$(Configuration)' == ", false},
      {"('a' == 'a'", false},
      {"'unterminated", false},
      {"Unknown('x')", false},
      {"'abc' < 'abd'", false},
      {"maybe", false},
      {"'a' == 'a' junk", false},
      {"$(Configuration", false},
  };
  for (auto& c : cases) EXPECT_EQ(EvaluateMSBuildCondition(c.condition, scope), c.expected) << c.condition;
}

TEST(MSBuildCondition, DeepNestingIsFalseNotACrash) {
  MSBuildProperties props;
  MSBuildScope scope{&props, "/", nullptr, nullptr};
  std::string deep = std::string(10000, '(') + "true" + std::string(10000, ')');
  EXPECT_FALSE(EvaluateMSBuildCondition(deep, scope));
  EXPECT_FALSE(EvaluateMSBuildCondition(std::string(10000, '!') + "true", scope));
  std::string shallow = std::string(20, '(') + "true" + std::string(20, ')');
  EXPECT_TRUE(EvaluateMSBuildCondition(shallow, scope));
}

}  // namespace
}  // namespace platform::automation
