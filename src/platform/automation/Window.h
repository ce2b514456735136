#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {

class Document;
class DTE;

/// The object a text editor window offers.
class TextWindow : public Dispatch {
 public:
  const char* TypeName() const override { return "TextWindow"; }
};

/// A window of the development environment: a document's editor window or a tool window.
/// A tool window hosts a document object (see Windows::CreateToolWindow); when that
/// object is a HostedDocument it hears when the window is shown and resized.
class Window : public Dispatch {
 public:
  /// A window showing `document` (none for a tool window) with `object` as its Object.
  Window(std::string caption, Document* document, std::shared_ptr<Dispatch> object, bool visible)
      : m_caption(std::move(caption)), m_document(document), m_object(std::move(object)),
        m_visible(visible), m_hWnd(NextHandle()) {}
  const char* TypeName() const override { return "Window"; }

  const std::string& Caption() const { return m_caption; }
  void SetCaption(std::string caption) { m_caption = std::move(caption); }
  bool Visible() const { return m_visible; }
  /// Shows or hides the window; a tool window closed before is opened again. A hosted
  /// document hears that its window was shown.
  void SetVisible(bool visible);
  /// Shows the window and makes it the environment's active window; a document's
  /// window makes its document the active document.
  void Activate();
  /// Closes the window without asking (`saveChanges` is not used: tool windows have
  /// nothing to save). A tool window is only hidden and can be shown again.
  void Close(int saveChanges = 0);
  bool closed() const { return m_closed; }
  Ref<automation::Document> Document() const;
  Ref<Dispatch> Object() const { return m_object; }
  /// The frame the window is docked in; none while it floats.
  Ref<Window> LinkedWindowFrame() const { return m_frame; }
  /// The identifier under which the environment keeps the window's place.
  const std::string& ObjectKind() const { return m_kind; }
  /// The window's handle: a number no other window of the process has.
  intptr_t HWnd() const { return m_hWnd; }

  // --- The host's side -------------------------------------------------------------
  /// Docks the window into `frame` (none: it floats).
  void SetLinkedWindowFrame(Ref<Window> frame) { m_frame = std::move(frame); }
  /// The client area (twips), and changing it: a hosted document hears the new size.
  int Width() const { return m_width; }
  int Height() const { return m_height; }
  void Resize(int width, int height);

  // --- For the environment ---------------------------------------------------------
  void SetEnvironment(const std::shared_ptr<DTE>& dte) { m_dte = dte; }
  void SetObjectKind(std::string kind) { m_kind = std::move(kind); }

 private:
  static intptr_t NextHandle() {
    static intptr_t last = 0x10000;
    return last += 4;
  }

  std::string m_caption;
  class Document* m_document;
  std::shared_ptr<Dispatch> m_object;
  bool m_visible;
  bool m_closed = false;
  std::weak_ptr<DTE> m_dte;
  Ref<Window> m_frame;
  std::string m_kind;
  int m_width = 0;
  int m_height = 0;
  intptr_t m_hWnd;
};

/// A 1-based collection of windows.
class Windows : public Dispatch {
 public:
  explicit Windows(std::vector<Ref<Window>> items, std::weak_ptr<DTE> dte = {})
      : m_items(std::move(items)), m_dte(std::move(dte)) {}
  const char* TypeName() const override { return "Windows"; }
  int Count() const { return static_cast<int>(m_items.size()); }
  /// Window `index` (1-based); fails with 5 outside 1..Count().
  Ref<Window> Item(int index) const;

  /// Makes a hidden tool window captioned `caption` whose place the environment keeps
  /// under `positionGuid`, hosting a new object of the class registered as `progID`
  /// (ClassRegistry), which is handed back in `docObject`; the window is
  /// kToolWindowWidth by kToolWindowHeight twips. `addIn` is the add-in that owns it
  /// (kept by the host, not checked here). Fails with 5 for a collection that belongs
  /// to no environment or an empty ProgID, 429 for a class that is not registered.
  Ref<Window> CreateToolWindow(const Ref<Dispatch>& addIn, const std::string& progID,
                               const std::string& caption, const std::string& positionGuid,
                               Ref<Dispatch>& docObject);
  static constexpr int kToolWindowWidth = 9600;   // 80 terminal cells
  static constexpr int kToolWindowHeight = 4800;  // 20 lines

 private:
  std::vector<Ref<Window>> m_items;
  std::weak_ptr<DTE> m_dte;
};

}  // namespace platform::automation
