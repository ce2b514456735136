#include "SignalCleanup.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstring>

#include "platform/core/StderrLine.h"

namespace app::signals {
namespace {

static_assert(sizeof(sigset_t) <= 128, "the saved signal mask must fit");

// Read by the handlers: only lock-free atomics and a buffer written while the signals
// are blocked.
std::atomic<bool> g_walking{false};
std::atomic<bool> g_haveFile{false};
char g_file[4096];
struct sigaction g_keyboardInt {};

extern "C" void OnEndingSignal(int signal) {
  if (signal == SIGINT && g_walking.load()) {
    void (*keyboard)(int) = g_keyboardInt.sa_handler;
    if (keyboard != SIG_DFL && keyboard != SIG_IGN) {
      keyboard(signal);
      return;
    }
  }
  if (g_haveFile.load()) ::unlink(g_file);
  // A progress line drawn in place would be glued to the shell's prompt.
  if (platform::stderr_line::IsOpen()) {
    [[maybe_unused]] ssize_t n = ::write(STDERR_FILENO, "\n", 1);
  }
  struct sigaction fallback {};
  fallback.sa_handler = SIG_DFL;
  sigemptyset(&fallback.sa_mask);
  ::sigaction(signal, &fallback, nullptr);
  ::raise(signal);
}

sigset_t EndingSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) sigaddset(&set, signal);
  return set;
}

}  // namespace

void InstallCleanup() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  struct sigaction action {};
  action.sa_handler = OnEndingSignal;
  sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, &g_keyboardInt);
  // A closed terminal and a closed pipe end the program as well.
  for (int signal : {SIGTERM, SIGHUP, SIGPIPE}) ::sigaction(signal, &action, nullptr);
}

void SetCleanupFile(const std::string& path) {
  BlockedSignals blocked;
  g_haveFile.store(false);
  if (path.empty() || path.size() >= sizeof g_file) return;
  std::memcpy(g_file, path.c_str(), path.size() + 1);
  g_haveFile.store(true);
}

void ForgetCleanupFile() { g_haveFile.store(false); }

WalkInProgress::WalkInProgress() { g_walking.store(true); }
WalkInProgress::~WalkInProgress() { g_walking.store(false); }

BlockedSignals::BlockedSignals() {
  sigset_t set = EndingSignals();
  sigset_t saved;
  ::sigprocmask(SIG_BLOCK, &set, &saved);
  std::memcpy(m_saved, &saved, sizeof saved);
}

BlockedSignals::~BlockedSignals() {
  sigset_t saved;
  std::memcpy(&saved, m_saved, sizeof saved);
  ::sigprocmask(SIG_SETMASK, &saved, nullptr);
}

}  // namespace app::signals
