#include "platform/suite/ErrorReport.h"

#include <cstdio>

#include "platform/core/StderrLine.h"

namespace platform::suite {
namespace {
std::shared_ptr<ErrorReport>& Slot() {
  static std::shared_ptr<ErrorReport> report = std::make_shared<StderrErrorReport>();
  return report;
}
}  // namespace

ErrorReport& ErrorReport::Current() { return *Slot(); }

std::shared_ptr<ErrorReport> ErrorReport::Install(std::shared_ptr<ErrorReport> report) {
  auto previous = Slot();
  Slot() = report ? std::move(report) : std::make_shared<StderrErrorReport>();
  return previous;
}

void StderrErrorReport::Report(const std::string& message, const std::string& source, int line,
                               bool) {
  stderr_line::End();
  if (source.empty())
    std::fprintf(stderr, "annotra: %s\n", message.c_str());
  else
    std::fprintf(stderr, "annotra: %s [%s:%d]\n", message.c_str(), source.c_str(), line);
}

void RecordingErrorReport::Report(const std::string& message, const std::string& source,
                                  int line, bool) {
  entries.push_back({message, source, line});
}

}  // namespace platform::suite
