#include "platform/automation/MSBuildEvaluator.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/core/Error.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

MSBuildOptions DebugAnyCpu() {
  MSBuildOptions o;
  o.globalProperties = {{"Configuration", "Debug"}, {"Platform", "AnyCPU"}};
  return o;
}

// The items of `type`, as "include" or "include|metadata=value".
std::vector<std::string> Items(const MSBuildProject& p, const std::string& type, const char* metadata = nullptr) {
  std::vector<std::string> out;
  for (auto& item : p.items) {
    if (item.type != type) continue;
    std::string line = item.include;
    if (metadata && !item.Metadata(metadata).empty()) line += std::string("|") + metadata + "=" + item.Metadata(metadata);
    out.push_back(line);
  }
  return out;
}

TEST(MSBuildEvaluator, ImportsChooseAndPropertyOrder) {
  testsupport::TempDir dir;
  dir.Write("Directory.Build.props", R"x(<Project>
    <PropertyGroup><Order>props</Order><FromProps>$(MSBuildThisFileDirectory)</FromProps></PropertyGroup>
  </Project>)x");
  dir.Write("proj/build/a.props", R"x(<Project>
    <Import Project="a.props" />
    <PropertyGroup><Order>$(Order);a</Order><AFile>$(MSBuildThisFile)</AFile></PropertyGroup>
  </Project>)x");
  dir.Write("proj/build/b.props", "<Project><PropertyGroup><Order>$(Order);b</Order></PropertyGroup></Project>");
  dir.Write("proj/build/broken.targets", "<Project><PropertyGroup>");
  dir.Write("proj/Directory.Build.targets", "<Project><PropertyGroup><Order>$(Order);targets</Order></PropertyGroup></Project>");
  auto project = dir.Write("proj/P.csproj", R"x(<Project>
    <Import Project="build\a.props" />
    <Import Project="$(MSBuildThisFileDirectory)build/*.props" />
    <Import Project="build\missing.props" />
    <Import Project="build\broken.targets" Condition="Exists('build\broken.targets')" />
    <Import Project="never.props" Condition="false" />
    <PropertyGroup>
      <Order>$(Order);project</Order>
      <Configuration>Release</Configuration>
      <Name>$(MSBuildProjectName)</Name>
      <Escaped>a%3Bb</Escaped>
    </PropertyGroup>
    <Choose>
      <When Condition="'$(Configuration)' == 'Release'"><PropertyGroup><Branch>release</Branch></PropertyGroup></When>
      <When Condition="'$(Configuration)' == 'Debug'">
        <Choose>
          <When Condition="'$(Platform)' == 'x86'"><PropertyGroup><Branch>debug-x86</Branch></PropertyGroup></When>
          <Otherwise><PropertyGroup><Branch>debug-other</Branch></PropertyGroup></Otherwise>
        </Choose>
      </When>
      <Otherwise><PropertyGroup><Branch>otherwise</Branch></PropertyGroup></Otherwise>
    </Choose>
  </Project>)x");
  auto p = EvaluateMSBuildProject(project, DebugAnyCpu());
  // Directory.Build.props first, each import once (a.props importing itself, the
  // wildcard finding a.props again), the project, then Directory.Build.targets.
  EXPECT_EQ(p.properties.Get("Order"), "props;a;b;project;targets");
  EXPECT_EQ(p.properties.Get("FromProps"), dir.path().string() + "/");
  EXPECT_EQ(p.properties.Get("AFile"), "a.props");
  EXPECT_EQ(p.properties.Get("Configuration"), "Debug");  // global: the project cannot change it
  EXPECT_EQ(p.properties.Get("Branch"), "debug-other");
  EXPECT_EQ(p.properties.Get("Name"), "P");
  EXPECT_EQ(MSBuildUnescape(p.properties.Get("Escaped")), "a;b");
  EXPECT_FALSE(p.sdkStyle);
  ASSERT_EQ(p.warnings.size(), 1u);
  EXPECT_NE(p.warnings[0].find("broken.targets"), std::string::npos);
  EXPECT_NE(p.warnings[0].find("not well-formed XML: line 1"), std::string::npos);
}

