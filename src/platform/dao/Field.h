#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "platform/core/Variant.h"
#include "platform/dao/DaoConstants.h"

namespace platform::dao {

class Recordset;

/// A DAO field: a column of a table definition, a field of an index, or a field of a
/// recordset (which also carries the current record's value). A field made by
/// CreateField can be changed until it is appended to a stored table; a field read from
/// a file or handed out by a recordset refuses changes to its definition with 3219.
class Field {
 public:
  /// A new field. `type` 0 leaves the type to be set later; `size` defaults to the size
  /// of the type (50 for text, 0 for memo and binaries).
  explicit Field(std::string name = "", int type = 0, std::optional<int32_t> size = {});

  const std::string& Name() const { return m_name; }
  void SetName(const std::string& name);
  /// The DataTypeEnum value; 0 when not yet set.
  int Type() const { return m_type; }
  /// Sets the type; 3259 for a number that is no data type.
  void SetType(int type);
  int32_t Size() const { return m_size; }
  /// Sets the size: 1 to 255 for text (3001 otherwise); ignored for other types, whose
  /// size is fixed.
  void SetSize(int32_t size);
  int32_t Attributes() const { return m_attributes; }
  void SetAttributes(int32_t attributes);
  bool AllowZeroLength() const { return m_allowZeroLength; }
  void SetAllowZeroLength(bool allow);
  /// The default value as text, as DAO keeps it ("0", "\"abc\"", "" for none).
  const std::string& DefaultValue() const { return m_defaultValue; }
  /// Sets the default value text. Only literals are understood (numbers, quoted text,
  /// True, False, Null); anything else is refused with 3388 when the table is appended.
  void SetDefaultValue(const std::string& text);
  int16_t OrdinalPosition() const { return m_ordinalPosition; }
  void SetOrdinalPosition(int16_t position);
  bool Required() const { return m_required; }
  void SetRequired(bool required);
  const std::string& ValidationRule() const { return m_validationRule; }
  void SetValidationRule(const std::string& rule);
  const std::string& ValidationText() const { return m_validationText; }
  void SetValidationText(const std::string& text);

  /// The value of this field in the current record of its recordset. 3219 for a field
  /// that belongs to no recordset, 3420 once the recordset is closed, 3021 when there
  /// is no current record.
  Variant Value() const;
  /// Sets the value in the record being added or edited; converted to the field's type
  /// (3421 when it does not convert, 6 when out of range, 3163 for text longer than
  /// Size). 3020 when no AddNew or Edit is in progress.
  void SetValue(const Variant& value);

  // For the layer itself.
  /// The value converted to this field's type, with the checks of SetValue.
  Variant Coerce(const Variant& value) const;
  /// The default value as a value of the field's type; Empty when there is none.
  /// Throws 3388 for a default that is not a literal.
  Variant DefaultAsValue() const;
  /// True for the text types (text, memo), where the zero-length rule applies.
  bool IsTextual() const { return m_type == dbText || m_type == dbMemo; }
  /// Freezes the definition (the field now describes a stored column).
  void Lock() { m_locked = true; }
  /// Binds the field to position `index` of a recordset's record; null detaches it.
  void Attach(Recordset* owner, int index) {
    m_owner = owner;
    m_index = index;
  }

 private:
  void CheckUnlocked() const;

  std::string m_name;
  int m_type = 0;
  int32_t m_size = 0;
  int32_t m_attributes = 0;
  bool m_allowZeroLength = false;
  std::string m_defaultValue;
  int16_t m_ordinalPosition = 0;
  bool m_required = false;
  std::string m_validationRule;
  std::string m_validationText;
  bool m_locked = false;
  Recordset* m_owner = nullptr;
  int m_index = -1;
};

/// The fixed size of a data type in bytes (text: 50, memo and binaries: 0); 0 for a
/// number that is no data type.
int32_t DefaultSizeOf(int type);
/// True when `type` is one of DataTypeEnum's values.
bool IsDataType(int type);

}  // namespace platform::dao
