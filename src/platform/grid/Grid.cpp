#include "platform/grid/Grid.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "platform/core/Error.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/MessageBox.h"

namespace platform::grid {

namespace {

// The group-by box's entries are drawn one character a cell, a cell apart.
constexpr int kCharWidth = forms::Screen::TwipsPerCellX;
constexpr int kBoxEntryStart = kCharWidth;
constexpr int kBoxEntryGap = kCharWidth;

bool SameNameNoCase(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
           return lower(x) == lower(y);
         });
}

// Characters (code points) of UTF-8 text: what a terminal cell holds.
int CharCount(const std::string& text) {
  int n = 0;
  for (unsigned char c : text)
    if ((c & 0xC0) != 0x80) ++n;
  return n;
}

int Kind(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return 0;
    case Variant::Type::Boolean:
    case Variant::Type::Long:
    case Variant::Type::Double: return 1;
    case Variant::Type::String: return 2;
  }
  return 0;
}

double Number(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Boolean: return v.AsBool() ? -1 : 0;
    case Variant::Type::Long: return v.AsLong();
    case Variant::Type::Double: return v.AsDouble();
    default: return 0;
  }
}

// Hashing and equality of cell values, to find a column's distinct values.
struct CellHash {
  size_t operator()(const Variant* v) const {
    switch (v->type()) {
      case Variant::Type::Empty: return 0;
      case Variant::Type::String: return std::hash<std::string>()(v->AsString());
      default: return std::hash<double>()(Number(*v)) ^ 0x9e3779b9;
    }
  }
};
struct CellEqual {
  bool operator()(const Variant* a, const Variant* b) const {
    if (Kind(*a) != Kind(*b)) return false;
    if (Kind(*a) == 2) return a->AsString() == b->AsString();
    return Number(*a) == Number(*b);
  }
};

}  // namespace

int CompareCells(const Variant& a, const Variant& b) {
  int ka = Kind(a), kb = Kind(b);
  if (ka != kb) return ka < kb ? -1 : 1;
  if (ka == 0) return 0;
  if (ka == 1) {
    double x = Number(a), y = Number(b);
    return x < y ? -1 : x > y ? 1 : 0;
  }
  const std::string& x = a.AsString();
  const std::string& y = b.AsString();
  size_t n = std::min(x.size(), y.size());
  for (size_t i = 0; i < n; ++i) {
    unsigned char cx = static_cast<unsigned char>(x[i]), cy = static_cast<unsigned char>(y[i]);
    if (cx >= 'A' && cx <= 'Z') cx = static_cast<unsigned char>(cx - 'A' + 'a');
    if (cy >= 'A' && cy <= 'Z') cy = static_cast<unsigned char>(cy - 'A' + 'a');
    if (cx != cy) return cx < cy ? -1 : 1;
  }
  if (x.size() != y.size()) return x.size() < y.size() ? -1 : 1;
  int c = x.compare(y);
  return c < 0 ? -1 : c > 0 ? 1 : 0;
}

Variant GridRow::Value(int columnIndex) const {
  if (columnIndex < 1 || columnIndex > static_cast<int>(m_cells.size()))
    throw platform::Error(err::kInvalidCall, "No column has the index " + std::to_string(columnIndex));
  return m_cells[static_cast<size_t>(columnIndex - 1)];
}

Grid::Grid(forms::Form& owner, std::string name) : Control(owner, std::move(name)) { Init(); }
Grid::Grid(forms::Control& container, std::string name) : Control(container, std::move(name)) { Init(); }
Grid::~Grid() = default;

void Grid::Init() {
  Font.Name = "Tahoma";
  Font.Size = 8;
  HeaderFont = Font;
}

// --- Columns ---------------------------------------------------------------------------

void Grid::Renumber() {
  std::vector<GridColumn*> byPlace;
  for (size_t i = 0; i < m_columns.size(); ++i) {
    m_columns[i]->SetIndex(static_cast<int>(i) + 1);
    byPlace.push_back(m_columns[i].get());
  }
  std::stable_sort(byPlace.begin(), byPlace.end(), [](const GridColumn* a, const GridColumn* b) {
    int pa = a->Position() > 0 ? a->Position() : INT32_MAX;
    int pb = b->Position() > 0 ? b->Position() : INT32_MAX;
    return pa < pb;
  });
  for (size_t i = 0; i < byPlace.size(); ++i) byPlace[i]->SetPosition(static_cast<int>(i) + 1);
}

