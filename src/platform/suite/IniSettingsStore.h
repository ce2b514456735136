#pragma once
#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "platform/suite/SettingsStore.h"

namespace platform::suite {

/// A settings store kept in an INI-style file. Each value carries its type:
///
///     [CommentsAnalyzer]
///     LineCount=long:15
///     XMLCheck=string:{Class}|summary
///
/// Types are long, double, bool, string and empty; strings escape "\\", "\n" and "\r".
/// Every write rewrites the whole file through a temporary file and a rename, so a
/// reader never sees half a file. A file that cannot be read or parsed reads as an empty
/// store, with one warning through the error report.
class IniSettingsStore : public SettingsStore {
 public:
  /// Opens the store at `path`; the file need not exist. A read-only store refuses
  /// writes with error 75.
  explicit IniSettingsStore(std::filesystem::path path, bool readOnly = false);

  Variant Read(const std::string& section, const std::string& key, const Variant& def) override;
  void Write(const std::string& section, const std::string& key, const Variant& value) override;
  std::optional<Variant> Find(const std::string& section, const std::string& key) override;

  const std::filesystem::path& path() const { return m_path; }

 private:
  void Load();
  void Save() const;

  std::filesystem::path m_path;
  bool m_readOnly;
  bool m_loaded = false;
  // Keys compare case-insensitively, as the registry's do; the spelling first written
  // is kept.
  struct LessNoCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  std::map<std::string, std::map<std::string, Variant, LessNoCase>, LessNoCase> m_values;
};

}  // namespace platform::suite
