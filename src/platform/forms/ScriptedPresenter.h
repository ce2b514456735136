#pragma once
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/Presenter.h"

namespace platform::forms {

/// A presenter that plays a script of user actions: for tests, and for the command
/// line, where there is no user (an empty script closes every modal form through its
/// close box). Each action goes to the modal form on top when it is played; a form
/// still shown when the script runs out is closed through its close box, and hidden if
/// that is refused, so a modal Show always returns.
///
///     auto user = std::make_shared<ScriptedPresenter>();
///     user->Click("cmdUncheckAll").Check("TreeView1", "TMethod*param").Click("&OK");
///     ScopedPresenter scope(user);
class ScriptedPresenter : public Presenter {
 public:
  /// Clicks the control named so, or captioned so (access-key marks ignored).
  ScriptedPresenter& Click(const std::string& target);
  /// Presses a key (a key code: 13 Enter, 27 Escape, ...) with a shift state.
  ScriptedPresenter& Key(int keyCode, int shift = 0);
  /// Gives the control the focus.
  ScriptedPresenter& Focus(const std::string& target);
  /// Types text into the control that has the focus.
  ScriptedPresenter& Type(const std::string& text);
  /// Moves the mouse over a control, at x, y (twips, inside the control).
  ScriptedPresenter& MouseMove(const std::string& target, int x, int y);
  /// Moves the mouse to x, y of the form's client area (twips): the control under the
  /// point gets the move, or the form's background when there is none.
  ScriptedPresenter& MouseMoveAt(int x, int y);
  /// Presses or releases a mouse button (vbLeftButton, vbRightButton) over a control.
  ScriptedPresenter& MouseDown(const std::string& target, int button, int x, int y);
  ScriptedPresenter& MouseUp(const std::string& target, int button, int x, int y);
  /// Double-clicks a control at x, y.
  ScriptedPresenter& DblClick(const std::string& target, int x, int y);
  /// Presses Alt with an access key.
  ScriptedPresenter& AccessKey(char key);
  /// Lets `milliseconds` pass on the clock (timers fall due) and runs pending messages.
  ScriptedPresenter& Wait(int milliseconds);
  /// Clicks the check box of the node with `key` in the tree view `tree`.
  ScriptedPresenter& Check(const std::string& tree, const std::string& key);
  /// Presses the form's close box.
  ScriptedPresenter& Close();
  /// Anything else a test needs to do to the form on top.
  ScriptedPresenter& Do(std::function<void(Form&)> action);

  /// Plays the queued actions on `form`, a form shown without a modal loop of its own
  /// (the document of a tool window), until the script runs out. A modal form that an
  /// action shows takes the actions while it is up, as it would in RunModal.
  void Play(Form& form);

  void RunModal(Form& form) override;
  void Shown(Form& form) override;

  /// What happened, one line per event: "show CAPTION", "modal CAPTION", "click NAME",
  /// "close CAPTION", "end CAPTION" (the script ran out).
  std::vector<std::string> log;
  /// Actions that could not be played (no such control, a disabled one, ...).
  std::vector<std::string> errors;
  /// Actions not played yet.
  size_t Pending() const { return m_script.size(); }

 private:
  using Action = std::function<void(Form&)>;
  ScriptedPresenter& Queue(Action a);
  std::deque<Action> m_script;
};

}  // namespace platform::forms
