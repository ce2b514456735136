#include "terminal/PaneScreen.h"

#include <algorithm>

#include "pane/DocXMLAnalyzer.h"
#include "pane/ToolbarButton.h"
#include "pane/ctlTbrResults.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/TextBuffer.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "host/Steps.h"
#include "platform/core/Error.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/Screen.h"
#include "platform/grid/Grid.h"
#include "terminal/ControlGeometry.h"
#include "terminal/EventLoop.h"
#include "terminal/FormRenderer.h"
#include "terminal/Glyphs.h"
#include "terminal/PaneMenu.h"
#include "terminal/PopupMenu.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace automation = platform::automation;
namespace forms = platform::forms;
using annotra::ctlTbrResults;

namespace {

enum HelpAction { kCode, kNext, kPrevious, kEditor, kMenu, kNew, kRefresh, kQuit, kSave, kLoad, kPreview };

const struct {
  const char* text;
  HelpAction action;
} kHelp[] = {{"Enter code", kCode},    {"n next", kNext},       {"p prev", kPrevious},    {"e editor", kEditor},
             {"F10 menu", kMenu},      {"Ctrl+N new", kNew},    {"F5 refresh", kRefresh}, {"q quit", kQuit},
             {"Ctrl+S save", kSave},   {"Ctrl+O load", kLoad},  {"Ctrl+P print", kPreview}};

// A line of code with its tabs set at every fourth column.
std::string ExpandTabs(std::string_view line) {
  std::string out;
  int column = 0;
  for (const std::string& c : text::Characters(line)) {
    if (c == "\t") {
      do out += ' ';
      while (++column % 4 != 0);
      continue;
    }
    if (c == "\r") continue;
    out += c;
    column += text::CharWidth(c);
  }
  return out;
}

}  // namespace

PaneScreen::PaneScreen(EventLoop& loop, platform::Ref<automation::DTE> dte, Actions actions)
    : m_loop(loop), m_dte(std::move(dte)), m_actions(std::move(actions)), m_input(m_trees, loop.NowFunction()) {}

annotra::DocXMLAnalyzer* PaneScreen::Document() const {
  platform::Ref<automation::Window> window = m_actions.toolWindow ? m_actions.toolWindow() : nullptr;
  return window ? dynamic_cast<annotra::DocXMLAnalyzer*>(window->Object().get()) : nullptr;
}

bool PaneScreen::PaneShown() const {
  platform::Ref<automation::Window> window = m_actions.toolWindow ? m_actions.toolWindow() : nullptr;
  return window && window->Visible() && Document();
}

CellRect PaneScreen::ToolClient(int columns, int rows) const {
  // The tool window takes three fifths of the lines above the status bar.
  int toolRows = std::max(6, (rows - 1) * 3 / 5);
  return {1, 1, std::max(1, columns - 2), std::max(1, toolRows - 2)};
}

CellRect PaneScreen::EditorLines(int columns, int rows) const {
  CellRect tool = ToolClient(columns, rows);
  int top = tool.Bottom() + 1;  // below the border the two windows share
  int bottom = rows - 1 - 1;        // above the editor's border and the status bar
  return {1, top, std::max(1, columns - 2), std::max(0, bottom - top)};
}

// --- Drawing ---------------------------------------------------------------------------

void PaneScreen::Draw(Terminal& t, bool active) {
  m_columns = t.Columns();
  m_rows = t.Rows();
  DrawTool(t, active);
  DrawEditor(t, active);
  DrawStatus(t);
}

