#pragma once
#include <string>
#include <string_view>

#include "platform/codemodel/VbLexer.h"

namespace platform::codemodel {

/// Texts the VB code model builds from tokens: names and types with their whitespace
/// normalized, the types of type characters and of literals.

/// The tokens [begin, end) of `text` as one normalized text: no blanks inside brackets,
/// one blank after each comma (but before ',' ')' ']' '}' or '>'), one blank between two
/// words, nothing else (so comments and line continuations are gone).
std::string VbJoinTokens(std::string_view text, const VbToken* begin, const VbToken* end);

/// The type a type character stands for (% Integer, & Long, @ Decimal, ! Single,
/// # Double, $ String); "" for any other character.
std::string_view VbTypeOfTypeChar(char typeChar);

/// The type of a literal token as VB gives it to a constant declared without As
/// ("Integer", "Long", "Double", "String", "Char", "Date", "Boolean", ...); "" when the
/// token is no literal.
std::string_view VbLiteralType(std::string_view text, const VbToken& token);

}  // namespace platform::codemodel
