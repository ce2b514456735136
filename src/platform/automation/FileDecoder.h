#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace platform::automation {

/// Turns the bytes of a source file into UTF-8 text: by its byte-order mark (UTF-8,
/// UTF-16LE, UTF-16BE); without one, as UTF-8 when the bytes are valid UTF-8, else as
/// Windows-1252. The mark itself is not part of the text.
std::string DecodeText(std::string_view bytes);
/// The same, reusing the storage of `bytes` when they are UTF-8 already (with or
/// without a byte-order mark): no copy of a large file.
std::string DecodeOwnedText(std::string&& bytes);

/// The decoded text of the file at `path`. Fails with platform::Error 53 when the file
/// does not exist and 75 when it cannot be read.
std::string DecodeFile(const std::filesystem::path& path);

/// Whether `bytes` are valid UTF-8 (no overlong forms, no surrogates).
bool IsValidUtf8(std::string_view bytes);

}  // namespace platform::automation
