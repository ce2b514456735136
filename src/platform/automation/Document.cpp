#include "platform/automation/Document.h"

#include "platform/automation/DTE.h"
#include "platform/automation/DefinitionText.h"
#include "platform/automation/DocumentData.h"
#include "platform/automation/DocumentReadAhead.h"
#include "platform/automation/ProjectItem.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/core/Error.h"

namespace platform::automation {

DocumentData::DocumentData(std::filesystem::path p, TextBuffer t, ProjectItem* i,
                           std::weak_ptr<DTE> d, std::string lang,
                           codemodel::PreprocessorSymbols syms)
    : path(std::move(p)),
      text(std::move(t)),
      item(i),
      dte(std::move(d)),
      language(std::move(lang)),
      symbols(std::move(syms)),
      document(this),
      selection(this),
      textDocument(this) {}

std::string Document::Name() const { return m_data->path.filename().string(); }

std::string Document::FullName() const { return m_data->path.string(); }

Ref<ProjectItem> Document::ProjectItem() const {
  if (!m_data->item) return nullptr;
  return m_data->item->shared_from_this();
}

Ref<TextDocument> Document::Object(const std::string& kind) const {
  if (kind != "TextDocument" && !kind.empty()) throw Error(err::kInvalidCall);
  return m_data->Share(&m_data->textDocument);
}

Ref<Windows> Document::Windows() const {
  std::vector<Ref<Window>> list;
  for (auto& w : m_data->windows)
    if (!w.closed()) list.push_back(m_data->Share(&w));
  return std::make_shared<automation::Windows>(std::move(list));
}

Ref<Window> Document::ActiveWindow() const {
  if (!m_data->activeWindow || m_data->activeWindow->closed()) return nullptr;
  return m_data->Share(m_data->activeWindow);
}

void Document::Close(int) {
  auto dte = m_data->dte.lock();
  if (!dte || !dte->IsOpen(this)) throw Error(err::kInvalidCall, "The document is not open");
  for (auto& w : m_data->windows) w.Close();
  m_data->activeWindow = nullptr;
  dte->DocumentClosed(this);
}

Ref<FileCodeModel> Document::CodeModel() const {
  DocumentData& d = *m_data;
  if (!d.parsed) {
    d.parsed = true;
    if (const auto* parser = codemodel::ParserForLanguage(d.language)) {
      d.codeModel.emplace(d.language, &d.text, &d.textDocument, d.item);
      d.codeModel->SetKeepAlive(d.weak_from_this());
      d.codeModel->Parse(*parser, d.symbols);
    }
  }
  if (!d.codeModel) return nullptr;
  return d.Share(&*d.codeModel);
}

Ref<Window> Document::OpenWindow(bool visible) {
  DocumentData& d = *m_data;
  auto& w = d.windows.emplace_back(Name(), this, std::make_shared<TextWindow>(), visible);
  d.activeWindow = &w;
  if (auto dte = d.dte.lock()) dte->DocumentOpened(d.Share(this));
  return d.Share(&w);
}

Ref<DTE> Document::DTE() const { return m_data->dte.lock(); }

void Document::Activated(Window& window) {
  m_data->activeWindow = &window;
  if (auto dte = m_data->dte.lock()) dte->ActivateDocument(m_data->Share(this));
}

Ref<Document> Document::FromText(const std::filesystem::path& path, std::string text,
                                 std::string language, codemodel::PreprocessorSymbols symbols) {
  auto data = std::make_shared<DocumentData>(path, TextBuffer(std::move(text)), nullptr, std::weak_ptr<automation::DTE>(),
                                             std::move(language), std::move(symbols));
  return data->Share(&data->document);
}

Ref<Document> Document::Load(const std::filesystem::path& path, automation::ProjectItem* item,
                             std::weak_ptr<automation::DTE> dte, std::string language,
                             codemodel::PreprocessorSymbols symbols) {
  auto data = std::make_shared<DocumentData>(path, TextBuffer(ReadDefinitionText(path)), item, std::move(dte),
                                             std::move(language), std::move(symbols));
  return data->Share(&data->document);
}

Ref<Document> Document::Adopt(PreparedDocument&& prepared, automation::ProjectItem* item, std::weak_ptr<automation::DTE> dte,
                              std::string language, codemodel::PreprocessorSymbols symbols) {
  if (prepared.error) throw *prepared.error;
  auto data = std::make_shared<DocumentData>(prepared.path, std::move(prepared.text), item, std::move(dte),
                                             std::move(language), std::move(symbols));
  if (prepared.declarations) {
    DocumentData& d = *data;
    d.parsed = true;
    d.codeModel.emplace(d.language, &d.text, &d.textDocument, d.item);
    d.codeModel->SetKeepAlive(d.weak_from_this());
    d.codeModel->Adopt(std::move(*prepared.declarations));
  }
  return data->Share(&data->document);
}

}  // namespace platform::automation
