#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/Declaration.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class FileCodeModel;
class CodeElements;
class CodeParameters;
class TextPoint;

/// One declaration of a source file as the code model shows it: its kind, name, access,
/// extent, attributes, documentation comment, parameters and prototype. It reads the
/// declaration its file's parser found; the reads fail with error 438 for what the
/// element's kind does not have. Elements live in their file's code model, which
/// belongs to the document: a reference to one keeps the whole document alive.
class CodeElement : public Dispatch {
 public:
  CodeElement(FileCodeModel* model, const codemodel::Declaration* declaration)
      : m_model(model), m_declaration(declaration) {}
  const char* TypeName() const override { return "CodeElement"; }

  int Kind() const { return m_declaration->kind; }
  const std::string& Name() const { return m_declaration->name; }
  /// The access flags; fails with 438 for elements without access.
  int Access() const;
  /// The enclosing element, or the FileCodeModel for top-level elements.
  Ref<Dispatch> Parent() const;
  /// The members (namespaces, classes, structs, interfaces, modules, enums); fails with
  /// 438 for other kinds.
  Ref<CodeElements> Members() const;
  Ref<TextPoint> StartPoint() const;
  Ref<TextPoint> EndPoint() const;
  /// One attribute element (kind 7) per attribute, in source order.
  Ref<CodeElements> Attributes() const;
  const std::string& DocComment() const { return m_declaration->docComment; }
  /// Fails with 438 where the element has no parameter list.
  Ref<CodeParameters> Parameters() const;
  /// With vsCMPrototypeType: the type, a blank and the name (the name alone for members
  /// without a type); without it, the name. Fails with 438 where there is no prototype.
  std::string Prototype(int flags) const;
  std::string Language() const;

  /// Whether elements of this kind have Members.
  static bool KindHasMembers(int kind) { return codemodel::KindHasMembers(kind); }

  /// The declaration this element shows.
  const codemodel::Declaration& declaration() const { return *m_declaration; }

 private:
  FileCodeModel* m_model;
  const codemodel::Declaration* m_declaration;
};

/// A 1-based collection of code elements (a file's top-level elements, an element's
/// members or attributes).
class CodeElements : public Dispatch {
 public:
  /// The elements of `items`, declarations of `model`, which `keepAlive` holds.
  CodeElements(std::shared_ptr<const void> keepAlive, const FileCodeModel* model,
               const std::vector<codemodel::Declaration*>* items)
      : m_keepAlive(std::move(keepAlive)), m_model(model), m_items(items) {}
  const char* TypeName() const override { return "CodeElements"; }
  int Count() const { return static_cast<int>(m_items->size()); }
  /// Element `index` (1-based); fails with 5 outside 1..Count().
  Ref<CodeElement> Item(int index) const;

 private:
  std::shared_ptr<const void> m_keepAlive;
  const FileCodeModel* m_model;
  const std::vector<codemodel::Declaration*>* m_items;
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
  CodeParameter(Ref<CodeElement> parent, const codemodel::ParameterData* data)
      : m_parent(std::move(parent)), m_data(data) {}
  const char* TypeName() const override { return "CodeParameter"; }
  const std::string& Name() const { return m_data->name; }
  Ref<CodeTypeRef> Type() const { return std::make_shared<CodeTypeRef>(m_data->type); }
  Ref<CodeElement> Parent() const { return m_parent; }

 private:
  Ref<CodeElement> m_parent;
  const codemodel::ParameterData* m_data;
};

/// The parameters of an element, 1-based.
class CodeParameters : public Dispatch {
 public:
  /// The parameters of `owner`, which must have a parameter list.
  explicit CodeParameters(Ref<CodeElement> owner) : m_owner(std::move(owner)) {}
  const char* TypeName() const override { return "CodeElements"; }
  int Count() const { return static_cast<int>(m_owner->declaration().parameters->size()); }
  /// Parameter `index` (1-based); fails with 5 outside 1..Count().
  Ref<CodeParameter> Item(int index) const;

 private:
  Ref<CodeElement> m_owner;
};

}  // namespace platform::automation
