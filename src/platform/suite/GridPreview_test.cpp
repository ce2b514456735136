#include "platform/suite/GridPreview.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/core/Error.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/forms/MessageBox.h"
#include "platform/grid/Grid.h"
#include "platform/suite/PageViewer.h"
#include "platform/suite/PrinterProbe.h"
#include "platform/suite/ServiceObject.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/TempDir.h"

using namespace platform::suite;
using platform::grid::Grid;
namespace fs = std::filesystem;

namespace {

// The exit status of a shell command.
int Shell(const std::string& command) {
  int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class GridPreviewTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db = platform::dao::Workspace().CreateDatabase((dir.path() / "r.db").string(), platform::dao::dbLangGeneral);
    testsupport::CreateFindingsTable(*db, "T");
    testsupport::AddFindings(*db, "T",
                             {{"Demo & Co", "a.cs", "Method", "", "Run<T>", 3, 4, "Missing <returns> tag", 2},
                              {"Demo & Co", "b.cs", "Class", "Sub", "\"Quoted\" 'x'", 9, 9, "No comment\nat all"},
                              {"Other", "c.vb", "Enum", "", "E", 1, 1, "No comment\nat all"}});
    grid.Move(0, 0, 9600, 4800);
    grid.Bind(db->OpenRecordset("T", platform::dao::dbOpenDynaset));
    grid.Column("ID")->Visible = false;
    grid.FormatConditions = {{"Flag", "2", "dimmed"}};
    grid.PrinterSettings().SetHeaderString(1, "Scribane - Annotra (3 results)");
    grid.PrinterSettings().SetFooterString(2, "2026-11-24 02:06:20");
  }
  std::string WritePage(const std::string& page) {
    auto path = dir.Write("page.html", page);
    return path.string();
  }

  testsupport::TempDir dir;
  platform::Ref<platform::dao::Database> db;
  platform::forms::Form form{"F"};
  Grid grid{form, "GridEx1"};
};

}  // namespace

TEST_F(GridPreviewTest, ThePageHoldsEveryVisibleCellTheHeaderAndFooterEscaped) {
  grid.SetGroups({{"Project"}});
  grid.PrinterSettings().SetOrientation(platform::grid::poLandscape);
  grid.PrinterSettings().FitColumns = true;
  std::string page = GridPreview::Page(grid, "Print <Preview>");
  EXPECT_NE(page.find("<title>Print &lt;Preview&gt;</title>"), std::string::npos);
  EXPECT_NE(page.find("size: A4 landscape"), std::string::npos);
  EXPECT_NE(page.find("<div class=\"l\">Scribane - Annotra (3 results)</div>"), std::string::npos);
  EXPECT_NE(page.find("<div class=\"c\">2026-11-24 02:06:20</div>"), std::string::npos);
  EXPECT_NE(page.find("Project: Demo &amp; Co (2)"), std::string::npos);
  EXPECT_NE(page.find("<td>Run&lt;T&gt;</td>"), std::string::npos);
  EXPECT_NE(page.find("<td>&quot;Quoted&quot; &#39;x&#39;</td>"), std::string::npos);
  EXPECT_NE(page.find("<td>No comment<br>at all</td>"), std::string::npos);
  EXPECT_NE(page.find("<tr class=\"dimmed\">"), std::string::npos);
  EXPECT_NE(page.find("<th>Problem</th>"), std::string::npos);
  EXPECT_EQ(page.find("<th>ID</th>"), std::string::npos);
  // Ten visible columns: ten cells in each record row, in their order on screen.
  EXPECT_NE(page.find("<tr><td>0</td><td>Demo &amp; Co</td><td>b.cs</td><td>Class</td><td>Sub</td>"),
            std::string::npos);
  EXPECT_EQ(page.find("<td></td><td></td><td></td><td></td><td></td><td></td><td></td><td></td><td></td><td></td><td></td>"),
            std::string::npos);
  // Collapsed groups print as the grid shows them.
  grid.CollapseAll();
  page = GridPreview::Page(grid, "t");
  EXPECT_EQ(page.find("Run&lt;T&gt;"), std::string::npos);
  EXPECT_NE(page.find("Project: Other (1)"), std::string::npos);
}

