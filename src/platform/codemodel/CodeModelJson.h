#pragma once
#include <ostream>
#include <string>
#include <string_view>

#include "platform/codemodel/FileCodeModel.h"

namespace platform::codemodel {

/// Writes the code model of one file as JSON lines, one line per element in walk order
/// (pre-order: an element, then its members; attributes and parameters are not part of
/// the walk). Each line is an object with the fields, in this order:
///   file   `file` as given
///   depth  0 for top-level elements, one more per enclosing element
///   kind   the element kind number
///   name   the element's name
///   access the access flags, or null when the element has none
///   start  the line of the start point; end: the line of the end point
///   attr   the line of the first attribute's start point, or null without attributes
///   doc    the documentation comment text ("" when none)
///   params a list of [name, type] pairs, or null when the element has no parameter list
///   proto  Prototype(128), or null when the element has no prototype
/// Lines end with "\n". Strings are escaped for JSON; bytes that are not valid UTF-8 are
/// written as U+FFFD, so the output is always valid JSON.
void WriteCodeModelJson(std::ostream& out, const FileCodeModel& model, const std::string& file);

/// Appends `text` to `out` as a JSON string literal (with its quotes), escaped as
/// WriteCodeModelJson does.
void AppendJsonString(std::string& out, std::string_view text);

}  // namespace platform::codemodel
