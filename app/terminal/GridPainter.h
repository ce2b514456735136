#pragma once

#include "terminal/FormLayout.h"
#include "terminal/Glyphs.h"
#include "terminal/Terminal.h"

namespace platform::grid {
class Grid;
}

namespace app::terminal {

/// Draws a grid the way the grid model places its parts, one cell line per grid line:
/// the group-by box (when shown) with an entry "[Caption ×]" per grouping, the column
/// headers (bold when the header font is), then the rows from the grid's top row: the
/// current row marked in the selector and highlighted, group rows with their sign,
/// "Caption: value" and the count, records in their cells, visited records dimmed (the
/// row style of the format conditions). Columns scrolled off to the left are cut; the
/// last column's text runs on to the grid's right edge.
class GridPainter {
 public:
  GridPainter(Terminal& terminal, const Glyphs& glyphs) : m_t(terminal), m_g(glyphs) {}

  /// Draws `grid` in `rect` (its top-left cell is the grid's corner); `focused` when the
  /// grid has the focus of the window in front; `base` the colour of the window.
  void Draw(const platform::grid::Grid& grid, const CellRect& rect, bool focused, Style::Color base);

 private:
  void PutCut(int x, int y, int left, int right, const std::string& s, const Style& style);

  Terminal& m_t;
  const Glyphs& m_g;
};

}  // namespace app::terminal
