#pragma once
#include <exception>
#include <string>
#include <utility>

#include "platform/core/Error.h"

namespace annotra {

/// Sends an error to the common error report the way every operation reports a failing
/// step: message "(" number ") '" description "'", the operation's source name
/// ("Quillmark.<Class>.<Operation>") and the step's number as the line.
void ReportStepError(int number, const std::string& description, const std::string& source,
                     int line);

/// Shows a plain message through the common error report: the text itself, no source,
/// line 0.
void ReportMessage(const std::string& message);

/// Runs the numbered steps of one operation. A step that fails is reported with the
/// operation's source name and its number, and the operation goes on with its next step:
///
///     Steps step("Quillmark.MGlobals.GetDocument");
///     step(2, [&] { doc = item->Document(); });
///
/// Anything thrown that is not a platform::Error is reported as error 51 (internal
/// error) with its text, so no failure escapes the operation.
class Steps {
 public:
  explicit Steps(std::string source) : m_source(std::move(source)) {}

  /// Runs `step`; true when it ran through, false when it failed (and was reported).
  template <class F>
  bool operator()(int line, F&& step) const {
    try {
      std::forward<F>(step)();
      return true;
    } catch (const platform::Error& e) {
      ReportStepError(e.number, e.description, m_source, line);
    } catch (const std::exception& e) {
      ReportStepError(platform::err::kInternal, e.what(), m_source, line);
    }
    return false;
  }

  const std::string& source() const { return m_source; }

 private:
  std::string m_source;
};

/// Runs one step whose failure is passed over without a report; true when it ran
/// through.
template <class F>
bool Quietly(F&& step) {
  try {
    std::forward<F>(step)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace annotra
