#include "platform/suite/PageViewer.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace platform::suite {

namespace {

std::shared_ptr<PageViewer>& Slot() {
  static std::shared_ptr<PageViewer> viewer = std::make_shared<DesktopPageViewer>();
  return viewer;
}

// Starts `program` with `path` detached from this process (a grandchild, so no child
// is left to reap); true when the program was found and started. A pipe closed on a
// successful exec tells whether it started.
bool Start(const std::string& program, const std::string& path) {
  int pipefd[2];
  if (pipe2(pipefd, O_CLOEXEC) != 0) return false;
  pid_t child = fork();
  if (child < 0) {
    close(pipefd[0]);
    close(pipefd[1]);
    return false;
  }
  if (child == 0) {
    setsid();
    pid_t grandchild = fork();
    if (grandchild != 0) _exit(grandchild < 0 ? 1 : 0);
    int devnull = open("/dev/null", O_RDWR);
    if (devnull >= 0) {
      dup2(devnull, 0);
      dup2(devnull, 1);
      dup2(devnull, 2);
    }
    execlp(program.c_str(), program.c_str(), path.c_str(), static_cast<char*>(nullptr));
    int error = errno;
    (void)!write(pipefd[1], &error, sizeof error);
    _exit(127);
  }
  close(pipefd[1]);
  int status = 0;
  waitpid(child, &status, 0);
  int error = 0;
  ssize_t got = read(pipefd[0], &error, sizeof error);
  close(pipefd[0]);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 && got == 0;
}

}  // namespace

PageViewer& PageViewer::Current() { return *Slot(); }

std::shared_ptr<PageViewer> PageViewer::Install(std::shared_ptr<PageViewer> viewer) {
  auto previous = Slot();
  Slot() = viewer ? std::move(viewer) : std::make_shared<DesktopPageViewer>();
  return previous;
}

std::vector<std::string> PageViewer::UsersBrowsers() {
  std::vector<std::string> browsers;
  const char* list = std::getenv("BROWSER");
  if (!list) return browsers;
  for (const char* begin = list;;) {
    const char* end = std::strchr(begin, ':');
    std::string entry = end ? std::string(begin, end) : std::string(begin);
    if (!entry.empty()) browsers.push_back(std::move(entry));
    if (!end) return browsers;
    begin = end + 1;
  }
}

bool DesktopPageViewer::Open(const std::string& path) {
  for (const std::string& program : UsersBrowsers())
    if (Start(program, path)) return true;
  // Without a display there is nothing to show a page on.
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) return false;
  return Start("xdg-open", path);
}

}  // namespace platform::suite