void Grid::MapFields() {
  for (auto& column : m_columns) {
    int field = -1;
    for (size_t f = 0; f < m_fieldNames.size() && field < 0; ++f)
      if (m_fieldNames[f] == column->Key()) field = static_cast<int>(f);
    for (size_t f = 0; f < m_fieldNames.size() && field < 0; ++f)
      if (SameNameNoCase(m_fieldNames[f], column->Key())) field = static_cast<int>(f);
    column->SetField(field);
  }
}

Ref<GridColumn> Grid::Column(int index) const {
  if (index < 1 || index > ColumnCount())
    throw platform::Error(err::kInvalidCall, "No column has the index " + std::to_string(index));
  return m_columns[static_cast<size_t>(index - 1)];
}

Ref<GridColumn> Grid::FindColumn(const std::string& key) const {
  for (auto& c : m_columns)
    if (c->Key() == key) return c;
  for (auto& c : m_columns)
    if (SameNameNoCase(c->Key(), key)) return c;
  return nullptr;
}

Ref<GridColumn> Grid::Column(const std::string& key) const {
  auto column = FindColumn(key);
  if (!column) throw platform::Error(err::kItemNotFound, "No column has the key \"" + key + "\"");
  return column;
}

Ref<GridColumn> Grid::AddColumn(const std::string& key, const std::string& caption) {
  if (key.empty()) throw platform::Error(err::kInvalidCall, "A column needs a key");
  if (FindColumn(key)) throw platform::Error(err::kKeyNotUnique, "A column has the key \"" + key + "\" already");
  auto column = std::make_shared<GridColumn>(key, ColumnCount() + 1);
  column->Caption = caption;
  m_columns.push_back(column);
  MapFields();
  Renumber();
  Rebuild();
  return column;
}

void Grid::MoveColumn(const std::string& key, int position) {
  auto column = Column(key);
  if (position < 1 || position > ColumnCount())
    throw platform::Error(err::kInvalidCall, "A column's position is 1 to " + std::to_string(ColumnCount()));
  std::vector<GridColumn*> byPlace;
  for (auto& c : m_columns)
    if (c.get() != column.get()) byPlace.push_back(c.get());
  std::sort(byPlace.begin(), byPlace.end(), [](auto* a, auto* b) { return a->Position() < b->Position(); });
  byPlace.insert(byPlace.begin() + (position - 1), column.get());
  for (size_t i = 0; i < byPlace.size(); ++i) byPlace[i]->SetPosition(static_cast<int>(i) + 1);
}

int Grid::ColumnsLeft() const { return kSelectorWidth + static_cast<int>(m_groups.size()) * kGroupIndent; }
int Grid::RowsTop() const { return (GroupByBoxVisible ? kLineHeight : 0) + kLineHeight; }

std::vector<ColumnSpan> Grid::VisibleColumns() const {
  std::vector<std::shared_ptr<GridColumn>> shown;
  for (auto& c : m_columns)
    if (c->Visible) shown.push_back(c);
  std::sort(shown.begin(), shown.end(), [](auto& a, auto& b) { return a->Position() < b->Position(); });
  std::vector<ColumnSpan> spans;
  int left = ColumnsLeft() - m_scrollLeft;
  for (auto& c : shown) {
    spans.push_back({c, left, c->Width});
    left += c->Width;
  }
  return spans;
}

void Grid::SetScrollLeft(int twips) {
  int total = 0;
  for (auto& c : m_columns)
    if (c->Visible) total += c->Width;
  m_scrollLeft = std::clamp(twips, 0, std::max(0, total - (Width - ColumnsLeft())));
}

// --- Layouts ---------------------------------------------------------------------------

GridLayout Grid::Layout() const {
  GridLayout layout;
  for (auto& c : m_columns) layout.columns.push_back({c->Key(), c->Caption, c->Width, c->Position(), c->Visible});
  layout.groups = m_groups;
  layout.sortKeys = m_sortKeys;
  layout.conditions = FormatConditions;
  layout.groupByBoxVisible = GroupByBoxVisible;
  layout.continuousScroll = ContinuousScroll;
  layout.orientation = m_printer.Orientation();
  layout.fitColumns = m_printer.FitColumns;
  return layout;
}

