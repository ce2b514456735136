#pragma once
#include <cstdint>
#include <string>

#include "options/DelayedHints.h"
#include "options/ctlStdComments.h"
#include "options/ctlXMLComments.h"
#include "platform/core/Ref.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/suite/ScopeSelector.h"
#include "platform/suite/VsTabAreaEx.h"

namespace platform::suite {
class FormHelper;
}

namespace annotra {

/// The options dialog, "Annotra - by Scribane", shown before every analysis: the scope
/// to analyse, the comment rules on two pages ("Definition Comments" and "In-method
/// Comments"), the XML comment template options, help, and a hint area that explains
/// the setting the focus is in at once, or the one the mouse has rested on for 500
/// milliseconds. "&Begin >>" (or Enter) accepts; "&Cancel", Escape and the close box
/// drop the dialog.
///
/// Everything goes through the forms layer, so a scripted presenter plays it as a
/// person would on a terminal: the scope selector with its list, the tab strip, the
/// boxes of the pages, the keys and the mouse, with the hint timer on the presenter's
/// clock.
class FOptions : public platform::forms::Form, protected DelayedHints {
 public:
  FOptions();
  ~FOptions() override;

  /// Loads the dialog when needed, sets it from section "CommentsAnalyzer" of the
  /// per-user settings store (the scope "LastScope", the rules of the pages, the page
  /// "Tab"), shows it modally, and when the user accepts stores "LastScope" (the value
  /// of the selected scope), "Tab" (the page shown last) and the rules of both pages.
  /// True when accepted; false, with nothing stored, when cancelled or closed. The
  /// caller unloads the dialog afterwards. Never throws: failures are reported with
  /// the source "Quillmark.FOptions.GetOptions".
  bool GetOptions();

  platform::forms::Label Label1{*this, "Label1", "&Scope:"};
  platform::suite::ScopeSelector cmbOperationScope{*this, "cmbOperationScope"};
  platform::suite::VsTabAreaEx VsTabAreaEx1{*this, "VsTabAreaEx1"};
  ctlXMLComments ctlXMLComments1{VsTabAreaEx1, "ctlXMLComments1"};
  ctlStdComments ctlStdComments1{VsTabAreaEx1, "ctlStdComments1"};
  platform::forms::Frame Frame1{*this, "Frame1"};
  platform::forms::Label lblHint{Frame1, "lblHint"};
  platform::forms::CommandButton Command3{*this, "Command3", "&Help"};
  platform::forms::CommandButton Command4{*this, "Command4", "&Options"};
  platform::forms::CommandButton Command1{*this, "Command1", "&Begin >>"};
  platform::forms::CommandButton Command2{*this, "Command2", "&Cancel"};

 protected:
  void Form_Load() override;
  void Form_QueryUnload(int& cancel, int unloadMode) override;
  void Form_Unload(int& cancel) override;
  void Form_MouseMove(int button, int shift, float x, float y) override;
  void ShowDelayedHint(const std::string& hint) override;

 private:
  /// Selects the first scope whose value is `iScope`; the first scope when none is.
  void LastScopeSelected(int16_t iScope);
  void SetHintVariables();
  /// Shows the page of the selected tab when it is not the page shown.
  void VsTabAreaEx1_TabClick();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void cmbOperationScope_KeyDown(int& KeyCode, int& Shift);
  /// Wires a control's focus (when `bFocus`) and mouse moves to a hint.
  void HintOn(platform::forms::Control& control, const std::string& sHint, bool bFocus);

  bool m_bOK = false;
  int16_t m_iTab = 1;
  std::string m_sHintScope;
  std::string m_sHintBegin;
  std::string m_sHintCancel;
  std::string m_sHintHelp;
  std::string m_sHintOptions;
  platform::Ref<platform::suite::FormHelper> m_oFormHelper;
};

}  // namespace annotra
