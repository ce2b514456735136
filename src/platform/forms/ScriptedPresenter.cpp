#include "platform/forms/ScriptedPresenter.h"

#include "platform/forms/Clock.h"
#include "platform/forms/DoEvents.h"
#include "platform/forms/Form.h"
#include "platform/forms/TreeView.h"

namespace platform::forms {

ScriptedPresenter& ScriptedPresenter::Queue(Action a) {
  m_script.push_back(std::move(a));
  return *this;
}

ScriptedPresenter& ScriptedPresenter::Click(const std::string& target) {
  return Queue([this, target](Form& form) {
    Control* c = form.FindControl(target);
    if (!c) return errors.push_back("no control '" + target + "' on " + form.Name());
    log.push_back("click " + c->Name);
    if (!c->UserClick()) errors.push_back("'" + target + "' cannot be clicked");
  });
}

ScriptedPresenter& ScriptedPresenter::Key(int keyCode, int shift) {
  return Queue([this, keyCode, shift](Form& form) {
    log.push_back("key " + std::to_string(keyCode));
    form.UserKey(keyCode, shift);
  });
}

ScriptedPresenter& ScriptedPresenter::Focus(const std::string& target) {
  return Queue([this, target](Form& form) {
    Control* c = form.FindControl(target);
    if (!c || !form.SetFocus(*c)) errors.push_back("'" + target + "' cannot take the focus");
  });
}

ScriptedPresenter& ScriptedPresenter::Type(const std::string& text) {
  return Queue([this, text](Form& form) {
    Control* c = form.ActiveControl();
    if (!c || !c->UserType(text)) errors.push_back("nothing to type '" + text + "' into");
  });
}

ScriptedPresenter& ScriptedPresenter::MouseMove(const std::string& target, int x, int y) {
  return Queue([this, target, x, y](Form& form) {
    Control* c = form.FindControl(target);
    if (!c || !c->UserMouseMove(x, y)) errors.push_back("cannot move the mouse over '" + target + "'");
  });
}

ScriptedPresenter& ScriptedPresenter::MouseMoveAt(int x, int y) {
  return Queue([x, y](Form& form) { form.UserMouseMove(x, y); });
}

ScriptedPresenter& ScriptedPresenter::MouseDown(const std::string& target, int button, int x, int y) {
  return Queue([this, target, button, x, y](Form& form) {
    Control* c = form.FindControl(target);
    if (!c || !c->UserMouseDown(button, x, y)) errors.push_back("cannot press a button over '" + target + "'");
  });
}

ScriptedPresenter& ScriptedPresenter::MouseUp(const std::string& target, int button, int x, int y) {
  return Queue([this, target, button, x, y](Form& form) {
    Control* c = form.FindControl(target);
    if (!c || !c->UserMouseUp(button, x, y)) errors.push_back("cannot release a button over '" + target + "'");
  });
}

ScriptedPresenter& ScriptedPresenter::DblClick(const std::string& target, int x, int y) {
  return Queue([this, target, x, y](Form& form) {
    Control* c = form.FindControl(target);
    if (!c) return errors.push_back("no control '" + target + "' on " + form.Name());
    log.push_back("dblclick " + c->Name);
    if (!c->UserDblClick(x, y)) errors.push_back("'" + target + "' cannot be double-clicked");
  });
}

ScriptedPresenter& ScriptedPresenter::AccessKey(char key) {
  return Queue([this, key](Form& form) {
    log.push_back(std::string("alt+") + key);
    if (!form.UserAccessKey(key)) errors.push_back(std::string("no control has the access key ") + key);
  });
}

ScriptedPresenter& ScriptedPresenter::Wait(int milliseconds) {
  return Queue([milliseconds](Form&) {
    Clock::Current().Advance(milliseconds);
    DoEvents();
  });
}

ScriptedPresenter& ScriptedPresenter::Check(const std::string& tree, const std::string& key) {
  return Queue([this, tree, key](Form& form) {
    auto* view = dynamic_cast<TreeView*>(form.FindControl(tree));
    if (!view) return errors.push_back("no tree view '" + tree + "' on " + form.Name());
    log.push_back("check " + key);
    if (!view->UserCheck(key)) errors.push_back("node '" + key + "' has no check box");
  });
}

ScriptedPresenter& ScriptedPresenter::Close() {
  return Queue([this](Form& form) {
    log.push_back("close " + form.Caption);
    form.Unload(vbFormControlMenu);
  });
}

ScriptedPresenter& ScriptedPresenter::Do(std::function<void(Form&)> action) {
  return Queue(std::move(action));
}

void ScriptedPresenter::Shown(Form& form) { log.push_back("show " + form.Caption); }

void ScriptedPresenter::Play(Form& form) {
  while (!m_script.empty()) {
    Action action = std::move(m_script.front());
    m_script.pop_front();
    action(form);
  }
}

void ScriptedPresenter::RunModal(Form& form) {
  log.push_back("modal " + form.Caption);
  while (form.IsVisible() && form.IsLoaded()) {
    if (m_script.empty()) {
      log.push_back("end " + form.Caption);
      form.Unload(vbFormControlMenu);
      if (form.IsVisible()) form.Hide();
      break;
    }
    Action action = std::move(m_script.front());
    m_script.pop_front();
    action(form);
  }
}

namespace {
std::shared_ptr<Presenter>& Slot() {
  static std::shared_ptr<Presenter> p = std::make_shared<ScriptedPresenter>();
  return p;
}
}  // namespace

Presenter& Presenter::Current() { return *Slot(); }

std::shared_ptr<Presenter> Presenter::Install(std::shared_ptr<Presenter> presenter) {
  auto previous = Slot();
  Slot() = presenter ? std::move(presenter) : std::make_shared<ScriptedPresenter>();
  return previous;
}

}  // namespace platform::forms