void Grid::ApplyLayout(const GridLayout& layout) {
  m_columns.clear();
  for (auto& c : layout.columns) {
    auto column = std::make_shared<GridColumn>(c.key, ColumnCount() + 1);
    column->Caption = c.caption;
    column->Width = c.width;
    column->Visible = c.visible;
    column->SetPosition(c.position);
    m_columns.push_back(column);
  }
  // A bound grid shows every field: those the layout does not name follow its columns.
  for (auto& name : m_fieldNames)
    if (!FindColumn(name)) m_columns.push_back(std::make_shared<GridColumn>(name, ColumnCount() + 1));
  MapFields();
  Renumber();
  auto known = [&](const std::vector<ColumnOrder>& keys) {
    std::vector<ColumnOrder> kept;
    for (auto& k : keys)
      if (auto column = FindColumn(k.key)) kept.push_back({column->Key(), k.order});
    return kept;
  };
  m_groups = known(layout.groups);
  m_sortKeys = known(layout.sortKeys);
  FormatConditions = layout.conditions;
  GroupByBoxVisible = layout.groupByBoxVisible;
  ContinuousScroll = layout.continuousScroll;
  m_printer.SetOrientation(layout.orientation);
  m_printer.FitColumns = layout.fitColumns;
  m_collapsed.clear();
  m_edits.clear();
  m_editRecord = -1;
  Rebuild();
  m_row = RowCount() > 0 ? 1 : 0;
  m_topRow = 1;
}

void Grid::LoadLayoutFile(const std::string& path) {
  GridLayout layout = ReadLayoutFile(path);
  Unbind();
  ApplyLayout(layout);
}

void Grid::SaveLayoutFile(const std::string& path) const { WriteLayoutFile(Layout(), path); }

// --- Binding ---------------------------------------------------------------------------

void Grid::ReadRows() {
  m_cells.clear();
  m_positions.clear();
  m_edits.clear();
  m_editRecord = -1;
  const size_t fields = m_fieldNames.size();
  const auto count = static_cast<size_t>(m_recordset->RecordCount());
  m_cells.reserve(count * fields);
  m_positions.reserve(count);
  m_recordset->ReadRows([&](int32_t position, std::vector<Variant>& values) {
    m_positions.push_back(position);
    for (auto& v : values) m_cells.push_back(std::move(v));
  });
  m_cells.shrink_to_fit();
}

void Grid::Bind(Ref<dao::Recordset> recordset) {
  Unbind();
  try {
    std::vector<std::string> names;
    for (auto& field : *recordset->Fields()) names.push_back(field->Name());
    m_recordset = recordset;
    m_fieldNames = std::move(names);
    if (!KeepColumns) {
      m_columns.clear();
      for (auto& name : m_fieldNames) m_columns.push_back(std::make_shared<GridColumn>(name, ColumnCount() + 1));
    } else {
      for (auto& name : m_fieldNames)
        if (!FindColumn(name)) m_columns.push_back(std::make_shared<GridColumn>(name, ColumnCount() + 1));
    }
    MapFields();
    Renumber();
    auto known = [&](std::vector<ColumnOrder>& keys) {
      std::erase_if(keys, [&](const ColumnOrder& k) { return !FindColumn(k.key); });
    };
    known(m_groups);
    known(m_sortKeys);
  } catch (const platform::Error&) {
    Unbind();
    throw;
  }
  m_cells.clear();
  m_positions.clear();
  m_edits.clear();
  m_editRecord = -1;
  Rebuild();
  m_unread = true;
  m_row = m_recordset->RecordCount() > 0 ? 1 : 0;
  m_topRow = 1;
}

void Grid::Materialize() const {
  if (!m_unread) return;
  // Reading the records changes what the grid holds, not what it shows: the rows are
  // the same whenever they are read, so const readers may cause it.
  auto& self = const_cast<Grid&>(*this);
  self.m_unread = false;
  try {
    self.ReadRows();
  } catch (const platform::Error& e) {
    self.m_cells.clear();
    self.m_positions.clear();
    self.Rebuild();
    self.m_row = 0;
    self.RaiseError(e);
    return;
  }
  self.Rebuild();
  self.m_row = self.m_rows.empty() ? 0 : 1;
  self.m_topRow = 1;
}

