#include "terminal/TerminalPageViewer.h"

#include <cstdlib>

#include "terminal/ExternalEditor.h"

namespace app::terminal {

bool TerminalPageViewer::IsTextBrowser(const std::string& program) {
  std::string name = program.substr(program.rfind('/') == std::string::npos ? 0 : program.rfind('/') + 1);
  for (const char* known : {"w3m", "lynx", "links", "links2", "elinks", "browsh", "www-browser"})
    if (name == known) return true;
  return false;
}

bool TerminalPageViewer::Open(const std::string& path) {
  // With a display, the desktop's browser (or the first of $BROWSER that starts).
  if (std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY")) return platform::suite::DesktopPageViewer().Open(path);
  for (const std::string& browser : platform::suite::PageViewer::UsersBrowsers()) {
    std::vector<std::string> command = ExternalEditor::Split(browser);
    if (command.empty() || !IsTextBrowser(command.front())) continue;
    command.push_back(path);
    std::string error;
    if (ExternalEditor::Run(m_terminal, command, error) >= 0) return true;
  }
  return false;
}

}  // namespace app::terminal