void PaneScreen::DrawTool(Terminal& t, bool active) {
  const Glyphs& g = Glyphs::For(t.Unicode());
  CellRect client = ToolClient(m_columns, m_rows);
  platform::Ref<automation::Window> window = m_actions.toolWindow ? m_actions.toolWindow() : nullptr;
  annotra::DocXMLAnalyzer* doc = Document();
  TreeCursors unused;
  FormRenderer frame(t, unused);
  frame.SetBase(Style::Plain);
  std::string caption = window ? window->Caption() : "Annotra";
  frame.DrawWindow(client, caption, PaneShown(), active && !m_editorFocused);
  if (!PaneShown() || !doc) {
    t.Put(client.x + 1, client.y + client.h / 2, text::Fit("The results pane is hidden: Enter or a click here shows it.", client.w - 2, g.ellipsis), Style{});
    return;
  }
  // The document lays itself out for the window's size.
  if (client.w != m_clientW || client.h != m_clientH) {
    m_clientW = client.w;
    m_clientH = client.h;
    window->Resize(client.w * forms::Screen::TwipsPerCellX, client.h * forms::Screen::TwipsPerCellY);
  }
  FormLayout layout(*doc, client.x, client.y);
  FormRenderer renderer(t, m_trees);
  renderer.SetBase(Style::Plain);
  renderer.DrawForm(*doc, layout, active && !m_editorFocused);
  // Separators between the toolbar's groups of buttons.
  for (const FormLayout::Placed& p : layout.Controls())
    if (auto* b = dynamic_cast<annotra::ToolbarButton*>(p.control); b && b->BeginGroup && p.rect.x - 1 > client.x)
      t.Put(p.rect.x - 1, p.rect.y, g.vertical, Style{});
  DrawTooltip(t, layout);
}

void PaneScreen::DrawTooltip(Terminal& t, const FormLayout& layout) {
  if (!m_hover || m_loop.Now() - m_hoverSince < kTooltipDelayMs) return;
  for (const FormLayout::Placed& p : layout.Controls()) {
    auto* b = dynamic_cast<annotra::ToolbarButton*>(p.control);
    if (b != m_hover || b->ToolTipText.empty()) continue;
    std::string tip = " " + b->ToolTipText + " ";
    int x = std::clamp(m_hoverX, 0, std::max(0, m_columns - text::Width(tip)));
    t.Put(x, p.rect.Bottom(), tip, Style{Style::Hint});
  }
}

int PaneScreen::LineCount() const {
  int count = 0;
  annotra::Quietly([&] {
    count = m_dte->ActiveDocument()->Object("TextDocument")->textBuffer().LineCount();
  });
  return count;
}

int PaneScreen::CaretLine() const {
  int line = 0;
  annotra::Quietly([&] {
    line = m_dte->ActiveDocument()->Object("TextDocument")->Selection()->ActivePoint()->Line();
  });
  return line;
}

std::string PaneScreen::DocumentFile() const {
  std::string file;
  annotra::Quietly([&] { file = m_dte->ActiveDocument()->FullName(); });
  return file;
}

