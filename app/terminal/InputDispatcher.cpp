#include "terminal/InputDispatcher.h"

#include <algorithm>

#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/TreeView.h"
#include "platform/grid/Grid.h"
#include "platform/suite/ScopeSelector.h"
#include "terminal/ControlGeometry.h"

namespace app::terminal {

namespace forms = platform::forms;
using platform::suite::ScopeSelector;

namespace {

bool TakesText(const forms::Control* c) {
  return dynamic_cast<const forms::TextBox*>(c) || dynamic_cast<const ScopeSelector*>(c);
}

bool ClicksOnRelease(const forms::Control* c) {
  return dynamic_cast<const forms::CommandButton*>(c) || dynamic_cast<const forms::CheckBox*>(c) ||
         dynamic_cast<const forms::Label*>(c);
}

// The letter or digit of a one-character text, lower case; 0 for anything else.
char AccessLetter(const std::string& s) {
  if (s.size() != 1) return 0;
  char c = s[0];
  if (c >= 'A' && c <= 'Z') return static_cast<char>(c - 'A' + 'a');
  if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) return c;
  return 0;
}

ScopeSelector* DroppedDown(const forms::Form& form) {
  for (forms::Control* c : form.Controls())
    if (auto* s = dynamic_cast<ScopeSelector*>(c); s && s->IsDroppedDown() && s->Shown()) return s;
  return nullptr;
}

}  // namespace

bool InputDispatcher::Alive(const forms::Form& form, const forms::Control* c) const {
  return c && std::find(form.Controls().begin(), form.Controls().end(), c) != form.Controls().end();
}

void InputDispatcher::Key(forms::Form& form, const FormLayout& layout, const InputEvent& e) {
  forms::Control* focus = form.ActiveControl();
  if (e.kind == InputEvent::Char) {
    if (TakesText(focus)) {
      focus->UserType(e.text);
    } else if (char letter = AccessLetter(e.text)) {
      form.UserAccessKey(letter);
    }
    return;
  }
  if (e.kind != InputEvent::Key) return;
  // Alt with a letter or a digit is an access key; with another key (Alt+Down on a
  // drop-down list) it goes to the control as that key with Alt held.
  bool letterKey = (e.key >= 'A' && e.key <= 'Z') || (e.key >= '0' && e.key <= '9');
  if ((e.shift & mod::Alt) && !(e.shift & mod::Ctrl) && (letterKey || !e.text.empty())) {
    if (char letter = letterKey ? AccessLetter(std::string(1, static_cast<char>(e.key))) : AccessLetter(e.text))
      form.UserAccessKey(letter);
    return;
  }
  if (auto* tree = dynamic_cast<forms::TreeView*>(focus); tree && e.shift == 0 && TreeKey(*tree, layout, e.key))
    return;
  if (auto* box = dynamic_cast<forms::TextBox*>(focus); box && e.shift == 0) {
    if (e.key == key::Back) {
      box->UserType("\b");
      return;
    }
    if (e.key == key::Space) {
      box->UserType(" ");
      return;
    }
  }
  form.UserKey(e.key, e.shift);
  if (e.key == key::Space && e.shift == 0 && Alive(form, focus) && form.ActiveControl() == focus &&
      (dynamic_cast<forms::CommandButton*>(focus) || dynamic_cast<forms::CheckBox*>(focus)))
    focus->UserClick();
}

bool InputDispatcher::TreeKey(forms::TreeView& tree, const FormLayout& layout, int keyCode) {
  std::vector<TreeLine> lines = TreeLinesOf(tree);
  if (lines.empty()) return false;
  TreeCursor& cursor = m_trees[&tree];
  const FormLayout::Placed* placed = layout.Find(&tree);
  int page = placed ? std::max(1, geometry::TreeInnerOf(placed->rect).h - 1) : 10;
  // A tree that has the focus has its cursor on a line: the first one until moved.
  if (!cursor.Placed()) cursor.SetLine(lines, 0);
  int line = cursor.Line(lines);
  int last = static_cast<int>(lines.size()) - 1;
  int to = line;
  const TreeLine* at = line >= 0 ? &lines[static_cast<size_t>(line)] : nullptr;
  switch (keyCode) {
    case key::Up: to = std::max(0, line - 1); break;
    case key::Down: to = std::min(last, line + 1); break;
    case key::PageUp: to = std::max(0, line - page); break;
    case key::PageDown: to = std::min(last, std::max(0, line + page)); break;
    case key::Home: to = 0; break;
    case key::End: to = last; break;
    case key::Space:
      if (at) tree.UserCheck(at->node->Key);
      return true;
    case key::Left:
      if (!at) return true;
      if (at->node->Expanded && at->node->Children() > 0) {
        tree.UserExpand(at->node->Key, false);
        return true;
      }
      // On a closed node or a leaf, Left goes to the parent.
      for (int i = line - 1; i >= 0; --i)
        if (lines[static_cast<size_t>(i)].depth < at->depth) {
          to = i;
          break;
        }
      break;
    case key::Right:
      if (at && at->node->Children() > 0 && !at->node->Expanded) tree.UserExpand(at->node->Key, true);
      return true;
    default: return false;
  }
  if (to != line && to >= 0) {
    cursor.SetLine(lines, to);
    tree.UserClickNode(lines[static_cast<size_t>(to)].node->Key);
  }
  return true;
}

