#include "terminal/FMessageBox.h"

#include <algorithm>

#include "platform/forms/MessageBox.h"
#include "platform/forms/Screen.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace forms = platform::forms;
namespace Screen = forms::Screen;

namespace {
constexpr int kButtonCells = 10;
constexpr int kButtonGap = 2;

struct ButtonSpec {
  const char* caption;
  int answer;
};

std::vector<ButtonSpec> ButtonsOf(int style) {
  switch (style & 7) {
    case forms::vbOKCancel: return {{"&OK", forms::vbOK}, {"&Cancel", forms::vbCancel}};
    case forms::vbYesNoCancel: return {{"&Yes", forms::vbYes}, {"&No", forms::vbNo}, {"&Cancel", forms::vbCancel}};
    case forms::vbYesNo: return {{"&Yes", forms::vbYes}, {"&No", forms::vbNo}};
    default: return {{"&OK", forms::vbOK}};
  }
}

// The mark standing for the icon; "" for none.
std::string IconMark(int style) {
  switch (style & 0x70) {
    case forms::vbCritical: return "(x)";
    case forms::vbQuestion: return "(?)";
    case forms::vbExclamation: return "(!)";
    case forms::vbInformation: return "(i)";
    default: return "";
  }
}
}  // namespace

FMessageBox::FMessageBox(const std::string& prompt, int style, const std::string& title)
    : Form("FMessageBox", title) {
  std::vector<ButtonSpec> specs = ButtonsOf(style);
  m_answer = forms::DefaultAnswer(style);
  m_cancelAnswer = specs.size() == 1 ? forms::vbOK : forms::vbNo;
  for (const ButtonSpec& s : specs)
    if (s.answer == forms::vbCancel) m_cancelAnswer = forms::vbCancel;

  std::string mark = IconMark(style);
  int iconCells = mark.empty() ? 0 : text::Width(mark) + 1;
  int textWidth = 0;
  std::vector<std::string> lines = text::Wrap(prompt, kMaxTextWidth);
  for (const std::string& line : lines) textWidth = std::max(textWidth, text::Width(line));
  int buttonsWidth = static_cast<int>(specs.size()) * (kButtonCells + kButtonGap) - kButtonGap;
  int width = std::max({iconCells + textWidth, buttonsWidth, text::Width(title) + 6}) + 4;
  int rows = std::max(1, static_cast<int>(lines.size()));
  // In cells: a blank row, the prompt, a blank row, the buttons, a blank row.
  Width = width * Screen::TwipsPerCellX;
  Height = (rows + 4) * Screen::TwipsPerCellY;

  lblIcon.Caption = mark;
  lblIcon.Visible = !mark.empty();
  lblIcon.Move(2 * Screen::TwipsPerCellX, Screen::TwipsPerCellY, std::max(1, iconCells) * Screen::TwipsPerCellX,
               Screen::TwipsPerCellY);
  // The prompt is shown as it was given: "&" is no access key here.
  std::string shown;
  for (char c : prompt) shown += c == '&' ? std::string("&&") : std::string(1, c);
  lblPrompt.Caption = shown;
  lblPrompt.Move((2 + iconCells) * Screen::TwipsPerCellX, Screen::TwipsPerCellY, textWidth * Screen::TwipsPerCellX,
                 rows * Screen::TwipsPerCellY);

  int left = (width - buttonsWidth) / 2;
  for (const ButtonSpec& s : specs) {
    auto button = std::make_unique<forms::CommandButton>(*this, std::string("cmd") + forms::PlainCaption(s.caption), s.caption);
    button->Move(left * Screen::TwipsPerCellX, (rows + 2) * Screen::TwipsPerCellY, kButtonCells * Screen::TwipsPerCellX,
                 Screen::TwipsPerCellY);
    int answer = s.answer;
    button->Click.Connect([this, answer] {
      m_answer = answer;
      Hide();
    });
    if (answer == m_answer) {
      button->Default = true;
      m_default = button.get();
    }
    if (answer == m_cancelAnswer) button->Cancel = true;
    left += kButtonCells + kButtonGap;
    buttons.push_back(std::move(button));
  }
}

FMessageBox::~FMessageBox() {
  // The buttons leave the form before it goes.
  buttons.clear();
}

void FMessageBox::Form_Activate() {
  if (m_default) SetFocus(*m_default);
}

void FMessageBox::Form_QueryUnload(int&, int unloadMode) {
  if (unloadMode == forms::vbFormControlMenu) m_answer = m_cancelAnswer;
}

}  // namespace app::terminal
