#include "platform/codemodel/LanguageParser.h"

#include "platform/codemodel/CSharpParser.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/VbParser.h"

namespace platform::codemodel {

const LanguageParser* ParserForLanguage(const std::string& language) {
  static const CSharpParser csharp;
  static const VbParser vb;
  if (language == vsCMLanguageCSharp) return &csharp;
  if (language == vsCMLanguageVB) return &vb;
  return nullptr;
}

std::string LanguageOfFile(const std::string& fileName) {
  auto dot = fileName.rfind('.');
  if (dot == std::string::npos) return "";
  std::string ext;
  for (char c : fileName.substr(dot)) ext += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  if (ext == ".cs") return vsCMLanguageCSharp;
  if (ext == ".vb") return vsCMLanguageVB;
  return "";
}

}  // namespace platform::codemodel
