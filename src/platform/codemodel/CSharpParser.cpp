#include "platform/codemodel/CSharpParser.h"

#include <cstdint>
#include <limits>

#include "platform/codemodel/CSharpDeclarationParser.h"
#include "platform/codemodel/CSharpTokenizer.h"

namespace platform::codemodel {

void CSharpParser::Parse(DeclarationTree& tree, const PreprocessorSymbols& symbols) const {
  // Positions are 32-bit offsets; a text too large for them has no declarations read.
  if (tree.Text().size() >= std::numeric_limits<uint32_t>::max()) return;
  CsTokenStream stream;
  TokenizeCSharp(tree.Text(), symbols, stream);
  CSharpDeclarationParser(tree, stream).Parse();
}

}  // namespace platform::codemodel
