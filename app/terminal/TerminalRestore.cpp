#include "terminal/TerminalRestore.h"

#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>

// Sanitizers end the program from their own handlers; this callback runs first. It is
// there only when the program is built with a sanitizer.
extern "C" void __sanitizer_set_death_callback(void (*callback)(void)) __attribute__((weak));

namespace app::terminal::restore {

namespace {

// Everything a handler reads lives in fixed storage, written before the arming flag
// is set.
struct State {
  int fd = -1;
  termios saved{};
  char leave[512] = {};
  size_t leaveSize = 0;
  int stdoutCopy = -1;
  int stderrCopy = -1;
};
State g_state;
std::atomic<bool> g_armed{false};
std::terminate_handler g_previousTerminate = nullptr;

constexpr int kEndingSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

extern "C" void OnSignal(int sig) {
  Now();
  // The handler was installed to run once (SA_RESETHAND): raising again ends the
  // program by the default action, with a core where there would have been one.
  raise(sig);
}

extern "C" void AtExit() { Now(); }

extern "C" void OnSanitizerDeath() { Now(); }

void OnTerminate() {
  Now();
  if (g_previousTerminate) g_previousTerminate();
  std::abort();
}

void InstallHandlers() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  for (int sig : kEndingSignals) {
    // A signal the program was started to ignore stays ignored (a program run in the
    // background of a shell without job control ignores SIGINT and SIGQUIT).
    struct sigaction old {};
    if (sigaction(sig, nullptr, &old) == 0 && old.sa_handler == SIG_IGN) continue;
    struct sigaction sa {};
    sa.sa_handler = OnSignal;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESETHAND;
    sigaction(sig, &sa, nullptr);
  }
  std::atexit(AtExit);
  g_previousTerminate = std::set_terminate(OnTerminate);
  if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(OnSanitizerDeath);
}

}  // namespace

void Arm(int fd, const void* saved, size_t savedSize, const std::string& leave) {
  g_armed.store(false);
  g_state.fd = fd;
  std::memcpy(&g_state.saved, saved, savedSize < sizeof g_state.saved ? savedSize : sizeof g_state.saved);
  g_state.leaveSize = leave.size() < sizeof g_state.leave ? leave.size() : sizeof g_state.leave;
  std::memcpy(g_state.leave, leave.data(), g_state.leaveSize);
  InstallHandlers();
  g_armed.store(true);
}

void KeepOutputs(int stdoutCopy, int stderrCopy) {
  g_state.stdoutCopy = stdoutCopy;
  g_state.stderrCopy = stderrCopy;
}

void Now() {
  if (!g_armed.exchange(false)) return;
  if (g_state.leaveSize > 0) {
    ssize_t ignored = write(g_state.fd, g_state.leave, g_state.leaveSize);
    (void)ignored;
  }
  tcsetattr(g_state.fd, TCSAFLUSH, &g_state.saved);
  if (g_state.stdoutCopy >= 0) dup2(g_state.stdoutCopy, STDOUT_FILENO);
  if (g_state.stderrCopy >= 0) dup2(g_state.stderrCopy, STDERR_FILENO);
}

void Disarm() { g_armed.store(false); }

bool Armed() { return g_armed.load(); }

}  // namespace app::terminal::restore
