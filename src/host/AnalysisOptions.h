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
};

}  // namespace annotra
