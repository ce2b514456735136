#include "platform/automation/DefinitionText.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>

#include "platform/automation/FileDecoder.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {
constexpr std::uintmax_t kMaxSize = 64u << 20;
}  // namespace

std::string QuotedPath(const std::filesystem::path& path) {
  // Built by appending: "'" + path.string() trips a false -Wrestrict in GCC 12.
  std::string out(1, '\'');
  out += path.string();
  out += '\'';
  return out;
}

std::string DecodeKnownText(std::string_view bytes, const std::filesystem::path& path) {
  std::string text = DecodeText(bytes);
  if (text.find('\0') != std::string::npos)
    throw Error(err::kInvalidCall, QuotedPath(path) +
                                       " is in an unknown encoding: it holds NUL characters "
                                       "(UTF-16 without a byte-order mark, UTF-32, or not text)");
  return text;
}

std::string ReadDefinitionText(const std::filesystem::path& path) {
  std::error_code ec;
  auto status = std::filesystem::status(path, ec);
  if (!std::filesystem::exists(status))
    throw Error(err::kFileNotFound, QuotedPath(path) + " does not exist");
  // Only regular files are read: a pipe or device named like a project would block.
  if (!std::filesystem::is_regular_file(status))
    throw Error(err::kPathFileAccess, QuotedPath(path) + " is not a file");
  auto size = std::filesystem::file_size(path, ec);
  if (!ec && size > kMaxSize) throw Error(err::kPathFileAccess, QuotedPath(path) + " is too large to load");
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Error(err::kPathFileAccess, QuotedPath(path) + " cannot be read: " + std::strerror(errno));
  std::ostringstream ss;
  ss << in.rdbuf();
  if (in.bad()) throw Error(err::kPathFileAccess, QuotedPath(path) + " cannot be read");
  return DecodeKnownText(ss.str(), path);
}

std::unique_ptr<pugi::xml_document> ParseDefinitionXml(const std::string& text,
                                                       const std::filesystem::path& path) {
  auto doc = std::make_unique<pugi::xml_document>();
  auto result = doc->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!result) {
    auto offset = static_cast<size_t>(std::max<ptrdiff_t>(result.offset, 0));
    size_t line = 1;
    for (size_t i = 0; i < offset && i < text.size(); ++i)
      if (text[i] == '\n') ++line;
    throw Error(err::kInvalidCall, QuotedPath(path) + " is not well-formed XML: line " +
                                       std::to_string(line) + ": " + result.description());
  }
  return doc;
}

std::unique_ptr<pugi::xml_document> ReadDefinitionXml(const std::filesystem::path& path) {
  return ParseDefinitionXml(ReadDefinitionText(path), path);
}

}  // namespace platform::automation
