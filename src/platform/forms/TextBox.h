#pragma once
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A one-line text box; its text is the Caption. Typing raises KeyPress per character
/// (a handler may drop it by setting 0) and Change after each character taken; a
/// backspace (8) removes the last one. NumericOnly takes digits only.
class TextBox : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "TextBox"; }
  bool NumericOnly = false;
  bool Locked = false;
  platform::Event<> Change;

  const std::string& Text() const { return Caption; }
  /// Sets the text as code does: Change is raised when it differs.
  void SetText(const std::string& text) {
    if (text == Caption) return;
    Caption = text;
    Change.Raise();
  }
  bool UserType(const std::string& text) override {
    if (!Reachable() || Locked) return false;
    for (char ch : text) {
      int code = static_cast<unsigned char>(ch);
      KeyPress.Raise(code);
      if (code == 0) continue;
      if (code == 8) {
        if (!Caption.empty()) {
          Caption.pop_back();
          Change.Raise();
        }
        continue;
      }
      if (NumericOnly && (code < '0' || code > '9')) continue;
      Caption += static_cast<char>(code);
      Change.Raise();
    }
    return true;
  }
};

}  // namespace platform::forms
