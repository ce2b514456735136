// The pane's screen over the real results pane: a controller with its tool window and
// document on findings in the temporary results database, drawn on a screen in memory
// and driven as a person would.

#include "terminal/PaneScreen.h"

#include <gtest/gtest.h>

#include <clocale>

#include "pane/PaneFixture_test.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/Window.h"
#include "platform/forms/Screen.h"
#include "terminal/EventLoop.h"
#include "terminal/MemoryTerminal.h"
#include "terminal/TerminalPresenter.h"

using namespace app::terminal;
namespace forms = platform::forms;

namespace {

class PaneScreenTest : public pane_test::PaneTest {
 protected:
  void SetUp() override {
    PaneTest::SetUp();
    std::setlocale(LC_CTYPE, "C.UTF-8");
    Open();
    window->FindMenuPopupAsked.Connect([this](int32_t& hit, bool&, bool& box, int32_t& rows, bool& selected,
                                              bool& refresh, std::string& extra) {
      asked.push_back(extra);
      screen->ContextMenu(hit, box, rows, selected, refresh, extra);
    });
    window->SelectInCodeEvent.Connect([this](int32_t line) { screen->ShowLine(line); });
    PaneScreen::Actions actions;
    actions.execute = [this](int id) { executed.push_back(id); };
    actions.showPane = [this] { window->ShowResults(); };
    actions.edit = [this](const std::string& file, int line) { edits.push_back(file + ":" + std::to_string(line)); };
    actions.quit = [this] { quit = true; };
    actions.toolWindow = [this] { return window->WindowObject(); };
    screen = std::make_unique<PaneScreen>(loop, annotra::MGlobals::DTEObject, actions);
    loop.Push(screen.get());
  }
  void TearDown() override {
    loop.Pop(screen.get());
    std::setlocale(LC_CTYPE, "C");
    PaneTest::TearDown();
  }
  // Plays what is queued, until `quit` or the terminal's idle end.
  void Play() {
    term.Call([this] { quit = true; });
    loop.Run([this] { return !quit; });
  }

  MemoryTerminal term{100, 30};
  EventLoop loop{term, [this] { return term.now; }};
  std::unique_ptr<PaneScreen> screen;
  std::vector<int> executed;
  std::vector<std::string> edits, asked;
  bool quit = false;
};

}  // namespace

TEST_F(PaneScreenTest, DrawsTheToolWindowTheEditorWindowAndTheStatusBar) {
  Play();
  EXPECT_EQ(term.Find("┌─ Annotra - by Scribane ───"), std::make_pair(0, 0));
  EXPECT_NE(term.Line(0).find("[×]┐"), std::string::npos);
  EXPECT_NE(term.Line(1).find(" New  Refresh │ Previous  Next │ Expand All  Collapse All │ Clear All"), std::string::npos)
      << term.Text();
  EXPECT_TRUE(term.Contains("Project"));
  EXPECT_TRUE(term.Contains("Missing <summary> tag"));
  EXPECT_TRUE(term.Contains("gone.cs"));
  EXPECT_TRUE(term.Contains("No document: Enter on a finding shows its code here."));
  EXPECT_TRUE(term.Contains(" Enter code  n next  p prev  e editor  F10 menu  Ctrl+N new  F5 refresh  q quit "));
  // The tool window was sized to its place on the screen.
  CellRect client = screen->ToolClient(100, 30);
  EXPECT_EQ(window->WindowObject()->Width(), client.w * forms::Screen::TwipsPerCellX);
  EXPECT_EQ(window->WindowObject()->Height(), client.h * forms::Screen::TwipsPerCellY);
}

TEST_F(PaneScreenTest, EnterShowsTheFindingInTheEditorWindowAndMarksItsRow) {
  term.Key(key::Return);  // the first row is current
  Play();
  EXPECT_TRUE(term.Contains("─ a.cs ─"));
  EXPECT_TRUE(term.Contains(" 6 │▶    public void Run() { }")) << term.Text();
  auto [x, y] = term.Find("public void Run()");
  EXPECT_EQ(term.StyleAt(x, y).color, Style::Selection);
  EXPECT_EQ(FlagOf("Run"), 2);  // visited
  // The next finding, through the toolbar's button, and the person's editor at its line.
  quit = false;
  term.Type("n");
  term.Type("e");
  Play();
  EXPECT_TRUE(term.Contains(" 7 │▶    public int Count;")) << term.Text();
  ASSERT_EQ(edits.size(), 1u);
  EXPECT_EQ(edits[0], (dir.path() / "Demo/a.cs").string() + ":7");
}

