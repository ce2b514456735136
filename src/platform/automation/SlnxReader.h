#pragma once
#include <filesystem>

#include "platform/automation/SolutionDescription.h"

namespace platform::automation {

/// Reads a .slnx solution file: <Project Path=...> elements (Type and DisplayName
/// honoured), <Folder Name="/a/b/"> elements that make nested solution folders from the
/// name's segments (the folders between made as needed), and the <File Path=...> items
/// of folders. Fails with platform::Error as ReadDefinitionXml does, and with 5 naming
/// the file when its root element is not <Solution>. A Project without Path is left
/// out with a warning.
SolutionDescription ReadSlnx(const std::filesystem::path& slnxPath);

}  // namespace platform::automation
