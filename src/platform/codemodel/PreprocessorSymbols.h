#pragma once
#include <string>
#include <utility>
#include <vector>

namespace platform::codemodel {

/// The preprocessing symbols a file is parsed with: C# symbols (value "") or VB
/// constants with their value as written ("True", "1", "\"x\"").
struct PreprocessorSymbols {
  std::vector<std::pair<std::string, std::string>> symbols;
};

}  // namespace platform::codemodel
