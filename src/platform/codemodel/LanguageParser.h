#pragma once
#include <string>

#include "platform/codemodel/DeclarationTree.h"
#include "platform/codemodel/PreprocessorSymbols.h"

namespace platform::codemodel {

/// A declaration parser for one language: finds the declarations of a source text.
class LanguageParser {
 public:
  virtual ~LanguageParser() = default;
  /// Adds the declarations of `tree.Text()` to `tree`, preprocessing with `symbols`.
  /// Never throws for any input; what it does not understand costs at most that
  /// declaration.
  virtual void Parse(DeclarationTree& tree, const PreprocessorSymbols& symbols) const = 0;
};

/// The parser of a code-model language identifier; none for other languages.
const LanguageParser* ParserForLanguage(const std::string& language);

/// The code-model language of a file by its extension (".cs" C#, ".vb" VB, any letter
/// case); "" for other files.
std::string LanguageOfFile(const std::string& fileName);

}  // namespace platform::codemodel
