#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/codemodel/CSharpSyntaxScanner.h"
#include "platform/codemodel/CSharpTokenizer.h"
#include "platform/codemodel/DeclarationTree.h"

namespace platform::codemodel {

/// Reads the declarations of a tokenized C# file into a DeclarationTree: imports, global
/// attributes, namespaces, types, delegates and their members, with names, access,
/// extents, attributes, documentation comments, parameters and prototype types as the
/// code model shows them. Statements (top-level ones and those in bodies) are stepped
/// over. What it does not understand costs the declaration it is in: it skips to the
/// end of that declaration and goes on.
class CSharpDeclarationParser {
 public:
  /// `stream` must be the tokens of `tree.Text()`.
  CSharpDeclarationParser(DeclarationTree& tree, const CsTokenStream& stream);

  /// Adds the file's declarations to the tree. Runs once.
  void Parse();

 private:
  /// Where a declaration stands; decides what may be declared and the default access.
  enum class Scope { File, Namespace, Class, Struct, Interface };

  /// One attribute read: its name's tokens and the end of its argument list.
  struct Attribute {
    size_t nameBegin;
    size_t nameEnd;
    uint32_t end;
  };

  /// What every declaration has before its own syntax: its documentation comment, its
  /// attributes, its first token after them and its modifiers.
  struct Header {
    size_t first = 0;       // first token (an attribute's '[' or the declaration)
    size_t declStart = 0;   // first token after the attributes
    unsigned modifiers = 0;
  };

  // Every Parse... function starts at the cursor m_p and leaves it after what it read;
  // none moves it past a '}' that closes an enclosing body, and none adds an element
  // before the declaration's header has been read (so a failed declaration adds none).

  /// Reads declarations into `parent` (null: the file) until a '}' that closes the
  /// body (left for the caller) or, with `toEndOfFile`, to the end (stray '}' skipped).
  void ParseMembers(Declaration* parent, Scope scope, int nesting, bool toEndOfFile);
  /// Reads one declaration, or steps over one statement or unreadable declaration.
  void ParseMember(Declaration* parent, Scope scope, int nesting);
  /// Reads the attribute section at m_p ('[') into m_attributes; an unreadable section
  /// is skipped whole and false returned.
  bool ParseAttributeSection();
  /// Reads an [assembly: ...] or [module: ...] section into top-level attribute elements.
  void ParseGlobalAttributeSection();
  /// Reads the modifiers at m_p into `h`.
  void ParseModifiers(Header& h);
  /// Whether the contextual keyword at `i` (async, partial, required, file, scoped) is a
  /// modifier here rather than a type or member name.
  bool ContextualModifier(size_t i) const;
  /// Whether the `ref` at `i` modifies a struct declaration rather than starting a type.
  bool RefIsModifier(size_t i) const;

  /// At `namespace`: a braced or file-scoped namespace and its members.
  void ParseNamespace(const Header& h, Declaration* parent, int nesting);
  /// At `using` or `global using`: a using directive, added as an import when
  /// `addElement`. False (cursor unmoved) when the tokens are no directive (a using
  /// statement).
  bool ParseUsing(const Header& h, bool addElement);
  /// At class, struct, interface, enum or record: the type and its members.
  void ParseType(const Header& h, Declaration* parent, Scope scope, int nesting);
  /// After an enum's '{': its members, up to the closing '}' (left for the caller).
  void ParseEnumBody(Declaration& owner);
  /// At `delegate`: a delegate declaration.
  void ParseDelegate(const Header& h, Declaration* parent, Scope scope);
  /// After the modifiers of a member of a class, struct or interface: that member.
  void ParseTypeMember(const Header& h, Declaration* parent, Scope scope);
  /// At `event`: a field-like event (one element per declarator) or one with accessors.
  void ParseEvent(const Header& h, Declaration* parent, Scope scope);
  /// At a constructor's name, or at a finalizer's '~'.
  void ParseConstructorOrFinalizer(const Header& h, Declaration* parent, Scope scope, bool finalizer);
  /// At `implicit` or `explicit`: a conversion operator.
  void ParseConversion(const Header& h, Declaration* parent, Scope scope);
  /// At the first declarator after the type [typeBegin, typeEnd): one field (or event,
  /// when `event` precedes the type) per declarator.
  void ParseFields(const Header& h, Declaration* parent, Scope scope, size_t typeBegin, size_t typeEnd);
  /// At '(' or '[': the parameter list into `out`, cursor after its closer. False, with
  /// the cursor where reading stopped, when the list cannot be read.
  bool ParseParameters(std::vector<ParameterData>& out);
  /// After `operator`: the operator's symbol into `out` (`checked` dropped). False when
  /// it is not an overloadable operator.
  bool ReadOperatorSymbol(std::string& out);
  /// After a parameter list: constructor initializer, constraints and the body (block,
  /// expression or ';').
  void FinishFunctionBody();
  /// After a property's name or an indexer's ']': accessors (and an initializer) or an
  /// expression body.
  void FinishPropertyBody();

  /// Extends `e` to its last member's end when that lies beyond it.
  void HoldMembers(Declaration& e);
  /// Skips what is left of a declaration that could not be read: to its ';' or after
  /// its block, or before an access modifier or a '}' that closes the enclosing body.
  void Recover(size_t from);
  /// Skips one top-level statement starting at `from`.
  void SkipStatement(size_t from);

  /// Adds an element of `kind` for the declaration `h`, with its start, documentation
  /// comment and the attributes in m_attributes; `end` is its end offset.
  Declaration& AddElement(Declaration* parent, int kind, const Header& h, std::string name,
                          std::optional<int> access, uint32_t end);
  /// The DocComment text of the declaration whose first token is `first`.
  std::string DocCommentOf(size_t first) const;
  /// The access flags the modifiers of `h` give, or the default of `scope`.
  int AccessOf(const Header& h, Scope scope) const;
  /// The end offset of the token before the cursor.
  uint32_t EndOfPrevious() const { return m_s.At(m_p == 0 ? 0 : m_p - 1).end; }
  /// The normalized text of the tokens [begin, end).
  std::string TypeText(size_t begin, size_t end) const;

  DeclarationTree& m_tree;
  std::string_view m_text;
  const CsTokenStream& m_stream;
  CSharpSyntaxScanner m_s;
  size_t m_p = 0;
  std::vector<Attribute> m_attributes;  // of the declaration being read
  std::string m_typeName;               // name of the type whose members are read
};

}  // namespace platform::codemodel
