#include "terminal/OutputCapture.h"

#include <fcntl.h>
#include <unistd.h>

#include <iostream>

#include "terminal/TerminalRestore.h"

namespace app::terminal {

namespace {
std::string ReadFrom(std::FILE* file, long offset) {
  std::string out;
  char buffer[4096];
  for (;;) {
    ssize_t n = pread(fileno(file), buffer, sizeof buffer, offset);
    if (n <= 0) break;
    out.append(buffer, static_cast<size_t>(n));
    offset += n;
  }
  return out;
}
}  // namespace

OutputCapture::OutputCapture() {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(stdout);
  std::fflush(stderr);
  m_file = std::tmpfile();
  if (!m_file) return;
  m_stdout = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
  m_stderr = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
  restore::KeepOutputs(m_stdout, m_stderr);
  dup2(fileno(m_file), STDOUT_FILENO);
  dup2(fileno(m_file), STDERR_FILENO);
}

OutputCapture::~OutputCapture() {
  if (!m_file) return;
  std::cout.flush();
  std::cerr.flush();
  std::fflush(stdout);
  std::fflush(stderr);
  if (m_stdout >= 0) dup2(m_stdout, STDOUT_FILENO);
  if (m_stderr >= 0) dup2(m_stderr, STDERR_FILENO);
  restore::KeepOutputs(-1, -1);
  std::string rest = ReadFrom(m_file, 0);
  if (!rest.empty()) {
    ssize_t ignored = write(STDERR_FILENO, rest.data(), rest.size());
    (void)ignored;
  }
  if (m_stdout >= 0) close(m_stdout);
  if (m_stderr >= 0) close(m_stderr);
  std::fclose(m_file);
}

std::string OutputCapture::TakeNew() {
  if (!m_file) return "";
  std::cout.flush();
  std::cerr.flush();
  std::fflush(stdout);
  std::fflush(stderr);
  std::string s = ReadFrom(m_file, m_read);
  m_read += static_cast<long>(s.size());
  return s;
}

std::string OutputCapture::All() const { return m_file ? ReadFrom(m_file, 0) : ""; }

}  // namespace app::terminal
