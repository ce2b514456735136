#pragma once
#include <cstdio>
#include <string>

namespace app::terminal {

/// Keeps what the program writes to its standard output and error while the screen is
/// up (reports, help, messages of the libraries), so that it does not tear the screen:
/// both go to a temporary file, from which the host takes what is new to show it, and
/// everything kept is written to the real standard error when the capture ends, so
/// nothing is lost. A crash puts the real descriptors back (TerminalRestore), so its
/// report reaches the terminal.
class OutputCapture {
 public:
  /// Starts capturing; does nothing (Active() false) when no temporary file can be made.
  OutputCapture();
  /// Stops, and writes what was captured to the real standard error.
  ~OutputCapture();
  OutputCapture(const OutputCapture&) = delete;
  OutputCapture& operator=(const OutputCapture&) = delete;

  bool Active() const { return m_file != nullptr; }
  /// What was written since the last call.
  std::string TakeNew();
  /// Everything written so far.
  std::string All() const;

 private:
  std::FILE* m_file = nullptr;
  int m_stdout = -1;
  int m_stderr = -1;
  long m_read = 0;
};

}  // namespace app::terminal