void InputDispatcher::TreePress(forms::TreeView& tree, const FormLayout& layout, int x, int y) {
  const FormLayout::Placed* placed = layout.Find(&tree);
  if (!placed || !tree.Reachable()) return;
  CellRect inner = geometry::TreeInnerOf(placed->rect);
  if (!inner.Contains(x, y)) return;
  std::vector<TreeLine> lines = TreeLinesOf(tree);
  TreeCursor& cursor = m_trees[&tree];
  int index = cursor.Top(lines, inner.h) + (y - inner.y);
  if (index < 0 || index >= static_cast<int>(lines.size())) return;
  const TreeLine& line = lines[static_cast<size_t>(index)];
  int sign = inner.x + 2 * line.depth;
  if (x == sign && line.node->Children() > 0) {
    tree.UserExpand(line.node->Key, !line.node->Expanded);
    return;
  }
  if (line.node->StateImage() != 0 && x >= sign + 2 && x < sign + 5) {
    tree.UserCheck(line.node->Key);
    return;
  }
  cursor.SetLine(lines, index);
  tree.UserClickNode(line.node->Key);
}

void InputDispatcher::Mouse(forms::Form& form, const FormLayout& layout, const InputEvent& e, int screenRows,
                            bool closeBox) {
  ScopeSelector* open = DroppedDown(form);
  CellRect openList;
  const FormLayout::Placed* openBox = open ? layout.Find(open) : nullptr;
  if (openBox) openList = geometry::ScopeListOf(openBox->rect, open->ScopesCount(), screenRows);

  if (e.action == InputEvent::Move) {
    if (e.x == m_lastMoveX && e.y == m_lastMoveY) return;
    m_lastMoveX = e.x;
    m_lastMoveY = e.y;
    if (openBox && openList.Contains(e.x, e.y)) {
      open->UserHighlight(e.y - openList.y);
      return;
    }
    if (!layout.Client().Contains(e.x, e.y)) return;
    auto [fx, fy] = layout.FormPoint(e.x, e.y);
    int held = Alive(form, m_pressed) ? m_pressButton : 0;
    form.UserMouseMove(fx, fy, held, e.shift);
    return;
  }

  if (e.action == InputEvent::WheelUp || e.action == InputEvent::WheelDown) {
    int by = e.action == InputEvent::WheelUp ? -3 : 3;
    forms::Control* c = layout.At(e.x, e.y);
    if (auto* tree = dynamic_cast<forms::TreeView*>(c)) {
      const FormLayout::Placed* p = layout.Find(tree);
      m_trees[tree].Scroll(TreeLinesOf(*tree), geometry::TreeInnerOf(p->rect).h, by);
    } else if (auto* grid = dynamic_cast<platform::grid::Grid*>(c)) {
      grid->SetTopRow(grid->TopRow() + by);
    }
    return;
  }

  if (e.action == InputEvent::Release) {
    forms::Control* pressed = Alive(form, m_pressed) ? m_pressed : nullptr;
    m_pressed = nullptr;
    if (!pressed || e.button != m_pressButton) return;
    auto [px, py] = layout.PointIn(*pressed, e.x, e.y);
    pressed->UserMouseUp(e.button, px, py, e.shift);
    if (e.button == forms::vbLeftButton && Alive(form, pressed) && layout.At(e.x, e.y) == pressed &&
        ClicksOnRelease(pressed))
      pressed->UserClick();
    return;
  }

  // A press.
  int64_t now = m_now();
  bool twice = e.button == m_lastPressButton && e.x == m_lastPressX && e.y == m_lastPressY && m_lastPressAt >= 0 &&
               now - m_lastPressAt <= kDoubleClickMs;
  m_lastPressAt = twice ? -1 : now;  // a third press starts afresh
  m_lastPressX = e.x;
  m_lastPressY = e.y;
  m_lastPressButton = e.button;

  if (openBox) {
    if (openList.Contains(e.x, e.y)) {
      open->UserPick(e.y - openList.y);
      return;
    }
    if (!openBox->rect.Contains(e.x, e.y)) {
      // A press elsewhere closes the list and is spent on that.
      open->SetDroppedDown(false);
      return;
    }
  }
  if (closeBox && geometry::CloseBoxOf(layout.Client()).Contains(e.x, e.y)) {
    if (e.button == forms::vbLeftButton) form.Unload(forms::vbFormControlMenu);
    return;
  }
  forms::Control* c = layout.At(e.x, e.y);
  if (!c) return;
  if (c->CanFocus()) form.SetFocus(*c);
  if (!Alive(form, c)) return;
  auto [px, py] = layout.PointIn(*c, e.x, e.y);
  m_pressed = c;
  m_pressButton = e.button;
  if (auto* tree = dynamic_cast<forms::TreeView*>(c)) {
    c->UserMouseDown(e.button, px, py, e.shift);
    if (e.button == forms::vbLeftButton) TreePress(*tree, layout, e.x, e.y);
    if (twice && e.button == forms::vbLeftButton) c->UserDblClick(px, py);
    return;
  }
  if (auto* scope = dynamic_cast<ScopeSelector*>(c)) {
    c->UserMouseDown(e.button, px, py, e.shift);
    if (e.button == forms::vbLeftButton) scope->UserClick();
    return;
  }
  // A second press on a button or a check box is another click, as it is on screen;
  // elsewhere it is the double click.
  if (twice && !ClicksOnRelease(c)) {
    c->UserDblClick(px, py);
    return;
  }
  c->UserMouseDown(e.button, px, py, e.shift);
}

}  // namespace app::terminal
