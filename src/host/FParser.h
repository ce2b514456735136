#pragma once
#include "platform/core/Ref.h"
#include "platform/forms/Form.h"
#include "platform/grammar/GrammarParser.h"

namespace annotra {

/// The hidden parser form: never shown, it carries the two parser controls an analysis
/// or the templates form loads grammars into. Each use loads a fresh instance and
/// unloads it when done.
class FParser : public platform::forms::Form {
 public:
  FParser();

  /// The parser for XML documentation comments (XML.GMR).
  platform::Ref<platform::grammar::GrammarParser> parserXML;
  /// The parser for method texts (SC.GMR).
  platform::Ref<platform::grammar::GrammarParser> parserBody;
};

}  // namespace annotra
