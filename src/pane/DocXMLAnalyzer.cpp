#include "pane/DocXMLAnalyzer.h"

#include <filesystem>

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "pane/ResultsPage.h"
#include "platform/automation/ClassRegistry.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Solution.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/Screen.h"
#include "platform/suite/GridPreview.h"
#include "platform/suite/GridTools.h"
#include "platform/suite/Registry.h"
#include "platform/suite/ServiceObject.h"
#include "platform/suite/SettingsStore.h"
#include "results/MGlobals_ResultsDb.h"

namespace annotra {

using platform::Ref;
using platform::Variant;
namespace grid = platform::grid;

namespace {

constexpr const char* kSource = "Quillmark.DocXMLAnalyzer.";

// A statement of the layout that cannot be carried out, as the property setters of a
// control refuse a negative size.
constexpr int kInvalidPropertyValue = 380;

}  // namespace

DocXMLAnalyzer::DocXMLAnalyzer() : Form("DocXMLAnalyzer", "") {
  GridEx1.DblClick.Connect([this] { GridEX1_DblClick(); });
  GridEx1.Error.Connect([this](int n, const std::string& d, int& r) { GridEx1_Error(n, d, r); });
  GridEx1.KeyDown.Connect([this](int& k, int& s) { GridEx1_KeyDown(k, s); });
  GridEx1.MouseDown.Connect([this](int b, int s, int x, int y) { GridEX1_MouseDown(b, s, x, y); });
  GridEx1.MouseMove.Connect([this](int b, int s, int x, int y) { GridEX1_MouseMove(b, s, x, y); });
  GridEx1.MouseUp.Connect([this](int b, int s, int x, int y) { GridEX1_MouseUp(b, s, x, y); });
  TbrResults1.CommandClicked.Connect([this](int32_t& id) { TbrResults1_CommandClicked(id); });
  UserDocument_Initialize();
}

DocXMLAnalyzer::~DocXMLAnalyzer() = default;

void DocXMLAnalyzer::Register() {
  platform::automation::ClassRegistry::Register(kProgID, [] { return std::make_shared<DocXMLAnalyzer>(); });
}

// --- Lifecycle -------------------------------------------------------------------------

void DocXMLAnalyzer::UserDocument_Initialize() {
  Steps step(std::string(kSource) + "UserDocument_Initialize");
  Quietly([&] { LoadLayout(kEmptyLayout, false); });
  step(2, [&] { m_sCurrentLayout = kEmptyLayout; });
  step(3, [&] {
    m_iTwipsPerPixelX = static_cast<int16_t>(platform::forms::Screen::TwipsPerPixelX);
    m_iTwipsPerPixelY = static_cast<int16_t>(platform::forms::Screen::TwipsPerPixelY);
  });
}

void DocXMLAnalyzer::UserDocument_Show() {
  Quietly([&] {
    if (GridEx1.ContinuousScroll) GridEx1.ContinuousScroll = false;
  });
  Quietly([&] { Resize(); });
}

void DocXMLAnalyzer::WindowShown() {
  Show(platform::forms::vbModeless);
  UserDocument_Show();
  // The keys a person types in the pane go to the grid.
  if (!ActiveControl()) SetFocus(GridEx1);
}

void DocXMLAnalyzer::WindowResized(int width, int height) {
  Width = width;
  Height = height;
  UserDocument_Resize();
}

// --- Layouts and the font --------------------------------------------------------------

std::string DocXMLAnalyzer::LayoutFolder() { return MGlobals::Service()->DataFolder() + "Layouts/"; }

void DocXMLAnalyzer::LoadLayout(const std::string& LayoutName, bool EmptyGrid) {
  std::string folder;
  Quietly([&] { folder = LayoutFolder(); });
  Quietly([&] { MGlobals::Service()->EnsureFolder(folder); });
  std::string table;
  if (LayoutName == kEmptyLayout) table = kEmptyTable;
  else if (LayoutName == kResultsLayout) table = kResultsTable;
  if (!table.empty()) {
    Quietly([&] {
      // The user's copy of the layout; before the first save, the installed one.
      std::string path = folder + LayoutName;
      std::error_code ec;
      if (!std::filesystem::exists(path, ec)) path = MGlobals::GetAppPath() + "Layouts/" + LayoutName;
      GridEx1.LoadLayoutFile(path);
    });
    Quietly([&] { m_sCurrentLayout = LayoutName; });
    if (!EmptyGrid) {
      Ref<platform::dao::Database> db;
      Quietly([&] { db = MGlobals::XMLAnalyzerDb(); });
      if (db) {
        Quietly([&] { GridEx1.ClearRows(); });
        Quietly([&] { GridEx1.KeepColumns = true; });
        Ref<platform::dao::Recordset> rs;
        Quietly([&] { rs = db->OpenRecordset(table, platform::dao::dbOpenDynaset); });
        if (rs) Quietly([&] { GridEx1.Bind(rs); });
      }
    }
  }
  ApplyFont();
}

void DocXMLAnalyzer::ApplyFont() {
  bool editorFont = false;
  Quietly([&] {
    editorFont = platform::ToBool(
        MGlobals::AppSettingsObject_HKCU->Read(section::Fonts, key::Results, Variant(false)));
  });
  std::string name = "Tahoma";
  int32_t size = 8, charset = 0;
  bool bold = false;
  if (editorFont) {
    std::string version = "VisualStudio\\8.0";
    Quietly([&] {
      const std::string& root = MGlobals::DTEObject->RegistryRoot();
      if (root.size() >= 3 && root.substr(root.size() - 3) == "9.0") version = "VisualStudio\\9.0";
    });
    const std::string key = "Software\\Microsoft\\" + version + "\\" + registry::TextEditorFonts;
    platform::suite::Registry reg(MGlobals::AppSettingsObject_HKCU);
    const int hive = platform::suite::HKEY_CURRENT_USER;
    name = "Courier New";
    size = 8;
    Quietly([&] { name = platform::ToString(reg.QueryValue(hive, key, registry::FontName, "Courier New")); });
    Quietly([&] { size = platform::ToInt32(reg.QueryValue(hive, key, registry::FontPointSize, 8)); });
    Quietly([&] { charset = platform::ToInt32(reg.QueryValue(hive, key, registry::FontCharSet, 0)); });
    Quietly([&] { bold = platform::ToBool(reg.QueryValue(hive, key, registry::PlainTextFontFlags, 0)); });
  }
  if (!name.empty() && size >= 1) {
    MGlobals::SetFontAttributes(GridEx1.Font, name, size, charset, bold, false);
    MGlobals::SetFontAttributes(GridEx1.HeaderFont, name, size, charset, bold, false);
  }
}

void DocXMLAnalyzer::SaveLayout() {
  std::string folder;
  Quietly([&] { folder = LayoutFolder(); });
  Quietly([&] { MGlobals::Service()->EnsureFolder(folder); });
  if (m_sCurrentLayout == kResultsLayout) Quietly([&] { GridEx1.SaveLayoutFile(folder + kResultsLayout); });
}

void DocXMLAnalyzer::RefetchGridEx() {
  Steps step(std::string(kSource) + "RefetchGridEx");
  step(1, [&] { GridEx1.ClearRows(); });
  step(2, [&] { GridEx1.KeepColumns = true; });
  // The results database is opened anew whenever it is emptied, which closes the
  // recordset the grid was bound to: the grid then reads its table in the database as
  // it is now.
  if (Quietly([&] { GridEx1.Refetch(); })) return;
  step(3, [&] {
    std::string table;
    if (m_sCurrentLayout == kEmptyLayout) table = kEmptyTable;
    else if (m_sCurrentLayout == kResultsLayout) table = kResultsTable;
    else GridEx1.Refetch();  // no table of its own: the grid's error stands
    GridEx1.Bind(MGlobals::XMLAnalyzerDb()->OpenRecordset(table, platform::dao::dbOpenDynaset));
  });
}

// --- Grid commands ---------------------------------------------------------------------

void DocXMLAnalyzer::ChangeGroupByBoxVisible() {
  Steps step(std::string(kSource) + "ChangeGroupByBoxVisible");
  step(1, [&] { GridEx1.GroupByBoxVisible = !GridEx1.GroupByBoxVisible; });
  step(2, [&] { SaveLayout(); });
}

void DocXMLAnalyzer::WithGridTools(const char* procedure,
                                   const std::function<void(platform::suite::GridTools&)>& command) {
  Steps step(std::string(kSource) + procedure);
  Ref<platform::suite::GridTools> tools;
  step(1, [&] { tools = std::make_shared<platform::suite::GridTools>(); });
  step(2, [&] { tools->Init(MGlobals::AppSettingsObject_HKCU); });
  step(3, [&] { command(*tools); });
  step(4, [&] { tools.reset(); });
  step(5, [&] { SaveLayout(); });
}

void DocXMLAnalyzer::GroupByThisColumn(int16_t ColIndex) {
  WithGridTools("GroupByThisColumn", [&](auto& tools) { tools.GroupByThisColumn(GridEx1, ColIndex, true); });
}

void DocXMLAnalyzer::RemoveGroup(int16_t GroupIndex) {
  WithGridTools("RemoveGroup", [&](auto& tools) { tools.RemoveGrouping(GridEx1, GroupIndex, true); });
}

void DocXMLAnalyzer::Grid_GroupBy() {
  WithGridTools("Grid_GroupBy", [&](auto& tools) { tools.GroupByDialog(GridEx1, 1); });
}

void DocXMLAnalyzer::Grid_ShowFields() {
  WithGridTools("Grid_ShowFields", [&](auto& tools) { tools.FieldChooser(GridEx1); });
}

void DocXMLAnalyzer::Grid_Sort() {
  WithGridTools("Grid_Sort", [&](auto& tools) { tools.SortDialog(GridEx1); });
}

void DocXMLAnalyzer::GridSetGroupExpandedState(bool ExpandedState) {
  Steps step(std::string(kSource) + "GridSetGroupExpandedState");
  step(1, [&] { GridEx1.RefreshGroups(); });
  step(2, [&] {
    if (ExpandedState) GridEx1.ExpandAll();
    else GridEx1.CollapseAll();
  });
}

std::string DocXMLAnalyzer::GetGridVisibleColumns() {
  Steps step(std::string(kSource) + "GetGridVisibleColumns");
  std::string columns;
  step(1, [&] { columns = MGlobals::Service()->VisibleColumns(GridEx1); });
  return columns;
}

void DocXMLAnalyzer::PrintPreview(const std::string& Title, const std::string& Header) {
  Steps step(std::string(kSource) + "PrintPreview");
  Ref<platform::suite::GridPreview> preview;
  step(1, [&] { preview = std::make_shared<platform::suite::GridPreview>(); });
  if (!Quietly([&] { preview->DeviceName(); })) {
    platform::forms::MsgBox(
        "There is no printer installed or no default printer.\r\nPlease install/set a default printer and then try again.",
        platform::forms::vbExclamation, "Scribane");
    return;
  }
  step(3, [&] { GridEx1.PrinterSettings().SetHeaderString(1, Header); });
  step(4, [&] { GridEx1.PrinterSettings().SetFooterString(2, PrintFooterDate()); });
  step(5, [&] { GridEx1.PrinterSettings().SetOrientation(2); });
  step(6, [&] { GridEx1.PrinterSettings().FitColumns = true; });
  step(7, [&] { preview->PrintPreview(GridEx1, Title); });
}

// --- Layout of the controls ------------------------------------------------------------

void DocXMLAnalyzer::Resize() { UserDocument_Resize(); }

void DocXMLAnalyzer::UserDocument_Resize() {
  const int px = m_iTwipsPerPixelX, py = m_iTwipsPerPixelY;
  Quietly([&] {
    if (Width - 2 * px < 0) throw platform::Error(kInvalidPropertyValue, "Invalid property value");
    TbrResults1.Move(px, py, Width - 2 * px);
  });
  Quietly([&] { TbrResults1.Resize(); });
  Quietly([&] {
    if (GridEx1.ContinuousScroll) GridEx1.ContinuousScroll = false;
  });
  Quietly([&] {
    const int T = TbrResults1.Height;
    if (Width - 2 * px < 0 || Height - 2 * py - T < 0)
      throw platform::Error(kInvalidPropertyValue, "Invalid property value");
    GridEx1.Move(px, T + 2 * py, Width - 2 * px, Height - 2 * py - T);
  });
}

// --- The grid's events -----------------------------------------------------------------

void DocXMLAnalyzer::GridEX1_MouseDown(int Button, int, int X, int Y) {
  Steps step(std::string(kSource) + "GridEX1_MouseDown");
  step(1, [&] { m_lHitTest = GridEx1.HitTest(X, Y); });
  step(2, [&] {
    m_bGroupRowUnderMouse = m_lHitTest == grid::gaRow && GridEx1.IsGroupRow(GridEx1.RowFromPoint(X, Y));
  });
  step(3, [&] { m_iLastButton = static_cast<int16_t>(Button); });
  step(4, [&] { m_bRightDown = Button == platform::forms::vbRightButton; });
}

void DocXMLAnalyzer::GridEX1_MouseMove(int Button, int, int, int) {
  Steps step(std::string(kSource) + "GridEX1_MouseMove");
  step(1, [&] { m_iLastButton = static_cast<int16_t>(Button); });
}

void DocXMLAnalyzer::GridEX1_MouseUp(int Button, int, int X, int Y) {
  Steps step(std::string(kSource) + "GridEX1_MouseUp");
  if (!(m_bRightDown && m_iLastButton == platform::forms::vbRightButton && Button == platform::forms::vbRightButton))
    return;
  if (m_lHitTest != grid::gaGroupByBoxEntry && m_lHitTest != grid::gaColumnHeader && m_lHitTest != grid::gaRow &&
      m_lHitTest != grid::gaNoRows)
    return;
  std::string extra;
  if (m_lHitTest == grid::gaColumnHeader)
    step(2, [&] {
      auto column = GridEx1.ColumnFromPoint(X, Y);
      if (column && column->Key() != "HideGroup") extra = "C" + std::to_string(column->Index());
    });
  if (m_lHitTest == grid::gaGroupByBoxEntry)
    step(3, [&] {
      if (int group = GridEx1.GroupFromPoint(X, Y)) extra = "G" + std::to_string(group);
    });
  int32_t hit = m_lHitTest;
  bool boxVisible = false;
  int32_t rowCount = 0;
  bool selected = false;
  step(4, [&] { boxVisible = GridEx1.GroupByBoxVisible; });
  step(5, [&] { rowCount = GridEx1.RowCount(); });
  step(6, [&] { selected = IsGridRecordSelected(); });
  step(7, [&] { FindMenuPopupAsked.Raise(hit, boxVisible, rowCount, selected, extra); });
}

void DocXMLAnalyzer::GridEX1_DblClick() {
  Steps step(std::string(kSource) + "GridEX1_DblClick");
  if (m_iLastButton == platform::forms::vbRightButton) return;
  int projects = 0;
  Quietly([&] { projects = MGlobals::DTEObject->Solution()->Projects()->Count(); });
  if (projects == 0) return;
  if (m_lHitTest == grid::gaNoRows) step(3, [&] { FindNewAsked.Raise(); });
  else if (m_lHitTest == grid::gaRow && !m_bGroupRowUnderMouse) step(4, [&] { FindSelectInCode.Raise(GridEx1); });
}

void DocXMLAnalyzer::GridEx1_KeyDown(int& KeyCode, int& Shift) {
  Steps step(std::string(kSource) + "GridEx1_KeyDown");
  switch (KeyCode) {
    case 13:  // Enter: the grid does not see it
      KeyCode = 0;
      Shift = 0;
      step(3, [&] { FindSelectInCode.Raise(GridEx1); });
      break;
    case 36:  // Home
      step(5, [&] {
        if (GridEx1.RowCount() >= 1 && GridEx1.EditMode() == 0) GridEx1.SetRow(1);
      });
      KeyCode = 0;
      Shift = 0;
      break;
    case 35:  // End
      step(8, [&] {
        if (GridEx1.RowCount() >= 1 && GridEx1.EditMode() == 0) GridEx1.SetRow(GridEx1.RowCount());
      });
      KeyCode = 0;
      Shift = 0;
      break;
    default:
      break;
  }
}

void DocXMLAnalyzer::GridEx1_Error(int, const std::string&, int& response) {
  // The grid goes on without a message of its own; nothing is reported.
  response = 0;
}

// --- The toolbar -----------------------------------------------------------------------

void DocXMLAnalyzer::TbrResults1_CommandClicked(int32_t& ControlId) {
  Steps step(std::string(kSource) + "TbrResults1_CommandClicked");
  step(1, [&] {
    switch (ControlId) {
      case ctlTbrResults::ID_NEWSEARCH: NewXmlAnalysis.Raise(); break;
      case ctlTbrResults::ID_REFRESH: Refresh.Raise(); break;
      case ctlTbrResults::ID_EXPANDALL: ExpandAll.Raise(); break;
      case ctlTbrResults::ID_COLLAPSEALL: CollapseAll.Raise(); break;
      case ctlTbrResults::ID_HIGHLIGHTMATCHES: break;
      case ctlTbrResults::ID_CLEARALL: ClearAll.Raise(); break;
      case ctlTbrResults::ID_PREVIOUS: GoToPrevious(); break;
      case ctlTbrResults::ID_NEXT: GoToNext(); break;
      default: break;
    }
  });
}

}  // namespace annotra
