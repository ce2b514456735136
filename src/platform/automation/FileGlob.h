#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/automation/PathProbe.h"

namespace platform::automation {

/// A file pattern as project files write them: an absolute path whose segments may hold
/// '*' (any run of characters within a segment) and '?' (one character), and whose
/// segment "**" stands for any number of segments, including none. Matching ignores
/// ASCII letter case, since the projects come from a file system that does.
class PathPattern {
 public:
  /// The pattern `text` (either separator, '\' or '/'), taken relative to `baseDir` when
  /// it is not absolute; "." and ".." segments are resolved. An empty `text` gives a
  /// pattern that matches nothing.
  PathPattern(std::string_view text, const std::filesystem::path& baseDir);

  /// Whether the absolute, normalized `path` matches the whole pattern.
  bool Matches(const std::filesystem::path& path) const;
  /// The same for a path already split into its ASCII lower-case segments (no root), so
  /// that one path is split once for many patterns.
  bool MatchesSegments(const std::vector<std::string>& lowerSegments) const;
  /// Whether the pattern ends in "/**" and the part before it matches the folder
  /// `folder`, so that everything below the folder matches.
  bool MatchesEverythingBelow(const std::filesystem::path& folder) const;
  /// Whether any segment holds a wildcard.
  bool HasWildcards() const { return m_firstWildcard < m_segments.size(); }
  /// The path the pattern names when it has no wildcards (normalized, absolute).
  std::filesystem::path LiteralPath() const;
  bool Empty() const { return m_empty; }

  /// The files (not folders) on disk that match, minus those any of `excludes` match,
  /// sorted by path. Folders that an exclude covers whole ("bin/**") are not entered;
  /// symbolic links to folders are not followed. A missing or unreadable folder gives
  /// nothing. The files and folders the listing shows are learnt by `probe`, if any.
  std::vector<std::filesystem::path> Expand(const std::vector<PathPattern>& excludes,
                                            PathProbe* probe = nullptr) const;

 private:
  std::vector<std::string> m_segments;  // ASCII lower case, without the root
  size_t m_firstWildcard = 0;           // index of the first segment with a wildcard
  bool m_recursive = false;             // some segment is "**"
  bool m_empty = false;
};

/// Finds files named in another letter case than the disk's: projects come from a file
/// system that ignores case, and name "Forms\mainform.cs" for "Forms/MainForm.cs".
/// Keeps the folder listings it reads, so that many lookups in one folder stay linear;
/// one resolver serves one load.
class PathCaseResolver {
 public:
  /// `path` (absolute, normalized) when it exists; else the existing path that differs
  /// from it only in ASCII letter case (the first such entry of each folder in name
  /// order); else `path` unchanged. `probe`, if any, answers whether paths exist.
  std::filesystem::path Resolve(const std::filesystem::path& path, PathProbe* probe = nullptr);

 private:
  // Lower-case name -> name on disk, for each folder read so far.
  std::unordered_map<std::string, std::unordered_map<std::string, std::string>> m_listings;
};

/// Whether `text` holds a wildcard character ('*' or '?').
bool HasWildcard(std::string_view text);

/// Whether the name `name` matches the one-segment pattern `pattern` ('*', '?'),
/// ignoring ASCII letter case.
bool MatchesSegment(std::string_view pattern, std::string_view name);

/// `path` as an absolute path with "." and ".." resolved, without touching the disk.
std::filesystem::path NormalizedAbsolute(const std::filesystem::path& path);

/// ASCII lower case of `text`.
std::string LowerAscii(std::string_view text);

}  // namespace platform::automation
