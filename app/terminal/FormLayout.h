#pragma once
#include <utility>
#include <vector>

namespace platform::forms {
class Control;
class Form;
}  // namespace platform::forms

namespace app::terminal {

/// A rectangle of cells: column x, row y, w columns wide, h rows high.
struct CellRect {
  int x = 0, y = 0, w = 0, h = 0;
  int Right() const { return x + w; }
  int Bottom() const { return y + h; }
  bool Empty() const { return w <= 0 || h <= 0; }
  bool Contains(int cx, int cy) const { return cx >= x && cy >= y && cx < Right() && cy < Bottom(); }
  CellRect Intersect(const CellRect& o) const;
  bool operator==(const CellRect&) const = default;
};

/// Where a form's controls are drawn on a terminal: each control's place in twips
/// turned into cells at the fixed scale of Screen.h (a cell is 90 by 240 twips), both
/// edges rounded to the nearest cell edge, so that the centre of a cell lies in a
/// control exactly when the cell is drawn as part of it. A control is at least one cell
/// each way; one of no size (image lists, timers) is not drawn.
///
/// A control is cut at the edges of the containers around it and of the form's client
/// area; a user control (a page, a panel) does not cut what it holds, since pages may
/// place a row just below their own height. The text of a one-line control (a label, a
/// check box) may run on to the right over cells no other control takes, up to that
/// edge.
class FormLayout {
 public:
  struct Placed {
    platform::forms::Control* control;
    CellRect rect;  // as placed (may reach outside `clip`)
    CellRect clip;  // the part that may be drawn on
    int textRight;  // the column the control's one-line text must stop before
    bool textMeetsControl;  // another control begins at textRight
    int depth;      // how many containers are around it
  };

  /// Lays out the shown controls of `form`, its client area's top-left corner at the
  /// cell (originX, originY).
  FormLayout(const platform::forms::Form& form, int originX, int originY);

  /// Cells from twips, rounded to the nearest edge.
  static int CellsX(int twips);
  static int CellsY(int twips);

  /// The client area's cells.
  const CellRect& Client() const { return m_client; }
  /// The controls in drawing order: outer before inner, then in the order made.
  const std::vector<Placed>& Controls() const { return m_placed; }
  const Placed* Find(const platform::forms::Control* control) const;
  /// The innermost control drawn at the cell, the one made later of two at one depth
  /// (as Form::ControlAt chooses); nullptr over the bare form.
  platform::forms::Control* At(int x, int y) const;
  /// The point (twips, relative to `control`) that the cell (x, y) stands for: the
  /// cell's centre, kept inside the control.
  std::pair<int, int> PointIn(const platform::forms::Control& control, int x, int y) const;
  /// The point (twips, on the client area) that the cell stands for: one the form finds
  /// the control drawn there at (Form::ControlAt), or no control when none is drawn.
  std::pair<int, int> FormPoint(int x, int y) const;

 private:
  const platform::forms::Form* m_form;
  CellRect m_client;
  std::vector<Placed> m_placed;
};

}  // namespace app::terminal
