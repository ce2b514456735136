#pragma once
#include <string>

#include "options/DelayedHints.h"
#include "platform/core/Event.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/UserControl.h"

namespace annotra {

/// The page "Definition Comments" of the options dialog: whether public and non-public
/// definitions must be commented, and whether with an XML comment; below them the
/// rules beyond those (an <inheritdoc/> comment counts as complete, parameter types are
/// compared, generated documents are skipped). Each XML box depends on the box above
/// it: it can be changed only while that one is checked, and keeps its value when it
/// cannot.
///
/// The page loads its settings when the dialog asks (InitOptions), stores them when the
/// dialog is accepted (SaveOptions), and asks the dialog through ShowHint to show the
/// hint of the box the focus or the resting mouse is on.
class ctlXMLComments : public platform::forms::UserControl, protected DelayedHints {
 public:
  /// The panel on a form, or inside a container of one (the dialog's tab strip).
  ctlXMLComments(platform::forms::Form& owner, std::string name);
  ctlXMLComments(platform::forms::Control& container, std::string name);

  /// The size the panel is designed at (twips); a form places it at its own size.
  static constexpr int kDesignWidth = 5220;
  static constexpr int kDesignHeight = 2940;

  /// Loads the boxes from section "CommentsAnalyzer": EnablePublic (default 1),
  /// XMLOnPublic (1), then the public dependency; EnableNonPublic (1), XMLOnNonPublic
  /// (0), then the non-public dependency; AcceptInheritDoc (0), CompareParamTypes (1),
  /// SkipGenerated (0). Each box gets 1 for a non-zero value, else 0.
  void InitOptions();
  /// Stores the boxes under the same keys, in the same order; only a checked box (1)
  /// is stored as 1. A disabled box stores its value like any other.
  void SaveOptions();

  /// The dialog is to show this hint now.
  platform::Event<const std::string&> ShowHint;

  platform::forms::CheckBox chkPublic{*this, "chkPublic"};
  platform::forms::CheckBox chkPublicXML{*this, "chkPublicXML"};
  platform::forms::CheckBox chkNonPublic{*this, "chkNonPublic"};
  platform::forms::CheckBox chkNonPublicXML{*this, "chkNonPublicXML"};
  platform::forms::CheckBox chkInheritDoc{*this, "chkInheritDoc"};
  platform::forms::CheckBox chkParamTypes{*this, "chkParamTypes"};
  platform::forms::CheckBox chkSkipGenerated{*this, "chkSkipGenerated"};

 protected:
  void ShowDelayedHint(const std::string& hint) override;

 private:
  void UserControl_Initialize();
  void SetHintVariables();
  /// Wires a box's focus and mouse moves to its hint.
  void HintOn(platform::forms::CheckBox& box, const std::string& sHint);
  void chkPublic_Click();
  void chkNonPublic_Click();

  std::string m_sHintPublic;
  std::string m_sHintPublicXML;
  std::string m_sHintNonPublic;
  std::string m_sHintNonPublicXML;
  std::string m_sHintInheritDoc;
  std::string m_sHintParamTypes;
  std::string m_sHintSkipGenerated;
};

}  // namespace annotra
