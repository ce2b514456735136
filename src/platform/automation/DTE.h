#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {

class Document;
class DocumentReadAhead;
class Project;
class Solution;
class StatusBar;
class Window;
class Windows;

/// The open documents, 1-based, in the order they were opened.
class Documents : public Dispatch {
 public:
  explicit Documents(std::vector<Ref<Document>> items) : m_items(std::move(items)) {}
  const char* TypeName() const override { return "Documents"; }
  int Count() const { return static_cast<int>(m_items.size()); }
  /// Document `index` (1-based); fails with 5 outside 1..Count().
  Ref<Document> Item(int index) const;
  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }

 private:
  std::vector<Ref<Document>> m_items;
};

/// The development environment: the solution, the open documents and windows, the
/// status bar, and the state the host sets (active document, caret, selection in the
/// solution).
class DTE : public Dispatch, public std::enable_shared_from_this<DTE> {
 public:
  DTE();
  const char* TypeName() const override { return "DTE"; }

  Ref<automation::Solution> Solution() const { return m_solution; }
  /// The open documents.
  Ref<automation::Documents> Documents() const;
  /// The active document; none when there is none.
  Ref<Document> ActiveDocument() const { return m_activeDocument; }
  /// The projects (or solution folders) selected in the solution window.
  std::vector<Ref<Project>> ActiveSolutionProjects() const { return m_selectedProjects; }
  /// Every window: those of the open documents and the tool windows; tool windows are
  /// made through it.
  Ref<automation::Windows> Windows() const;
  /// The window activated last: a tool window, or the active document's window; none
  /// when there is neither.
  Ref<Window> ActiveWindow() const;
  /// The environment's root in the registry ("Software\Microsoft\VisualStudio\8.0").
  const std::string& RegistryRoot() const { return m_registryRoot; }
  Ref<automation::StatusBar> StatusBar() const { return m_statusBar; }
  /// The environment's main window, the owner of its dialogs.
  Ref<Window> MainWindow() const { return m_mainWindow; }

  // --- The host's state ------------------------------------------------------------------
  void SetSolution(Ref<automation::Solution> solution) { m_solution = std::move(solution); }
  /// Makes `document` the active one (none: no active document). It must be open.
  void SetActiveDocument(Ref<Document> document) { m_activeDocument = std::move(document); }
  void SetSelectedProjects(std::vector<Ref<Project>> projects) {
    m_selectedProjects = std::move(projects);
  }
  void AddToolWindow(Ref<Window> window) { m_toolWindows.push_back(std::move(window)); }
  /// The registry root of the environment's version.
  void SetRegistryRoot(std::string root) { m_registryRoot = std::move(root); }

  // --- For windows -----------------------------------------------------------------------
  /// The tool window `window` was activated.
  void ActivateToolWindow(const Window* window);
  /// A window of `document` was activated: it is the active document.
  void ActivateDocument(Ref<Document> document);
  /// The read-ahead documents are loaded through while a walk runs (none: every document
  /// is read when it is opened). Set by the walk for its duration.
  void SetReadAhead(std::shared_ptr<DocumentReadAhead> readAhead) { m_readAhead = std::move(readAhead); }
  const std::shared_ptr<DocumentReadAhead>& ReadAhead() const { return m_readAhead; }

  // --- For documents ---------------------------------------------------------------------
  void DocumentOpened(const Ref<Document>& document);
  void DocumentClosed(const Document* document);
  bool IsOpen(const Document* document) const;

 private:
  Ref<automation::Solution> m_solution;
  std::vector<Ref<Document>> m_open;
  Ref<Document> m_activeDocument;
  std::vector<Ref<Project>> m_selectedProjects;
  std::vector<Ref<Window>> m_toolWindows;
  Ref<Window> m_activeToolWindow;
  std::string m_registryRoot = "Software\\Microsoft\\VisualStudio\\8.0";
  Ref<automation::StatusBar> m_statusBar;
  std::shared_ptr<DocumentReadAhead> m_readAhead;
  Ref<Window> m_mainWindow;
};

}  // namespace platform::automation
