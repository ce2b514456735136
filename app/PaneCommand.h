#pragma once
#include <string>

namespace app {

/// `annotra pane [PATH]`: the interactive host on the terminal. Opens the solution at
/// PATH (the current folder without one), hands the entry object the per-user settings
/// store and the databases, shows the results pane and lets the person drive it until
/// they quit; then Shutdown. The exit status: 0 done, 3 the solution or the databases
/// could not be opened, 4 there is no terminal to show the pane on.
int RunPaneCommand(const std::string& path);

}  // namespace app
