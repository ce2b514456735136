// The terminal presenter, its dialogs and the input dispatcher, driven through a screen
// in memory: events are played as a person's keys and mouse, with time of their own.

#include "terminal/TerminalPresenter.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "platform/forms/TreeView.h"
#include "platform/win32/WindowStyles.h"
#include "terminal/EventLoop.h"
#include "terminal/FMessageBox.h"
#include "terminal/MemoryTerminal.h"
#include "terminal/TerminalMessageBoxes.h"

using namespace app::terminal;
namespace forms = platform::forms;

namespace {

constexpr int kCellX = forms::Screen::TwipsPerCellX, kCellY = forms::Screen::TwipsPerCellY;

// A dialog with one control of each kind the dispatcher treats apart, which logs what
// reaches it. On an 80 by 24 screen its 40 by 12 client area starts at cell (20, 6).
class FTest : public forms::Form {
 public:
  FTest() : Form("FTest", "Test") {
    Width = 40 * kCellX;
    Height = 12 * kCellY;
    lblLines.Move(kCellX, kCellY, 7 * kCellX, kCellY);
    txtLines.Move(9 * kCellX, kCellY, 5 * kCellX, kCellY);
    platform::win32::SetWindowLongA(txtLines.hWnd(), platform::win32::GWL_STYLE,
                                    platform::win32::GetWindowLongA(txtLines.hWnd(), platform::win32::GWL_STYLE) |
                                        platform::win32::ES_NUMBER);
    chkVerbose.Move(kCellX, 3 * kCellY, 12 * kCellX, kCellY);
    tree.Move(kCellX, 5 * kCellY, 20 * kCellX, 5 * kCellY);
    tree.Checkboxes = true;
    cmdOK.Move(24 * kCellX, 10 * kCellY, 6 * kCellX, kCellY);
    cmdOK.Default = true;
    cmdCancel.Move(32 * kCellX, 10 * kCellY, 8 * kCellX, kCellY);
    cmdCancel.Cancel = true;
    cmdOK.Click.Connect([this] { log.push_back("ok"), Hide(); });
    cmdCancel.Click.Connect([this] { log.push_back("cancel"), Hide(); });
    cmdOK.MouseDown.Connect([this](int b, int, int x, int y) { log.push_back(Point("down", b, x, y)); });
    cmdOK.MouseUp.Connect([this](int b, int, int x, int y) { log.push_back(Point("up", b, x, y)); });
    chkVerbose.MouseMove.Connect([this](int b, int, int x, int y) { log.push_back(Point("move", b, x, y)); });
    tree.NodeClick.Connect([this](platform::Ref<forms::TreeNode> n) { log.push_back("node " + n->Key); });
    tree.NodeCheck.Connect([this](platform::Ref<forms::TreeNode> n) { log.push_back("check " + n->Key); });
    for (const char* key : {"A", "B", "C"}) tree.Add("", forms::tvwLast, key, key);
    tree.Add("B", forms::tvwChild, "B1", "B1");
  }
  static std::string Point(const char* what, int b, int x, int y) {
    return std::string(what) + " " + std::to_string(b) + " " + std::to_string(x) + "," + std::to_string(y);
  }

  forms::Label lblLines{*this, "lblLines", "&Lines:"};
  forms::TextBox txtLines{*this, "txtLines"};
  forms::CheckBox chkVerbose{*this, "chkVerbose", "&Verbose"};
  forms::TreeView tree{*this, "tree"};
  forms::CommandButton cmdOK{*this, "cmdOK", "&OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
  std::vector<std::string> log;
  int unloadMode = -1;

 protected:
  void Form_QueryUnload(int&, int mode) override { unloadMode = mode; }
  void Form_MouseMove(int, int, float x, float y) override {
    log.push_back("form move " + std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y)));
  }
};

class TerminalPresenterTest : public ::testing::Test {
 protected:
  void SetUp() override { std::setlocale(LC_CTYPE, "C.UTF-8"); }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
  // Shows the dialog modally; the events queued on `screen` play while it is up.
  void Run() { form.Show(forms::vbModal); }
  // The cell of the client area's column x, row y.
  static int X(int x) { return 20 + x; }
  static int Y(int y) { return 6 + y; }

  MemoryTerminal screen{80, 24};
  EventLoop loop{screen, [this] { return screen.now; }};
  forms::ScopedPresenter presenter{std::make_shared<TerminalPresenter>(loop)};
  FTest form;
};

}  // namespace

