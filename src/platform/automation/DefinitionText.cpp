#include "platform/automation/DefinitionText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/automation/FileDecoder.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {
constexpr size_t kMaxSize = size_t{64} << 20;
}  // namespace

std::string QuotedPath(const std::filesystem::path& path) {
  // Built by appending: "'" + path.string() trips a false -Wrestrict in GCC 12.
  std::string out(1, '\'');
  out += path.string();
  out += '\'';
  return out;
}

std::string DecodeKnownText(std::string_view bytes, const std::filesystem::path& path) {
  return DecodeKnownOwnedText(std::string(bytes), path);
}

std::string DecodeKnownOwnedText(std::string&& bytes, const std::filesystem::path& path) {
  std::string text = DecodeOwnedText(std::move(bytes));
  if (text.find('\0') != std::string::npos)
    throw Error(err::kInvalidCall, QuotedPath(path) +
                                       " is in an unknown encoding: it holds NUL characters "
                                       "(UTF-16 without a byte-order mark, UTF-32, or not text)");
  return text;
}

std::string ReadDefinitionText(const std::filesystem::path& path) {
  // One open, one fstat and the reads: the walk reads thousands of files, and each probe
  // more is a system call more. O_NONBLOCK keeps a pipe named like a source file from
  // blocking the open; it is then refused as no regular file.
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (fd < 0) {
    int error = errno;
    if (error == ENOENT || error == ENOTDIR)
      throw Error(err::kFileNotFound, QuotedPath(path) + " does not exist");
    throw Error(err::kPathFileAccess, QuotedPath(path) + " cannot be read: " + std::strerror(error));
  }
  struct Closer {
    int fd;
    ~Closer() { ::close(fd); }
  } closer{fd};
  struct stat st {};
  if (::fstat(fd, &st) != 0) throw Error(err::kPathFileAccess, QuotedPath(path) + " cannot be read: " + std::strerror(errno));
  // Only regular files are read: a pipe or device named like a project would block.
  if (!S_ISREG(st.st_mode)) throw Error(err::kPathFileAccess, QuotedPath(path) + " is not a file");
  if (static_cast<uint64_t>(st.st_size) > kMaxSize)
    throw Error(err::kPathFileAccess, QuotedPath(path) + " is too large to load");
  std::string bytes(static_cast<size_t>(st.st_size), '\0');
  size_t got = 0;
  for (;;) {
    // A file that grew since fstat is read to its end, and to one byte past the limit.
    if (got == bytes.size()) {
      if (got > kMaxSize) throw Error(err::kPathFileAccess, QuotedPath(path) + " is too large to load");
      bytes.resize(std::min<size_t>(kMaxSize + 1, bytes.size() + 4096));
    }
    ssize_t n = ::read(fd, bytes.data() + got, bytes.size() - got);
    if (n < 0) {
      if (errno == EINTR) continue;
      throw Error(err::kPathFileAccess, QuotedPath(path) + " cannot be read: " + std::strerror(errno));
    }
    if (n == 0) break;
    got += static_cast<size_t>(n);
    // The size fstat gave is read: no further call only to meet the end.
    if (got == static_cast<size_t>(st.st_size)) break;
  }
  if (got > kMaxSize) throw Error(err::kPathFileAccess, QuotedPath(path) + " is too large to load");
  bytes.resize(got);
  return DecodeKnownOwnedText(std::move(bytes), path);
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
