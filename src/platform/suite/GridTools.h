#pragma once
#include <memory>

#include "platform/core/Ref.h"

namespace platform::grid {
class Grid;
}

namespace platform::suite {

class SettingsStore;

/// The suite's grid helper: grouping by a column and removing a grouping, and the
/// dialogs to group, choose the fields and sort (FGridColumns). It is made for each
/// command and initialised with the per-user settings store, where the dialogs keep
/// their places.
class GridTools : public Dispatch {
 public:
  const char* TypeName() const override { return "GridTools"; }
  void Init(std::shared_ptr<SettingsStore> settings) { m_settings = std::move(settings); }

  /// Adds the column with 1-based `columnIndex` as the innermost grouping (nothing
  /// when the grid is grouped by it already); with `showGroupByBox` the group-by box
  /// shows, so the grouping can be seen and removed. 5 for no such column.
  void GroupByThisColumn(grid::Grid& grid, int columnIndex, bool showGroupByBox);
  /// Removes the grouping with 1-based `groupIndex`; with `showGroupByBox` the box
  /// shows. 5 for no such grouping.
  void RemoveGrouping(grid::Grid& grid, int groupIndex, bool showGroupByBox);
  /// The group-by dialog; `option` 1 offers only the visible columns, 0 all of them.
  /// True when the user confirmed.
  bool GroupByDialog(grid::Grid& grid, int option);
  /// The field chooser: which columns show, in which order. True when confirmed.
  bool FieldChooser(grid::Grid& grid);
  /// The sort dialog. True when confirmed.
  bool SortDialog(grid::Grid& grid);

 private:
  std::shared_ptr<SettingsStore> m_settings;
};

}  // namespace platform::suite
