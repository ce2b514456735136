#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "terminal/PopupMenu.h"

namespace app::terminal {

/// The host's context menu of the results pane, built from what the pane reports when
/// it asks for one (the place under the mouse, "C" and a column index or "G" and a
/// grouping index, the rows, whether a finding is selected, whether the last analysis
/// can run again). Its items carry the entry object's command identifiers: 1 show in
/// code, 3 new analysis, 4 refresh, 5 clear, 6 load, 7 save, 8 print preview, 9 the
/// group-by box, 10 field chooser, 11 group by, 12 sort, 13 hide, 100 + column to group
/// by a column, 200 + grouping to remove it; and two of the host's own, kEdit (the
/// person's editor at the line) and kQuit.
namespace pane_menu {

inline constexpr int kEdit = -1;
inline constexpr int kQuit = -2;

/// The menu's items.
std::vector<PopupMenu::Item> Items(int32_t hitTest, bool groupByBoxVisible, int32_t rowCount, bool isRowSelected,
                                   bool canRefresh, const std::string& hitExtraInfo, bool canEdit);

/// The number after "C" or "G" in `extra`; -1 when `extra` is not `letter` and a
/// number that fits the command range (0 to 99).
int IndexIn(const std::string& extra, char letter);

}  // namespace pane_menu
}  // namespace app::terminal
