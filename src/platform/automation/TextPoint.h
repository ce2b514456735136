#pragma once
#include <cstdint>

#include "platform/core/Ref.h"

namespace platform::automation {

class TextDocument;
class EditPoint;

/// A position in a text document: a line and a character offset in it (both 1-based).
class TextPoint : public Dispatch {
 public:
  TextPoint(Ref<TextDocument> parent, uint32_t offset) : m_parent(std::move(parent)), m_offset(offset) {}
  const char* TypeName() const override { return "TextPoint"; }

  int Line() const;
  int LineCharOffset() const;
  Ref<TextDocument> Parent() const { return m_parent; }
  /// A new edit point at this position.
  Ref<EditPoint> CreateEditPoint() const;
  /// Shows the position in the document's view (`how` 0: centred; the view's line is
  /// kept for the host to draw, TextDocument::ShownLine); true.
  bool TryToShow(int how = 0, int pointOrCount = 0) const;

  /// The byte offset into the document text.
  uint32_t offset() const { return m_offset; }

 protected:
  Ref<TextDocument> m_parent;
  uint32_t m_offset;
};

/// A movable position in a text document that can read the text around it.
class EditPoint : public TextPoint {
 public:
  using TextPoint::TextPoint;
  const char* TypeName() const override { return "EditPoint"; }

  /// Moves up `count` lines to the start of the line (stops at line 1).
  void LineUp(int count = 1);
  /// Moves down `count` lines to the start of the line (stops at the last line).
  void LineDown(int count = 1);
  /// Moves to `line`, character `offset`, as the editor does: a line past the end is
  /// the last line, an offset past the end of its line is the line's end. Fails with 5
  /// for a line or offset below 1.
  void MoveToLineAndOffset(int line, int offset);
  /// Lines `start` to `endExclusive` - 1 joined with CRLF; fails with 5 when
  /// `start` < 1, `endExclusive` <= `start` or a line is past the end.
  std::string GetLines(int start, int endExclusive) const;
  /// The text from here to `point`, line breaks as CRLF.
  std::string GetText(const Ref<TextPoint>& point) const;
  /// The next `count` characters' text from here (to the end of the document at most).
  std::string GetText(int count) const;
};

}  // namespace platform::automation
