#pragma once
#include <set>
#include <string>
#include <string_view>

#include "platform/codemodel/ConditionalSections.h"
#include "platform/codemodel/PreprocessorSymbols.h"

namespace platform::codemodel {

/// The C# preprocessor's state while one file is read: the defined symbols and the
/// stack of open #if sections. It is fed the directive lines in order and says whether
/// the text that follows is active.
class CSharpPreprocessor {
 public:
  /// Starts with the symbols of `symbols` defined (their values do not matter in C#).
  explicit CSharpPreprocessor(const PreprocessorSymbols& symbols);

  /// Handles one directive line: `line` is the text after the '#', up to the end of the
  /// line. #if/#elif/#else/#endif change what is active; #define/#undef change the
  /// symbols when the directive itself is active; every other directive (and any
  /// unknown or malformed one) changes nothing. An #elif/#else/#endif without an open
  /// #if, and an #elif/#else after the section's #else, are ignored.
  void Directive(std::string_view line);

  /// Whether text at this point is active (compiled).
  bool Active() const { return m_sections.Active(); }

  /// The value of the #if condition `expr` (`!`, `&&`, `||`, `==`, `!=`, parentheses,
  /// `true`, `false`, symbols; a trailing `//` comment is allowed). A malformed
  /// condition is false.
  bool Evaluate(std::string_view expr) const;

  bool IsDefined(std::string_view symbol) const { return m_symbols.count(symbol) != 0; }

 private:
  std::set<std::string, std::less<>> m_symbols;
  ConditionalSections m_sections;
};

}  // namespace platform::codemodel
