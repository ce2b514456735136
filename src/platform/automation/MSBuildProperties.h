#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace platform::automation {

/// The properties of a project evaluation: names compared without regard to ASCII
/// letter case, values as the evaluation produced them (still escaped). Global
/// properties (those the caller fixes, such as the configuration) cannot be changed
/// by the project.
class MSBuildProperties {
 public:
  /// The value of `name`; "" when it is not defined.
  const std::string& Get(std::string_view name) const;
  bool Has(std::string_view name) const;
  /// Sets `name` to `value` unless `name` is global.
  void Set(std::string_view name, std::string value);
  /// Sets `name` to `value` and makes it global.
  void SetGlobal(std::string_view name, std::string value);
  bool IsGlobal(std::string_view name) const;

 private:
  std::unordered_map<std::string, std::string> m_values;  // keyed by lower-case name
  std::unordered_set<std::string> m_global;
};

/// `text` with the build system's %XX escapes (%3B ';', %24 '$', %20 ' ' ...) replaced
/// by their characters; a '%' not followed by two hexadecimal digits stays.
std::string MSBuildUnescape(std::string_view text);

/// `text` split at ';', each part trimmed of blanks, empty parts dropped.
std::vector<std::string> SplitMSBuildList(std::string_view text);

}  // namespace platform::automation
