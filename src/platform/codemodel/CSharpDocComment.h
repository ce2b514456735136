#pragma once
#include <string>
#include <string_view>

#include "platform/codemodel/CSharpTokenizer.h"

namespace platform::codemodel {

/// The DocComment text made of the documentation comments [begin, end) of `text`, in
/// order, leaving out those flagged `sameLine` (they belong to the token before them):
/// "<doc>" CRLF, the comments' lines joined with CRLF, CRLF "</doc>"; "" when no
/// comment is left. A `///` line loses the marker and one following blank. A `/** */`
/// block: its first line loses `/**` and one blank, later lines their leading blanks
/// and a leading `*` with one blank, the last line `*/` and the blanks before it; an
/// opening or closing line left blank is dropped. Blanks are spaces and tabs; trailing
/// blanks stay.
std::string CsDocCommentText(std::string_view text, const CsDocComment* begin, const CsDocComment* end);

}  // namespace platform::codemodel
