#pragma once
// The `annotra` program run as a user runs it, for the tests of app/: arguments, the
// folder it runs in, its environment, standard output and standard error kept apart,
// and its exit status or the signal that ended it. For tests only.

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "testsupport/TempDir.h"

namespace apptest {

/// How to run the program once.
struct Invocation {
  std::vector<std::string> args;
  std::filesystem::path cwd = ".";
  /// Variables to set (a value) or unset (none), over the test's own environment.
  std::map<std::string, std::optional<std::string>> env = {};
  /// Where standard output goes; "" for a file of the runner, read back into `out`.
  std::string stdoutPath = "";
  /// Standard input; /dev/null unless given.
  std::string stdinPath = "/dev/null";
};

/// What a run gave.
struct Outcome {
  int status = -1;   ///< the exit status; -1 when a signal ended the program
  int signal = 0;    ///< the signal that ended it; 0 when it exited
  std::string out;   ///< standard output (when not sent elsewhere)
  std::string err;   ///< standard error
};

/// A run in progress.
class Running {
 public:
  explicit Running(const Invocation& how) : m_toFile(how.stdoutPath.empty()) {
    const std::string outPath = how.stdoutPath.empty() ? (m_dir.path() / "out").string() : how.stdoutPath;
    const std::string errPath = (m_dir.path() / "err").string();
    m_pid = fork();
    if (m_pid != 0) return;
    // The child: nothing but async-signal-safe calls would be strict; the test process
    // is single-threaded here, so plain calls are fine.
    int in = open(how.stdinPath.c_str(), O_RDONLY);
    int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (in < 0 || out < 0 || err < 0) _exit(120);
    dup2(in, 0);
    dup2(out, 1);
    dup2(err, 2);
    if (chdir(how.cwd.c_str()) != 0) _exit(121);
    for (const auto& [name, value] : how.env) {
      if (value) setenv(name.c_str(), value->c_str(), 1);
      else unsetenv(name.c_str());
    }
    std::vector<char*> argv;
    std::string program = ANNOTRA_BINARY;
    argv.push_back(program.data());
    std::vector<std::string> args = how.args;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    _exit(122);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    if (m_pid > 0 && !m_waited) {
      kill(m_pid, SIGKILL);
      waitpid(m_pid, nullptr, 0);
    }
  }

  pid_t pid() const { return m_pid; }

  /// Waits for the end of the run.
  Outcome Wait() {
    Outcome o;
    int raw = 0;
    waitpid(m_pid, &raw, 0);
    m_waited = true;
    if (WIFEXITED(raw)) o.status = WEXITSTATUS(raw);
    if (WIFSIGNALED(raw)) o.signal = WTERMSIG(raw);
    if (m_toFile) o.out = testsupport::ReadFile(m_dir.path() / "out");
    o.err = testsupport::ReadFile(m_dir.path() / "err");
    return o;
  }

 private:
  testsupport::TempDir m_dir;
  bool m_toFile;
  pid_t m_pid = -1;
  bool m_waited = false;
};

/// Runs the program to its end.
inline Outcome RunAnnotra(const Invocation& how) {
  Running running(how);
  return running.Wait();
}

/// The lines of `text`.
inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

/// Every file below `folder` with its size and time of last change, one a line: what a
/// run that must change nothing must leave as it was.
inline std::string Snapshot(const std::filesystem::path& folder) {
  std::string s;
  std::error_code ec;
  if (!std::filesystem::exists(folder, ec)) return "(none)";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, ec)) {
    s += std::filesystem::relative(entry.path(), folder).string();
    if (entry.is_regular_file(ec))
      s += " " + std::to_string(entry.file_size(ec)) + " " +
           std::to_string(entry.last_write_time(ec).time_since_epoch().count());
    s += "\n";
  }
  return s;
}

}  // namespace apptest
