#include "analysis/AnalysisOptionsLoader.h"

#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "host/Steps.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/SettingsStore.h"

namespace annotra {
namespace {

using platform::Variant;

constexpr int16_t kDefaultLineCount = 15;

Variant Read(const char* section, const char* key, const Variant& def) {
  if (!MGlobals::AppSettingsObject_HKCU) throw platform::Error(platform::err::kObjectNotSet);
  return MGlobals::AppSettingsObject_HKCU->Read(section, key, def);
}

bool ReadFlag(const char* key, int def) { return platform::ToBool(Read(section::CommentsAnalyzer, key, def)); }

}  // namespace

std::vector<std::string> SplitXMLCheck(const std::string& xmlCheck) {
  std::vector<std::string> items;
  if (xmlCheck.empty()) return items;
  size_t start = 0;
  for (;;) {
    size_t bar = xmlCheck.find('|', start);
    items.push_back(xmlCheck.substr(start, bar == std::string::npos ? std::string::npos : bar - start));
    if (bar == std::string::npos) break;
    start = bar + 1;
  }
  return items;
}

int16_t ReadLineCount() {
  int16_t lineCount = kDefaultLineCount;
  Quietly([&] { lineCount = platform::ToInt16(Read(section::CommentsAnalyzer, key::LineCount, kDefaultLineCount)); });
  if (lineCount < 5 || lineCount > 100) lineCount = kDefaultLineCount;
  return lineCount;
}

int16_t ReadOpenDocAllowed() {
  int16_t allowed = platform::ToInt16(Read(section::Settings, key::OpenDocAllowed, 10));
  if (allowed < 1 || allowed > 30) allowed = 20;
  return allowed;
}

void LoadAnalysisOptions(AnalysisOptions& options, std::vector<std::string>& xmlCheckItems,
                         const XMLCheckBuilder& buildXMLCheck) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.GetOptions");
  step(1, [&] { options.LastScope = platform::ToInt32(Read(section::CommentsAnalyzer, key::LastScope, 0)); });
  step(2, [&] { options.EnablePublic = ReadFlag(key::EnablePublic, 1); });
  step(2, [&] { options.XMLOnPublic = ReadFlag(key::XMLOnPublic, 1); });
  step(2, [&] { options.EnableNonPublic = ReadFlag(key::EnableNonPublic, 1); });
  step(2, [&] { options.XMLOnNonPublic = ReadFlag(key::XMLOnNonPublic, 0); });
  step(3, [&] { options.XMLCheck = platform::ToString(Read(section::CommentsAnalyzer, key::XMLCheck, "")); });
  if (options.XMLCheck.empty() && buildXMLCheck) {
    step(4, [&] { buildXMLCheck(); });
    platform::forms::DoEvents();
    step(4, [&] { options.XMLCheck = platform::ToString(Read(section::CommentsAnalyzer, key::XMLCheck, "")); });
  }
  step(5, [&] { xmlCheckItems = SplitXMLCheck(options.XMLCheck); });
  step(6, [&] { options.EnableBody = ReadFlag(key::EnableBody, 1); });
  step(7, [&] { options.LineCount = ReadLineCount(); });
  step(8, [&] { options.AcceptInheritDoc = ReadFlag(key::AcceptInheritDoc, 0); });
  step(8, [&] { options.CompareParamTypes = ReadFlag(key::CompareParamTypes, 1); });
  step(8, [&] { options.SkipGenerated = ReadFlag(key::SkipGenerated, 0); });
}

}  // namespace annotra
