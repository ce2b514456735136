#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "terminal/FormLayout.h"
#include "terminal/InputDispatcher.h"
#include "terminal/Layer.h"
#include "terminal/TreeLines.h"

namespace platform::automation {
class DTE;
class Window;
}  // namespace platform::automation
namespace annotra {
class DocXMLAnalyzer;
}

namespace app::terminal {

class EventLoop;

/// The screen of the interactive host, the development environment in small: the
/// results tool window at the top (its caption, the toolbar, the group-by box and the
/// grid, drawn from the results document's controls), the editor window below it (the
/// active document around the caret's line, that line marked), and the status bar at
/// the bottom (the walk's progress, the environment's text or the host's last message).
/// The editor window's lower border lists the keys; each can be clicked.
///
/// Input goes where a person means it: keys and the mouse over the tool window to the
/// results document and its controls (so the document's own handling runs: Enter and
/// double clicks show in code, the right button asks for the context menu), Tab
/// between the tool window and the editor window, the wheel and the arrows to scroll
/// the editor window. The host's keys:
///   Ctrl+N new analysis, F5 refresh, Enter show in code, n and p next and previous
///   finding (the toolbar's buttons), e the person's editor at the line, Ctrl+S save,
///   Ctrl+O load, Ctrl+P print preview, F10 (Shift+F10, the menu key) the context menu
///   (a right click on the current row), q quit.
/// A toolbar button the mouse rests on shows its tooltip after kTooltipDelayMs.
class PaneScreen : public Layer {
 public:
  static constexpr int kTooltipDelayMs = 500;

  /// What the screen asks of its host.
  struct Actions {
    std::function<void(int)> execute;  // a command identifier for the entry object
    std::function<void()> showPane;    // shows the hidden results pane
    std::function<void(const std::string& file, int line)> edit;  // the person's editor
    std::function<void()> quit;
    std::function<platform::Ref<platform::automation::Window>()> toolWindow;  // the pane's window
  };

  PaneScreen(EventLoop& loop, platform::Ref<platform::automation::DTE> dte, Actions actions);

  void Draw(Terminal& terminal, bool active) override;
  void Input(const InputEvent& event) override;

  /// The pane asks for its context menu: shown where the mouse was last pressed over
  /// the pane (or at the current row when asked from the keyboard); the command chosen
  /// runs once the pane's event has returned.
  void ContextMenu(int32_t hitTest, bool groupByBoxVisible, int32_t rowCount, bool isRowSelected, bool canRefresh,
                   const std::string& hitExtraInfo);
  /// The editor was moved to `line`: the editor window shows it in its middle.
  void ShowLine(int32_t line);
  /// A line of news for the status bar (a report, a help page's place).
  void Message(const std::string& text) { m_message = text; }
  const std::string& LastMessage() const { return m_message; }
  /// Asks for the context menu as a right click on the current row does.
  void ContextMenuFromKeyboard();

  // --- Geometry, for tests ----------------------------------------------------------
  /// The tool window's client area and the editor window's lines on a screen of that
  /// size.
  CellRect ToolClient(int columns, int rows) const;
  CellRect EditorLines(int columns, int rows) const;
  bool EditorFocused() const { return m_editorFocused; }
  int EditorTop() const { return m_editorTop; }

 private:
  annotra::DocXMLAnalyzer* Document() const;
  bool PaneShown() const;
  void DrawTool(Terminal& t, bool active);
  void DrawEditor(Terminal& t, bool active);
  void DrawStatus(Terminal& t);
  void DrawTooltip(Terminal& t, const FormLayout& layout);
  bool GlobalKey(const InputEvent& e);
  void EditorKey(int keyCode);
  void EditorMouse(const InputEvent& e);
  void ClickToolbar(int id);
  void EditAt(int line);
  void ScrollEditor(int by);
  int LineCount() const;
  int CaretLine() const;
  std::string DocumentFile() const;

  EventLoop& m_loop;
  platform::Ref<platform::automation::DTE> m_dte;
  Actions m_actions;
  TreeCursors m_trees;
  InputDispatcher m_input;
  int m_columns = 80, m_rows = 24;
  int m_clientW = -1, m_clientH = -1;  // the size the tool window was given
  bool m_editorFocused = false;
  int m_editorTop = 1;
  int m_followedLine = -1;             // the caret line the view was last centred on
  const void* m_followedDocument = nullptr;
  std::string m_message;
  int m_lastPressX = -1, m_lastPressY = -1;
  int m_menuX = -1, m_menuY = -1;
  // The toolbar button under the mouse, and since when.
  const void* m_hover = nullptr;
  int64_t m_hoverSince = 0;
  int m_hoverX = 0, m_hoverY = 0;
  // The clickable keys of the help line.
  struct HelpItem {
    int x0, x1;
    int action;
  };
  std::vector<HelpItem> m_help;
  int m_helpRow = -1;
  int64_t m_lastEditorPress = -1;
  int m_lastEditorPressY = -1;
};

}  // namespace app::terminal
