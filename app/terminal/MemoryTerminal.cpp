#include "terminal/MemoryTerminal.h"

#include <algorithm>

#include "terminal/TextCells.h"

namespace app::terminal {

MemoryTerminal::MemoryTerminal(int columns, int rows, bool unicode)
    : m_columns(columns), m_rows(rows), m_unicode(unicode),
      m_cells(static_cast<size_t>(columns * rows)) {}

void MemoryTerminal::Clear() {
  for (Cell& c : m_cells) c = Cell{};
}

void MemoryTerminal::Put(int x, int y, std::string_view s, const Style& style) {
  if (y < 0 || y >= m_rows) return;
  for (const std::string& c : text::Characters(s)) {
    int w = text::CharWidth(c);
    if (w == 0) continue;
    if (x >= m_columns) return;
    if (x >= 0) {
      if (x + w > m_columns) return;
      At(x, y) = Cell{c, style};
      if (w == 2) At(x + 1, y) = Cell{"", style};
    }
    x += w;
  }
}

void MemoryTerminal::SetCursor(int x, int y, bool visible) {
  cursorX = x;
  cursorY = y;
  cursorVisible = visible;
}

InputEvent MemoryTerminal::Read(int timeoutMs) {
  int64_t step = timeoutMs < 0 ? 1000 : timeoutMs;
  if (m_input.empty()) {
    now += step;
    m_idle += step;
    InputEvent none;
    if (m_idle >= idleLimitMs) none.kind = InputEvent::Closed;
    return none;
  }
  m_idle = 0;
  Item& front = m_input.front();
  if (front.wait > 0) {
    // Waiting: time passes in steps of the loop's timeout, with nothing to report.
    int64_t passed = std::min(front.wait, step);
    front.wait -= passed;
    now += passed;
    return {};
  }
  if (front.call) {
    auto call = std::move(front.call);
    m_input.pop_front();
    call();
    return {};
  }
  InputEvent e = std::move(front.event);
  m_input.pop_front();
  return e;
}

void MemoryTerminal::Click(int x, int y) {
  Mouse(InputEvent::Press, 1, x, y);
  Mouse(InputEvent::Release, 1, x, y);
}

void MemoryTerminal::Wait(int64_t milliseconds) { m_input.push_back({InputEvent{}, milliseconds, {}}); }

void MemoryTerminal::Call(std::function<void()> call) { m_input.push_back({InputEvent{}, 0, std::move(call)}); }

void MemoryTerminal::SetSize(int columns, int rows) {
  m_columns = columns;
  m_rows = rows;
  m_cells.assign(static_cast<size_t>(columns * rows), Cell{});
  InputEvent e;
  e.kind = InputEvent::Resize;
  Queue(e);
}

void MemoryTerminal::Key(int code, int shift) {
  InputEvent e;
  e.kind = InputEvent::Key;
  e.key = code;
  e.shift = shift;
  Queue(e);
}

void MemoryTerminal::Type(const std::string& s) {
  for (const std::string& c : text::Characters(s)) {
    InputEvent e;
    e.kind = InputEvent::Char;
    e.text = c;
    Queue(e);
  }
}

void MemoryTerminal::Mouse(InputEvent::MouseAction action, int button, int x, int y, int shift) {
  InputEvent e;
  e.kind = InputEvent::Mouse;
  e.action = action;
  e.button = button;
  e.x = x;
  e.y = y;
  e.shift = shift;
  Queue(e);
}

std::string MemoryTerminal::Line(int y) const {
  std::string out;
  if (y < 0 || y >= m_rows) return out;
  for (int x = 0; x < m_columns; ++x) out += At(x, y).glyph;
  size_t end = out.find_last_not_of(' ');
  return end == std::string::npos ? "" : out.substr(0, end + 1);
}

std::string MemoryTerminal::Text() const {
  std::string out;
  for (int y = 0; y < m_rows; ++y) out += Line(y) + "\n";
  return out;
}

std::pair<int, int> MemoryTerminal::Find(std::string_view s) const {
  for (int y = 0; y < m_rows; ++y) {
    std::string line;
    std::vector<int> columnOf;  // the cell each byte of `line` starts in
    for (int x = 0; x < m_columns; ++x) {
      for (size_t k = 0; k < At(x, y).glyph.size(); ++k) columnOf.push_back(x);
      line += At(x, y).glyph;
    }
    size_t at = line.find(s);
    if (at != std::string::npos) return {columnOf[at], y};
  }
  return {-1, -1};
}

const Style& MemoryTerminal::StyleAt(int x, int y) const {
  static const Style kNone;
  if (x < 0 || y < 0 || x >= m_columns || y >= m_rows) return kNone;
  return At(x, y).style;
}

}  // namespace app::terminal
