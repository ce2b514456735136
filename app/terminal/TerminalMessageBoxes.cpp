#include "terminal/TerminalMessageBoxes.h"

#include "terminal/FMessageBox.h"

namespace app::terminal {

int TerminalMessageBoxes::Show(const std::string& prompt, int style, const std::string& title) {
  FMessageBox box(prompt, style, title);
  box.Show(platform::forms::vbModal);
  int answer = box.Answer();
  box.Unload();
  return answer;
}

}  // namespace app::terminal
