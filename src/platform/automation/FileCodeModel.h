#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/CodeElement.h"
#include "platform/codemodel/DeclarationTree.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class ProjectItem;
class TextDocument;
class TextBuffer;

/// The code model of one source file: its top-level elements and, through them, every
/// declaration its parser found. It belongs to its document: any reference to it or to
/// one of its elements keeps the whole document alive, and the document keeps it.
class FileCodeModel : public Dispatch {
 public:
  /// The model of `text` (the document's, which outlives the model); `textDocument` is
  /// the parent of the points the elements hand out, `item` the file's project item
  /// (none for a document without one). Holds no elements until Parse.
  FileCodeModel(std::string language, const TextBuffer* text, TextDocument* textDocument, ProjectItem* item);
  FileCodeModel(const FileCodeModel&) = delete;
  FileCodeModel& operator=(const FileCodeModel&) = delete;
  const char* TypeName() const override { return "FileCodeModel"; }

  Ref<automation::CodeElements> CodeElements() const;
  const std::string& Language() const { return m_language; }
  /// The project item of the file; none for a document without one.
  Ref<ProjectItem> Parent() const;

  /// The innermost element whose lines, from its start to its end, hold `line`; none
  /// when no element does.
  Ref<CodeElement> CodeElementFromLine(int line) const;

  /// The declarations behind the elements, as the parser found them.
  const codemodel::DeclarationTree& Declarations() const { return m_declarations; }

  // --- For the document ------------------------------------------------------------------
  /// Reads the declarations of the text with `parser` and `symbols`, and makes one
  /// element per declaration. Call once, before handing the model out.
  void Parse(const codemodel::LanguageParser& parser, const codemodel::PreprocessorSymbols& symbols);
  /// Takes the declarations a parser already found in the same text (elsewhere, or on
  /// another thread) instead of parsing: the same model as Parse would make. Call once,
  /// instead of Parse.
  void Adopt(codemodel::DeclarationTree&& declarations);
  /// `keepAlive` owns the document the model belongs to: every reference the model hands
  /// out shares it.
  void SetKeepAlive(std::weak_ptr<const void> keepAlive) { m_keepAlive = std::move(keepAlive); }

  // --- For the elements ------------------------------------------------------------------
  /// A reference to `p` (owned by this model's document) that keeps the document alive.
  /// Fails with 91 when the document is gone.
  template <class T>
  Ref<T> Share(T* p) const {
    return std::shared_ptr<T>(KeepAlive(), p);
  }
  std::shared_ptr<const void> KeepAlive() const;
  /// The element of `declaration`, one of this model's declarations.
  CodeElement* element(const codemodel::Declaration& declaration) const {
    // The elements are the document's, handed out as its automation objects; the
    // model's own reads never change them.
    return const_cast<CodeElement*>(&m_elements[declaration.index]);
  }
  /// The element of `declaration`, shared with the document.
  Ref<CodeElement> ElementOf(const codemodel::Declaration& declaration) const { return Share(element(declaration)); }
  TextDocument* textDocument() const { return m_textDocument; }

 private:
  void MakeElements();

  std::string m_language;
  const TextBuffer* m_text;
  TextDocument* m_textDocument;
  ProjectItem* m_item;
  std::weak_ptr<const void> m_keepAlive;
  codemodel::DeclarationTree m_declarations;
  // m_elements[i] shows declaration i. Made once, at its final size, by Parse: the
  // addresses never change.
  std::vector<CodeElement> m_elements;
};

}  // namespace platform::automation
