#include "platform/codemodel/VbParser.h"

#include "platform/codemodel/VbBlockParser.h"

namespace platform::codemodel {

void VbParser::Parse(FileCodeModel& model, const PreprocessorSymbols& symbols) const {
  VbBlockParser parser(model, symbols);
  parser.Run();
}

}  // namespace platform::codemodel
