#pragma once
#include <cstdint>
#include <string>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A one-line text box; its text is the Caption. It has a window handle whose style the
/// window-style layer keeps: with ES_NUMBER set it takes digits only, whoever types.
/// Typing raises KeyPress per character (a handler may drop it by setting 0) and Change
/// after each character taken; a backspace (8) removes the last one.
class TextBox : public Control {
 public:
  TextBox(Form& owner, std::string name, std::string caption = "");
  TextBox(Control& container, std::string name, std::string caption = "");
  ~TextBox() override;
  const char* TypeName() const override { return "TextBox"; }
  bool Locked = false;
  platform::Event<> Change;

  /// The window handle, for the window-style layer.
  intptr_t hWnd() const { return m_hWnd; }
  /// Whether its style takes digits only (ES_NUMBER).
  bool DigitsOnly() const;

  const std::string& Text() const { return Caption; }
  /// Sets the text as code does: Change is raised when it differs.
  void SetText(const std::string& text);
  bool UserType(const std::string& text) override;

 private:
  intptr_t m_hWnd;
};

}  // namespace platform::forms
