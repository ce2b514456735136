#pragma once
#include <fstream>
#include <ostream>
#include <string>

namespace app {

/// Where a command's output goes: standard output, or the file that --output names.
/// Failures are kept until Close, which says whether everything written arrived.
class OutputFile {
 public:
  /// Output to standard output when `path` is "", else to the file `path` (made, or
  /// emptied). False, with `error` set ("<path>: why"), when the file cannot be made.
  bool Open(const std::string& path, std::string& error);
  std::ostream& stream();
  /// Whether the output goes to a terminal.
  bool IsTerminal() const;
  /// Flushes and closes. False, with `error` set, when anything could not be written
  /// (a full device, a closed pipe, a full disk); a file that was not written whole is
  /// removed, so a half output is never taken for a whole one.
  bool Close(std::string& error);
  /// Where the output goes, for messages: the file's path or "standard output".
  std::string Where() const;

 private:
  std::string m_path;
  std::ofstream m_file;
};

}  // namespace app
