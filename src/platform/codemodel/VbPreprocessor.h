#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/codemodel/ConditionalSections.h"
#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/codemodel/VbLexer.h"

namespace platform::codemodel {

/// The value of a VB conditional-compilation constant or expression.
struct VbConstValue {
  enum class Type { Nothing, Boolean, Number, String } type = Type::Nothing;
  double number = 0;  // Boolean: -1 (True) or 0 (False); Number: the value
  std::string text;   // String

  /// VB's conversion to Boolean: a number is True when not 0, a string when it reads
  /// "True" or a non-zero number, Nothing is False.
  bool IsTrue() const;
};

/// The VB preprocessor's state while one file is read: the conditional-compilation
/// constants (names in any letter case) and the stack of open #If sections. It is fed
/// the directive lines in order and says whether the text that follows is active.
class VbPreprocessor {
 public:
  /// Starts with the project's constants: each value as written in the project ("-1",
  /// "True", "\"x\""); an empty value means True, a value that does not read as a
  /// constant expression gives Nothing.
  explicit VbPreprocessor(const PreprocessorSymbols& symbols);

  /// Handles one directive: `tokens` are the tokens after the '#' up to the end of the
  /// line, in `text`. #If/#ElseIf (also "#Else If")/#Else/#End If (also #EndIf) change
  /// what is active; #Const sets a constant when the directive itself is active; every
  /// other directive, a stray #ElseIf/#Else/#End If, and an #ElseIf/#Else after the
  /// section's #Else, change nothing. A malformed condition is False.
  void Directive(std::string_view text, const std::vector<VbToken>& tokens);

  /// Whether text at this point is active (compiled).
  bool Active() const { return m_sections.Active(); }

  /// The value of the expression `tokens[begin, end)` of `text`; nullopt-like failure is
  /// reported through `ok` (false for a malformed expression).
  VbConstValue Evaluate(std::string_view text, const VbToken* begin, const VbToken* end, bool* ok) const;

  /// The value of constant `name` (any letter case); Nothing when undefined.
  VbConstValue Value(std::string_view name) const;

 private:
  bool Condition(std::string_view text, const VbToken* begin, const VbToken* end) const;

  std::unordered_map<std::string, VbConstValue> m_constants;  // by lower-case name
  ConditionalSections m_sections;
};

}  // namespace platform::codemodel
