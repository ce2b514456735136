#include "platform/suite/ResultFileDialog.h"

#include <filesystem>

#include "platform/core/AsciiText.h"
#include "platform/core/Error.h"
#include "platform/forms/MessageBox.h"

namespace platform::suite {

namespace fs = std::filesystem;

namespace {

std::shared_ptr<FileDialogPresenter>& Slot() {
  static std::shared_ptr<FileDialogPresenter> p = std::make_shared<ScriptedFileDialogs>();
  return p;
}

// A presenter that answers the same refused name again and again would keep the dialog
// up for ever; a person gives up long before this many tries.
constexpr int kMaxAnswers = 100;

// Whether the file name of `path` has an extension: a dot after its first character.
bool HasExtension(const fs::path& path) {
  std::string name = path.filename().string();
  size_t dot = name.rfind('.');
  return dot != std::string::npos && dot > 0;
}

}  // namespace

// --- The presenter -----------------------------------------------------------------------

bool FileDialogPresenter::ConfirmOverwrite(const ResultFileDialog& dialog, const std::string& path) {
  int answer = forms::MsgBox(path + " already exists.\r\nDo you want to replace it?",
                             forms::vbYesNo | forms::vbExclamation | forms::vbDefaultButton2, dialog.Title());
  return answer == forms::vbYes;
}

void FileDialogPresenter::Refuse(const ResultFileDialog& dialog, const std::string& message) {
  forms::MsgBox(message, forms::vbOKOnly | forms::vbExclamation, dialog.Title());
}

FileDialogPresenter& FileDialogPresenter::Current() { return *Slot(); }

std::shared_ptr<FileDialogPresenter> FileDialogPresenter::Install(std::shared_ptr<FileDialogPresenter> presenter) {
  auto previous = Slot();
  Slot() = presenter ? std::move(presenter) : std::make_shared<ScriptedFileDialogs>();
  return previous;
}

// --- The dialog ----------------------------------------------------------------------------

std::vector<ResultFileDialog::FilterEntry> ResultFileDialog::FilterEntries() const {
  std::vector<std::string> parts;
  size_t begin = 0;
  while (begin <= m_filter.size()) {
    size_t end = m_filter.find('|', begin);
    if (end == std::string::npos) end = m_filter.size();
    parts.push_back(m_filter.substr(begin, end - begin));
    begin = end + 1;
  }
  std::vector<FilterEntry> entries;
  for (size_t i = 0; i + 1 < parts.size(); i += 2)
    if (!parts[i + 1].empty()) entries.push_back({parts[i], parts[i + 1]});
  return entries;
}

void ResultFileDialog::Show(int mode) {
  if (mode != kFileDialogOpen && mode != kFileDialogSave) throw Error(err::kInvalidCall);
  m_mode = mode;
  m_fileName.clear();
  FileDialogPresenter& presenter = FileDialogPresenter::Current();
  for (int i = 0; i < kMaxAnswers; ++i) {
    std::optional<std::string> answer = presenter.Choose(*this);
    if (!answer) return;
    std::string name = Trim(*answer, " \t");
    if (name.empty()) return;
    if (auto path = Accept(presenter, name)) {
      m_fileName = *path;
      return;
    }
  }
}

std::optional<std::string> ResultFileDialog::Accept(FileDialogPresenter& presenter, const std::string& answer) {
  std::error_code ec;
  fs::path path(answer);
  if (path.is_relative()) {
    fs::path base = m_initialFolder.empty() ? fs::current_path(ec) : fs::path(m_initialFolder);
    path = base / path;
  }
  path = path.lexically_normal();
  if (path.filename().empty() || fs::is_directory(path, ec)) {
    presenter.Refuse(*this, path.string() + "\r\nThis is a folder.\r\nChoose a file in it or type a file name.");
    return std::nullopt;
  }
  if (!m_defaultExt.empty() && !HasExtension(path) && !fs::exists(path, ec)) path += "." + m_defaultExt;

  const bool mustExist = (m_flags & OFN_FILEMUSTEXIST) != 0;
  if ((mustExist || (m_flags & OFN_PATHMUSTEXIST)) && !fs::is_directory(path.parent_path(), ec)) {
    presenter.Refuse(*this, path.string() + "\r\nThe folder does not exist.\r\nCheck the path and try again.");
    return std::nullopt;
  }
  if (mustExist && !fs::is_regular_file(path, ec)) {
    presenter.Refuse(*this, path.string() + "\r\nFile not found.\r\nCheck the file name and try again.");
    return std::nullopt;
  }
  if (m_mode == kFileDialogSave && (m_flags & OFN_OVERWRITEPROMPT) && fs::exists(path, ec) &&
      !presenter.ConfirmOverwrite(*this, path.string()))
    return std::nullopt;
  return path.string();
}

std::string ResultFileDialog::FileFolder() const {
  if (m_fileName.empty()) return "";
  std::string folder = fs::path(m_fileName).parent_path().string();
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

// --- The scripted presenter --------------------------------------------------------------

std::optional<std::string> ScriptedFileDialogs::Choose(const ResultFileDialog& dialog) {
  shown.push_back({dialog.Title(), dialog.DefaultExt(), dialog.Filter(), dialog.Flags(), dialog.Owner(),
                   dialog.InitialFolder(), dialog.Mode()});
  if (answers.empty()) return std::nullopt;
  std::optional<std::string> answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

bool ScriptedFileDialogs::ConfirmOverwrite(const ResultFileDialog& dialog, const std::string& path) {
  overwriteQuestions.push_back(path);
  if (overwrite) return *overwrite;
  return FileDialogPresenter::ConfirmOverwrite(dialog, path);
}

void ScriptedFileDialogs::Refuse(const ResultFileDialog&, const std::string& message) {
  refusals.push_back(message);
}

}  // namespace platform::suite
