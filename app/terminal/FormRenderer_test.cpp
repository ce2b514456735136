#include "terminal/FormRenderer.h"

#include <gtest/gtest.h>

#include <clocale>

#include "options/OptionsFixture_test.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/TreeView.h"
#include "platform/win32/WindowStyles.h"
#include "terminal/MemoryTerminal.h"

using namespace app::terminal;
namespace forms = platform::forms;

namespace {

constexpr int kCellX = forms::Screen::TwipsPerCellX, kCellY = forms::Screen::TwipsPerCellY;

// The options dialog as GetOptions shows it, drawn on a screen in memory.
class FormRendererTest : public annotra::testing::OptionsFixture {
 protected:
  void SetUp() override {
    OptionsFixture::SetUp();
    std::setlocale(LC_CTYPE, "C.UTF-8");
    dialog.Load();
    dialog.ctlXMLComments1.InitOptions();
    dialog.VsTabAreaEx1.Tab("Def")->SetSelected(true);
    dialog.ctlXMLComments1.Visible = true;
  }
  void TearDown() override {
    dialog.Unload();
    std::setlocale(LC_CTYPE, "C");
    OptionsFixture::TearDown();
  }
  void Draw(bool active = true) {
    FormLayout layout(dialog, 1, 1);
    FormRenderer renderer(screen, trees);
    renderer.DrawWindow(layout.Client(), dialog.Caption, true, active);
    renderer.DrawForm(dialog, layout, active);
  }

  annotra::FOptions dialog;
  MemoryTerminal screen{80, 21};
  TreeCursors trees;
};

}  // namespace

TEST_F(FormRendererTest, DrawsTheDialogInAWindowWithItsCaptionCloseBoxAndControls) {
  Draw();
  // The window, 73 cells and its border wide, fits a terminal of 80 columns.
  EXPECT_EQ(screen.Line(0), "┌─ Annotra - by Scribane ──────────────────────────────────────────────[×]┐");
  EXPECT_EQ(screen.Line(1), "│                                                                         │");
  EXPECT_TRUE(screen.Contains("│  Scope:"));
  EXPECT_TRUE(screen.Contains(" Definition Comments  In-method Comments "));
  // Every caption fits the width its control was given.
  EXPECT_TRUE(screen.Contains("   [x] Publicly available definitions should be commented "));
  EXPECT_TRUE(screen.Contains("   [x] Non-publicly available definitions should be commented "));
  EXPECT_TRUE(screen.Contains("   [ ] Accept <inheritdoc/> [x] Compare param types [ ] Skip generated "));
  // The hint's frame is too low for a box round it: a line down either side.
  EXPECT_EQ(screen.Line(13), "│ │Choose here the scope at which Scribane will perform the code        │ │");
  EXPECT_EQ(screen.Line(14), "│ │commenting review operation.                                         │ │");
  EXPECT_EQ(screen.Line(16), "│    Help       Options                             Begin >>    Cancel    │");
  EXPECT_EQ(screen.Line(18), "└─────────────────────────────────────────────────────────────────────────┘");
}

TEST_F(FormRendererTest, ShowsFocusDefaultDisabledControlsAndAccessKeys) {
  dialog.ctlXMLComments1.chkPublic.Value = 0;
  dialog.ctlXMLComments1.chkPublicXML.Enabled = false;
  dialog.SetFocus(dialog.ctlXMLComments1.chkPublic);
  Draw();
  auto [px, py] = screen.Find("Publicly");
  EXPECT_EQ(screen.StyleAt(px, py).color, Style::Focus);
  auto [xx, xy] = screen.Find("Should use XML");
  EXPECT_TRUE(screen.StyleAt(xx, xy).dim);
  auto [bx, by] = screen.Find("Begin >>");
  EXPECT_TRUE(screen.StyleAt(bx, by).underline);  // B of "&Begin >>"
  EXPECT_FALSE(screen.StyleAt(bx + 1, by).underline);
  EXPECT_TRUE(screen.StyleAt(bx + 1, by).bold);  // the default button
  EXPECT_EQ(screen.StyleAt(bx, by).color, Style::Button);
  // Drawn for a window behind another, the focus does not show.
  screen.Clear();
  Draw(false);
  EXPECT_EQ(screen.StyleAt(px, py).color, Style::Window);
}

