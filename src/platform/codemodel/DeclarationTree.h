#pragma once
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/codemodel/Declaration.h"

namespace platform::codemodel {

/// The declarations of one source text, as a parser found them: it owns them (their
/// addresses never change, so the links between them stay valid) and keeps the
/// top-level ones in source order. The text itself belongs to the caller and must
/// outlive the tree.
class DeclarationTree {
 public:
  explicit DeclarationTree(std::string_view text) : m_text(text) {}
  DeclarationTree(const DeclarationTree&) = delete;
  DeclarationTree& operator=(const DeclarationTree&) = delete;
  DeclarationTree(DeclarationTree&&) = default;
  DeclarationTree& operator=(DeclarationTree&&) = default;

  /// The text the declarations' offsets refer to.
  std::string_view Text() const { return m_text; }
  /// Points the tree at `text`, which must hold the same characters as Text(): the
  /// owner of the text moved it (the declarations keep offsets, not pointers into it).
  void Rebind(std::string_view text) { m_text = text; }
  /// The top-level declarations, in source order.
  const std::vector<Declaration*>& TopLevel() const { return m_topLevel; }
  /// The number of declarations, attributes included.
  size_t Size() const { return m_size; }
  /// Declaration `index` (0 <= index < Size()), in the order they were added.
  const Declaration& At(size_t index) const { return m_chunks[index / kChunk][index % kChunk]; }

  /// Adds a declaration of `kind` as the last member of `parent` (or as the last
  /// top-level declaration when `parent` is null) and returns it for the parser to fill.
  Declaration& AddDeclaration(Declaration* parent, int kind);
  /// Adds an attribute declaration (kind 7) as the last attribute of `owner`.
  Declaration& AddAttribute(Declaration& owner);

 private:
  Declaration& Append(Declaration* parent, int kind);

  // The declarations in chunks of kChunk, each reserved at its full size and never
  // grown past it, so that no declaration ever moves. (A deque would do the same but
  // allocates a block for every two declarations of this size.)
  static constexpr size_t kChunk = 32;
  std::string_view m_text;
  std::vector<std::vector<Declaration>> m_chunks;
  size_t m_size = 0;
  std::vector<Declaration*> m_topLevel;
};

}  // namespace platform::codemodel
