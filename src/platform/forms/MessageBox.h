#pragma once
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace platform::forms {

/// Buttons, icons and default button of a message box, combined by adding.
enum MsgBoxStyle : int {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbCritical = 16,
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
  vbDefaultButton2 = 256,
};

/// The button a message box was closed with.
enum MsgBoxResult : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

/// The answer a box gives when nobody can be asked: its default button.
int DefaultAnswer(int style);

/// Shows message boxes to the user on behalf of the host.
class MessageBoxPresenter {
 public:
  virtual ~MessageBoxPresenter() = default;
  virtual int Show(const std::string& prompt, int style, const std::string& title) = 0;

  /// The presenter in use (ConsoleMessageBoxes until another is installed).
  static MessageBoxPresenter& Current();
  static std::shared_ptr<MessageBoxPresenter> Install(std::shared_ptr<MessageBoxPresenter> p);
};

/// Shows a message box through the presenter in use and returns the button chosen.
int MsgBox(const std::string& prompt, int style, const std::string& title);

/// The command line's message boxes: a line on standard error; a question (more than one
/// button) is asked on the terminal when standard input is one, else answered with its
/// default button.
class ConsoleMessageBoxes : public MessageBoxPresenter {
 public:
  int Show(const std::string& prompt, int style, const std::string& title) override;
};

/// Message boxes for tests: records each box and answers from a queue of answers, with
/// the box's default button once the queue is empty.
class ScriptedMessageBoxes : public MessageBoxPresenter {
 public:
  struct Shown {
    std::string prompt;
    int style;
    std::string title;
  };
  int Show(const std::string& prompt, int style, const std::string& title) override;

  std::deque<int> answers;
  std::vector<Shown> shown;
};

/// Installs a presenter for the life of the object and puts the previous one back after.
class ScopedMessageBoxes {
 public:
  explicit ScopedMessageBoxes(std::shared_ptr<MessageBoxPresenter> p)
      : m_previous(MessageBoxPresenter::Install(std::move(p))) {}
  ~ScopedMessageBoxes() { MessageBoxPresenter::Install(m_previous); }
  ScopedMessageBoxes(const ScopedMessageBoxes&) = delete;
  ScopedMessageBoxes& operator=(const ScopedMessageBoxes&) = delete;

 private:
  std::shared_ptr<MessageBoxPresenter> m_previous;
};

}  // namespace platform::forms
