#include "terminal/FormRenderer.h"

#include <algorithm>

#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Separator.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/TreeView.h"
#include "platform/grid/Grid.h"
#include "platform/suite/ScopeSelector.h"
#include "platform/suite/VsTabAreaEx.h"
#include "terminal/ControlGeometry.h"
#include "terminal/GridPainter.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace forms = platform::forms;
namespace suite = platform::suite;

void FormRenderer::Put(int x, int y, const std::string& s, const Style& style, const CellRect& clip) {
  if (y < clip.y || y >= clip.Bottom()) return;
  text::Span shown = text::Clip(s, x, clip.x, clip.Right());
  if (shown.column >= 0) m_t.Put(shown.column, y, shown.text, style);
}

int FormRenderer::TextRoom(const FormLayout::Placed& p, int x, const std::string& caption) const {
  int room = p.textRight - x;
  // Text cut short by a neighbour keeps a blank cell before it.
  if (p.textMeetsControl && text::Width(forms::PlainCaption(caption)) > room) --room;
  return room;
}

void FormRenderer::Fill(const CellRect& r, const Style& style) {
  if (r.Empty()) return;
  std::string blank(static_cast<size_t>(r.w), ' ');
  for (int y = r.y; y < r.Bottom(); ++y) m_t.Put(r.x, y, blank, style);
}

void FormRenderer::Box(const CellRect& r, const Style& style) {
  if (r.w < 2 || r.h < 2) return;
  std::string top = m_g.topLeft, bottom = m_g.bottomLeft;
  for (int i = 0; i < r.w - 2; ++i) top += m_g.horizontal, bottom += m_g.horizontal;
  top += m_g.topRight;
  bottom += m_g.bottomRight;
  m_t.Put(r.x, r.y, top, style);
  m_t.Put(r.x, r.Bottom() - 1, bottom, style);
  for (int y = r.y + 1; y < r.Bottom() - 1; ++y) {
    m_t.Put(r.x, y, m_g.vertical, style);
    m_t.Put(r.Right() - 1, y, m_g.vertical, style);
  }
}

void FormRenderer::DrawCaption(int x, int y, int width, const std::string& caption, Style style, bool accessKey) {
  std::string plain = forms::PlainCaption(caption);
  std::string shown = text::Fit(plain, width, m_g.ellipsis);
  m_t.Put(x, y, shown, style);
  int column = accessKey ? geometry::AccessColumn(caption) : -1;
  if (column < 0 || column >= text::Width(shown) - (shown != plain ? 1 : 0)) return;
  // The access key's character, underlined, over itself.
  int at = 0;
  for (const std::string& c : text::Characters(shown)) {
    if (at == column) {
      Style underlined = style;
      underlined.underline = true;
      m_t.Put(x + at, y, c, underlined);
      return;
    }
    at += text::CharWidth(c);
  }
}

void FormRenderer::DrawWindow(const CellRect& client, const std::string& caption, bool closeBox, bool active) {
  CellRect window = geometry::WindowOf(client);
  Style frame{Style::Window};
  Box(window, frame);
  Style title{Style::Title, active};
  int room = window.w - 4 - (closeBox ? 4 : 0);
  // Appended: " " + a temporary string trips a false -Wrestrict in GCC 12 at -O2.
  std::string shown = std::string(" ").append(text::Fit(caption, std::max(0, room - 2), m_g.ellipsis)).append(" ");
  m_t.Put(window.x + 2, window.y, shown, title);
  if (closeBox) {
    CellRect box = geometry::CloseBoxOf(client);
    m_t.Put(box.x, box.y, std::string("[") + m_g.close + "]", frame);
  }
}

void FormRenderer::DrawForm(const forms::Form& form, const FormLayout& layout, bool active) {
  m_cursorSet = false;
  m_layout = &layout;
  Fill(layout.Client(), Base());
  forms::Control* focus = active ? form.ActiveControl() : nullptr;
  for (const FormLayout::Placed& p : layout.Controls()) DrawControl(p, p.control == focus);
  // A dropped-down list lies over whatever is below its box.
  for (const FormLayout::Placed& p : layout.Controls())
    if (auto* s = dynamic_cast<const suite::ScopeSelector*>(p.control); s && s->IsDroppedDown()) ScopeList(p, *s);
  if (active && !m_cursorSet) m_t.SetCursor(0, 0, false);
  m_layout = nullptr;
}

