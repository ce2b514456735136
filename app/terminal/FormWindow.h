#pragma once

#include "terminal/FormLayout.h"
#include "terminal/InputDispatcher.h"
#include "terminal/Layer.h"
#include "terminal/TreeLines.h"

namespace platform::forms {
class Form;
}

namespace app::terminal {

class EventLoop;

/// A form shown as a dialog: centred over the screen (kept on it when it does not fit),
/// in a window with its caption and a close box, drawn by FormRenderer and driven by
/// InputDispatcher.
class FormWindow : public Layer {
 public:
  FormWindow(platform::forms::Form& form, EventLoop& loop);

  /// Where the form's client area lies on the screen now.
  FormLayout Layout() const;
  void Draw(Terminal& terminal, bool active) override;
  void Input(const InputEvent& event) override;

  platform::forms::Form& form() { return m_form; }

 private:
  platform::forms::Form& m_form;
  EventLoop& m_loop;
  TreeCursors m_trees;
  InputDispatcher m_input;
};

}  // namespace app::terminal
