#pragma once
#include <string>

#include "options/DelayedHints.h"
#include "platform/core/Event.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/UserControl.h"

namespace annotra {

/// The page "In-method Comments" of the options dialog: whether method bodies are
/// checked, and the longest run of uncommented lines accepted, on one line:
/// "&Uncommented code blocks should not be longer than" [limit] "lines.". The limit
/// box takes digits only and can be changed only while the check is on; it keeps its
/// value when it cannot.
///
/// The page loads its settings when the dialog asks (InitOptions), stores them when the
/// dialog is accepted (SaveOptions), and asks the dialog through ShowHint to show the
/// hint of the control the focus or the resting mouse is on.
class ctlStdComments : public platform::forms::UserControl, protected DelayedHints {
 public:
  /// The panel on a form, or inside a container of one (the dialog's tab strip).
  ctlStdComments(platform::forms::Form& owner, std::string name);
  ctlStdComments(platform::forms::Control& container, std::string name);

  /// The size the panel is designed at (twips); a form places it at its own size.
  static constexpr int kDesignWidth = 5160;
  static constexpr int kDesignHeight = 2715;

  /// Loads EnableBody (default 1) into the check box, then its dependency; shows the
  /// line limit, LineCount as ReadLineCount gives it (15 unless a number from 5 to 100).
  void InitOptions();
  /// Stores the check box as EnableBody (only 1 as 1), and as LineCount the limit
  /// typed: the box's text as a 16-bit number, 15 when it is none (an empty text, one
  /// beyond 16 bits) or lies outside 5 to 100. A disabled box stores its text too.
  void SaveOptions();

  /// The dialog is to show this hint now.
  platform::Event<const std::string&> ShowHint;

  platform::forms::CheckBox chkEnabled{*this, "chkEnabled"};
  platform::forms::Label Label2{*this, "Label2"};
  platform::forms::TextBox Text1{*this, "Text1"};
  platform::forms::Label Label4{*this, "Label4"};

 protected:
  void ShowDelayedHint(const std::string& hint) override;

 private:
  void UserControl_Initialize();
  void SetHintVariables();
  void chkEnabled_Click();

  std::string m_sHintEnabled;
  std::string m_sHintLines;
};

}  // namespace annotra
