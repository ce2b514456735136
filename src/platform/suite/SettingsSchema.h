#pragma once
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace platform::suite {

/// One key that a settings file written by people may set: where it lives, what its
/// value must be, and how the value is stored.
struct SettingSpec {
  enum class Type {
    Boolean,  ///< 0, 1, true or false (any letter case); stored as the integer 0 or 1
    Integer,  ///< a decimal integer within [min, max]; stored as an integer
    Text,     ///< any text; stored as a string
    Path,     ///< a file or folder, relative to the settings file's folder unless
              ///< absolute; stored as the absolute path
  };
  std::string section;
  std::string key;
  Type type = Type::Text;
  int32_t min = std::numeric_limits<int32_t>::min();
  int32_t max = std::numeric_limits<int32_t>::max();
  /// For an Integer: when not empty, the only values allowed, each written as its name
  /// or its number ({"solution", 4}).
  std::vector<std::pair<std::string, int32_t>> names = {};
  /// What the key does, one line, for messages and documentation.
  std::string meaning = "";
};

/// The keys a settings file may set. Sections and keys compare without regard to ASCII
/// letter case, as the stores' do.
struct SettingsSchema {
  std::vector<SettingSpec> keys;

  /// The key `key` of `section`; nullptr when the schema has none.
  const SettingSpec* Find(const std::string& section, const std::string& key) const;
  /// Whether some key lives in `section`.
  bool HasSection(const std::string& section) const;
  /// The keys of `section`, as the schema spells them, joined by ", ".
  std::string KeysOf(const std::string& section) const;
  /// The sections, as the schema spells them, each in brackets, joined by ", ".
  std::string Sections() const;
};

}  // namespace platform::suite
