#pragma once
#include <string>
#include <vector>

namespace app::terminal {

class Terminal;

/// The person's own editor, opened at a line of a file: $VISUAL, else $EDITOR, else vi.
/// The variable may hold a command with arguments ("emacs -nw"), split at blanks and
/// quotes as a shell would split it. Editors are called as they take a line: "+LINE
/// FILE" for most (vi, vim, nano, emacs, micro, ...), "-g FILE:LINE" for VS Code and
/// its kin.
class ExternalEditor {
 public:
  /// The program and its arguments for `file` at `line`, from the editor command
  /// `command` ("" stands for vi).
  static std::vector<std::string> CommandLine(const std::string& command, const std::string& file, int line);
  /// The editor command of the environment ($VISUAL, $EDITOR, "vi").
  static std::string FromEnvironment();
  /// The words of a command, as sh splits them (blanks, single and double quotes,
  /// backslash).
  static std::vector<std::string> Split(const std::string& command);

  /// Runs the editor on the terminal (/dev/tty as its standard streams), which is given
  /// back to the shell while it runs and taken again after; the program waits for it. Interrupts typed while it runs
  /// are the editor's. Returns the editor's exit status; -1, with `error` set, when it
  /// could not be started.
  static int Run(Terminal& terminal, const std::vector<std::string>& commandLine, std::string& error);
};

}  // namespace app::terminal
