#pragma once
#include <string>

#include "terminal/FormLayout.h"
#include "terminal/Glyphs.h"
#include "terminal/Terminal.h"
#include "terminal/TreeLines.h"

namespace platform::forms {
class CheckBox;
class CommandButton;
class Control;
class Form;
class Frame;
class Label;
class Separator;
class TextBox;
class TreeView;
}  // namespace platform::forms
namespace platform::suite {
class ScopeSelector;
class VsTabAreaEx;
}  // namespace platform::suite

namespace app::terminal {

/// Draws forms on a terminal: the window around a form (border, caption, close box),
/// the client area and each control where the form's layout puts it, each kind as a
/// person knows it: buttons, check boxes "[x]", text boxes as fields with the cursor,
/// labels (wrapped when taller than a line), frames as boxes with their caption, the
/// tab strip's row of tabs, the scope selector's box and, dropped down, its list over
/// the controls below, tree views with their lines, signs and check boxes, separators,
/// and grids (GridPainter). Disabled controls are dim; access keys are underlined; the
/// focused control of the form in front shows as focused.
class FormRenderer {
 public:
  FormRenderer(Terminal& terminal, TreeCursors& trees)
      : m_t(terminal), m_trees(trees), m_g(Glyphs::For(terminal.Unicode())) {}

  /// The colour of the client areas drawn next: dialogs on Window, a tool window on
  /// Plain.
  void SetBase(Style::Color base) { m_base = base; }

  /// The border, caption and close box of a window around `client`.
  void DrawWindow(const CellRect& client, const std::string& caption, bool closeBox, bool active);
  /// The client area and the controls of `form` laid out by `layout`; `active` when the
  /// form takes the input, so that its focus shows.
  void DrawForm(const platform::forms::Form& form, const FormLayout& layout, bool active);

 private:
  void DrawControl(const FormLayout::Placed& p, bool focused);
  void DrawCaption(int x, int y, int width, const std::string& caption, Style style, bool accessKey = true);
  void Fill(const CellRect& r, const Style& style);
  /// The cells a control's one-line text may take from column `x`.
  int TextRoom(const FormLayout::Placed& p, int x, const std::string& caption) const;
  void Box(const CellRect& r, const Style& style);
  void Button(const FormLayout::Placed& p, const platform::forms::CommandButton& b, bool focused);
  void Check(const FormLayout::Placed& p, const platform::forms::CheckBox& c, bool focused);
  void Label(const FormLayout::Placed& p, const platform::forms::Label& l);
  void Frame(const FormLayout::Placed& p, const platform::forms::Frame& f);
  void Field(const FormLayout::Placed& p, const platform::forms::TextBox& t, bool focused);
  void Tree(const FormLayout::Placed& p, const platform::forms::TreeView& t, bool focused);
  void Separator(const FormLayout::Placed& p);
  void Scope(const FormLayout::Placed& p, const platform::suite::ScopeSelector& s, bool focused);
  void ScopeList(const FormLayout::Placed& p, const platform::suite::ScopeSelector& s);
  void Tabs(const FormLayout::Placed& p, const platform::suite::VsTabAreaEx& s, bool focused);
  void Put(int x, int y, const std::string& s, const Style& style, const CellRect& clip);
  Style Base() const { return Style{m_base}; }

  Terminal& m_t;
  TreeCursors& m_trees;
  const Glyphs& m_g;
  bool m_cursorSet = false;
  const FormLayout* m_layout = nullptr;  // of the form being drawn
  Style::Color m_base = Style::Window;
};

}  // namespace app::terminal