TEST_F(TerminalPresenterTest, ShowsTheDialogCentredWithTheFocusOnItsFirstControl) {
  screen.Call([&] {
    EXPECT_EQ(screen.Find("┌─ Test "), std::make_pair(19, 5));
    EXPECT_EQ(form.ActiveControl(), &form.txtLines);
    EXPECT_TRUE(screen.cursorVisible);
  });
  screen.Key(key::Escape);
  Run();
  EXPECT_EQ(form.log, (std::vector<std::string>{"cancel"}));
  EXPECT_FALSE(form.IsVisible());
}

TEST_F(TerminalPresenterTest, KeysTypeMoveTheFocusAndPressTheButtons) {
  screen.Type("12a3");  // the digits-only box refuses the letter
  screen.Key(key::Back);
  screen.Key(key::Tab);  // to the check box
  screen.Key(key::Space);
  screen.Key(key::Tab, mod::Shift);  // back to the text box
  screen.Key(key::Return);           // the default button
  Run();
  EXPECT_EQ(form.txtLines.Text(), "12");
  EXPECT_EQ(form.chkVerbose.Value, 1);
  EXPECT_EQ(form.log, (std::vector<std::string>{"ok"}));
}

TEST_F(TerminalPresenterTest, AccessKeysWorkWithAltAndAsPlainLettersOutsideTextBoxes) {
  screen.Type("v");  // typed into the text box: refused there, no access key
  screen.Key('V', mod::Alt);
  screen.Call([&] { EXPECT_EQ(form.chkVerbose.Value, 1); });
  screen.Type("v");  // the focus is on the check box now: a plain letter is the key
  screen.Call([&] { EXPECT_EQ(form.chkVerbose.Value, 0); });
  screen.Key('L', mod::Alt);  // the label hands the focus to the text box
  screen.Call([&] { EXPECT_EQ(form.ActiveControl(), &form.txtLines); });
  screen.Key(key::Tab);
  screen.Type("c");
  Run();
  EXPECT_EQ(form.txtLines.Text(), "");
  EXPECT_EQ(form.log, (std::vector<std::string>{"cancel"}));
}

TEST_F(TerminalPresenterTest, TreeKeysMoveTheCursorCheckExpandAndClickNodes) {
  screen.Key(key::Tab);
  screen.Key(key::Tab);  // the tree
  screen.Key(key::Down);  // from A, where the cursor starts, to B
  screen.Key(key::Right);  // B opens: B1 below it
  screen.Key(key::Down);
  screen.Key(key::Space);
  screen.Call([&] { EXPECT_TRUE(screen.Contains("    [x] B1")) << screen.Text(); });
  screen.Key(key::Left);  // from the leaf to its parent
  screen.Key(key::Left);  // B closes
  screen.Key(key::End);
  screen.Key(key::Escape);
  Run();
  EXPECT_EQ(form.log, (std::vector<std::string>{"node B", "node B1", "check B1", "node B", "node C", "cancel"}));
  EXPECT_FALSE(form.tree.Item("B")->Expanded);
}

TEST_F(TerminalPresenterTest, AClickIsAPressAndAReleaseOverTheSameControl) {
  // OK spans client columns 24 to 29 on row 10; the press lands at its third cell.
  screen.Mouse(InputEvent::Press, 1, X(26), Y(10));
  screen.Mouse(InputEvent::Release, 1, X(35), Y(10));  // let go over Cancel: no click
  screen.Call([&] { EXPECT_TRUE(form.IsVisible()); });
  screen.Click(X(26), Y(10));
  Run();
  // Points in twips on the button: the centre of its third cell (2.5 cells of 90 twips
  // across, half a row down); the release over Cancel is kept at OK's right edge.
  EXPECT_EQ(form.log, (std::vector<std::string>{"down 1 225,120", "up 1 539,120", "down 1 225,120",
                                                "up 1 225,120", "ok"}));
  EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
}

TEST_F(TerminalPresenterTest, MouseMovesReachTheControlOrTheFormInTwips) {
  screen.Mouse(InputEvent::Move, 0, X(3), Y(3));  // over the check box
  screen.Mouse(InputEvent::Move, 0, X(3), Y(3));  // the same cell again: nothing new
  screen.Mouse(InputEvent::Move, 0, X(30), Y(3));  // the form's background
  screen.Mouse(InputEvent::Move, 0, X(50), Y(3));  // outside the dialog
  screen.Key(key::Escape);
  Run();
  // The centres of the cells: 2.5 cells into the check box, 30.5 cells and 3.5 rows into
  // the form.
  EXPECT_EQ(form.log, (std::vector<std::string>{"move 0 225,120", "form move 2745,840", "cancel"}));
}

