#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform::codemodel {

/// Where the lines of a text begin, to turn the byte offsets of declarations into
/// 1-based line numbers. Lines end at CRLF, LF or CR; a text that ends in a line break
/// has one more, empty, last line (as documents count them).
class LineIndex {
 public:
  explicit LineIndex(std::string_view text);

  /// The number of lines, at least 1.
  int LineCount() const { return static_cast<int>(m_starts.size()); }
  /// The line holding byte `offset` (offsets past the end give the last line).
  int LineOfOffset(uint32_t offset) const;

 private:
  std::vector<uint32_t> m_starts;  // byte offset of each line's first character
};

}  // namespace platform::codemodel
