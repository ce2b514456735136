#pragma once
#include <string>

#include "platform/forms/CommandButton.h"

namespace annotra {

/// A button of a command bar: its command identifier, caption, tooltip, icon, display
/// style, and whether a separator sets it off from the buttons before it. It takes no
/// focus; a click executes its command.
class ToolbarButton : public platform::forms::CommandButton {
 public:
  ToolbarButton(platform::forms::Control& bar, int id, std::string caption, std::string toolTip,
                std::string icon, bool beginGroup)
      : CommandButton(bar, "ID_" + std::to_string(id), std::move(caption)),
        Id(id), ToolTipText(std::move(toolTip)), Icon(std::move(icon)), BeginGroup(beginGroup) {
    TabStop = false;
  }
  const char* TypeName() const override { return "ToolbarButton"; }
  bool CanFocus() const override { return false; }

  const int Id;
  std::string ToolTipText;
  std::string Icon;
  bool BeginGroup;
  /// How the button shows itself (0 the bar's default; 2 icon and caption).
  int Style = 0;
};

}  // namespace annotra
