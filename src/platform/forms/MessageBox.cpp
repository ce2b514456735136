#include "platform/forms/MessageBox.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string>

#include "platform/core/StderrLine.h"

namespace platform::forms {
namespace {
std::shared_ptr<MessageBoxPresenter>& Slot() {
  static std::shared_ptr<MessageBoxPresenter> p = std::make_shared<ConsoleMessageBoxes>();
  return p;
}

int Buttons(int style) { return style & 7; }
}  // namespace

int DefaultAnswer(int style) {
  bool second = (style & vbDefaultButton2) != 0;
  switch (Buttons(style)) {
    case vbOKCancel: return second ? vbCancel : vbOK;
    case vbYesNo: return second ? vbNo : vbYes;
    case vbYesNoCancel: return second ? vbNo : vbYes;
    default: return vbOK;
  }
}

MessageBoxPresenter& MessageBoxPresenter::Current() { return *Slot(); }

std::shared_ptr<MessageBoxPresenter> MessageBoxPresenter::Install(
    std::shared_ptr<MessageBoxPresenter> p) {
  auto previous = Slot();
  Slot() = p ? std::move(p) : std::make_shared<ConsoleMessageBoxes>();
  return previous;
}

int MsgBox(const std::string& prompt, int style, const std::string& title) {
  return MessageBoxPresenter::Current().Show(prompt, style, title);
}

int ConsoleMessageBoxes::Show(const std::string& prompt, int style, const std::string& title) {
  // A progress line drawn in place stays above the message, which starts a line of its own.
  stderr_line::End();
  std::fprintf(stderr, "%s: %s\n", title.c_str(), prompt.c_str());
  int buttons = Buttons(style);
  if (buttons == vbOKOnly) return vbOK;
  int answer = DefaultAnswer(style);
  if (!isatty(STDIN_FILENO)) return answer;
  bool yesNo = buttons == vbYesNo || buttons == vbYesNoCancel;
  std::fprintf(stderr, yesNo ? "[y/n] (default %s) " : "[o/c] (default %s) ",
               answer == vbYes ? "y" : answer == vbNo ? "n" : answer == vbOK ? "o" : "c");
  std::fflush(stderr);
  std::string line;
  if (!std::getline(std::cin, line) || line.empty()) return answer;
  char c = static_cast<char>(line[0] | 0x20);
  if (yesNo) return c == 'y' ? vbYes : c == 'n' ? vbNo : answer;
  return c == 'o' ? vbOK : c == 'c' ? vbCancel : answer;
}

int ScriptedMessageBoxes::Show(const std::string& prompt, int style, const std::string& title) {
  shown.push_back({prompt, style, title});
  if (answers.empty()) return DefaultAnswer(style);
  int a = answers.front();
  answers.pop_front();
  return a;
}

}  // namespace platform::forms
