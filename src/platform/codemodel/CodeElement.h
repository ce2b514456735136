#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/codemodel/CodeModelConstants.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class TextPoint;
}

namespace platform::codemodel {

class FileCodeModel;
class CodeElements;
class CodeParameters;

/// One parameter of a method, delegate, indexer, property or event, as a parser found it.
struct ParameterData {
  std::string name;
  std::string type;  // as written, whitespace normalized; "" for C#'s __arglist
};

/// One declaration of a source file, as the code model shows it: its kind, name, access,
/// extent, attributes, documentation comment, parameters and prototype. The C# and VB
/// parsers fill the public data members through FileCodeModel::AddElement; readers use
/// the automation-style accessors, which fail with error 438 for what the element's kind
/// does not have.
class CodeElement : public Dispatch {
 public:
  CodeElement(FileCodeModel* model, CodeElement* parent, int kind);
  const char* TypeName() const override { return "CodeElement"; }

  // --- What the parsers fill -------------------------------------------------------------
  int kind;
  std::string name;
  /// Access flags; none for namespaces, imports, attributes and option statements.
  std::optional<int> access;
  /// Byte offsets into the document text: the first modifier or keyword of the
  /// declaration (after attributes and documentation comment), and just after its last
  /// character.
  uint32_t start = 0;
  uint32_t end = 0;
  /// The documentation comment as "<doc>" CRLF ... CRLF "</doc>", or "".
  std::string docComment;
  /// The parameter list; none where the element has no Parameters.
  std::optional<std::vector<ParameterData>> parameters;
  /// The type text for Prototype; none where the element has no Prototype, "" for a
  /// member without a type (Prototype gives its name alone).
  std::optional<std::string> prototypeType;

  // --- Automation-style reads ------------------------------------------------------------
  int Kind() const { return kind; }
  const std::string& Name() const { return name; }
  /// The access flags; fails with 438 for elements without access.
  int Access() const;
  /// The enclosing element, or the FileCodeModel for top-level elements.
  Ref<Dispatch> Parent() const;
  /// The members (namespaces, classes, structs, interfaces, modules, enums); fails with
  /// 438 for other kinds.
  Ref<CodeElements> Members() const;
  Ref<automation::TextPoint> StartPoint() const;
  Ref<automation::TextPoint> EndPoint() const;
  /// One attribute element (kind 7) per attribute, in source order.
  Ref<CodeElements> Attributes() const;
  const std::string& DocComment() const { return docComment; }
  /// Fails with 438 where the element has no parameter list.
  Ref<CodeParameters> Parameters() const;
  /// With vsCMPrototypeType: the type, a blank and the name (the name alone for members
  /// without a type); without it, the name. Fails with 438 where there is no prototype.
  std::string Prototype(int flags) const;
  std::string Language() const;

  /// Whether elements of this kind have Members.
  static bool KindHasMembers(int kind);

  // --- Structure, for the model and its parsers ------------------------------------------
  FileCodeModel* model() const { return m_model; }
  CodeElement* parentElement() const { return m_parent; }
  const std::vector<CodeElement*>& members() const { return m_members; }
  const std::vector<CodeElement*>& attributes() const { return m_attributes; }

 private:
  friend class FileCodeModel;
  FileCodeModel* m_model;
  CodeElement* m_parent;
  std::vector<CodeElement*> m_members;
  std::vector<CodeElement*> m_attributes;
};

/// A 1-based collection of code elements (a file's top-level elements, an element's
/// members or attributes).
class CodeElements : public Dispatch {
 public:
  CodeElements(std::shared_ptr<const void> keepAlive, const std::vector<CodeElement*>* items)
      : m_keepAlive(std::move(keepAlive)), m_items(items) {}
  const char* TypeName() const override { return "CodeElements"; }
  int Count() const { return static_cast<int>(m_items->size()); }
  /// Element `index` (1-based); fails with 5 outside 1..Count().
  Ref<CodeElement> Item(int index) const;

 private:
  std::shared_ptr<const void> m_keepAlive;
  const std::vector<CodeElement*>* m_items;
};

/// The type of a parameter.
class CodeTypeRef : public Dispatch {
 public:
  explicit CodeTypeRef(std::string text) : m_text(std::move(text)) {}
  const char* TypeName() const override { return "CodeTypeRef"; }
  const std::string& AsString() const { return m_text; }

 private:
  std::string m_text;
};

/// One parameter of an element.
class CodeParameter : public Dispatch {
 public:
  CodeParameter(Ref<CodeElement> parent, const ParameterData* data)
      : m_parent(std::move(parent)), m_data(data) {}
  const char* TypeName() const override { return "CodeParameter"; }
  const std::string& Name() const { return m_data->name; }
  Ref<CodeTypeRef> Type() const { return std::make_shared<CodeTypeRef>(m_data->type); }
  Ref<CodeElement> Parent() const { return m_parent; }

 private:
  Ref<CodeElement> m_parent;
  const ParameterData* m_data;
};

/// The parameters of an element, 1-based.
class CodeParameters : public Dispatch {
 public:
  explicit CodeParameters(Ref<CodeElement> owner) : m_owner(std::move(owner)) {}
  const char* TypeName() const override { return "CodeElements"; }
  int Count() const { return static_cast<int>(m_owner->parameters->size()); }
  /// Parameter `index` (1-based); fails with 5 outside 1..Count().
  Ref<CodeParameter> Item(int index) const;

 private:
  Ref<CodeElement> m_owner;
};

}  // namespace platform::codemodel
