#include "analysis/CStatus.h"

#include "host/MGlobals.h"
#include "host/Steps.h"
#include "platform/suite/ProgressObject.h"

namespace annotra {

void CStatus::InitStatus(int32_t Max, const std::string& Label) {
  Steps step("Quillmark.CStatus.InitStatus");
  step(1, [&] { m_oProgress = std::make_shared<platform::suite::ProgressObject>(); });
  step(2, [&] { m_oProgress->Start(MGlobals::DTEObject, Max < 0 ? 0 : Max, Label); });
}

void CStatus::ShutdownStatus() {
  Steps step("Quillmark.CStatus.ShutdownStatus");
  if (!m_oProgress) return;
  step(1, [&] { m_oProgress->Finish(); });
  m_oProgress.reset();
}

void CStatus::IncrementStatus(int32_t Step, const std::string& Label) {
  Steps step("Quillmark.CStatus.IncrementStatus");
  if (!m_oProgress) return;
  step(1, [&] { m_oProgress->Step(Step, Label); });
}

void CStatus::SetText(const std::string& sText) {
  Steps step("Quillmark.CStatus.SetText");
  step(1, [&] { m_oProgress->SetText(sText); });
}

}  // namespace annotra
