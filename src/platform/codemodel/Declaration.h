#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform::codemodel {

/// One parameter of a method, delegate, indexer, property or event, as a parser found it.
struct ParameterData {
  std::string name;
  std::string type;  // as written, whitespace normalized; "" for C#'s __arglist
};

/// One declaration of a source file as a parser found it: its kind, name, access,
/// extent, documentation comment, parameters, prototype type, and its place in the
/// file's tree of declarations. Plain data: the parsers fill it through
/// DeclarationTree, and whoever shows it to the outside (the automation code model,
/// the JSON writer) reads it. Optional members are absent where the kind has no such
/// property.
struct Declaration {
  /// A declaration of `kind` under `parent` (null at the top level), the `index`-th of
  /// its tree; everything else empty.
  Declaration(int kind, Declaration* parent, uint32_t index) : kind(kind), parent(parent), index(index) {}

  int kind;
  std::string name;
  /// Access flags; none for namespaces, imports, attributes and option statements.
  std::optional<int> access;
  /// Byte offsets into the text: the first modifier or keyword of the declaration
  /// (after attributes and documentation comment), and just after its last character.
  uint32_t start = 0;
  uint32_t end = 0;
  /// The documentation comment as "<doc>" CRLF ... CRLF "</doc>", or "".
  std::string docComment;
  /// The parameter list; none where the declaration has no Parameters.
  std::optional<std::vector<ParameterData>> parameters;
  /// The type text for the prototype; none where the declaration has no prototype, ""
  /// for a member without a type (its prototype is its name alone).
  std::optional<std::string> prototypeType;

  /// The enclosing declaration (for an attribute: the declaration it is attached to);
  /// null at the top level.
  Declaration* parent;
  /// The members, in source order (empty for kinds without members).
  std::vector<Declaration*> members;
  /// One attribute declaration (kind 7) per attribute, in source order.
  std::vector<Declaration*> attributes;
  /// The position of this declaration in its tree (0 for the first one added), so that
  /// a reader can keep per-declaration data in a parallel array.
  uint32_t index;

  /// The prototype: with `withType`, the type, a blank and the name (the name alone when
  /// the type is ""); without, the name. Requires prototypeType.
  std::string Prototype(bool withType) const;
};

/// Whether declarations of `kind` have members (namespaces, classes, structs,
/// interfaces, modules, enums).
bool KindHasMembers(int kind);

}  // namespace platform::codemodel
