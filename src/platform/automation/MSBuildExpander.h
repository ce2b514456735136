#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/MSBuildProperties.h"
#include "platform/automation/PathProbe.h"

namespace platform::automation {

/// What an expansion sees: the properties and, while items are evaluated, the item
/// lists and the metadata of the item being defined.
struct MSBuildScope {
  const MSBuildProperties* properties = nullptr;
  /// The folder of the file being evaluated: relative paths in functions and
  /// conditions are taken from there.
  std::filesystem::path directory;
  /// The items of a type joined with ';' for "@(Type)"; without it "@(...)" gives "".
  std::function<std::string(std::string_view type)> items;
  /// The value of the metadata for "%(Name)"; without it "%(...)" stays as written.
  std::function<std::string(std::string_view name)> metadata;
  /// Answers Exists() and the functions that look at the disk; none asks the disk.
  PathProbe* probe = nullptr;
};

/// `text` with every "$(Name)" replaced by the property's value and every property
/// function ("$(Name.Replace('a','b'))", "$([MSBuild]::GetDirectoryNameOfFileAbove(...))",
/// "$([System.IO.Path]::Combine(...))" and the others real projects use) replaced by its
/// result, and "@(Type)" and "%(Name)" as `scope` provides them. What it does not
/// understand expands to "": an unknown function, a malformed reference, nesting deeper
/// than 32 levels. The result is cut at 1 MiB so that self-doubling definitions cannot
/// exhaust memory. Values stay escaped (%3B); escapes are undone by the consumer.
std::string ExpandMSBuild(std::string_view text, const MSBuildScope& scope);

/// The index of the ')' that closes the '(' at `open` in `text`, skipping quoted parts
/// ('...', "...", `...`); npos when it is not closed.
size_t FindClosingParen(std::string_view text, size_t open);

/// `args` (the text between a call's parentheses) split at the commas outside quotes
/// and parentheses, each part trimmed of blanks.
std::vector<std::string> SplitArguments(std::string_view args);

}  // namespace platform::automation
