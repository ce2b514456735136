#include "platform/automation/FindProjectItemByPath.h"

#include <gtest/gtest.h>

#include "platform/automation/DTE.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/SolutionLoader.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(FindProjectItemByPath, FindsFilesInFoldersNestedItemsAndSolutionFolders) {
  testsupport::TempDir dir;
  dir.Write("App/App.csproj", R"x(<Project Sdk="Microsoft.NET.Sdk">
  <ItemGroup>
    <Compile Update="Forms\Main.Designer.cs" DependentUpon="Main.cs" />
    <Compile Include="..\Shared\Common.cs" Link="Linked\Common.cs" />
  </ItemGroup>
</Project>)x");
  for (const char* f : {"App/Program.cs", "App/Forms/Main.cs", "App/Forms/Main.Designer.cs", "Shared/Common.cs"})
    dir.Write(f, "class X {}\n");
  auto sln = dir.Write("s.slnx", R"x(<Solution>
  <Folder Name="/group/"><Project Path="App/App.csproj" /><File Path="notes.md" /></Folder>
</Solution>)x");
  dir.Write("notes.md", "x");
  auto dte = OpenSolution(sln).dte;

  auto designer = FindProjectItemByPath(dte, dir.path() / "App/Forms/Main.Designer.cs");
  ASSERT_TRUE(designer);
  EXPECT_EQ(designer->Name(), "Main.Designer.cs");
  EXPECT_EQ(designer->ContainingProject()->Name(), "App");
  // Another spelling of the same path.
  EXPECT_EQ(FindProjectItemByPath(dte, dir.path() / "App/./Forms/../Forms/Main.Designer.cs"), designer);
  // A linked file is found by where it is on disk.
  auto linked = FindProjectItemByPath(dte, dir.path() / "Shared/Common.cs");
  ASSERT_TRUE(linked);
  EXPECT_EQ(linked->Collection()->Parent()->TypeName(), std::string("ProjectItem"));  // under "Linked"
  EXPECT_TRUE(FindProjectItemByPath(dte, dir.path() / "notes.md"));

  // Through a symbolic link to the project's folder.
  std::filesystem::create_directory_symlink(dir.path() / "App", dir.path() / "AppLink");
  EXPECT_EQ(FindProjectItemByPath(dte, dir.path() / "AppLink/Program.cs"),
            FindProjectItemByPath(dte, dir.path() / "App/Program.cs"));

  EXPECT_FALSE(FindProjectItemByPath(dte, dir.path() / "App/Forms"));  // a folder is no file item
  EXPECT_FALSE(FindProjectItemByPath(dte, dir.path() / "App/Missing.cs"));
  EXPECT_FALSE(FindProjectItemByPath(dte, ""));
  EXPECT_FALSE(FindProjectItemByPath(nullptr, dir.path() / "App/Program.cs"));
}

}  // namespace
}  // namespace platform::automation
