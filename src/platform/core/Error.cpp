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
    case err::kTableNotFound: return "Cannot find the input table or query";
    case err::kDatabaseExists: return "Database already exists";
    case err::kPropertyNotFound: return "Property not found";
    case err::kUnrecognizedFormat: return "Unrecognized database format";
    case err::kKeyNotUnique: return "Key is not unique in collection";
    default: return "";
  }
}

}  // namespace platform
