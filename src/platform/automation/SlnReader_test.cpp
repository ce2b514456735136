#include "platform/automation/SlnReader.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"

namespace platform::automation {
namespace {

const char* kSln =
    "\xEF\xBB\xBF\r\n"
    "Microsoft Visual Studio Solution File, Format Version 12.00\r\n"
    "# Visual Studio Version 17\r\n"
    "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"My App\", \"src\\My App\\My App.csproj\", \"{AAAAAAAA-0000-0000-0000-000000000001}\"\r\n"
    "\tProjectSection(ProjectDependencies) = postProject\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-000000000002} = {AAAAAAAA-0000-0000-0000-000000000002}\r\n"
    "\tEndProjectSection\r\n"
    "EndProject\r\n"
    "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Solution Items\", \"Solution Items\", \"{aaaaaaaa-0000-0000-0000-000000000002}\"\r\n"
    "\tProjectSection(SolutionItems) = preProject\r\n"
    "\t\tdocs\\read me.md = docs\\read me.md\r\n"
    "\t\t.editorconfig = .editorconfig\r\n"
    "\tEndProjectSection\r\n"
    "EndProject\r\n"
    "Project(\"{778DAE3C-4631-46EA-AA77-85C1314464D9}\")=\"Lib\",\"lib/Lib.vbproj\",\"{AAAAAAAA-0000-0000-0000-000000000003}\"\n"
    "EndProject\n"
    "Global\r\n"
    "\tGlobalSection(SolutionConfigurationPlatforms) = preSolution\r\n"
    "\t\tDebug|Any CPU = Debug|Any CPU\r\n"
    "\tEndGlobalSection\r\n"
    "\tGlobalSection(NestedProjects) = preSolution\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-000000000003} = {AAAAAAAA-0000-0000-0000-000000000002}\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-00000000FFFF} = {AAAAAAAA-0000-0000-0000-000000000002}\r\n"
    "\tEndGlobalSection\r\n"
    "EndGlobal\r\n";

TEST(SlnReader, ProjectsFoldersItemsAndNesting) {
  auto d = ParseSln(kSln, "/s/x.sln");
  ASSERT_EQ(d.entries.size(), 3u);
  EXPECT_EQ(d.entries[0].name, "My App");
  EXPECT_EQ(d.entries[0].path, "src/My App/My App.csproj");
  EXPECT_EQ(d.entries[0].typeGuid, "{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}");
  EXPECT_FALSE(d.entries[0].folder);
  EXPECT_TRUE(d.entries[0].files.empty());  // dependencies are no items
  EXPECT_TRUE(d.entries[1].folder);
  EXPECT_EQ(d.entries[1].path, "");
  EXPECT_EQ(d.entries[1].files, (std::vector<std::string>{"docs/read me.md", ".editorconfig"}));
  EXPECT_EQ(d.entries[2].path, "lib/Lib.vbproj");
  EXPECT_EQ(d.entries[2].parentId, d.entries[1].id);  // identifiers match in any case
  ASSERT_EQ(d.warnings.size(), 1u);
  EXPECT_NE(d.warnings[0].find("unknown project"), std::string::npos);
}

TEST(SlnReader, MalformedSolutionsFailNamingFileAndLine) {
  const std::string header = "Microsoft Visual Studio Solution File, Format Version 12.00\n";
  const std::string project = "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"A\", \"A.csproj\", \"{1}\"\n";
  struct Case {
    std::string text;
    std::string message;
  } cases[] = {
      {"", "'/s/x.sln' is not a solution file: it is empty"},
      {"<Project/>", "'/s/x.sln' is not a solution file: it does not begin with \"Microsoft Visual Studio Solution File\""},
      {header + project, "'/s/x.sln' line 2: Project without EndProject"},
      {header + project + project + "EndProject\n", "'/s/x.sln' line 2: Project without EndProject"},
      {header + "Project(\"{FAE04EC0}\") = \"A\", \"A.csproj\"\nEndProject\n", "'/s/x.sln' line 2: malformed Project line"},
      {header + "Project(\"{FAE04EC0} = \"A\"\n", "'/s/x.sln' line 2: malformed Project line"},
      {header + project + "ProjectSection(SolutionItems) = preProject\nEndProject\n",
       "'/s/x.sln' line 4: ProjectSection without EndProjectSection"},
      {header + "Global\nGlobalSection(NestedProjects) = preSolution\n{1} {2}\n", "'/s/x.sln' line 4: malformed NestedProjects line"},
      {header + "Global\n", "'/s/x.sln' line 2: Global without EndGlobal"},
  };
  for (auto& c : cases) {
    try {
      ParseSln(c.text, "/s/x.sln");
      ADD_FAILURE() << "no error for: " << c.text;
    } catch (const Error& e) {
      EXPECT_EQ(e.number, 5);
      EXPECT_EQ(e.description, c.message);
    }
  }
}

}  // namespace
}  // namespace platform::automation
