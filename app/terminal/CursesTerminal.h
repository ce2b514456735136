#pragma once
#include <deque>
#include <memory>
#include <string>

#include "terminal/Terminal.h"

namespace app::terminal {

/// The terminal the program runs on, through ncurses (wide characters): opened on
/// /dev/tty, so the program's own standard output and error may go elsewhere while the
/// screen is up. Raw keys (Ctrl+C is a key, not a signal), the keypad, the mouse with
/// every motion reported (the xterm any-event mode), colours when the terminal has
/// them, and the alternate screen. The terminal is restored when the object goes away
/// and, through TerminalRestore, on every other way out.
class CursesTerminal : public Terminal {
 public:
  /// Opens the terminal; throws std::runtime_error when there is none (no /dev/tty,
  /// or a terminal type ncurses does not know).
  CursesTerminal();
  ~CursesTerminal() override;
  CursesTerminal(const CursesTerminal&) = delete;
  CursesTerminal& operator=(const CursesTerminal&) = delete;

  int Columns() const override;
  int Rows() const override;
  bool Unicode() const override { return m_unicode; }
  void Clear() override;
  void Put(int x, int y, std::string_view text, const Style& style) override;
  void SetCursor(int x, int y, bool visible) override;
  void Flush() override;
  InputEvent Read(int timeoutMs) override;
  void Suspend() override;
  void Resume() override;

  /// The descriptor of the terminal (for reading pending keys without waiting).
  int Descriptor() const { return m_fd; }

 private:
  struct Impl;
  void EnterMouseMode();
  void LeaveMouseMode();
  InputEvent Translate(int status, unsigned key);

  std::unique_ptr<Impl> m_impl;
  std::deque<InputEvent> m_queued;  // the rest of what one report stood for
  int m_fd = -1;
  bool m_unicode = false;
  bool m_colors = false;
  bool m_suspended = false;
  int m_cursorX = 0, m_cursorY = 0;
  bool m_cursorVisible = false;
};

}  // namespace app::terminal
