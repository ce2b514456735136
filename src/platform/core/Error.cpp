#include "platform/core/Error.h"

namespace platform {

std::string DescriptionOf(int number) {
  switch (number) {
    case err::kInvalidCall: return "Invalid procedure call or argument";
    case err::kOverflow: return "Overflow";
    case err::kSubscriptOutOfRange: return "Subscript out of range";
    case err::kTypeMismatch: return "Type mismatch";
    case err::kInternal: return "Internal error";
    case err::kFileNotFound: return "File not found";
    case err::kPathFileAccess: return "Path/File access error";
    case err::kObjectNotSet: return "Object variable or With block variable not set";
    case err::kNotSupported: return "Object doesn't support this property or method";
    case err::kCouldNotFindFile: return "Could not find file";
    case err::kInvalidArgument: return "Invalid argument.";
    case err::kTableExists: return "Table already exists.";
    case err::kUpdateWithoutAddNew: return "Update or CancelUpdate without AddNew or Edit.";
    case err::kNoCurrentRecord: return "No current record.";
    case err::kDuplicateValue:
      return "The changes you requested to the table were not successful because they would "
             "create duplicate values in the index, primary key, or relationship.";
    case err::kDiskFull: return "Not enough space on disk.";
    case err::kReadOnly: return "Cannot update. Database or object is read-only.";
    case err::kDiskIO: return "Disk or network error.";
    case err::kInvalidPath: return "Not a valid path.";
    case err::kDatabaseCorrupt:
      return "Cannot open database. It may not be a database that your application "
             "recognizes, or the file may be corrupt.";
    case err::kCannotOpenFile:
      return "Cannot open the file. It is already opened exclusively by another user, or you "
             "need permission to view its data.";
    case err::kTooFewParameters: return "Too few parameters. Expected 1.";
    case err::kCannotExecuteSelect: return "Cannot execute a select query.";
    case err::kSyntaxInExpression: return "Syntax error in query expression.";
    case err::kUndefinedFunction: return "Undefined function in expression.";
    case err::kNameInvalid: return "Not a valid name.";
    case err::kUnknownFieldName:
      return "The INSERT INTO statement contains an unknown field name.";
    case err::kInvalidSqlStatement:
      return "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or "
             "'UPDATE'.";
    case err::kSyntaxInFrom: return "Syntax error in FROM clause.";
    case err::kSyntaxInInsert: return "Syntax error in INSERT INTO statement.";
    case err::kSyntaxInUpdate: return "Syntax error in UPDATE statement.";
    case err::kFieldTooSmall:
      return "The field is too small to accept the amount of data you attempted to add.";
    case err::kRecordDeleted: return "Record is deleted.";
    case err::kIsamNotFound: return "Could not find installable ISAM.";
    case err::kFailureCreatingFile: return "Failure creating file.";
    case err::kSpreadsheetFull: return "Spreadsheet is full.";
    case err::kCouldNotLock: return "Could not update; currently locked.";
    case err::kInvalidOperation: return "Invalid operation.";
    case err::kInvalidFieldType: return "Invalid field data type.";
    case err::kNoFieldDefined: return "No field defined--cannot append TableDef or Index.";
    case err::kItemNotFound: return "Item not found in this collection.";
    case err::kNullInRequiredField:
      return "The field cannot contain a Null value because the Required property for this "
             "field is set to True.";
    case err::kZeroLengthString: return "Field cannot be a zero-length string.";
    case err::kObjectExists:
      return "Cannot append. An object with that name already exists in the collection.";
    case err::kUnknownDefaultValue:
      return "Unknown function in validation expression or default value.";
    case err::kObjectInvalid: return "Object invalid or no longer set.";
    case err::kConversionError: return "Data type conversion error.";
    case err::kTypeMismatchInCriteria: return "Data type mismatch in criteria expression.";
    case err::kTableNotFound: return "Cannot find the input table or query";
    case err::kDatabaseExists: return "Database already exists";
    case err::kPropertyNotFound: return "Property not found";
    case err::kUnrecognizedFormat: return "Unrecognized database format";
    case err::kKeyNotUnique: return "Key is not unique in collection";
    default: return "";
  }
}

}  // namespace platform
