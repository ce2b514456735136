#include "platform/suite/Help.h"

#include <filesystem>

namespace platform::suite {

bool Help::ShowHelp(const std::string& topic) {
  namespace fs = std::filesystem;
  fs::path relative(topic);
  bool inside = !topic.empty() && relative.is_relative();
  for (const auto& part : relative)
    if (part == "..") inside = false;
  fs::path page = fs::path(m_folder) / relative;
  std::error_code ec;
  if (inside && fs::is_regular_file(page, ec)) {
    m_out << "Help: " << page.lexically_normal().string() << "\n";
    return true;
  }
  m_out << "Help topic not found: " << page.lexically_normal().string() << "\n";
  return false;
}

}  // namespace platform::suite
