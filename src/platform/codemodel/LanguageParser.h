#pragma once
#include <string>

#include "platform/codemodel/FileCodeModel.h"

namespace platform::codemodel {

/// A declaration parser for one language: fills a file's code model from its text.
class LanguageParser {
 public:
  virtual ~LanguageParser() = default;
  /// Adds the elements of `model.Text()` to `model`, preprocessing with `symbols`.
  /// Never throws for any input; what it does not understand costs at most that
  /// declaration.
  virtual void Parse(FileCodeModel& model, const PreprocessorSymbols& symbols) const = 0;
};

/// The parser of a code-model language identifier; none for other languages.
const LanguageParser* ParserForLanguage(const std::string& language);

/// The code-model language of a file by its extension (".cs" C#, ".vb" VB, any letter
/// case); "" for other files.
std::string LanguageOfFile(const std::string& fileName);

}  // namespace platform::codemodel
