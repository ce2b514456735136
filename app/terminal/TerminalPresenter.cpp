#include "terminal/TerminalPresenter.h"

#include "platform/forms/Form.h"
#include "terminal/EventLoop.h"
#include "terminal/FormWindow.h"

namespace app::terminal {

void TerminalPresenter::RunModal(platform::forms::Form& form) {
  FormWindow window(form, m_loop);
  m_loop.Push(&window);
  if (!form.ActiveControl()) {
    auto order = form.TabOrder();
    if (!order.empty()) form.SetFocus(*order.front());
  }
  m_loop.Run([&] { return form.IsVisible() && form.IsLoaded(); });
  m_loop.Pop(&window);
  if (form.IsVisible() && form.IsLoaded()) {
    form.Unload(platform::forms::vbFormControlMenu);
    if (form.IsVisible()) form.Hide();
  }
}

}  // namespace app::terminal
