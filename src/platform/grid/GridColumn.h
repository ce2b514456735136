#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::grid {

/// How a grouping or a sort key orders its column.
enum SortOrder { soAscending = 1, soDescending = -1 };

/// One column of a grid: the key it is known by (the bound field's name, or a name of
/// its own for a column without a field), its caption, width (twips), place among the
/// columns and visibility. Its index is its 1-based place in the grid's column
/// collection, which does not change when the column is moved on screen.
class GridColumn : public Dispatch {
 public:
  GridColumn(std::string key, int index) : Caption(key), m_key(std::move(key)), m_index(index) {}
  const char* TypeName() const override { return "GridColumn"; }

  const std::string& Key() const { return m_key; }
  /// The 1-based index in the grid's columns.
  int Index() const { return m_index; }
  /// The 1-based place on screen, among all columns (hidden ones too).
  int Position() const { return m_position; }
  /// The field of the bound recordset the column shows; -1 for none.
  int Field() const { return m_field; }

  std::string Caption;
  int Width = 1200;
  bool Visible = true;

  // For the grid.
  void SetIndex(int index) { m_index = index; }
  void SetPosition(int position) { m_position = position; }
  void SetField(int field) { m_field = field; }

 private:
  std::string m_key;
  int m_index;
  int m_position = 0;
  int m_field = -1;
};

/// A column and an order: one grouping of the grid or one of its sort keys.
struct ColumnOrder {
  std::string key;
  int order = soAscending;
  bool operator==(const ColumnOrder&) const = default;
};

/// A condition that formats the record rows whose cell in column `key` reads `value`
/// (as text): `style` "dimmed" or "bold".
struct FormatCondition {
  std::string key;
  std::string value;
  std::string style;
  bool operator==(const FormatCondition&) const = default;
};

}  // namespace platform::grid
