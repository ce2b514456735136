#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A control made of controls: a form's panel or a document's part, whose own controls
/// sit inside it. It takes no focus itself; its controls do, and it raises GotFocus and
/// LostFocus as the focus enters and leaves them.
class UserControl : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "UserControl"; }
  bool CanFocus() const override { return false; }
  /// The inner width and height (twips): the control's own size.
  int ScaleWidth() const { return Width; }
  int ScaleHeight() const { return Height; }
};

}  // namespace platform::forms
