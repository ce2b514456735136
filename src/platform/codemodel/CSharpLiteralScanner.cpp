#include "platform/codemodel/CSharpLiteralScanner.h"

namespace platform::codemodel {
namespace {

bool IsLineBreak(char c) { return c == '\n' || c == '\r'; }

size_t Run(std::string_view text, size_t pos, char c) {
  size_t k = 0;
  while (pos + k < text.size() && text[pos + k] == c) ++k;
  return k;
}

size_t SkipU8Suffix(std::string_view text, size_t pos) {
  if (pos + 1 < text.size() && (text[pos] == 'u' || text[pos] == 'U') && text[pos + 1] == '8') return pos + 2;
  return pos;
}

}  // namespace

bool CSharpLiteralScanner::StartsString(std::string_view text, size_t pos) {
  size_t i = pos;
  while (i < text.size() && text[i] == '$') ++i;
  bool dollars = i > pos;
  if (i < text.size() && text[i] == '@') {
    ++i;
    if (!dollars)
      while (i < text.size() && text[i] == '$') ++i;
  }
  return i < text.size() && text[i] == '"';
}

size_t CSharpLiteralScanner::OpenString(std::string_view text, size_t pos) {
  Frame f{};
  size_t i = pos;
  while (i < text.size() && (text[i] == '$' || text[i] == '@')) {
    if (text[i] == '$') ++f.dollars;
    else f.verbatim = true;
    ++i;
  }
  size_t q = Run(text, i, '"');
  if (!f.verbatim && q >= 3) {
    f.raw = true;
    f.quotes = static_cast<uint32_t>(q);
    i += q;
    // Multi-line when nothing but blanks follows the opening quotes on their line.
    size_t k = i;
    while (k < text.size() && (text[k] == ' ' || text[k] == '\t')) ++k;
    f.multiLine = k >= text.size() || IsLineBreak(text[k]);
  } else {
    i += 1;  // the opening quote; a second one is content (and closes it at once)
  }
  m_stack.push_back(f);
  return i;
}

bool CSharpLiteralScanner::OwnerIsSingleLine() const {
  if (m_stack.size() < 2) return true;
  const Frame& s = m_stack[m_stack.size() - 2];
  return !s.verbatim && !(s.raw && s.multiLine);
}

size_t CSharpLiteralScanner::ScanString(std::string_view text, size_t pos) {
  m_stack.clear();
  const size_t n = text.size();
  size_t i = OpenString(text, pos);
  while (!m_stack.empty() && i < n) {
    Frame& f = m_stack.back();
    const char c = text[i];
    if (!f.hole) {
      if (f.raw) {
        if (c == '"') {
          size_t k = Run(text, i, '"');
          i += k;
          if (k >= f.quotes) m_stack.pop_back();
        } else if (!f.multiLine && IsLineBreak(c)) {
          m_stack.pop_back();
        } else if (f.dollars && c == '{') {
          size_t k = Run(text, i, '{');
          i += k;
          if (k >= f.dollars) m_stack.push_back(Frame{true, false, false, false, false, 0, 0, 0, 0});
        } else {
          ++i;
        }
      } else if (f.verbatim) {
        if (c == '"') {
          if (i + 1 < n && text[i + 1] == '"') {
            i += 2;
          } else {
            ++i;
            m_stack.pop_back();
          }
        } else if (f.dollars && c == '{') {
          if (i + 1 < n && text[i + 1] == '{') {
            i += 2;
          } else {
            ++i;
            m_stack.push_back(Frame{true, false, false, false, false, 0, 0, 0, 0});
          }
        } else {
          ++i;
        }
      } else {
        if (c == '\\') {
          i += (i + 1 < n && !IsLineBreak(text[i + 1])) ? 2 : 1;
        } else if (c == '"') {
          ++i;
          m_stack.pop_back();
        } else if (IsLineBreak(c)) {
          m_stack.pop_back();
        } else if (f.dollars && c == '{') {
          if (i + 1 < n && text[i + 1] == '{') {
            i += 2;
          } else {
            ++i;
            m_stack.push_back(Frame{true, false, false, false, false, 0, 0, 0, 0});
          }
        } else {
          ++i;
        }
      }
      continue;
    }

    // Inside a hole: code, up to the '}' that closes it.
    auto closeHole = [&] {
      const Frame& owner = m_stack[m_stack.size() - 2];
      size_t want = owner.raw ? owner.dollars : 1;
      m_stack.pop_back();
      for (size_t k = 0; k < want && i < n && text[i] == '}'; ++k) ++i;
    };
    if (IsLineBreak(c)) {
      if (OwnerIsSingleLine() && (f.inFormat || (f.braces == 0 && f.parens == 0))) {
        // A single-line string cannot go on: the hole and its string end here.
        m_stack.pop_back();
        m_stack.pop_back();
      } else {
        ++i;
      }
      continue;
    }
    if (f.inFormat) {
      if (c == '}') closeHole();
      else if (c == '"' && !m_stack[m_stack.size() - 2].raw) m_stack.pop_back();
      else ++i;
      continue;
    }
    switch (c) {
      case '{':
        ++f.braces;
        ++i;
        break;
      case '}':
        if (f.braces > 0) {
          --f.braces;
          ++i;
        } else {
          closeHole();
        }
        break;
      case '(':
      case '[':
        ++f.parens;
        ++i;
        break;
      case ')':
      case ']':
        if (f.parens > 0) --f.parens;
        ++i;
        break;
      case ':':
        if (i + 1 < n && text[i + 1] == ':') {
          i += 2;
        } else {
          if (f.braces == 0 && f.parens == 0) f.inFormat = true;
          ++i;
        }
        break;
      case '/':
        if (i + 1 < n && text[i + 1] == '/') {
          while (i < n && !IsLineBreak(text[i])) ++i;
        } else if (i + 1 < n && text[i + 1] == '*') {
          i += 2;
          while (i < n && !(text[i] == '*' && i + 1 < n && text[i + 1] == '/')) ++i;
          i = i < n ? i + 2 : n;
        } else {
          ++i;
        }
        break;
      case '\'':
        i = ScanChar(text, i);
        break;
      case '"':
      case '$':
      case '@':
        if (StartsString(text, i)) i = OpenString(text, i);
        else ++i;
        break;
      default:
        ++i;
    }
  }
  if (i > n) i = n;
  return SkipU8Suffix(text, i);
}

size_t CSharpLiteralScanner::ScanChar(std::string_view text, size_t pos) {
  const size_t n = text.size();
  size_t i = pos + 1;
  while (i < n && !IsLineBreak(text[i])) {
    if (text[i] == '\\') {
      i += (i + 1 < n && !IsLineBreak(text[i + 1])) ? 2 : 1;
    } else if (text[i] == '\'') {
      return i + 1;
    } else {
      ++i;
    }
  }
  return i > n ? n : i;
}

}  // namespace platform::codemodel
