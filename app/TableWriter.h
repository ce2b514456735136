#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace app {

/// The columns a terminal shows `text` in: its UTF-8 characters (continuation bytes do
/// not count).
size_t DisplayWidth(const std::string& text);

/// `text` cut to `width` columns, its last column an ellipsis ("…") when anything was
/// cut; as it is when it fits.
std::string FitCell(const std::string& text, size_t width);

/// The widths of table columns that fit `width` (0: no limit) with two blanks between
/// columns, from their `natural` widths (what their widest cell needs). While the table
/// is too wide, the widest of the columns other than `last` loses a column, down to its
/// `minimum`; then `last` does, down to its own. What cannot fit even then stays wider
/// than `width`.
std::vector<size_t> FitColumns(const std::vector<size_t>& natural, const std::vector<size_t>& minimum, size_t last,
                               size_t width);

}  // namespace app
