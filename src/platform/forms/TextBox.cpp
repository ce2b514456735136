#include "platform/forms/TextBox.h"

#include "platform/win32/WindowStyles.h"

namespace platform::forms {

namespace {
// The style of a new edit box: a visible child window with a border that scrolls
// horizontally (WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL).
constexpr int32_t kEditStyle = 0x40000000 | 0x10000000 | 0x00010000 | 0x00800000 | 0x0080;
}  // namespace

TextBox::TextBox(Form& owner, std::string name, std::string caption)
    : Control(owner, std::move(name), std::move(caption)),
      m_hWnd(win32::WindowStyles::Register(kEditStyle)) {}

TextBox::TextBox(Control& container, std::string name, std::string caption)
    : Control(container, std::move(name), std::move(caption)),
      m_hWnd(win32::WindowStyles::Register(kEditStyle)) {}

TextBox::~TextBox() { win32::WindowStyles::Unregister(m_hWnd); }

bool TextBox::DigitsOnly() const {
  return (win32::GetWindowLongA(m_hWnd, win32::GWL_STYLE) & win32::ES_NUMBER) != 0;
}

void TextBox::SetText(const std::string& text) {
  if (text == Caption) return;
  Caption = text;
  Change.Raise();
}

bool TextBox::UserType(const std::string& text) {
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
    if (DigitsOnly() && (code < '0' || code > '9')) continue;
    Caption += static_cast<char>(code);
    Change.Raise();
  }
  return true;
}

}  // namespace platform::forms
