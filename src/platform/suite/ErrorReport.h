#pragma once
#include <memory>
#include <string>
#include <vector>

namespace platform::suite {

/// The suite's common error report: shows a message with the source and line it came
/// from. The program sends it to standard error; tests record it.
class ErrorReport {
 public:
  virtual ~ErrorReport() = default;
  virtual void Report(const std::string& message, const std::string& source, int line,
                      bool flag) = 0;

  /// The report in use (standard error until another is installed).
  static ErrorReport& Current();
  /// Installs `report` as the one in use and returns the one it replaces.
  static std::shared_ptr<ErrorReport> Install(std::shared_ptr<ErrorReport> report);
};

/// Writes each report as one line on standard error: "annotra: <message> [<source>:<line>]",
/// or the message alone when there is no source.
class StderrErrorReport : public ErrorReport {
 public:
  void Report(const std::string& message, const std::string& source, int line,
              bool flag) override;
};

/// Keeps every report, for tests.
class RecordingErrorReport : public ErrorReport {
 public:
  struct Entry {
    std::string message;
    std::string source;
    int line;
  };
  void Report(const std::string& message, const std::string& source, int line,
              bool flag) override;
  std::vector<Entry> entries;
};

/// Installs a report for the life of the object and puts the previous one back after.
class ScopedErrorReport {
 public:
  explicit ScopedErrorReport(std::shared_ptr<ErrorReport> report)
      : m_previous(ErrorReport::Install(std::move(report))) {}
  ~ScopedErrorReport() { ErrorReport::Install(m_previous); }
  ScopedErrorReport(const ScopedErrorReport&) = delete;
  ScopedErrorReport& operator=(const ScopedErrorReport&) = delete;

 private:
  std::shared_ptr<ErrorReport> m_previous;
};

}  // namespace platform::suite