void Grid::Unbind() {
  m_unread = false;
  m_recordset = nullptr;
  m_fieldNames.clear();
  m_cells.clear();
  m_cells.shrink_to_fit();
  m_positions.clear();
  m_edits.clear();
  m_editRecord = -1;
  MapFields();
  Rebuild();
  m_row = 0;
  m_topRow = 1;
}

void Grid::ClearRows() {
  m_unread = false;
  m_cells.clear();
  m_cells.shrink_to_fit();
  m_positions.clear();
  m_edits.clear();
  m_editRecord = -1;
  Rebuild();
  m_row = 0;
  m_topRow = 1;
}

void Grid::Refetch() {
  if (!m_recordset) return;
  Materialize();
  int row = m_row;
  try {
    m_recordset->Requery();
    ReadRows();
  } catch (const platform::Error& e) {
    m_cells.clear();
    m_positions.clear();
    Rebuild();
    m_row = 0;
    RaiseError(e);
    throw;
  }
  Rebuild();
  m_row = RowCount() == 0 ? 0 : std::clamp(row, 1, RowCount());
  SetTopRow(m_topRow);
}

void Grid::RaiseError(const platform::Error& e) {
  int response = 1;
  Error.Raise(e.number, e.description, response);
  if (response != 0) forms::MsgBox(e.description, forms::vbExclamation, Name);
}

// --- Ordering and grouping -------------------------------------------------------------

const Variant& Grid::Cell(int32_t record, const GridColumn& column) const {
  static const Variant kEmpty;
  if (column.Field() < 0) return kEmpty;
  return m_cells[static_cast<size_t>(record) * m_fieldNames.size() + static_cast<size_t>(column.Field())];
}

int Grid::Columns(const std::vector<ColumnOrder>& keys, std::vector<int>& out) const {
  for (auto& k : keys) {
    auto column = FindColumn(k.key);
    out.push_back(column ? column->Index() - 1 : -1);
  }
  return static_cast<int>(out.size());
}

