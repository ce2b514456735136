#pragma once
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {

class Document;

/// The object a text editor window offers.
class TextWindow : public Dispatch {
 public:
  const char* TypeName() const override { return "TextWindow"; }
};

/// A window of the development environment: a document's editor window or a tool window.
class Window : public Dispatch {
 public:
  /// A window showing `document` (none for a tool window) with `object` as its Object.
  Window(std::string caption, Document* document, std::shared_ptr<Dispatch> object, bool visible)
      : m_caption(std::move(caption)), m_document(document), m_object(std::move(object)),
        m_visible(visible) {}
  const char* TypeName() const override { return "Window"; }

  const std::string& Caption() const { return m_caption; }
  void SetCaption(std::string caption) { m_caption = std::move(caption); }
  bool Visible() const { return m_visible; }
  void SetVisible(bool visible) { m_visible = visible; }
  /// Shows the window and makes it the active one.
  void Activate() { m_visible = true; }
  void Close() { m_visible = false; m_closed = true; }
  bool closed() const { return m_closed; }
  Ref<automation::Document> Document() const;
  Ref<Dispatch> Object() const { return m_object; }
  /// The frame the window is docked in; none (windows float on the command line).
  Ref<Window> LinkedWindowFrame() const { return nullptr; }

 private:
  std::string m_caption;
  class Document* m_document;
  std::shared_ptr<Dispatch> m_object;
  bool m_visible;
  bool m_closed = false;
};

/// A 1-based collection of windows.
class Windows : public Dispatch {
 public:
  explicit Windows(std::vector<Ref<Window>> items) : m_items(std::move(items)) {}
  const char* TypeName() const override { return "Windows"; }
  int Count() const { return static_cast<int>(m_items.size()); }
  /// Window `index` (1-based); fails with 5 outside 1..Count().
  Ref<Window> Item(int index) const;

 private:
  std::vector<Ref<Window>> m_items;
};

}  // namespace platform::automation
