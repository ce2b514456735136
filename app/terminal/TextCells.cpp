#include "terminal/TextCells.h"

#include <cwchar>

namespace app::terminal::text {

namespace {
// The length of the UTF-8 sequence that begins with `lead`; 0 for a byte that cannot
// begin one.
size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// The code point of a well-formed sequence.
char32_t Decode(std::string_view c) {
  auto b = [&](size_t i) { return static_cast<char32_t>(static_cast<unsigned char>(c[i])); };
  switch (c.size()) {
    case 1: return b(0);
    case 2: return ((b(0) & 0x1F) << 6) | (b(1) & 0x3F);
    case 3: return ((b(0) & 0x0F) << 12) | ((b(1) & 0x3F) << 6) | (b(2) & 0x3F);
    default: return ((b(0) & 0x07) << 18) | ((b(1) & 0x3F) << 12) | ((b(2) & 0x3F) << 6) | (b(3) & 0x3F);
  }
}
}  // namespace

std::vector<std::string> Characters(std::string_view s) {
  std::vector<std::string> out;
  for (size_t i = 0; i < s.size();) {
    size_t n = SequenceLength(static_cast<unsigned char>(s[i]));
    bool good = n > 0 && i + n <= s.size();
    for (size_t k = 1; good && k < n; ++k)
      good = (static_cast<unsigned char>(s[i + k]) & 0xC0) == 0x80;
    if (!good) {
      out.emplace_back("?");
      ++i;
      continue;
    }
    out.emplace_back(s.substr(i, n));
    i += n;
  }
  return out;
}

int CharWidth(std::string_view character) {
  if (character.size() <= 1) {
    unsigned char c = character.empty() ? 0 : static_cast<unsigned char>(character[0]);
    return c < 0x20 || c == 0x7F ? 0 : 1;
  }
  int w = wcwidth(static_cast<wchar_t>(Decode(character)));
  return w < 0 ? 1 : w;
}

int Width(std::string_view s) {
  int w = 0;
  for (const std::string& c : Characters(s)) w += CharWidth(c);
  return w;
}

std::string Fit(std::string_view s, int width, std::string_view ellipsis) {
  if (width <= 0) return "";
  std::vector<std::string> chars = Characters(s);
  int total = 0;
  for (const std::string& c : chars) total += CharWidth(c);
  if (total <= width) {
    std::string out;
    for (const std::string& c : chars) out += c;
    return out;
  }
  int room = ellipsis.empty() ? width : width - 1;
  std::string out;
  int used = 0;
  for (const std::string& c : chars) {
    int w = CharWidth(c);
    if (used + w > room) break;
    out += c;
    used += w;
  }
  if (!ellipsis.empty()) out += ellipsis;
  return out;
}

std::string Pad(std::string_view s, int width) {
  std::string out = Fit(s, width);
  int w = Width(out);
  if (w < width) out.append(static_cast<size_t>(width - w), ' ');
  return out;
}

std::vector<std::string> Wrap(std::string_view s, int width) {
  std::vector<std::string> lines;
  if (width <= 0) return lines;
  size_t start = 0;
  while (true) {
    size_t nl = s.find('\n', start);
    std::string_view para = s.substr(start, nl == std::string_view::npos ? std::string_view::npos : nl - start);
    // Words of the paragraph, each placed on the line if it fits, else on a new one;
    // a word wider than a line is broken where the line ends.
    std::string line;
    int used = 0;
    size_t i = 0;
    bool any = false;
    while (i <= para.size()) {
      size_t sp = para.find(' ', i);
      std::string_view word = para.substr(i, sp == std::string_view::npos ? std::string_view::npos : sp - i);
      i = sp == std::string_view::npos ? para.size() + 1 : sp + 1;
      if (word.empty() && sp != std::string_view::npos) continue;
      int w = Width(word);
      if (used > 0 && used + 1 + w <= width) {
        line += ' ';
        line += word;
        used += 1 + w;
        continue;
      }
      if (used > 0) {
        lines.push_back(line);
        line.clear();
        used = 0;
      }
      for (const std::string& c : Characters(word)) {
        int cw = CharWidth(c);
        if (used + cw > width && used > 0) {
          lines.push_back(line);
          line.clear();
          used = 0;
        }
        line += c;
        used += cw;
      }
      if (!word.empty()) any = true;
    }
    if (used > 0 || !any) lines.push_back(line);
    if (nl == std::string_view::npos) break;
    start = nl + 1;
  }
  return lines;
}

Span Clip(std::string_view s, int x, int left, int right) {
  Span span;
  int col = x;
  for (const std::string& c : Characters(s)) {
    int w = CharWidth(c);
    if (col >= left && col + w <= right) {
      if (span.column < 0) span.column = col;
      span.text += c;
    } else if (span.column >= 0) {
      break;
    }
    col += w;
  }
  return span;
}

}  // namespace app::terminal::text
