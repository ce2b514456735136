#pragma once
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/TreeView.h"

namespace app::terminal {

/// The file dialog of the terminal: the folder it shows, the list of its folders and of
/// the files the chosen filter lets through, the name line, the filter, and the buttons.
/// The name line completes with Tab: a name that one entry of its folder begins with
/// becomes that entry (a folder with its "/", opened), several give their longest
/// common start and the list shows just them; with nothing to complete Tab moves on. Enter on a folder (in the list, or named in the name
/// line) opens it; on a file it chooses it. A click picks an entry for the name line, a
/// double click opens or chooses it. "~" stands for the home folder.
class FFileDialog : public platform::forms::Form {
 public:
  struct Filter {
    std::string description;
    std::string pattern;  // "*.xmm", or several separated by ";"
  };

  /// A dialog titled `title` on `folder` ("" the current folder), offering `filters`
  /// (the first chosen), with `acceptCaption` on its accepting button ("&Open",
  /// "&Save").
  FFileDialog(const std::string& title, const std::string& folder, std::vector<Filter> filters,
              const std::string& acceptCaption);

  /// Shows the dialog modally; the name chosen (a full path), or std::nullopt when the
  /// user cancelled.
  std::optional<std::string> Run();

  /// The folder shown, ending in "/".
  const std::string& Folder() const { return m_folder; }
  /// Opens `folder` (relative to the one shown); false when it is no folder.
  bool OpenFolder(const std::string& folder);
  /// Completes the name line as Tab does; false when there was nothing to complete
  /// (an empty line, or no entry begins so).
  bool Complete();
  /// Whether `name` matches one of `pattern`'s patterns ("*.xmm;*.xls"; "*" any run,
  /// "?" one character, letters in any case).
  static bool Matches(const std::string& pattern, const std::string& name);

  platform::forms::Label lblFolder{*this, "lblFolder"};
  platform::forms::TreeView lstFiles{*this, "lstFiles"};
  platform::forms::Label lblName{*this, "lblName", "File &name:"};
  platform::forms::TextBox txtName{*this, "txtName"};
  platform::forms::Label lblType{*this, "lblType", "Files of &type:"};
  platform::forms::CommandButton cmdType{*this, "cmdType"};
  platform::forms::CommandButton cmdOK{*this, "cmdOK"};
  platform::forms::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

 protected:
  void Form_KeyDown(int& keyCode, int shift) override;
  void Form_QueryUnload(int& cancel, int unloadMode) override;

 private:
  /// Fills the list with the folder's entries that begin with `prefix`.
  void Fill(const std::string& prefix = "");
  void Accept();
  /// The folder and the start of a name that `text` of the name line stands for.
  std::pair<std::string, std::string> Split(const std::string& text) const;
  std::string Expand(const std::string& path) const;

  std::string m_folder;
  std::vector<Filter> m_filters;
  size_t m_filter = 0;
  std::string m_selectedKey;
  std::optional<std::string> m_result;
};

}  // namespace app::terminal