void FormRenderer::DrawControl(const FormLayout::Placed& p, bool focused) {
  forms::Control* c = p.control;
  if (auto* b = dynamic_cast<forms::CommandButton*>(c)) return Button(p, *b, focused);
  if (auto* k = dynamic_cast<forms::CheckBox*>(c)) return Check(p, *k, focused);
  if (auto* l = dynamic_cast<forms::Label*>(c)) return Label(p, *l);
  if (auto* f = dynamic_cast<forms::Frame*>(c)) return Frame(p, *f);
  if (auto* t = dynamic_cast<forms::TextBox*>(c)) return Field(p, *t, focused);
  if (auto* t = dynamic_cast<forms::TreeView*>(c)) return Tree(p, *t, focused);
  if (dynamic_cast<forms::Separator*>(c)) return Separator(p);
  if (auto* s = dynamic_cast<suite::ScopeSelector*>(c)) return Scope(p, *s, focused);
  if (auto* s = dynamic_cast<suite::VsTabAreaEx*>(c)) return Tabs(p, *s, focused);
  if (auto* g = dynamic_cast<platform::grid::Grid*>(c)) {
    GridPainter(m_t, m_g).Draw(*g, p.rect.Intersect(p.clip), focused, m_base);
    return;
  }
  // Panels and other containers draw nothing of their own.
}

void FormRenderer::Button(const FormLayout::Placed& p, const forms::CommandButton& b, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style{focused ? Style::Focus : Style::Button, focused || b.Default};
  style.dim = !b.Reachable();
  Fill({r.x, p.rect.y, r.w, 1}, style);
  std::string plain = forms::PlainCaption(b.Caption);
  int w = std::min(text::Width(plain), p.rect.w);
  int x = p.rect.x + (p.rect.w - w) / 2;
  // Drawn within the button's own row, cut where the clip ends.
  std::string shown = text::Fit(plain, p.rect.w, m_g.ellipsis);
  if (x >= r.x && x + text::Width(shown) <= r.Right()) DrawCaption(x, p.rect.y, p.rect.w, b.Caption, style);
  else Put(x, p.rect.y, shown, style, r);
}

void FormRenderer::Check(const FormLayout::Placed& p, const forms::CheckBox& c, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style = Base();
  style.dim = !c.Reachable();
  const char* mark = c.Value == 1 ? "[x]" : c.Value == 2 ? "[-]" : "[ ]";
  Put(p.rect.x, p.rect.y, mark, style, p.clip);
  Style caption = style;
  if (focused) caption.color = Style::Focus;
  int width = TextRoom(p, p.rect.x + 4, c.Caption);
  if (width > 0 && p.rect.x + 4 >= p.clip.x) DrawCaption(p.rect.x + 4, p.rect.y, width, c.Caption, caption);
}

void FormRenderer::Label(const FormLayout::Placed& p, const forms::Label& l) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style = Base();
  style.dim = !l.Reachable();
  if (p.rect.h <= 1) {
    int width = TextRoom(p, p.rect.x, l.Caption);
    if (p.rect.x >= p.clip.x) DrawCaption(p.rect.x, p.rect.y, width, l.Caption, style);
    return;
  }
  std::vector<std::string> lines = text::Wrap(forms::PlainCaption(l.Caption), p.rect.w);
  for (int i = 0; i < p.rect.h && i < static_cast<int>(lines.size()); ++i) {
    std::string line = lines[static_cast<size_t>(i)];
    bool last = i == p.rect.h - 1 && static_cast<int>(lines.size()) > p.rect.h;
    if (last) line = text::Fit(line + " " + lines[static_cast<size_t>(i) + 1], p.rect.w, m_g.ellipsis);
    Put(p.rect.x, p.rect.y + i, line, style, r);
  }
}

void FormRenderer::Frame(const FormLayout::Placed& p, const forms::Frame& f) {
  Style style = Base();
  style.dim = !f.Reachable();
  CellRect inner{p.rect.x + 1, p.rect.y + 1, p.rect.w - 2, p.rect.h - 2};
  bool roomy = p.rect.h >= 3 && p.rect.w >= 3 && p.rect.Intersect(p.clip) == p.rect;
  for (const forms::Control* child : f.Children()) {
    // A child on the frame's border leaves no room for the lines along the top and
    // the bottom.
    const FormLayout::Placed* c = m_layout ? m_layout->Find(child) : nullptr;
    if (c && c->rect.Intersect(inner) != c->rect) roomy = false;
  }
  if (roomy) {
    Box(p.rect, style);
  } else {
    // Too low for a box: a line down either side.
    for (int y = p.rect.y; y < p.rect.Bottom(); ++y) {
      Put(p.rect.x, y, m_g.vertical, style, p.clip);
      Put(p.rect.Right() - 1, y, m_g.vertical, style, p.clip);
    }
  }
  std::string caption = forms::PlainCaption(f.Caption);
  if (!caption.empty()) DrawCaption(p.rect.x + 1, p.rect.y, p.rect.w - 2, " " + f.Caption + " ", style);
}

