#include "platform/automation/TextDocument.h"

#include <algorithm>

#include "platform/automation/DocumentData.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"

namespace platform::automation {
const TextBuffer& TextDocument::textBuffer() const { return m_data->text; }

Ref<TextDocument> TextDocument::Self() const { return m_data->Share(&m_data->textDocument); }

Ref<TextPoint> TextDocument::StartPoint() const { return std::make_shared<TextPoint>(Self(), 0); }

Ref<TextPoint> TextDocument::EndPoint() const {
  return std::make_shared<TextPoint>(Self(), static_cast<uint32_t>(m_data->text.Text().size()));
}

Ref<TextSelection> TextDocument::Selection() const { return m_data->Share(&m_data->selection); }

Ref<Document> TextDocument::Parent() const { return m_data->Share(&m_data->document); }

int TextDocument::ShownLine() const { return m_data->shownLine; }
void TextDocument::ShowLine(int line) const { m_data->shownLine = line; }

Ref<TextPoint> TextSelection::ActivePoint() const {
  return std::make_shared<TextPoint>(m_data->textDocument.Self(), m_active);
}

Ref<TextPoint> TextSelection::AnchorPoint() const {
  return std::make_shared<TextPoint>(m_data->textDocument.Self(), m_anchor);
}

Ref<TextPoint> TextSelection::TopPoint() const {
  return std::make_shared<TextPoint>(m_data->textDocument.Self(), std::min(m_anchor, m_active));
}

Ref<TextPoint> TextSelection::BottomPoint() const {
  return std::make_shared<TextPoint>(m_data->textDocument.Self(), std::max(m_anchor, m_active));
}

int TextSelection::CurrentLine() const { return m_data->text.LineOfOffset(m_active); }

void TextSelection::GotoLine(int line, bool select) {
  m_active = m_data->text.OffsetOfLine(std::clamp(line, 1, m_data->text.LineCount()));
  if (!select) m_anchor = m_active;
}

void TextSelection::MoveToLineAndOffset(int line, int offset, bool extend) {
  if (line < 1 || offset < 1) throw Error(err::kInvalidCall);
  m_active = m_data->text.OffsetOf(std::min(line, m_data->text.LineCount()), offset);
  if (!extend) m_anchor = m_active;
}

void TextSelection::MoveToPoint(const Ref<TextPoint>& point, bool extend) {
  if (point->Parent().get() != &m_data->textDocument) throw Error(err::kInvalidCall);
  m_active = point->offset();
  if (!extend) m_anchor = m_active;
}

Ref<TextDocument> TextSelection::Parent() const { return m_data->textDocument.Self(); }

}  // namespace platform::automation
