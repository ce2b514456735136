#include "terminal/PopupMenu.h"

#include <algorithm>

#include "platform/forms/Control.h"
#include "terminal/ControlGeometry.h"
#include "terminal/EventLoop.h"
#include "terminal/Glyphs.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace forms = platform::forms;

PopupMenu::PopupMenu(std::vector<Item> items, int x, int y) : m_items(std::move(items)), m_x(x), m_y(y) {
  for (int i = 0; i < static_cast<int>(m_items.size()); ++i)
    if (Choosable(i)) {
      m_highlight = i;
      break;
    }
}

bool PopupMenu::Choosable(int i) const {
  return i >= 0 && i < static_cast<int>(m_items.size()) && m_items[static_cast<size_t>(i)].id != 0 &&
         m_items[static_cast<size_t>(i)].enabled;
}

CellRect PopupMenu::Box(int columns, int rows) const {
  int captions = 0, shortcuts = 0;
  for (const Item& item : m_items) {
    captions = std::max(captions, text::Width(forms::PlainCaption(item.caption)));
    shortcuts = std::max(shortcuts, text::Width(item.shortcut));
  }
  int w = 2 + 1 + captions + (shortcuts > 0 ? 3 + shortcuts : 0) + 1;
  int h = static_cast<int>(m_items.size()) + 2;
  int x = std::clamp(m_x, 0, std::max(0, columns - w));
  // Below the cell when there is room, else above it.
  int y = m_y + h <= rows ? m_y : std::max(0, std::min(m_y - h + 1, rows - h));
  return {x, y, w, h};
}

void PopupMenu::Draw(Terminal& t, bool) {
  m_columns = t.Columns();
  m_rows = t.Rows();
  const Glyphs& g = Glyphs::For(t.Unicode());
  CellRect box = Box(m_columns, m_rows);
  Style frame{Style::Menu};
  std::string top = g.topLeft, bottom = g.bottomLeft, rule = g.teeLeft;
  for (int i = 0; i < box.w - 2; ++i) top += g.horizontal, bottom += g.horizontal, rule += g.horizontal;
  top += g.topRight, bottom += g.bottomRight, rule += g.teeRight;
  t.Put(box.x, box.y, top, frame);
  t.Put(box.x, box.Bottom() - 1, bottom, frame);
  int shortcutRight = box.Right() - 2;
  for (int i = 0; i < static_cast<int>(m_items.size()) && box.y + 1 + i < box.Bottom() - 1; ++i) {
    const Item& item = m_items[static_cast<size_t>(i)];
    int y = box.y + 1 + i;
    if (item.id == 0) {
      t.Put(box.x, y, rule, frame);
      continue;
    }
    Style style{i == m_highlight ? Style::Selection : Style::Menu};
    style.dim = !item.enabled;
    t.Put(box.x, y, g.vertical, frame);
    t.Put(box.x + 1, y, std::string(static_cast<size_t>(box.w - 2), ' '), style);
    t.Put(box.Right() - 1, y, g.vertical, frame);
    std::string plain = forms::PlainCaption(item.caption);
    t.Put(box.x + 2, y, plain, style);
    int access = geometry::AccessColumn(item.caption);
    if (access >= 0 && item.enabled) {
      Style underlined = style;
      underlined.underline = true;
      std::vector<std::string> chars = text::Characters(plain);
      int col = 0;
      for (const std::string& c : chars) {
        if (col == access) {
          t.Put(box.x + 2 + col, y, c, underlined);
          break;
        }
        col += text::CharWidth(c);
      }
    }
    if (!item.shortcut.empty()) t.Put(shortcutRight - text::Width(item.shortcut), y, item.shortcut, style);
  }
}

void PopupMenu::MoveHighlight(int by) {
  int n = static_cast<int>(m_items.size());
  for (int step = 1; step <= n; ++step) {
    int i = ((m_highlight < 0 ? (by > 0 ? -1 : 0) : m_highlight) + by * step) % n;
    if (i < 0) i += n;
    if (Choosable(i)) {
      m_highlight = i;
      return;
    }
  }
}

void PopupMenu::Choose(int i) {
  if (!Choosable(i)) return;
  m_chosen = m_items[static_cast<size_t>(i)].id;
  m_open = false;
}

void PopupMenu::Input(const InputEvent& e) {
  CellRect box = Box(m_columns, m_rows);
  auto itemAt = [&](int x, int y) {
    if (x <= box.x || x >= box.Right() - 1 || y <= box.y || y >= box.Bottom() - 1) return -1;
    return y - box.y - 1;
  };
  switch (e.kind) {
    case InputEvent::Key:
      switch (e.key) {
        case key::Up: MoveHighlight(-1); return;
        case key::Down: MoveHighlight(+1); return;
        case key::Home: m_highlight = -1, MoveHighlight(+1); return;
        case key::End: m_highlight = -1, MoveHighlight(-1); return;
        case key::Return: Choose(m_highlight); return;
        case key::Escape:
        case key::F10:
        case key::Apps: m_open = false; return;
        default: break;
      }
      if (!(e.shift & mod::Alt)) return;
      [[fallthrough]];
    case InputEvent::Char: {
      std::string s = e.text.empty() && e.key > 0 && e.key < 128 ? std::string(1, static_cast<char>(e.key)) : e.text;
      if (s.size() != 1) return;
      char c = s[0] >= 'A' && s[0] <= 'Z' ? static_cast<char>(s[0] - 'A' + 'a') : s[0];
      for (int i = 0; i < static_cast<int>(m_items.size()); ++i)
        if (Choosable(i) && forms::AccessKeyOf(m_items[static_cast<size_t>(i)].caption) == c) return Choose(i);
      return;
    }
    case InputEvent::Mouse: {
      int i = itemAt(e.x, e.y);
      if (e.action == InputEvent::Move) {
        if (Choosable(i)) m_highlight = i;
      } else if (e.action == InputEvent::Press) {
        m_pressedInside = box.Contains(e.x, e.y);
        if (!m_pressedInside) m_open = false;  // a press elsewhere closes the menu
      } else if (e.action == InputEvent::Release) {
        if (m_pressedInside && i >= 0) Choose(i);
        m_pressedInside = false;
      }
      return;
    }
    default: return;
  }
}

int PopupMenu::Run(EventLoop& loop) {
  m_columns = loop.terminal().Columns();
  m_rows = loop.terminal().Rows();
  loop.Push(this);
  loop.Run([&] { return m_open; });
  loop.Pop(this);
  return m_open ? 0 : m_chosen;
}

}  // namespace app::terminal
