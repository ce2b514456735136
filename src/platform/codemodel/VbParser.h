#pragma once
#include "platform/codemodel/LanguageParser.h"

namespace platform::codemodel {

/// The Visual Basic declaration parser.
class VbParser : public LanguageParser {
 public:
  void Parse(DeclarationTree& tree, const PreprocessorSymbols& symbols) const override;
};

}  // namespace platform::codemodel
