#include "RunOutput.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "OutputFile.h"
#include "platform/core/Error.h"

namespace app {

namespace fs = std::filesystem;

size_t TerminalWidth() {
  if (!isatty(STDOUT_FILENO)) return 0;
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  if (const char* columns = std::getenv("COLUMNS")) {
    int n = std::atoi(columns);
    if (n > 0) return static_cast<size_t>(n);
  }
  return 80;
}

std::string CheckFileFolder(const std::string& path, const std::string& what) {
  fs::path folder = fs::path(path).parent_path();
  if (folder.empty()) folder = ".";
  std::error_code ec;
  if (!fs::is_directory(folder, ec)) return what + " cannot be written to <" + path + ">: no folder " + folder.string();
  return "";
}

std::string WriteRunOutput(std::ostream& out, const std::optional<std::string>& outputPath, FindingSource& findings,
                           OutputFormat format, const OutputContext& context) {
  OutputFile output;
  std::string error;
  if (!output.Open(outputPath.value_or(""), error)) return "the output cannot be written to " + error;
  std::ostream& stream = outputPath ? output.stream() : out;
  int writeErrno = 0;  // why the first failing write failed, which later calls may forget
  errno = 0;
  try {
    if (!WriteFindings(stream, findings, format, context)) writeErrno = errno;
  } catch (const platform::Error& e) {
    output.Close(error);
    return "the findings cannot be read from the results database: " + e.description;
  }
  stream.flush();
  const bool streamGood = static_cast<bool>(stream);
  if (!output.Close(error) || !streamGood) {
    if (error.empty() || (writeErrno && error.ends_with("cannot be written")))
      error = output.Where() + ": " + (writeErrno ? std::strerror(writeErrno) : "cannot be written");
    return "the output cannot be written to " + error;
  }
  return "";
}

}  // namespace app
