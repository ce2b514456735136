#pragma once
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/forms/Font.h"

namespace platform::forms {

class Form;

/// Mouse buttons as the mouse events report them.
enum MouseButton { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };

/// Base of every control on a form: its name, caption, place and size (in twips, relative
/// to its container), tab order, state and font, the events the forms use, and the user's
/// actions on it that a presenter plays.
///
/// A control sits either directly on its form or inside a container control (a frame, a
/// user control), which carries it: hiding or disabling a container hides or disables
/// what it holds, and a contained control's place is relative to the container. Every
/// control, contained or not, registers with its form when made and leaves it when
/// destroyed, so the form can find any of them; it lives as a member of the form or of
/// its container.
class Control {
 public:
  /// A control directly on `owner`.
  Control(Form& owner, std::string name, std::string caption = "");
  /// A control inside `container`, on the container's form.
  Control(Control& container, std::string name, std::string caption = "");
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// The control's type name ("CommandButton", "TreeView", ...).
  virtual const char* TypeName() const = 0;

  Form& Parent() const { return m_owner; }
  /// The container the control sits in; nullptr when it sits directly on the form.
  Control* Container() const { return m_container; }
  /// The controls inside this one, in the order they were made.
  const std::vector<Control*>& Children() const { return m_children; }
  /// Whether `other` is this control or sits inside it, at any depth.
  bool Holds(const Control& other) const;

  std::string Name;
  std::string Caption;  // the caption, or the text of a text box
  int Left = 0, Top = 0, Width = 0, Height = 0;
  /// Place in the tab order among the controls of the same container (the form counts
  /// as one); numbered in the order made until set.
  int TabIndex = 0;
  /// Whether Tab and access keys stop here; labels, frames and other controls that do
  /// not take the focus say false.
  bool TabStop = true;
  bool Enabled = true;
  bool Visible = true;
  platform::forms::Font Font;

  platform::Event<> Click;
  platform::Event<> DblClick;
  platform::Event<int&, int&> KeyDown;               // key code, shift state (both may be changed)
  platform::Event<int&> KeyPress;                    // character code (0 drops it)
  platform::Event<int, int, int, int> MouseDown;     // button, shift, x, y (twips, own place)
  platform::Event<int, int, int, int> MouseMove;     // button, shift, x, y
  platform::Event<int, int, int, int> MouseUp;       // button, shift, x, y
  platform::Event<> GotFocus;
  platform::Event<> LostFocus;

  /// Whether the user can reach it: it and every container around it visible and
  /// enabled.
  bool Reachable() const;
  /// Whether it is drawn: it and every container around it visible.
  bool Shown() const;
  /// Whether the focus can rest on it: reachable, a tab stop, and of a kind that takes
  /// the focus.
  virtual bool CanFocus() const { return TabStop && Reachable(); }

  /// The place of the control's top-left corner on the form's client area (twips).
  int FormLeft() const;
  int FormTop() const;
  /// Moves and sizes the control; a negative width or height keeps that dimension.
  /// Raises Resize when the size changed.
  void Move(int left, int top, int width = -1, int height = -1);
  platform::Event<> Resize;

  // The user's actions. Each returns false, doing nothing, when the control cannot
  // take it (hidden or disabled, or not the kind of control for it). Points are in
  // twips relative to the control.
  virtual bool UserClick();
  /// A key pressed while the control has the focus: raises KeyDown, whose handlers may
  /// change or clear (0) the key code; the form then acts on what is left.
  virtual bool UserKey(int& keyCode, int shift);
  virtual bool UserType(const std::string& text);
  virtual bool UserMouseMove(int x, int y, int button = 0, int shift = 0);
  virtual bool UserMouseDown(int button, int x, int y, int shift = 0);
  virtual bool UserMouseUp(int button, int x, int y, int shift = 0);
  virtual bool UserDblClick(int x, int y);

  /// Called when the form unloads: the control forgets what it holds.
  virtual void FormUnloaded() {}

 private:
  Form& m_owner;
  Control* m_container = nullptr;
  std::vector<Control*> m_children;
};

/// The caption without its access-key marks: "&OK" is "OK", "&&" is "&".
std::string PlainCaption(const std::string& caption);

/// The access key of a caption, lower case: the character after a single "&" ("&Begin"
/// gives 'b'); 0 when there is none.
char AccessKeyOf(const std::string& caption);

}  // namespace platform::forms
