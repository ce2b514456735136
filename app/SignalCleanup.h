#pragma once
#include <string>

namespace app::signals {

/// Installs, once per process, handlers of SIGTERM and SIGINT (and of SIGHUP and SIGPIPE,
/// a closed terminal or pipe) that remove the file named
/// by SetCleanupFile (the temporary results database) and then end the program as the
/// signal would have. While a WalkInProgress lives, SIGINT goes instead to the handler
/// that was there before (the keyboard's, which makes it Ctrl+C for the walk's question).
/// Install after the keyboard.
void InstallCleanup();

/// Names the file the handlers remove; "" for none. The name is copied into storage
/// of the handlers' own, so the handler itself only unlinks.
void SetCleanupFile(const std::string& path);
/// The file was removed by its owner: the handlers remove nothing.
void ForgetCleanupFile();

/// While alive, SIGINT is the walk's Ctrl+C instead of the end of the program.
class WalkInProgress {
 public:
  WalkInProgress();
  ~WalkInProgress();
  WalkInProgress(const WalkInProgress&) = delete;
  WalkInProgress& operator=(const WalkInProgress&) = delete;
};

/// While alive, those signals wait: what is done meanwhile (making a file and
/// naming it for the handlers) is done whole before they are handled.
class BlockedSignals {
 public:
  BlockedSignals();
  ~BlockedSignals();
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  unsigned long m_saved[128 / sizeof(unsigned long)];  // the previous sigset_t
};

}  // namespace app::signals
