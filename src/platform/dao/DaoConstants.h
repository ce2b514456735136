#pragma once
#include <cstdint>

namespace platform::dao {

/// DAO's data types of fields and properties (Field.Type, Property.Type).
enum DataTypeEnum : int {
  dbBoolean = 1,
  dbByte = 2,
  dbInteger = 3,
  dbLong = 4,
  dbCurrency = 5,
  dbSingle = 6,
  dbDouble = 7,
  dbDate = 8,
  dbBinary = 9,
  dbText = 10,
  dbLongBinary = 11,
  dbMemo = 12,
  dbGUID = 15,
  dbBigInt = 16,
};

/// Attributes of a field of a table (Field.Attributes), combined by adding.
enum FieldAttributeEnum : int32_t {
  dbFixedField = 1,
  dbVariableField = 2,
  dbAutoIncrField = 16,
  dbUpdatableField = 32,
  dbSystemField = 8192,
  dbHyperlinkField = 32768,
};

/// Attribute of a field of an index: descending order (0 is ascending).
constexpr int32_t dbDescending = 1;

/// Types of recordset (OpenRecordset's type argument).
enum RecordsetTypeEnum : int {
  dbOpenTable = 1,
  dbOpenDynaset = 2,
  dbOpenSnapshot = 4,
  dbOpenForwardOnly = 8,
};

/// Options of OpenRecordset and Execute, combined by adding.
enum RecordsetOptionEnum : int {
  dbDenyWrite = 1,
  dbDenyRead = 2,
  dbReadOnly = 4,
  dbAppendOnly = 8,
  dbFailOnError = 128,
};

/// Options of CreateDatabase: the file format version, combined with encryption flags.
enum DatabaseTypeEnum : int {
  dbVersion10 = 1,
  dbEncrypt = 2,
  dbDecrypt = 4,
  dbVersion11 = 8,
  dbVersion20 = 16,
  dbVersion30 = 32,
  dbVersion40 = 64,
};

/// Recordset.EditMode: what Update will do.
enum EditModeEnum : int {
  dbEditNone = 0,
  dbEditInProgress = 1,
  dbEditAdd = 2,
};

/// The locale of the general sort order, as CreateDatabase takes it.
inline constexpr const char* dbLangGeneral = ";LANGID=0x0409;CP=1252;COUNTRY=0";

}  // namespace platform::dao
