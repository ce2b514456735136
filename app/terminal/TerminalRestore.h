#pragma once
#include <string>

namespace app::terminal {

/// Puts the terminal back as the shell had it, on every way out of the program: a
/// normal exit (atexit), an exception nobody catches (the terminate handler), the
/// signals that end a program (SIGTERM, SIGINT, SIGHUP, SIGQUIT) and the fatal ones
/// (SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT), and a sanitizer's report. A signal is
/// raised again with its default action once the terminal is restored, so the program
/// ends as it would have.
///
/// Restoring only writes bytes the terminal was given when armed, puts the terminal's
/// saved settings back and puts back the output descriptors the host redirected, all of
/// which a signal handler may do. It happens once per arming.
namespace restore {

/// Arms the restore for the terminal open on `fd`: `saved` is its termios as the shell
/// left it (a `struct termios` copied byte for byte), `leave` the bytes that take it out
/// of the screen mode the host puts it in (leave the alternate screen, show the cursor,
/// stop mouse reports). Installs the handlers on first use.
void Arm(int fd, const void* saved, size_t savedSize, const std::string& leave);
/// The host redirected standard output and error: `stdoutCopy` and `stderrCopy` are
/// descriptors of the originals, put back on restore (-1: leave that one).
void KeepOutputs(int stdoutCopy, int stderrCopy);
/// Restores now, if armed (async-signal-safe).
void Now();
/// Forgets the arming without restoring (the host restored the terminal itself).
void Disarm();
/// Whether armed.
bool Armed();

}  // namespace restore
}  // namespace app::terminal
