#include "platform/automation/SolutionLoader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <optional>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/core/Error.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

using Lines = std::vector<std::string>;

std::string KindName(const std::string& kind) {
  if (kind == kProjectKindCSharp) return "cs";
  if (kind == kProjectKindCSharpSdk) return "cs-sdk";
  if (kind == kProjectKindVB) return "vb";
  if (kind == kProjectKindVBSdk) return "vb-sdk";
  if (kind == kProjectKindSolutionFolder) return "folder";
  if (kind == kProjectKindWebSite) return "web";
  return "other " + kind;
}

void DumpItems(const Ref<ProjectItems>& items, int depth, std::string& out);

void DumpProject(const Ref<Project>& p, int depth, std::string& out) {
  out += std::string(depth * 2, ' ') + "[" + KindName(p->Kind()) + "] " + p->Name() + "\n";
  DumpItems(p->ProjectItems(), depth + 1, out);
}

void DumpItems(const Ref<ProjectItems>& items, int depth, std::string& out) {
  for (auto& item : items->items()) {
    if (item->SubProject()) {
      EXPECT_EQ(item->SubProject()->ParentProjectItem(), item);
      DumpProject(item->SubProject(), depth, out);
      continue;
    }
    EXPECT_EQ(item->Collection(), items);
    bool folder = item->Kind() == vsProjectItemKindPhysicalFolder;
    out += std::string(depth * 2, ' ') + item->Name() + (folder ? "/" : "") + "\n";
    DumpItems(item->ProjectItems(), depth + 1, out);
  }
}

// The solution as an indented tree: projects with their kind, items in order, folders
// with a trailing '/', nested items and sub-projects below their parent.
std::string Dump(const Ref<DTE>& dte) {
  std::string out;
  for (auto& p : dte->Solution()->Projects()->items()) DumpProject(p, 0, out);
  return out;
}

Ref<Project> FindProject(const Ref<ProjectItems>& items, const std::string& name);
Ref<Project> FindProject(const std::vector<Ref<Project>>& projects, const std::string& name) {
  for (auto& p : projects) {
    if (p->Name() == name) return p;
    if (auto found = FindProject(p->ProjectItems(), name)) return found;
  }
  return nullptr;
}
Ref<Project> FindProject(const Ref<ProjectItems>& items, const std::string& name) {
  for (auto& item : items->items())
    if (auto sub = item->SubProject())
      if (auto found = FindProject(std::vector<Ref<Project>>{sub}, name)) return found;
  return nullptr;
}

Lines SymbolNames(const Ref<Project>& p) {
  Lines out;
  for (auto& [name, value] : p->symbols().symbols) out.push_back(value.empty() ? name : name + "=" + value);
  return out;
}

// Whether one of the warnings, a single line, mentions `a` and `b`; of kind `kind` when
// one is given.
bool Mentions(const std::vector<LoadWarning>& warnings, const std::string& a, const std::string& b = "",
              std::optional<LoadWarning::Kind> kind = std::nullopt) {
  return std::any_of(warnings.begin(), warnings.end(), [&](const LoadWarning& w) {
    return w.text.find(a) != std::string::npos && w.text.find(b) != std::string::npos &&
           w.text.find('\n') == std::string::npos && (!kind || w.kind == *kind);
  });
}

