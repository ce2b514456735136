#pragma once
#include <string>

#include "terminal/FormLayout.h"

namespace platform::suite {
class ScopeSelector;
class VsTabAreaEx;
}  // namespace platform::suite

namespace app::terminal {

/// The parts of controls and windows that both drawing and input must agree on.
namespace geometry {

/// The window around a client area: one cell of border each way.
CellRect WindowOf(const CellRect& client);
/// The close box on the top border: three cells left of the top-right corner.
CellRect CloseBoxOf(const CellRect& client);

/// The list of a dropped-down scope selector: below the box (above it when there is
/// no room below), as wide as the box, one row per scope, kept on a screen of
/// `screenRows` rows.
CellRect ScopeListOf(const CellRect& box, int scopes, int screenRows);

/// The lines inside a tree view: inside its border when it is tall and wide enough to
/// have one.
bool TreeHasBorder(const CellRect& rect);
CellRect TreeInnerOf(const CellRect& rect);

/// The cells of tab `index` (from 1) in the strip's row of tabs.
CellRect TabOf(const platform::suite::VsTabAreaEx& strip, const CellRect& rect, int index);

/// The column of the access key in `caption` without its marks ("&Begin" gives 0); -1
/// when it has none.
int AccessColumn(const std::string& caption);

}  // namespace geometry
}  // namespace app::terminal
