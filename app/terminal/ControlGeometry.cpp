#include "terminal/ControlGeometry.h"

#include <algorithm>

#include "platform/forms/Control.h"
#include "platform/suite/VsTabAreaEx.h"
#include "terminal/TextCells.h"

namespace app::terminal::geometry {

CellRect WindowOf(const CellRect& client) { return {client.x - 1, client.y - 1, client.w + 2, client.h + 2}; }

CellRect CloseBoxOf(const CellRect& client) { return {client.Right() - 3, client.y - 1, 3, 1}; }

CellRect ScopeListOf(const CellRect& box, int scopes, int screenRows) {
  int rows = std::max(1, scopes);
  int below = screenRows - box.Bottom();
  int above = box.y;
  if (rows <= below || below >= above) return {box.x, box.Bottom(), box.w, std::min(rows, std::max(1, below))};
  int h = std::min(rows, std::max(1, above));
  return {box.x, box.y - h, box.w, h};
}

bool TreeHasBorder(const CellRect& rect) { return rect.h >= 3 && rect.w >= 6; }

CellRect TreeInnerOf(const CellRect& rect) {
  if (!TreeHasBorder(rect)) return rect;
  return {rect.x + 1, rect.y + 1, rect.w - 2, rect.h - 2};
}

CellRect TabOf(const platform::suite::VsTabAreaEx& strip, const CellRect& rect, int index) {
  int left = FormLayout::CellsX(strip.TabLeft(index));
  int right = FormLayout::CellsX(strip.TabLeft(index) + strip.TabWidth(index));
  return {rect.x + left, rect.y, std::max(1, right - left), 1};
}

int AccessColumn(const std::string& caption) {
  int column = 0;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') {
        ++column;
        ++i;
        continue;
      }
      return i + 1 < caption.size() ? column : -1;
    }
    // Count cells per character: continuation bytes of UTF-8 add nothing.
    if ((static_cast<unsigned char>(caption[i]) & 0xC0) != 0x80)
      column += text::CharWidth(text::Characters(caption.substr(i, 4)).front());
  }
  return -1;
}

}  // namespace app::terminal::geometry
