#include "FindingFiles.h"

#include <gtest/gtest.h>

#include "host/MGlobals.h"
#include "platform/automation/SolutionLoader.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"

using app::FindingFiles;

TEST(FindingFiles, EachFindingResolvesThroughTheIndexWhateverTheFoldersAreCalled) {
  testsupport::TempDir dir;
  dir.Write("test/Benchmarks/Benchmarks.csproj",
            testsupport::LegacyProjectFile("    <Compile Include=\"Dashboard\\Thing.cs\" />\n"
                                           "    <Compile Include=\"Form.cs\" />\n"
                                           "    <Compile Include=\"Form.Designer.cs\"><DependentUpon>Form.cs</DependentUpon></Compile>"));
  for (const char* f : {"test/Benchmarks/Dashboard/Thing.cs", "test/Benchmarks/Form.cs", "test/Benchmarks/Form.Designer.cs",
                        "docs/Benchmarks.cs"})
    dir.Write(f, "class C { }\n");
  // The folder test/Benchmarks holds the project Benchmarks, and a solution item of its
  // own: a finding of the folder's item names the folder as its project.
  std::string sln = testsupport::SlnText({{"test/Benchmarks/Benchmarks.csproj", "test/Benchmarks"}});
  const std::string folderLine = "\"Benchmarks\", \"Benchmarks\", \"{00000000-0000-0000-0000-000000000002}\"\n";
  sln.replace(sln.find(folderLine), folderLine.size(),
              folderLine + "\tProjectSection(SolutionItems) = preProject\n\t\tdocs\\Benchmarks.cs = docs\\Benchmarks.cs\n"
                           "\tEndProjectSection\n");
  auto loaded = platform::automation::OpenSolution(dir.Write("App.sln", sln));
  ASSERT_TRUE(loaded.warnings.empty()) << loaded.warnings.front();
  annotra::MGlobals::DTEObject = loaded.dte;

  FindingFiles files(loaded.dte);
  const auto at = [&](const char* relative) { return (dir.path() / relative).string(); };
  EXPECT_EQ(files.FileOf("Benchmarks", "Dashboard", "Thing.cs"), at("test/Benchmarks/Dashboard/Thing.cs"));
  EXPECT_EQ(files.FileOf("Benchmarks", "", "Form.cs"), at("test/Benchmarks/Form.cs"));
  EXPECT_EQ(files.FileOf("Benchmarks", "Form.cs", "Form.Designer.cs"), at("test/Benchmarks/Form.Designer.cs"));
  EXPECT_EQ(files.FileOf("Benchmarks", "", "Benchmarks.cs"), at("docs/Benchmarks.cs"));
  EXPECT_EQ(files.FileOf("Benchmarks", "", "Thing.cs"), "");
  EXPECT_EQ(files.FileOf("Benchmarks", "dashboard", "Thing.cs"), "");  // as the walk wrote it
  EXPECT_EQ(files.FileOf("NoSuch", "", "Form.cs"), "");
  EXPECT_EQ(files.FileOf("test", "", "Form.cs"), "");
  annotra::MGlobals::ResetForTesting();
}
