#include "terminal/FormWindow.h"

#include <algorithm>

#include "platform/forms/Form.h"
#include "terminal/EventLoop.h"
#include "terminal/FormRenderer.h"

namespace app::terminal {

FormWindow::FormWindow(platform::forms::Form& form, EventLoop& loop)
    : m_form(form), m_loop(loop), m_input(m_trees, loop.NowFunction()) {}

FormLayout FormWindow::Layout() const {
  Terminal& t = m_loop.terminal();
  int w = std::max(1, FormLayout::CellsX(m_form.Width));
  int h = std::max(1, FormLayout::CellsY(m_form.Height));
  // The window is the client area and one cell of border around it.
  int x = std::max(1, (t.Columns() - (w + 2)) / 2 + 1);
  int y = std::max(1, (t.Rows() - (h + 2)) / 2 + 1);
  return FormLayout(m_form, x, y);
}

void FormWindow::Draw(Terminal& terminal, bool active) {
  FormLayout layout = Layout();
  FormRenderer renderer(terminal, m_trees);
  renderer.SetBase(Style::Window);
  renderer.DrawWindow(layout.Client(), m_form.Caption, true, active);
  renderer.DrawForm(m_form, layout, active);
}

void FormWindow::Input(const InputEvent& e) {
  FormLayout layout = Layout();
  if (e.kind == InputEvent::Mouse) m_input.Mouse(m_form, layout, e, m_loop.terminal().Rows(), true);
  else m_input.Key(m_form, layout, e);
}

}  // namespace app::terminal
