#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace platform::automation {

/// The decoded text (UTF-8) of a solution, project or other file the loader reads,
/// decoded as source files are (byte-order mark, else UTF-8 when valid, else
/// Windows-1252). Fails with platform::Error, the message naming the file:
/// 53 when it does not exist; 75 when it is no regular file, cannot be read or is
/// larger than 64 MiB; 5 when it is in an unknown encoding (see DecodeKnownText).
std::string ReadDefinitionText(const std::filesystem::path& path);

/// `bytes` decoded as ReadDefinitionText does. A text that still holds a NUL character
/// once decoded is taken to be in an unknown encoding (UTF-16 without a byte-order mark,
/// UTF-32, or no text at all) and fails with platform::Error 5 naming `path`.
std::string DecodeKnownText(std::string_view bytes, const std::filesystem::path& path);
/// The same, reusing the storage of `bytes` where the text needs no conversion.
std::string DecodeKnownOwnedText(std::string&& bytes, const std::filesystem::path& path);

/// The XML document in the file at `path`, read with ReadDefinitionText. Fails as that
/// does, and with platform::Error 5 "'path' is not well-formed XML: line N: ..." when
/// the text does not parse.
std::unique_ptr<pugi::xml_document> ReadDefinitionXml(const std::filesystem::path& path);

/// `path` in single quotes, as the loader's messages name files.
std::string QuotedPath(const std::filesystem::path& path);

/// Parses `text` (UTF-8) as XML; the error names `path` as ReadDefinitionXml's does.
std::unique_ptr<pugi::xml_document> ParseDefinitionXml(const std::string& text,
                                                       const std::filesystem::path& path);

}  // namespace platform::automation
