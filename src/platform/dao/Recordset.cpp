#include "platform/dao/Recordset.h"

#include <algorithm>
#include <unordered_map>

#include "platform/core/Error.h"
#include "platform/dao/Catalog.h"
#include "platform/dao/Connection.h"
#include "platform/dao/Statement.h"
#include "platform/dao/TableDef.h"

namespace platform::dao {

Recordset::Recordset(std::shared_ptr<Connection> connection, Ref<TableDef> table, int type,
                     int options)
    : m_connection(std::move(connection)),
      m_table(std::move(table)),
      m_name(m_table->Name()),
      m_type(type),
      m_fields(std::make_shared<Collection<Field>>()) {
  m_updatable = (type == dbOpenTable || type == dbOpenDynaset) && !(options & dbReadOnly) &&
                !m_connection->ReadOnly();
  std::string columns;
  int i = 0;
  for (auto& definition : *m_table->Fields()) {
    auto field = std::make_shared<Field>(*definition);
    field->Lock();
    field->Attach(this, i);
    m_fields->Load(field);
    m_fieldList.push_back(field);
    if ((field->Attributes() & dbAutoIncrField) && m_autoNumber < 0) m_autoNumber = i;
    m_defaults.push_back(field->Attributes() & dbAutoIncrField ? Variant() : field->DefaultAsValue());
    columns += std::string(i ? ", " : "") + Catalog::Quote(field->Name());
    ++i;
  }
  m_current.resize(m_fieldList.size());
  m_dirty.assign(m_fieldList.size(), 0);
  if (type == dbOpenForwardOnly) {
    m_forwardOnly = true;
    m_scan = std::make_unique<Statement>(
        *m_connection, "SELECT " + columns + " FROM " + QualifiedName() + " ORDER BY rowid");
    StartScan();
    return;
  }
  m_select = std::make_unique<Statement>(
      *m_connection, "SELECT " + columns + " FROM " + QualifiedName() + " WHERE rowid=?1");
  if (!(options & dbAppendOnly)) {
    Statement keys(*m_connection, "SELECT rowid FROM " + QualifiedName() + " ORDER BY rowid");
    while (keys.Step()) m_keys.push_back(keys.ColumnInt64(0));
  }
  m_nowhere = m_keys.empty();
}

Recordset::~Recordset() {
  try {
    Close();
  } catch (const Error&) {
    // A destructor cannot report; Close is where a failed commit is seen.
  }
}

std::string Recordset::QualifiedName() const { return "main." + Catalog::Quote(m_name); }

void Recordset::CheckOpen() const {
  if (m_closed || !m_connection->IsOpen()) throw Error(err::kObjectInvalid);
}

Ref<Collection<Field>> Recordset::Fields() const {
  CheckOpen();
  return m_fields;
}

Ref<Field> Recordset::Fields(const std::string& name) const {
  CheckOpen();
  for (auto& field : m_fieldList)
    if (SameName(field->Name(), name)) return field;
  throw Error(err::kItemNotFound, "Item not found in this collection: '" + name + "'.");
}

Ref<Field> Recordset::Fields(int32_t index) const {
  CheckOpen();
  return m_fields->Item(index);
}

void Recordset::Discard() {
  m_editMode = dbEditNone;
}

void Recordset::AddNew() {
  CheckOpen();
  if (!m_updatable) throw Error(err::kReadOnly);
  m_edit = m_defaults;
  std::fill(m_dirty.begin(), m_dirty.end(), 0);
  m_editMode = dbEditAdd;
}

void Recordset::Edit() {
  CheckOpen();
  if (!m_updatable) throw Error(err::kReadOnly);
  LoadCurrent();
  m_edit = m_current;
  std::fill(m_dirty.begin(), m_dirty.end(), 0);
  m_editMode = dbEditInProgress;
}

void Recordset::CancelUpdate() {
  CheckOpen();
  if (m_editMode == dbEditNone) throw Error(err::kUpdateWithoutAddNew);
  Discard();
}

Statement& Recordset::InsertStatement(bool withAutoNumber) {
  auto& slot = withAutoNumber ? m_insertWithAutoNumber : m_insert;
  if (!slot) {
    std::string columns, values;
    int n = 0;
    for (size_t i = 0; i < m_fieldList.size(); ++i) {
      if (static_cast<int>(i) == m_autoNumber && !withAutoNumber) continue;
      columns += std::string(n ? ", " : "") + Catalog::Quote(m_fieldList[i]->Name());
      values += std::string(n ? ", ?" : "?") + std::to_string(i + 1);
      ++n;
    }
    slot = std::make_unique<Statement>(
        *m_connection, "INSERT INTO " + QualifiedName() + "(" + columns + ") VALUES (" + values + ")");
  }
  return *slot;
}

void Recordset::Update() {
  CheckOpen();
  if (m_editMode == dbEditNone) throw Error(err::kUpdateWithoutAddNew);
  for (size_t i = 0; i < m_fieldList.size(); ++i) {
    const Field& field = *m_fieldList[i];
    const Variant& value = m_edit[i];
    if (static_cast<int>(i) == m_autoNumber && value.IsEmpty()) continue;
    if (field.Required() && value.IsEmpty())
      throw Error(err::kNullInRequiredField,
                  "The field '" + m_name + "." + field.Name() +
                      "' cannot contain a Null value because the Required property for this "
                      "field is set to True.");
    if (field.IsTextual() && !field.AllowZeroLength() &&
        value.type() == Variant::Type::String && value.AsString().empty())
      throw Error(err::kZeroLengthString,
                  "Field '" + m_name + "." + field.Name() + "' cannot be a zero-length string.");
  }

  m_connection->BeginImplicitWrite();
  if (m_editMode == dbEditAdd) {
    bool withAutoNumber = m_autoNumber >= 0 && !m_edit[static_cast<size_t>(m_autoNumber)].IsEmpty();
    Statement& insert = InsertStatement(withAutoNumber);
    for (size_t i = 0; i < m_fieldList.size(); ++i) {
      if (static_cast<int>(i) == m_autoNumber && !withAutoNumber) continue;
      const Variant& value = m_edit[i];
      int parameter = static_cast<int>(i) + 1;
      if (value.type() == Variant::Type::String)
        insert.BindTextStatic(parameter, value.AsString());  // m_edit outlives the step
      else
        insert.Bind(parameter, value);
    }
    try {
      insert.Step();
    } catch (const Error&) {
      insert.Reset();
      throw;
    }
    insert.Reset();
    m_keys.push_back(m_connection->LastInsertRowId());
  } else {
    std::string sql = "UPDATE " + QualifiedName() + " SET ";
    int n = 0;
    for (size_t i = 0; i < m_fieldList.size(); ++i) {
      if (!m_dirty[i]) continue;
      sql += std::string(n ? ", " : "") + Catalog::Quote(m_fieldList[i]->Name()) + "=?" + std::to_string(i + 1);
      ++n;
    }
    if (n > 0) {
      // Kept by the connection: a grid that marks row after row reuses it.
      Statement& update = m_connection->Cached(sql + " WHERE rowid=?" + std::to_string(m_fieldList.size() + 1));
      struct ResetAfter {
        Statement& statement;
        ~ResetAfter() { statement.Reset(); }
      } resetAfter{update};
      for (size_t i = 0; i < m_fieldList.size(); ++i)
        if (m_dirty[i]) update.Bind(static_cast<int>(i) + 1, m_edit[i]);
      update.BindInt64(static_cast<int>(m_fieldList.size()) + 1, m_keys[static_cast<size_t>(m_position)]);
      update.Step();
      if (m_autoNumber >= 0 && m_dirty[static_cast<size_t>(m_autoNumber)])
        m_keys[static_cast<size_t>(m_position)] = m_edit[static_cast<size_t>(m_autoNumber)].AsLong();
    }
    m_currentLoaded = false;
  }
  m_connection->EndImplicitWrite();
  Discard();
}

Variant Recordset::ColumnValue(const Statement& statement, int column, size_t field) const {
  Variant value = statement.ColumnVariant(column);
  if (m_fieldList[field]->Type() == dbBoolean && !value.IsEmpty() &&
      value.type() != Variant::Type::String)
    value = Variant(ToDouble(value) != 0);
  return value;
}

void Recordset::StartScan() {
  m_scan->Reset();
  m_onRow = m_scan->Step();
  // Done at once when there is nothing to read: a statement left in the middle of a
  // read keeps the file locked, so the scan is reset as soon as it reaches the end.
  if (!m_onRow) m_scan->Reset();
  m_rowsReached = m_onRow ? 1 : 0;
  m_position = 0;
  m_nowhere = !m_onRow;
}

void Recordset::RefuseForwardOnly() const {
  if (m_forwardOnly) throw Error(err::kInvalidOperation);
}

void Recordset::LoadCurrent() {
  CheckOpen();
  if (m_nowhere || m_position < 0 || m_position >= static_cast<int64_t>(m_keys.size()))
    throw Error(err::kNoCurrentRecord);
  if (m_currentLoaded) return;
  // The statement is reset after every use (a failed step resets it too), so it is ready.
  // Reset at once after the read: a statement left in the middle of a read would keep
  // the file locked.
  struct ResetAfter {
    Statement& statement;
    ~ResetAfter() { statement.Reset(); }
  } resetAfter{*m_select};
  m_select->BindInt64(1, m_keys[static_cast<size_t>(m_position)]);
  bool found = m_select->Step();
  if (found)
    for (size_t i = 0; i < m_fieldList.size(); ++i) m_current[i] = ColumnValue(*m_select, static_cast<int>(i), i);
  if (!found) throw Error(err::kRecordDeleted);
  m_currentLoaded = true;
}

Variant Recordset::ReadValue(int index) {
  CheckOpen();
  if (m_editMode != dbEditNone) return m_edit[static_cast<size_t>(index)];
  if (m_forwardOnly) {
    // Read from the scan's row as it stands: nothing is copied that is not asked for.
    if (!m_onRow) throw Error(err::kNoCurrentRecord);
    return ColumnValue(*m_scan, index, static_cast<size_t>(index));
  }
  LoadCurrent();
  return m_current[static_cast<size_t>(index)];
}

void Recordset::WriteValue(int index, const Variant& value) {
  CheckOpen();
  if (m_editMode == dbEditNone) throw Error(err::kUpdateWithoutAddNew);
  if (index == m_autoNumber) throw Error(err::kReadOnly, "Field '" + m_fieldList[static_cast<size_t>(index)]->Name() + "' cannot be updated.");
  m_edit[static_cast<size_t>(index)] = m_fieldList[static_cast<size_t>(index)]->Coerce(value);
  m_dirty[static_cast<size_t>(index)] = 1;
}

void Recordset::MoveFirst() {
  CheckOpen();
  RefuseForwardOnly();
  Discard();
  if (m_keys.empty()) throw Error(err::kNoCurrentRecord);
  m_position = 0;
  m_nowhere = false;
  m_currentLoaded = false;
}

void Recordset::MoveLast() {
  CheckOpen();
  RefuseForwardOnly();
  Discard();
  if (m_keys.empty()) throw Error(err::kNoCurrentRecord);
  m_position = static_cast<int64_t>(m_keys.size()) - 1;
  m_nowhere = false;
  m_currentLoaded = false;
}

void Recordset::MoveNext() {
  CheckOpen();
  Discard();
  if (Eof()) throw Error(err::kNoCurrentRecord);
  if (m_forwardOnly) {
    m_onRow = m_scan->Step();
    if (m_onRow) ++m_rowsReached;
    else m_scan->Reset();  // at the end: the read lock is released
    ++m_position;
    return;
  }
  ++m_position;
  m_currentLoaded = false;
}

void Recordset::MovePrevious() {
  CheckOpen();
  RefuseForwardOnly();
  Discard();
  if (Bof()) throw Error(err::kNoCurrentRecord);
  --m_position;
  m_currentLoaded = false;
}

bool Recordset::Eof() const {
  CheckOpen();
  if (m_forwardOnly) return !m_onRow;
  return m_nowhere || m_keys.empty() || m_position >= static_cast<int64_t>(m_keys.size());
}

bool Recordset::Bof() const {
  CheckOpen();
  if (m_forwardOnly) return m_nowhere;
  return m_nowhere || m_keys.empty() || m_position < 0;
}

int32_t Recordset::RecordCount() const {
  CheckOpen();
  if (m_forwardOnly) return m_rowsReached;
  return static_cast<int32_t>(m_keys.size());
}

int32_t Recordset::AbsolutePosition() const {
  CheckOpen();
  if (m_forwardOnly) return m_onRow ? static_cast<int32_t>(m_position) : -1;
  if (m_nowhere || m_position < 0 || m_position >= static_cast<int64_t>(m_keys.size())) return -1;
  return static_cast<int32_t>(m_position);
}

void Recordset::SetAbsolutePosition(int32_t position) {
  CheckOpen();
  RefuseForwardOnly();
  if (position < 0 || position >= static_cast<int32_t>(m_keys.size())) throw Error(err::kInvalidArgument);
  Discard();
  m_position = position;
  m_nowhere = false;
  m_currentLoaded = false;
}

void Recordset::ReadRows(const std::function<void(int32_t, std::vector<Variant>&)>& sink) {
  CheckOpen();
  RefuseForwardOnly();
  if (m_keys.empty()) return;
  std::string columns = "rowid";
  for (auto& field : m_fieldList) columns += ", " + Catalog::Quote(field->Name());
  Statement scan(*m_connection, "SELECT " + columns + " FROM " + QualifiedName() + " ORDER BY rowid");
  // The set's keys are in rowid order unless a row was added with an explicit key
  // below the others; then a map finds each row's position.
  const bool ordered = std::is_sorted(m_keys.begin(), m_keys.end());
  std::unordered_map<int64_t, int32_t> positionOf;
  if (!ordered)
    for (size_t i = 0; i < m_keys.size(); ++i) positionOf.emplace(m_keys[i], static_cast<int32_t>(i));
  std::vector<std::pair<int32_t, std::vector<Variant>>> unordered;
  std::vector<Variant> values(m_fieldList.size());
  size_t next = 0;
  while (scan.Step()) {
    const int64_t rowid = scan.ColumnInt64(0);
    int32_t position = -1;
    if (ordered) {
      while (next < m_keys.size() && m_keys[next] < rowid) ++next;
      if (next < m_keys.size() && m_keys[next] == rowid) position = static_cast<int32_t>(next++);
    } else if (auto it = positionOf.find(rowid); it != positionOf.end()) {
      position = it->second;
    }
    if (position < 0) continue;  // added by another recordset after this one was made
    for (size_t i = 0; i < m_fieldList.size(); ++i) values[i] = ColumnValue(scan, static_cast<int>(i) + 1, i);
    if (ordered) sink(position, values);
    else unordered.emplace_back(position, values);
  }
  scan.Reset();
  std::sort(unordered.begin(), unordered.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  for (auto& [position, row] : unordered) sink(position, row);
}

void Recordset::Requery() {
  CheckOpen();
  Discard();
  if (m_forwardOnly) {
    StartScan();
    return;
  }
  m_keys.clear();
  Statement keys(*m_connection, "SELECT rowid FROM " + QualifiedName() + " ORDER BY rowid");
  while (keys.Step()) m_keys.push_back(keys.ColumnInt64(0));
  m_position = 0;
  m_nowhere = m_keys.empty();
  m_currentLoaded = false;
}

void Recordset::Close() {
  if (m_closed) return;
  m_closed = true;
  for (auto& field : m_fieldList) field->Attach(nullptr, 0);
  m_select.reset();
  m_scan.reset();
  m_insert.reset();
  m_insertWithAutoNumber.reset();
  if (m_connection->IsOpen()) m_connection->FlushImplicit();
}

}  // namespace platform::dao
