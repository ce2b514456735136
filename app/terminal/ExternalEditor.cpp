#include "terminal/ExternalEditor.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "terminal/Terminal.h"

extern char** environ;

namespace app::terminal {

std::vector<std::string> ExternalEditor::Split(const std::string& command) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  char quote = 0;
  for (size_t i = 0; i < command.size(); ++i) {
    char c = command[i];
    if (quote) {
      if (c == quote) quote = 0;
      else if (c == '\\' && quote == '"' && i + 1 < command.size()) word += command[++i];
      else word += c;
      continue;
    }
    if (c == ' ' || c == '\t' || c == '\n') {
      if (inWord) words.push_back(word), word.clear(), inWord = false;
      continue;
    }
    inWord = true;
    if (c == '\'' || c == '"') quote = c;
    else if (c == '\\' && i + 1 < command.size()) word += command[++i];
    else word += c;
  }
  if (inWord) words.push_back(word);
  return words;
}

std::string ExternalEditor::FromEnvironment() {
  for (const char* name : {"VISUAL", "EDITOR"})
    if (const char* v = std::getenv(name); v && *v) return v;
  return "vi";
}

std::vector<std::string> ExternalEditor::CommandLine(const std::string& command, const std::string& file, int line) {
  std::vector<std::string> words = Split(command);
  if (words.empty()) words.push_back("vi");
  std::string program = words.front();
  size_t slash = program.rfind('/');
  std::string name = slash == std::string::npos ? program : program.substr(slash + 1);
  if (line < 1) line = 1;
  if (name == "code" || name == "code-insiders" || name == "codium" || name == "code-oss") {
    words.push_back("-g");
    words.push_back(file + ":" + std::to_string(line));
  } else {
    // Appended: "+" + std::to_string(line) trips a false -Wrestrict in GCC 12 at -O2.
    words.push_back(std::string("+").append(std::to_string(line)));
    words.push_back(file);
  }
  return words;
}

int ExternalEditor::Run(Terminal& terminal, const std::vector<std::string>& commandLine, std::string& error) {
  if (commandLine.empty()) {
    error = "no editor";
    return -1;
  }
  std::vector<char*> argv;
  for (const std::string& w : commandLine) argv.push_back(const_cast<char*>(w.c_str()));
  argv.push_back(nullptr);

  // As system() does: the program ignores interrupts while the editor runs, and the
  // editor starts with them at their defaults.
  struct sigaction ignore {}, oldInt {}, oldQuit {};
  ignore.sa_handler = SIG_IGN;
  sigemptyset(&ignore.sa_mask);
  sigaction(SIGINT, &ignore, &oldInt);
  sigaction(SIGQUIT, &ignore, &oldQuit);
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  sigset_t defaults;
  sigemptyset(&defaults);
  sigaddset(&defaults, SIGINT);
  sigaddset(&defaults, SIGQUIT);
  posix_spawnattr_setsigdefault(&attr, &defaults);
  posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETSIGDEF);

  // The editor works on the terminal itself, whatever the program's own standard
  // streams were redirected to while the screen was up.
  // (Without a terminal to open, it keeps the program's streams.)
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  int tty = open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (tty >= 0)
    for (int fd : {0, 1, 2}) posix_spawn_file_actions_adddup2(&files, tty, fd);

  terminal.Suspend();
  pid_t pid = 0;
  int rc = posix_spawnp(&pid, argv[0], &files, &attr, argv.data(), environ);
  int status = -1;
  if (rc == 0) {
    int wstatus = 0;
    while (waitpid(pid, &wstatus, 0) < 0 && errno == EINTR) {
    }
    status = WIFEXITED(wstatus) ? WEXITSTATUS(wstatus) : 128 + (WIFSIGNALED(wstatus) ? WTERMSIG(wstatus) : 0);
  } else {
    error = "the editor '" + commandLine.front() + "' could not be started: " + std::strerror(rc);
  }
  terminal.Resume();
  if (tty >= 0) close(tty);
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attr);
  sigaction(SIGINT, &oldInt, nullptr);
  sigaction(SIGQUIT, &oldQuit, nullptr);
  return status;
}

}  // namespace app::terminal
