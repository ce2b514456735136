#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "platform/automation/HostedDocument.h"
#include "platform/core/Event.h"
#include "platform/forms/Form.h"
#include "platform/grid/Grid.h"
#include "pane/ctlTbrResults.h"

namespace platform::suite {
class GridTools;
}

namespace annotra {

/// The results document: the content of the results tool window. It holds the results
/// grid GridEx1, bound to a table of the temporary results database with a saved
/// layout, and the toolbar TbrResults1 above it. It keeps the layout file up to date
/// through every grid command, chooses the grid's font, lays itself out, turns mouse,
/// keyboard and toolbar input into events for the window controller, and leads from a
/// row to its line in the editor (SelectInCode, GoToPrevious, GoToNext).
///
/// The window controller creates it inside a tool window under the ProgID
/// "Quillmark.DocXMLAnalyzer" (Register). A host draws it from its controls (the
/// grid's rows, columns and group-by box, the toolbar's buttons) and forwards a
/// person's clicks and keys to them (Control::UserMouseDown and the like).
class DocXMLAnalyzer : public platform::forms::Form, public platform::automation::HostedDocument {
 public:
  static constexpr const char* kProgID = "Quillmark.DocXMLAnalyzer";
  /// The two layouts, each tied to its table.
  static constexpr const char* kEmptyLayout = "iwxml0.lyt";
  static constexpr const char* kResultsLayout = "iwxml1.lyt";
  static constexpr const char* kEmptyTable = "XMLAnalyzer0";
  static constexpr const char* kResultsTable = "XMLAnalyzer1";

  /// Makes the document (UserDocument_Initialize): the grid on "iwxml0.lyt", bound to
  /// the empty table.
  DocXMLAnalyzer();
  ~DocXMLAnalyzer() override;
  const char* TypeName() const override { return "DocXMLAnalyzer"; }

  /// Registers the document's class, so a tool window can be made with it.
  static void Register();

  platform::grid::Grid GridEx1{*this, "GridEx1"};
  ctlTbrResults TbrResults1{*this, "TbrResults1"};

  // --- Events, in their order ----------------------------------------------------------
  /// The right button was released over the grid: hit code, group-by box visible, row
  /// count, a finding selected, extra information ("C3", "G1" or "").
  platform::Event<int32_t&, bool&, int32_t&, bool&, std::string&> FindMenuPopupAsked;
  /// A new analysis is wanted (a double click where no row is).
  platform::Event<> FindNewAsked;
  /// The current row is to be shown in the editor.
  platform::Event<platform::grid::Grid&> FindSelectInCode;
  /// Toolbar: a new analysis; run the last one again; collapse, expand all groups;
  /// clear the results.
  platform::Event<> NewXmlAnalysis;
  platform::Event<> Refresh;
  platform::Event<> CollapseAll;
  platform::Event<> ExpandAll;
  platform::Event<> ClearAll;

  // --- Operations ----------------------------------------------------------------------
  /// Shows the group-by box if hidden, hides it if shown; then SaveLayout.
  void ChangeGroupByBoxVisible();
  /// Groups by the column with index `ColIndex`; then SaveLayout.
  void GroupByThisColumn(int16_t ColIndex);
  /// Whether the current row is a finding.
  bool IsGridRecordSelected();
  /// Loads a layout ("iwxml0.lyt" or "iwxml1.lyt", from the user's layouts, else the
  /// installed ones), binds its table unless `EmptyGrid`, applies the font. Any other
  /// name only applies the font. Errors are ignored.
  void LoadLayout(const std::string& LayoutName, bool EmptyGrid = false);
  /// The print preview of the grid, with a header and the date and time in the footer;
  /// without a default printer, a message instead.
  void PrintPreview(const std::string& Title, const std::string& Header);
  /// The grid reads the rows of its table again (from the results database as it is
  /// now, when that was opened anew since the grid was bound).
  void RefetchGridEx();
  /// Removes the grouping with index `GroupIndex`; then SaveLayout.
  void RemoveGroup(int16_t GroupIndex);
  /// Lays the toolbar and the grid out again.
  void Resize();
  /// Writes "iwxml1.lyt" when it is the current layout. Errors are ignored.
  void SaveLayout();
  /// Shows the current row's finding in the editor and marks it visited; the caret's
  /// line, or 0 when nothing was shown. `SearchedWord` is not used.
  int32_t SelectInCode(const std::string& SearchedWord);
  /// The dialogs of the grid tools; each ends with SaveLayout.
  void Grid_GroupBy();
  void Grid_ShowFields();
  void Grid_Sort();
  /// Expands (true) or collapses (false) every group.
  void GridSetGroupExpandedState(bool ExpandedState);
  /// The grid's visible columns as a select list.
  std::string GetGridVisibleColumns();

  // --- State, for the window controller, hosts and tests -------------------------------
  const std::string& CurrentLayout() const { return m_sCurrentLayout; }

  // HostedDocument.
  void WindowShown() override;
  void WindowResized(int width, int height) override;

 private:
  void GoToPrevious();
  void GoToNext();
  void GoTo(int by, const std::string& source);
  /// Runs `command` with a fresh grid helper initialised with the per-user store,
  /// then SaveLayout; the steps report as `procedure`.
  void WithGridTools(const char* procedure, const std::function<void(platform::suite::GridTools&)>& command);
  void UserDocument_Initialize();
  void UserDocument_Show();
  void UserDocument_Resize();
  void GridEX1_DblClick();
  void GridEx1_Error(int number, const std::string& description, int& response);
  void GridEx1_KeyDown(int& KeyCode, int& Shift);
  void GridEX1_MouseDown(int Button, int Shift, int X, int Y);
  void GridEX1_MouseMove(int Button, int Shift, int X, int Y);
  void GridEX1_MouseUp(int Button, int Shift, int X, int Y);
  void TbrResults1_CommandClicked(int32_t& ControlId);
  void ApplyFont();
  std::string LayoutFolder();
  int ColumnIndex(const char* key) const;

  std::string m_sCurrentLayout;
  int16_t m_iTwipsPerPixelX = 0;
  int16_t m_iTwipsPerPixelY = 0;
  int32_t m_lHitTest = 0;
  bool m_bGroupRowUnderMouse = false;
  bool m_bRightDown = false;
  int16_t m_iLastButton = 0;
};

}  // namespace annotra
