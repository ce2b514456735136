#pragma once
#include <cstdint>
#include <string>

namespace app {

/// One row of the results table "XMLAnalyzer1", as the output formats print it, with the
/// file it points at when that could be found.
struct Finding {
  int32_t ID = 0;
  int32_t Flag = 0;
  std::string Project;
  std::string Document;
  std::string Type;
  std::string Path;
  std::string Member;
  int32_t Start = 0;
  int32_t End = 0;
  int32_t Status = 0;
  std::string Problem;
  /// The full path of the reported file; "" when the item could not be found.
  std::string file;
};

}  // namespace app