void FormRenderer::Field(const FormLayout::Placed& p, const forms::TextBox& t, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style{Style::Field};
  style.dim = !t.Reachable();
  if (focused) style.bold = true;
  Fill({r.x, p.rect.y, r.w, 1}, style);
  // The end of a long text shows, where the typing happens.
  std::vector<std::string> chars = text::Characters(t.Text());
  int room = std::max(1, p.rect.w - 1);
  std::string shown;
  int used = 0;
  for (auto it = chars.rbegin(); it != chars.rend(); ++it) {
    int w = text::CharWidth(*it);
    if (used + w > room) break;
    shown.insert(0, *it);
    used += w;
  }
  Put(p.rect.x, p.rect.y, shown, style, r);
  if (focused) {
    m_t.SetCursor(std::min(p.rect.x + used, r.Right() - 1), p.rect.y, true);
    m_cursorSet = true;
  }
}

void FormRenderer::Tree(const FormLayout::Placed& p, const forms::TreeView& t, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style = Base();
  style.dim = !t.Reachable();
  Fill(r, style);
  if (geometry::TreeHasBorder(p.rect)) Box(p.rect, style);
  CellRect inner = geometry::TreeInnerOf(p.rect).Intersect(r);
  std::vector<TreeLine> lines = TreeLinesOf(t);
  TreeCursor& cursor = m_trees[&t];
  int top = cursor.Top(lines, inner.h);
  // The focused tree shows its cursor on the first line until the cursor is moved.
  int current = cursor.Placed() ? cursor.Line(lines) : focused ? 0 : -1;
  for (int i = 0; i < inner.h && top + i < static_cast<int>(lines.size()); ++i) {
    const TreeLine& line = lines[static_cast<size_t>(top + i)];
    std::string s(static_cast<size_t>(2 * line.depth), ' ');
    s += line.node->Children() > 0 ? (line.node->Expanded ? m_g.expanded : m_g.collapsed) : " ";
    s += " ";
    int state = line.node->StateImage();
    if (state != 0) s += state == 2 ? "[x] " : "[ ] ";
    s += line.node->Text;
    Style lineStyle = style;
    if (top + i == current) lineStyle.color = focused ? Style::Selection : lineStyle.color, lineStyle.bold = true;
    if (top + i == current) Fill({inner.x, inner.y + i, inner.w, 1}, lineStyle);
    Put(inner.x, inner.y + i, text::Fit(s, inner.w, m_g.ellipsis), lineStyle, inner);
  }
  if (geometry::TreeHasBorder(p.rect)) {
    if (top > 0) Put(p.rect.Right() - 1, inner.y, m_g.scrollUp, style, r);
    if (top + inner.h < static_cast<int>(lines.size())) Put(p.rect.Right() - 1, inner.Bottom() - 1, m_g.scrollDown, style, r);
  }
}

void FormRenderer::Separator(const FormLayout::Placed& p) {
  CellRect r = p.rect.Intersect(p.clip);
  std::string line;
  for (int i = 0; i < r.w; ++i) line += m_g.horizontal;
  Put(r.x, p.rect.y, line, Base(), r);
}

void FormRenderer::Scope(const FormLayout::Placed& p, const suite::ScopeSelector& s, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style{focused ? Style::Focus : Style::Field};
  style.dim = !s.Reachable();
  Fill({r.x, p.rect.y, r.w, 1}, style);
  std::string caption = s.ListIndex() >= 0 ? s.ScopeCaption(s.ListIndex()) : "";
  Put(p.rect.x + 1, p.rect.y, text::Fit(caption, p.rect.w - 3, m_g.ellipsis), style, r);
  Put(p.rect.Right() - 1, p.rect.y, m_g.dropDown, style, r);
}

void FormRenderer::ScopeList(const FormLayout::Placed& p, const suite::ScopeSelector& s) {
  CellRect list = geometry::ScopeListOf(p.rect, s.ScopesCount(), m_t.Rows());
  for (int i = 0; i < list.h && i < s.ScopesCount(); ++i) {
    Style style{i == s.HighlightIndex() ? Style::Selection : Style::Menu, i == s.ListIndex()};
    Fill({list.x, list.y + i, list.w, 1}, style);
    m_t.Put(list.x + 1, list.y + i, text::Fit(s.ScopeCaption(i), list.w - 2, m_g.ellipsis), style);
  }
}

void FormRenderer::Tabs(const FormLayout::Placed& p, const suite::VsTabAreaEx& s, bool focused) {
  CellRect r = p.rect.Intersect(p.clip);
  if (r.Empty()) return;
  Style style = Base();
  style.dim = !s.Reachable();
  if (p.rect.h >= 2) {
    std::string line;
    for (int i = 0; i < p.rect.w; ++i) line += m_g.horizontal;
    Put(p.rect.x, p.rect.y + 1, line, style, r);
  }
  for (int i = 1; i <= s.TabsCount(); ++i) {
    CellRect tab = geometry::TabOf(s, p.rect, i);
    bool selected = s.Tab(i)->Selected();
    Style tabStyle = style;
    if (selected) tabStyle.color = focused ? Style::Focus : Style::Title, tabStyle.bold = true;
    Put(tab.x, tab.y, text::Pad(" " + s.Tab(i)->Caption(), tab.w), tabStyle, r);
  }
}

}  // namespace app::terminal
