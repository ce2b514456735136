#include "platform/forms/Form.h"

#include <algorithm>

#include "platform/forms/CommandButton.h"
#include "platform/forms/Presenter.h"

namespace platform::forms {

Form::Form(std::string name, std::string caption)
    : Caption(std::move(caption)), m_name(std::move(name)) {}

Form::~Form() = default;

void Form::Load() {
  if (m_loaded) return;
  m_loaded = true;
  Form_Load();
}

void Form::Show(int mode) {
  Load();
  m_visible = true;
  Presenter::Current().Shown(*this);
  Form_Activate();
  if (mode == vbModal && m_visible && m_loaded) Presenter::Current().RunModal(*this);
}

void Form::Hide() { m_visible = false; }

bool Form::Unload(int unloadMode) {
  if (!m_loaded) return true;
  int cancel = 0;
  Form_QueryUnload(cancel, unloadMode);
  if (cancel) return false;
  Form_Unload(cancel);
  if (cancel) return false;
  m_visible = false;
  m_loaded = false;
  m_active = nullptr;
  for (Control* c : m_controls) c->FormUnloaded();
  return true;
}

Control* Form::FindControl(const std::string& nameOrCaption) const {
  for (Control* c : m_controls)
    if (c->Name == nameOrCaption) return c;
  for (Control* c : m_controls)
    if (!c->Caption.empty() && PlainCaption(c->Caption) == PlainCaption(nameOrCaption)) return c;
  return nullptr;
}

bool Form::SetFocus(Control& control) {
  if (!control.Reachable()) return false;
  m_active = &control;
  return true;
}

void Form::Unregister(Control* control) {
  m_controls.erase(std::remove(m_controls.begin(), m_controls.end(), control), m_controls.end());
  if (m_active == control) m_active = nullptr;
}

void Form::UserKey(int keyCode, int shift) {
  if (KeyPreview) {
    Form_KeyDown(keyCode, shift);
    if (keyCode == 0) return;
  }
  if (m_active) m_active->UserKey(keyCode, shift);
  if (keyCode != 13 && keyCode != 27) return;
  for (Control* c : m_controls) {
    auto* button = dynamic_cast<CommandButton*>(c);
    if (button && ((keyCode == 13 && button->Default) || (keyCode == 27 && button->Cancel))) {
      button->UserClick();
      return;
    }
  }
}

}  // namespace platform::forms
