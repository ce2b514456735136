#include "platform/automation/StatusBar.h"

#include <unistd.h>

#include <cstdio>

#include "platform/core/StderrLine.h"

namespace platform::automation {

StatusBar::StatusBar() : m_draw(isatty(STDERR_FILENO) != 0) {}

void StatusBar::SetText(const std::string& text) { m_text = text; }

void StatusBar::Progress(bool inProgress, const std::string& label, int32_t amountCompleted,
                         int32_t total) {
  bool wasInProgress = m_inProgress;
  m_inProgress = inProgress;
  m_label = inProgress ? label : "";
  m_amount = inProgress ? amountCompleted : 0;
  m_total = inProgress ? total : 0;
  if (!m_draw) return;
  if (inProgress) {
    Draw();
  } else if (wasInProgress && stderr_line::IsOpen()) {
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    stderr_line::MarkOpen(false);
  }
}

void StatusBar::Clear() {
  m_text.clear();
  Progress(false);
}

void StatusBar::Draw() const {
  // One line, redrawn in place: "[ 42/120] label", cut to a terminal's usual width.
  // Built with append: GCC 12 warns wrongly (-Wrestrict) about "[" + to_string(n).
  std::string line = "[";
  line.append(std::to_string(m_amount)).append("/").append(std::to_string(m_total)).append("] ").append(m_label);
  if (line.size() > 100) line = line.substr(0, 97) + "...";
  std::fprintf(stderr, "\r\033[K%s", line.c_str());
  std::fflush(stderr);
  stderr_line::MarkOpen(true);
}

}  // namespace platform::automation