void Grid::Rebuild() {
  // What is current, to find it again.
  int32_t current = m_row > 0 && m_row <= RowCount() ? m_rows[static_cast<size_t>(m_row - 1)] : INT32_MIN;
  std::string currentGroup = current < 0 && current != INT32_MIN
                                 ? m_groupNodes[static_cast<size_t>(-current - 1)].path
                                 : std::string();

  const auto records = static_cast<int32_t>(m_positions.size());
  std::vector<int> keyColumns;
  Columns(m_groups, keyColumns);
  Columns(m_sortKeys, keyColumns);
  std::vector<int> orders;
  for (auto& k : m_groups) orders.push_back(k.order);
  for (auto& k : m_sortKeys) orders.push_back(k.order);

  // Each key column's values as ranks: comparing two records is then comparing
  // numbers, and the text of each distinct value is compared only while ranking.
  std::vector<std::vector<uint32_t>> ranks(keyColumns.size());
  for (size_t k = 0; k < keyColumns.size(); ++k) {
    auto& rank = ranks[k];
    rank.assign(static_cast<size_t>(records), 0);
    if (keyColumns[k] < 0) continue;
    const GridColumn& column = *m_columns[static_cast<size_t>(keyColumns[k])];
    std::unordered_map<const Variant*, uint32_t, CellHash, CellEqual> distinct;
    std::vector<const Variant*> values;
    for (int32_t r = 0; r < records; ++r) {
      const Variant& v = Cell(r, column);
      auto [it, added] = distinct.try_emplace(&v, static_cast<uint32_t>(values.size()));
      if (added) values.push_back(&v);
      rank[static_cast<size_t>(r)] = it->second;
    }
    std::vector<uint32_t> byValue(values.size());
    std::iota(byValue.begin(), byValue.end(), 0);
    std::sort(byValue.begin(), byValue.end(),
              [&](uint32_t a, uint32_t b) { return CompareCells(*values[a], *values[b]) < 0; });
    std::vector<uint32_t> rankOf(values.size());
    uint32_t next = 0;
    for (size_t i = 0; i < byValue.size(); ++i) {
      if (i > 0 && CompareCells(*values[byValue[i - 1]], *values[byValue[i]]) != 0) ++next;
      rankOf[byValue[i]] = next;
    }
    for (auto& r : rank) r = rankOf[r];
  }

  m_order.resize(static_cast<size_t>(records));
  std::iota(m_order.begin(), m_order.end(), 0);
  if (!keyColumns.empty())
    std::sort(m_order.begin(), m_order.end(), [&](int32_t a, int32_t b) {
      for (size_t k = 0; k < ranks.size(); ++k) {
        uint32_t ra = ranks[k][static_cast<size_t>(a)], rb = ranks[k][static_cast<size_t>(b)];
        if (ra != rb) return orders[k] == soDescending ? ra > rb : ra < rb;
      }
      return a < b;
    });

  // The groups, level by level over runs of equal ranks.
  m_groupNodes.clear();
  m_topGroups.clear();
  const int levels = static_cast<int>(m_groups.size());
  // `path` is taken by value: the node it comes from may move as nodes are added.
  auto build = [&](auto& self, int level, int32_t first, int32_t end, int parent, std::string path) -> void {
    if (level >= levels) return;
    const auto& rank = ranks[static_cast<size_t>(level)];
    int32_t i = first;
    while (i < end) {
      int32_t j = i + 1;
      while (j < end && rank[static_cast<size_t>(m_order[static_cast<size_t>(j)])] ==
                            rank[static_cast<size_t>(m_order[static_cast<size_t>(i)])])
        ++j;
      Group g;
      g.level = level;
      g.column = keyColumns[static_cast<size_t>(level)];
      if (g.column >= 0) g.value = Cell(m_order[static_cast<size_t>(i)], *m_columns[static_cast<size_t>(g.column)]);
      g.first = i;
      g.count = j - i;
      g.path = path + '\x1f' + ToString(g.value);
      g.expanded = !m_collapsed.count(g.path);
      m_groupNodes.push_back(std::move(g));
      const int index = static_cast<int>(m_groupNodes.size()) - 1;
      if (parent < 0) m_topGroups.push_back(index);
      else m_groupNodes[static_cast<size_t>(parent)].children.push_back(index);
      self(self, level + 1, i, j, index, m_groupNodes[static_cast<size_t>(index)].path);
      i = j;
    }
  };
  build(build, 0, 0, records, -1, "");
  Flatten();

  // The current row again: the same record or group when it is still shown.
  if (current == INT32_MIN) return;
  for (size_t i = 0; i < m_rows.size(); ++i) {
    int32_t r = m_rows[i];
    bool same = current >= 0 ? r == current
                             : r < 0 && m_groupNodes[static_cast<size_t>(-r - 1)].path == currentGroup;
    if (same) {
      m_row = static_cast<int>(i) + 1;
      return;
    }
  }
  m_row = RowCount() == 0 ? 0 : std::clamp(m_row, 1, RowCount());
}

void Grid::Emit(int group) {
  const Group& g = m_groupNodes[static_cast<size_t>(group)];
  m_rows.push_back(-(group + 1));
  if (!g.expanded) return;
  if (g.children.empty()) {
    m_rows.insert(m_rows.end(), m_order.begin() + g.first, m_order.begin() + g.first + g.count);
  } else {
    for (int child : g.children) Emit(child);
  }
}

void Grid::Flatten() {
  m_rows.clear();
  if (m_groups.empty()) {
    m_rows = m_order;
  } else {
    for (int g : m_topGroups) Emit(g);
  }
  if (m_row > RowCount()) m_row = RowCount();
  if (m_topRow > std::max(1, RowCount())) m_topRow = std::max(1, RowCount());
}

void Grid::SetGroups(std::vector<ColumnOrder> groups) {
  Materialize();
  for (size_t i = 0; i < groups.size(); ++i) {
    auto column = FindColumn(groups[i].key);
    if (!column) throw platform::Error(err::kInvalidCall, "No column has the key \"" + groups[i].key + "\"");
    groups[i].key = column->Key();
    for (size_t j = 0; j < i; ++j)
      if (groups[j].key == groups[i].key)
        throw platform::Error(err::kInvalidCall, "The grid is grouped by \"" + groups[i].key + "\" already");
  }
  m_groups = std::move(groups);
  m_collapsed.clear();
  Rebuild();
}

void Grid::SetSortKeys(std::vector<ColumnOrder> keys) {
  Materialize();
  for (auto& k : keys) {
    auto column = FindColumn(k.key);
    if (!column) throw platform::Error(err::kInvalidCall, "No column has the key \"" + k.key + "\"");
    k.key = column->Key();
  }
  m_sortKeys = std::move(keys);
  Rebuild();
}

