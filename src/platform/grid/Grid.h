#pragma once
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"
#include "platform/core/Variant.h"
#include "platform/forms/Control.h"
#include "platform/forms/Font.h"
#include "platform/forms/Screen.h"
#include "platform/grid/GridColumn.h"
#include "platform/grid/GridLayout.h"
#include "platform/grid/GridPrinterSettings.h"
#include "platform/grid/GridRow.h"

namespace platform::dao {
class Recordset;
}

namespace platform::grid {

/// The parts of a grid a point can fall on (HitTest).
enum GridArea {
  gaNothing = 0,          // outside the grid
  gaGroupByBoxEntry = 1,  // a grouping in the group-by box
  gaColumnHeader = 2,     // a column's header
  gaGroupByBox = 3,       // the group-by box beside its entries
  gaRowSelector = 4,      // the selector at the left of a row
  gaRow = 5,              // a row (record or group row)
  gaHeaderBlank = 6,      // the header line beside the column headers
  gaNoRows = 7,           // the part below the last row
};

/// One entry of the group-by box as it is drawn: the grouping's 1-based index, its
/// caption and its place (twips from the grid's left edge).
struct GroupByBoxEntry {
  int index;
  std::string caption;
  int left;
  int width;
};

/// A visible column as it is drawn: the column and its place (twips from the grid's
/// left edge).
struct ColumnSpan {
  Ref<GridColumn> column;
  int left;
  int width;
};

/// A grid of rows bound to a DAO recordset: columns keyed by field name, records
/// grouped by an ordered list of columns under group rows (with their counts, expanded
/// or collapsed) and sorted; a current row; a cell changed through the grid is written
/// back to its record. The rows shown are numbered from 1, records and group rows
/// alike. The grid holds the records' cells once; the recordset keeps only its keys.
/// It reads the records when something first needs them (a row, a cell, a grouping, a
/// point, a key), not when it is bound: a grid bound for a run that never shows its
/// rows costs no memory for them.
///
/// Geometry, in twips from the grid's top-left corner, one terminal cell per line: the
/// group-by box (when shown) is the first line, the column headers the next, then one
/// line per row from TopRow on. A row starts with its selector (kSelectorWidth);
/// columns start after the selector and one kGroupIndent per grouping; a group row is
/// drawn from its level's indent on. The selector and an indent are two cells wide, so
/// that a terminal draws them whole.
class Grid : public forms::Control {
 public:
  static constexpr int kLineHeight = forms::Screen::TwipsPerCellY;
  static constexpr int kSelectorWidth = 2 * forms::Screen::TwipsPerCellX;
  static constexpr int kGroupIndent = 2 * forms::Screen::TwipsPerCellX;

  Grid(forms::Form& owner, std::string name);
  Grid(forms::Control& container, std::string name);
  ~Grid() override;
  const char* TypeName() const override { return "Grid"; }

  // --- Layout files ------------------------------------------------------------------
  /// Loads a layout file: columns, groupings, sort keys, row formatting, group-by box,
  /// page settings. The grid lets go of its recordset and rows (a layout is bound
  /// afresh). Fails (53, 75, 5; see ReadLayoutFile) leaving the grid as it was.
  void LoadLayoutFile(const std::string& path);
  /// Writes the grid's layout to a file (whole or not at all); 75 when it cannot.
  void SaveLayoutFile(const std::string& path) const;
  /// The layout as it stands, and applying one: a bound grid keeps its records and
  /// shows them in the new layout; fields the layout does not name become visible
  /// columns after its own.
  GridLayout Layout() const;
  void ApplyLayout(const GridLayout& layout);

  // --- Binding -------------------------------------------------------------------------
  /// Binds the grid to `recordset`, whose rows it reads at their first use; the first row
  /// becomes current.
  /// With KeepColumns the columns stay as they are (fields without a column are
  /// added); otherwise they are made afresh from the fields. Fails with the
  /// recordset's error, leaving the grid unbound.
  void Bind(Ref<dao::Recordset> recordset);
  /// Lets go of the recordset and its rows.
  void Unbind();
  bool IsBound() const { return m_recordset != nullptr; }
  Ref<dao::Recordset> Recordset() const { return m_recordset; }
  /// The binding option: keep the columns when binding (see Bind).
  bool KeepColumns = false;
  /// Drops the rows read (before a new binding or a refetch); the recordset stays.
  void ClearRows();
  /// Reads the rows again from what the bound table holds now. Nothing for an unbound
  /// grid. Fails with the recordset's error (after raising Error).
  void Refetch();

