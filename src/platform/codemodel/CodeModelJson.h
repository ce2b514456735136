#pragma once
#include <ostream>
#include <string>

#include "platform/codemodel/DeclarationTree.h"

namespace platform::codemodel {

/// Writes the declarations of one file as JSON lines, one line per declaration in walk
/// order (pre-order: a declaration, then its members; attributes and parameters are not
/// part of the walk). Each line is an object with the fields, in this order:
///   file   `file` as given
///   depth  0 for top-level declarations, one more per enclosing declaration
///   kind   the element kind number
///   name   the declaration's name
///   access the access flags, or null when the declaration has none
///   start  the line of the start offset; end: the line of the end offset
///   attr   the line of the first attribute's start, or null without attributes
///   doc    the documentation comment text ("" when none)
///   params a list of [name, type] pairs, or null when there is no parameter list
///   proto  the prototype with its type, or null when there is no prototype
/// Lines are counted in `tree.Text()` and end with "\n". Strings are escaped for JSON;
/// bytes that are not valid UTF-8 are written as U+FFFD, so the output is always valid
/// JSON.
void WriteCodeModelJson(std::ostream& out, const DeclarationTree& tree, const std::string& file);

}  // namespace platform::codemodel
