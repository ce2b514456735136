#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "platform/automation/FileCodeModel.h"
#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;
class ProjectItem;
class TextDocument;
class Window;
class Windows;
struct DocumentData;
struct PreparedDocument;

/// A source document: its name, its item, its text and its windows. A document is read
/// when first needed and dropped when nothing holds it; the documents the host or the
/// walk opened are held by the development environment's Documents until closed.
class Document : public Dispatch {
 public:
  const char* TypeName() const override { return "Document"; }

  /// The file name ("Form1.cs").
  std::string Name() const;
  /// The full path of the file.
  std::string FullName() const;
  /// The document's project item; none for a document opened outside the solution.
  Ref<automation::ProjectItem> ProjectItem() const;
  /// The text document for "TextDocument" or ""; fails with 5 for other kinds.
  Ref<TextDocument> Object(const std::string& kind) const;
  Ref<automation::Windows> Windows() const;
  /// The most recently activated window; none when the document has no window.
  Ref<Window> ActiveWindow() const;
  /// Closes the document's windows and removes it from the open documents. Fails with
  /// 5 when it is not open.
  void Close(int save = 0);

  /// The code model (parsed on first use); none for files of other languages.
  Ref<FileCodeModel> CodeModel() const;

  /// Opens a window of the document: a hidden code window, or a visible text window
  /// when the host opens it. The document joins the open documents.
  Ref<Window> OpenWindow(bool visible);
  /// The development environment the document belongs to; none for a document made
  /// from text.
  Ref<automation::DTE> DTE() const;
  /// For windows: `window`, one of the document's, was activated.
  void Activated(Window& window);

  /// A document of `text` (already decoded) named after `path`, parsed as `language`
  /// with `symbols`; not part of any solution. For tests and single files.
  static Ref<Document> FromText(const std::filesystem::path& path, std::string text,
                                std::string language,
                                codemodel::PreprocessorSymbols symbols = {});

  /// The document of `item`, read from `path`, owned by `dte` for the open documents.
  /// Fails with 53 (missing), 75 (unreadable or over 64 MiB) or 5 (unknown encoding),
  /// the message naming the file.
  static Ref<Document> Load(const std::filesystem::path& path, automation::ProjectItem* item,
                            std::weak_ptr<automation::DTE> dte, std::string language,
                            codemodel::PreprocessorSymbols symbols);
  /// The document of `item` made from what was read and parsed ahead (the same as Load
  /// and a parse with `language` and `symbols` would make); fails as Load does when the
  /// reading failed.
  static Ref<Document> Adopt(PreparedDocument&& prepared, automation::ProjectItem* item,
                             std::weak_ptr<automation::DTE> dte, std::string language,
                             codemodel::PreprocessorSymbols symbols);

  explicit Document(DocumentData* data) : m_data(data) {}

 private:
  DocumentData* m_data;
};

}  // namespace platform::automation
