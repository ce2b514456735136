#include "options/ctlXMLComments.h"

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"

namespace annotra {

using platform::forms::CheckBox;

ctlXMLComments::ctlXMLComments(platform::forms::Form& owner, std::string name)
    : UserControl(owner, std::move(name)), DelayedHints("ctlXMLComments") {
  UserControl_Initialize();
}

ctlXMLComments::ctlXMLComments(platform::forms::Control& container, std::string name)
    : UserControl(container, std::move(name)), DelayedHints("ctlXMLComments") {
  UserControl_Initialize();
}

void ctlXMLComments::UserControl_Initialize() {
  Font.Name = "Tahoma";
  Width = kDesignWidth;
  Height = kDesignHeight;
  // Each XML box sits indented under the box it depends on. The rules beyond those
  // share one row below them, where the dialog's tab strip still has room.
  struct Place {
    CheckBox& box;
    const char* caption;
    int left, top, width, tab;
  } places[] = {
      {chkPublic, "Publicly available definitions should be commented", 0, 0, 5265, 0},
      {chkPublicXML, "Should use XML comments", 240, 330, 4305, 1},
      {chkNonPublic, "Non-publicly available definitions should be commented", 0, 870, 5265, 2},
      {chkNonPublicXML, "Should use XML comments", 240, 1200, 4305, 3},
      {chkInheritDoc, "Accept <inheritdoc/>", 0, 1530, 2160, 4},
      {chkParamTypes, "Compare param types", 2250, 1530, 2070, 5},
      {chkSkipGenerated, "Skip generated", 4410, 1530, 1620, 6},
  };
  for (const Place& p : places) {
    p.box.Caption = p.caption;
    p.box.Move(p.left, p.top, p.width, 285);
    p.box.TabIndex = p.tab;
    p.box.Font = Font;
  }
  SetHintVariables();
  HintOn(chkPublic, m_sHintPublic);
  HintOn(chkPublicXML, m_sHintPublicXML);
  HintOn(chkNonPublic, m_sHintNonPublic);
  HintOn(chkNonPublicXML, m_sHintNonPublicXML);
  HintOn(chkInheritDoc, m_sHintInheritDoc);
  HintOn(chkParamTypes, m_sHintParamTypes);
  HintOn(chkSkipGenerated, m_sHintSkipGenerated);
  chkPublic.Click.Connect([this] { chkPublic_Click(); });
  chkNonPublic.Click.Connect([this] { chkNonPublic_Click(); });
  MouseMove.Connect([this](int, int, int x, int y) {
    Quietly([&] { ClearDescription(static_cast<float>(x), static_cast<float>(y)); });
  });
  LostFocus.Connect([this] {
    Steps step("Quillmark.ctlXMLComments.UserControl_ExitFocus");
    step(1, [&] { ClearDescription(-1, -1); });
  });
  ClearDescription(-1, -1);
}

void ctlXMLComments::SetHintVariables() {
  m_sHintPublic =
      "Check this to report public definitions (i.e elements marked as 'public' or 'protected') "
      "with missing or non-standard comments.";
  m_sHintPublicXML =
      "Use this option to specify the comment type that public definitions should have, that is "
      "XML comment or regular descriptive comment.";
  m_sHintNonPublic = "Check this to report non-public definitions with missing or non-standard comments.";
  m_sHintNonPublicXML =
      "Use this option to specify the comment type that non-public definitions should have, that "
      "is XML comment or regular descriptive comment.";
  m_sHintInheritDoc =
      "Check this to accept an XML comment holding <inheritdoc/> as one that has every required tag "
      "and every parameter tag.";
  m_sHintParamTypes =
      "Use this option to specify whether parameter tags should also match the parameter types, "
      "or only the parameter names and count.";
  m_sHintSkipGenerated =
      "Check this to skip generated documents (i.e. marked as auto-generated, or named like "
      "'*.g.cs' or '*.generated.cs') as designer files are skipped.";
}

void ctlXMLComments::HintOn(CheckBox& box, const std::string& sHint) {
  const std::string source = "Quillmark.ctlXMLComments." + box.Name + "_GotFocus";
  box.GotFocus.Connect([this, source, &sHint] {
    Steps step(source);
    step(1, [&] { ShowHint.Raise(sHint); });
  });
  box.MouseMove.Connect([this, &sHint](int, int, int x, int y) {
    Quietly([&] { SetDelayedHint(static_cast<float>(x), static_cast<float>(y), sHint); });
  });
}

void ctlXMLComments::ShowDelayedHint(const std::string& hint) { ShowHint.Raise(hint); }

void ctlXMLComments::chkPublic_Click() { chkPublicXML.Enabled = chkPublic.Value == 1; }

void ctlXMLComments::chkNonPublic_Click() { chkNonPublicXML.Enabled = chkNonPublic.Value == 1; }

void ctlXMLComments::InitOptions() {
  Steps step("Quillmark.ctlXMLComments.InitOptions");
  step(1, [&] { chkPublic.Value = MGlobals::GetCheckBoxData(key::EnablePublic, 1); });
  step(2, [&] { chkPublicXML.Value = MGlobals::GetCheckBoxData(key::XMLOnPublic, 1); });
  step(3, [&] { chkPublic_Click(); });
  step(4, [&] { chkNonPublic.Value = MGlobals::GetCheckBoxData(key::EnableNonPublic, 1); });
  step(5, [&] { chkNonPublicXML.Value = MGlobals::GetCheckBoxData(key::XMLOnNonPublic, 0); });
  step(6, [&] { chkNonPublic_Click(); });
  step(7, [&] { chkInheritDoc.Value = MGlobals::GetCheckBoxData(key::AcceptInheritDoc, 0); });
  step(8, [&] { chkParamTypes.Value = MGlobals::GetCheckBoxData(key::CompareParamTypes, 1); });
  step(9, [&] { chkSkipGenerated.Value = MGlobals::GetCheckBoxData(key::SkipGenerated, 0); });
}

void ctlXMLComments::SaveOptions() {
  Steps step("Quillmark.ctlXMLComments.SaveOptions");
  step(1, [&] { MGlobals::SetCheckBoxData(key::EnablePublic, static_cast<int16_t>(chkPublic.Value)); });
  step(2, [&] { MGlobals::SetCheckBoxData(key::XMLOnPublic, static_cast<int16_t>(chkPublicXML.Value)); });
  step(3, [&] { MGlobals::SetCheckBoxData(key::EnableNonPublic, static_cast<int16_t>(chkNonPublic.Value)); });
  step(4, [&] { MGlobals::SetCheckBoxData(key::XMLOnNonPublic, static_cast<int16_t>(chkNonPublicXML.Value)); });
  step(5, [&] { MGlobals::SetCheckBoxData(key::AcceptInheritDoc, static_cast<int16_t>(chkInheritDoc.Value)); });
  step(6, [&] { MGlobals::SetCheckBoxData(key::CompareParamTypes, static_cast<int16_t>(chkParamTypes.Value)); });
  step(7, [&] { MGlobals::SetCheckBoxData(key::SkipGenerated, static_cast<int16_t>(chkSkipGenerated.Value)); });
}

}  // namespace annotra
