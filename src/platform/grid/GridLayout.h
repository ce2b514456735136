#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/grid/GridColumn.h"

namespace platform::grid {

/// What a layout file keeps of a grid: its columns (in index order, each with caption,
/// width, place and visibility), the groupings, the sort keys, the row formatting, the
/// group-by box and the page settings. The file is plain text in sections:
///
///     ; Annotra grid layout
///     [Grid]
///     GroupByBoxVisible=0
///     [Column Problem]
///     Caption=Problem
///     Width=4800
///     Position=9
///     Visible=1
///     [Groups]
///     ascending Problem
///     [Sort]
///     descending Start
///     [Conditions]
///     dimmed Flag=2
///     [Print]
///     Orientation=2
///     FitColumns=1
///
/// Lines starting with ";" are comments; a caption escapes "\" and line breaks as
/// "\\", "\n". Sections and keys it does not know are an error, so a misspelt setting
/// is found rather than ignored.
struct GridLayout {
  struct Column {
    std::string key;
    std::string caption;
    int width = 1200;
    int position = 0;  // 0: after the others
    bool visible = true;
    bool operator==(const Column&) const = default;
  };
  std::vector<Column> columns;
  std::vector<ColumnOrder> groups;
  std::vector<ColumnOrder> sortKeys;
  std::vector<FormatCondition> conditions;
  bool groupByBoxVisible = false;
  bool continuousScroll = true;
  int orientation = 1;
  bool fitColumns = false;
  bool operator==(const GridLayout&) const = default;
};

/// The text of a layout file.
std::string FormatLayout(const GridLayout& layout);
/// Reads the text of a layout file; `name` names it in messages. Fails with 5 and a
/// description "name:line: what is wrong" for text that is no layout.
GridLayout ParseLayout(std::string_view text, const std::string& name);
/// Reads the layout file at `path`: 53 when it does not exist, 75 when it cannot be
/// read, 5 when it is no layout.
GridLayout ReadLayoutFile(const std::string& path);
/// Writes the layout file at `path` whole or not at all (a temporary file renamed over
/// it); 75 when it cannot be written.
void WriteLayoutFile(const GridLayout& layout, const std::string& path);

}  // namespace platform::grid
