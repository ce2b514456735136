#include "terminal/FFileDialog.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>

#include "terminal/EventLoop.h"
#include "terminal/MemoryTerminal.h"
#include "terminal/TerminalPresenter.h"
#include "testsupport/TempDir.h"

using namespace app::terminal;
namespace forms = platform::forms;

namespace {

// A folder of result files, spreadsheets, a subfolder and a hidden file; the dialog is
// played on a screen in memory.
class FFileDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    for (const char* f : {"review.xmm", "older.XMM", "sheet.xls", ".hidden.xmm", "reports/monday.xmm", "results/x.xmm"})
      dir.Write(f, "x");
  }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
  std::string Folder() const { return dir.path().string() + "/"; }
  std::optional<std::string> Run() {
    FFileDialog dialog("Select the file", Folder(), filters, "&Open");
    return dialog.Run();
  }

  testsupport::TempDir dir;
  std::vector<FFileDialog::Filter> filters = {{"Scribane Annotra Files (*.xmm)", "*.xmm"},
                                              {"Microsoft Excel Files (*.xls)", "*.xls"}};
  MemoryTerminal screen{80, 24};
  EventLoop loop{screen, [this] { return screen.now; }};
  forms::ScopedPresenter presenter{std::make_shared<TerminalPresenter>(loop)};
};

}  // namespace

TEST(FFileDialogMatchTest, MatchesPatternsInAnyCase) {
  EXPECT_TRUE(FFileDialog::Matches("*.xmm", "a.XMM"));
  EXPECT_TRUE(FFileDialog::Matches("*.xls; *.xmm", "b.xmm"));
  EXPECT_TRUE(FFileDialog::Matches("?.x*", "a.xls"));
  EXPECT_FALSE(FFileDialog::Matches("*.xmm", "a.xmm.bak"));
  EXPECT_FALSE(FFileDialog::Matches("", "a"));
}

TEST_F(FFileDialogTest, ListsFoldersAndTheFilesOfTheChosenFilter) {
  screen.Call([&] {
    EXPECT_TRUE(screen.Contains(Folder()));
    EXPECT_TRUE(screen.Contains("../"));
    EXPECT_TRUE(screen.Contains("reports/"));
    EXPECT_TRUE(screen.Contains("older.XMM"));
    EXPECT_TRUE(screen.Contains("review.xmm"));
    EXPECT_FALSE(screen.Contains("sheet.xls"));
    EXPECT_FALSE(screen.Contains(".hidden"));
  });
  screen.Key('T', mod::Alt);  // "Files of &type:": the filter button
  screen.Key(key::Space);
  screen.Call([&] {
    EXPECT_TRUE(screen.Contains("sheet.xls"));
    EXPECT_FALSE(screen.Contains("review.xmm"));
    EXPECT_TRUE(screen.Contains("Microsoft Excel Files (*.xls)"));
  });
  screen.Key(key::Escape);
  EXPECT_EQ(Run(), std::nullopt);
}

TEST_F(FFileDialogTest, TabCompletesTheNameLineAndEnterOpensFoldersAndChoosesFiles) {
  screen.Type("rev");
  screen.Key(key::Tab);  // one entry begins so
  screen.Call([&] { EXPECT_TRUE(screen.Contains("review.xmm")); });
  screen.Key(key::Return);
  EXPECT_EQ(Run(), Folder() + "review.xmm");

  screen.Type("re");
  screen.Key(key::Tab);  // three begin so: "re" is their common start, the list shows them
  screen.Call([&] {
    EXPECT_TRUE(screen.Contains("reports/"));
    EXPECT_TRUE(screen.Contains("results/"));
    EXPECT_FALSE(screen.Contains("older.XMM"));
  });
  screen.Type("p");
  screen.Key(key::Tab);  // the folder: it opens
  screen.Call([&] { EXPECT_TRUE(screen.Contains(Folder() + "reports/")); });
  screen.Type("new");
  screen.Key(key::Return);  // a name that does not exist yet is still an answer
  EXPECT_EQ(Run(), Folder() + "reports/new");
}

TEST_F(FFileDialogTest, TheListIsDrivenByKeysAndTheMouse) {
  screen.Key(key::Tab);  // to the list, its cursor on "../"
  screen.Key(key::Down);  // reports/
  screen.Key(key::Return);  // opens it
  screen.Call([&] { EXPECT_TRUE(screen.Contains(Folder() + "reports/")); });
  screen.Key(key::Tab);
  screen.Key(key::Down);  // monday.xmm, after ../
  screen.Key(key::Return);
  EXPECT_EQ(Run(), Folder() + "reports/monday.xmm");

  // A double click on a file chooses it.
  screen.Call([&] {
    auto [x, y] = screen.Find("review.xmm");
    screen.Click(x + 1, y);
    screen.Click(x + 1, y);
  });
  EXPECT_EQ(Run(), Folder() + "review.xmm");
}
