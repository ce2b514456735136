#include "terminal/GridPainter.h"

#include <algorithm>

#include "platform/core/Error.h"
#include "platform/core/Variant.h"
#include "platform/forms/Control.h"
#include "platform/grid/Grid.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace grid = platform::grid;

void GridPainter::PutCut(int x, int y, int left, int right, const std::string& s, const Style& style) {
  text::Span shown = text::Clip(s, x, left, right);
  if (shown.column >= 0) m_t.Put(shown.column, y, shown.text, style);
}

void GridPainter::Draw(const grid::Grid& g, const CellRect& rect, bool focused, Style::Color base) {
  if (rect.Empty()) return;
  const int right = rect.Right();
  auto blank = [&](int y, const Style& style) { m_t.Put(rect.x, y, std::string(static_cast<size_t>(rect.w), ' '), style); };
  int y = rect.y;

  if (g.GroupByBoxVisible && y < rect.Bottom()) {
    Style box{base, false, false, false, true};
    blank(y, box);
    auto entries = g.GroupByBoxEntries();
    if (entries.empty()) {
      PutCut(rect.x + 1, y, rect.x, right, "Group by: none (right button on a column header)", box);
    }
    for (const auto& e : entries) {
      int x = rect.x + FormLayout::CellsX(e.left);
      PutCut(x, y, rect.x, right, "[" + e.caption + " " + m_g.remove + "]", Style{base, true});
    }
    ++y;
  }

  const int columnsLeft = rect.x + FormLayout::CellsX(g.ColumnsLeft());
  auto spans = g.VisibleColumns();
  if (y < rect.Bottom()) {
    Style header{base, g.HeaderFont.Bold, false, true};
    blank(y, header);
    for (size_t i = 0; i < spans.size(); ++i) {
      const auto& span = spans[i];
      int x0 = rect.x + FormLayout::CellsX(span.left);
      int x1 = rect.x + FormLayout::CellsX(span.left + span.width);
      if (i + 1 == spans.size()) x1 = std::max(x1, right);
      std::string caption = text::Fit(platform::forms::PlainCaption(span.column->Caption), std::max(0, x1 - x0 - 1), m_g.ellipsis);
      PutCut(x0, y, columnsLeft, right, caption, header);
    }
    ++y;
  }

  const int selector = FormLayout::CellsX(grid::Grid::kSelectorWidth);
  const int indent = FormLayout::CellsX(grid::Grid::kGroupIndent);
  for (int position = g.TopRow(); y < rect.Bottom(); ++position, ++y) {
    auto row = g.RowAt(position);
    if (!row) {
      blank(y, Style{base});
      continue;
    }
    bool current = position == g.Row();
    Style style{base};
    if (current) style.color = focused ? Style::Selection : base, style.reverse = !focused;
    std::string rowStyle = g.RowStyle(position);
    if (rowStyle == "dimmed") style.dim = true;
    if (rowStyle == "bold") style.bold = true;
    blank(y, style);
    if (current) m_t.Put(rect.x, y, m_g.current, style);
    if (row->RowType() == grid::rtGroupHeader) {
      Style groupStyle = style;
      groupStyle.bold = true;
      int x = rect.x + selector + row->GroupLevel() * indent;
      std::string s = std::string(row->Expanded() ? m_g.expanded : m_g.collapsed) + " " + row->GroupCaption() + " (" +
                      std::to_string(row->RecordCount()) + ")";
      PutCut(x, y, rect.x + selector, right, s, groupStyle);
      continue;
    }
    for (size_t i = 0; i < spans.size(); ++i) {
      const auto& span = spans[i];
      int x0 = rect.x + FormLayout::CellsX(span.left);
      int x1 = rect.x + FormLayout::CellsX(span.left + span.width);
      // The last column's text runs on to the grid's edge.
      if (i + 1 == spans.size()) x1 = std::max(x1, right);
      std::string value;
      try {
        value = platform::ToString(row->Value(span.column->Index()));
      } catch (const platform::Error&) {
        value = "#";  // a cell that cannot be read as text
      }
      std::replace(value.begin(), value.end(), '\n', ' ');
      std::replace(value.begin(), value.end(), '\t', ' ');
      PutCut(x0, y, columnsLeft, std::min(right, x1), text::Fit(value, std::max(0, x1 - x0 - 1), m_g.ellipsis), style);
    }
  }
  // Rows above or below those shown: a mark at the right edge.
  if (g.TopRow() > 1) m_t.Put(right - 1, rect.y + (g.GroupByBoxVisible ? 2 : 1), m_g.scrollUp, Style{base});
  if (g.TopRow() + g.VisibleRowCount() <= g.RowCount()) m_t.Put(right - 1, rect.Bottom() - 1, m_g.scrollDown, Style{base});
}

}  // namespace app::terminal
