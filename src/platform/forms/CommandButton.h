#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A push button. Enter presses the form's default button, Escape its cancel button.
class CommandButton : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "CommandButton"; }
  bool Default = false;
  bool Cancel = false;
};

}  // namespace platform::forms
