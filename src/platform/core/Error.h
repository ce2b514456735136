#pragma once
#include <exception>
#include <string>

namespace platform {

/// Error numbers, after the automation and DAO numbering.
namespace err {
constexpr int kInvalidCall = 5;           // Invalid procedure call or argument
constexpr int kOverflow = 6;              // Overflow
constexpr int kSubscriptOutOfRange = 9;   // Subscript out of range
constexpr int kTypeMismatch = 13;         // Type mismatch
constexpr int kInternal = 51;             // Internal error
constexpr int kFileNotFound = 53;         // File not found
constexpr int kPathFileAccess = 75;       // Path/File access error
constexpr int kObjectNotSet = 91;         // Object variable or With block variable not set
constexpr int kNotSupported = 438;        // Object doesn't support this property or method
constexpr int kCouldNotFindFile = 3024;   // Could not find file
// DAO's numbers for the database engine.
constexpr int kInvalidArgument = 3001;    // Invalid argument
constexpr int kTableExists = 3010;        // Table already exists
constexpr int kUpdateWithoutAddNew = 3020; // Update or CancelUpdate without AddNew or Edit
constexpr int kNoCurrentRecord = 3021;    // No current record
constexpr int kDuplicateValue = 3022;     // Would create duplicate values in the index
constexpr int kDiskFull = 3026;           // Not enough space on disk
constexpr int kReadOnly = 3027;           // Cannot update. Database or object is read-only
constexpr int kDiskIO = 3043;             // Disk or network error
constexpr int kInvalidPath = 3044;        // Not a valid path
constexpr int kDatabaseCorrupt = 3049;    // Cannot open database: not recognized or corrupt
constexpr int kCannotOpenFile = 3051;     // Cannot open the file (locked or no permission)
constexpr int kTooFewParameters = 3061;   // Too few parameters (an unknown name in a query)
constexpr int kCannotExecuteSelect = 3065; // Cannot execute a select query
constexpr int kSyntaxInExpression = 3075; // Syntax error in query expression
constexpr int kUndefinedFunction = 3085;  // Undefined function in expression
constexpr int kNameInvalid = 3125;        // Not a valid name
constexpr int kUnknownFieldName = 3127;   // The INSERT INTO statement contains an unknown field name
constexpr int kInvalidSqlStatement = 3129; // Invalid SQL statement
constexpr int kSyntaxInFrom = 3131;       // Syntax error in FROM clause
constexpr int kSyntaxInInsert = 3134;     // Syntax error in INSERT INTO statement
constexpr int kSyntaxInUpdate = 3144;     // Syntax error in UPDATE statement
constexpr int kFieldTooSmall = 3163;      // The field is too small to accept the data
constexpr int kRecordDeleted = 3167;      // Record is deleted
constexpr int kIsamNotFound = 3170;       // Could not find installable ISAM
constexpr int kCouldNotLock = 3218;       // Could not update; currently locked
constexpr int kInvalidOperation = 3219;   // Invalid operation
constexpr int kInvalidFieldType = 3259;   // Invalid field data type
constexpr int kNoFieldDefined = 3264;     // No field defined--cannot append TableDef or Index
constexpr int kItemNotFound = 3265;       // Item not found in this collection
constexpr int kNullInRequiredField = 3314; // Field cannot contain a Null value (Required)
constexpr int kZeroLengthString = 3315;   // Field cannot be a zero-length string
constexpr int kObjectExists = 3367;       // Cannot append: an object with that name exists
constexpr int kUnknownDefaultValue = 3388; // Unknown function in default value
constexpr int kObjectInvalid = 3420;      // Object invalid or no longer set
constexpr int kConversionError = 3421;    // Data type conversion error
constexpr int kTypeMismatchInCriteria = 3464; // Data type mismatch in criteria expression
constexpr int kTableNotFound = 3078;      // Cannot find the input table or query
constexpr int kDatabaseExists = 3204;     // Database already exists
constexpr int kPropertyNotFound = 3270;   // Property not found
constexpr int kUnrecognizedFormat = 3343; // Unrecognized database format
constexpr int kFailureCreatingFile = 3436; // Failure creating file (a spreadsheet)
constexpr int kSpreadsheetFull = 3437;    // Spreadsheet is full
constexpr int kKeyNotUnique = 35602;      // Key is not unique in collection
}  // namespace err

/// The standard description of an error number ("" for numbers without one).
std::string DescriptionOf(int number);

/// What a failing platform operation throws: an error number and its description.
struct Error : std::exception {
  int number;
  std::string description;

  Error(int n, std::string d) : number(n), description(std::move(d)) {}
  /// An error with the standard description of its number.
  explicit Error(int n) : number(n), description(DescriptionOf(n)) {}

  const char* what() const noexcept override { return description.c_str(); }
};

}  // namespace platform
