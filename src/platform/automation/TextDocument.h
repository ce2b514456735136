#pragma once
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
  /// A reference to this text document that keeps its document alive.
  Ref<TextDocument> Self() const;

 private:
  DocumentData* m_data;
};

/// The caret and selection of a document's view.
class TextSelection : public Dispatch {
 public:
  explicit TextSelection(DocumentData* data) : m_data(data) {}
  const char* TypeName() const override { return "TextSelection"; }

  /// The caret.
  Ref<TextPoint> ActivePoint() const;
  int CurrentLine() const { return m_line; }
  /// Moves the caret to the start of `line` (clamped to the document).
  void GotoLine(int line, bool select = false);
  Ref<TextDocument> Parent() const;

 private:
  DocumentData* m_data;
  int m_line = 1;
};

}  // namespace platform::automation
