#include "platform/suite/GridTools.h"

#include "platform/core/Error.h"
#include "platform/grid/Grid.h"
#include "platform/suite/FGridColumns.h"

namespace platform::suite {

void GridTools::GroupByThisColumn(grid::Grid& grid, int columnIndex, bool showGroupByBox) {
  auto column = grid.Column(columnIndex);
  auto groups = grid.Groups();
  bool grouped = false;
  for (auto& g : groups) grouped = grouped || g.key == column->Key();
  if (!grouped) {
    groups.push_back({column->Key(), grid::soAscending});
    grid.SetGroups(groups);
  }
  if (showGroupByBox) grid.GroupByBoxVisible = true;
}

void GridTools::RemoveGrouping(grid::Grid& grid, int groupIndex, bool showGroupByBox) {
  auto groups = grid.Groups();
  if (groupIndex < 1 || groupIndex > static_cast<int>(groups.size()))
    throw Error(err::kInvalidCall, "No grouping has the index " + std::to_string(groupIndex));
  groups.erase(groups.begin() + (groupIndex - 1));
  grid.SetGroups(groups);
  if (showGroupByBox) grid.GroupByBoxVisible = true;
}

bool GridTools::GroupByDialog(grid::Grid& grid, int option) {
  FGridColumns dialog(FGridColumns::GroupBy, grid, option == 1, m_settings);
  return dialog.Run();
}

bool GridTools::FieldChooser(grid::Grid& grid) {
  FGridColumns dialog(FGridColumns::Fields, grid, false, m_settings);
  return dialog.Run();
}

bool GridTools::SortDialog(grid::Grid& grid) {
  FGridColumns dialog(FGridColumns::Sort, grid, false, m_settings);
  return dialog.Run();
}

}  // namespace platform::suite
