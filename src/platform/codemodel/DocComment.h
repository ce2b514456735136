#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace platform::codemodel {

/// The documentation-comment text both parsers hand out: the lines of an element's
/// documentation comment, each without its comment marker, wrapped as "<doc>" CRLF ...
/// CRLF "</doc>".

/// `afterMarker` (the rest of a documentation line once its marker is gone) without one
/// leading blank (space or tab), when it has one; trailing blanks stay.
std::string_view DropOneBlank(std::string_view afterMarker);

/// The lines joined with CRLF and wrapped as "<doc>" CRLF ... CRLF "</doc>"; "" when
/// there are no lines.
std::string WrapDocComment(const std::vector<std::string_view>& lines);

}  // namespace platform::codemodel
