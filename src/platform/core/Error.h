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
constexpr int kTableNotFound = 3078;      // Cannot find the input table or query
constexpr int kDatabaseExists = 3204;     // Database already exists
constexpr int kPropertyNotFound = 3270;   // Property not found
constexpr int kUnrecognizedFormat = 3343; // Unrecognized database format
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
