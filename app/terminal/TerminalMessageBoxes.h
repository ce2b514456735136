#pragma once
#include <string>

#include "platform/forms/MessageBox.h"

namespace app::terminal {

/// Message boxes on a terminal: each is an FMessageBox shown modally through the
/// presenter in use, over whatever the screen shows.
class TerminalMessageBoxes : public platform::forms::MessageBoxPresenter {
 public:
  int Show(const std::string& prompt, int style, const std::string& title) override;
};

}  // namespace app::terminal
