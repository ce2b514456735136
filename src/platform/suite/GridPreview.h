#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::grid {
class Grid;
}

namespace platform::suite {

/// The suite's print preview of a grid: the grid as it stands (its visible columns in
/// their order, its groups and sort order, the rows shown, the header and footer texts
/// at their places, the page's orientation and fitting) as one self-contained HTML
/// page paged for print, shown in the desktop's browser (PageViewer); the printer it
/// would go to is asked of the print system (PrinterProbe).
class GridPreview : public Dispatch {
 public:
  const char* TypeName() const override { return "GridPreview"; }

  /// The default printer's device name; fails with 5 when there is no printer or no
  /// default one.
  std::string DeviceName() const;
  /// Writes the page of `grid` titled `title` to a new file in the temporary folder and
  /// shows it; when nothing can show it, a message tells where the file is. Fails with
  /// 75 when the file cannot be written.
  void PrintPreview(const grid::Grid& grid, const std::string& title);
  /// The file the last PrintPreview wrote; "" before.
  const std::string& LastFile() const { return m_lastFile; }

  /// The page itself: valid HTML5, every text escaped.
  static std::string Page(const grid::Grid& grid, const std::string& title);

 private:
  std::string m_lastFile;
};

}  // namespace platform::suite
