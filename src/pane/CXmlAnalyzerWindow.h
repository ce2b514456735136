#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class Window;
}
namespace platform::dao {
class Recordset;
}
namespace platform::grid {
class Grid;
}

namespace annotra {

class DocXMLAnalyzer;

/// The results window controller: owns the dockable tool window that shows the
/// results document (DocXMLAnalyzer), forwards the entry object's pane commands to the
/// document, shows, hides and captions the window, empties the results, and turns the
/// document's eight events into its own four. Every operation and handler reports its
/// own errors ("Quillmark.CXmlAnalyzerWindow.<procedure>") and goes on; none reaches
/// the caller.
class CXmlAnalyzerWindow {
 public:
  /// The texts of the print preview.
  static constexpr const char* kPrintPreviewTitle = "Scribane Print Preview - Annotra";

  CXmlAnalyzerWindow();
  ~CXmlAnalyzerWindow();
  CXmlAnalyzerWindow(const CXmlAnalyzerWindow&) = delete;
  CXmlAnalyzerWindow& operator=(const CXmlAnalyzerWindow&) = delete;

  bool CanRefresh() const { return m_bCanRefresh; }
  void SetCanRefresh(bool Value) { m_bCanRefresh = Value; }
  /// Empties the results (nothing before the results database exists): the table, the
  /// grid, the caption; with `ClearNoRefresh` the loaded-file count too.
  void Clear(bool ClearNoRefresh = false);
  void GroupBy();
  void GroupByThisColumn(int16_t ColIndex);
  void GroupByBox();
  /// Closes (hides) the tool window without asking.
  void Hide();
  /// Creates the hidden tool window with the document inside, on `sLayoutFile`
  /// (bound to its table at once unless `EmptyGrid`).
  void Initialize(const std::string& sWndCaption, const std::string& sWndGuid, const std::string& sLayoutFile,
                  const std::string& sDbTableName, bool EmptyGrid);
  /// Replaces the results with those of a result file the user chooses in the results
  /// file dialog, and shows them with "(<count> matches)" in the caption; CanRefresh
  /// becomes False. A file that is no result file is refused with a message and
  /// changes nothing but the folder remembered.
  void LoadFile();
  void LoadLayout(const std::string& LayoutName);
  /// The print preview, titled kPrintPreviewTitle, with the header
  /// "Scribane - Annotra (<count> results)".
  void PrintPreview();
  /// Raises RefreshAsked.
  void Refresh();
  void RemoveGroup(int16_t GroupIndex);
  /// Does nothing.
  void RestorePosition();
  /// Saves the results table to a result file ("<name>.xmm") the user chooses in the
  /// results file dialog, or, for a name ending in ".xls", exports the grid's visible
  /// columns to a spreadsheet. Failures are shown in a message; the pane is unchanged.
  void SaveFile();
  /// Shows the current row in the editor; raises SelectInCodeEvent with the line when
  /// there was one.
  void SelectInCode();
  void ShowFields();
  /// Lays the document out, then shows and activates the window.
  void ShowResults();
  /// Saves the grid layout and lets go of the document.
  void Shutdown();
  void Sort();
  bool Visible();
  platform::Ref<platform::automation::Window> WindowObject() const { return m_oWindow; }

  /// The results document, for hosts that draw it; none before Initialize and after
  /// Shutdown.
  platform::Ref<DocXMLAnalyzer> Document() const { return m_DocXMLAnalyzer; }
  /// The number of results of the last loaded result file, shown in the print preview.
  int32_t ResultCount() const { return m_lResultCount; }

  // --- Events, in their order ------------------------------------------------------------
  /// Hit code, docked, group-by box visible, row count, a finding selected, can refresh,
  /// extra information; all by reference: what a handler writes reaches the document.
  platform::Event<int32_t&, bool&, bool&, int32_t&, bool&, bool&, std::string&> FindMenuPopupAsked;
  platform::Event<> FindNewAsked;
  platform::Event<> RefreshAsked;
  /// The event SelectInCode (named so beside the operation of that name): the line the
  /// editor was moved to.
  platform::Event<int32_t> SelectInCodeEvent;

 private:
  void m_DocXMLAnalyzer_FindMenuPopupAsked(int32_t& iHitTest, bool& GroupByBoxVisible, int32_t& RowCount,
                                           bool& IsRowSelected, std::string& HitExtraInfo);
  void m_DocXMLAnalyzer_FindNewAsked();
  void m_DocXMLAnalyzer_FindSelectInCode(platform::grid::Grid& GridExControl);
  void m_DocXMLAnalyzer_NewXmlAnalysis();
  void m_DocXMLAnalyzer_Refresh();
  void m_DocXMLAnalyzer_CollapseAll();
  void m_DocXMLAnalyzer_ExpandAll();
  void m_DocXMLAnalyzer_ClearAll();
  void Disconnect();

  bool m_bCanRefresh = false;
  int32_t m_lResultCount = 0;
  platform::Ref<platform::automation::Window> m_oWindow;
  platform::Ref<platform::Dispatch> m_oDocument;  // the results document field
  std::string m_sLayoutFile;
  std::string m_sWndCaption;
  platform::Ref<platform::dao::Recordset> m_oResultsRs;  // opened by loading a result file
  std::string m_sDbTableName;
  platform::Ref<DocXMLAnalyzer> m_DocXMLAnalyzer;
  std::vector<std::pair<int, int>> m_connections;  // which event, connection id
};

}  // namespace annotra
