// GetProjectItemPath: the folders and parent items above a document's project item.

#include <gtest/gtest.h>

#include "testsupport/WalkFixture.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace annotra::walktest {
namespace {

TEST_F(WalkTest, ProjectItemPathNamesTheFoldersAndParentItemsAboveTheItem) {
  dir.Write("Tools/Deep/Er/Leaf.cs", "class Leaf { }\n");
  auto path = [&](const std::string& project, const std::string& item) {
    auto i = ItemAt(P(project), item);
    if (!i) return std::string("(no item)");
    return browser.GetProjectItemPath(i->LoadDocument()->Object("TextDocument"));
  };
  EXPECT_EQ(path("App", "Program.cs"), "");
  EXPECT_EQ(path("App", "Forms/MainForm.cs"), "Forms");
  EXPECT_EQ(path("App", "Forms/MainForm.cs/MainForm.Designer.cs"), "Forms\\MainForm.cs");
  EXPECT_EQ(path("App", "Model.cs/Model.Rules.cs"), "Model.cs");
  EXPECT_EQ(path("VbLib", "My Project/ASSEMBLYINFO.VB"), "My Project");
  EXPECT_EQ(path("Tools", "Sub/Helper.cs"), "Sub");
  Load(WriteSln(dir));  // the SDK project globs the new file
  EXPECT_EQ(path("Tools", "Deep/Er/Leaf.cs"), "Deep\\Er");
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;

  // A document outside any project has no path; the failure is reported.
  auto loose = Document::FromText("Loose.cs", "class Loose { }\n", platform::codemodel::vsCMLanguageCSharp);
  EXPECT_EQ(browser.GetProjectItemPath(loose->Object("TextDocument")), "");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerBrowser.GetProjectItemPath");
  EXPECT_EQ(report->entries[0].line, 1);
}

}  // namespace
}  // namespace annotra::walktest