std::vector<GroupByBoxEntry> Grid::GroupByBoxEntries() const {
  std::vector<GroupByBoxEntry> entries;
  int left = kBoxEntryStart;
  for (size_t i = 0; i < m_groups.size(); ++i) {
    auto column = FindColumn(m_groups[i].key);
    std::string caption = column ? forms::PlainCaption(column->Caption) : m_groups[i].key;
    int width = (CharCount(caption) + 4) * kCharWidth;  // "[" caption " ×]"
    entries.push_back({static_cast<int>(i) + 1, caption, left, width});
    left += width + kBoxEntryGap;
  }
  return entries;
}

void Grid::ExpandAll() {
  Materialize();
  m_collapsed.clear();
  for (auto& g : m_groupNodes) g.expanded = true;
  int32_t current = m_row > 0 ? m_rows[static_cast<size_t>(m_row - 1)] : 0;
  Flatten();
  if (m_row > 0) {
    auto it = std::find(m_rows.begin(), m_rows.end(), current);
    if (it != m_rows.end()) m_row = static_cast<int>(it - m_rows.begin()) + 1;
  }
}

void Grid::CollapseAll() {
  Materialize();
  for (auto& g : m_groupNodes) {
    g.expanded = false;
    m_collapsed.insert(g.path);
  }
  // The current row becomes the top group around it.
  int32_t current = m_row > 0 ? m_rows[static_cast<size_t>(m_row - 1)] : 0;
  Flatten();
  if (m_row == 0 || m_groupNodes.empty()) return;
  int32_t target = current;
  if (current >= 0) {
    for (int g : m_topGroups) {
      auto& node = m_groupNodes[static_cast<size_t>(g)];
      if (std::find(m_order.begin() + node.first, m_order.begin() + node.first + node.count, current) !=
          m_order.begin() + node.first + node.count)
        target = -(g + 1);
    }
  } else {
    int g = -current - 1;
    while (m_groupNodes[static_cast<size_t>(g)].level > 0)
      for (size_t p = 0; p < m_groupNodes.size(); ++p)
        if (std::find(m_groupNodes[p].children.begin(), m_groupNodes[p].children.end(), g) !=
            m_groupNodes[p].children.end()) {
          g = static_cast<int>(p);
          break;
        }
    target = -(g + 1);
  }
  auto it = std::find(m_rows.begin(), m_rows.end(), target);
  m_row = it != m_rows.end() ? static_cast<int>(it - m_rows.begin()) + 1 : 1;
  SetTopRow(std::min(m_topRow, m_row));
}

void Grid::SetExpanded(int position, bool expanded) {
  Materialize();
  if (!IsGroupRow(position)) return;
  auto& g = m_groupNodes[static_cast<size_t>(-m_rows[static_cast<size_t>(position - 1)] - 1)];
  if (g.expanded == expanded) return;
  g.expanded = expanded;
  if (expanded) m_collapsed.erase(g.path);
  else m_collapsed.insert(g.path);
  int32_t current = m_row > 0 ? m_rows[static_cast<size_t>(m_row - 1)] : 0;
  Flatten();
  if (m_row > 0) {
    auto it = std::find(m_rows.begin(), m_rows.end(), current);
    m_row = it != m_rows.end() ? static_cast<int>(it - m_rows.begin()) + 1 : position;
  }
}

void Grid::RefreshGroups() {
  Materialize();
  Rebuild();
}

// --- Rows ------------------------------------------------------------------------------

void Grid::SetRow(int position) {
  Materialize();
  if (position < 1 || position > RowCount())
    throw platform::Error(err::kInvalidCall, "No row has the position " + std::to_string(position));
  m_row = position;
  if (m_row < m_topRow) m_topRow = m_row;
  else if (m_row >= m_topRow + VisibleRowCount()) m_topRow = m_row - VisibleRowCount() + 1;
}

void Grid::SetTopRow(int position) { m_topRow = std::clamp(position, 1, std::max(1, RowCount())); }

int Grid::VisibleRowCount() const { return std::max(1, (Height - RowsTop()) / kLineHeight); }

bool Grid::IsGroupRow(int position) const {
  Materialize();
  return position >= 1 && position <= RowCount() && m_rows[static_cast<size_t>(position - 1)] < 0;
}

