#include "platform/codemodel/VbParser.h"

namespace platform::codemodel {

// Declarations are not read yet: every file has an empty code model until this parser
// is written.
void VbParser::Parse(FileCodeModel&, const PreprocessorSymbols&) const {}

}  // namespace platform::codemodel
