#pragma once
#include <cstdint>
#include <string>

#include "platform/core/Ref.h"

namespace platform::suite {
class ProgressObject;
}

namespace annotra {

/// Starts, advances and ends the progress display of one walk.
class CStatus : public platform::Dispatch {
 public:
  const char* TypeName() const override { return "CStatus"; }

  /// Starts a new display at 0 of `Max` (a negative maximum counts as 0) with `Label`,
  /// releasing any display kept before without finishing it.
  void InitStatus(int32_t Max, const std::string& Label);
  /// Finishes and releases the display; nothing without one.
  void ShutdownStatus();
  /// Advances the display by `Step` with `Label`; nothing without one.
  void IncrementStatus(int32_t Step, const std::string& Label);
  /// Shows `sText` without changing the progress; fails (reported) without a display.
  void SetText(const std::string& sText);

  const platform::Ref<platform::suite::ProgressObject>& progress() const { return m_oProgress; }

 private:
  platform::Ref<platform::suite::ProgressObject> m_oProgress;
};

}  // namespace annotra
