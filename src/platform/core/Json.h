#pragma once
#include <string>
#include <string_view>

namespace platform {

/// Appends `text` to `out` as a JSON string literal, with its quotes. Quotes,
/// backslashes and control characters are escaped; bytes that are not valid UTF-8
/// (overlong forms and surrogates included) are written as U+FFFD, so the result is
/// always valid JSON whatever `text` holds.
void AppendJsonString(std::string& out, std::string_view text);

}  // namespace platform
