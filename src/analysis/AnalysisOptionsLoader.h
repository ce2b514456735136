#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/AnalysisOptions.h"

namespace annotra {

/// Builds and stores the full required-tag list ("XMLCheck") when none is stored yet: the
/// XML options form, created, asked for its options without being shown, and unloaded.
using XMLCheckBuilder = std::function<void()>;

/// Loads the options of one analysis from the per-user settings store, section
/// "CommentsAnalyzer", in this order: LastScope (default 0); EnablePublic (1),
/// XMLOnPublic (1), EnableNonPublic (1), XMLOnNonPublic (0), each non-zero meaning true;
/// XMLCheck (""); when XMLCheck is empty and `buildXMLCheck` is given, runs it, lets
/// pending window messages run once and reads XMLCheck again; `xmlCheckItems` from
/// XMLCheck split at every "|"; EnableBody (1); LineCount as ReadLineCount gives it;
/// then the rules beyond those: AcceptInheritDoc (0), CompareParamTypes (1) and
/// SkipGenerated (0), each non-zero meaning true. OpenDocAllowed is not touched (see
/// ReadOpenDocAllowed).
///
/// Never throws. A read or conversion that fails is reported through the common error
/// report with the source "Quillmark.CXmlAnalyzerBrowser.GetOptions" and the step's
/// number, and that field keeps the value it had; LineCount's failures are silent.
void LoadAnalysisOptions(AnalysisOptions& options, std::vector<std::string>& xmlCheckItems,
                         const XMLCheckBuilder& buildXMLCheck);

/// `xmlCheck` split at every "|", exactly (empty items kept); "" gives no items.
std::vector<std::string> SplitXMLCheck(const std::string& xmlCheck);

/// The line limit: "LineCount" of section "CommentsAnalyzer" (default 15) as a 16-bit
/// integer; 15 when it cannot be read or converted, or lies outside 5..100. Never
/// throws and reports nothing.
int16_t ReadLineCount();

/// "OpenDocAllowed" of section "Settings" (default 10) as a 16-bit integer; a value
/// outside 1..30 gives 20. Throws platform::Error when there is no settings store (91),
/// the store fails, or the value does not convert to 16 bits (13, 6): the analysis
/// driver reports that at its own step and keeps the value it had.
int16_t ReadOpenDocAllowed();

}  // namespace annotra
