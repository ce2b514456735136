#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A horizontal line that separates parts of a form.
class Separator : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "AreaSeparator"; }
  bool CanFocus() const override { return false; }
  bool UserClick() override { return false; }
};

}  // namespace platform::forms