// A legacy C# project, an SDK-style VB project in a solution folder, solution items.
// Some paths differ in letter case from the disk, as projects from Windows do.
void WriteMixedSolution(const testsupport::TempDir& dir) {
  dir.Write("src/Legacy App/Legacy App.csproj", R"x(<?xml version="1.0" encoding="utf-8"?>
<Project ToolsVersion="15.0" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <Import Project="$(MSBuildExtensionsPath)\$(MSBuildToolsVersion)\Microsoft.Common.props" Condition="Exists('$(MSBuildExtensionsPath)\$(MSBuildToolsVersion)\Microsoft.Common.props')" />
  <PropertyGroup>
    <Configuration Condition=" '$(Configuration)' == '' ">Debug</Configuration>
    <Platform Condition=" '$(Platform)' == '' ">AnyCPU</Platform>
  </PropertyGroup>
  <PropertyGroup Condition=" '$(Configuration)|$(Platform)' == 'Debug|AnyCPU' ">
    <DefineConstants>DEBUG;TRACE;LEGACY_DEBUG</DefineConstants>
  </PropertyGroup>
  <PropertyGroup Condition=" '$(Configuration)|$(Platform)' == 'Release|AnyCPU' ">
    <DefineConstants>TRACE;RELEASE_ONLY</DefineConstants>
  </PropertyGroup>
  <ItemGroup>
    <Reference Include="System" />
    <Compile Include="program.CS" />
    <Compile Include="forms\MainForm.cs"><SubType>Form</SubType></Compile>
    <Compile Include="Forms\MainForm.Designer.cs"><DependentUpon>MainForm.cs</DependentUpon></Compile>
    <Compile Include="Properties\AssemblyInfo.cs" />
    <Compile Include="..\Shared\SharedInfo.cs"><Link>Properties\SharedInfo.cs</Link></Compile>
    <Compile Include="..\Shared\Outside.cs" />
    <EmbeddedResource Include="Forms\MainForm.resx"><DependentUpon>MainForm.cs</DependentUpon></EmbeddedResource>
    <None Include="App.config" />
    <Folder Include="Empty\" />
  </ItemGroup>
  <Import Project="$(MSBuildToolsPath)\Microsoft.CSharp.targets" />
</Project>)x");
  for (const char* f : {"Program.cs", "Forms/MainForm.cs", "Forms/MainForm.Designer.cs", "Forms/MainForm.resx",
                        "Properties/AssemblyInfo.cs", "App.config"})
    dir.Write(std::string("src/Legacy App/") + f, "// x\n");
  dir.Write("src/Shared/SharedInfo.cs", "// shared\n");
  dir.Write("src/VbLib/VbLib.vbproj", R"x(<Project Sdk="Microsoft.NET.Sdk">
  <PropertyGroup>
    <TargetFrameworks>net8.0;net48</TargetFrameworks>
    <DefineConstants>$(DefineConstants),Feature="on",LEVEL=2</DefineConstants>
    <MyType>Empty</MyType>
  </PropertyGroup>
  <ItemGroup>
    <Compile Remove="Generated\**" />
    <Compile Update="Forms\Main.Designer.vb" DependentUpon="Main.vb" />
  </ItemGroup>
</Project>)x");
  for (const char* f : {"Module1.vb", "Forms/Main.vb", "Forms/Main.Designer.vb", "Generated/Gen.vb", "bin/Debug/Old.vb",
                        "obj/Debug/X.vb", ".hidden/H.vb", "Forms/.git/G.vb", "readme.txt"})
    dir.Write(std::string("src/VbLib/") + f, "' x\n");
  dir.Write("docs/readme.md", "# docs\n");
}

const char* kMixedTree =
    "[cs] Legacy App\n"
    "  App.config\n"
    "  Empty/\n"
    "  Forms/\n"
    "    MainForm.cs\n"
    "      MainForm.Designer.cs\n"
    "      MainForm.resx\n"
    "  Outside.cs\n"
    "  Program.cs\n"
    "  Properties/\n"
    "    AssemblyInfo.cs\n"
    "    SharedInfo.cs\n"
    "[folder] Libraries\n"
    "  [folder] Inner\n"
    "  missing.txt\n"
    "  readme.md\n"
    "  [vb-sdk] VbLib\n"
    "    Forms/\n"
    "      Main.vb\n"
    "        Main.Designer.vb\n"
    "    Module1.vb\n";

