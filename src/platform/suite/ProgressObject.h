#pragma once
#include <cstdint>
#include <string>

#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
class StatusBar;
}  // namespace platform::automation

namespace platform::suite {

/// The suite's progress display in the development environment's status bar: a label and
/// a count of steps done out of a maximum.
class ProgressObject : public Dispatch {
 public:
  const char* TypeName() const override { return "ProgressObject"; }

  /// Shows `label` at 0 of `maximum` (a negative maximum fails with 5) in the status bar
  /// of `dte`.
  void Start(const Ref<automation::DTE>& dte, int32_t maximum, const std::string& label);
  /// Advances by `step` and shows `label`. Fails with 91 before Start.
  void Step(int32_t step, const std::string& label);
  /// Shows `text` without changing the progress. Fails with 91 before Start.
  void SetText(const std::string& text);
  /// Removes the display and frees the status bar.
  void Finish();

  int32_t done() const { return m_done; }
  int32_t maximum() const { return m_maximum; }

 private:
  Ref<automation::StatusBar> m_statusBar;
  int32_t m_maximum = 0;
  int32_t m_done = 0;
};

}  // namespace platform::suite