TEST_F(FormRendererTest, DrawsTheDroppedDownScopeListOverTheControlsBelow) {
  dialog.cmbOperationScope.Init(nullptr, true, false, true, false, 3);
  dialog.cmbOperationScope.SetListIndex(1);
  dialog.cmbOperationScope.SetDroppedDown(true);
  ASSERT_TRUE(dialog.cmbOperationScope.UserHighlight(2));
  Draw();
  auto [x, y] = screen.Find(dialog.cmbOperationScope.ScopeCaption(1));
  ASSERT_GE(y, 0);
  EXPECT_EQ(y, 2);  // in the box
  for (int i = 0; i < dialog.cmbOperationScope.ScopesCount(); ++i)
    EXPECT_NE(screen.Line(3 + i).find(dialog.cmbOperationScope.ScopeCaption(i)), std::string::npos) << i;
  EXPECT_EQ(screen.StyleAt(x, 3 + 2).color, Style::Selection);
  EXPECT_EQ(screen.StyleAt(x, 3 + 0).color, Style::Menu);
}

TEST(FormRendererControlsTest, DrawsTreeLinesSignsBoxesTheCursorAndMoreBelow) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  forms::Form form("F");
  form.Width = 30 * kCellX;
  form.Height = 6 * kCellY;
  forms::TreeView tree(form, "TreeView1");
  tree.Checkboxes = true;
  tree.Move(0, 0, 30 * kCellX, 5 * kCellY);  // three lines inside its border
  tree.Add("", forms::tvwLast, "CMethod", "Method")->Expanded = true;
  tree.SetStateImage(*tree.Item("CMethod"), 0);
  tree.Add("CMethod", forms::tvwChild, "TMethod*summary", "<summary>")->SetChecked(true);
  tree.Add("CMethod", forms::tvwChild, "TMethod*param", "<param>");
  tree.Add("", forms::tvwLast, "CClass", "Class");
  tree.Add("CClass", forms::tvwChild, "TClass*summary", "<summary>");
  MemoryTerminal screen(30, 6);
  TreeCursors trees;
  trees[&tree].SetLine(TreeLinesOf(tree), 1);
  form.SetFocus(tree);
  FormLayout layout(form, 0, 0);
  FormRenderer(screen, trees).DrawForm(form, layout, true);
  EXPECT_EQ(screen.Line(0), "┌────────────────────────────┐");
  EXPECT_EQ(screen.Line(1), "│▾ Method                    │");
  EXPECT_EQ(screen.Line(2), "│    [x] <summary>           │");
  EXPECT_EQ(screen.Line(3), "│    [ ] <param>             ▼");
  EXPECT_EQ(screen.StyleAt(5, 2).color, Style::Selection);
  std::setlocale(LC_CTYPE, "C");
}

TEST(FormRendererControlsTest, ATextBoxShowsTheEndOfItsTextWithTheCursorAfterIt) {
  forms::Form form("F");
  form.Width = 20 * kCellX;
  form.Height = 2 * kCellY;
  forms::TextBox box(form, "Text1", "123456789");
  box.Move(kCellX, 0, 5 * kCellX, kCellY);
  form.SetFocus(box);
  MemoryTerminal screen(20, 2);
  TreeCursors trees;
  FormRenderer(screen, trees).DrawForm(form, FormLayout(form, 0, 0), true);
  EXPECT_EQ(screen.Line(0), " 6789");
  EXPECT_TRUE(screen.cursorVisible);
  EXPECT_EQ(screen.cursorX, 5);
  EXPECT_EQ(screen.StyleAt(1, 0).color, Style::Field);
}

TEST(FormRendererControlsTest, ACheckBoxsCaptionRunsOnOverFreeCellsAndIsCutBeforeTheNextControl) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  forms::Form form("F");
  form.Width = 40 * kCellX;
  form.Height = kCellY;
  forms::CheckBox first(form, "Check1", "Accept <inheritdoc/>");
  first.Move(0, 0, 8 * kCellX, kCellY);
  forms::CheckBox second(form, "Check2", "Compare parameter types");
  second.Move(12 * kCellX, 0, 10 * kCellX, kCellY);
  second.Value = 1;
  MemoryTerminal screen(40, 1);
  TreeCursors trees;
  FormRenderer(screen, trees).DrawForm(form, FormLayout(form, 0, 0), true);
  // The first caption stops a blank cell before the second box; the second runs on
  // to the form's edge.
  EXPECT_EQ(screen.Line(0), "[ ] Accept… [x] Compare parameter types");
  std::setlocale(LC_CTYPE, "C");
}
