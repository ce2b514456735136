#pragma once
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/forms/Control.h"
#include "platform/forms/Font.h"

namespace platform::forms {

/// Why a form is being unloaded (QueryUnload's unload mode).
enum UnloadMode {
  vbFormControlMenu = 0,  // the user closed it with its close box
  vbFormCode = 1,         // code unloaded it
  vbAppWindows = 2,
  vbAppTaskManager = 3,
};

/// How Show presents a form.
enum ShowMode { vbModeless = 0, vbModal = 1 };

/// A form: a window with controls that is loaded, shown, hidden and unloaded. The
/// events are virtual members a form overrides. Showing modally hands the form to the
/// presenter in use and returns once the form is hidden or unloaded.
class Form : public Dispatch {
 public:
  explicit Form(std::string name, std::string caption = "");
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const char* TypeName() const override { return m_name.c_str(); }

  std::string Caption;
  int Left = 0, Top = 0, Width = 0, Height = 0;
  platform::forms::Font Font;
  bool KeyPreview = false;

  const std::string& Name() const { return m_name; }
  bool IsLoaded() const { return m_loaded; }
  bool IsVisible() const { return m_visible; }

  /// Loads the form (raising Form_Load) unless it is loaded.
  void Load();
  /// Loads it if needed, makes it visible and raises Form_Activate; modally, hands it
  /// to the presenter and returns when it is hidden or unloaded.
  void Show(int mode = vbModeless);
  /// Makes it invisible; a modal Show returns.
  void Hide();
  /// Unloads it: Form_QueryUnload, then Form_Unload; either may cancel. Then the form is
  /// hidden and its controls forget what they hold. True when it was unloaded (or was
  /// not loaded).
  bool Unload(int unloadMode = vbFormCode);

  /// Every control of the form, contained ones included, in the order they were made.
  const std::vector<Control*>& Controls() const { return m_controls; }
  /// The control named `nameOrCaption` ("Text1", or "ctlStdComments1.Text1" through its
  /// containers), or else the first whose caption without access-key marks is that;
  /// nullptr when none.
  Control* FindControl(const std::string& nameOrCaption) const;
  Control* ActiveControl() const { return m_active; }
  /// Gives `control` the focus; false when it cannot take it. The control that had it,
  /// and every container the focus leaves, raise LostFocus; the control, and every
  /// container the focus enters, raise GotFocus.
  bool SetFocus(Control& control);

  /// The controls the focus can rest on, in tab order: by TabIndex within each
  /// container, a container's controls at the container's place.
  std::vector<Control*> TabOrder() const;
  /// The innermost shown control under the point (twips on the client area); of two
  /// overlapping ones, the one made later. nullptr over the bare form.
  Control* ControlAt(int x, int y) const;

  /// The user presses a key: with KeyPreview the form sees it first (and may clear it);
  /// Tab and Shift+Tab move the focus along the tab order; otherwise the active control
  /// gets it, and what its handlers leave acts on the form: Enter clicks the focused
  /// button, else the default button; Escape clicks the cancel button.
  void UserKey(int keyCode, int shift = 0);
  /// The user presses Alt with `key` (a letter or digit, any case): the reachable
  /// control whose caption carries that access key takes it: a button or check box is
  /// focused and clicked, a label hands the focus to the next control in tab order (one
  /// with the label's own tab index counts as next: the label names it), anything else
  /// takes the focus. False when no control carries the key.
  bool UserAccessKey(char key);
  /// Moves the focus to the next (or previous) control in tab order, wrapping around.
  void UserTab(bool forward = true);
  /// The user moves the mouse to a point of the client area (twips): the innermost
  /// control there that takes the mouse gets the move at its own coordinates; a disabled
  /// control passes it to its container, as windows do. Over no control, the form's own
  /// Form_MouseMove gets it.
  void UserMouseMove(int x, int y, int button = 0, int shift = 0);

  // For controls.
  void Register(Control* control) { m_controls.push_back(control); }
  void Unregister(Control* control);

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_QueryUnload(int& cancel, int unloadMode) {
    (void)cancel;
    (void)unloadMode;
  }
  virtual void Form_Unload(int& cancel) { (void)cancel; }
  virtual void Form_KeyDown(int& keyCode, int shift) {
    (void)keyCode;
    (void)shift;
  }
  /// The mouse moved over the form's background (twips on the client area).
  virtual void Form_MouseMove(int button, int shift, float x, float y) {
    (void)button;
    (void)shift;
    (void)x;
    (void)y;
  }

 private:
  std::string m_name;
  bool m_loaded = false;
  bool m_visible = false;
  std::vector<Control*> m_controls;
  Control* m_active = nullptr;
};

}  // namespace platform::forms
