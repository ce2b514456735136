#pragma once
#include <memory>

#include "platform/core/Ref.h"

namespace platform::forms {
class Form;
}

namespace platform::suite {

class SettingsStore;

/// The suite's form helper: keeps a form's place (and, when asked, its size) in the
/// per-user settings store, section "Forms\<form name>". A form hands itself over when
/// it loads, which puts it where it was, and again when it unloads, which remembers
/// where it is.
class FormHelper : public Dispatch {
 public:
  const char* TypeName() const override { return "FormHelper"; }

  /// Takes the settings store; `withSize` keeps the size as well as the place.
  void Init(std::shared_ptr<SettingsStore> settings, bool withSize);
  /// The first hand-over of a form restores its place; each later one stores it.
  /// Values that cannot be read leave the form as it is; a store that cannot be
  /// written fails with its error.
  void HandForm(forms::Form& form);

 private:
  std::shared_ptr<SettingsStore> m_settings;
  bool m_withSize = false;
  const forms::Form* m_restored = nullptr;
};

}  // namespace platform::suite
