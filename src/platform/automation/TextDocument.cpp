#include "platform/automation/TextDocument.h"

#include <algorithm>

#include "platform/automation/DocumentData.h"
#include "platform/automation/TextPoint.h"

namespace platform::automation {
const TextBuffer& TextDocument::textBuffer() const { return m_data->text; }

Ref<TextDocument> TextDocument::Self() const { return m_data->Share(&m_data->textDocument); }

Ref<TextPoint> TextDocument::StartPoint() const { return std::make_shared<TextPoint>(Self(), 0); }

Ref<TextPoint> TextDocument::EndPoint() const {
  return std::make_shared<TextPoint>(Self(), static_cast<uint32_t>(m_data->text.Text().size()));
}

Ref<TextSelection> TextDocument::Selection() const { return m_data->Share(&m_data->selection); }

Ref<Document> TextDocument::Parent() const { return m_data->Share(&m_data->document); }

Ref<TextPoint> TextSelection::ActivePoint() const {
  return std::make_shared<TextPoint>(m_data->textDocument.Self(), m_data->text.OffsetOfLine(m_line));
}

void TextSelection::GotoLine(int line, bool) { m_line = std::clamp(line, 1, m_data->text.LineCount()); }

Ref<TextDocument> TextSelection::Parent() const { return m_data->textDocument.Self(); }

}  // namespace platform::automation
