#pragma once
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "terminal/Terminal.h"

namespace app::terminal {

/// A terminal in memory, for tests: a screen of cells that can be read back as text,
/// with the style of each cell, and a queue of input events played in order. Time is
/// its own: a Read that finds the queue empty lets its timeout pass on `now` (a wait
/// without end counts as one second) and reports nothing, so a test decides how much
/// time passes between the events it plays (Wait). Once the queue has been empty for
/// `idleLimitMs`, Read reports the terminal closed, so a loop the test forgot to end
/// ends all the same.
class MemoryTerminal : public Terminal {
 public:
  MemoryTerminal(int columns, int rows, bool unicode = true);

  int Columns() const override { return m_columns; }
  int Rows() const override { return m_rows; }
  bool Unicode() const override { return m_unicode; }
  void Clear() override;
  void Put(int x, int y, std::string_view text, const Style& style) override;
  void SetCursor(int x, int y, bool visible) override;
  void Flush() override { ++flushes; }
  InputEvent Read(int timeoutMs) override;
  void Suspend() override { suspended = true; }
  void Resume() override { suspended = false; }

  // --- For tests -----------------------------------------------------------------------
  /// Changes the size, as a terminal window resized by the person; a Resize event is
  /// queued.
  void SetSize(int columns, int rows);
  /// Queues input.
  void Queue(InputEvent event) { m_input.push_back({std::move(event), 0, {}}); }
  void Key(int code, int shift = 0);
  void Type(const std::string& text);  // one Char event per character
  void Mouse(InputEvent::MouseAction action, int button, int x, int y, int shift = 0);
  /// A press and a release of the left button on a cell.
  void Click(int x, int y);
  /// Lets `milliseconds` pass before the next event.
  void Wait(int64_t milliseconds);
  /// Runs `call` when the events before it have been read (to look at the screen or the
  /// form in the middle of a loop).
  void Call(std::function<void()> call);
  size_t Pending() const { return m_input.size(); }

  /// Row `y` as text, trailing blanks removed.
  std::string Line(int y) const;
  /// The whole screen, one line per row.
  std::string Text() const;
  /// Where `text` first appears on one row (x, y); (-1, -1) when it does not.
  std::pair<int, int> Find(std::string_view text) const;
  bool Contains(std::string_view text) const { return Find(text).first >= 0; }
  const Style& StyleAt(int x, int y) const;

  int cursorX = 0, cursorY = 0;
  bool cursorVisible = false;
  bool suspended = false;
  int flushes = 0;
  /// Milliseconds that have passed in Reads.
  int64_t now = 0;
  int64_t idleLimitMs = 60000;

 private:
  struct Cell {
    std::string glyph = " ";  // "" for the second cell of a double-width character
    Style style;
  };
  Cell& At(int x, int y) { return m_cells[static_cast<size_t>(y * m_columns + x)]; }
  const Cell& At(int x, int y) const { return m_cells[static_cast<size_t>(y * m_columns + x)]; }

  int m_columns, m_rows;
  bool m_unicode;
  std::vector<Cell> m_cells;
  struct Item {
    InputEvent event;
    int64_t wait = 0;
    std::function<void()> call;
  };
  std::deque<Item> m_input;
  int64_t m_idle = 0;
};

}  // namespace app::terminal
