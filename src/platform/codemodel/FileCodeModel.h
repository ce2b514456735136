#pragma once
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/codemodel/CodeElement.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class ProjectItem;
class TextDocument;
class TextBuffer;
}  // namespace platform::automation

namespace platform::codemodel {

/// The preprocessing symbols a file is parsed with: C# symbols (value "") or VB
/// constants with their value as written ("True", "1", "\"x\"").
struct PreprocessorSymbols {
  std::vector<std::pair<std::string, std::string>> symbols;
};

/// The code model of one source file: its top-level elements and, through them, every
/// declaration. It belongs to its document: any reference to it or to one of its
/// elements keeps the whole document alive, and the document keeps it.
class FileCodeModel : public Dispatch {
 public:
  /// `keepAlive` owns the document this model belongs to; `textDocument` gives the text
  /// and the parent of the points the elements hand out.
  FileCodeModel(std::string language, const automation::TextBuffer* text,
                automation::TextDocument* textDocument, automation::ProjectItem* item);
  const char* TypeName() const override { return "FileCodeModel"; }

  Ref<codemodel::CodeElements> CodeElements() const;
  const std::string& Language() const { return m_language; }
  /// The project item of the file; none for a document without one.
  Ref<automation::ProjectItem> Parent() const;

  /// The innermost element whose lines, from its start to its end, hold `line`; none
  /// when no element does.
  Ref<CodeElement> CodeElementFromLine(int line) const;

  // --- For the parsers -------------------------------------------------------------------
  /// The text to parse.
  std::string_view Text() const;
  /// Adds an element of `kind` as the last member of `parent` (or as the last top-level
  /// element when `parent` is null) and returns it for the parser to fill.
  CodeElement& AddElement(CodeElement* parent, int kind);
  /// Adds an attribute element (kind 7) as the last attribute of `owner`.
  CodeElement& AddAttribute(CodeElement& owner);

  // --- For the model ---------------------------------------------------------------------
  void SetKeepAlive(std::weak_ptr<const void> keepAlive) { m_keepAlive = std::move(keepAlive); }
  /// A reference to `p` (owned by this model's document) that keeps the document alive.
  template <class T>
  Ref<T> Share(T* p) const {
    return std::shared_ptr<T>(KeepAlive(), p);
  }
  std::shared_ptr<const void> KeepAlive() const;
  const automation::TextBuffer& textBuffer() const { return *m_text; }
  automation::TextDocument* textDocument() const { return m_textDocument; }

 private:
  std::string m_language;
  const automation::TextBuffer* m_text;
  automation::TextDocument* m_textDocument;
  automation::ProjectItem* m_item;
  std::weak_ptr<const void> m_keepAlive;
  std::deque<CodeElement> m_elements;  // stable addresses
  std::vector<CodeElement*> m_topLevel;
};

}  // namespace platform::codemodel