TEST(SolutionLoader, SlnWithLegacyAndSdkProjectsNestingAndOrder) {
  testsupport::TempDir dir;
  WriteMixedSolution(dir);
  auto sln = dir.Write("Mixed Solution.sln",
                       "\r\nMicrosoft Visual Studio Solution File, Format Version 12.00\r\n"
                       "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Legacy App\", \"SRC\\Legacy App\\legacy app.csproj\", \"{11111111-1111-1111-1111-111111111111}\"\r\n"
                       "EndProject\r\n"
                       "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Libraries\", \"Libraries\", \"{22222222-2222-2222-2222-222222222222}\"\r\n"
                       "\tProjectSection(SolutionItems) = preProject\r\n"
                       "\t\tdocs\\readme.md = docs\\readme.md\r\n"
                       "\t\tmissing.txt = missing.txt\r\n"
                       "\tEndProjectSection\r\n"
                       "EndProject\r\n"
                       "Project(\"{778DAE3C-4631-46EA-AA77-85C1314464D9}\") = \"VbLib\", \"src/VbLib/VbLib.vbproj\", \"{33333333-3333-3333-3333-333333333333}\"\r\n"
                       "EndProject\r\n"
                       "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Inner\", \"Inner\", \"{44444444-4444-4444-4444-444444444444}\"\r\n"
                       "EndProject\r\n"
                       "Global\r\n"
                       "\tGlobalSection(NestedProjects) = preSolution\r\n"
                       "\t\t{33333333-3333-3333-3333-333333333333} = {22222222-2222-2222-2222-222222222222}\r\n"
                       "\t\t{44444444-4444-4444-4444-444444444444} = {22222222-2222-2222-2222-222222222222}\r\n"
                       "\tEndGlobalSection\r\n"
                       "EndGlobal\r\n");
  auto r = OpenSolution(sln);
  EXPECT_EQ(Dump(r.dte), kMixedTree);
  EXPECT_EQ(r.dte->Solution()->FullName(), sln.string());

  ASSERT_EQ(r.warnings.size(), 2u) << r.warnings[0];
  // A compiled file that is missing loses code; a solution item that is missing does not.
  EXPECT_TRUE(Mentions(r.warnings, "Legacy App", (dir.path() / "src/Shared/Outside.cs").string(),
                       LoadWarning::Kind::MissingSource));
  EXPECT_TRUE(Mentions(r.warnings, "Libraries", (dir.path() / "missing.txt").string(), LoadWarning::Kind::Other));

  auto legacy = FindProject(r.dte->Solution()->Projects()->items(), "Legacy App");
  EXPECT_EQ(SymbolNames(legacy), (Lines{"DEBUG", "TRACE", "LEGACY_DEBUG"}));
  EXPECT_EQ(legacy->FullName(), (dir.path() / "src/Legacy App/Legacy App.csproj").string());
  auto linked = legacy->ProjectItems()->Item("Properties")->ProjectItems()->Item("SharedInfo.cs");
  EXPECT_EQ(linked->FileNames(1), (dir.path() / "src/Shared/SharedInfo.cs").string());
  EXPECT_EQ(linked->ContainingProject(), legacy);

  auto vb = FindProject(r.dte->Solution()->Projects()->items(), "VbLib");
  auto symbols = SymbolNames(vb);
  EXPECT_EQ(Lines(symbols.begin(), symbols.begin() + 9),
            (Lines{"DEBUG=-1", "TRACE=-1", "CONFIG=\"Debug\"", "PLATFORM=\"AnyCPU\"", "_MyType=\"Empty\"", "NET=-1",
                   "NET8_0=-1", "NETCOREAPP=-1", "NET8_0_OR_GREATER=-1"}));
  EXPECT_EQ(Lines(symbols.end() - 2, symbols.end()), (Lines{"Feature=\"on\"", "LEVEL=2"}));
  auto folder = FindProject(r.dte->Solution()->Projects()->items(), "Libraries");
  EXPECT_FALSE(As<SolutionFolder>(folder->Object())->Hidden());
  EXPECT_EQ(vb->ParentProjectItem()->Collection()->ContainingProject(), folder);
}

