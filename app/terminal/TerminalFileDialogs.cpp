#include "terminal/TerminalFileDialogs.h"

#include "terminal/FFileDialog.h"

namespace app::terminal {

std::optional<std::string> TerminalFileDialogs::Choose(const platform::suite::ResultFileDialog& dialog) {
  std::vector<FFileDialog::Filter> filters;
  for (const auto& entry : dialog.FilterEntries()) filters.push_back({entry.description, entry.pattern});
  bool save = dialog.Mode() == platform::suite::kFileDialogSave;
  FFileDialog form(dialog.Title(), dialog.InitialFolder(), filters, save ? "&Save" : "&Open");
  std::optional<std::string> chosen = form.Run();
  form.Unload();
  return chosen;
}

}  // namespace app::terminal