  // --- Rows ----------------------------------------------------------------------------
  /// The number of rows shown (records and group rows).
  int RowCount() const {
    Materialize();
    return static_cast<int>(m_rows.size());
  }
  /// The current row's position; 0 when there is none.
  int Row() const { return m_row; }
  /// Makes row `position` current (and scrolls it into view); 5 outside 1..RowCount.
  void SetRow(int position);
  /// The row at `position`; none outside 1..RowCount.
  Ref<GridRow> RowAt(int position) const;
  /// Whether the row at `position` is a group row.
  bool IsGroupRow(int position) const;
  /// The first row drawn, and how many rows the grid's height shows (at least 1).
  int TopRow() const { return m_topRow; }
  void SetTopRow(int position);
  int VisibleRowCount() const;
  /// The style of the record at `position` from the format conditions: "dimmed",
  /// "bold" or "".
  std::string RowStyle(int position) const;

  /// The current record's cell in column `columnIndex` (a change not yet written
  /// included); 3021 without a current record.
  Variant Value(int columnIndex) const;
  /// Changes the current record's cell; written to the table by Update. 3021 without a
  /// current record, 5 for a column without a field.
  void SetValue(int columnIndex, const Variant& value);
  /// Writes the changed cells of the record to its row of the bound table. On failure
  /// raises Error, shows the grid's message unless a handler set the response to 0,
  /// drops the change and throws.
  void Update();
  /// 1 while a changed cell waits for Update, else 0.
  int EditMode() const { return m_editRecord >= 0 ? 1 : 0; }

  // --- Columns -------------------------------------------------------------------------
  int ColumnCount() const { return static_cast<int>(m_columns.size()); }
  /// The column with 1-based `index`; 5 when there is none.
  Ref<GridColumn> Column(int index) const;
  /// The column keyed `key`; 3265 when there is none.
  Ref<GridColumn> Column(const std::string& key) const;
  /// The column keyed `key`; none when there is none.
  Ref<GridColumn> FindColumn(const std::string& key) const;
  /// Adds a column without a field (or for a field of that name when bound).
  Ref<GridColumn> AddColumn(const std::string& key, const std::string& caption);
  /// Moves a column to 1-based `position` among all columns; the others keep their
  /// order.
  void MoveColumn(const std::string& key, int position);
  /// The visible columns in their order on screen, with their places (scrolled: a
  /// column may begin left of the columns' area or end beyond the grid's width; a
  /// host draws the part between).
  std::vector<ColumnSpan> VisibleColumns() const;
  /// How far the columns are scrolled to the left (twips), kept between 0 and what
  /// shows the last column's right edge.
  int ScrollLeft() const { return m_scrollLeft; }
  void SetScrollLeft(int twips);
  /// Where the columns' area begins: after the selector and the groups' indents.
  int ColumnsLeft() const;

  // --- Grouping and sorting ------------------------------------------------------------
  /// The groupings, outermost first.
  const std::vector<ColumnOrder>& Groups() const { return m_groups; }
  /// Groups the records by these columns (5 for a key that names no column, or a
  /// column named twice). Group rows start expanded.
  void SetGroups(std::vector<ColumnOrder> groups);
  /// The sort keys applied to the records inside their groups.
  const std::vector<ColumnOrder>& SortKeys() const { return m_sortKeys; }
  void SetSortKeys(std::vector<ColumnOrder> keys);
  bool GroupByBoxVisible = false;
  /// The group-by box's entries as drawn.
  std::vector<GroupByBoxEntry> GroupByBoxEntries() const;
  /// Expands or collapses every group.
  void ExpandAll();
  void CollapseAll();
  /// Expands or collapses the group row at `position`; nothing for a record.
  void SetExpanded(int position, bool expanded);
  /// Makes the group rows follow the records' current values (after cells changed);
  /// expanded and collapsed groups stay so.
  void RefreshGroups();

