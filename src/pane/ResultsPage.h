#pragma once
#include <string>

namespace annotra {

/// The current date and time as the print preview's footer writes them: local time,
/// "2026-11-24 14:05:09".
std::string PrintFooterDate();

/// The print preview's page of the results table "XMLAnalyzer1" as it stands, for
/// hosts without a pane (the command line): the grid on the installed results layout
/// (not the user's, so the page depends only on the run), titled as the pane's print
/// preview, the header "Scribane - Annotra (<rows> results)", `footer` (the date and
/// time) at the footer's centre, landscape, the columns fitted to the page. Fails with
/// the error of the database or the layout.
std::string ResultsPage(const std::string& footer);

}  // namespace annotra
