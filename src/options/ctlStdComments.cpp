#include "options/ctlStdComments.h"

#include "analysis/AnalysisOptionsLoader.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "platform/core/Variant.h"
#include "platform/suite/SettingsStore.h"

namespace annotra {

namespace {
constexpr int16_t kDefaultLineCount = 15;

// The per-user settings store; error 91 when the host handed over none.
platform::suite::SettingsStore& UserSettings() {
  if (!MGlobals::AppSettingsObject_HKCU) throw platform::Error(platform::err::kObjectNotSet);
  return *MGlobals::AppSettingsObject_HKCU;
}
}  // namespace

ctlStdComments::ctlStdComments(platform::forms::Form& owner, std::string name)
    : UserControl(owner, std::move(name)), DelayedHints("ctlStdComments") {
  UserControl_Initialize();
}

ctlStdComments::ctlStdComments(platform::forms::Control& container, std::string name)
    : UserControl(container, std::move(name)), DelayedHints("ctlStdComments") {
  UserControl_Initialize();
}

void ctlStdComments::UserControl_Initialize() {
  Font.Name = "Tahoma";
  Width = kDesignWidth;
  Height = kDesignHeight;
  chkEnabled.Caption = "Check for method body commenting";
  chkEnabled.Move(0, 0, 5355, 285);
  chkEnabled.TabIndex = 0;
  // The label shares the box's place in the tab order, so its access key reaches the box.
  Label2.Caption = "&Uncommented code blocks should not be longer than";
  Label2.Move(270, 345, 3780, 195);
  Label2.TabIndex = 1;
  Text1.Caption = "15";
  Text1.Move(4140, 300, 390, 285);
  Text1.TabIndex = 1;
  Label4.Caption = "lines.";
  Label4.Move(4605, 345, 375, 195);
  Label4.TabIndex = 2;
  for (platform::forms::Control* c : {static_cast<platform::forms::Control*>(&chkEnabled),
                                      static_cast<platform::forms::Control*>(&Label2),
                                      static_cast<platform::forms::Control*>(&Text1),
                                      static_cast<platform::forms::Control*>(&Label4)})
    c->Font = Font;

  SetHintVariables();
  chkEnabled.GotFocus.Connect([this] {
    Steps step("Quillmark.ctlStdComments.chkEnabled_GotFocus");
    step(1, [&] { ShowHint.Raise(m_sHintEnabled); });
  });
  Text1.GotFocus.Connect([this] {
    Steps step("Quillmark.ctlStdComments.Text1_GotFocus");
    step(1, [&] { ShowHint.Raise(m_sHintLines); });
  });
  chkEnabled.MouseMove.Connect([this](int, int, int x, int y) {
    Quietly([&] { SetDelayedHint(static_cast<float>(x), static_cast<float>(y), m_sHintEnabled); });
  });
  for (platform::forms::Control* c : {static_cast<platform::forms::Control*>(&Label2),
                                      static_cast<platform::forms::Control*>(&Text1),
                                      static_cast<platform::forms::Control*>(&Label4)})
    c->MouseMove.Connect([this](int, int, int x, int y) {
      Quietly([&] { SetDelayedHint(static_cast<float>(x), static_cast<float>(y), m_sHintLines); });
    });
  chkEnabled.Click.Connect([this] { chkEnabled_Click(); });
  MouseMove.Connect([this](int, int, int x, int y) {
    Quietly([&] { ClearDescription(static_cast<float>(x), static_cast<float>(y)); });
  });
  LostFocus.Connect([this] {
    Steps step("Quillmark.ctlStdComments.UserControl_ExitFocus");
    step(1, [&] { ClearDescription(-1, -1); });
  });
  ClearDescription(-1, -1);
  MGlobals::SetNumericOnly(Text1.hWnd());
}

void ctlStdComments::SetHintVariables() {
  m_sHintEnabled =
      "Check this to search for contiguous code blocks within methods, which exceed a certain "
      "maximum length and have no comments.";
  m_sHintLines =
      "Enter here the maximum number of contiguous uncommented lines that is considered "
      "acceptable by your standards.";
}

void ctlStdComments::ShowDelayedHint(const std::string& hint) { ShowHint.Raise(hint); }

void ctlStdComments::chkEnabled_Click() { Text1.Enabled = chkEnabled.Value == 1; }

void ctlStdComments::InitOptions() {
  Steps step("Quillmark.ctlStdComments.InitOptions");
  step(1, [&] { chkEnabled.Value = MGlobals::GetCheckBoxData(key::EnableBody, 1); });
  step(1, [&] { chkEnabled_Click(); });
  // ReadLineCount is silent about a limit it cannot read and gives 15 for it, as the
  // page must.
  int16_t limit = ReadLineCount();
  step(4, [&] { Text1.SetText(std::to_string(limit)); });
}

void ctlStdComments::SaveOptions() {
  Steps step("Quillmark.ctlStdComments.SaveOptions");
  step(1, [&] { MGlobals::SetCheckBoxData(key::EnableBody, static_cast<int16_t>(chkEnabled.Value)); });
  int16_t limit = kDefaultLineCount;
  Quietly([&] { limit = platform::ToInt16(platform::Variant(Text1.Text())); });
  if (limit < 5 || limit > 100) limit = kDefaultLineCount;
  step(4, [&] {
    UserSettings().Write(section::CommentsAnalyzer, key::LineCount, platform::Variant(static_cast<int>(limit)));
  });
}

}  // namespace annotra
