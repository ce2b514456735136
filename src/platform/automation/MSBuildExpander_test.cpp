#include "platform/automation/MSBuildExpander.h"

#include <gtest/gtest.h>

#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(MSBuildExpander, PropertiesAndFunctions) {
  testsupport::TempDir dir;
  dir.Write("Directory.Build.props", "<Project/>");
  dir.Write("a/b/file.txt", "x");
  MSBuildProperties props;
  props.Set("Name", "My.App");
  props.Set("TargetFramework", "net8.0-windows10.0.17763.0");
  props.Set("Version", "6.0.1");
  props.Set("Here", (dir.path() / "a" / "b").string());
  MSBuildScope scope{&props, dir.path() / "a" / "b", nullptr, nullptr};
  struct Case {
    const char* text;
    std::string expected;
  } cases[] = {
      {"plain $(Name) text", "plain My.App text"},
      {"$(name)", "My.App"},  // names ignore letter case
      {"$(Missing)", ""},
      {"$( Name )", "My.App"},
      {"$(Name.Replace('.', '_').ToUpper())", "MY_APP"},
      {"$(Name.Substring(3))", "App"},
      {"$(Name.Substring(30))", ""},
      {"$(Name.Length)", "6"},
      {"$(Name.Contains('App'))", "True"},
      {"$(Name.Split('.'))", "My;App"},
      {"$([System.String]::IsNullOrEmpty('$(Missing)'))", "True"},
      {"$([System.IO.Path]::Combine('a', 'b\\c.cs'))", "a/b/c.cs"},
      {"$([System.IO.Path]::GetFileNameWithoutExtension('x/y/Foo.Bar.cs'))", "Foo.Bar"},
      {"$([MSBuild]::GetDirectoryNameOfFileAbove($(Here), Directory.Build.props))", dir.path().string()},
      {"$([MSBuild]::GetPathOfFileAbove('Directory.Build.props'))", (dir.path() / "Directory.Build.props").string()},
      {"$([MSBuild]::GetPathOfFileAbove('nothing.props'))", ""},
      {"$([MSBuild]::EnsureTrailingSlash('$(Name)'))", "My.App/"},
      {"$([MSBuild]::ValueOrDefault('$(Missing)', 'fallback'))", "fallback"},
      {"$([MSBuild]::Add(2, 40))", "42"},
      {"$([MSBuild]::Divide(1, 0))", ""},
      {"$([MSBuild]::VersionGreaterThanOrEquals('$(Version)', '6.0'))", "True"},
      {"$([MSBuild]::GetTargetFrameworkIdentifier('$(TargetFramework)'))", ".NETCoreApp"},
      {"$([MSBuild]::GetTargetFrameworkVersion('$(TargetFramework)'))", "8.0"},
      {"$([MSBuild]::GetTargetPlatformIdentifier('$(TargetFramework)'))", "windows"},
      {"$([MSBuild]::GetTargetPlatformVersion('$(TargetFramework)', 4))", "10.0.17763.0"},
      {"$([System.IO.File]::Exists('file.txt'))", "True"},
      {"$([System.Environment]::GetEnvironmentVariable('HOME'))", ""},
      {"$([System.DateTime]::Now)", ""},
      {"$(Name.NoSuchMethod())", ""},
      {"unclosed $(Name", "unclosed $(Name"},
      {"@(Compile) %(Filename)", " %(Filename)"},
  };
  for (auto& c : cases) EXPECT_EQ(ExpandMSBuild(c.text, scope), c.expected) << c.text;
}

TEST(MSBuildExpander, ItemsMetadataAndLimits) {
  MSBuildProperties props;
  props.Set("Big", std::string(2000, 'x'));
  MSBuildScope scope{&props, "/", [](std::string_view type) { return std::string(type) + "-list"; },
                     [](std::string_view name) { return "<" + std::string(name) + ">"; }};
  EXPECT_EQ(ExpandMSBuild("@(Compile);%(Filename);%(Compile.Link)", scope), "Compile-list;<Filename>;<Link>");
  // Transforms are not evaluated.
  EXPECT_EQ(ExpandMSBuild("@(Compile->'%(Filename)')", scope), "");
  // Growth is capped, nesting is bounded.
  EXPECT_EQ(ExpandMSBuild("$(Big.Replace('x', '$(Big)'))", scope).size(), size_t{1} << 20);
  std::string nested;
  for (int i = 0; i < 200; ++i) nested = "$(Big.Replace('y', '" + nested + "'))";
  EXPECT_NO_THROW(ExpandMSBuild(nested, scope));
  EXPECT_EQ(ExpandMSBuild("$(Big.PadLeft(999999999))", scope).size(), size_t{1} << 20);
}

TEST(MSBuildExpander, ArgumentSplitting) {
  EXPECT_EQ(SplitArguments(" 'a,b' , $(X.Replace(',', ';')) ,c "),
            (std::vector<std::string>{"'a,b'", "$(X.Replace(',', ';'))", "c"}));
  EXPECT_TRUE(SplitArguments("  ").empty());
  EXPECT_EQ(FindClosingParen("$(a(')')b)", 1), 9u);
}

}  // namespace
}  // namespace platform::automation
