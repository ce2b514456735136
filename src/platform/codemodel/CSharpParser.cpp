#include "platform/codemodel/CSharpParser.h"

#include <cstdint>
#include <limits>

#include "platform/codemodel/CSharpDeclarationParser.h"
#include "platform/codemodel/CSharpTokenizer.h"

namespace platform::codemodel {

void CSharpParser::Parse(FileCodeModel& model, const PreprocessorSymbols& symbols) const {
  // Positions are 32-bit offsets; a text too large for them has no declarations read.
  if (model.Text().size() >= std::numeric_limits<uint32_t>::max()) return;
  CsTokenStream stream;
  TokenizeCSharp(model.Text(), symbols, stream);
  CSharpDeclarationParser(model, stream).Parse();
}

}  // namespace platform::codemodel
