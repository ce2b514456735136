#include "platform/forms/Control.h"

#include "platform/forms/Form.h"

namespace platform::forms {

Control::Control(Form& owner, std::string name, std::string caption)
    : Name(std::move(name)), Caption(std::move(caption)), m_owner(owner) {
  TabIndex = static_cast<int>(owner.Controls().size());
  owner.Register(this);
}

Control::~Control() { m_owner.Unregister(this); }

bool Control::UserClick() {
  if (!Reachable()) return false;
  Click.Raise();
  return true;
}

bool Control::UserKey(int keyCode, int shift) {
  if (!Reachable()) return false;
  KeyDown.Raise(keyCode, shift);
  return true;
}

bool Control::UserType(const std::string&) { return false; }

bool Control::UserMouseMove(int x, int y) {
  if (!Visible) return false;
  MouseMove.Raise(0, 0, x, y);
  return true;
}

std::string PlainCaption(const std::string& caption) {
  std::string out;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') out += '&', ++i;
      continue;
    }
    out += caption[i];
  }
  return out;
}

}  // namespace platform::forms
