#pragma once
#include <array>
#include <string>

namespace platform::grid {

/// Page orientations of a grid's printout.
enum PageOrientation { poPortrait = 1, poLandscape = 2 };

/// How a grid is printed: a header and a footer text at each of three places (1 left,
/// 2 centre, 3 right), the page orientation, and whether the columns are fitted to the
/// page's width.
class GridPrinterSettings {
 public:
  /// The header text at `position` (1 to 3); fails with 5 for another position.
  const std::string& HeaderString(int position) const;
  void SetHeaderString(int position, std::string text);
  /// The footer text at `position` (1 to 3); fails with 5 for another position.
  const std::string& FooterString(int position) const;
  void SetFooterString(int position, std::string text);

  /// poPortrait or poLandscape; other values fail with 5.
  int Orientation() const { return m_orientation; }
  void SetOrientation(int orientation);
  /// True: the columns share the page's width; false: they keep their widths.
  bool FitColumns = false;

 private:
  std::array<std::string, 3> m_header;
  std::array<std::string, 3> m_footer;
  int m_orientation = poPortrait;
};

}  // namespace platform::grid
