#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform::codemodel {

/// Finds where a C# string or character literal ends: regular, verbatim, interpolated
/// (with holes that hold nested braces, strings, comments and format clauses), raw and
/// interpolated raw strings, with an optional u8 suffix. A literal that is not closed
/// ends where the language would give up on it: a regular or single-line literal at
/// the end of its line, any other at the end of the text. Reusable: keeps its work
/// stack between calls, so scanning allocates nothing once it has grown.
class CSharpLiteralScanner {
 public:
  /// Whether a string literal starts at `pos`: `"`, `@"`, `$"`, `$@"`, `@$"`, `$$"""`...
  static bool StartsString(std::string_view text, size_t pos);

  /// The offset just after the string literal that starts at `pos` (StartsString must
  /// hold there). Always greater than `pos`.
  size_t ScanString(std::string_view text, size_t pos);

  /// The offset just after the character literal that starts at `pos` (a quote).
  /// Always greater than `pos`.
  static size_t ScanChar(std::string_view text, size_t pos);

 private:
  struct Frame {
    bool hole;       // an interpolation hole, else a string
    bool verbatim;   // string: @"..."
    bool raw;        // string: """..."""
    bool multiLine;  // raw string whose opening quotes end their line
    bool inFormat;   // hole: in the format clause after ':'
    uint32_t dollars;  // string: number of '$' (0: not interpolated)
    uint32_t quotes;   // raw string: number of quotes that open and close it
    int32_t braces;    // hole: open '{' inside the hole
    int32_t parens;    // hole: open '(' or '[' inside the hole
  };

  // Reads the prefix and opening quotes of a string at `pos`, pushes its frame and
  // returns the offset of its first content character.
  size_t OpenString(std::string_view text, size_t pos);
  // Whether the string frame that owns the hole on top of the stack ends at a line break.
  bool OwnerIsSingleLine() const;

  std::vector<Frame> m_stack;
};

}  // namespace platform::codemodel
