#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::suite {
class Ticklet;
}

namespace annotra {

/// The text a hint area rests on when the mouse rests on no particular setting.
inline constexpr const char* kRestingHint =
    "Select or move your mouse over a setting to see a quick explanation here.";

/// The mouse side of the hints of the options dialog and its pages: a mouse move over a
/// control makes that control's hint pending, and the hint is shown only once the mouse
/// has stayed for 500 milliseconds, so that crossing a control on the way to another
/// does not flash its hint. A move over the background makes the empty text pending,
/// which shows as the resting text. Keyboard focus shows hints at once and is the
/// owner's business.
///
/// The owner (a form or a user control) derives from this, names itself for the error
/// report, and says through ShowDelayedHint where a hint goes.
class DelayedHints {
 public:
  virtual ~DelayedHints();
  DelayedHints(const DelayedHints&) = delete;
  DelayedHints& operator=(const DelayedHints&) = delete;

 protected:
  /// `sClass` names the owner in reports ("FOptions" gives the source
  /// "Quillmark.FOptions.SetDelayedHint").
  explicit DelayedHints(std::string sClass);

  /// A mouse move at X, Y (in the coordinates of the control that reports it) asks for
  /// `Hint`: when the move counts (ShowDescription) and `Hint` is not already pending,
  /// it becomes the pending hint and the 500 millisecond wait starts afresh. The timer
  /// is made on first use. Failures are reported with the source
  /// "Quillmark.<class>.SetDelayedHint".
  void SetDelayedHint(float X, float Y, const std::string& Hint);
  /// Whether a move to X, Y counts: (-1, -1) always does; any other point only when it
  /// differs from the last point that counted, and it then becomes the last point.
  bool ShowDescription(float X, float Y);
  /// A move over the background: SetDelayedHint with the empty text.
  void ClearDescription(float X, float Y);
  /// Shows `hint` where the owner shows hints.
  virtual void ShowDelayedHint(const std::string& hint) = 0;

  /// The hint waiting for the timer; empty at first.
  std::string m_sPendingHint;
  /// The delayed-hint timer; none until first needed.
  platform::Ref<platform::suite::Ticklet> oTmrDelayedHint;

 private:
  /// The mouse has rested: the timer stops (one shot) and the pending hint, or the
  /// resting text when it is empty, is shown. Failures are passed over.
  void oTmrDelayedHint_ThatTime();

  std::string m_sClass;
  float m_sngLastX = 0;
  float m_sngLastY = 0;
};

}  // namespace annotra
