#include "platform/codemodel/CSharpDocComment.h"

#include <vector>

namespace platform::codemodel {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view DropLeadingBlanks(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  return s;
}

std::string_view DropOneBlank(std::string_view s) {
  if (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  return s;
}

bool IsAllBlank(std::string_view s) { return DropLeadingBlanks(s).empty(); }

void AddLine(std::string& out, std::string_view line) {
  out += "\r\n";
  out.append(line);
}

// Adds the lines of the block comment `c` (from "/**" to "*/" or the end of the text).
void AddBlock(std::string& out, std::string_view c) {
  bool closed = c.size() >= 5 && c.substr(c.size() - 2) == "*/";
  std::string_view body = c.substr(3, c.size() - 3 - (closed ? 2 : 0));
  // Split at CRLF, LF or CR.
  std::vector<std::string_view> lines;
  size_t b = 0;
  for (size_t i = 0; i <= body.size(); ++i) {
    if (i == body.size() || body[i] == '\r' || body[i] == '\n') {
      lines.push_back(body.substr(b, i - b));
      if (i < body.size() && body[i] == '\r' && i + 1 < body.size() && body[i + 1] == '\n') ++i;
      b = i + 1;
    }
  }
  const size_t last = lines.size() - 1;
  for (size_t k = 0; k < lines.size(); ++k) {
    std::string_view line = lines[k];
    if (k == last && closed) {
      // The blanks before "*/" go with it.
      while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
    }
    if (k == 0) {
      line = DropOneBlank(line);
    } else {
      line = DropLeadingBlanks(line);
      if (!line.empty() && line.front() == '*') line = DropOneBlank(line.substr(1));
    }
    if ((k == 0 || k == last) && IsAllBlank(line)) continue;
    AddLine(out, line);
  }
}

}  // namespace

std::string CsDocCommentText(std::string_view text, const CsDocComment* begin, const CsDocComment* end) {
  std::string out;
  for (const CsDocComment* d = begin; d < end; ++d) {
    if (d->sameLine) continue;
    if (d->end > text.size() || d->start + 3 > d->end) continue;
    std::string_view c = text.substr(d->start, d->end - d->start);
    if (out.empty()) out = "<doc>";
    if (d->block) AddBlock(out, c);
    else AddLine(out, DropOneBlank(c.substr(3)));
  }
  if (!out.empty()) out += "\r\n</doc>";
  return out;
}

}  // namespace platform::codemodel
