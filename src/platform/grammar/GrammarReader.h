#pragma once
#include <string>
#include <string_view>

#include "platform/grammar/Grammar.h"

namespace platform::grammar {

/// Reads the text of a grammar file into a compiled, analysed Grammar.
///
/// A file holds one or more grammars, each a `grammar Name` line followed by its rules:
///
///     # comment to the end of the line
///     grammar XML
///     document  <- _node* !.
///     attribute <- attr_name _s* "=" _s* ["] < [^"]* > ["]
///
/// Expressions: sequence, `/` ordered choice, `e*`, `e+`, `e?`, `&e`, `!e`, `( e )`,
/// `< e >` (the part of the match that is the node's text), "literal" or 'literal'
/// (`"..."i` compares ASCII letters in either case), `[classes]` with ranges and `^`,
/// `.` for any byte, and rule references, `Rule` within the grammar or `Grammar.Rule`
/// across grammars. Escapes in literals and classes: \n \r \t \0 \\ \' \" \[ \] \- \^
/// and \xHH.
///
/// Written by hand rather than with the engine itself so that a broken grammar file can
/// be reported precisely and the engine never depends on a grammar of its own.
class GrammarReader {
 public:
  /// Compiles `text`; `source` names it in messages. False, with `error` set to
  /// "source:line:column: what is wrong", for a grammar that is wrong in any way.
  static bool Read(std::string_view text, const std::string& source, Grammar& out,
                   std::string& error);

  /// Reads and compiles the grammar file at `path`. False for a file that cannot be
  /// read ("path: cannot read the grammar file") or holds a wrong grammar.
  static bool ReadFile(const std::string& path, Grammar& out, std::string& error);
};

}  // namespace platform::grammar
