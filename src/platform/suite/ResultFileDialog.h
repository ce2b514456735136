#pragma once
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::suite {

/// Flags of the Windows common file dialog, as the result file dialog takes them. The
/// dialog acts on OFN_OVERWRITEPROMPT, OFN_PATHMUSTEXIST and OFN_FILEMUSTEXIST; the
/// others are accepted and kept.
enum FileDialogFlags : int32_t {
  OFN_OVERWRITEPROMPT = 0x2,
  OFN_HIDEREADONLY = 0x4,
  OFN_PATHMUSTEXIST = 0x800,
  OFN_FILEMUSTEXIST = 0x1000,
  OFN_EXPLORER = 0x80000,
  OFN_LONGNAMES = 0x200000,
};

/// How a result file dialog is shown: to open a file (0) or to save one (1).
enum FileDialogMode : int { kFileDialogOpen = 0, kFileDialogSave = 1 };

class ResultFileDialog;

/// Who answers a result file dialog on behalf of the host: a person on a terminal, a
/// script in tests and on the command line. The dialog itself applies its flags to
/// what the presenter answers and asks again when the answer cannot be taken.
class FileDialogPresenter {
 public:
  virtual ~FileDialogPresenter() = default;
  /// The name the user typed or picked in `dialog` (its title, filter, flags, initial
  /// folder and mode are set); std::nullopt when the user cancelled. A relative name is
  /// taken from the dialog's initial folder.
  virtual std::optional<std::string> Choose(const ResultFileDialog& dialog) = 0;
  /// Whether `path`, which exists, may be replaced (OFN_OVERWRITEPROMPT). This one asks
  /// through a message box question whose default answer is No.
  virtual bool ConfirmOverwrite(const ResultFileDialog& dialog, const std::string& path);
  /// Tells the user why the answer was not taken; the dialog then asks again. This one
  /// shows a message box with an exclamation icon, titled as the dialog.
  virtual void Refuse(const ResultFileDialog& dialog, const std::string& message);

  /// The presenter in use: a ScriptedFileDialogs without answers (every dialog is
  /// cancelled) until another is installed.
  static FileDialogPresenter& Current();
  /// Installs `presenter` (nullptr: the default) and returns the one it replaces.
  static std::shared_ptr<FileDialogPresenter> Install(std::shared_ptr<FileDialogPresenter> presenter);
};

/// The suite's file dialog for result files: made for one operation, given its title,
/// default extension, filter, flags, owner window and initial folder, shown once, and
/// then asked for the chosen file and its folder.
///
/// What Show does with an answer, as the common file dialog does:
///   - a relative name is taken from the initial folder (the current folder without one);
///   - a name without an extension gains the default extension, unless a file of exactly
///     that name exists (a file picked from the list is taken as it is);
///   - a folder is no answer;
///   - OFN_PATHMUSTEXIST and OFN_FILEMUSTEXIST: the folder must exist; OFN_FILEMUSTEXIST:
///     the file too;
///   - OFN_OVERWRITEPROMPT (save mode only): an existing file is replaced only when the
///     presenter confirms.
/// An answer refused by these rules is explained through the presenter, which is asked
/// again; a cancel (or an empty name) leaves the chosen path empty.
class ResultFileDialog : public Dispatch {
 public:
  /// One entry of the filter: its description and its patterns ("*.xmm").
  struct FilterEntry {
    std::string description;
    std::string pattern;
  };

  const char* TypeName() const override { return "ResultFileDialog"; }

  void SetTitle(std::string title) { m_title = std::move(title); }
  const std::string& Title() const { return m_title; }
  /// The extension without its dot ("xmm").
  void SetDefaultExt(std::string ext) { m_defaultExt = std::move(ext); }
  const std::string& DefaultExt() const { return m_defaultExt; }
  /// "Description|pattern|Description|pattern", as the common dialog takes it.
  void SetFilter(std::string filter) { m_filter = std::move(filter); }
  const std::string& Filter() const { return m_filter; }
  /// The filter split into its entries; a description without a pattern is left out.
  std::vector<FilterEntry> FilterEntries() const;
  void SetFlags(int32_t flags) { m_flags = flags; }
  int32_t Flags() const { return m_flags; }
  /// The window the dialog belongs to.
  void SetOwner(intptr_t hWnd) { m_owner = hWnd; }
  intptr_t Owner() const { return m_owner; }
  void SetInitialFolder(std::string folder) { m_initialFolder = std::move(folder); }
  const std::string& InitialFolder() const { return m_initialFolder; }

  /// Shows the dialog in `mode` (kFileDialogOpen or kFileDialogSave) through the
  /// presenter in use; fails with 5 for another mode. Afterwards FileName holds the
  /// chosen file, or "" when the user cancelled.
  void Show(int mode);
  /// The mode of the last Show.
  int Mode() const { return m_mode; }
  /// The full path of the chosen file; "" when the user cancelled or before Show.
  const std::string& FileName() const { return m_fileName; }
  /// The folder of the chosen file, ending in "/"; "" when there is no chosen file.
  std::string FileFolder() const;

 private:
  /// The path `answer` stands for, or std::nullopt (after telling the presenter why)
  /// when it cannot be taken.
  std::optional<std::string> Accept(FileDialogPresenter& presenter, const std::string& answer);

  std::string m_title;
  std::string m_defaultExt;
  std::string m_filter;
  int32_t m_flags = 0;
  intptr_t m_owner = 0;
  std::string m_initialFolder;
  int m_mode = kFileDialogOpen;
  std::string m_fileName;
};

/// File dialogs answered from a script: for tests and for the command line. Each dialog
/// takes the next answer (a name, or std::nullopt for a cancel); with none left it is
/// cancelled. Records every dialog shown, every refusal and every overwrite question.
class ScriptedFileDialogs : public FileDialogPresenter {
 public:
  /// What one dialog showed when it asked.
  struct Shown {
    std::string title;
    std::string defaultExt;
    std::string filter;
    int32_t flags;
    intptr_t owner;
    std::string initialFolder;
    int mode;
  };

  std::optional<std::string> Choose(const ResultFileDialog& dialog) override;
  /// `overwrite` when set; otherwise the message box question of FileDialogPresenter.
  bool ConfirmOverwrite(const ResultFileDialog& dialog, const std::string& path) override;
  /// Recorded; no message box.
  void Refuse(const ResultFileDialog& dialog, const std::string& message) override;

  /// Queues a name to answer with.
  ScriptedFileDialogs& Answer(std::string name) {
    answers.emplace_back(std::move(name));
    return *this;
  }
  /// Queues a cancel.
  ScriptedFileDialogs& Cancel() {
    answers.emplace_back(std::nullopt);
    return *this;
  }

  std::deque<std::optional<std::string>> answers;
  /// The answer to every overwrite question; unset: ask through a message box.
  std::optional<bool> overwrite;
  std::vector<Shown> shown;
  std::vector<std::string> refusals;
  /// The paths an overwrite question was asked for.
  std::vector<std::string> overwriteQuestions;
};

/// Installs a file dialog presenter for the life of the object and puts the previous one
/// back after.
class ScopedFileDialogs {
 public:
  explicit ScopedFileDialogs(std::shared_ptr<FileDialogPresenter> p)
      : m_previous(FileDialogPresenter::Install(std::move(p))) {}
  ~ScopedFileDialogs() { FileDialogPresenter::Install(m_previous); }
  ScopedFileDialogs(const ScopedFileDialogs&) = delete;
  ScopedFileDialogs& operator=(const ScopedFileDialogs&) = delete;

 private:
  std::shared_ptr<FileDialogPresenter> m_previous;
};

}  // namespace platform::suite