void PaneScreen::DrawEditor(Terminal& t, bool active) {
  const Glyphs& g = Glyphs::For(t.Unicode());
  CellRect lines = EditorLines(m_columns, m_rows);
  CellRect window{0, lines.y - 1, m_columns, lines.h + 2};
  if (window.h < 2) return;
  platform::Ref<automation::Document> doc = m_dte ? m_dte->ActiveDocument() : nullptr;
  std::string caption = "Editor";
  if (doc) annotra::Quietly([&] { caption = doc->Name(); });
  Style border{Style::Plain, active && m_editorFocused};
  std::string top = g.teeLeft;
  top += g.horizontal;
  top += " " + text::Fit(caption, std::max(0, m_columns - 6), g.ellipsis) + " ";
  while (text::Width(top) < m_columns - 1) top += g.horizontal;
  top += g.teeRight;
  t.Put(0, window.y, top, border);
  for (int y = lines.y; y < lines.Bottom(); ++y) {
    t.Put(0, y, g.vertical, border);
    t.Put(m_columns - 1, y, g.vertical, border);
  }
  // The lower border lists the keys, each clickable.
  int bottom = window.Bottom() - 1;
  std::string line = g.bottomLeft;
  m_help.clear();
  m_helpRow = bottom;
  int x = 1;
  for (const auto& h : kHelp) {
    std::string item = std::string(" ") + h.text + " ";
    int w = text::Width(item);
    if (x + w >= m_columns - 1) break;
    line += item;
    m_help.push_back({x + 1, x + w - 1, h.action});
    x += w;
  }
  while (text::Width(line) < m_columns - 1) line += g.horizontal;
  line += g.bottomRight;
  t.Put(0, bottom, line, border);

  if (!doc) {
    t.Put(2, lines.y, text::Fit("No document: Enter on a finding shows its code here.", lines.w - 2, g.ellipsis), Style{});
    return;
  }
  int count = LineCount();
  int caret = CaretLine();
  // A new document or a caret moved elsewhere: its line in the middle of the window.
  if (doc.get() != m_followedDocument || caret != m_followedLine) {
    m_followedDocument = doc.get();
    m_followedLine = caret;
    m_editorTop = caret - lines.h / 2;
  }
  m_editorTop = std::clamp(m_editorTop, 1, std::max(1, count - lines.h + 1));
  int digits = static_cast<int>(std::to_string(std::max(1, count)).size());
  platform::Ref<automation::TextDocument> text;
  annotra::Quietly([&] { text = doc->Object("TextDocument"); });
  for (int i = 0; i < lines.h; ++i) {
    int n = m_editorTop + i;
    if (n > count || !text) break;
    bool marked = n == caret;
    Style style{Style::Plain, marked};
    if (marked) style.color = Style::Selection;
    std::string number = std::to_string(n);
    std::string gutter = std::string(static_cast<size_t>(digits - static_cast<int>(number.size()) + 1), ' ') + number + " " +
                         g.vertical + (marked ? g.current : " ");
    std::string code;
    annotra::Quietly([&] { code = ExpandTabs(text->textBuffer().Line(n)); });
    t.Put(lines.x, lines.y + i, text::Pad(gutter + code, lines.w), style);
  }
}

void PaneScreen::DrawStatus(Terminal& t) {
  const Glyphs& g = Glyphs::For(t.Unicode());
  int y = m_rows - 1;
  Style style{Style::Status};
  std::string s;
  platform::Ref<automation::StatusBar> bar = m_dte ? m_dte->StatusBar() : nullptr;
  if (bar && bar->inProgress()) {
    int total = std::max(1, bar->progressTotal());
    int done = std::clamp(bar->progressAmount(), 0, total);
    const int width = 20;
    int filled = done * width / total;
    std::string meter;
    for (int i = 0; i < width; ++i) meter += i < filled ? (t.Unicode() ? "█" : "#") : (t.Unicode() ? "░" : ".");
    s = " " + meter + " " + std::to_string(done) + "/" + std::to_string(total) + " " + bar->progressLabel();
  } else if (bar && !bar->Text().empty()) {
    s = " " + bar->Text();
  } else if (!m_message.empty()) {
    s = " " + m_message;
  } else {
    s = " Tab: editor window  Right button or F10: context menu";
  }
  std::replace(s.begin(), s.end(), '\n', ' ');
  t.Put(0, y, text::Pad(text::Fit(s, m_columns, g.ellipsis), m_columns), style);
}

// --- Input -----------------------------------------------------------------------------

void PaneScreen::ClickToolbar(int id) {
  annotra::DocXMLAnalyzer* doc = Document();
  if (!doc || !PaneShown()) return;
  annotra::Quietly([&] {
    for (int bar = 1; bar <= doc->TbrResults1.tbr.BarCount(); ++bar)
      for (annotra::ToolbarButton* b : doc->TbrResults1.tbr.Bars(bar).Controls)
        if (b->Id == id) b->UserClick();
  });
}

void PaneScreen::EditAt(int line) {
  std::string file = DocumentFile();
  if (file.empty()) {
    m_message = "No document to edit: Enter on a finding opens its document first.";
    return;
  }
  if (m_actions.edit) m_actions.edit(file, line > 0 ? line : CaretLine());
}

void PaneScreen::ShowLine(int32_t line) {
  (void)line;  // the caret is on it: the next frame centres it
  m_followedLine = -1;
}

