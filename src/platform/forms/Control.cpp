#include "platform/forms/Control.h"

#include <algorithm>

#include "platform/forms/Form.h"

namespace platform::forms {

namespace {
int CountOnForm(const Form& form) {
  return static_cast<int>(std::count_if(form.Controls().begin(), form.Controls().end(),
                                        [](const Control* c) { return c->Container() == nullptr; }));
}
}  // namespace

Control::Control(Form& owner, std::string name, std::string caption)
    : Name(std::move(name)), Caption(std::move(caption)), m_owner(owner) {
  TabIndex = CountOnForm(owner);
  owner.Register(this);
}

Control::Control(Control& container, std::string name, std::string caption)
    : Name(std::move(name)), Caption(std::move(caption)), m_owner(container.Parent()),
      m_container(&container) {
  TabIndex = static_cast<int>(container.m_children.size());
  container.m_children.push_back(this);
  m_owner.Register(this);
}

Control::~Control() {
  if (m_container) std::erase(m_container->m_children, this);
  for (Control* child : m_children) child->m_container = nullptr;
  m_owner.Unregister(this);
}

bool Control::Holds(const Control& other) const {
  for (const Control* c = &other; c; c = c->m_container)
    if (c == this) return true;
  return false;
}

bool Control::Reachable() const {
  for (const Control* c = this; c; c = c->m_container)
    if (!c->Visible || !c->Enabled) return false;
  return true;
}

bool Control::Shown() const {
  for (const Control* c = this; c; c = c->m_container)
    if (!c->Visible) return false;
  return true;
}

int Control::FormLeft() const { return Left + (m_container ? m_container->FormLeft() : 0); }
int Control::FormTop() const { return Top + (m_container ? m_container->FormTop() : 0); }

void Control::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  bool resized = false;
  if (width >= 0 && width != Width) Width = width, resized = true;
  if (height >= 0 && height != Height) Height = height, resized = true;
  if (resized) Resize.Raise();
}

bool Control::UserClick() {
  if (!Reachable()) return false;
  Click.Raise();
  return true;
}

bool Control::UserKey(int& keyCode, int shift) {
  if (!Reachable()) return false;
  KeyDown.Raise(keyCode, shift);
  return true;
}

bool Control::UserType(const std::string&) { return false; }

bool Control::UserMouseMove(int x, int y, int button, int shift) {
  if (!Shown()) return false;
  MouseMove.Raise(button, shift, x, y);
  return true;
}

bool Control::UserMouseDown(int button, int x, int y, int shift) {
  if (!Reachable()) return false;
  MouseDown.Raise(button, shift, x, y);
  return true;
}

bool Control::UserMouseUp(int button, int x, int y, int shift) {
  if (!Reachable()) return false;
  MouseUp.Raise(button, shift, x, y);
  return true;
}

bool Control::UserDblClick(int, int) {
  if (!Reachable()) return false;
  DblClick.Raise();
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

char AccessKeyOf(const std::string& caption) {
  for (size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] == '&') {
      ++i;
      continue;
    }
    char c = caption[i + 1];
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return 0;
}

}  // namespace platform::forms
