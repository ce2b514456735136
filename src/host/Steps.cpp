#include "host/Steps.h"

#include "platform/suite/ErrorReport.h"

namespace annotra {

void ReportStepError(int number, const std::string& description, const std::string& source,
                     int line) {
  platform::suite::ErrorReport::Current().Report(
      "(" + std::to_string(number) + ") '" + description + "'", source, line, false);
}

void ReportMessage(const std::string& message) {
  platform::suite::ErrorReport::Current().Report(message, "", 0, false);
}

}  // namespace annotra
