#include "platform/grid/GridPrinterSettings.h"

#include "platform/core/Error.h"

namespace platform::grid {

namespace {
size_t Slot(int position) {
  if (position < 1 || position > 3)
    throw Error(err::kInvalidCall, "A header or footer position is 1, 2 or 3, not " + std::to_string(position));
  return static_cast<size_t>(position - 1);
}
}  // namespace

const std::string& GridPrinterSettings::HeaderString(int position) const { return m_header[Slot(position)]; }
void GridPrinterSettings::SetHeaderString(int position, std::string text) { m_header[Slot(position)] = std::move(text); }
const std::string& GridPrinterSettings::FooterString(int position) const { return m_footer[Slot(position)]; }
void GridPrinterSettings::SetFooterString(int position, std::string text) { m_footer[Slot(position)] = std::move(text); }

void GridPrinterSettings::SetOrientation(int orientation) {
  if (orientation != poPortrait && orientation != poLandscape)
    throw Error(err::kInvalidCall, "The orientation is 1 (portrait) or 2 (landscape), not " + std::to_string(orientation));
  m_orientation = orientation;
}

}  // namespace platform::grid
