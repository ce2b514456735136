#pragma once
#include <filesystem>
#include <memory>

#include "platform/suite/MemorySettingsStore.h"
#include "platform/suite/SettingsSchema.h"

namespace platform::suite {

/// Reads a settings file that people write and keep in version control:
///
///     ; comments start with ";" or "#"
///     [CommentsAnalyzer]
///     EnableNonPublic = 0
///     LineCount = 30
///
/// Each line is blank, a comment, a `[Section]` or a `Key = value` (blanks around both
/// ignored; a value in double quotes loses them). Every section and key must be one of
/// `schema`, each key is set at most once, and each value must be of its key's type (see
/// SettingSpec): a typo must not pass silently. A UTF-8 byte-order mark is allowed.
///
/// Returns a read-only store of the values, typed as the schema says. Throws
/// platform::Error 75 when the file cannot be read, and 5 for anything wrong inside it,
/// with the description "FILE:LINE: what is wrong".
std::shared_ptr<MemorySettingsStore> ReadPlainSettingsFile(const std::filesystem::path& file,
                                                           const SettingsSchema& schema);

/// The nearest file named `name` in `start` (a folder, or a file's folder) or one of the
/// folders above it; an empty path when there is none.
std::filesystem::path FindFileUpwards(const std::filesystem::path& start, const std::string& name);

}  // namespace platform::suite
