#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/codemodel/CSharpSyntaxScanner.h"
#include "platform/codemodel/CSharpTokenizer.h"
#include "platform/codemodel/FileCodeModel.h"

namespace platform::codemodel {

/// Reads the declarations of a tokenized C# file into its code model: imports, global
/// attributes, namespaces, types, delegates and their members, with names, access,
/// extents, attributes, documentation comments, parameters and prototype types as the
/// code model shows them. Statements (top-level ones and those in bodies) are stepped
/// over. What it does not understand costs the declaration it is in: it skips to the
/// end of that declaration and goes on.
class CSharpDeclarationParser {
 public:
  /// `stream` must be the tokens of `model.Text()`.
  CSharpDeclarationParser(FileCodeModel& model, const CsTokenStream& stream);

  /// Adds the file's elements to the model. Runs once.
  void Parse();

 private:
  /// Where a declaration stands; decides what may be declared and the default access.
  enum class Scope { File, Namespace, Class, Struct, Interface };

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
    bool hasAttributes = false;
  };

  void ParseMembers(CodeElement* parent, Scope scope, int nesting, bool toEndOfFile);
  void ParseMember(CodeElement* parent, Scope scope, int nesting);
  bool ParseAttributeSection(CodeElement* topLevelOwner);
  void ParseGlobalAttributeSection();
  void ParseModifiers(Header& h);
  bool ContextualModifier(size_t i) const;
  bool RefIsModifier(size_t i) const;

  void ParseNamespace(const Header& h, CodeElement* parent, int nesting);
  bool ParseUsing(const Header& h, bool addElement);
  void ParseType(const Header& h, CodeElement* parent, Scope scope, int nesting);
  void ParseEnumBody(CodeElement& owner);
  void ParseDelegate(const Header& h, CodeElement* parent, Scope scope);
  void ParseTypeMember(const Header& h, CodeElement* parent, Scope scope);
  void ParseEvent(const Header& h, CodeElement* parent, Scope scope);
  void ParseConstructorOrFinalizer(const Header& h, CodeElement* parent, Scope scope, bool finalizer);
  void ParseConversion(const Header& h, CodeElement* parent, Scope scope);
  void ParseFields(const Header& h, CodeElement* parent, Scope scope, size_t typeBegin, size_t typeEnd);
  bool ParseParameters(std::vector<ParameterData>& out);
  bool ReadOperatorSymbol(std::string& out);
  void FinishFunctionBody();
  void FinishPropertyBody();

  /// Extends `e` to its last member's end when that lies beyond it.
  void HoldMembers(CodeElement& e);
  /// Skips what is left of a declaration that could not be read.
  void Recover(size_t from);
  /// Skips one top-level statement starting at `from`.
  void SkipStatement(size_t from);

  CodeElement& AddElement(CodeElement* parent, int kind, const Header& h, std::string name,
                          std::optional<int> access, uint32_t end);
  std::string DocCommentOf(size_t first) const;
  int AccessOf(const Header& h, Scope scope) const;
  uint32_t EndOfPrevious() const { return m_s.At(m_p == 0 ? 0 : m_p - 1).end; }
  std::string TypeText(size_t begin, size_t end) const;

  FileCodeModel& m_model;
  std::string_view m_text;
  const CsTokenStream& m_stream;
  CSharpSyntaxScanner m_s;
  size_t m_p = 0;
  std::vector<Attribute> m_attributes;  // of the declaration being read
  std::string m_typeName;               // name of the type whose members are read
};

}  // namespace platform::codemodel
