#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "platform/core/Event.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
class Window;
}  // namespace platform::automation
namespace platform::dao {
class Database;
class Workspace;
}  // namespace platform::dao
namespace platform::suite {
class SettingsStore;
}

namespace annotra {

class CXmlAnalyzerWindow;

/// The component's entry object, the one object a host talks to. The host creates it,
/// calls Init once with the objects the component works with, forwards its menu and
/// toolbar commands (ExecuteCommand, Find, ShowResults) and ends with Shutdown. It owns
/// the results window controller for its whole life, runs an analysis (the options
/// dialog, then the analysis, then the results pane) and raises two events to the host.
///
/// No error reaches the host: every operation and handler reports its own failures
/// ("Quillmark.CXmlAnalyzer.<procedure>") and goes on with its next step.
///
///     CXmlAnalyzer analyzer;
///     analyzer.SelectInCode.Connect([](int32_t line) { ... });
///     analyzer.Init(dte, addIn, userSettings, machineSettings, workspace, team, personal, false);
///     analyzer.Find();             // the options dialog, then the analysis
///     analyzer.ExecuteCommand(7);  // save the results
///     analyzer.Shutdown();
class CXmlAnalyzer {
 public:
  /// The texts and names the entry object hands to the controller and uses itself.
  static constexpr const char* kWindowCaption = "Annotra - by Scribane";
  static constexpr const char* kWindowGuid = "{00606204-4A63-44fb-928A-F4FBAF913788}";
  static constexpr const char* kAnalysisLayout = "iwxml0.lyt";
  static constexpr const char* kResultsLayout = "iwxml1.lyt";
  static constexpr const char* kResultsTable = "XMLAnalyzer1";

  /// The identifiers of ExecuteCommand. 100 + n groups by column n, 200 + n removes
  /// grouping n (n from 0 to 99).
  enum Command : int32_t {
    kShowInCode = 1,
    kNewAnalysis = 3,
    kRefresh = 4,
    kClear = 5,
    kLoadFromFile = 6,
    kSaveToFile = 7,
    kPrintPreview = 8,
    kGroupByBox = 9,
    kFieldChooser = 10,
    kGroupByDialog = 11,
    kSortDialog = 12,
    kHidePane = 13,
    kGroupByColumn = 100,
    kRemoveGrouping = 200,
  };

  CXmlAnalyzer();
  ~CXmlAnalyzer();
  CXmlAnalyzer(const CXmlAnalyzer&) = delete;
  CXmlAnalyzer& operator=(const CXmlAnalyzer&) = delete;

  /// Keeps the host's objects in the shared globals (the per-user store also with the
  /// suite's service object) and makes the controller with its hidden tool window, on
  /// the results layout; with `EmptyGrid` the grid is not bound to the results yet.
  void Init(const platform::Ref<platform::automation::DTE>& DTEObject,
            const std::shared_ptr<platform::Dispatch>& AddInObject,
            const std::shared_ptr<platform::suite::SettingsStore>& AppSettingsObject_HKCU,
            const std::shared_ptr<platform::suite::SettingsStore>& AppSettingsObject_HKLM,
            const platform::Ref<platform::dao::Workspace>& WorkspaceObject,
            const platform::Ref<platform::dao::Database>& TeamDB,
            const platform::Ref<platform::dao::Database>& PersonalDB, bool EmptyGrid);
  /// Saves the grid layout, lets go of the controller, closes the temporary results
  /// database and deletes its file.
  void Shutdown();
  /// Whether the results pane is shown.
  bool IsVisible();
  /// Carries out the host's command `CommandID` (see Command); any other value does
  /// nothing.
  void ExecuteCommand(int32_t CommandID);
  /// Does nothing.
  void RestorePositions();
  /// Shows the results pane.
  void ShowResults();
  /// The results pane's window.
  platform::Ref<platform::automation::Window> WindowObject();
  /// A new analysis: the options dialog, and when the user begins, the analysis with its
  /// results shown. Cancelling the dialog changes nothing.
  void Find();

  /// The results window controller, for hosts that draw the pane (its document); none
  /// before Init and after Shutdown.
  platform::Ref<CXmlAnalyzerWindow> Controller() const { return m_oXMLAnalyzerWindow; }

  /// What the last analysis run by Find or refresh gave, for hosts that report more than
  /// the pane shows (the command line). Emptied when a run starts, so `ran` is false
  /// after a run that could not start (a missing grammar file).
  struct AnalysisSummary {
    bool ran = false;
    int32_t matches = 0;     ///< the findings written
    bool cancelled = false;  ///< stopped with Ctrl+C before its end
    /// Per project, the definitions the definition checks looked at and those without a
    /// finding.
    std::map<std::string, CXmlAnalyzerBrowser::DefinitionTally> tallies;
  };
  const AnalysisSummary& LastAnalysis() const { return m_lastAnalysis; }

  // --- Events raised to the host, in their order -------------------------------------
  /// The pane wants its context menu: hit code, docked, group-by box visible, row count,
  /// a finding selected, can refresh, extra information ("C3", "G1" or ""); all by
  /// reference, so what the host writes reaches the controller and the document.
  platform::Event<int32_t&, bool&, bool&, int32_t&, bool&, bool&, std::string&> FindMenuPopupAsked;
  /// The editor was moved to this line of a finding.
  platform::Event<int32_t> SelectInCode;

 private:
  /// The analysis run proper, for Find and refresh: the grammar file check, clearing,
  /// the analysis on the other layout, the caption with the count.
  void Find_CC();
  void m_oXMLAnalyzerWindow_FindMenuPopupAsked(int32_t& iHitTest, bool& Docked, bool& GroupByBoxVisible,
                                               int32_t& RowCount, bool& IsRowSelected, bool& CanRefresh,
                                               std::string& HitExtraInfo);
  void m_oXMLAnalyzerWindow_SelectInCode(int32_t Line);
  void m_oXMLAnalyzerWindow_FindNewAsked();
  void m_oXMLAnalyzerWindow_RefreshAsked();
  void Connect();
  void Disconnect();

  platform::Ref<CXmlAnalyzerWindow> m_oXMLAnalyzerWindow;
  AnalysisSummary m_lastAnalysis;
  std::vector<std::pair<int, int>> m_connections;  // which event, connection id
};

}  // namespace annotra
