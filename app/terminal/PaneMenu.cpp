#include "terminal/PaneMenu.h"

namespace app::terminal::pane_menu {

int IndexIn(const std::string& extra, char letter) {
  if (extra.size() < 2 || extra.size() > 3 || extra[0] != letter) return -1;
  int n = 0;
  for (size_t i = 1; i < extra.size(); ++i) {
    if (extra[i] < '0' || extra[i] > '9') return -1;
    n = n * 10 + (extra[i] - '0');
  }
  return n;
}

std::vector<PopupMenu::Item> Items(int32_t hitTest, bool groupByBoxVisible, int32_t rowCount, bool isRowSelected,
                                   bool canRefresh, const std::string& extra, bool canEdit) {
  (void)hitTest;  // what the place allows is told by the other values
  std::vector<PopupMenu::Item> items;
  const PopupMenu::Item separator{};
  items.push_back({"&Show in code", 1, isRowSelected, "Enter"});
  items.push_back({"&Edit in your editor", kEdit, canEdit, "e"});
  items.push_back(separator);
  items.push_back({"&New analysis...", 3, true, "Ctrl+N"});
  items.push_back({"&Refresh", 4, canRefresh, "F5"});
  items.push_back(separator);
  if (int column = IndexIn(extra, 'C'); column >= 0) items.push_back({"&Group by this column", 100 + column, true, ""});
  if (int group = IndexIn(extra, 'G'); group >= 0) items.push_back({"Remove this &grouping", 200 + group, true, ""});
  items.push_back({groupByBoxVisible ? "Hide group-by bo&x" : "Show group-by bo&x", 9, true, ""});
  items.push_back({"Group &by...", 11, true, ""});
  items.push_back({"S&ort...", 12, true, ""});
  items.push_back({"&Field chooser...", 10, true, ""});
  items.push_back(separator);
  items.push_back({"&Clear", 5, rowCount > 0, ""});
  items.push_back({"&Load from file...", 6, true, "Ctrl+O"});
  items.push_back({"Sa&ve to file...", 7, true, "Ctrl+S"});
  items.push_back({"&Print preview", 8, true, "Ctrl+P"});
  items.push_back(separator);
  items.push_back({"&Hide the pane", 13, true, ""});
  items.push_back({"&Quit", kQuit, true, "q"});
  return items;
}

}  // namespace app::terminal::pane_menu
