#pragma once
#include <string>
#include <vector>

#include "platform/codemodel/DeclarationTree.h"
#include "platform/codemodel/VbStatementReader.h"

namespace platform::codemodel {

/// The kinds of VB blocks that hold declarations.
enum class VbBlock : uint8_t { File, Namespace, Class, Module, Structure, Interface, Enum };

/// What one statement turned out to be, as far as the block structure needs to know.
struct VbDeclaration {
  enum class What : uint8_t {
    None,            // no declaration (or one the parser does not understand)
    Attributes,      // only attribute lists: they belong to the next declaration
    End,             // End <keyword>
    Block,           // opens a namespace or a type: its members follow up to End
    Body,            // a member whose body follows up to End <endKeyword>
    PropertyHeader,  // a property: a block when Get or Set follows, else auto-implemented
    Single,          // a declaration complete in itself
  };
  What what = What::None;
  VbBlock block = VbBlock::File;          // Block: the kind of block opened
  VbKeyword endKeyword = VbKeyword::None;  // End: the word after End; Body: the word that ends it
  Declaration* element = nullptr;          // Block, Body, PropertyHeader: the element (none when
                                           // the declaration is out of place)
  std::vector<Declaration*> elements;      // every element the statement declared
};

/// Reads VB declaration statements and adds their declarations to a DeclarationTree with
/// the names, access, extent, attributes, documentation comments, parameters and
/// prototypes the code model hands out (VB's defaults where the declaration says
/// nothing). Statements it does not understand add nothing.
class VbDeclarationParser {
 public:
  explicit VbDeclarationParser(DeclarationTree& tree);

  /// Reads `st`, a statement directly inside a block of kind `where` whose element is
  /// `parent` (none at file level), and adds what it declares as members of `parent`
  /// (top-level elements when none). Enum members are read by ReadEnumMember.
  VbDeclaration Read(const VbStatement& st, VbBlock where, Declaration* parent);

  /// Reads `st` as a member of the enum `owner`; adds a variable when it is one.
  void ReadEnumMember(const VbStatement& st, Declaration& owner);

  /// Whether `st` begins a declaration (a modifier, a declaration keyword, or End of a
  /// namespace or type), which no statement inside a method body can.
  static bool StartsDeclaration(const VbStatement& st);
  /// Whether `st` begins a property accessor: [attributes] [access] Get or Set.
  static bool IsAccessor(const VbStatement& st);
  /// When `st` is "End <word>", the word; End for a lone End; None otherwise.
  static VbKeyword EndKeyword(const VbStatement& st);

 private:
  struct Attribute {
    uint32_t start;
    uint32_t end;
    std::string name;
  };
  // Reads the attribute lists from tokens[i]; assembly and module attributes become
  // top-level elements, the others are appended to `out`.
  size_t ReadAttributes(const VbStatement& st, size_t i, std::vector<Attribute>& out);
  Declaration& Add(Declaration* parent, int kind, uint32_t start, uint32_t end,
                   const std::vector<Attribute>& attributes, const std::vector<VbSpan>& docs);
  std::string DocText(const std::vector<VbSpan>& docs) const;

  DeclarationTree& m_tree;
  std::string_view m_text;
  VbLexer m_lexer;
  // Attribute lists that stood alone, and the documentation before them.
  std::vector<Attribute> m_pendingAttributes;
  std::vector<VbSpan> m_pendingDocs;
};

}  // namespace platform::codemodel