Ref<GridRow> Grid::RowAt(int position) const {
  Materialize();
  if (position < 1 || position > RowCount()) return nullptr;
  int32_t r = m_rows[static_cast<size_t>(position - 1)];
  std::vector<Variant> cells(m_columns.size());
  if (r >= 0) {
    for (size_t c = 0; c < m_columns.size(); ++c) cells[c] = Cell(r, *m_columns[c]);
    if (r == m_editRecord)
      for (auto& [field, value] : m_edits)
        for (size_t c = 0; c < m_columns.size(); ++c)
          if (m_columns[c]->Field() == field) cells[c] = value;
    return std::make_shared<GridRow>(rtRecord, position, static_cast<int>(m_groups.size()), std::move(cells),
                                     m_positions[static_cast<size_t>(r)]);
  }
  const Group& g = m_groupNodes[static_cast<size_t>(-r - 1)];
  if (g.column >= 0) cells[static_cast<size_t>(g.column)] = g.value;
  auto row = std::make_shared<GridRow>(rtGroupHeader, position, g.level, std::move(cells), -1);
  std::string key, caption;
  if (g.column >= 0) {
    key = m_columns[static_cast<size_t>(g.column)]->Key();
    caption = forms::PlainCaption(m_columns[static_cast<size_t>(g.column)]->Caption);
  }
  row->SetGroup(key, caption + ": " + ToString(g.value), g.count, g.expanded);
  return row;
}

std::string Grid::RowStyle(int position) const {
  Materialize();
  if (position < 1 || position > RowCount()) return "";
  int32_t r = m_rows[static_cast<size_t>(position - 1)];
  if (r < 0) return "";
  for (auto& condition : FormatConditions) {
    auto column = FindColumn(condition.key);
    if (column && ToString(Cell(r, *column)) == condition.value) return condition.style;
  }
  return "";
}

Variant Grid::Value(int columnIndex) const {
  Materialize();
  auto column = Column(columnIndex);
  if (m_row < 1 || m_rows[static_cast<size_t>(m_row - 1)] < 0) throw platform::Error(err::kNoCurrentRecord);
  int32_t r = m_rows[static_cast<size_t>(m_row - 1)];
  if (r == m_editRecord)
    for (auto& [field, value] : m_edits)
      if (field == column->Field()) return value;
  return Cell(r, *column);
}

void Grid::SetValue(int columnIndex, const Variant& value) {
  Materialize();
  auto column = Column(columnIndex);
  if (m_row < 1 || m_rows[static_cast<size_t>(m_row - 1)] < 0) throw platform::Error(err::kNoCurrentRecord);
  if (column->Field() < 0)
    throw platform::Error(err::kInvalidCall, "The column \"" + column->Key() + "\" shows no field");
  int32_t r = m_rows[static_cast<size_t>(m_row - 1)];
  if (r != m_editRecord) m_edits.clear();
  m_editRecord = r;
  for (auto& edit : m_edits)
    if (edit.first == column->Field()) {
      edit.second = value;
      return;
    }
  m_edits.emplace_back(column->Field(), value);
}

void Grid::Update() {
  Materialize();
  if (m_editRecord < 0) return;
  const int32_t record = m_editRecord;
  auto edits = std::move(m_edits);
  m_edits.clear();
  m_editRecord = -1;
  Ref<dao::Recordset> rs = m_recordset;
  try {
    rs->SetAbsolutePosition(m_positions[static_cast<size_t>(record)]);
    rs->Edit();
    for (auto& [field, value] : edits) rs->Fields(field)->SetValue(value);
    rs->Update();
    for (auto& [field, value] : edits)
      m_cells[static_cast<size_t>(record) * m_fieldNames.size() + static_cast<size_t>(field)] =
          rs->Fields(field)->Value();
  } catch (const platform::Error& e) {
    try {
      if (rs && rs->EditMode() != dao::dbEditNone) rs->CancelUpdate();
    } catch (const platform::Error&) {
      // The recordset is gone; there is nothing to cancel.
    }
    RaiseError(e);
    throw;
  }
}

// --- Points ----------------------------------------------------------------------------

int Grid::RowFromPoint(int x, int y) const {
  Materialize();
  if (x < 0 || x >= Width || y < RowsTop() || y >= Height) return 0;
  int position = m_topRow + (y - RowsTop()) / kLineHeight;
  return position <= RowCount() ? position : 0;
}

