#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/codemodel/PreprocessorSymbols.h"

namespace platform::codemodel {

/// What a C# token is. Keywords and identifiers are all words; the declaration parser
/// tells them apart by their `Keyword`.
enum class CsTokenKind : uint8_t { Word, Number, String, Char, Punct, End };

/// The words the declaration parser looks for (keywords and contextual keywords).
enum class CsKeyword : uint8_t {
  None,
  Abstract, Alias, Async, Checked, Class, Const, Delegate, Enum, Event, Explicit, Extern, False,
  File, Fixed, Global, Implicit, In, Interface, Internal, Namespace, New, Operator, Out,
  Override, Params, Partial, Private, Protected, Public, Readonly, Record, Ref, Required,
  Scoped, Sealed, Static, Struct, This, True, Unsafe, Using, Virtual, Volatile, Where,
  Arglist,  // __arglist
};

/// One token: where it is in the text, what it is, and how many documentation comments
/// came before it (so the comments between two tokens are docs[prev.docEnd, docEnd)).
struct CsToken {
  uint32_t start;
  uint32_t end;
  uint32_t docEnd;
  CsTokenKind kind;
  CsKeyword keyword;
};

/// A documentation comment in the text: one `///` line (up to its line break) or one
/// `/** */` block. `sameLine` when it starts on the line where the token before it ends.
struct CsDocComment {
  uint32_t start;
  uint32_t end;
  bool block;
  bool sameLine;
};

/// The active tokens of a C# file and its documentation comments. Comments, blanks,
/// directive lines and inactive regions are not tokens. The last token is always an
/// End token at the end of the text.
struct CsTokenStream {
  std::vector<CsToken> tokens;
  std::vector<CsDocComment> docs;
};

/// Splits C# source text into tokens, evaluating the preprocessor directives with
/// `symbols`: a '#' that is the first non-blank of a line outside comments and
/// literals is a directive; text in an inactive region yields nothing. Literals are
/// single tokens whatever they hold; `>` is always a token of its own so that `>>`
/// can close two type-argument lists. Linear in the text; never fails. `out` is
/// cleared first.
void TokenizeCSharp(std::string_view text, const PreprocessorSymbols& symbols, CsTokenStream& out);

/// The keyword a word spells, or None.
CsKeyword CsKeywordOf(std::string_view word);

}  // namespace platform::codemodel
