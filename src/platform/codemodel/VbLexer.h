#pragma once
#include <cstdint>
#include <string_view>

namespace platform::codemodel {

// The Visual Basic words the declaration parser, the block structure and the
// preprocessor look at. Reserved and contextual words alike: whether a contextual word
// is a keyword where it stands is for the parser to say.
#define ANNOTRA_VB_KEYWORDS(X)                                                              \
  X(AddHandler, "addhandler") X(AddressOf, "addressof") X(Aggregate, "aggregate")           \
  X(Alias, "alias") X(And, "and") X(AndAlso, "andalso") X(Ansi, "ansi") X(As, "as")         \
  X(Ascending, "ascending") X(Assembly, "assembly") X(Async, "async") X(Auto, "auto")       \
  X(Await, "await") X(By, "by") X(ByRef, "byref") X(ByVal, "byval") X(Call, "call")         \
  X(Case, "case") X(Class, "class") X(Const, "const") X(Custom, "custom")                   \
  X(Declare, "declare") X(Default, "default") X(Delegate, "delegate")                       \
  X(Descending, "descending") X(Dim, "dim") X(Distinct, "distinct") X(Else, "else")         \
  X(ElseIf, "elseif") X(End, "end") X(EndIf, "endif") X(Enum, "enum") X(Equals, "equals")   \
  X(Event, "event") X(Exit, "exit") X(False, "false") X(Friend, "friend") X(From, "from")   \
  X(Function, "function") X(Get, "get") X(Global, "global") X(Group, "group")               \
  X(Handles, "handles") X(If, "if") X(Implements, "implements") X(Imports, "imports")       \
  X(In, "in") X(Inherits, "inherits") X(Interface, "interface") X(Into, "into") X(Is, "is") \
  X(IsNot, "isnot") X(Iterator, "iterator") X(Join, "join") X(Let, "let") X(Lib, "lib")     \
  X(Like, "like") X(Mod, "mod") X(Module, "module") X(MustInherit, "mustinherit")           \
  X(MustOverride, "mustoverride") X(Namespace, "namespace") X(Narrowing, "narrowing")       \
  X(New, "new") X(Not, "not") X(NotInheritable, "notinheritable")                           \
  X(NotOverridable, "notoverridable") X(Nothing, "nothing") X(Of, "of") X(On, "on")         \
  X(Operator, "operator") X(Option, "option") X(Optional, "optional") X(Or, "or")           \
  X(Order, "order") X(OrElse, "orelse") X(Overloads, "overloads")                           \
  X(Overridable, "overridable") X(Overrides, "overrides") X(ParamArray, "paramarray")       \
  X(Partial, "partial") X(Private, "private") X(Property, "property")                        \
  X(Protected, "protected") X(Public, "public") X(RaiseEvent, "raiseevent")                 \
  X(ReadOnly, "readonly") X(Rem, "rem") X(RemoveHandler, "removehandler")                   \
  X(Return, "return") X(Select, "select") X(Set, "set") X(Shadows, "shadows")               \
  X(Shared, "shared") X(Skip, "skip") X(Static, "static") X(Step, "step")                   \
  X(Structure, "structure") X(Sub, "sub") X(Take, "take") X(Then, "then")                   \
  X(Throw, "throw") X(To, "to") X(True, "true") X(Unicode, "unicode") X(Until, "until")     \
  X(When, "when") X(Where, "where") X(While, "while") X(Widening, "widening")               \
  X(WithEvents, "withevents") X(WriteOnly, "writeonly") X(Xor, "xor") X(Yield, "yield")

/// A Visual Basic word that matters to the parser; None for every other identifier.
enum class VbKeyword : uint8_t {
  None,
#define ANNOTRA_VB_KEYWORD_ENUM(name, text) name,
  ANNOTRA_VB_KEYWORDS(ANNOTRA_VB_KEYWORD_ENUM)
#undef ANNOTRA_VB_KEYWORD_ENUM
};

/// The keyword spelled `word` in any letter case; None when it is no keyword.
VbKeyword LookupVbKeyword(std::string_view word);

/// What a token is.
enum class VbTokenKind : uint8_t {
  End,           // end of the text
  Newline,       // CR, LF or CRLF
  Identifier,    // a name, possibly a keyword (see VbToken::keyword)
  Bracketed,     // an escaped name: [Name]
  Number,
  String,        // "..." (also with the typographic quotes VB accepts)
  Char,          // "x"c
  Date,          // #1/2/2003#
  Interpolated,  // $"...{expr}..."
  Xml,           // a whole XML literal
  Punct,         // an operator or punctuation (see VbToken::punct)
  Comment,       // ' or REM to the end of the line
  Continuation,  // " _" at the end of a line
  Unknown,       // a character that begins no token
};

/// Operators and punctuation.
enum class VbPunct : uint8_t {
  None, LParen, RParen, LBrace, RBrace, Comma, Dot, Colon, ColonEquals, Equals, NotEquals,
  Less, Greater, LessEquals, GreaterEquals, ShiftLeft, ShiftRight, Plus, Minus, Star, Slash,
  Backslash, Caret, Amp, PlusEquals, MinusEquals, StarEquals, SlashEquals, BackslashEquals,
  CaretEquals, AmpEquals, ShiftLeftEquals, ShiftRightEquals, Question, QuestionDot, Bang, At,
  Hash, Dollar, Percent, Semicolon, Ellipsis,
};

/// One token: where it is and what it is. Its text is text.substr(offset, length).
struct VbToken {
  uint32_t offset = 0;
  uint32_t length = 0;
  VbTokenKind kind = VbTokenKind::End;
  VbKeyword keyword = VbKeyword::None;
  VbPunct punct = VbPunct::None;
  char typeChar = 0;        // an identifier's type character (% & @ ! # $), or 0
  bool docComment = false;  // a ''' comment