TEST(SolutionLoader, SlnxWithSymbolsFromDirectoryBuildFilesAndChoose) {
  testsupport::TempDir dir;
  dir.Write("Directory.Build.props", R"x(<Project>
  <Import Project="$(MSBuildThisFileDirectory)build\common.props" />
  <PropertyGroup Condition="'$(Configuration)' == 'Debug'">
    <DefineConstants>$(DefineConstants);FROM_PROPS</DefineConstants>
  </PropertyGroup>
</Project>)x");
  dir.Write("build/common.props", "<Project><PropertyGroup><CompanyFlag>ACME</CompanyFlag></PropertyGroup></Project>");
  dir.Write("src/Directory.Build.props", R"x(<Project>
  <Import Project="$([MSBuild]::GetPathOfFileAbove('Directory.Build.props', '$(MSBuildThisFileDirectory)../'))" />
  <PropertyGroup><DefineConstants>$(DefineConstants);NEAR_PROPS</DefineConstants></PropertyGroup>
</Project>)x");
  dir.Write("src/App/App.csproj", R"x(<Project Sdk="Microsoft.NET.Sdk">
  <PropertyGroup>
    <TargetFrameworks>net8.0;netstandard2.0</TargetFrameworks>
    <DefineConstants>$(DefineConstants);$(CompanyFlag)</DefineConstants>
  </PropertyGroup>
  <Choose>
    <When Condition="'$(TargetFramework)' == 'netstandard2.0'">
      <PropertyGroup><DefineConstants>$(DefineConstants);LEGACY_TFM</DefineConstants></PropertyGroup>
    </When>
    <Otherwise>
      <PropertyGroup><DefineConstants>$(DefineConstants);MODERN_TFM</DefineConstants></PropertyGroup>
    </Otherwise>
  </Choose>
  <PropertyGroup Condition="$(TargetFramework.StartsWith('net8')) and !Exists('nothing.txt') and ('$(Platform)' == 'AnyCPU' or false)">
    <DefineConstants>$(DefineConstants) SPACE_SEPARATED,COMMA</DefineConstants>
  </PropertyGroup>
  <ItemGroup>
    <Compile Remove="Old.cs" />
    <Compile Include="..\Shared\Linked.cs" Link="Shared\Linked.cs" />
    <Folder Include="Assets\" />
  </ItemGroup>
</Project>)x");
  dir.Write("Directory.Build.targets", R"x(<Project>
  <PropertyGroup Condition="'$(TargetFrameworkIdentifier)' == '.NETCoreApp'">
    <DefineConstants>$(DefineConstants);CORE_TARGETS</DefineConstants>
  </PropertyGroup>
</Project>)x");
  for (const char* f : {"src/App/Program.cs", "src/App/Old.cs", "src/App/Models/b.cs", "src/App/Models/A.cs",
                        "src/Shared/Linked.cs", "src/Legacy/Legacy.cs"})
    dir.Write(f, "class X {}\n");
  dir.Write("src/Legacy/Legacy.csproj", R"x(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup><Platform Condition="'$(Platform)' == ''">x86</Platform></PropertyGroup>
  <PropertyGroup Condition="'$(Configuration)|$(Platform)' == 'Debug|x86'"><DefineConstants>X86_ONLY</DefineConstants></PropertyGroup>
  <PropertyGroup Condition="'$(Configuration)|$(Platform)' == 'Debug|AnyCPU'"><DefineConstants>ANYCPU</DefineConstants></PropertyGroup>
  <ItemGroup><Compile Include="Legacy.cs" /></ItemGroup>
</Project>)x");
  auto slnx = dir.Write("All.slnx", R"x(<Solution>
  <Folder Name="/Apps/Inner/">
    <Project Path="src\App\App.csproj" />
  </Folder>
  <Folder Name="/Apps/">
    <File Path="Directory.Build.props" />
  </Folder>
  <Project Path="src/Legacy/Legacy.csproj" Type="Classic C#" />
</Solution>)x");
  auto r = OpenSolution(slnx);
  EXPECT_EQ(Dump(r.dte),
            "[folder] Apps\n"
            "  Directory.Build.props\n"
            "  [folder] Inner\n"
            "    [cs-sdk] App\n"
            "      Assets/\n"
            "      Models/\n"
            "        A.cs\n"
            "        b.cs\n"
            "      Program.cs\n"
            "      Shared/\n"
            "        Linked.cs\n"
            "[cs] Legacy\n"
            "  Legacy.cs\n");
  EXPECT_TRUE(r.warnings.empty()) << r.warnings[0];
  auto app = FindProject(r.dte->Solution()->Projects()->items(), "App");
  EXPECT_EQ(SymbolNames(app),
            (Lines{"DEBUG", "TRACE", "FROM_PROPS", "NEAR_PROPS", "ACME", "MODERN_TFM", "SPACE_SEPARATED", "COMMA",
                   "CORE_TARGETS", "NET", "NET8_0", "NETCOREAPP", "NET8_0_OR_GREATER", "NET7_0_OR_GREATER",
                   "NET6_0_OR_GREATER", "NET5_0_OR_GREATER", "NETCOREAPP3_1_OR_GREATER", "NETCOREAPP3_0_OR_GREATER",
                   "NETCOREAPP2_2_OR_GREATER", "NETCOREAPP2_1_OR_GREATER", "NETCOREAPP2_0_OR_GREATER",
                   "NETCOREAPP1_1_OR_GREATER", "NETCOREAPP1_0_OR_GREATER"}));
  // A legacy project whose Debug configuration exists for x86 only is read under it.
  auto legacy = FindProject(r.dte->Solution()->Projects()->items(), "Legacy");
  EXPECT_EQ(SymbolNames(legacy), (Lines{"DEBUG", "TRACE", "X86_ONLY"}));
}