void PaneScreen::ScrollEditor(int by) {
  CellRect lines = EditorLines(m_columns, m_rows);
  m_editorTop = std::clamp(m_editorTop + by, 1, std::max(1, LineCount() - lines.h + 1));
}

void PaneScreen::ContextMenuFromKeyboard() {
  annotra::DocXMLAnalyzer* doc = Document();
  if (!doc || !PaneShown()) return;
  CellRect client = ToolClient(m_columns, m_rows);
  FormLayout layout(*doc, client.x, client.y);
  const FormLayout::Placed* grid = layout.Find(&doc->GridEx1);
  if (!grid) return;
  // A right click on the current row, or where the rows would begin.
  int headers = (doc->GridEx1.GroupByBoxVisible ? 1 : 0) + 1;
  int row = doc->GridEx1.Row() >= doc->GridEx1.TopRow() ? doc->GridEx1.Row() - doc->GridEx1.TopRow() : 0;
  int x = grid->rect.x + FormLayout::CellsX(doc->GridEx1.ColumnsLeft());
  int y = std::min(grid->rect.Bottom() - 1, grid->rect.y + headers + row);
  m_menuX = x;
  m_menuY = y + 1;
  auto [px, py] = layout.PointIn(doc->GridEx1, x, y);
  doc->GridEx1.UserMouseDown(forms::vbRightButton, px, py);
  doc->GridEx1.UserMouseUp(forms::vbRightButton, px, py);
}

void PaneScreen::ContextMenu(int32_t hitTest, bool groupByBoxVisible, int32_t rowCount, bool isRowSelected,
                             bool canRefresh, const std::string& hitExtraInfo) {
  int x = m_menuX >= 0 ? m_menuX : m_lastPressX, y = m_menuY >= 0 ? m_menuY : m_lastPressY + 1;
  m_menuX = m_menuY = -1;
  PopupMenu menu(pane_menu::Items(hitTest, groupByBoxVisible, rowCount, isRowSelected, canRefresh, hitExtraInfo,
                                  !DocumentFile().empty()),
                 std::max(0, x), std::max(0, y));
  int chosen = menu.Run(m_loop);
  if (chosen == 0) return;
  // The command runs once the pane's mouse event has returned, as a menu command does.
  forms::PostAction([this, chosen] {
    if (chosen == pane_menu::kEdit) EditAt(0);
    else if (chosen == pane_menu::kQuit) m_actions.quit();
    else m_actions.execute(chosen);
  });
}

bool PaneScreen::GlobalKey(const InputEvent& e) {
  if (e.kind == InputEvent::Char) {
    if (e.text == "q") return m_actions.quit(), true;
    if (e.text == "e") return EditAt(0), true;
    if (e.text == "n") return ClickToolbar(ctlTbrResults::ID_NEXT), true;
    if (e.text == "p") return ClickToolbar(ctlTbrResults::ID_PREVIOUS), true;
    return false;
  }
  if (e.kind != InputEvent::Key) return false;
  if (e.shift == mod::Ctrl) {
    switch (e.key) {
      case 'C': return m_message = "Ctrl+C stops an analysis while it runs; q quits.", true;
      case 'N': return m_actions.execute(3), true;
      case 'S': return m_actions.execute(7), true;
      case 'O': return m_actions.execute(6), true;
      case 'P': return m_actions.execute(8), true;
      default: return false;
    }
  }
  if (e.key == key::F5 && e.shift == 0) return m_actions.execute(4), true;
  if ((e.key == key::F10 && (e.shift == 0 || e.shift == mod::Shift)) || e.key == key::Apps)
    return ContextMenuFromKeyboard(), true;
  if (e.key == key::Tab && (e.shift == 0 || e.shift == mod::Shift)) {
    m_editorFocused = !m_editorFocused;
    return true;
  }
  return false;
}