Ref<GridColumn> Grid::ColumnFromPoint(int x, int y) const {
  if (x < ColumnsLeft() || x >= Width || y < RowsTop() - kLineHeight || y >= Height) return nullptr;
  for (auto& span : VisibleColumns())
    if (x >= span.left && x < span.left + span.width) return span.column;
  return nullptr;
}

int Grid::GroupFromPoint(int x, int y) const {
  if (!GroupByBoxVisible || x < 0 || x >= Width || y < 0 || y >= kLineHeight) return 0;
  for (auto& entry : GroupByBoxEntries())
    if (x >= entry.left && x < entry.left + entry.width) return entry.index;
  return 0;
}

int Grid::HitTest(int x, int y) const {
  Materialize();
  if (x < 0 || y < 0 || x >= Width || y >= Height) return gaNothing;
  const int box = GroupByBoxVisible ? kLineHeight : 0;
  if (y < box) return GroupFromPoint(x, y) ? gaGroupByBoxEntry : gaGroupByBox;
  if (y < box + kLineHeight) return ColumnFromPoint(x, y) ? gaColumnHeader : gaHeaderBlank;
  if (!RowFromPoint(x, y)) return gaNoRows;
  return x < kSelectorWidth ? gaRowSelector : gaRow;
}

// --- The user --------------------------------------------------------------------------

bool Grid::UserMouseDown(int button, int x, int y, int shift) {
  Materialize();
  if (!Reachable()) return false;
  int hit = HitTest(x, y);
  if (hit == gaRow || hit == gaRowSelector) {
    int position = RowFromPoint(x, y);
    SetRow(position);
    if (hit == gaRow && button == forms::vbLeftButton && IsGroupRow(position)) {
      int sign = kSelectorWidth + RowAt(position)->GroupLevel() * kGroupIndent;
      if (x >= sign && x < sign + kGroupIndent) SetExpanded(position, !RowAt(position)->Expanded());
    }
  }
  MouseDown.Raise(button, shift, x, y);
  return true;
}

bool Grid::UserDblClick(int x, int y) {
  Materialize();
  if (!Reachable()) return false;
  DblClick.Raise();
  if (HitTest(x, y) == gaRow) {
    int position = RowFromPoint(x, y);
    if (IsGroupRow(position)) SetExpanded(position, !RowAt(position)->Expanded());
  }
  return true;
}

bool Grid::UserKey(int& keyCode, int shift) {
  Materialize();
  if (!Control::UserKey(keyCode, shift)) return false;
  if (RowCount() == 0) return true;
  const int page = VisibleRowCount();
  switch (keyCode) {
    case 38: SetRow(std::max(1, m_row - 1)); break;                  // Up
    case 40: SetRow(std::min(RowCount(), std::max(1, m_row + 1))); break;  // Down
    case 33: SetRow(std::max(1, m_row - page)); break;               // Page Up
    case 34: SetRow(std::min(RowCount(), std::max(1, m_row + page))); break;  // Page Down
    case 36: SetRow(1); break;                                       // Home
    case 35: SetRow(RowCount()); break;                              // End
    case 37:  // Left
      if (IsGroupRow(m_row)) SetExpanded(m_row, false);
      else SetScrollLeft(m_scrollLeft - 8 * kCharWidth);
      break;
    case 39:  // Right
      if (IsGroupRow(m_row)) SetExpanded(m_row, true);
      else SetScrollLeft(m_scrollLeft + 8 * kCharWidth);
      break;
    default: break;
  }
  return true;
}

size_t Grid::MemoryUsed() const {
  size_t bytes = m_cells.capacity() * sizeof(Variant) + m_positions.capacity() * sizeof(int32_t) +
                 m_order.capacity() * sizeof(int32_t) + m_rows.capacity() * sizeof(int32_t) +
                 m_groupNodes.capacity() * sizeof(Group);
  const std::string empty;
  for (auto& v : m_cells)
    if (v.type() == Variant::Type::String && v.AsString().capacity() > empty.capacity())
      bytes += v.AsString().capacity() + 1;
  for (auto& g : m_groupNodes) bytes += g.path.capacity() + g.children.capacity() * sizeof(int);
  return bytes;
}

}  // namespace platform::grid
