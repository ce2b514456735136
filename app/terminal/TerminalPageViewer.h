#pragma once
#include <string>

#include "platform/suite/PageViewer.h"

namespace app::terminal {

class Terminal;

/// Shows a page (the print preview) from the terminal host. With a display, as the
/// desktop does (DesktopPageViewer). Without one (a terminal over SSH), the first
/// text-mode browser named in $BROWSER (w3m, lynx, links, elinks, browsh) runs on the
/// terminal itself, which is given back to it while it runs. False when nothing could
/// show the page, so that the preview says where the page is.
class TerminalPageViewer : public platform::suite::PageViewer {
 public:
  explicit TerminalPageViewer(Terminal& terminal) : m_terminal(terminal) {}
  bool Open(const std::string& path) override;

  /// Whether `program` (a name or a path) is a browser that runs in a terminal.
  static bool IsTextBrowser(const std::string& program);

 private:
  Terminal& m_terminal;
};

}  // namespace app::terminal
