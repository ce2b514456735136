#include "pane/ctlTbrResults.h"

#include "host/Steps.h"

namespace annotra {

ctlTbrResults::ctlTbrResults(platform::forms::Form& owner, std::string name) : UserControl(owner, std::move(name)) {
  UserControl_Initialize();
  Control::Resize.Connect([this] { UserControl_Resize(); });
  tbr.Execute.Connect([this](ToolbarButton& control) { tbr_Execute(control); });
}

void ctlTbrResults::UserControl_Initialize() {
  Steps step("Quillmark.ctlTbrResults.UserControl_Initialize");
  // 1: the bars of the design.
  step(1, [&] {
    tbr.AddBar("Menu Bar", 0);
    int standard = tbr.AddBar("Standard", IDR_STANDARD);
    tbr.AddButton(standard, ID_NEWSEARCH, "New", "New comments analysis", "new", false);
    tbr.AddButton(standard, ID_REFRESH, "Refresh", "Refresh", "refresh", false);
    tbr.AddButton(standard, ID_PREVIOUS, "Previous", "Previous", "previous", true);
    tbr.AddButton(standard, ID_NEXT, "Next", "Next", "next", false);
    tbr.AddButton(standard, ID_EXPANDALL, "Expand All", "Expand All Groups", "expandall", true);
    tbr.AddButton(standard, ID_COLLAPSEALL, "Collapse All", "Collapse All Groups", "collapseall", false);
    tbr.AddButton(standard, ID_CLEARALL, "Clear All", "Clear results", "clearall", true);
  });
  step(2, [&] { tbr.VisualTheme = 4; });
  step(3, [&] {
    int left, top, right, bottom;
    tbr.BarRect(2, left, top, right, bottom);
    tbr.Move(0, 0, ScaleWidth(), bottom - top);
    Height = tbr.Height;
  });
  step(4, [&] {
    for (ToolbarButton* button : tbr.Bars(2).Controls) button->Style = 2;
  });
}

void ctlTbrResults::UserControl_Resize() {
  Quietly([&] {
    // The frame starts a grip's width beyond the left edge, hiding the grip, and ends
    // at the right edge.
    tbr.Move(-CommandBarsFrame::kGripWidth, 0, ScaleWidth() + CommandBarsFrame::kGripWidth, -1);
  });
}

void ctlTbrResults::Resize() { UserControl_Resize(); }

void ctlTbrResults::tbr_Execute(ToolbarButton& control) {
  Steps step("Quillmark.ctlTbrResults.tbr_Execute");
  int32_t id = 0;
  step(1, [&] { id = control.Id; });
  step(2, [&] { CommandClicked.Raise(id); });
}

}  // namespace annotra
