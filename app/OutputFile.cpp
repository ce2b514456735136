#include "OutputFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>

namespace app {

bool OutputFile::Open(const std::string& path, std::string& error) {
  m_path = path;
  if (path.empty()) return true;
  errno = 0;
  m_file.open(path, std::ios::binary | std::ios::trunc);
  if (!m_file) {
    error = path + ": " + (errno ? std::strerror(errno) : "cannot be made");
    return false;
  }
  return true;
}

std::ostream& OutputFile::stream() { return m_path.empty() ? std::cout : m_file; }

bool OutputFile::IsTerminal() const { return m_path.empty() && isatty(STDOUT_FILENO); }

std::string OutputFile::Where() const { return m_path.empty() ? "standard output" : m_path; }

bool OutputFile::Close(std::string& error) {
  errno = 0;
  if (m_path.empty()) {
    // std::cout writes through stdout's buffer: the failure shows when that is flushed.
    std::cout.flush();
    int why = errno;
    const int flushed = std::fflush(stdout);
    if (!why) why = errno;
    const bool written = std::cout.good() && flushed == 0 && !std::ferror(stdout);
    if (!written) error = Where() + ": " + (why ? std::strerror(why) : "cannot be written");
    return written;
  }
  m_file.flush();
  bool written = m_file.good();
  int why = errno;
  m_file.close();
  if (written && m_file.fail()) {
    written = false;
    why = errno;
  }
  if (!written) {
    error = Where() + ": " + (why ? std::strerror(why) : "cannot be written");
    std::error_code ec;
    if (std::filesystem::is_regular_file(m_path, ec)) std::filesystem::remove(m_path, ec);
  }
  return written;
}

}  // namespace app
