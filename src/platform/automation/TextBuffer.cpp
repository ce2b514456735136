#include "platform/automation/TextBuffer.h"

#include <algorithm>

namespace platform::automation {
namespace {
bool IsContinuationByte(unsigned char c) { return (c & 0xC0) == 0x80; }
}  // namespace

TextBuffer::TextBuffer(std::string text) : m_text(std::move(text)) {
  m_lineStarts.push_back(0);
  const size_t n = m_text.size();
  for (size_t i = 0; i < n; ++i) {
    char c = m_text[i];
    if (c == '\r' || c == '\n') {
      m_lineEnds.push_back(static_cast<uint32_t>(i));
      if (c == '\r' && i + 1 < n && m_text[i + 1] == '\n') ++i;
      m_lineStarts.push_back(static_cast<uint32_t>(i + 1));
    }
  }
  m_lineEnds.push_back(static_cast<uint32_t>(n));
}

std::string_view TextBuffer::Line(int line) const {
  if (line < 1 || line > LineCount()) return {};
  size_t b = m_lineStarts[line - 1], e = m_lineEnds[line - 1];
  return std::string_view(m_text).substr(b, e - b);
}

int TextBuffer::LineOfOffset(uint32_t offset) const {
  auto it = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
  return static_cast<int>(it - m_lineStarts.begin());
}

uint32_t TextBuffer::OffsetOfLine(int line) const {
  line = std::clamp(line, 1, LineCount());
  return m_lineStarts[line - 1];
}

int TextBuffer::CharOffsetOf(uint32_t offset) const {
  int line = LineOfOffset(offset);
  uint32_t b = m_lineStarts[line - 1];
  uint32_t e = std::min<uint32_t>(offset, static_cast<uint32_t>(m_text.size()));
  int chars = 1;
  for (uint32_t i = b; i < e; ++i)
    if (!IsContinuationByte(static_cast<unsigned char>(m_text[i]))) ++chars;
  return chars;
}

uint32_t TextBuffer::OffsetOf(int line, int charOffset) const {
  line = std::clamp(line, 1, LineCount());
  uint32_t i = m_lineStarts[line - 1], e = m_lineEnds[line - 1];
  for (int c = 1; c < charOffset && i < e; ++c) {
    ++i;
    while (i < e && IsContinuationByte(static_cast<unsigned char>(m_text[i]))) ++i;
  }
  return i;
}

std::string TextBuffer::GetLines(int start, int endExclusive) const {
  std::string out;
  start = std::max(start, 1);
  endExclusive = std::min(endExclusive, LineCount() + 1);
  if (start < endExclusive)
    out.reserve(m_lineEnds[endExclusive - 2] - m_lineStarts[start - 1] + 2 * (endExclusive - start));
  for (int l = start; l < endExclusive; ++l) {
    if (l > start) out += "\r\n";
    out += Line(l);
  }
  return out;
}

std::string TextBuffer::GetText(uint32_t from, uint32_t to) const {
  if (from > to) std::swap(from, to);
  to = std::min<uint32_t>(to, static_cast<uint32_t>(m_text.size()));
  from = std::min(from, to);
  std::string out;
  out.reserve(to - from + 16);
  // Runs between line breaks are copied whole; each break becomes CRLF.
  const char* p = m_text.data() + from;
  const char* const end = m_text.data() + to;
  while (p < end) {
    const char* brk = p;
    while (brk < end && *brk != '\r' && *brk != '\n') ++brk;
    out.append(p, static_cast<size_t>(brk - p));
    if (brk == end) break;
    out += "\r\n";
    p = brk + 1;
    if (*brk == '\r' && p < end && *p == '\n') ++p;
  }
  return out;
}

}  // namespace platform::automation
