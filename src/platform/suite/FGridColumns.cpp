#include "platform/suite/FGridColumns.h"

#include <algorithm>

#include "platform/core/Error.h"
#include "platform/forms/Screen.h"
#include "platform/grid/Grid.h"
#include "platform/suite/FormHelper.h"

namespace platform::suite {

namespace {
const char* CaptionOf(FGridColumns::Task task) {
  switch (task) {
    case FGridColumns::GroupBy: return "Group By";
    case FGridColumns::Sort: return "Sort";
    case FGridColumns::Fields: return "Field Chooser";
  }
  return "";
}
const char* PromptOf(FGridColumns::Task task) {
  switch (task) {
    case FGridColumns::GroupBy: return "&Group by the checked columns, outermost first:";
    case FGridColumns::Sort: return "&Sort by the checked columns, first key first:";
    case FGridColumns::Fields: return "&Show the checked columns, in this order:";
  }
  return "";
}
constexpr int kCellX = forms::Screen::TwipsPerCellX, kCellY = forms::Screen::TwipsPerCellY;
}  // namespace

FGridColumns::FGridColumns(Task task, grid::Grid& grid, bool visibleOnly, std::shared_ptr<SettingsStore> settings)
    : Form(task == GroupBy ? "FGroupBy" : task == Sort ? "FSort" : "FFieldChooser", CaptionOf(task)),
      m_task(task), m_grid(grid), m_visibleOnly(visibleOnly), m_settings(std::move(settings)) {
  // Placed in terminal cells: a 48 by 16 cell dialog, the prompt across it (the
  // longest is 46 characters), the list on the left, the buttons on the right.
  Width = 48 * kCellX;
  Height = 16 * kCellY;
  lblColumns.Caption = PromptOf(task);
  lblColumns.Move(kCellX, kCellY / 2, 46 * kCellX, kCellY);
  lstColumns.Checkboxes = true;
  lstColumns.Move(kCellX, 2 * kCellY, 30 * kCellX, 12 * kCellY);
  cmdUp.Move(33 * kCellX, 2 * kCellY, 14 * kCellX, kCellY);
  cmdDown.Move(33 * kCellX, 4 * kCellY, 14 * kCellX, kCellY);
  chkDescending.Move(33 * kCellX, 6 * kCellY, 14 * kCellX, kCellY);
  chkDescending.Visible = task != Fields;
  cmdOK.Default = true;
  cmdOK.Move(33 * kCellX, 11 * kCellY, 14 * kCellX, kCellY);
  cmdCancel.Cancel = true;
  cmdCancel.Move(33 * kCellX, 13 * kCellY, 14 * kCellX, kCellY);

  lstColumns.NodeClick.Connect([this](Ref<forms::TreeNode> node) {
    m_selected = node->Key;
    if (Entry* e = Selected()) chkDescending.Value = e->order == grid::soDescending ? 1 : 0;
  });
  lstColumns.NodeCheck.Connect([this](Ref<forms::TreeNode> node) {
    for (auto& e : m_entries)
      if ("C" + e.key == node->Key) e.checked = node->Checked();
  });
  cmdUp.Click.Connect([this] { Move(-1); });
  cmdDown.Click.Connect([this] { Move(+1); });
  chkDescending.Click.Connect([this] {
    if (Entry* e = Selected()) {
      e->order = chkDescending.Value == 1 ? grid::soDescending : grid::soAscending;
      lstColumns.Item("C" + e->key)->Text = TextOf(*e);
    }
  });
  cmdOK.Click.Connect([this] {
    m_ok = true;
    Apply();
    Unload();
  });
  cmdCancel.Click.Connect([this] { Unload(); });
}

FGridColumns::~FGridColumns() = default;

void FGridColumns::Form_Load() {
  if (m_settings) {
    m_helper = std::make_shared<FormHelper>();
    m_helper->Init(m_settings, false);
    try {
      m_helper->HandForm(*this);
    } catch (const Error&) {
      // A place that cannot be read leaves the dialog where it is.
    }
  }
  Fill();
}

void FGridColumns::Form_Unload(int&) {
  if (!m_helper) return;
  try {
    m_helper->HandForm(*this);
  } catch (const Error&) {
    // The place is only a convenience; a store that cannot be written costs it.
  }
}

std::string FGridColumns::TextOf(const Entry& e) const {
  std::string text = forms::PlainCaption(e.caption);
  if (m_task != Fields && e.order == grid::soDescending) text += " (descending)";
  return text;
}

FGridColumns::Entry* FGridColumns::Selected() {
  for (auto& e : m_entries)
    if ("C" + e.key == m_selected) return &e;
  return nullptr;
}

void FGridColumns::Fill() {
  m_entries.clear();
  const auto& used = m_task == GroupBy ? m_grid.Groups() : m_grid.SortKeys();
  if (m_task != Fields)
    for (auto& k : used)
      if (auto column = m_grid.FindColumn(k.key)) m_entries.push_back({column->Key(), column->Caption, true, k.order});
  std::vector<Ref<grid::GridColumn>> byPlace;
  for (int i = 1; i <= m_grid.ColumnCount(); ++i) byPlace.push_back(m_grid.Column(i));
  std::stable_sort(byPlace.begin(), byPlace.end(), [](auto& a, auto& b) { return a->Position() < b->Position(); });
  for (auto& column : byPlace) {
    bool listed = std::any_of(m_entries.begin(), m_entries.end(), [&](auto& e) { return e.key == column->Key(); });
    if (listed || (m_visibleOnly && !column->Visible)) continue;
    bool checked = m_task == Fields && column->Visible;
    m_entries.push_back({column->Key(), column->Caption, checked, grid::soAscending});
  }
  lstColumns.Clear();
  for (auto& e : m_entries) lstColumns.Add("", forms::tvwLast, "C" + e.key, TextOf(e))->SetChecked(e.checked);
}

void FGridColumns::Move(int by) {
  auto it = std::find_if(m_entries.begin(), m_entries.end(), [&](auto& e) { return "C" + e.key == m_selected; });
  if (it == m_entries.end()) return;
  auto index = it - m_entries.begin();
  auto target = index + by;
  if (target < 0 || target >= static_cast<long>(m_entries.size())) return;
  std::swap(m_entries[static_cast<size_t>(index)], m_entries[static_cast<size_t>(target)]);
  lstColumns.Clear();
  for (auto& e : m_entries) lstColumns.Add("", forms::tvwLast, "C" + e.key, TextOf(e))->SetChecked(e.checked);
}

void FGridColumns::Apply() {
  std::vector<grid::ColumnOrder> chosen;
  for (auto& e : m_entries)
    if (e.checked) chosen.push_back({e.key, e.order});
  switch (m_task) {
    case GroupBy:
      m_grid.SetGroups(chosen);
      break;
    case Sort:
      m_grid.SetSortKeys(chosen);
      break;
    case Fields: {
      // The listed columns take the first places in list order; the others (hidden
      // ones not offered) keep theirs after them.
      int position = 1;
      for (auto& e : m_entries) {
        auto column = m_grid.Column(e.key);
        column->Visible = e.checked;
        m_grid.MoveColumn(e.key, position++);
      }
      break;
    }
  }
}

}  // namespace platform::suite

namespace platform::suite {

bool FGridColumns::Run() {
  m_ok = false;
  Show(forms::vbModal);
  if (IsLoaded()) Unload();
  return m_ok;
}

}  // namespace platform::suite