TEST_F(GridPreviewTest, ThePageIsValidHtml5) {
  grid.SetGroups({{"Problem"}, {"Document"}});
  const std::string path = WritePage(GridPreview::Page(grid, "Scribane Print Preview - Annotra"));
  // html5lib's parser in strict mode fails on any parse error.
  EXPECT_EQ(Shell("/usr/bin/python3 -c \"import html5lib, sys; html5lib.HTMLParser(strict=True).parse(open(sys.argv[1], "
                "'rb').read())\" " + path),
            0);
  // tidy reports warnings and errors alike with -errors; the page has none.
  EXPECT_EQ(Shell("tidy -errors -quiet " + path), 0);
  // An empty grid and a grid without columns are pages too.
  grid.ClearRows();
  EXPECT_EQ(Shell("tidy -errors -quiet " + WritePage(GridPreview::Page(grid, "empty"))), 0);
  for (int i = 1; i <= grid.ColumnCount(); ++i) grid.Column(i)->Visible = false;
  EXPECT_EQ(Shell("tidy -errors -quiet " + WritePage(GridPreview::Page(grid, "no columns"))), 0);
}

TEST_F(GridPreviewTest, HeadlessChromiumRendersTheCells) {
  if (!fs::exists("/usr/bin/chromium")) GTEST_SKIP() << "/usr/bin/chromium is not installed";
  const std::string path = WritePage(GridPreview::Page(grid, "t"));
  const std::string dom = (dir.path() / "dom.html").string();
  ASSERT_EQ(Shell("/usr/bin/chromium --headless --no-sandbox --disable-gpu --dump-dom file://" + path + " > " + dom +
                " 2>/dev/null"),
            0);
  std::ifstream in(dom);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("Run&lt;T&gt;"), std::string::npos);
  EXPECT_NE(text.find("Scribane - Annotra (3 results)"), std::string::npos);
}

TEST_F(GridPreviewTest, PreviewWritesThePageAndShowsItOrSaysWhereItIs) {
  auto viewer = std::make_shared<RecordingPageViewer>();
  ScopedPageViewer scopedViewer(viewer);
  auto boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes(boxes);
  GridPreview preview;
  preview.PrintPreview(grid, "Title");
  ASSERT_EQ(viewer->opened.size(), 1u);
  EXPECT_EQ(viewer->opened[0], preview.LastFile());
  std::ifstream in(preview.LastFile());
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(text, GridPreview::Page(grid, "Title"));
  EXPECT_TRUE(boxes->shown.empty());
  viewer->opens = false;
  preview.PrintPreview(grid, "Title");
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_NE(boxes->shown[0].prompt.find(preview.LastFile()), std::string::npos);
  fs::remove(viewer->opened[0]);
  fs::remove(viewer->opened[1]);
}

TEST(GridPreview, TheDeviceNameComesFromThePrinterProbe) {
  GridPreview preview;
  {
    ScopedPrinterProbe probe(std::make_shared<FixedPrinterProbe>("Office"));
    EXPECT_EQ(preview.DeviceName(), "Office");
  }
  ScopedPrinterProbe probe(std::make_shared<FixedPrinterProbe>(""));
  EXPECT_THROW(preview.DeviceName(), platform::Error);
}

TEST_F(GridPreviewTest, VisibleColumnsAreASelectListInScreenOrder) {
  ServiceObject service;
  grid.MoveColumn("Problem", 1);
  grid.Column("Flag")->Visible = false;
  grid.AddColumn("HideGroup", "");
  EXPECT_EQ(service.VisibleColumns(grid),
            "[Problem], [Project], [Document], [Type], [Path], [Member], [Start], [End], [Status]");
  for (int i = 1; i <= grid.ColumnCount(); ++i) grid.Column(i)->Visible = false;
  EXPECT_EQ(service.VisibleColumns(grid), "");
}
