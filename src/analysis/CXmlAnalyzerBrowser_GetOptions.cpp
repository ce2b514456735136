// CXmlAnalyzerBrowser::GetOptions: the options an analysis runs with, loaded at its start.

#include "analysis/AnalysisOptionsLoader.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "analysis/FCCOptions.h"
#include "host/MGlobals.h"

namespace annotra {

void CXmlAnalyzerBrowser::GetOptions() {
  // No "XMLCheck" stored yet: the XML options form, unshown, builds the full list from
  // the templates and stores it.
  const XMLCheckBuilder buildXMLCheck = [] {
    FCCOptions form;
    form.GetOptions(false);
    form.Unload();
  };
  LoadAnalysisOptions(MGlobals::g_AnalysisOptions, XMLCheckItems, buildXMLCheck);
}

}  // namespace annotra
