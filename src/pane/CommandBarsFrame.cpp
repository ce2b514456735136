#include "pane/CommandBarsFrame.h"

#include "platform/core/Error.h"
#include "platform/forms/Screen.h"

namespace annotra {

namespace {
constexpr int kCell = platform::forms::Screen::TwipsPerCellX;
int CharCount(const std::string& text) {
  int n = 0;
  for (unsigned char c : text)
    if ((c & 0xC0) != 0x80) ++n;
  return n;
}
}  // namespace

int CommandBarsFrame::AddBar(std::string title, int id) {
  m_bars.push_back({std::move(title), id, {}});
  return BarCount();
}

const CommandBarsFrame::Bar& CommandBarsFrame::Bars(int index) const {
  if (index < 1 || index > BarCount()) throw platform::Error(platform::err::kInvalidCall, "No bar has the index " + std::to_string(index));
  return m_bars[static_cast<size_t>(index - 1)];
}

ToolbarButton& CommandBarsFrame::AddButton(int bar, int id, std::string caption, std::string toolTip,
                                           std::string icon, bool beginGroup) {
  Bars(bar);
  m_buttons.push_back(std::make_unique<ToolbarButton>(*this, id, std::move(caption), std::move(toolTip),
                                                      std::move(icon), beginGroup));
  ToolbarButton& button = *m_buttons.back();
  m_bars[static_cast<size_t>(bar - 1)].Controls.push_back(&button);
  button.Click.Connect([this, &button] { Execute.Raise(button); });
  LayOut(bar);
  return button;
}

void CommandBarsFrame::BarRect(int index, int& left, int& top, int& right, int& bottom) const {
  const Bar& bar = Bars(index);
  left = 0;
  top = 0;
  right = 0;
  bottom = 0;
  if (bar.Controls.empty()) return;
  const ToolbarButton* last = bar.Controls.back();
  right = last->Left + last->Width;
  bottom = kBarHeight;
}

void CommandBarsFrame::LayOut(int bar) {
  // Each button is its caption with a blank cell either side; a separator takes a cell.
  int x = kGripWidth;
  for (ToolbarButton* button : m_bars[static_cast<size_t>(bar - 1)].Controls) {
    if (button->BeginGroup && x > kGripWidth) x += kCell;
    button->Move(x, 0, (CharCount(button->Caption) + 2) * kCell, kBarHeight);
    x += button->Width;
  }
}

}  // namespace annotra