TEST(SolutionLoader, ProjectFileFolderAndSingleSourceFile) {
  testsupport::TempDir dir;
  WriteMixedSolution(dir);
  // A project file on its own.
  auto r = OpenSolution(dir.path() / "src/VbLib/VbLib.vbproj");
  EXPECT_EQ(Dump(r.dte), "[vb-sdk] VbLib\n  Forms/\n    Main.vb\n      Main.Designer.vb\n  Module1.vb\n");

  // A folder with project files below it and no solution.
  r = OpenSolution(dir.path() / "src");
  ASSERT_EQ(r.dte->Solution()->Projects()->Count(), 2);
  EXPECT_EQ(r.dte->Solution()->Projects()->Item(1)->Name(), "Legacy App");
  EXPECT_EQ(r.dte->Solution()->Projects()->Item(2)->Name(), "VbLib");
  EXPECT_EQ(r.dte->Solution()->FullName(), (dir.path() / "src").string());

  // A folder with one solution opens it; with two, its own project files.
  auto one = dir.Write("src/VbLib/Only.slnx", "<Solution><Project Path=\"VbLib.vbproj\" /></Solution>");
  r = OpenSolution(dir.path() / "src/VbLib");
  EXPECT_EQ(r.dte->Solution()->FullName(), one.string());
  dir.Write("src/VbLib/Other.sln", "Microsoft Visual Studio Solution File, Format Version 12.00\n");
  r = OpenSolution(dir.path() / "src/VbLib/");
  EXPECT_EQ(r.dte->Solution()->FullName(), (dir.path() / "src/VbLib").string());
  EXPECT_EQ(r.dte->Solution()->Projects()->Count(), 1);
  EXPECT_TRUE(Mentions(r.warnings, "several solution files"));

  // A folder of sources only: a web site.
  dir.Write("site/App_Code/Helper.cs", "class H {}\n");
  dir.Write("site/Default.aspx.cs", "class D {}\n");
  dir.Write("site/bin/Skip.cs", "");
  dir.Write("site/web.config", "<configuration/>");
  r = OpenSolution(dir.path() / "site");
  EXPECT_EQ(Dump(r.dte), "[web] site\n  App_Code/\n    Helper.cs\n  Default.aspx.cs\n");
  auto site = r.dte->Solution()->Projects()->Item(1);
  EXPECT_EQ(site->Object()->TypeName(), std::string("VSWebSite"));
  EXPECT_EQ(site->ProjectItems()->Item("Default.aspx.cs")->Object()->TypeName(), std::string("VSWebProjectItem"));

  // A single source file.
  r = OpenSolution(dir.path() / "src/VbLib/Module1.vb");
  EXPECT_EQ(Dump(r.dte), "[vb] VbLib\n  Module1.vb\n");
  EXPECT_EQ(SymbolNames(r.dte->Solution()->Projects()->Item(1))[0], "DEBUG=-1");
}

