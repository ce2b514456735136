#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A check box: Value 0 (unchecked), 1 (checked) or 2 (grayed). A click checks an
/// unchecked or grayed box and unchecks a checked one, then raises Click.
class CheckBox : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "CheckBox"; }
  int Value = 0;
  bool UserClick() override {
    if (!Reachable()) return false;
    Value = Value == 1 ? 0 : 1;
    Click.Raise();
    return true;
  }
};

}  // namespace platform::forms
