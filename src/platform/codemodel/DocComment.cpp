#include "platform/codemodel/DocComment.h"

namespace platform::codemodel {

std::string_view DropOneBlank(std::string_view afterMarker) {
  if (!afterMarker.empty() && (afterMarker.front() == ' ' || afterMarker.front() == '\t'))
    afterMarker.remove_prefix(1);
  return afterMarker;
}

std::string WrapDocComment(const std::vector<std::string_view>& lines) {
  if (lines.empty()) return "";
  size_t size = 16;
  for (auto line : lines) size += line.size() + 2;
  std::string out;
  out.reserve(size);
  out += "<doc>\r\n";
  for (size_t i = 0; i < lines.size(); ++i) {
    if (i) out += "\r\n";
    out += lines[i];
  }
  out += "\r\n</doc>";
  return out;
}

}  // namespace platform::codemodel
