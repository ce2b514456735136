#pragma once
#include <cstdint>

#include "platform/core/Ref.h"

namespace platform::automation {

class Document;
class TextPoint;
class TextSelection;
class TextBuffer;
struct DocumentData;

/// The text of a document, as the editor offers it.
class TextDocument : public Dispatch {
 public:
  explicit TextDocument(DocumentData* data) : m_data(data) {}
  const char* TypeName() const override { return "TextDocument"; }

  Ref<TextPoint> StartPoint() const;
  Ref<TextPoint> EndPoint() const;
  Ref<TextSelection> Selection() const;
  Ref<Document> Parent() const;

  const TextBuffer& textBuffer() const;
  /// The line the editor's view was last asked to show (TryToShow); 0 before.
  int ShownLine() const;
  /// For text points: the view now shows `line`.
  void ShowLine(int line) const;
  /// A reference to this text document that keeps its document alive.
  Ref<TextDocument> Self() const;

 private:
  DocumentData* m_data;
};

/// The caret and selection of a document's view: the anchor where the selection
/// began and the active point (the caret) where it ends; nothing is selected when the
/// two are the same.
class TextSelection : public Dispatch {
 public:
  explicit TextSelection(DocumentData* data) : m_data(data) {}
  const char* TypeName() const override { return "TextSelection"; }

  /// The caret.
  Ref<TextPoint> ActivePoint() const;
  /// Where the selection began.
  Ref<TextPoint> AnchorPoint() const;
  /// The start and the end of the selection, whichever of anchor and caret they are.
  Ref<TextPoint> TopPoint() const;
  Ref<TextPoint> BottomPoint() const;
  /// Whether nothing is selected.
  bool IsEmpty() const { return m_anchor == m_active; }
  /// The caret's line.
  int CurrentLine() const;
  /// Moves the caret to the start of `line` (clamped to the document); with `select`
  /// the anchor stays, so the text between is selected.
  void GotoLine(int line, bool select = false);
  /// Moves the caret to character `offset` of `line`, as the editor does: a line past
  /// the end is the last line, an offset past the end of its line is the line's end.
  /// With `extend` the anchor stays. Fails with 5 for a line or offset below 1.
  void MoveToLineAndOffset(int line, int offset, bool extend = false);
  /// Moves the caret to `point` (of this document; 5 for another's); with `extend` the
  /// anchor stays.
  void MoveToPoint(const Ref<TextPoint>& point, bool extend = false);
  Ref<TextDocument> Parent() const;

 private:
  DocumentData* m_data;
  uint32_t m_anchor = 0;  // byte offsets into the text
  uint32_t m_active = 0;
};

}  // namespace platform::automation
