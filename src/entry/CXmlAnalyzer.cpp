#include "entry/CXmlAnalyzer.h"

#include <filesystem>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "host/Steps.h"
#include "options/FOptions.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "platform/automation/Window.h"
#include "platform/dao/Database.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/ServiceObject.h"
#include "results/MGlobals_ResultsDb.h"

namespace annotra {

using platform::Ref;

namespace {
std::string Source(const char* procedure) { return std::string("Quillmark.CXmlAnalyzer.") + procedure; }

// The controller's events the entry object handles, as kept in m_connections.
enum ControllerEvent { kMenuEvent, kSelectEvent, kNewEvent, kRefreshEvent };
}  // namespace

CXmlAnalyzer::CXmlAnalyzer() = default;

CXmlAnalyzer::~CXmlAnalyzer() { Disconnect(); }

void CXmlAnalyzer::Connect() {
  CXmlAnalyzerWindow& window = *m_oXMLAnalyzerWindow;
  m_connections = {
      {kMenuEvent, window.FindMenuPopupAsked.Connect([this](int32_t& h, bool& d, bool& b, int32_t& r, bool& s,
                                                             bool& c, std::string& x) {
         m_oXMLAnalyzerWindow_FindMenuPopupAsked(h, d, b, r, s, c, x);
       })},
      {kSelectEvent, window.SelectInCodeEvent.Connect([this](int32_t line) { m_oXMLAnalyzerWindow_SelectInCode(line); })},
      {kNewEvent, window.FindNewAsked.Connect([this] { m_oXMLAnalyzerWindow_FindNewAsked(); })},
      {kRefreshEvent, window.RefreshAsked.Connect([this] { m_oXMLAnalyzerWindow_RefreshAsked(); })},
  };
}

void CXmlAnalyzer::Disconnect() {
  if (!m_oXMLAnalyzerWindow) return;
  CXmlAnalyzerWindow& window = *m_oXMLAnalyzerWindow;
  for (auto [event, id] : m_connections) {
    switch (event) {
      case kMenuEvent: window.FindMenuPopupAsked.Disconnect(id); break;
      case kSelectEvent: window.SelectInCodeEvent.Disconnect(id); break;
      case kNewEvent: window.FindNewAsked.Disconnect(id); break;
      case kRefreshEvent: window.RefreshAsked.Disconnect(id); break;
    }
  }
  m_connections.clear();
}

void CXmlAnalyzer::Init(const Ref<platform::automation::DTE>& DTEObject, const std::shared_ptr<platform::Dispatch>& AddInObject,
                        const std::shared_ptr<platform::suite::SettingsStore>& AppSettingsObject_HKCU,
                        const std::shared_ptr<platform::suite::SettingsStore>& AppSettingsObject_HKLM,
                        const Ref<platform::dao::Workspace>& WorkspaceObject, const Ref<platform::dao::Database>& TeamDB,
                        const Ref<platform::dao::Database>& PersonalDB, bool EmptyGrid) {
  Steps step(Source("Init"));
  step(1, [&] { MGlobals::Service()->TakeSettings(AppSettingsObject_HKCU); });
  step(2, [&] {
    MGlobals::DTEObject = DTEObject;
    MGlobals::AddInObject = AddInObject;
    MGlobals::AppSettingsObject_HKCU = AppSettingsObject_HKCU;
    MGlobals::AppSettingsObject_HKLM = AppSettingsObject_HKLM;
    MGlobals::WorkspaceObject = WorkspaceObject;
    MGlobals::TeamDB = TeamDB;
    MGlobals::PersonalDB = PersonalDB;
  });
  step(3, [&] {
    Disconnect();
    m_oXMLAnalyzerWindow = std::make_shared<CXmlAnalyzerWindow>();
    Connect();
  });
  step(4, [&] { m_oXMLAnalyzerWindow->Initialize(kWindowCaption, kWindowGuid, kResultsLayout, kResultsTable, EmptyGrid); });
}

void CXmlAnalyzer::Shutdown() {
  Steps step(Source("Shutdown"));
  if (m_oXMLAnalyzerWindow) {
    step(1, [&] { m_oXMLAnalyzerWindow->Shutdown(); });
    step(1, [&] {
      Disconnect();
      m_oXMLAnalyzerWindow.reset();
    });
  }
  // A database not made yet is made here and closed and deleted at once.
  Quietly([] { MGlobals::XMLAnalyzerDb()->Close(); });
  Quietly([] {
    std::error_code ignored;
    std::filesystem::remove(MGlobals::XMLAnalyzerDbFile(), ignored);
  });
  Quietly([] { MGlobals::EraseXMLAnalyzerDbObject(); });
}

bool CXmlAnalyzer::IsVisible() {
  Steps step(Source("IsVisible"));
  bool visible = false;
  step(1, [&] { visible = m_oXMLAnalyzerWindow->Visible(); });
  return visible;
}

void CXmlAnalyzer::ExecuteCommand(int32_t CommandID) {
  Steps step(Source("ExecuteCommand"));
  step(1, [&] {
    if (CommandID >= kGroupByColumn && CommandID <= kGroupByColumn + 99) {
      m_oXMLAnalyzerWindow->GroupByThisColumn(static_cast<int16_t>(CommandID - kGroupByColumn));
      return;
    }
    if (CommandID >= kRemoveGrouping && CommandID <= kRemoveGrouping + 99) {
      m_oXMLAnalyzerWindow->RemoveGroup(static_cast<int16_t>(CommandID - kRemoveGrouping));
      return;
    }
    switch (CommandID) {
      case kShowInCode: m_oXMLAnalyzerWindow->SelectInCode(); break;
      case kNewAnalysis: Find(); break;
      case kRefresh:
        Find_CC();
        m_oXMLAnalyzerWindow->SetCanRefresh(true);
        m_oXMLAnalyzerWindow->ShowResults();
        break;
      case kClear: m_oXMLAnalyzerWindow->Clear(false); break;
      case kLoadFromFile: m_oXMLAnalyzerWindow->LoadFile(); break;
      case kSaveToFile: m_oXMLAnalyzerWindow->SaveFile(); break;
      case kPrintPreview: m_oXMLAnalyzerWindow->PrintPreview(); break;
      case kGroupByBox: m_oXMLAnalyzerWindow->GroupByBox(); break;
      case kFieldChooser: m_oXMLAnalyzerWindow->ShowFields(); break;
      case kGroupByDialog: m_oXMLAnalyzerWindow->GroupBy(); break;
      case kSortDialog: m_oXMLAnalyzerWindow->Sort(); break;
      case kHidePane: m_oXMLAnalyzerWindow->Hide(); break;
      default: break;  // 2 and every identifier of no command
    }
  });
}

void CXmlAnalyzer::RestorePositions() {}

void CXmlAnalyzer::ShowResults() {
  Steps step(Source("ShowResults"));
  step(1, [&] { m_oXMLAnalyzerWindow->ShowResults(); });
}

Ref<platform::automation::Window> CXmlAnalyzer::WindowObject() {
  Steps step(Source("WindowObject"));
  Ref<platform::automation::Window> window;
  step(1, [&] { window = m_oXMLAnalyzerWindow->WindowObject(); });
  return window;
}

void CXmlAnalyzer::Find() {
  Steps step(Source("Find"));
  std::unique_ptr<FOptions> dialog;
  bool begin = false;
  step(1, [&] {
    dialog = std::make_unique<FOptions>();
    dialog->Load();
    begin = dialog->GetOptions();
  });
  step(2, [&] { dialog->Unload(); });
  step(2, [&] { platform::forms::DoEvents(); });
  dialog.reset();
  if (!begin) return;
  step(3, [&] { Find_CC(); });
  step(3, [&] { m_oXMLAnalyzerWindow->SetCanRefresh(true); });
  step(3, [&] { m_oXMLAnalyzerWindow->ShowResults(); });
}

void CXmlAnalyzer::Find_CC() {
  Steps step(Source("Find_CC"));
  m_lastAnalysis = AnalysisSummary();
  std::string grammar;
  bool exists = false;
  step(1, [&] {
    grammar = MGlobals::XMLGrammarFile();
    exists = std::make_shared<platform::suite::FileObject>()->FileExists(grammar);
  });
  if (!exists) {
    // The pane is left as it was.
    step(2, [&] { ReportMessage("Could not find the file <" + grammar + ">"); });
    return;
  }
  step(3, [&] { m_oXMLAnalyzerWindow->Clear(false); });
  step(4, [&] { m_oXMLAnalyzerWindow->LoadLayout(kAnalysisLayout); });
  step(4, [&] { platform::forms::DoEvents(); });
  // While the analysis writes the results table, the grid stands on the other layout.
  auto browser = std::make_unique<CXmlAnalyzerBrowser>();
  step(5, [&] {
    browser->Find();
    m_lastAnalysis = {true, browser->Matches(), browser->Cancelled(), browser->DefinitionTallies()};
  });
  step(6, [&] { m_oXMLAnalyzerWindow->LoadLayout(kResultsLayout); });
  step(6, [&] { platform::forms::DoEvents(); });
  step(7, [&] {
    m_oXMLAnalyzerWindow->WindowObject()->SetCaption(std::string(kWindowCaption) + " (" +
                                                     std::to_string(browser->Matches()) + " problems)");
  });
}

// --- The controller's events -----------------------------------------------------------

void CXmlAnalyzer::m_oXMLAnalyzerWindow_FindMenuPopupAsked(int32_t& iHitTest, bool& Docked, bool& GroupByBoxVisible,
                                                           int32_t& RowCount, bool& IsRowSelected, bool& CanRefresh,
                                                           std::string& HitExtraInfo) {
  Steps step(Source("m_oXMLAnalyzerWindow_FindMenuPopupAsked"));
  step(1, [&] {
    FindMenuPopupAsked.Raise(iHitTest, Docked, GroupByBoxVisible, RowCount, IsRowSelected, CanRefresh, HitExtraInfo);
  });
}

void CXmlAnalyzer::m_oXMLAnalyzerWindow_SelectInCode(int32_t Line) {
  Steps step(Source("m_oXMLAnalyzerWindow_SelectInCode"));
  step(1, [&] { SelectInCode.Raise(Line); });
}

void CXmlAnalyzer::m_oXMLAnalyzerWindow_FindNewAsked() {
  Steps step(Source("m_oXMLAnalyzerWindow_FindNewAsked"));
  step(1, [&] { ExecuteCommand(kNewAnalysis); });
}

void CXmlAnalyzer::m_oXMLAnalyzerWindow_RefreshAsked() {
  Steps step(Source("m_oXMLAnalyzerWindow_RefreshAsked"));
  step(1, [&] { ExecuteCommand(kRefresh); });
}

}  // namespace annotra