void PaneScreen::EditorKey(int keyCode) {
  CellRect lines = EditorLines(m_columns, m_rows);
  switch (keyCode) {
    case key::Up: ScrollEditor(-1); break;
    case key::Down: ScrollEditor(1); break;
    case key::PageUp: ScrollEditor(-std::max(1, lines.h - 1)); break;
    case key::PageDown: ScrollEditor(std::max(1, lines.h - 1)); break;
    case key::Home: ScrollEditor(-LineCount()); break;
    case key::End: ScrollEditor(LineCount()); break;
    case key::Return: EditAt(0); break;
    case key::Escape: m_editorFocused = false; break;
    default: break;
  }
}

void PaneScreen::EditorMouse(const InputEvent& e) {
  CellRect lines = EditorLines(m_columns, m_rows);
  if (e.action == InputEvent::WheelUp) return ScrollEditor(-3);
  if (e.action == InputEvent::WheelDown) return ScrollEditor(3);
  if (e.action != InputEvent::Press || e.button != forms::vbLeftButton) return;
  m_editorFocused = true;
  if (!lines.Contains(e.x, e.y)) return;
  // A double click on a line opens the person's editor there.
  int64_t now = m_loop.Now();
  int line = m_editorTop + (e.y - lines.y);
  if (m_lastEditorPress >= 0 && e.y == m_lastEditorPressY && now - m_lastEditorPress <= InputDispatcher::kDoubleClickMs &&
      line <= LineCount()) {
    m_lastEditorPress = -1;
    EditAt(line);
    return;
  }
  m_lastEditorPress = now;
  m_lastEditorPressY = e.y;
}

void PaneScreen::Input(const InputEvent& e) {
  annotra::DocXMLAnalyzer* doc = Document();
  CellRect client = ToolClient(m_columns, m_rows);
  if (e.kind == InputEvent::Mouse) {
    // The keys of the help line.
    if (e.y == m_helpRow && e.action == InputEvent::Release && e.button == forms::vbLeftButton) {
      for (const HelpItem& h : m_help) {
        if (e.x < h.x0 || e.x >= h.x1) continue;
        switch (h.action) {
          case kCode: m_actions.execute(1); break;
          case kNext: ClickToolbar(ctlTbrResults::ID_NEXT); break;
          case kPrevious: ClickToolbar(ctlTbrResults::ID_PREVIOUS); break;
          case kEditor: EditAt(0); break;
          case kMenu: ContextMenuFromKeyboard(); break;
          case kNew: m_actions.execute(3); break;
          case kRefresh: m_actions.execute(4); break;
          case kQuit: m_actions.quit(); break;
          case kSave: m_actions.execute(7); break;
          case kLoad: m_actions.execute(6); break;
          case kPreview: m_actions.execute(8); break;
        }
        return;
      }
      return;
    }
    CellRect window = geometry::WindowOf(client);
    if (e.y >= window.Bottom()) return EditorMouse(e);
    if (!PaneShown() || !doc) {
      if (e.action == InputEvent::Release && e.button == forms::vbLeftButton) m_actions.showPane();
      return;
    }
    if (e.action == InputEvent::Press && geometry::CloseBoxOf(client).Contains(e.x, e.y)) {
      m_actions.execute(13);
      return;
    }
    if (e.action == InputEvent::Press) {
      m_editorFocused = false;
      m_lastPressX = e.x;
      m_lastPressY = e.y;
    }
    FormLayout layout(*doc, client.x, client.y);
    if (e.action == InputEvent::Move) {
      forms::Control* under = layout.At(e.x, e.y);
      const void* button = dynamic_cast<annotra::ToolbarButton*>(under);
      if (button != m_hover) {
        m_hover = button;
        m_hoverSince = m_loop.Now();
        m_hoverX = e.x;
      }
    } else {
      m_hover = nullptr;
    }
    m_input.Mouse(*doc, layout, e, m_rows, false);
    return;
  }
  if (GlobalKey(e)) return;
  if (!PaneShown() || !doc) {
    if (e.kind == InputEvent::Key && e.key == key::Return) m_actions.showPane();
    return;
  }
  if (m_editorFocused) {
    if (e.kind == InputEvent::Key) EditorKey(e.key);
    return;
  }
  if (e.kind == InputEvent::Key) doc->UserKey(e.key, e.shift);
}

}  // namespace app::terminal
