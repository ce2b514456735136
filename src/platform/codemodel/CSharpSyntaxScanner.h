#pragma once
#include <cstddef>
#include <string_view>

#include "platform/codemodel/CSharpTokenizer.h"

namespace platform::codemodel {

/// Recognises the shapes of C# syntax that the declaration parser steps over or reads
/// as a whole: types, type-argument lists, balanced groups, blocks and expressions.
/// It works on token indices; every index past the end reads as the End token, so no
/// function can run off the stream, and each returns an index no smaller than the one
/// it was given. Types nest at most kMaxTypeDepth deep (deeper input is not a type),
/// which bounds both the stack and the work of any one attempt.
class CSharpSyntaxScanner {
 public:
  static constexpr size_t kFail = static_cast<size_t>(-1);
  static constexpr int kMaxTypeDepth = 64;

  /// How a block treats an access modifier (public, private, protected, internal)
  /// inside it. No member body can hold one, so meeting one means the body lost its
  /// closing brace: the block ends before it, and the declaration that follows is
  /// read as it should be.
  enum class ModifierRule {
    Ignore,       // read to the matching brace whatever it holds
    StopInside,   // a method body: stop at any access modifier inside
    StopNested,   // an accessor list: allowed on the accessors, stop deeper in
  };

  CSharpSyntaxScanner(std::string_view text, const CsTokenStream& stream);

  // Token i (the End token for any i past the end), its text, and tests of its kind,
  // punctuator text or keyword.
  const CsToken& At(size_t i) const { return i < m_count ? m_tokens[i] : m_tokens[m_count - 1]; }
  std::string_view Text(size_t i) const {
    const CsToken& t = At(i);
    return m_text.substr(t.start, t.end - t.start);
  }
  bool IsEnd(size_t i) const { return At(i).kind == CsTokenKind::End; }
  bool Is(size_t i, std::string_view punct) const {
    const CsToken& t = At(i);
    if (t.kind != CsTokenKind::Punct || t.end - t.start != punct.size()) return false;
    const char* p = m_text.data() + t.start;
    for (size_t k = 0; k < punct.size(); ++k)
      if (p[k] != punct[k]) return false;
    return true;
  }
  bool IsKw(size_t i, CsKeyword kw) const { return At(i).keyword == kw && At(i).kind == CsTokenKind::Word; }
  bool IsWord(size_t i) const { return At(i).kind == CsTokenKind::Word; }
  /// A word that is not one of the keywords that can never name anything (class,
  /// public, operator, this, ...); contextual keywords (async, partial, record, ...)
  /// count as identifiers here.
  bool IsIdentifier(size_t i) const;
  bool IsAccessModifier(size_t i) const;
  /// Whether tokens i and i + 1 touch (no blank or comment between them).
  bool Adjacent(size_t i) const { return At(i).end == At(i + 1).start && !IsEnd(i + 1); }
  /// The number of tokens, End included.
  size_t Count() const { return m_count; }

  /// The end of the type at `i` (a name with type arguments and qualifiers, a
  /// predefined type, a tuple, a function pointer, with `?`, `*` and `[,]` suffixes;
  /// with `allowRef`, a leading `ref` or `ref readonly`), or kFail.
  size_t ScanType(size_t i, bool allowRef = false) const;
  /// The end of the type-argument list `<...>` at `i`, or kFail.
  size_t ScanTypeArguments(size_t i) const;
  /// The end of a type-parameter list `<...>` at `i` (variance and attributes allowed),
  /// or the first token that cannot be part of one.
  size_t SkipTypeParameters(size_t i) const;

  /// The end of the group opened by the `(`, `[` or `{` at `i` (all three kinds counted
  /// together). Stops early, before the token, at the end of the text, at an access
  /// modifier, and at a `;` that is not inside braces.
  size_t SkipGroup(size_t i) const;
  /// The end of the block `{...}` at `i`, counting braces only.
  size_t SkipBlock(size_t i, ModifierRule rule) const;
  /// The first token at or after `i` that ends an expression: `,` `;` or an unmatched
  /// `)` `]` `}` at its level, an access modifier, or the end. Type-argument lists in
  /// the expression (`new Dictionary<int, string>()`) are stepped over, so their commas
  /// do not end it.
  size_t SkipExpression(size_t i) const;
  /// The first `{`, `;` or `=>` at or after `i` outside parentheses and brackets
  /// (stepping over base lists, constructor initializers and constraints), or an
  /// access modifier, an unmatched `}`, or the end.
  size_t SkipToBody(size_t i) const;

 private:
  size_t ScanType(size_t i, bool allowRef, int depth) const;
  size_t ScanTypeArguments(size_t i, int depth) const;

  std::string_view m_text;
  const CsToken* m_tokens;
  size_t m_count;
};

}  // namespace platform::codemodel
