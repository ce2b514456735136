#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/forms/UserControl.h"
#include "pane/ToolbarButton.h"

namespace annotra {

/// A frame of command bars: numbered bars (from 1), each with a title, an identifier
/// and its buttons, laid out from the frame's left edge after a grip of kGripWidth
/// twips, one terminal line high; a separator cell stands before each button that
/// begins a group. Clicking a button raises Execute with it.
class CommandBarsFrame : public platform::forms::UserControl {
 public:
  static constexpr int kGripWidth = 45;
  static constexpr int kBarHeight = 240;

  struct Bar {
    std::string Title;
    int Id = 0;
    std::vector<ToolbarButton*> Controls;
  };

  using UserControl::UserControl;
  const char* TypeName() const override { return "CommandBarsFrame"; }

  /// Adds a bar; returns its 1-based index.
  int AddBar(std::string title, int id);
  /// Adds a button to bar `bar` (1-based) and lays the bar out.
  ToolbarButton& AddButton(int bar, int id, std::string caption, std::string toolTip, std::string icon,
                           bool beginGroup);
  int BarCount() const { return static_cast<int>(m_bars.size()); }
  /// Bar `index` (1-based); fails with 5 for no such bar.
  const Bar& Bars(int index) const;
  /// The window rectangle of bar `index` (twips, in the frame): a bar without
  /// buttons takes no room.
  void BarRect(int index, int& left, int& top, int& right, int& bottom) const;

  /// The look of the bars (the library's theme number).
  int VisualTheme = 0;
  /// A button was clicked.
  platform::Event<ToolbarButton&> Execute;

 private:
  void LayOut(int bar);
  std::vector<Bar> m_bars;
  std::vector<std::unique_ptr<ToolbarButton>> m_buttons;
};

}  // namespace annotra
