#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/codemodel/VbLexer.h"
#include "platform/codemodel/VbPreprocessor.h"

namespace platform::codemodel {

/// A part of the text: its byte offset and length.
struct VbSpan {
  uint32_t offset;
  uint32_t length;
};

/// One VB statement: a logical line, or the part of one between ':' separators.
struct VbStatement {
  /// Its tokens, without comments and line continuations; never empty.
  std::vector<VbToken> tokens;
  /// The ''' comments between the previous statement and this one, each from its marker
  /// to the end of its line, in order. Comments on the previous statement's own last line
  /// and lines of inactive #If branches are not among them.
  std::vector<VbSpan> docComments;

  uint32_t start() const { return tokens.front().offset; }
  uint32_t end() const { return tokens.back().end(); }
};

/// Reads VB source as statements: joins the physical lines of a logical line (" _" and
/// the implicit continuations of current VB: after a comma, an opening bracket, an
/// operator, a dot, an attribute list, a query keyword; before a closing bracket or a
/// query keyword), splits logical lines at ':' separators, evaluates the #If/#Const
/// directives with the project's constants and leaves out inactive text, and gathers
/// the documentation comments that stand before each statement. Linear in the text; the
/// statement handed back reuses its vectors.
class VbStatementReader {
 public:
  VbStatementReader(std::string_view text, const PreprocessorSymbols& symbols);

  /// The next statement into `out`; false at the end of the text.
  bool Next(VbStatement& out);

  std::string_view text() const { return m_text; }

 private:
  // A directive at `pos` (the first non-blank of a physical line): its tokens are read,
  // the preprocessor is told, and inactive text after it is skipped. Returns the start
  // of the next line to read, or 0 when no directive stands there.
  uint32_t Directive(uint32_t pos);
  // Skips whole lines from `pos` while the preprocessor says the text is inactive.
  uint32_t SkipInactive(uint32_t pos);
  // Whether the physical line at `pos` begins with a token that continues the previous
  // line: a closing bracket, or a query keyword inside a query.
  bool NextLineContinues(uint32_t pos, bool inQuery) const;
  uint32_t NextLineStart(uint32_t pos) const;

  std::string_view m_text;
  VbLexer m_lexer;
  VbPreprocessor m_preprocessor;
  std::vector<VbToken> m_directive;
  std::vector<VbSpan> m_pendingDocs;
  uint32_t m_pos = 0;
  bool m_atLineStart = true;
  bool m_lineHasToken = false;  // the current physical line holds a statement token
};

}  // namespace platform::codemodel
