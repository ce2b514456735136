#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/core/Variant.h"
#include "platform/dao/Collection.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Field.h"

namespace platform::dao {

class Connection;
class Statement;
class TableDef;

/// A DAO recordset over one table: a dynaset whose set of rows is fixed when it opens
/// (rows added through it join the end), read one current row at a time and written
/// through AddNew or Edit, the fields' values, and Update. Rows are appended inside the
/// connection's implicit transaction, so appending many rows costs about one
/// transaction.
///
/// A forward-only recordset (dbOpenForwardOnly) is a scan instead: one query stepped row
/// by row from the first row to the end, which reads a whole table in order at the cost
/// of a single query and holds nothing but the current row.
///
/// Differences from DAO worth knowing: RecordCount is exact from the start (DAO's counts
/// only the rows visited until MoveLast), except on a forward-only set; the end and start
/// tests are Eof() and Bof(), because EOF is a macro of the C library.
class Recordset {
 public:
  /// Opens a recordset of `type` (dbOpenTable and dbOpenDynaset are updatable,
  /// dbOpenSnapshot and dbOpenForwardOnly are not) with `options` (dbReadOnly,
  /// dbAppendOnly: the set starts empty) on `table`, a stored table of `connection`.
  /// Throws the DAO error of SQLite's failure.
  Recordset(std::shared_ptr<Connection> connection, Ref<TableDef> table, int type, int options);
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// The table's name.
  const std::string& Name() const { return m_name; }
  int Type() const { return m_type; }
  bool Updatable() const { return m_updatable; }
  /// dbEditNone, dbEditInProgress (Edit) or dbEditAdd (AddNew).
  int EditMode() const { return m_editMode; }

  /// The fields, in the table's order; their values are the current record's.
  Ref<Collection<Field>> Fields() const;
  /// The field named `name` (without regard to case); 3265 when there is none.
  Ref<Field> Fields(const std::string& name) const;
  /// The field at zero-based `index`; 3265 when there is none.
  Ref<Field> Fields(int32_t index) const;

  /// Starts a new record holding the fields' default values (the auto-numbered field
  /// empty until Update). A pending AddNew or Edit is discarded. 3027 when the recordset
  /// is not updatable, 3420 once closed.
  void AddNew();
  /// Starts changing the current record. 3021 without a current record, 3027 when not
  /// updatable, 3167 when the row was deleted meanwhile.
  void Edit();
  /// Writes the new or changed record. 3020 without AddNew or Edit; 3314 for an empty
  /// required field; 3315 for "" in a text field that does not allow zero length; 3022
  /// for a duplicate key. After a failure the record stays in progress. After an
  /// AddNew the current record is the one that was current before it.
  void Update();
  /// Discards a pending AddNew or Edit.
  void CancelUpdate();

  // Moving discards a pending AddNew or Edit. Each fails with 3021 when it cannot move:
  // MoveFirst and MoveLast on an empty set, MoveNext at the end, MovePrevious at the start.
  // A forward-only set moves with MoveNext alone (and starts again with Requery): the
  // others fail with 3219.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  /// True past the last row (and for an empty set).
  bool Eof() const;
  /// True before the first row (and for an empty set).
  bool Bof() const;
  /// The number of rows in the set; for a forward-only set, the number of rows reached
  /// so far (the current one included).
  int32_t RecordCount() const;
  /// Zero-based position of the current row; -1 when there is none.
  int32_t AbsolutePosition() const;
  /// Makes row `position` current; 3001 when there is no such row.
  void SetAbsolutePosition(int32_t position);

  /// Reads the rows of the set in one pass, in the set's order, and hands each to
  /// `sink` with its position and its values (one per field, converted as Fields reads
  /// them). Rows deleted since the set was made are left out. Does not move the current
  /// row; a pending AddNew or Edit is kept. Reading row by row through the fields costs
  /// one query a row; this costs one query for the whole set. 3219 on a forward-only
  /// set, which is read this way by moving through it.
  void ReadRows(const std::function<void(int32_t position, std::vector<Variant>& values)>& sink);
  /// Makes the set afresh from what the table holds now (rows added or deleted by
  /// others join or leave it) and moves to the first row. A pending AddNew or Edit is
  /// discarded. A forward-only set starts its scan again.
  void Requery();

  /// Commits what was written and releases the recordset; later use fails with 3420.
  /// Closing twice is allowed. Throws the DAO error of a failed commit.
  void Close();

  // For Field.
  Variant ReadValue(int index);
  void WriteValue(int index, const Variant& value);

 private:
  void CheckOpen() const;
  void LoadCurrent();
  void Discard();
  std::string QualifiedName() const;
  Statement& InsertStatement(bool withAutoNumber);
  Variant ColumnValue(const Statement& statement, int column, size_t field) const;
  void StartScan();
  void RefuseForwardOnly() const;

  std::shared_ptr<Connection> m_connection;
  Ref<TableDef> m_table;
  std::string m_name;
  int m_type;
  bool m_updatable;
  bool m_closed = false;
  Ref<Collection<Field>> m_fields;
  std::vector<Ref<Field>> m_fieldList;
  std::vector<Variant> m_defaults;
  int m_autoNumber = -1;

  std::vector<int64_t> m_keys;
  int64_t m_position = 0;
  // No current row and none to move from: a set that was empty when it opened, until
  // the first move.
  bool m_nowhere = false;
  std::vector<Variant> m_current;
  bool m_currentLoaded = false;

  int m_editMode = dbEditNone;
  std::vector<Variant> m_edit;
  std::vector<char> m_dirty;

  std::unique_ptr<Statement> m_select;
  // Forward-only: the scan, whether it stands on a row, and how many rows it reached.
  bool m_forwardOnly = false;
  std::unique_ptr<Statement> m_scan;
  bool m_onRow = false;
  int32_t m_rowsReached = 0;
  std::unique_ptr<Statement> m_insert;
  std::unique_ptr<Statement> m_insertWithAutoNumber;
};

}  // namespace platform::dao
