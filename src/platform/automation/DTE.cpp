#include "platform/automation/DTE.h"

#include <algorithm>

#include "platform/automation/Document.h"
#include "platform/automation/Solution.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/Window.h"
#include "platform/core/Error.h"

namespace platform::automation {

Ref<Document> Documents::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return m_items[index - 1];
}

DTE::DTE()
    : m_solution(std::make_shared<automation::Solution>("")),
      m_statusBar(std::make_shared<automation::StatusBar>()),
      m_mainWindow(std::make_shared<Window>("Development Environment", nullptr, nullptr, true)) {}

Ref<automation::Documents> DTE::Documents() const {
  return std::make_shared<automation::Documents>(m_open);
}

Ref<automation::Windows> DTE::Windows() const {
  std::vector<Ref<Window>> list;
  for (auto& doc : m_open) {
    auto windows = doc->Windows();
    for (int i = 1; i <= windows->Count(); ++i) list.push_back(windows->Item(i));
  }
  for (auto& w : m_toolWindows)
    if (!w->closed()) list.push_back(w);
  return std::make_shared<automation::Windows>(std::move(list), std::const_pointer_cast<DTE>(weak_from_this().lock()));
}

Ref<Window> DTE::ActiveWindow() const {
  if (m_activeToolWindow && !m_activeToolWindow->closed()) return m_activeToolWindow;
  if (m_activeDocument) return m_activeDocument->ActiveWindow();
  return nullptr;
}

void DTE::ActivateToolWindow(const Window* window) {
  for (auto& w : m_toolWindows)
    if (w.get() == window) m_activeToolWindow = w;
}

void DTE::ActivateDocument(Ref<Document> document) {
  m_activeToolWindow = nullptr;
  DocumentOpened(document);
  m_activeDocument = std::move(document);
}

void DTE::DocumentOpened(const Ref<Document>& document) {
  if (!IsOpen(document.get())) m_open.push_back(document);
}

void DTE::DocumentClosed(const Document* document) {
  m_open.erase(std::remove_if(m_open.begin(), m_open.end(),
                              [&](const Ref<Document>& d) { return d.get() == document; }),
               m_open.end());
  if (m_activeDocument.get() == document) m_activeDocument.reset();
}

bool DTE::IsOpen(const Document* document) const {
  return std::any_of(m_open.begin(), m_open.end(),
                     [&](const Ref<Document>& d) { return d.get() == document; });
}

}  // namespace platform::automation
