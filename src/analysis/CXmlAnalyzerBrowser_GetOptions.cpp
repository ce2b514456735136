// CXmlAnalyzerBrowser::GetOptions: the options an analysis runs with, loaded at its start.

#include "analysis/AnalysisOptionsLoader.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"

namespace annotra {

void CXmlAnalyzerBrowser::GetOptions() {
  // Building "XMLCheck" when none is stored (create the XML options form, call its
  // GetOptions with bShowForm false, unload it) belongs to the XML comment templates,
  // which are not here yet. Their one call goes in this builder; until then an empty
  // "XMLCheck" stays empty and no tag is required.
  const XMLCheckBuilder buildXMLCheck = nullptr;
  LoadAnalysisOptions(MGlobals::g_AnalysisOptions, XMLCheckItems, buildXMLCheck);
}

}  // namespace annotra
