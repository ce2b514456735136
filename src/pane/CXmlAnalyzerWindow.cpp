#include "pane/CXmlAnalyzerWindow.h"

#include "host/MGlobals.h"
#include "host/Steps.h"
#include "pane/DocXMLAnalyzer.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Window.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/DoEvents.h"
#include "results/MGlobals_ResultsDb.h"

namespace annotra {

using platform::Ref;

namespace {
std::string Source(const char* procedure) { return std::string("Quillmark.CXmlAnalyzerWindow.") + procedure; }
}  // namespace

CXmlAnalyzerWindow::CXmlAnalyzerWindow() { DocXMLAnalyzer::Register(); }

CXmlAnalyzerWindow::~CXmlAnalyzerWindow() { Disconnect(); }

void CXmlAnalyzerWindow::Disconnect() {
  if (!m_DocXMLAnalyzer) return;
  DocXMLAnalyzer& doc = *m_DocXMLAnalyzer;
  for (auto [event, id] : m_connections) {
    switch (event) {
      case 1: doc.FindMenuPopupAsked.Disconnect(id); break;
      case 2: doc.FindNewAsked.Disconnect(id); break;
      case 3: doc.FindSelectInCode.Disconnect(id); break;
      case 4: doc.NewXmlAnalysis.Disconnect(id); break;
      case 5: doc.Refresh.Disconnect(id); break;
      case 6: doc.CollapseAll.Disconnect(id); break;
      case 7: doc.ExpandAll.Disconnect(id); break;
      case 8: doc.ClearAll.Disconnect(id); break;
    }
  }
  m_connections.clear();
}

void CXmlAnalyzerWindow::Initialize(const std::string& sWndCaption, const std::string& sWndGuid,
                                    const std::string& sLayoutFile, const std::string& sDbTableName, bool EmptyGrid) {
  Steps step(Source("Initialize"));
  step(1, [&] {
    m_sLayoutFile = sLayoutFile;
    m_sWndCaption = sWndCaption;
    m_sDbTableName = sDbTableName;
  });
  step(2, [&] {
    m_oWindow = MGlobals::DTEObject->Windows()->CreateToolWindow(MGlobals::AddInObject, DocXMLAnalyzer::kProgID,
                                                                 m_sWndCaption, sWndGuid, m_oDocument);
  });
  step(3, [&] {
    Disconnect();
    m_DocXMLAnalyzer = platform::As<DocXMLAnalyzer>(m_oDocument);
    DocXMLAnalyzer& doc = *m_DocXMLAnalyzer;
    m_connections = {
        {1, doc.FindMenuPopupAsked.Connect([this](int32_t& h, bool& b, int32_t& r, bool& s, std::string& x) {
           m_DocXMLAnalyzer_FindMenuPopupAsked(h, b, r, s, x);
         })},
        {2, doc.FindNewAsked.Connect([this] { m_DocXMLAnalyzer_FindNewAsked(); })},
        {3, doc.FindSelectInCode.Connect([this](platform::grid::Grid& g) { m_DocXMLAnalyzer_FindSelectInCode(g); })},
        {4, doc.NewXmlAnalysis.Connect([this] { m_DocXMLAnalyzer_NewXmlAnalysis(); })},
        {5, doc.Refresh.Connect([this] { m_DocXMLAnalyzer_Refresh(); })},
        {6, doc.CollapseAll.Connect([this] { m_DocXMLAnalyzer_CollapseAll(); })},
        {7, doc.ExpandAll.Connect([this] { m_DocXMLAnalyzer_ExpandAll(); })},
        {8, doc.ClearAll.Connect([this] { m_DocXMLAnalyzer_ClearAll(); })},
    };
  });
  step(4, [&] { m_DocXMLAnalyzer->LoadLayout(m_sLayoutFile, EmptyGrid); });
  step(5, [&] { platform::forms::DoEvents(); });
}

void CXmlAnalyzerWindow::Clear(bool ClearNoRefresh) {
  Steps step(Source("Clear"));
  bool created = false;
  step(1, [&] { created = MGlobals::XMLAnalyzerDb_IsCreated(); });
  if (!created) return;
  step(2, [&] { MGlobals::ClearXMLAnalyzerDb(); });
  step(3, [&] { platform::forms::DoEvents(); });
  step(4, [&] { m_DocXMLAnalyzer->LoadLayout(m_sLayoutFile, false); });
  step(5, [&] { m_oWindow->SetCaption(m_sWndCaption); });
  if (ClearNoRefresh) {
    step(6, [&] { m_bCanRefresh = false; });
    step(7, [&] { m_lResultCount = 0; });
    step(8, [&] { m_DocXMLAnalyzer->RefetchGridEx(); });
  }
  step(9, [&] { m_bCanRefresh = false; });
}

void CXmlAnalyzerWindow::GroupBy() {
  Steps step(Source("GroupBy"));
  step(1, [&] { m_DocXMLAnalyzer->Grid_GroupBy(); });
}

void CXmlAnalyzerWindow::GroupByThisColumn(int16_t ColIndex) {
  Steps step(Source("GroupByThisColumn"));
  step(1, [&] { m_DocXMLAnalyzer->GroupByThisColumn(ColIndex); });
}

void CXmlAnalyzerWindow::GroupByBox() {
  Steps step(Source("GroupByBox"));
  step(1, [&] { m_DocXMLAnalyzer->ChangeGroupByBoxVisible(); });
}

void CXmlAnalyzerWindow::Hide() {
  Steps step(Source("Hide"));
  step(1, [&] { m_oWindow->Close(platform::automation::vsSaveChangesNo); });
}

void CXmlAnalyzerWindow::LoadLayout(const std::string& LayoutName) {
  Steps step(Source("LoadLayout"));
  step(1, [&] { m_DocXMLAnalyzer->LoadLayout(LayoutName, false); });
}

void CXmlAnalyzerWindow::PrintPreview() {
  Steps step(Source("PrintPreview"));
  step(1, [&] {
    m_DocXMLAnalyzer->PrintPreview(kPrintPreviewTitle,
                                   "Scribane - Annotra (" + std::to_string(m_lResultCount) + " results)");
  });
}

void CXmlAnalyzerWindow::Refresh() {
  Steps step(Source("Refresh"));
  step(1, [&] { RefreshAsked.Raise(); });
}

void CXmlAnalyzerWindow::RemoveGroup(int16_t GroupIndex) {
  Steps step(Source("RemoveGroup"));
  step(1, [&] { m_DocXMLAnalyzer->RemoveGroup(GroupIndex); });
}

void CXmlAnalyzerWindow::RestorePosition() {}

void CXmlAnalyzerWindow::SelectInCode() {
  Steps step(Source("SelectInCode"));
  int32_t line = 0;
  step(1, [&] { line = m_DocXMLAnalyzer->SelectInCode(""); });
  if (line > 0) step(2, [&] { SelectInCodeEvent.Raise(line); });
}

void CXmlAnalyzerWindow::ShowFields() {
  Steps step(Source("ShowFields"));
  step(1, [&] { m_DocXMLAnalyzer->Grid_ShowFields(); });
}

void CXmlAnalyzerWindow::ShowResults() {
  Steps step(Source("ShowResults"));
  step(1, [&] { m_DocXMLAnalyzer->Resize(); });
  step(2, [&] { platform::forms::DoEvents(); });
  Quietly([&] { m_oWindow->SetVisible(true); });
  Quietly([&] { m_oWindow->Activate(); });
}

void CXmlAnalyzerWindow::Shutdown() {
  Steps step(Source("Shutdown"));
  if (m_DocXMLAnalyzer) {
    step(1, [&] { m_DocXMLAnalyzer->SaveLayout(); });
    step(2, [&] {
      Disconnect();
      m_DocXMLAnalyzer.reset();
    });
  }
  step(3, [&] { m_oDocument.reset(); });
}

void CXmlAnalyzerWindow::Sort() {
  Steps step(Source("Sort"));
  step(1, [&] { m_DocXMLAnalyzer->Grid_Sort(); });
}

bool CXmlAnalyzerWindow::Visible() {
  Steps step(Source("Visible"));
  bool visible = false;
  step(1, [&] { visible = m_oWindow->Visible(); });
  return visible;
}

// --- The document's events -------------------------------------------------------------

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_FindMenuPopupAsked(int32_t& iHitTest, bool& GroupByBoxVisible,
                                                             int32_t& RowCount, bool& IsRowSelected,
                                                             std::string& HitExtraInfo) {
  Steps step(Source("m_DocXMLAnalyzer_FindMenuPopupAsked"));
  bool docked = false;
  step(1, [&] { docked = m_oWindow->LinkedWindowFrame() != nullptr; });
  step(2, [&] {
    FindMenuPopupAsked.Raise(iHitTest, docked, GroupByBoxVisible, RowCount, IsRowSelected, m_bCanRefresh,
                             HitExtraInfo);
  });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_FindNewAsked() {
  Steps step(Source("m_DocXMLAnalyzer_FindNewAsked"));
  step(1, [&] { FindNewAsked.Raise(); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_FindSelectInCode(platform::grid::Grid&) {
  Steps step(Source("m_DocXMLAnalyzer_FindSelectInCode"));
  step(1, [&] { SelectInCode(); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_NewXmlAnalysis() {
  Steps step(Source("m_DocXMLAnalyzer_NewXmlAnalysis"));
  bool open = false;
  step(1, [&] { open = MGlobals::IsProjectOpen(); });
  if (open) step(2, [&] { FindNewAsked.Raise(); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_Refresh() {
  Steps step(Source("m_DocXMLAnalyzer_Refresh"));
  step(1, [&] { Refresh(); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_CollapseAll() {
  Steps step(Source("m_DocXMLAnalyzer_CollapseAll"));
  step(1, [&] { m_DocXMLAnalyzer->GridSetGroupExpandedState(false); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_ExpandAll() {
  Steps step(Source("m_DocXMLAnalyzer_ExpandAll"));
  step(1, [&] { m_DocXMLAnalyzer->GridSetGroupExpandedState(true); });
}

void CXmlAnalyzerWindow::m_DocXMLAnalyzer_ClearAll() {
  Steps step(Source("m_DocXMLAnalyzer_ClearAll"));
  step(1, [&] { Clear(false); });
}

}  // namespace annotra
