#include "platform/codemodel/CSharpSyntaxScanner.h"

namespace platform::codemodel {

CSharpSyntaxScanner::CSharpSyntaxScanner(std::string_view text, const CsTokenStream& stream)
    : m_text(text), m_tokens(stream.tokens.data()), m_count(stream.tokens.size()) {}

bool CSharpSyntaxScanner::IsIdentifier(size_t i) const {
  const CsToken& t = At(i);
  if (t.kind != CsTokenKind::Word) return false;
  switch (t.keyword) {
    case CsKeyword::None:
    case CsKeyword::Alias:
    case CsKeyword::Async:
    case CsKeyword::File:
    case CsKeyword::Global:
    case CsKeyword::Partial:
    case CsKeyword::Record:
    case CsKeyword::Required:
    case CsKeyword::Scoped:
    case CsKeyword::Where:
      return true;
    default:
      return false;
  }
}

bool CSharpSyntaxScanner::IsAccessModifier(size_t i) const {
  const CsToken& t = At(i);
  if (t.kind != CsTokenKind::Word) return false;
  return t.keyword == CsKeyword::Public || t.keyword == CsKeyword::Private ||
         t.keyword == CsKeyword::Protected || t.keyword == CsKeyword::Internal;
}

size_t CSharpSyntaxScanner::ScanType(size_t i, bool allowRef) const { return ScanType(i, allowRef, 0); }

size_t CSharpSyntaxScanner::ScanTypeArguments(size_t i) const { return ScanTypeArguments(i, 0); }

size_t CSharpSyntaxScanner::ScanType(size_t i, bool allowRef, int depth) const {
  if (depth > kMaxTypeDepth) return kFail;
  if (allowRef && IsKw(i, CsKeyword::Ref)) {
    ++i;
    if (IsKw(i, CsKeyword::Readonly)) ++i;
  }
  if (Is(i, "(")) {
    // A tuple: elements with optional names.
    ++i;
    for (;;) {
      size_t e = ScanType(i, false, depth + 1);
      if (e == kFail) return kFail;
      i = e;
      if (IsIdentifier(i)) ++i;
      if (Is(i, ",")) {
        ++i;
        continue;
      }
      if (!Is(i, ")")) return kFail;
      ++i;
      break;
    }
  } else if (IsKw(i, CsKeyword::Delegate) && Is(i + 1, "*")) {
    i += 2;
    if (IsWord(i) && (Text(i) == "managed" || Text(i) == "unmanaged")) {
      ++i;
      if (Is(i, "[")) {
        ++i;
        while (IsWord(i) || Is(i, ",")) ++i;
        if (!Is(i, "]")) return kFail;
        ++i;
      }
    }
    if (!Is(i, "<")) return kFail;
    i = ScanTypeArguments(i, depth + 1);
    if (i == kFail) return kFail;
  } else if (IsIdentifier(i)) {
    if (IsKw(i, CsKeyword::Global) && Is(i + 1, "::")) {
      i += 2;
      if (!IsIdentifier(i)) return kFail;
    }
    for (;;) {
      ++i;
      if (Is(i, "<")) {
        i = ScanTypeArguments(i, depth + 1);
        if (i == kFail) return kFail;
      }
      if ((Is(i, ".") || Is(i, "::")) && IsIdentifier(i + 1)) {
        ++i;
        continue;
      }
      break;
    }
  } else {
    return kFail;
  }
  for (;;) {
    if (Is(i, "?") || Is(i, "*")) {
      ++i;
    } else if (Is(i, "[")) {
      size_t j = i + 1;
      while (Is(j, ",")) ++j;
      if (!Is(j, "]")) break;
      i = j + 1;
    } else {
      break;
    }
  }
  return i;
}

size_t CSharpSyntaxScanner::ScanTypeArguments(size_t i, int depth) const {
  if (!Is(i, "<") || depth > kMaxTypeDepth) return kFail;
  ++i;
  if (Is(i, ",") || Is(i, ">")) {
    while (Is(i, ",")) ++i;  // an unbound generic: Dictionary<,>
    return Is(i, ">") ? i + 1 : kFail;
  }
  for (;;) {
    size_t e = ScanType(i, false, depth + 1);
    if (e == kFail) return kFail;
    i = e;
    if (Is(i, ",")) {
      ++i;
      continue;
    }
    return Is(i, ">") ? i + 1 : kFail;
  }
}

size_t CSharpSyntaxScanner::SkipTypeParameters(size_t i) const {
  if (!Is(i, "<")) return i;
  int depth = 0;
  for (;; ++i) {
    if (IsEnd(i) || Is(i, "{") || Is(i, "}") || Is(i, ";") || Is(i, "(") || Is(i, "=>") ||
        IsAccessModifier(i))
      return i;
    if (Is(i, "<")) {
      ++depth;
    } else if (Is(i, ">")) {
      if (--depth == 0) return i + 1;
    } else if (Is(i, "[")) {
      i = SkipGroup(i) - 1;  // an attribute on a type parameter
    }
  }
}

size_t CSharpSyntaxScanner::SkipGroup(size_t i) const {
  int depth = 0, braces = 0;
  for (size_t j = i;; ++j) {
    const CsToken& t = At(j);
    if (t.kind == CsTokenKind::End) return j;
    if (j > i && IsAccessModifier(j)) return j;
    if (t.kind != CsTokenKind::Punct) continue;
    char c = m_text[t.start];
    if (t.end - t.start != 1) continue;
    if (c == '(' || c == '[' || c == '{') {
      ++depth;
      if (c == '{') ++braces;
    } else if (c == ')' || c == ']' || c == '}') {
      if (c == '}' && braces > 0) --braces;
      if (--depth <= 0) return j + 1;
    } else if (c == ';' && braces == 0) {
      return j;
    }
  }
}

size_t CSharpSyntaxScanner::SkipBlock(size_t i, ModifierRule rule) const {
  int depth = 0;
  for (size_t j = i;; ++j) {
    const CsToken& t = At(j);
    if (t.kind == CsTokenKind::End) return j;
    if (t.kind == CsTokenKind::Punct && t.end - t.start == 1) {
      char c = m_text[t.start];
      if (c == '{') {
        ++depth;
      } else if (c == '}') {
        if (--depth <= 0) return j + 1;
      }
    } else if (depth > 0 && rule != ModifierRule::Ignore && IsAccessModifier(j)) {
      if (rule == ModifierRule::StopInside || depth > 1) return j;
    }
  }
}

size_t CSharpSyntaxScanner::SkipExpression(size_t i) const {
  int depth = 0;
  for (size_t j = i;; ++j) {
    const CsToken& t = At(j);
    if (t.kind == CsTokenKind::End || IsAccessModifier(j)) return j;
    if (t.kind == CsTokenKind::Word) {
      // After new, is and as comes a type, whatever follows it (`new List<int, int> {`).
      if (t.keyword == CsKeyword::New || Text(j) == "is" || Text(j) == "as") {
        size_t e = ScanType(j + 1);
        if (e != kFail) j = e - 1;
      }
      continue;
    }
    if (t.kind != CsTokenKind::Punct || t.end - t.start != 1) continue;
    const char c = m_text[t.start];
    if (c == '(' || c == '[' || c == '{') {
      ++depth;
    } else if (c == ')' || c == ']' || c == '}') {
      if (depth == 0) return j;
      --depth;
    } else if (depth == 0 && (c == ',' || c == ';')) {
      return j;
    } else if (c == '<' && j > i && IsIdentifier(j - 1)) {
      // A type-argument list when it parses as one and is followed by a token that
      // can follow a type in an expression.
      size_t e = ScanTypeArguments(j);
      if (e != kFail) {
        std::string_view f = Text(e);
        if (IsEnd(e) || f == "(" || f == ")" || f == "]" || f == "}" || f == ":" || f == ";" ||
            f == "," || f == "." || f == "?" || f == "==" || f == "!=" || f == "|" || f == "^" ||
            f == "&&" || f == "||" || f == "&" || f == "[" || f == "?." || f == ">")
          j = e - 1;
      }
    }
  }
}

size_t CSharpSyntaxScanner::SkipToBody(size_t i) const {
  int depth = 0;
  for (size_t j = i;; ++j) {
    const CsToken& t = At(j);
    if (t.kind == CsTokenKind::End) return j;
    if (j > i && IsAccessModifier(j)) return j;
    if (t.kind != CsTokenKind::Punct) continue;
    std::string_view s = Text(j);
    if (s == "(" || s == "[") {
      ++depth;
    } else if (s == ")" || s == "]") {
      if (depth > 0) --depth;
    } else if (s == "{") {
      if (depth == 0) return j;
      j = SkipGroup(j) - 1;  // a lambda in a base-constructor argument
    } else if (depth == 0 && (s == ";" || s == "=>" || s == "}")) {
      return j;
    }
  }
}

}  // namespace platform::codemodel
