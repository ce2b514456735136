#pragma once
#include <string>
#include <vector>

#include "terminal/FormLayout.h"
#include "terminal/Layer.h"

namespace app::terminal {

class EventLoop;

/// A pop-up menu of the host: items with captions (an access key after "&"), the key
/// that does the same shown on the right, and separators; disabled items are dim and
/// cannot be chosen. It opens at a cell (moved to stay on the screen) with the first
/// item that can be chosen highlighted. Up and Down move the highlight, Enter or an
/// access key chooses, Escape or F10 closes; the mouse highlights what it is over and
/// chooses with a click, and a press outside closes the menu.
class PopupMenu : public Layer {
 public:
  struct Item {
    std::string caption;  // "" with id 0: a separator
    int id = 0;
    bool enabled = true;
    std::string shortcut;
  };

  PopupMenu(std::vector<Item> items, int x, int y);

  /// Shows the menu over what the loop shows and waits for the choice: the chosen
  /// item's id, 0 when the menu was closed without one.
  int Run(EventLoop& loop);

  /// Where the menu lies on a screen of that size (its border included).
  CellRect Box(int columns, int rows) const;
  void Draw(Terminal& terminal, bool active) override;
  void Input(const InputEvent& event) override;

  int Highlighted() const { return m_highlight; }

 private:
  bool Choosable(int i) const;
  void MoveHighlight(int by);
  void Choose(int i);

  std::vector<Item> m_items;
  int m_x, m_y;
  int m_columns = 80, m_rows = 24;  // of the screen last drawn on
  int m_highlight = -1;
  bool m_open = true;
  int m_chosen = 0;
  bool m_pressedInside = false;
};

}  // namespace app::terminal
