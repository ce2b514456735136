#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/codemodel/PreprocessorSymbols.h"

namespace platform::automation {

/// The C# preprocessing symbols of a project: DEBUG, TRACE, then `defineConstants`
/// split at ';', ',' and blanks, then `frameworkSymbols`; each once, values "".
codemodel::PreprocessorSymbols CSharpSymbols(std::string_view defineConstants,
                                             const std::vector<std::string>& frameworkSymbols);

/// The Visual Basic conditional-compilation constants of a project: DEBUG=-1,
/// TRACE=-1, CONFIG="configuration", PLATFORM="platform", _MyType="myType" when
/// `myType` is set, the framework symbols with the value -1, then the "A=1,B=True"
/// pairs of `defineConstants` (separated by ',' or ';', commas inside quotes kept),
/// each value as written and True for a name without one. A name given again (any
/// letter case) takes the later value.
codemodel::PreprocessorSymbols VbSymbols(std::string_view defineConstants, std::string_view configuration,
                                         std::string_view platform, std::string_view myType,
                                         const std::vector<std::string>& frameworkSymbols);

}  // namespace platform::automation
