#pragma once
#include <cstdint>
#include <string>

#include "platform/core/Event.h"
#include "platform/forms/UserControl.h"
#include "pane/CommandBarsFrame.h"

namespace annotra {

/// The toolbar of the results pane: a command-bar frame `tbr` whose bar "Standard"
/// carries seven buttons (New, Refresh | Previous, Next | Expand All, Collapse All |
/// Clear All). It knows nothing of what the commands do: every click is reported as
/// CommandClicked with the button's command identifier.
class ctlTbrResults : public platform::forms::UserControl {
 public:
  // The command identifiers: one range, 1020 to 1027 for commands, 1028 the toolbar.
  static constexpr int32_t ID_NEWSEARCH = 1020;
  static constexpr int32_t ID_REFRESH = 1021;
  static constexpr int32_t ID_EXPANDALL = 1022;
  static constexpr int32_t ID_COLLAPSEALL = 1023;
  static constexpr int32_t ID_HIGHLIGHTMATCHES = 1024;  // has no button
  static constexpr int32_t ID_CLEARALL = 1025;
  static constexpr int32_t ID_PREVIOUS = 1026;
  static constexpr int32_t ID_NEXT = 1027;
  static constexpr int32_t IDR_STANDARD = 1028;

  ctlTbrResults(platform::forms::Form& owner, std::string name);
  const char* TypeName() const override { return "ctlTbrResults"; }

  /// A button was clicked: its command identifier.
  platform::Event<int32_t&> CommandClicked;
  /// Lays the frame out again (as the control does when it is resized). It hides the
  /// Resize event of controls, which the control raises all the same.
  void Resize();

  CommandBarsFrame tbr{*this, "tbr"};

  /// The caption the frame's list of all commands gives the first command.
  static constexpr const char* kNewSearchListCaption = "New Search";

 private:
  void UserControl_Initialize();
  void UserControl_Resize();
  void tbr_Execute(ToolbarButton& control);
};

}  // namespace annotra
