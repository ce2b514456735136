#pragma once
#include <string>
#include <string_view>

namespace platform::dao {

/// One token of the engine's SQL dialect.
struct SqlToken {
  enum class Kind {
    End,     // end of the statement text
    Word,    // a bare word: keyword, name or function name
    Name,    // a name in brackets, [like this]; text is what is inside
    String,  // "text" or 'text'; text is the value (a doubled quote stands for one)
    Number,  // 12, 1.5, 2e3
    Date,    // #...#; text is what is inside
    Symbol,  // = <> <= >= < > + - * / & , ( ) . ; ! ^ \ ?
  };
  Kind kind = Kind::End;
  std::string text;
  size_t begin = 0;  // offset of the token's first character
  size_t end = 0;    // offset just after its last character

  /// True for a word or symbol equal to `s` without regard to ASCII case.
  bool Is(std::string_view s) const;
};

/// Splits statement text into tokens on demand, from any offset, so that a parser can go
/// back and read the same text another way (a file path between quotes may itself hold
/// quotes). Brackets hold any character but "]"; strings double their quote to hold it.
class SqlLexer {
 public:
  explicit SqlLexer(std::string_view text) : m_text(text) {}

  /// The token that starts at or after `pos` (blanks, tabs and line breaks skipped);
  /// End past the text. Throws platform::Error 3075 for an unterminated string, name or
  /// date and for a character that starts no token.
  SqlToken At(size_t pos) const;
  /// The offset of the first character at or after `pos` that is not blank.
  size_t SkipBlanks(size_t pos) const;
  std::string_view text() const { return m_text; }

 private:
  std::string_view m_text;
};

}  // namespace platform::dao