TEST(MSBuildEvaluator, LegacyItemsWithWildcardsRemoveUpdateAndConditions) {
  testsupport::TempDir dir;
  for (const char* f : {"A.cs", "Gen/G1.g.cs", "Gen/G2.g.cs", "Gen/Keep.cs", "Views/Main.xaml", "Views/Main.xaml.cs"})
    dir.Write(f, "x");
  auto project = dir.Write("L.csproj", R"x(<Project ToolsVersion="15.0" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
    <PropertyGroup><UseGen>true</UseGen></PropertyGroup>
    <ItemGroup>
      <Compile Include="A.cs;Missing.cs" />
      <Compile Include="Gen\**\*.cs" Exclude="Gen\Keep.cs" Condition="'$(UseGen)' == 'true'" />
      <Compile Include="Skipped.cs" Condition="'$(UseGen)' != 'true'" />
      <Compile Include="Views\Main.xaml.cs" />
      <Compile Remove="Gen\G2.g.cs" />
      <Compile Update="Views\*.xaml.cs" DependentUpon="%(Filename)" />
      <Page Include="Views\Main.xaml"><SubType>Designer</SubType></Page>
      <None Include="@(Compile)" Condition="false" />
      <Content Include="@(Page)" />
    </ItemGroup>
    <ItemGroup Condition="'$(UseGen)' == 'false'"><Compile Include="Never.cs" /></ItemGroup>
  </Project>)x");
  auto p = EvaluateMSBuildProject(project, DebugAnyCpu());
  EXPECT_EQ(Items(p, "Compile", "DependentUpon"),
            (std::vector<std::string>{"A.cs", "Missing.cs", "Gen/G1.g.cs", "Views/Main.xaml.cs|DependentUpon=Main.xaml"}));
  EXPECT_EQ(Items(p, "Page", "SubType"), (std::vector<std::string>{"Views/Main.xaml|SubType=Designer"}));
  EXPECT_EQ(Items(p, "Content"), (std::vector<std::string>{"Views/Main.xaml"}));
  EXPECT_TRUE(Items(p, "None").empty());
  EXPECT_EQ(p.items.front().fullPath, dir.path() / "A.cs");
}

TEST(MSBuildEvaluator, SdkDefaultsGlobbingAndFrameworks) {
  testsupport::TempDir dir;
  for (const char* f : {"Program.cs", "Sub/Util.cs", "bin/Debug/Old.cs", "obj/Gen.cs", ".hidden/H.cs",
                        "Sub/.vs/V.cs", "Generated/X.cs", "Docs/readme.md"})
    dir.Write(f, "x");
  dir.Write("Directory.Build.targets", R"x(<Project>
    <PropertyGroup><SeenIdentifier>$(TargetFrameworkIdentifier)</SeenIdentifier></PropertyGroup>
  </Project>)x");
  auto project = dir.Write("S.csproj", R"x(<Project Sdk="Microsoft.NET.Sdk">
    <PropertyGroup>
      <TargetFrameworks>netstandard2.0;net8.0</TargetFrameworks>
      <DefaultItemExcludes>$(DefaultItemExcludes);Generated/**</DefaultItemExcludes>
      <Tfm>$(TargetFramework)</Tfm>
    </PropertyGroup>
  </Project>)x");
  auto p = EvaluateMSBuildProject(project, DebugAnyCpu());
  EXPECT_TRUE(p.sdkStyle);
  EXPECT_EQ(Items(p, "Compile"), (std::vector<std::string>{"Program.cs", "Sub/Util.cs"}));
  EXPECT_EQ(p.properties.Get("Tfm"), "netstandard2.0");  // evaluated for the first framework
  EXPECT_EQ(p.properties.Get("SeenIdentifier"), ".NETStandard");

  dir.Write("S.csproj", R"x(<Project>
    <Sdk Name="Microsoft.NET.Sdk" />
    <PropertyGroup><EnableDefaultCompileItems>false</EnableDefaultCompileItems></PropertyGroup>
    <ItemGroup><Compile Include="Sub\**" /></ItemGroup>
  </Project>)x");
  p = EvaluateMSBuildProject(project, DebugAnyCpu());
  EXPECT_TRUE(p.sdkStyle);
  EXPECT_EQ(Items(p, "Compile"), (std::vector<std::string>{"Sub/.vs/V.cs", "Sub/Util.cs"}));
}

TEST(MSBuildEvaluator, ProjectThatCannotBeEvaluatedFailsNamingIt) {
  testsupport::TempDir dir;
  auto notProject = dir.Write("a.csproj", "<Solution/>");
  auto broken = dir.Write("b.csproj", "<Project>\n  <PropertyGroup>\n</Project>");
  try {
    EvaluateMSBuildProject(notProject, DebugAnyCpu());
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 5);
    EXPECT_EQ(e.description, "'" + notProject.string() + "' is not a project file: its root element is <Solution>");
  }
  try {
    EvaluateMSBuildProject(broken, DebugAnyCpu());
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 5);
    EXPECT_EQ(e.description.rfind("'" + broken.string() + "' is not well-formed XML: line 3", 0), 0u) << e.description;
  }
  EXPECT_THROW(EvaluateMSBuildProject(dir.path() / "none.csproj", DebugAnyCpu()), Error);
}

TEST(MSBuildFileCache, ParsesAFileOnceAndKeepsNoFailures) {
  testsupport::TempDir dir;
  auto props = dir.Write("Directory.Build.props", "<Project><PropertyGroup><A>1</A></PropertyGroup></Project>");
  MSBuildFileCache cache;
  auto first = cache.Read(props);
  EXPECT_EQ(cache.Read(props), first);
  EXPECT_STREQ(first->document_element().name(), "Project");
  auto broken = dir.path() / "broken.props";
  EXPECT_EQ(testsupport::ErrorOf([&] { cache.Read(broken); }), 53);
  dir.Write("broken.props", "<Project/>");
  EXPECT_STREQ(cache.Read(broken)->document_element().name(), "Project");  // read once it exists
}

}  // namespace
}  // namespace platform::automation
