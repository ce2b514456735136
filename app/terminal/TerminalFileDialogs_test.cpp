// The result file dialog through the terminal: the suite's dialog with its flags, the
// terminal's file dialog and message boxes, played on a screen in memory.

#include "terminal/TerminalFileDialogs.h"

#include <gtest/gtest.h>

#include <clocale>

#include "terminal/EventLoop.h"
#include "terminal/MemoryTerminal.h"
#include "terminal/TerminalMessageBoxes.h"
#include "terminal/TerminalPresenter.h"
#include "testsupport/TempDir.h"

using namespace app::terminal;
namespace suite = platform::suite;

namespace {

class TerminalFileDialogsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    dir.Write("kept.xmm", "x");
  }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
  std::string Show(int32_t flags, int mode) {
    suite::ResultFileDialog d;
    d.SetTitle(mode == suite::kFileDialogSave ? "Save this Annotra pane contents as" : "Select the file to load");
    d.SetDefaultExt("xmm");
    d.SetFilter("Scribane Annotra Files (*.xmm)|*.xmm|Microsoft Excel Files (*.xls)|*.xls");
    d.SetFlags(flags);
    d.SetInitialFolder(dir.path().string() + "/");
    d.Show(mode);
    return d.FileName();
  }

  testsupport::TempDir dir;
  MemoryTerminal screen{90, 30};
  EventLoop loop{screen, [this] { return screen.now; }};
  platform::forms::ScopedPresenter presenter{std::make_shared<TerminalPresenter>(loop)};
  platform::forms::ScopedMessageBoxes boxes{std::make_shared<TerminalMessageBoxes>()};
  suite::ScopedFileDialogs dialogs{std::make_shared<TerminalFileDialogs>()};
};

constexpr int32_t kLoad = suite::OFN_HIDEREADONLY | suite::OFN_FILEMUSTEXIST | suite::OFN_EXPLORER | suite::OFN_LONGNAMES;
constexpr int32_t kSave =
    suite::OFN_OVERWRITEPROMPT | suite::OFN_HIDEREADONLY | suite::OFN_PATHMUSTEXIST | suite::OFN_EXPLORER | suite::OFN_LONGNAMES;

}  // namespace

TEST_F(TerminalFileDialogsTest, LoadingAMissingFileIsRefusedAndTheDialogAsksAgain) {
  screen.Call([&] {
    EXPECT_TRUE(screen.Contains("Select the file to load"));
    EXPECT_TRUE(screen.Contains("kept.xmm"));
    EXPECT_TRUE(screen.Contains("Open"));
  });
  screen.Type("gone.xmm");
  screen.Key(key::Return);
  screen.Call([&] { EXPECT_TRUE(screen.Contains("(!)")) << screen.Text(); });
  screen.Key(key::Return);  // OK to the message; the dialog again
  screen.Call([&] { EXPECT_TRUE(screen.Contains("Select the file to load")); });
  screen.Type("ke");
  screen.Key(key::Tab);
  screen.Key(key::Return);
  EXPECT_EQ(Show(kLoad, suite::kFileDialogOpen), (dir.path() / "kept.xmm").string());
}

TEST_F(TerminalFileDialogsTest, SavingOverAFileAsksFirstAndANameGainsTheDefaultExtension) {
  screen.Type("kept.xmm");
  screen.Key(key::Return);
  screen.Call([&] { EXPECT_TRUE(screen.Contains("Yes")) << screen.Text(); });
  screen.Key(key::Return);  // the question's default: No; the dialog again
  screen.Call([&] { EXPECT_TRUE(screen.Contains("Save this Annotra pane contents as")); });
  screen.Type("review");
  screen.Key(key::Return);
  EXPECT_EQ(Show(kSave, suite::kFileDialogSave), (dir.path() / "review.xmm").string());

  screen.Key(key::Escape);
  EXPECT_EQ(Show(kSave, suite::kFileDialogSave), "");
}