TEST(SolutionLoader, ProjectsThatCannotBeReadStayWithoutItems) {
  testsupport::TempDir dir;
  dir.Write("Broken/Broken.csproj", "<Project>\n<ItemGroup>\n<Compile Include=\"A.cs\">\n</Project>\n");
  dir.Write("Binary/Binary.csproj", std::string("<\0P\0r\0o\0j\0", 10));
  dir.Write("NotXmlProject/NotXmlProject.vbproj", "<Solution/>");
  std::filesystem::create_directories(dir.path() / "Dir.csproj");
  dir.Write("Cpp/Cpp.vcxproj", "<Project/>");
  auto sln = dir.Write("s.sln",
                       "Microsoft Visual Studio Solution File, Format Version 12.00\n"
                       "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Broken\", \"Broken\\Broken.csproj\", \"{1}\"\nEndProject\n"
                       "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Gone\", \"Gone\\Gone.csproj\", \"{2}\"\nEndProject\n"
                       "Project(\"{9A19103F-16F7-4668-BE54-9A1E7A4F7556}\") = \"Binary\", \"Binary\\Binary.csproj\", \"{3}\"\nEndProject\n"
                       "Project(\"{F184B08F-C81C-45F6-A57F-5ABD9991F28F}\") = \"NotXmlProject\", \"NotXmlProject\\NotXmlProject.vbproj\", \"{4}\"\nEndProject\n"
                       "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Dir\", \"Dir.csproj\", \"{5}\"\nEndProject\n"
                       "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"Cpp\", \"Cpp\\Cpp.vcxproj\", \"{6}\"\nEndProject\n"
                       "Project(\"{E24C65DC-7377-472B-9ABA-BC803B73C61A}\") = \"Site\", \"http://localhost:8080/\", \"{7}\"\nEndProject\n"
                       "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Loop\", \"Loop\", \"{8}\"\nEndProject\n"
                       "Global\nGlobalSection(NestedProjects) = preSolution\n{8} = {8}\n{1} = {3}\nEndGlobalSection\nEndGlobal\n");
  auto r = OpenSolution(sln);
  EXPECT_EQ(Dump(r.dte),
            "[cs] Broken\n[cs] Gone\n[cs-sdk] Binary\n[vb] NotXmlProject\n[cs] Dir\n"
            "[other {8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}] Cpp\n[web] Site\n[folder] Loop\n");
  auto p = [&](const char* sub) { return (dir.path() / sub).string(); };
  EXPECT_TRUE(Mentions(r.warnings, "project 'Broken' cannot be read: '" + p("Broken/Broken.csproj") +
                                       "' is not well-formed XML: line 4: Start-end tags mismatch"));
  EXPECT_TRUE(Mentions(r.warnings, "project 'Gone' cannot be read: '" + p("Gone/Gone.csproj") + "' does not exist", "",
                       LoadWarning::Kind::UnreadProject));
  EXPECT_TRUE(Mentions(r.warnings, "project 'Binary' cannot be read: '" + p("Binary/Binary.csproj") +
                                       "' is in an unknown encoding"));
  EXPECT_TRUE(Mentions(r.warnings, "project 'NotXmlProject' cannot be read: '" + p("NotXmlProject/NotXmlProject.vbproj") +
                                       "' is not a project file"));
  EXPECT_TRUE(Mentions(r.warnings, "project 'Dir' cannot be read: '" + p("Dir.csproj") + "' is not a file"));
  EXPECT_TRUE(Mentions(r.warnings, "web site 'Site' cannot be read", "http://localhost:8080/",
                       LoadWarning::Kind::UnreadProject));
  EXPECT_TRUE(Mentions(r.warnings, "'Loop' is nested in itself", "", LoadWarning::Kind::Other));
  EXPECT_TRUE(Mentions(r.warnings, "'Loop' is nested in itself"));
  EXPECT_TRUE(Mentions(r.warnings, "'Broken' is nested in something that is not a solution folder"));
  EXPECT_EQ(r.warnings.size(), 8u);
  // An unread project still has the language's symbols, so its files parse.
  EXPECT_EQ(SymbolNames(r.dte->Solution()->Projects()->Item(4))[0], "DEBUG=-1");
}

// Opens `path` and returns the error it fails with.
Error OpenError(const std::filesystem::path& path) {
  try {
    OpenSolution(path);
  } catch (const Error& e) {
    EXPECT_EQ(e.description.find('\n'), std::string::npos) << e.description;
    return e;
  }
  ADD_FAILURE() << "opened " << path;
  return Error(0, "");
}

