#include "options/DelayedHints.h"

#include "host/Steps.h"
#include "platform/suite/Ticklet.h"

namespace annotra {

namespace {
constexpr int kDelayMilliseconds = 500;
}  // namespace

DelayedHints::DelayedHints(std::string sClass) : m_sClass(std::move(sClass)) {}

DelayedHints::~DelayedHints() = default;

void DelayedHints::SetDelayedHint(float X, float Y, const std::string& Hint) {
  Steps step("Quillmark." + m_sClass + ".SetDelayedHint");
  bool counts = false;
  step(1, [&] { counts = ShowDescription(X, Y) && Hint != m_sPendingHint; });
  if (!counts) return;
  m_sPendingHint = Hint;
  step(3, [&] {
    if (oTmrDelayedHint) return;
    oTmrDelayedHint = std::make_shared<platform::suite::Ticklet>();
    oTmrDelayedHint->ThatTime.Connect([this] { oTmrDelayedHint_ThatTime(); });
  });
  step(4, [&] {
    oTmrDelayedHint->SetInterval(0);
    oTmrDelayedHint->SetInterval(kDelayMilliseconds);
  });
}

bool DelayedHints::ShowDescription(float X, float Y) {
  if (X == -1 && Y == -1) return true;
  if (X == m_sngLastX && Y == m_sngLastY) return false;
  m_sngLastX = X;
  m_sngLastY = Y;
  return true;
}

void DelayedHints::ClearDescription(float X, float Y) { SetDelayedHint(X, Y, ""); }

void DelayedHints::oTmrDelayedHint_ThatTime() {
  Quietly([&] { oTmrDelayedHint->SetInterval(0); });
  Quietly([&] { ShowDelayedHint(m_sPendingHint.empty() ? kRestingHint : m_sPendingHint); });
}

}  // namespace annotra
