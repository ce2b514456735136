#pragma once

#include "terminal/Terminal.h"

namespace app::terminal {

/// One thing on screen that takes input while it is in front: the pane's screen at the
/// bottom, a dialog over it. The event loop draws every layer, back to front, and hands
/// input to the one in front.
class Layer {
 public:
  virtual ~Layer() = default;
  /// Draws the layer; `active` when it is in front.
  virtual void Draw(Terminal& terminal, bool active) = 0;
  /// What the person did while the layer was in front.
  virtual void Input(const InputEvent& event) = 0;
};

}  // namespace app::terminal
