#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A caption that the user cannot change.
class Label : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "Label"; }
  bool CanFocus() const override { return false; }
  bool UserClick() override { return Control::UserClick(); }
};

}  // namespace platform::forms
