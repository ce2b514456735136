#pragma once
#include <optional>
#include <string>

#include "platform/suite/ResultFileDialog.h"

namespace app::terminal {

/// The result file dialogs on a terminal: each is an FFileDialog on the dialog's
/// folder with its filter, "&Open" or "&Save" by its mode. What the flags ask (the file
/// must exist, overwrite asks first, the default extension) the dialog applies to the
/// name chosen, asking through message boxes and showing the dialog again.
class TerminalFileDialogs : public platform::suite::FileDialogPresenter {
 public:
  std::optional<std::string> Choose(const platform::suite::ResultFileDialog& dialog) override;
};

}  // namespace app::terminal
