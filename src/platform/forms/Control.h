#pragma once
#include <string>

#include "platform/core/Event.h"
#include "platform/forms/Font.h"

namespace platform::forms {

class Form;

/// Base of every control on a form: its name, caption, place and size (in twips), tab
/// order, state and font, the events the forms use, and the user's actions on it that
/// a presenter plays. A control registers itself with its form when made and leaves it
/// when destroyed; it lives as a member of the form.
class Control {
 public:
  Control(Form& owner, std::string name, std::string caption = "");
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// The control's type name ("CommandButton", "TreeView", ...).
  virtual const char* TypeName() const = 0;

  Form& Parent() const { return m_owner; }

  std::string Name;
  std::string Caption;  // the caption, or the text of a text box
  int Left = 0, Top = 0, Width = 0, Height = 0;
  int TabIndex = 0;
  bool Enabled = true;
  bool Visible = true;
  platform::forms::Font Font;

  platform::Event<> Click;
  platform::Event<int&, int> KeyDown;           // key code (may be changed), shift state
  platform::Event<int&> KeyPress;               // character code (0 drops it)
  platform::Event<int, int, int, int> MouseMove;  // button, shift, x, y (twips)

  /// Whether the user can reach it: visible and enabled.
  bool Reachable() const { return Visible && Enabled; }

  // The user's actions. Each returns false, doing nothing, when the control cannot
  // take it (hidden or disabled, or not the kind of control for it).
  virtual bool UserClick();
  virtual bool UserKey(int keyCode, int shift);
  virtual bool UserType(const std::string& text);
  virtual bool UserMouseMove(int x, int y);

  /// Called when the form unloads: the control forgets what it holds.
  virtual void FormUnloaded() {}

 private:
  Form& m_owner;
};

/// The caption without its access-key marks: "&OK" is "OK", "&&" is "&".
std::string PlainCaption(const std::string& caption);

}  // namespace platform::forms