  // --- Looks ---------------------------------------------------------------------------
  /// The font of the column headers (the rows use the control's Font).
  forms::Font HeaderFont;
  /// Whether the rows follow the scroll box while it is dragged.
  bool ContinuousScroll = true;
  /// Row formatting by cell values.
  std::vector<FormatCondition> FormatConditions;
  GridPrinterSettings& PrinterSettings() { return m_printer; }
  const GridPrinterSettings& PrinterSettings() const { return m_printer; }

  // --- Points --------------------------------------------------------------------------
  /// The part of the grid under (x, y) (twips from the grid's corner): a GridArea.
  int HitTest(int x, int y) const;
  /// The position of the row under the point; 0 when there is none.
  int RowFromPoint(int x, int y) const;
  /// The visible column under the point (its header or its cells); none when there is
  /// none.
  Ref<GridColumn> ColumnFromPoint(int x, int y) const;
  /// The 1-based index of the grouping whose group-by box entry is under the point; 0
  /// when there is none.
  int GroupFromPoint(int x, int y) const;

  // --- Events and the user -------------------------------------------------------------
  /// A data operation failed: the error's number and description, and the response
  /// (1: the grid shows its own message; a handler sets 0 to stop that).
  platform::Event<int, const std::string&, int&> Error;

  /// A press on a row makes it current; a press on a group row's sign (left of its
  /// caption) expands or collapses it. Then MouseDown is raised.
  bool UserMouseDown(int button, int x, int y, int shift = 0) override;
  /// DblClick is raised; then a double click on a group row expands or collapses it.
  bool UserDblClick(int x, int y) override;
  /// KeyDown is raised; what its handlers leave moves the current row: Up, Down, Page
  /// Up, Page Down, Home, End; Left and Right collapse and expand a group row and
  /// scroll the columns on a record.
  bool UserKey(int& keyCode, int shift) override;

  /// Bytes held for the records (cells, strings and bookkeeping), for benchmarks; 0 for
  /// a grid whose records were not read yet.
  size_t MemoryUsed() const;

 private:
  struct Group {
    int level;
    int column;  // index into m_columns
    Variant value;
    int32_t first, count;  // range of m_order
    bool expanded;
    std::vector<int> children;  // inner groups
    std::string path;           // identifies the group across rebuilds
  };

  void Init();
  void Renumber();
  void MapFields();
  void ReadRows();
  /// Reads the records of a binding not read yet, and builds the rows from them. A
  /// failure to read raises Error and leaves the grid without rows.
  void Materialize() const;
  void Rebuild();
  void Flatten();
  void Emit(int group);
  void RaiseError(const platform::Error& e);
  const Variant& Cell(int32_t record, const GridColumn& column) const;
  int RowsTop() const;
  int Columns(const std::vector<ColumnOrder>& keys, std::vector<int>& out) const;

  Ref<dao::Recordset> m_recordset;
  std::vector<std::string> m_fieldNames;
  std::vector<Variant> m_cells;      // record r, field f at r * fields + f
  std::vector<int32_t> m_positions;  // each record's position in the recordset
  std::vector<std::shared_ptr<GridColumn>> m_columns;
  std::vector<ColumnOrder> m_groups;
  std::vector<ColumnOrder> m_sortKeys;
  std::vector<int32_t> m_order;  // records in the order shown
  std::vector<Group> m_groupNodes;
  std::vector<int> m_topGroups;
  std::set<std::string> m_collapsed;
  std::vector<int32_t> m_rows;  // >= 0 a record, < 0 group -(n + 1)
  int m_row = 0;
  int m_topRow = 1;
  int m_scrollLeft = 0;
  int32_t m_editRecord = -1;
  // Bound, its records not read yet (see Materialize).
  bool m_unread = false;
  std::vector<std::pair<int, Variant>> m_edits;  // field, value
  GridPrinterSettings m_printer;
};

/// Orders two cell values as the grid sorts them: empty first, then numbers by value,
/// then text without regard to ASCII case (then by bytes); negative, 0 or positive.
int CompareCells(const Variant& a, const Variant& b);

}  // namespace platform::grid
