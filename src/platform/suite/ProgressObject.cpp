#include "platform/suite/ProgressObject.h"

#include "platform/automation/DTE.h"
#include "platform/automation/StatusBar.h"
#include "platform/core/Error.h"

namespace platform::suite {

void ProgressObject::Start(const Ref<automation::DTE>& dte, int32_t maximum,
                           const std::string& label) {
  if (maximum < 0) throw Error(err::kInvalidCall);
  m_statusBar = dte->StatusBar();
  m_maximum = maximum;
  m_done = 0;
  m_statusBar->Progress(true, label, 0, maximum);
}

void ProgressObject::Step(int32_t step, const std::string& label) {
  // A walk may step past its estimate (items added meanwhile); the display stays full.
  m_done += step;
  m_statusBar->Progress(true, label, m_done < m_maximum ? m_done : m_maximum, m_maximum);
}

void ProgressObject::SetText(const std::string& text) { m_statusBar->SetText(text); }

void ProgressObject::Finish() {
  if (m_statusBar) m_statusBar->Progress(false);
  m_statusBar.reset();
}

}  // namespace platform::suite
