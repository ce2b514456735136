#include "platform/codemodel/LineIndex.h"

#include <algorithm>

namespace platform::codemodel {

LineIndex::LineIndex(std::string_view text) {
  m_starts.push_back(0);
  const size_t n = text.size();
  for (size_t i = 0; i < n; ++i) {
    char c = text[i];
    if (c != '\r' && c != '\n') continue;
    if (c == '\r' && i + 1 < n && text[i + 1] == '\n') ++i;
    m_starts.push_back(static_cast<uint32_t>(i + 1));
  }
}

int LineIndex::LineOfOffset(uint32_t offset) const {
  auto it = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
  return static_cast<int>(it - m_starts.begin());
}

}  // namespace platform::codemodel
