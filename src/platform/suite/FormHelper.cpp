#include "platform/suite/FormHelper.h"

#include "platform/core/Error.h"
#include "platform/core/Variant.h"
#include "platform/forms/Form.h"
#include "platform/suite/SettingsStore.h"

namespace platform::suite {

void FormHelper::Init(std::shared_ptr<SettingsStore> settings, bool withSize) {
  m_settings = std::move(settings);
  m_withSize = withSize;
  m_restored = nullptr;
}

void FormHelper::HandForm(forms::Form& form) {
  if (!m_settings) throw Error(err::kObjectNotSet);
  const std::string section = "Forms\\" + form.Name();
  struct Slot {
    const char* key;
    int* value;
    bool size;
  } slots[] = {{"Left", &form.Left, false},
               {"Top", &form.Top, false},
               {"Width", &form.Width, true},
               {"Height", &form.Height, true}};
  if (m_restored != &form) {
    m_restored = &form;
    for (const auto& s : slots) {
      if (s.size && !m_withSize) continue;
      Variant v = m_settings->Read(section, s.key, Variant());
      if (v.IsEmpty()) continue;
      try {
        *s.value = ToInt32(v);
      } catch (const Error&) {
        // A value that is no number leaves the form where it is.
      }
    }
    return;
  }
  for (const auto& s : slots) {
    if (s.size && !m_withSize) continue;
    m_settings->Write(section, s.key, *s.value);
  }
}

}  // namespace platform::suite
