#pragma once

#include "platform/forms/Presenter.h"

namespace app::terminal {

class EventLoop;

/// The forms' presenter on a terminal: a modal form becomes a dialog (FormWindow) on
/// top of what the screen shows, and the event loop runs until the form is hidden or
/// unloaded. The form's first control in tab order takes the focus when none has it,
/// as a window gives it on activation. When the terminal goes away the form is closed
/// through its close box (hidden if it refuses), so that a modal Show always returns.
class TerminalPresenter : public platform::forms::Presenter {
 public:
  explicit TerminalPresenter(EventLoop& loop) : m_loop(loop) {}
  void RunModal(platform::forms::Form& form) override;

 private:
  EventLoop& m_loop;
};

}  // namespace app::terminal