TEST_F(PaneScreenTest, TheHostsKeysBecomeCommandsAndTheMenuKeyARightClick) {
  term.Key('N', mod::Ctrl);
  term.Key(key::F5);
  term.Key('S', mod::Ctrl);
  term.Key('O', mod::Ctrl);
  term.Key('P', mod::Ctrl);
  term.Key(key::F10);           // the context menu of the current row...
  term.Type("x");               // ..."Show group-by box"
  term.Type("q");
  loop.Run([this] { return !quit; });
  EXPECT_EQ(asked, (std::vector<std::string>{""}));
  EXPECT_EQ(executed, (std::vector<int>{3, 4, 7, 6, 8, 9}));
}

TEST_F(PaneScreenTest, TheRightButtonOnAHeaderOffersToGroupByItsColumn) {
  Play();
  auto [x, y] = term.Find("Problem");
  term.Mouse(InputEvent::Press, 2, x + 1, y);
  term.Mouse(InputEvent::Release, 2, x + 1, y);
  term.Call([this] {
    ASSERT_TRUE(term.Contains("Group by this column")) << term.Text();
    auto [mx, my] = term.Find("Group by this column");
    quit = false;
    term.Click(mx, my);  // after the menu's own events: the menu waits for it
  });
  quit = false;
  loop.Run([this] { return executed.empty() && !quit; });
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked[0][0], 'C');
  ASSERT_EQ(executed.size(), 1u);
  EXPECT_EQ(executed[0], 100 + std::stoi(asked[0].substr(1)));
}

TEST_F(PaneScreenTest, AToolbarTooltipShowsOnlyAfterTheMouseRested) {
  Play();
  auto [x, y] = term.Find(" New ");
  term.Mouse(InputEvent::Move, 0, x + 2, y);
  term.Wait(300);
  term.Call([this] { EXPECT_FALSE(term.Contains("New comments analysis")); });
  term.Wait(300);
  quit = false;
  Play();
  EXPECT_EQ(term.Find(" New comments analysis ").second, 2);  // under the button
}

TEST_F(PaneScreenTest, TheEditorWindowScrollsAndTheStatusBarShowsProgress) {
  term.Key(key::Return);
  term.Key(key::Tab);  // to the editor window
  term.Key(key::Home);
  Play();
  EXPECT_TRUE(screen->EditorFocused());
  EXPECT_EQ(screen->EditorTop(), 1);
  auto bar = annotra::MGlobals::DTEObject->StatusBar();
  bar->Progress(true, "Searching in a.cs", 3, 12);
  quit = false;
  Play();
  EXPECT_NE(term.Line(29).find("3/12 Searching in a.cs"), std::string::npos) << term.Line(29);
  bar->Progress(false);
  screen->Message("Help: /x/y.htm");
  quit = false;
  Play();
  EXPECT_NE(term.Line(29).find("Help: /x/y.htm"), std::string::npos);
}

TEST_F(PaneScreenTest, AHiddenPaneIsShownAgainByEnterAndItsCloseBoxHidesIt) {
  CellRect client = screen->ToolClient(100, 30);
  term.Click(client.Right() - 2, 0);  // "[×]"
  Play();
  EXPECT_EQ(executed, (std::vector<int>{13}));
  window->Hide();
  quit = false;
  Play();
  EXPECT_TRUE(term.Contains("The results pane is hidden"));
  quit = false;
  term.Key(key::Return);
  Play();
  EXPECT_TRUE(window->Visible());
  EXPECT_TRUE(term.Contains("Missing <summary> tag"));
}

TEST_F(PaneScreenTest, AResizedTerminalLaysThePaneOutAgain) {
  term.SetSize(120, 40);
  Play();
  CellRect client = screen->ToolClient(120, 40);
  EXPECT_EQ(window->WindowObject()->Width(), client.w * forms::Screen::TwipsPerCellX);
  EXPECT_EQ(term.Line(0).size() > 0, true);
  EXPECT_NE(term.Line(39).find(" Tab: editor window"), std::string::npos);
}