TEST(SolutionLoader, WhatCannotBeLoadedAtAllFailsWithOneLineNamingTheFile) {
  testsupport::TempDir dir;
  auto q = [&](const std::string& sub) { return "'" + (dir.path() / sub).string() + "'"; };
  auto e = OpenError(dir.path() / "missing.sln");
  EXPECT_EQ(e.number, 53);
  EXPECT_EQ(e.description, q("missing.sln") + " does not exist");
  EXPECT_EQ(OpenError(dir.path() / "nothing/here").number, 53);
  EXPECT_EQ(OpenError("").number, 53);

  dir.Write("empty.sln", "");
  EXPECT_EQ(OpenError(dir.path() / "empty.sln").description, q("empty.sln") + " is not a solution file: it is empty");
  dir.Write("truncated.sln",
            "Microsoft Visual Studio Solution File, Format Version 12.00\n"
            "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"A\", \"A\\A.csproj\", \"{1}\"\n");
  e = OpenError(dir.path() / "truncated.sln");
  EXPECT_EQ(e.number, 5);
  EXPECT_EQ(e.description, q("truncated.sln") + " line 2: Project without EndProject");
  dir.Write("bad.slnx", "<Solution><Folder></Solution>");
  EXPECT_EQ(OpenError(dir.path() / "bad.slnx").description.rfind(q("bad.slnx") + " is not well-formed XML: line 1", 0), 0u);

  // Unknown encoding: UTF-16 without a byte-order mark, and binary.
  std::string utf16;
  for (char c : std::string("Microsoft Visual Studio Solution File, Format Version 12.00\r\n")) utf16 += {c, '\0'};
  dir.Write("utf16.sln", utf16);
  e = OpenError(dir.path() / "utf16.sln");
  EXPECT_EQ(e.number, 5);
  EXPECT_EQ(e.description.rfind(q("utf16.sln") + " is in an unknown encoding", 0), 0u);
  dir.Write("binary.cs", std::string("\x7f" "ELF\0\0\x01", 7));
  EXPECT_EQ(OpenError(dir.path() / "binary.cs").description.rfind(q("binary.cs") + " is in an unknown encoding", 0), 0u);
  // With its byte-order mark the same UTF-16 solution loads.
  dir.Write("utf16bom.sln", "\xFF\xFE" + utf16);
  EXPECT_EQ(OpenSolution(dir.path() / "utf16bom.sln").dte->Solution()->Projects()->Count(), 0);

  dir.Write("p/Bad.csproj", "<Project><PropertyGroup></Project>");
  e = OpenError(dir.path() / "p/Bad.csproj");
  EXPECT_EQ(e.number, 5);
  EXPECT_EQ(e.description.rfind(q("p/Bad.csproj") + " is not well-formed XML", 0), 0u);

  dir.Write("notes.txt", "hello");
  EXPECT_EQ(OpenError(dir.path() / "notes.txt").description,
            q("notes.txt") + " is not a solution (.sln, .slnx), project (.csproj, .vbproj) or source file (.cs, .vb)");
  dir.Write("nosources/readme.md", "x");
  EXPECT_EQ(OpenError(dir.path() / "nosources").description,
            q("nosources") + " holds no solution, project or C#/VB source file");

  // A pipe named like a solution is not read (reading it would block).
  ASSERT_EQ(mkfifo((dir.path() / "pipe.sln").c_str(), 0600), 0);
  e = OpenError(dir.path() / "pipe.sln");
  EXPECT_EQ(e.number, 75);
  EXPECT_EQ(e.description, q("pipe.sln") + " is not a file");
}

TEST(SolutionLoader, HostileProjectsEndWithoutCrashOrHang) {
  testsupport::TempDir dir;
  // Importing itself, a self-doubling property, a cycle of DependentUpon, deep Choose.
  std::string chooses;
  for (int i = 0; i < 2000; ++i) chooses += "<Choose><When Condition=\"true\">";
  for (int i = 0; i < 2000; ++i) chooses += "</When></Choose>";
  std::string doubling;
  for (int i = 0; i < 24; ++i) doubling += "<Big>$(Big)$(Big)x</Big>";
  dir.Write("h/H.csproj", "<Project><Import Project=\"H.csproj\" /><Import Project=\"$(MSBuildThisFile)\" />"
                          "<PropertyGroup>" + doubling + "</PropertyGroup>" + chooses +
                          "<ItemGroup><Compile Include=\"A.cs\" DependentUpon=\"B.cs\" />"
                          "<Compile Include=\"B.cs\" DependentUpon=\"A.cs\" />"
                          "<Compile Include=\"C.cs\" DependentUpon=\"C.cs\" /></ItemGroup></Project>");
  for (const char* f : {"h/A.cs", "h/B.cs", "h/C.cs"}) dir.Write(f, "");
  auto r = OpenSolution(dir.path() / "h/H.csproj");
  // The link that would close the cycle is dropped; every file is still there.
  EXPECT_EQ(Dump(r.dte), "[cs] H\n  B.cs\n    A.cs\n  C.cs\n");
}

}  // namespace
}  // namespace platform::automation
