#include "platform/automation/TextPoint.h"

#include <algorithm>

#include "platform/automation/TextBuffer.h"
#include "platform/automation/TextDocument.h"
#include "platform/core/Error.h"

namespace platform::automation {

int TextPoint::Line() const { return m_parent->textBuffer().LineOfOffset(m_offset); }

int TextPoint::LineCharOffset() const { return m_parent->textBuffer().CharOffsetOf(m_offset); }

Ref<EditPoint> TextPoint::CreateEditPoint() const {
  return std::make_shared<EditPoint>(m_parent, m_offset);
}

bool TextPoint::TryToShow(int, int) const {
  m_parent->ShowLine(Line());
  return true;
}

void EditPoint::LineUp(int count) {
  const TextBuffer& t = m_parent->textBuffer();
  m_offset = t.OffsetOfLine(std::max(1, Line() - std::max(0, count)));
}

void EditPoint::LineDown(int count) {
  const TextBuffer& t = m_parent->textBuffer();
  m_offset = t.OffsetOfLine(std::min(t.LineCount(), Line() + std::max(0, count)));
}

void EditPoint::MoveToLineAndOffset(int line, int offset) {
  const TextBuffer& t = m_parent->textBuffer();
  if (line < 1 || offset < 1) throw Error(err::kInvalidCall);
  m_offset = t.OffsetOf(std::min(line, t.LineCount()), offset);
}

std::string EditPoint::GetLines(int start, int endExclusive) const {
  const TextBuffer& t = m_parent->textBuffer();
  if (start < 1 || endExclusive <= start || endExclusive - 1 > t.LineCount())
    throw Error(err::kInvalidCall);
  return t.GetLines(start, endExclusive);
}

std::string EditPoint::GetText(const Ref<TextPoint>& point) const {
  if (point->Parent().get() != m_parent.get()) throw Error(err::kInvalidCall);
  return m_parent->textBuffer().GetText(m_offset, point->offset());
}

std::string EditPoint::GetText(int count) const {
  const TextBuffer& t = m_parent->textBuffer();
  uint32_t end = m_offset;
  std::string_view text = t.Text();
  for (int c = 0; c < count && end < text.size(); ++c) {
    ++end;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  }
  return t.GetText(m_offset, end);
}

}  // namespace platform::automation
