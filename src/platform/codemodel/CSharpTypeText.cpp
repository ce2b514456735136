#include "platform/codemodel/CSharpTypeText.h"

namespace platform::codemodel {
namespace {

std::string_view TextOf(std::string_view text, const CsToken& t) { return text.substr(t.start, t.end - t.start); }

bool IsWord(const CsToken& t) { return t.kind == CsTokenKind::Word || t.kind == CsTokenKind::Number; }

}  // namespace

void AppendCsTypeText(std::string& out, std::string_view text, const CsToken* begin, const CsToken* end) {
  const CsToken* prev = nullptr;
  const CsToken* prevPrev = nullptr;
  for (const CsToken* t = begin; t < end; ++t) {
    std::string_view s = TextOf(text, *t);
    if (prev) {
      std::string_view p = TextOf(text, *prev);
      bool blank = false;
      if (p == ",") {
        blank = !(s == "," || s == "]" || s == ">");
      } else if (IsWord(*t)) {
        // A word after a word, or after the end of a type (a tuple element's name).
        blank = IsWord(*prev) || p == ">" || p == "]" || p == "?" || p == "*" || p == ")";
      } else if (p == "*" && prevPrev && prevPrev->keyword == CsKeyword::Delegate) {
        blank = true;  // delegate* <...>
      }
      if (blank) out += ' ';
    }
    out.append(s);
    prevPrev = prev;
    prev = t;
  }
}

std::string CsTypeText(std::string_view text, const CsToken* begin, const CsToken* end) {
  std::string out;
  AppendCsTypeText(out, text, begin, end);
  return out;
}

}  // namespace platform::codemodel
