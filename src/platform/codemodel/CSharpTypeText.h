#pragma once
#include <string>
#include <string_view>

#include "platform/codemodel/CSharpTokenizer.h"

namespace platform::codemodel {

/// Appends to `out` the text of the tokens [begin, end) of `text` in the code model's
/// normal form for types and names: no blanks inside brackets, one blank after each
/// comma except before ',', ']' or '>' (`int[,]`, `Dictionary<,>`), one blank between
/// two words (and between a type and the word that names a tuple element, as in
/// `(int? a, List<int> b)`), and one after `delegate*`. Comments are not tokens, so
/// they are dropped.
void AppendCsTypeText(std::string& out, std::string_view text, const CsToken* begin, const CsToken* end);

/// The same as a new string.
std::string CsTypeText(std::string_view text, const CsToken* begin, const CsToken* end);

}  // namespace platform::codemodel
