#include "pane/ResultsPage.h"

#include <ctime>

#include "host/MGlobals.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "pane/DocXMLAnalyzer.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/Form.h"
#include "platform/grid/Grid.h"
#include "platform/suite/GridPreview.h"
#include "results/MGlobals_ResultsDb.h"

namespace annotra {

std::string PrintFooterDate() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

std::string ResultsPage(const std::string& footer) {
  auto db = MGlobals::XMLAnalyzerDb();
  if (!db) throw platform::Error(platform::err::kObjectNotSet, "The results database could not be made");
  platform::forms::Form form("ResultsPage");
  platform::grid::Grid grid(form, "GridEx1");
  grid.LoadLayoutFile(MGlobals::GetAppPath() + "Layouts/" + DocXMLAnalyzer::kResultsLayout);
  grid.KeepColumns = true;
  grid.Bind(db->OpenRecordset(DocXMLAnalyzer::kResultsTable, platform::dao::dbOpenDynaset));
  const int rows = grid.Recordset()->RecordCount();
  grid.PrinterSettings().SetHeaderString(1, "Scribane - Annotra (" + std::to_string(rows) + " results)");
  grid.PrinterSettings().SetFooterString(2, footer);
  grid.PrinterSettings().SetOrientation(platform::grid::poLandscape);
  grid.PrinterSettings().FitColumns = true;
  return platform::suite::GridPreview::Page(grid, CXmlAnalyzerWindow::kPrintPreviewTitle);
}

}  // namespace annotra
