#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"

namespace app::terminal {

/// A message box as a form: the prompt (wrapped, with the mark of its icon), and the
/// buttons of its style ("&OK", "&Cancel", "&Yes", "&No") centred below, the default
/// one focused. Escape and the close box give the answer of Cancel; a box without a
/// Cancel button gives No (yes/no questions) or OK.
class FMessageBox : public platform::forms::Form {
 public:
  /// The widest a prompt's line is allowed (cells).
  static constexpr int kMaxTextWidth = 60;

  FMessageBox(const std::string& prompt, int style, const std::string& title);
  ~FMessageBox() override;

  /// The button the box was closed with (a MsgBoxResult).
  int Answer() const { return m_answer; }

  platform::forms::Label lblIcon{*this, "lblIcon"};
  platform::forms::Label lblPrompt{*this, "lblPrompt"};
  std::vector<std::unique_ptr<platform::forms::CommandButton>> buttons;

 protected:
  void Form_Activate() override;
  void Form_QueryUnload(int& cancel, int unloadMode) override;

 private:
  int m_answer;
  int m_cancelAnswer;
  platform::forms::CommandButton* m_default = nullptr;
};

}  // namespace app::terminal
