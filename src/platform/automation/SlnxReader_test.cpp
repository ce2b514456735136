#include "platform/automation/SlnxReader.h"

#include <gtest/gtest.h>

#include "platform/automation/AutomationConstants.h"
#include "platform/core/Error.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(SlnxReader, FoldersFromNameSegmentsProjectsAndFiles) {
  testsupport::TempDir dir;
  auto path = dir.Write("x.slnx", R"(<Solution>
  <Configurations><Platform Name="Any CPU" /></Configurations>
  <Folder Name="/Solution Items/">
    <File Path="README.md" />
  </Folder>
  <Folder Name="/src/libs/">
    <Project Path="src\Lib\Lib.vbproj" Type="Classic VB" />
    <Project Path="src/Web/" DisplayName="Web Site" Type="Website" />
  </Folder>
  <Folder Name="/src/">
    <Project Path="src/App/App.csproj" />
  </Folder>
  <Project Path="tools/Tool.csproj" Type="{9A19103F-16F7-4668-BE54-9A1E7A4F7556}" />
  <Project />
  <Folder />
</Solution>)");
  auto d = ReadSlnx(path);
  std::vector<std::string> lines;
  for (auto& e : d.entries)
    lines.push_back((e.folder ? "folder " : "project ") + e.name + " [" + e.path + "] in '" + e.parentId + "' " +
                    e.typeGuid + (e.files.empty() ? "" : " files:" + e.files[0]));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "folder Solution Items [] in '' {2150E333-8FDC-42A3-9474-1A3956D46DE8} files:README.md",
                       "folder src [] in '' {2150E333-8FDC-42A3-9474-1A3956D46DE8}",
                       "folder libs [] in '/src/' {2150E333-8FDC-42A3-9474-1A3956D46DE8}",
                       "project Lib [src/Lib/Lib.vbproj] in '/src/libs/' {F184B08F-C81C-45F6-A57F-5ABD9991F28F}",
                       "project Web Site [src/Web/] in '/src/libs/' {E24C65DC-7377-472b-9ABA-BC803B73C61A}",
                       "project App [src/App/App.csproj] in '/src/' ",
                       "project Tool [tools/Tool.csproj] in '' {9A19103F-16F7-4668-BE54-9A1E7A4F7556}",
                   }));
  EXPECT_EQ(d.warnings.size(), 2u);  // the Project without Path, the Folder without Name
}

TEST(SlnxReader, NotASolutionFails) {
  testsupport::TempDir dir;
  auto wrongRoot = dir.Write("a.slnx", "<Project />");
  auto broken = dir.Write("b.slnx", "<Solution>\n<Folder Name=\"/a/\">\n</Solution>");
  try {
    ReadSlnx(wrongRoot);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.description, "'" + wrongRoot.string() + "' is not a solution file: its root element is <Project>");
  }
  try {
    ReadSlnx(broken);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 5);
    EXPECT_EQ(e.description.rfind("'" + broken.string() + "' is not well-formed XML: line 3: ", 0), 0u) << e.description;
  }
}

}  // namespace
}  // namespace platform::automation
