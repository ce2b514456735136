#pragma once
#include <optional>
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
  struct Header;  // a declaration statement being read (defined with the readers)

  // Every Read<construct> function reads the statement of `h` from the cursor at the
  // construct's keyword, adds the declarations it makes as members of h.parent (none
  // when the construct is out of place where it stands) and says what the statement
  // is for the block structure.

  /// Namespace: a block.
  VbDeclaration ReadNamespace(Header& h);
  /// Module, Class, Structure, Interface or Enum (`keyword`): a block.
  VbDeclaration ReadTypeBlock(Header& h, VbKeyword keyword);
  /// Sub or Function (`keyword`), Sub New included: a body unless abstract or in an
  /// interface; an element only inside a type.
  VbDeclaration ReadMethod(Header& h, VbKeyword keyword);
  /// Operator, named "operator <symbol>" or, for a Widening or Narrowing CType,
  /// "implicit operator <type>" / "explicit operator <type>".
  VbDeclaration ReadOperator(Header& h);
  /// Property: a property header (Get or Set may follow) unless abstract or in an
  /// interface; parameters only when it declares some.
  VbDeclaration ReadProperty(Header& h);
  /// Event: a body for a Custom Event outside an interface; parameters only when it
  /// declares some.
  VbDeclaration ReadEvent(Header& h);
  /// Delegate Sub or Delegate Function, anywhere but in an enum.
  VbDeclaration ReadDelegate(Header& h);
  /// Declare [Ansi|Unicode|Auto] Sub|Function name Lib "..." [Alias "..."] (...).
  VbDeclaration ReadDeclare(Header& h);
  /// Imports at file level: one top-level element per clause (XML namespaces none).
  VbDeclaration ReadImports(Header& h);
  /// Option at file level: one top-level element named by the whole statement.
  VbDeclaration ReadOption(Header& h);
  /// Fields: [modifiers] name[?][(bounds)] [As [New] Type] [= value], ... in a class,
  /// module or structure; one element per declarator.
  VbDeclaration ReadFields(Header& h);

  /// Reads the attribute lists `h.st` begins with into h.attributes, after those that
  /// stood alone before it. False when the statement holds nothing else: its lists, with
  /// the documentation before them, then wait for the next declaration.
  bool ReadPreamble(Header& h);
  // Reads the attribute lists from tokens[i]; assembly and module attributes become
  // top-level elements, the others are appended to `out`.
  size_t ReadAttributes(const VbStatement& st, size_t i, std::vector<Attribute>& out);
  /// Adds a declaration of `kind` for the statement of `h` (its extent, attributes and
  /// documentation) and lists it in d.elements.
  Declaration& AddDeclared(Header& h, int kind, VbDeclaration& d);
  /// AddDeclared for a member with a signature: its name, access, parameters (none: no
  /// parameter list at all) and type, made d.element.
  Declaration& AddMember(Header& h, int kind, VbDeclaration& d, std::string name, int access,
                         std::optional<std::vector<ParameterData>> parameters, std::string type);
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