  uint32_t end() const { return offset + length; }
  bool Is(VbKeyword k) const { return kind == VbTokenKind::Identifier && keyword == k; }
  bool Is(VbPunct p) const { return kind == VbTokenKind::Punct && punct == p; }
};

/// Whether an operand (an expression) may begin after `previous`: after an operator, an
/// opening bracket, a comma or a keyword such as Return. There a '<' begins an XML
/// literal and Sub or Function a lambda.
bool ExpectsOperand(const VbToken& previous);

/// How the lexer reads what it meets.
struct VbScanContext {
  /// A '<' followed by a name, "!--", "![CDATA[" or "?" begins an XML literal.
  bool xmlAllowed = false;
  /// Only one XML tag is read (the namespace of an Imports statement).
  bool xmlTagOnly = false;
  /// The token follows '.', '!' or '?.': a word there is a member name, never a keyword.
  bool afterMemberAccess = false;
};

/// Splits Visual Basic source into tokens, one at a time. It knows every literal and
/// comment form (strings with "" escapes and typographic quotes, interpolated strings,
/// dates, XML literals with embedded expressions, ', ‘, ’ and REM comments), so no quote
/// or comment marker inside one is taken for code. Every call consumes at least one byte
/// until the end, and the whole text is read in linear time: an XML literal that never
/// closes turns XML recognition off for the rest of the text, and a string that never
/// closes ends at its line (as do all strings after it).
class VbLexer {
 public:
  explicit VbLexer(std::string_view text) : m_text(text) {}

  /// Skips blanks from `pos`, reads the token there and moves `pos` past it.
  VbToken Scan(uint32_t& pos, const VbScanContext& context);

  /// The number of blank bytes at `pos` (space, tab, form feed, no-break and ideographic
  /// spaces, a byte-order mark), 0 when there is none.
  size_t BlankAt(size_t pos) const;
  /// Skips blanks from `pos`.
  uint32_t SkipBlanks(uint32_t pos) const;
  /// The length of the apostrophe VB accepts as a comment start at `pos` (' ‘ ’ ＇), or 0.
  size_t ApostropheAt(size_t pos) const;
  /// The length of the double quote VB accepts at `pos` (" “ ” ＂), or 0.
  size_t QuoteAt(size_t pos) const;
  std::string_view text() const { return m_text; }

 private:
  bool IdentStartAt(size_t pos) const;
  bool IdentPartAt(size_t pos) const;
  uint32_t ScanIdentifierEnd(uint32_t pos) const;
  uint32_t ScanNumberEnd(uint32_t pos) const;
  uint32_t ScanStringEnd(uint32_t pos);        // pos after the opening quote
  uint32_t ScanInterpolatedEnd(uint32_t pos);   // pos after the opening quote
  uint32_t ScanDateEnd(uint32_t pos) const;     // 0 when no date literal is there
  uint32_t ScanXmlEnd(uint32_t pos, bool tagOnly);  // 0 when no XML literal is there
  uint32_t ScanXmlTagEnd(uint32_t pos, bool* selfClosing);
  uint32_t ScanEmbeddedEnd(uint32_t pos);  // after "<%="; 0 on failure
  uint32_t LineEnd(uint32_t pos) const;
  uint32_t Find(uint32_t pos, std::string_view what) const;  // end of `what` or 0
  VbToken ScanPunct(uint32_t& pos);

  std::string_view m_text;
  int m_depth = 0;  // nesting of embedded expressions and interpolations
  bool m_xmlDisabled = false;
  bool m_stringsEndAtLine = false;  // a string ran to the end of the text unclosed
  int m_xmlFailures = 0;
};

}  // namespace platform::codemodel
