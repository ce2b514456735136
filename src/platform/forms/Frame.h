#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A frame: a captioned border that holds other controls. It takes no focus itself.
class Frame : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "Frame"; }
  bool CanFocus() const override { return false; }
};

}  // namespace platform::forms
