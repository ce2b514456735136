#include "platform/automation/Window.h"

#include "platform/automation/DocumentData.h"
#include "platform/core/Error.h"

namespace platform::automation {

Ref<Document> Window::Document() const {
  if (!m_document) return nullptr;
  return m_document->Object("TextDocument")->Parent();
}

Ref<Window> Windows::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return m_items[index - 1];
}

}  // namespace platform::automation
