#include "options/FOptions.h"

#include "analysis/FCCOptions.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "platform/automation/DTE.h"
#include "platform/core/Variant.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/FormHelper.h"
#include "platform/suite/Help.h"
#include "platform/suite/SettingsStore.h"

namespace annotra {

using platform::forms::Control;

namespace {
constexpr int kKeyReturn = 13;

// The per-user settings store; error 91 when the host handed over none.
platform::suite::SettingsStore& UserSettings() {
  if (!MGlobals::AppSettingsObject_HKCU) throw platform::Error(platform::err::kObjectNotSet);
  return *MGlobals::AppSettingsObject_HKCU;
}
}  // namespace

FOptions::FOptions() : Form("FOptions", "Annotra - by Scribane"), DelayedHints("FOptions") {
  // The client area and the controls' places (twips); the pages sit inside the tab
  // strip, the hint inside its frame.
  Width = 6585;
  Height = 3975;
  Font.Name = "Tahoma";
  struct Place {
    Control& control;
    int left, top, width, height, tab;
  } places[] = {
      {Label1, 165, 165, 555, 195, 0},
      {cmbOperationScope, 825, 120, 5685, 315, 1},
      {VsTabAreaEx1, 90, 510, 6420, 2295, 2},
      {ctlXMLComments1, 180, 480, 5865, 1545, 3},
      {ctlStdComments1, 180, 480, 5865, 1485, 4},
      {Frame1, 90, 2820, 6420, 630, 5},
      {lblHint, 90, 150, 6210, 420, 6},
      {Command3, 90, 3540, 990, 360, 7},
      {Command4, 1155, 3540, 990, 360, 8},
      {Command1, 4455, 3540, 990, 360, 9},
      {Command2, 5520, 3540, 990, 360, 10},
  };
  for (const Place& p : places) {
    p.control.Move(p.left, p.top, p.width, p.height);
    p.control.TabIndex = p.tab;
    p.control.Font = Font;
  }
  lblHint.Caption = "Choose here the scope at which Scribane will perform the code commenting review operation.";
  Command1.Default = true;
  Command2.Cancel = true;
  // GetOptions shows the page of the stored tab; until then neither shows.
  ctlXMLComments1.Visible = false;
  ctlStdComments1.Visible = false;

  SetHintVariables();
  HintOn(Label1, m_sHintScope, false);
  HintOn(cmbOperationScope, m_sHintScope, true);
  HintOn(Command1, m_sHintBegin, true);
  HintOn(Command2, m_sHintCancel, true);
  HintOn(Command3, m_sHintHelp, true);
  HintOn(Command4, m_sHintOptions, true);
  ctlXMLComments1.ShowHint.Connect([this](const std::string& hint) { lblHint.Caption = hint; });
  ctlStdComments1.ShowHint.Connect([this](const std::string& hint) { lblHint.Caption = hint; });
  cmbOperationScope.KeyDown.Connect([this](int& key, int& shift) { cmbOperationScope_KeyDown(key, shift); });
  VsTabAreaEx1.TabClick.Connect([this] { VsTabAreaEx1_TabClick(); });
  Command1.Click.Connect([this] { Command1_Click(); });
  Command2.Click.Connect([this] { Command2_Click(); });
  Command3.Click.Connect([this] { Command3_Click(); });
  Command4.Click.Connect([this] { Command4_Click(); });
}

FOptions::~FOptions() = default;

void FOptions::HintOn(Control& control, const std::string& sHint, bool bFocus) {
  if (bFocus) {
    const std::string source = "Quillmark.FOptions." + control.Name + "_GotFocus";
    control.GotFocus.Connect([this, source, &sHint] {
      Steps step(source);
      step(1, [&] { lblHint.Caption = sHint; });
    });
  }
  control.MouseMove.Connect([this, &sHint](int, int, int x, int y) {
    Quietly([&] { SetDelayedHint(static_cast<float>(x), static_cast<float>(y), sHint); });
  });
}

bool FOptions::GetOptions() {
  Steps step("Quillmark.FOptions.GetOptions");
  Load();
  step(1, [&] { cmbOperationScope.Init(MGlobals::DTEObject, true, false, true, false, 3); });
  step(2, [&] {
    LastScopeSelected(platform::ToInt16(UserSettings().Read(section::CommentsAnalyzer, key::LastScope, 0)));
  });
  step(3, [&] { ctlXMLComments1.InitOptions(); });
  step(3, [&] { ctlStdComments1.InitOptions(); });
  m_iTab = 1;
  Quietly([&] { m_iTab = platform::ToInt16(UserSettings().Read(section::CommentsAnalyzer, key::Tab, 1)); });
  if (m_iTab == 1) {
    step(5, [&] { VsTabAreaEx1.Tab("Def")->SetSelected(true); });
    step(5, [&] { VsTabAreaEx1_TabClick(); });
    step(5, [&] { ctlXMLComments1.Visible = true; });
  } else if (m_iTab == 2) {
    step(5, [&] { VsTabAreaEx1.Tab("Body")->SetSelected(true); });
    step(5, [&] { VsTabAreaEx1_TabClick(); });
    step(5, [&] { ctlStdComments1.Visible = true; });
  }
  platform::forms::DoEvents();
  if (m_iTab == 1) ctlXMLComments1.Visible = true;
  if (m_iTab == 2) ctlStdComments1.Visible = true;
  m_bOK = false;
  step(7, [&] { Show(platform::forms::vbModal); });
  if (m_bOK) {
    step(8, [&] {
      UserSettings().Write(section::CommentsAnalyzer, key::LastScope,
                           platform::Variant(static_cast<int>(cmbOperationScope.SelectedScope())));
    });
    step(8, [&] { UserSettings().Write(section::CommentsAnalyzer, key::Tab, platform::Variant(static_cast<int>(m_iTab))); });
    step(8, [&] { ctlXMLComments1.SaveOptions(); });
    step(8, [&] { ctlStdComments1.SaveOptions(); });
  }
  return m_bOK;
}

void FOptions::LastScopeSelected(int16_t iScope) {
  for (int i = 0; i < cmbOperationScope.ScopesCount(); ++i) {
    if (cmbOperationScope.ScopeValue(i) == iScope) {
      cmbOperationScope.SetListIndex(i);
      return;
    }
  }
  cmbOperationScope.SetListIndex(0);
}

void FOptions::SetHintVariables() {
  m_sHintScope = std::string("Choose here the scope at which Scribane should perform ") +
                 "the code commenting analysis operation.";
  m_sHintBegin = "Click to close this dialog and start the code commenting analysis operation.";
  m_sHintCancel = "Click to cancel changes and close this dialog (no further operation will be performed).";
  m_sHintHelp = "Click to open this subsystem's online documentation.";
  m_sHintOptions = "Click to detail the comment options.";
}

void FOptions::Form_Load() {
  Steps step("Quillmark.FOptions.Form_Load");
  step(1, [&] {
    m_oFormHelper = std::make_shared<platform::suite::FormHelper>();
    m_oFormHelper->Init(MGlobals::AppSettingsObject_HKCU, true);
    m_oFormHelper->HandForm(*this);
  });
  step(2, [&] { VsTabAreaEx1.AddTab("Def", "Definition Comments"); });
  step(2, [&] { VsTabAreaEx1.AddTab("Body", "In-method Comments"); });
  step(3, [&] { SetHintVariables(); });
  step(4, [&] { ClearDescription(-1, -1); });
}

void FOptions::Form_QueryUnload(int& cancel, int unloadMode) {
  // The close box drops the dialog as Cancel does, but hidden, not unloaded: the
  // caller unloads it after GetOptions.
  if (unloadMode == platform::forms::vbFormControlMenu) {
    cancel = 1;
    Hide();
    platform::forms::DoEvents();
  }
}

void FOptions::Form_Unload(int&) {
  Quietly([&] { m_oFormHelper->HandForm(*this); });
  m_oFormHelper.reset();
}

void FOptions::Form_MouseMove(int, int, float x, float y) {
  Quietly([&] { ClearDescription(x, y); });
}

void FOptions::ShowDelayedHint(const std::string& hint) { lblHint.Caption = hint; }

void FOptions::VsTabAreaEx1_TabClick() {
  Steps step("Quillmark.FOptions.VsTabAreaEx1_TabClick");
  int16_t iPage = 0;
  // A tab that cannot be read (none selected) leaves the page as it is.
  if (!step(1, [&] {
        const std::string key = VsTabAreaEx1.SelectedTab()->Key();
        if (key == "Def") iPage = 1;
        else if (key == "Body") iPage = 2;
      }))
    return;
  if (iPage == m_iTab) return;
  m_iTab = iPage;
  ctlXMLComments1.Visible = false;
  ctlStdComments1.Visible = false;
  platform::forms::UserControl* page = nullptr;
  if (iPage == 1) page = &ctlXMLComments1;
  if (iPage == 2) page = &ctlStdComments1;
  if (!page) return;
  page->Visible = true;
  // Focusing a page puts the focus on its first control; a page that has none to take
  // it leaves the focus where it is.
  for (Control* c : TabOrder())
    if (page->Holds(*c)) {
      SetFocus(*c);
      break;
    }
}

void FOptions::Command1_Click() {
  m_bOK = true;
  Hide();
}

void FOptions::Command2_Click() {
  m_bOK = false;
  Hide();
}

void FOptions::Command3_Click() {
  Steps step("Quillmark.FOptions.Command3_Click");
  step(1, [&] {
    platform::suite::Help(MGlobals::GetAppPath() + "help/").ShowHelp("htm/XMLAnalyzer_Using.htm");
  });
}

void FOptions::Command4_Click() {
  Steps step("Quillmark.FOptions.Command4_Click");
  std::shared_ptr<FCCOptions> frmCCOptions;
  step(1, [&] { frmCCOptions = std::make_shared<FCCOptions>(); });
  step(2, [&] { frmCCOptions->GetOptions(true); });
  step(3, [&] { frmCCOptions->Unload(); });
  platform::forms::DoEvents();
  frmCCOptions.reset();
}

void FOptions::cmbOperationScope_KeyDown(int& KeyCode, int&) {
  // Enter in the closed list begins; in a dropped-down list it only closes the list,
  // which the selector does itself.
  if (KeyCode == kKeyReturn && !cmbOperationScope.IsDroppedDown()) {
    Command1_Click();
    KeyCode = 0;  // taken: the form must not press the default button a second time
  }
}

}  // namespace annotra
