#include "platform/codemodel/VbParser.h"

#include "platform/codemodel/VbBlockParser.h"

namespace platform::codemodel {

void VbParser::Parse(DeclarationTree& tree, const PreprocessorSymbols& symbols) const {
  VbBlockParser parser(tree, symbols);
  parser.Run();
}

}  // namespace platform::codemodel
