#include "platform/suite/ResultFileDialog.h"

#include <gtest/gtest.h>

#include "platform/forms/MessageBox.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

using namespace platform::suite;
using testsupport::ErrorOf;

namespace {

constexpr int32_t kLoadFlags = OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_EXPLORER | OFN_LONGNAMES;
constexpr int32_t kSaveFlags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_EXPLORER | OFN_LONGNAMES;

class FileDialogTest : public ::testing::Test {
 protected:
  ResultFileDialog Dialog(int32_t flags) {
    ResultFileDialog d;
    d.SetTitle("Pick");
    d.SetDefaultExt("xmm");
    d.SetFilter("Results (*.xmm)|*.xmm|Sheets (*.xls)|*.xls");
    d.SetFlags(flags);
    d.SetOwner(42);
    d.SetInitialFolder(dir.path().string() + "/");
    return d;
  }
  std::string In(const std::string& name) const { return (dir.path() / name).string(); }

  testsupport::TempDir dir;
  std::shared_ptr<ScriptedFileDialogs> user = std::make_shared<ScriptedFileDialogs>();
  ScopedFileDialogs scoped{user};
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
};

}  // namespace

TEST_F(FileDialogTest, ThePresenterSeesWhatTheDialogWasGivenAndACancelChoosesNothing) {
  auto d = Dialog(kSaveFlags);
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), "");
  EXPECT_EQ(d.FileFolder(), "");
  ASSERT_EQ(user->shown.size(), 1u);
  const auto& shown = user->shown[0];
  EXPECT_EQ(shown.title, "Pick");
  EXPECT_EQ(shown.defaultExt, "xmm");
  EXPECT_EQ(shown.filter, "Results (*.xmm)|*.xmm|Sheets (*.xls)|*.xls");
  EXPECT_EQ(shown.flags, kSaveFlags);
  EXPECT_EQ(shown.owner, 42);
  EXPECT_EQ(shown.initialFolder, dir.path().string() + "/");
  EXPECT_EQ(shown.mode, kFileDialogSave);

  // Blanks alone are no name either.
  user->Answer("   ");
  d.Show(kFileDialogOpen);
  EXPECT_EQ(d.FileName(), "");
  EXPECT_EQ(d.Mode(), kFileDialogOpen);
  EXPECT_EQ(ErrorOf([&] { d.Show(2); }), 5);

  auto entries = d.FilterEntries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[1].description, "Sheets (*.xls)");
  EXPECT_EQ(entries[1].pattern, "*.xls");
}

TEST_F(FileDialogTest, NamesAreTakenFromTheInitialFolderAndGainTheDefaultExtension) {
  auto d = Dialog(kSaveFlags);
  user->Answer(" report ").Answer("notes.txt").Answer(In("sub/../abs.XLS")).Answer(".hidden");
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In("report.xmm"));
  EXPECT_EQ(d.FileFolder(), dir.path().string() + "/");
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In("notes.txt"));
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In("abs.XLS"));
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In(".hidden.xmm"));

  // A file of exactly the name typed is taken as it is (after the overwrite question).
  dir.Write("plain", "x");
  user->overwrite = true;
  user->Answer("plain");
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In("plain"));
  EXPECT_EQ(user->overwriteQuestions, (std::vector<std::string>{In("plain")}));
  EXPECT_TRUE(user->refusals.empty());
}

TEST_F(FileDialogTest, OpeningWantsAnExistingFileAndAsksAgainUntilItGetsOne) {
  dir.Write("kept.xmm", "x");
  dir.Write("folder/inner.xmm", "x");
  auto d = Dialog(kLoadFlags);
  user->Answer("missing").Answer("nowhere/kept.xmm").Answer("folder").Answer("kept");
  d.Show(kFileDialogOpen);
  EXPECT_EQ(d.FileName(), In("kept.xmm"));
  ASSERT_EQ(user->refusals.size(), 3u);
  EXPECT_EQ(user->refusals[0], In("missing.xmm") + "\r\nFile not found.\r\nCheck the file name and try again.");
  EXPECT_EQ(user->refusals[1], In("nowhere/kept.xmm") + "\r\nThe folder does not exist.\r\nCheck the path and try again.");
  EXPECT_NE(user->refusals[2].find("This is a folder."), std::string::npos);
  EXPECT_EQ(user->shown.size(), 4u);
  EXPECT_TRUE(user->overwriteQuestions.empty());  // opening asks no such question

  // Refused, then cancelled: nothing chosen.
  user->Answer("missing");
  d.Show(kFileDialogOpen);
  EXPECT_EQ(d.FileName(), "");
}

TEST_F(FileDialogTest, SavingWantsTheFolderAndAsksBeforeReplacingAFile) {
  dir.Write("old.xmm", "x");
  auto d = Dialog(kSaveFlags);
  user->Answer("nowhere/new").Answer("old");
  d.Show(kFileDialogSave);
  ASSERT_EQ(user->refusals.size(), 1u);
  // Asked through a message box, whose default is No: the dialog asks again, and the
  // script has no more answers.
  EXPECT_EQ(d.FileName(), "");
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, In("old.xmm") + " already exists.\r\nDo you want to replace it?");
  EXPECT_EQ(boxes->shown[0].title, "Pick");
  EXPECT_EQ(boxes->shown[0].style, platform::forms::vbYesNo | platform::forms::vbExclamation | platform::forms::vbDefaultButton2);

  boxes->answers.push_back(platform::forms::vbYes);
  user->Answer("old.xmm");
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), In("old.xmm"));

  // Without the flags nothing is checked: a file in a missing folder is the caller's
  // to refuse.
  auto bare = Dialog(0);
  user->Answer("nowhere/x.xmm").Answer("old.xmm");
  bare.Show(kFileDialogSave);
  EXPECT_EQ(bare.FileName(), In("nowhere/x.xmm"));
  bare.Show(kFileDialogSave);
  EXPECT_EQ(bare.FileName(), In("old.xmm"));
  EXPECT_EQ(boxes->shown.size(), 2u);
}

TEST(FileDialogDefault, WithoutAPresenterEveryDialogIsCancelled) {
  ResultFileDialog d;
  d.SetFlags(0);
  d.Show(kFileDialogSave);
  EXPECT_EQ(d.FileName(), "");
}
