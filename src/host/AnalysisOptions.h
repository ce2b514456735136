#pragma once
#include <cstdint>
#include <string>

namespace annotra {

/// The options one analysis runs with, loaded from the per-user settings store at the
/// start of every analysis and read by the checks.
struct AnalysisOptions {
  int32_t LastScope = 0;
  bool EnablePublic = true;
  bool XMLOnPublic = true;
  bool EnableNonPublic = true;
  bool XMLOnNonPublic = false;
  std::string XMLCheck;
  bool EnableBody = true;
  int16_t LineCount = 15;
  int16_t OpenDocAllowed = 10;
  // Rules beyond the comment rules above, each off unless set, so that the defaults
  // check as the rules above alone do.
  /// An XML comment holding <inheritdoc/> (with or without cref) has every required tag
  /// and every param.
  bool AcceptInheritDoc = false;
  /// param tags must give each parameter's type as well as its name; off, they are
  /// compared by name and number only.
  bool CompareParamTypes = true;
  /// Documents marked as generated are not analysed, as designer files are not.
  bool SkipGenerated = false;
};

}  // namespace annotra