TEST_F(TerminalPresenterTest, ClicksCheckTreeBoxesOpenSignsAndSelectLines) {
  // The tree's lines start inside its border, at client row 6, column 2.
  screen.Click(X(2), Y(7));  // B's sign: opens it
  screen.Click(X(6), Y(8));  // B1's box
  screen.Click(X(10), Y(6)); // A's text
  screen.Mouse(InputEvent::WheelDown, 0, X(5), Y(6));
  screen.Key(key::Escape);
  Run();
  EXPECT_TRUE(form.tree.Item("B")->Expanded);
  EXPECT_TRUE(form.tree.Item("B1")->Checked());
  EXPECT_EQ(form.log, (std::vector<std::string>{"check B1", "node A", "cancel"}));
}

TEST_F(TerminalPresenterTest, TheCloseBoxUnloadsTheFormAsTheUserClosingIt) {
  screen.Click(X(38), Y(-1));  // "[×]" on the top border
  Run();
  EXPECT_EQ(form.unloadMode, forms::vbFormControlMenu);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(TerminalPresenterTest, ATerminalThatGoesAwayClosesTheDialog) {
  screen.idleLimitMs = 200;
  Run();
  EXPECT_EQ(form.unloadMode, forms::vbFormControlMenu);
  EXPECT_TRUE(loop.Closed());
}

TEST_F(TerminalPresenterTest, TimersRunOnTheTimeThatPassesInTheLoop) {
  forms::Timer timer(form, "Timer1");
  int ticks = 0;
  timer.Tick.Connect([&] { ++ticks; });
  timer.SetInterval(500);
  timer.SetEnabled(true);
  screen.Wait(450);
  screen.Call([&] { EXPECT_EQ(ticks, 0); });
  screen.Wait(100);
  screen.Call([&] { EXPECT_EQ(ticks, 1); });
  screen.Key(key::Escape);
  Run();
}

TEST_F(TerminalPresenterTest, TwoPressesOnOneCellInTimeAreADoubleClick) {
  int doubles = 0;
  form.tree.DblClick.Connect([&] { ++doubles; });
  screen.Click(X(10), Y(6));
  screen.Click(X(10), Y(6));  // at once: a double click
  screen.Click(X(10), Y(6));  // a third press starts afresh
  screen.Wait(600);
  screen.Click(X(10), Y(6));  // too late for the one before
  screen.Key(key::Escape);
  Run();
  EXPECT_EQ(doubles, 1);
}

TEST_F(TerminalPresenterTest, MessageBoxesAreDialogsAnsweredByKeyMouseOrEscape) {
  platform::forms::ScopedMessageBoxes boxes(std::make_shared<TerminalMessageBoxes>());
  screen.Call([&] {
    EXPECT_TRUE(screen.Contains("(?) Stop the analysis?"));
    EXPECT_TRUE(screen.Contains("Yes"));
  });
  screen.Type("n");
  EXPECT_EQ(forms::MsgBox("Stop the analysis?", forms::vbYesNo + forms::vbQuestion, "Scribane"), forms::vbNo);
  screen.Key(key::Return);  // the default button: Yes, or No with vbDefaultButton2
  EXPECT_EQ(forms::MsgBox("Again?", forms::vbYesNo + forms::vbDefaultButton2, "Scribane"), forms::vbNo);
  screen.Key(key::Escape);
  EXPECT_EQ(forms::MsgBox("Save?", forms::vbYesNoCancel, "Scribane"), forms::vbCancel);
  screen.Key(key::Escape);
  EXPECT_EQ(forms::MsgBox("Done.", forms::vbOKOnly, "Scribane"), forms::vbOK);
}

TEST(FMessageBoxTest, SizesItselfToThePromptAndCentresTheButtons) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  std::string prompt = std::string(50, 'x') + " " + std::string(50, 'y') + " " + std::string(10, 'z');
  FMessageBox box("A & B: " + prompt, forms::vbOKCancel + forms::vbExclamation, "Scribane");
  EXPECT_EQ(box.Width, (2 + 4 + 57 + 2) * kCellX);  // margins, the icon, the longest line
  EXPECT_EQ(box.Height, (3 + 4) * kCellY);  // three lines of prompt
  EXPECT_EQ(box.lblIcon.Caption, "(!)");
  EXPECT_EQ(forms::PlainCaption(box.lblPrompt.Caption).substr(0, 6), "A & B:");
  ASSERT_EQ(box.buttons.size(), 2u);
  EXPECT_TRUE(box.buttons[0]->Default);
  EXPECT_TRUE(box.buttons[1]->Cancel);
  int left = box.buttons[0]->Left, right = box.Width - (box.buttons[1]->Left + box.buttons[1]->Width);
  EXPECT_LE(std::abs(left - right), kCellX);
  std::setlocale(LC_CTYPE, "C");
}
