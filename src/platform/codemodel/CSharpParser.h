#pragma once
#include "platform/codemodel/LanguageParser.h"

namespace platform::codemodel {

/// The C# declaration parser.
class CSharpParser : public LanguageParser {
 public:
  void Parse(DeclarationTree& tree, const PreprocessorSymbols& symbols) const override;
};

}  // namespace platform::codemodel
