#pragma once
#include <cstdint>
#include <functional>

#include "terminal/FormLayout.h"
#include "terminal/Terminal.h"
#include "terminal/TreeLines.h"

namespace platform::forms {
class Control;
class Form;
class TreeView;
}  // namespace platform::forms

namespace app::terminal {

/// Turns what a person does at the terminal into the user's actions on a form and its
/// controls, as the forms layer defines them, so that the form behaves the same under a
/// person as under a script:
/// - keys go to Form::UserKey (Tab, Enter, Escape and the focused control's keys); Alt
///   with a letter or digit, and a plain letter where the focused control takes no
///   text, to Form::UserAccessKey; Space clicks the focused button or check box; text
///   goes to the focused text box or scope selector; a tree view's cursor keys move its
///   cursor (raising NodeClick on the node reached), Space checks its node, Left and
///   Right collapse and expand;
/// - a mouse press focuses the control under it and reaches it as UserMouseDown at the
///   point in twips relative to the control; a second press of the same button on the
///   same cell within kDoubleClickMs is a double click; the release reaches the control
///   pressed as UserMouseUp and, over the same control with the left button, clicks a
///   button, check box or label; presses on a tree view's boxes, signs and lines check,
///   expand and select; a press on the scope selector drops its list, a press in the
///   list picks; the close box unloads the form (unload mode 0);
/// - motion goes to Form::UserMouseMove at the point in twips on the client area, and
///   highlights the line of a dropped-down list under it; the wheel scrolls tree views
///   and grids.
class InputDispatcher {
 public:
  static constexpr int64_t kDoubleClickMs = 500;

  /// `trees` holds the cursors of the form's tree views (shared with the renderer);
  /// `now` tells the time in milliseconds, for double clicks.
  InputDispatcher(TreeCursors& trees, std::function<int64_t()> now) : m_trees(trees), m_now(std::move(now)) {}

  void Key(platform::forms::Form& form, const FormLayout& layout, const InputEvent& e);
  /// `screenRows` places a dropped-down list as the renderer does; `closeBox` whether
  /// the form's window has one on its top border.
  void Mouse(platform::forms::Form& form, const FormLayout& layout, const InputEvent& e, int screenRows,
             bool closeBox);

 private:
  bool TreeKey(platform::forms::TreeView& tree, const FormLayout& layout, int keyCode);
  void TreePress(platform::forms::TreeView& tree, const FormLayout& layout, int x, int y);
  bool Alive(const platform::forms::Form& form, const platform::forms::Control* c) const;

  TreeCursors& m_trees;
  std::function<int64_t()> m_now;
  platform::forms::Control* m_pressed = nullptr;
  int m_pressButton = 0;
  int64_t m_lastPressAt = -1;
  int m_lastPressX = -1, m_lastPressY = -1, m_lastPressButton = 0;
  int m_lastMoveX = -1, m_lastMoveY = -1;
};

}  // namespace app::terminal
