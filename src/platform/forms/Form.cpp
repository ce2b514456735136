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
  size_t dot = nameOrCaption.rfind('.');
  if (dot != std::string::npos) {
    Control* container = FindControl(nameOrCaption.substr(0, dot));
    std::string name = nameOrCaption.substr(dot + 1);
    if (container)
      for (Control* c : m_controls)
        if (c->Name == name && c->Container() == container) return c;
  }
  for (Control* c : m_controls)
    if (c->Name == nameOrCaption) return c;
  for (Control* c : m_controls)
    if (!c->Caption.empty() && PlainCaption(c->Caption) == PlainCaption(nameOrCaption)) return c;
  return nullptr;
}

bool Form::SetFocus(Control& control) {
  if (!control.CanFocus()) return false;
  Control* old = m_active;
  if (old == &control) return true;
  m_active = &control;
  if (old) {
    old->LostFocus.Raise();
    for (Control* c = old->Container(); c && !c->Holds(control); c = c->Container()) c->LostFocus.Raise();
  }
  // Containers entered, outermost first, then the control itself.
  std::vector<Control*> entered;
  for (Control* c = control.Container(); c && !(old && c->Holds(*old)); c = c->Container()) entered.push_back(c);
  for (auto it = entered.rbegin(); it != entered.rend(); ++it) (*it)->GotFocus.Raise();
  control.GotFocus.Raise();
  return true;
}

namespace {
// The TabIndex of a control and of each container around it, outermost first.
std::vector<int> TabPath(const Control* c) {
  std::vector<int> path;
  for (; c; c = c->Container()) path.insert(path.begin(), c->TabIndex);
  return path;
}
}  // namespace

std::vector<Control*> Form::TabOrder() const {
  std::vector<std::pair<std::vector<int>, Control*>> order;
  for (Control* c : m_controls)
    if (c->CanFocus()) order.emplace_back(TabPath(c), c);
  std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Control*> out;
  for (auto& [path, c] : order) out.push_back(c);
  return out;
}

Control* Form::ControlAt(int x, int y) const {
  Control* best = nullptr;
  int bestDepth = -1;
  for (Control* c : m_controls) {
    if (!c->Shown()) continue;
    int left = c->FormLeft(), top = c->FormTop();
    if (x < left || y < top || x >= left + c->Width || y >= top + c->Height) continue;
    int depth = 0;
    for (Control* k = c->Container(); k; k = k->Container()) ++depth;
    if (depth >= bestDepth) best = c, bestDepth = depth;
  }
  return best;
}

void Form::Unregister(Control* control) {
  m_controls.erase(std::remove(m_controls.begin(), m_controls.end(), control), m_controls.end());
  if (m_active == control) m_active = nullptr;
}

void Form::UserTab(bool forward) {
  std::vector<Control*> order = TabOrder();
  if (order.empty()) return;
  auto it = std::find(order.begin(), order.end(), m_active);
  size_t i;
  if (it == order.end()) i = forward ? 0 : order.size() - 1;
  else i = (static_cast<size_t>(it - order.begin()) + (forward ? 1 : order.size() - 1)) % order.size();
  SetFocus(*order[i]);
}

bool Form::UserAccessKey(char key) {
  if (key >= 'A' && key <= 'Z') key = static_cast<char>(key - 'A' + 'a');
  for (Control* c : m_controls) {
    if (!c->Reachable() || AccessKeyOf(c->Caption) != key) continue;
    if (c->CanFocus()) {
      SetFocus(*c);
      std::string type = c->TypeName();
      if (type == "CommandButton" || type == "CheckBox") c->UserClick();
      return true;
    }
    // A label (or frame) names the control that follows it in tab order.
    std::vector<Control*> order = TabOrder();
    std::vector<int> after = TabPath(c);
    for (Control* next : order)
      if (TabPath(next) >= after) {
        SetFocus(*next);
        return true;
      }
    return false;
  }
  return false;
}

void Form::UserMouseMove(int x, int y, int button, int shift) {
  Control* target = ControlAt(x, y);
  // A disabled control, or one inside a disabled container, leaves the move to the
  // container around the outermost disabled one.
  for (Control* c = target; c; c = c->Container())
    if (!c->Enabled) target = c->Container();
  if (target) {
    target->UserMouseMove(x - target->FormLeft(), y - target->FormTop(), button, shift);
    return;
  }
  Form_MouseMove(button, shift, static_cast<float>(x), static_cast<float>(y));
}

void Form::UserKey(int keyCode, int shift) {
  if (KeyPreview) {
    Form_KeyDown(keyCode, shift);
    if (keyCode == 0) return;
  }
  if (keyCode == 9) {
    UserTab((shift & 1) == 0);
    return;
  }
  if (m_active) m_active->UserKey(keyCode, shift);
  if (keyCode != 13 && keyCode != 27) return;
  if (keyCode == 13 && m_active && dynamic_cast<CommandButton*>(m_active)) {
    m_active->UserClick();
    return;
  }
  for (Control* c : m_controls) {
    auto* button = dynamic_cast<CommandButton*>(c);
    if (button && ((keyCode == 13 && button->Default) || (keyCode == 27 && button->Cancel))) {
      button->UserClick();
      return;
    }
  }
}

}  // namespace platform::forms
