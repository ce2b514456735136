#include "host/Steps.h"

#include "platform/suite/ErrorReport.h"

namespace annotra {

void ReportStepError(int number, const std::string& description, const std::string& source,
                     int line) {
  // Built by appending: "(" + std::to_string(...) trips a false -Wrestrict in GCC 12's
  // optimised builds.
  std::string message = "(";
  message += std::to_string(number);
  message += ") '";
  message += description;
  message += "'";
  platform::suite::ErrorReport::Current().Report(message, source, line, false);
}

void ReportMessage(const std::string& message) {
  platform::suite::ErrorReport::Current().Report(message, "", 0, false);
}

}  // namespace annotra
