#include "platform/automation/Window.h"

#include "platform/automation/ClassRegistry.h"
#include "platform/automation/DTE.h"
#include "platform/automation/DocumentData.h"
#include "platform/automation/HostedDocument.h"
#include "platform/core/Error.h"

namespace platform::automation {

Ref<Document> Window::Document() const {
  if (!m_document) return nullptr;
  return m_document->Object("TextDocument")->Parent();
}

void Window::SetVisible(bool visible) {
  const bool shown = visible && (!m_visible || m_closed);
  m_visible = visible;
  if (visible && !m_document) m_closed = false;
  if (shown)
    if (auto* hosted = dynamic_cast<HostedDocument*>(m_object.get())) hosted->WindowShown();
}

void Window::Activate() {
  SetVisible(true);
  if (m_document) {
    m_document->Activated(*this);
    return;
  }
  if (auto dte = m_dte.lock()) dte->ActivateToolWindow(this);
}

void Window::Close(int) {
  m_visible = false;
  m_closed = true;
}

void Window::Resize(int width, int height) {
  m_width = width;
  m_height = height;
  if (auto* hosted = dynamic_cast<HostedDocument*>(m_object.get())) hosted->WindowResized(width, height);
}

Ref<Window> Windows::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return m_items[index - 1];
}

Ref<Window> Windows::CreateToolWindow(const Ref<Dispatch>&, const std::string& progID,
                                      const std::string& caption, const std::string& positionGuid,
                                      Ref<Dispatch>& docObject) {
  auto dte = m_dte.lock();
  if (!dte) throw Error(err::kInvalidCall, "The windows belong to no development environment");
  if (progID.empty()) throw Error(err::kInvalidCall, "A tool window needs the ProgID of its document");
  auto object = ClassRegistry::CreateObject(progID);
  auto window = std::make_shared<Window>(caption, nullptr, object, false);
  window->SetEnvironment(dte);
  window->SetObjectKind(positionGuid);
  dte->AddToolWindow(window);
  window->Resize(kToolWindowWidth, kToolWindowHeight);
  docObject = object;
  return window;
}

}  // namespace platform::automation
