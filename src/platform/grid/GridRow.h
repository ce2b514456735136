#pragma once
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/core/Variant.h"

namespace platform::grid {

/// Row types: a record of the bound recordset, or the row heading a group.
enum RowType { rtRecord = 0, rtGroupHeader = 1 };

/// What a grid shows in one of its rows, as it stood when the row was asked for: a
/// record with its cells, or a group row with the grouped column, its value, the
/// number of records in the group and whether it is expanded.
class GridRow : public Dispatch {
 public:
  const char* TypeName() const override { return "GridRow"; }

  /// rtRecord or rtGroupHeader.
  int RowType() const { return m_type; }
  /// The 1-based position among the rows shown.
  int Position() const { return m_position; }
  /// How deep the row sits: a group row of the first grouping is at 0, its inner group
  /// rows at 1, ...; a record at the number of groupings.
  int GroupLevel() const { return m_level; }
  /// The cell of the column with 1-based `columnIndex`: for a record its value, for a
  /// group row the group's value in the grouped column and Empty in the others. Fails
  /// with 5 for an index that names no column.
  Variant Value(int columnIndex) const;
  /// A record's position in the bound recordset (0-based); -1 for a group row.
  int RecordPosition() const { return m_record; }

  // Group rows.
  /// The key of the grouped column; "" for a record.
  const std::string& GroupColumn() const { return m_groupColumn; }
  /// "Caption: value" of the group; "" for a record.
  const std::string& GroupCaption() const { return m_groupCaption; }
  /// The number of records in the group (inner groups included); 0 for a record.
  int RecordCount() const { return m_count; }
  bool Expanded() const { return m_expanded; }

  // For the grid.
  GridRow(int type, int position, int level, std::vector<Variant> cells, int record)
      : m_type(type), m_position(position), m_level(level), m_cells(std::move(cells)), m_record(record) {}
  void SetGroup(std::string column, std::string caption, int count, bool expanded) {
    m_groupColumn = std::move(column);
    m_groupCaption = std::move(caption);
    m_count = count;
    m_expanded = expanded;
  }

 private:
  int m_type;
  int m_position;
  int m_level;
  std::vector<Variant> m_cells;  // by column index - 1
  int m_record;
  std::string m_groupColumn;
  std::string m_groupCaption;
  int m_count = 0;
  bool m_expanded = false;
};

}  // namespace platform::grid
