#include "terminal/FormLayout.h"

#include <algorithm>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/UserControl.h"

namespace app::terminal {

namespace Screen = platform::forms::Screen;
using platform::forms::Control;

namespace {
// `twips` over `unit`, rounded half up, for negative values too.
int RoundedCells(int twips, int unit) {
  long long n = static_cast<long long>(twips) * 2 + unit;
  long long d = 2LL * unit;
  long long q = n / d;
  if (n % d != 0 && n < 0) --q;
  return static_cast<int>(q);
}

int Depth(const Control& c) {
  int depth = 0;
  for (const Control* k = c.Container(); k; k = k->Container()) ++depth;
  return depth;
}

// The cells [first, last) a control from `start` over `length` twips takes: its edges
// rounded to the nearest cell edge; one that rounds to no cell takes the cell its middle
// falls in, so a label of less than a row sits on the row of the text box beside it.
std::pair<int, int> Span(int start, int length, int unit) {
  int first = RoundedCells(start, unit), last = RoundedCells(start + length, unit);
  if (last > first) return {first, last};
  long long middle = static_cast<long long>(start) + length / 2;
  int cell = static_cast<int>(middle >= 0 ? middle / unit : (middle - unit + 1) / unit);
  return {cell, cell + 1};
}

bool IsPanel(const Control& c) { return dynamic_cast<const platform::forms::UserControl*>(&c) != nullptr; }
}  // namespace

CellRect CellRect::Intersect(const CellRect& o) const {
  int left = std::max(x, o.x), top = std::max(y, o.y);
  int right = std::min(Right(), o.Right()), bottom = std::min(Bottom(), o.Bottom());
  return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

int FormLayout::CellsX(int twips) { return RoundedCells(twips, Screen::TwipsPerCellX); }
int FormLayout::CellsY(int twips) { return RoundedCells(twips, Screen::TwipsPerCellY); }

FormLayout::FormLayout(const platform::forms::Form& form, int originX, int originY) : m_form(&form) {
  m_client = {originX, originY, std::max(1, CellsX(form.Width)), std::max(1, CellsY(form.Height))};
  for (Control* c : form.Controls()) {
    if (!c->Shown() || c->Width <= 0 || c->Height <= 0) continue;
    int left = c->FormLeft(), top = c->FormTop();
    auto [x0, x1] = Span(left, c->Width, Screen::TwipsPerCellX);
    auto [y0, y1] = Span(top, c->Height, Screen::TwipsPerCellY);
    Placed p{c, {originX + x0, originY + y0, x1 - x0, y1 - y0}, m_client, 0, false, Depth(*c)};
    m_placed.push_back(p);
  }
  // Each control is cut by the containers around it that are drawn; panels do not cut.
  for (Placed& p : m_placed) {
    for (const Control* k = p.control->Container(); k; k = k->Container()) {
      if (IsPanel(*k)) continue;
      const Placed* outer = Find(k);
      p.clip = p.clip.Intersect(outer ? outer->rect : CellRect{});
    }
  }
  std::stable_sort(m_placed.begin(), m_placed.end(), [](const Placed& a, const Placed& b) { return a.depth < b.depth; });
  // One-line text runs on over cells that no other control (but the ones around it or
  // inside it) takes.
  for (Placed& p : m_placed) {
    int right = p.rect.Right();
    int row = p.rect.y;
    auto taken = [&](int x) {
      for (const Placed& o : m_placed) {
        if (&o == &p || o.control->Holds(*p.control) || p.control->Holds(*o.control)) continue;
        if (o.rect.Contains(x, row)) return true;
      }
      return false;
    };
    while (right < p.clip.Right() && !taken(right)) ++right;
    p.textRight = std::min(right, p.clip.Right());
    p.textMeetsControl = right < p.clip.Right();
  }
}

const FormLayout::Placed* FormLayout::Find(const Control* control) const {
  for (const Placed& p : m_placed)
    if (p.control == control) return &p;
  return nullptr;
}

Control* FormLayout::At(int x, int y) const {
  const Placed* best = nullptr;
  for (const Placed& p : m_placed) {
    if (!p.rect.Contains(x, y) || !p.clip.Contains(x, y)) continue;
    if (!best || p.depth >= best->depth) best = &p;
  }
  return best ? best->control : nullptr;
}

std::pair<int, int> FormLayout::PointIn(const Control& control, int x, int y) const {
  const Placed* p = Find(&control);
  int cx = p ? x - p->rect.x : x - m_client.x - CellsX(control.FormLeft());
  int cy = p ? y - p->rect.y : y - m_client.y - CellsY(control.FormTop());
  int px = cx * Screen::TwipsPerCellX + Screen::TwipsPerCellX / 2;
  int py = cy * Screen::TwipsPerCellY + Screen::TwipsPerCellY / 2;
  px = std::clamp(px, 0, std::max(0, control.Width - 1));
  py = std::clamp(py, 0, std::max(0, control.Height - 1));
  return {px, py};
}

std::pair<int, int> FormLayout::FormPoint(int x, int y) const {
  // The centre of the cell (kept inside the control drawn there) stands for it, unless
  // the form finds another control at that point (the cell's centre lies on an edge
  // the rounding put elsewhere, or two controls share the cell); then another point of
  // the cell where the form finds the control drawn, or no control when none is.
  Control* drawn = At(x, y);
  const int cellLeft = (x - m_client.x) * Screen::TwipsPerCellX, cellTop = (y - m_client.y) * Screen::TwipsPerCellY;
  std::pair<int, int> first{cellLeft + Screen::TwipsPerCellX / 2, cellTop + Screen::TwipsPerCellY / 2};
  if (drawn) {
    auto [px, py] = PointIn(*drawn, x, y);
    first = {drawn->FormLeft() + px, drawn->FormTop() + py};
  }
  if (!m_form || m_form->ControlAt(first.first, first.second) == drawn) return first;
  // Twips points spread over the cell, a few twips apart, find the thin strips
  // between controls that the cell also covers.
  constexpr int kAcross = 4, kDown = 8;
  for (int j = 0; j < kDown; ++j)
    for (int i = 0; i < kAcross; ++i) {
      int px = cellLeft + (2 * i + 1) * Screen::TwipsPerCellX / (2 * kAcross);
      int py = cellTop + (2 * j + 1) * Screen::TwipsPerCellY / (2 * kDown);
      if (m_form->ControlAt(px, py) == drawn) return {px, py};
    }
  return first;
}

}  // namespace app::terminal
