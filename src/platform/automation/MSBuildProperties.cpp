#include "platform/automation/MSBuildProperties.h"

#include "platform/automation/FileGlob.h"

namespace platform::automation {

const std::string& MSBuildProperties::Get(std::string_view name) const {
  static const std::string empty;
  auto it = m_values.find(LowerAscii(name));
  return it == m_values.end() ? empty : it->second;
}

bool MSBuildProperties::Has(std::string_view name) const {
  return m_values.count(LowerAscii(name)) != 0;
}

void MSBuildProperties::Set(std::string_view name, std::string value) {
  auto key = LowerAscii(name);
  if (m_global.count(key)) return;
  m_values[key] = std::move(value);
}

void MSBuildProperties::SetGlobal(std::string_view name, std::string value) {
  auto key = LowerAscii(name);
  m_global.insert(key);
  m_values[key] = std::move(value);
}

bool MSBuildProperties::IsGlobal(std::string_view name) const {
  return m_global.count(LowerAscii(name)) != 0;
}

std::string MSBuildUnescape(std::string_view text) {
  auto hex = [](char c) -> int {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
  };
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && hex(text[i + 1]) >= 0 && hex(text[i + 2]) >= 0) {
      out += static_cast<char>(hex(text[i + 1]) * 16 + hex(text[i + 2]));
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::vector<std::string> SplitMSBuildList(std::string_view text) {
  std::vector<std::string> out;
  size_t i = 0;
  while (i <= text.size()) {
    size_t j = text.find(';', i);
    if (j == std::string_view::npos) j = text.size();
    auto part = text.substr(i, j - i);
    size_t a = part.find_first_not_of(" \t\r\n");
    size_t b = part.find_last_not_of(" \t\r\n");
    if (a != std::string_view::npos) out.emplace_back(part.substr(a, b - a + 1));
    i = j + 1;
  }
  return out;
}

}  // namespace platform::automation
