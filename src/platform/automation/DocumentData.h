#pragma once
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/automation/Document.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/TextBuffer.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/Window.h"
#include "platform/codemodel/PreprocessorSymbols.h"

namespace platform::automation {

/// Everything one document is made of, in one allocation: its text, the Document and
/// TextDocument objects, its selection, windows and code model. References handed out
/// to any of them share the allocation's count, so holding any part keeps the whole
/// document alive and no part can outlive the others. Internal to the model.
struct DocumentData : std::enable_shared_from_this<DocumentData> {
  DocumentData(std::filesystem::path path, TextBuffer text, ProjectItem* item,
               std::weak_ptr<DTE> dte, std::string language, codemodel::PreprocessorSymbols symbols);

  template <class T>
  Ref<T> Share(T* p) {
    return std::shared_ptr<T>(shared_from_this(), p);
  }

  std::filesystem::path path;
  TextBuffer text;
  ProjectItem* item;  // owned by the solution, which outlives its documents
  std::weak_ptr<DTE> dte;
  std::string language;
  codemodel::PreprocessorSymbols symbols;
  Document document;
  TextSelection selection;
  TextDocument textDocument;
  std::deque<Window> windows;
  Window* activeWindow = nullptr;
  std::optional<FileCodeModel> codeModel;
  int shownLine = 0;  // the line the editor's view was last asked to show
  bool parsed = false;
};

}  // namespace platform::automation
