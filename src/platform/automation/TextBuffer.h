#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::automation {

/// The decoded text of one document (UTF-8) and where its lines begin. Lines end at CRLF,
/// LF or CR; a text that ends in a line break has one more, empty, last line. Lines and
/// character offsets are 1-based; an offset within a line counts characters (code
/// points), not bytes. Every text handed out joins lines with CRLF.
class TextBuffer {
 public:
  explicit TextBuffer(std::string text);

  /// The whole text as decoded, with its own line breaks. Code-model parsers read this
  /// and state positions as byte offsets into it.
  std::string_view Text() const { return m_text; }

  /// The number of lines, at least 1.
  int LineCount() const { return static_cast<int>(m_lineStarts.size()); }

  /// Line `line` without its line break; "" outside 1..LineCount().
  std::string_view Line(int line) const;

  /// The line holding byte `offset` (offsets past the end give the last line).
  int LineOfOffset(uint32_t offset) const;

  /// The byte offset where `line` starts (clamped to 1..LineCount()).
  uint32_t OffsetOfLine(int line) const;

  /// The 1-based character offset of byte `offset` within its line.
  int CharOffsetOf(uint32_t offset) const;

  /// The byte offset of character `charOffset` (1-based) of `line`, clamped to the line.
  uint32_t OffsetOf(int line, int charOffset) const;

  /// Lines `start` to `endExclusive` - 1, joined with CRLF (no break after the last).
  std::string GetLines(int start, int endExclusive) const;

  /// The text between two byte offsets (in either order), line breaks as CRLF.
  std::string GetText(uint32_t from, uint32_t to) const;

 private:
  std::string m_text;
  std::vector<uint32_t> m_lineStarts;  // byte offset of each line's first character
  std::vector<uint32_t> m_lineEnds;    // byte offset of each line's break (or the end)
};

}  // namespace platform::automation
