#include "platform/automation/FileGlob.h"

#include <algorithm>
#include <system_error>

namespace platform::automation {
namespace {

char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// Splits the generic form of an absolute path into lower-case segments (no root).
std::vector<std::string> LowerSegments(const std::filesystem::path& path) {
  std::vector<std::string> out;
  std::string s = path.generic_string();
  size_t i = 0;
  while (i < s.size()) {
    size_t j = s.find('/', i);
    if (j == std::string::npos) j = s.size();
    if (j > i) out.push_back(LowerAscii(std::string_view(s).substr(i, j - i)));
    i = j + 1;
  }
  return out;
}

// Matches a sequence of units where "**" stands for any run of units and every other
// pattern unit matches exactly one unit through `one`. The classic greedy matcher with
// back-tracking to the last star: O(n*m) at worst, never exponential.
template <class One, class IsStar>
bool MatchSequence(size_t pn, size_t tn, One one, IsStar isStar) {
  size_t p = 0, t = 0, starP = SIZE_MAX, starT = 0;
  while (t < tn) {
    if (p < pn && isStar(p)) {
      starP = p++;
      starT = t;
    } else if (p < pn && one(p, t)) {
      ++p;
      ++t;
    } else if (starP != SIZE_MAX) {
      p = starP + 1;
      t = ++starT;
    } else {
      return false;
    }
  }
  while (p < pn && isStar(p)) ++p;
  return p == pn;
}

bool MatchSegments(const std::vector<std::string>& pattern, size_t pn,
                   const std::vector<std::string>& path) {
  return MatchSequence(
      pn, path.size(),
      [&](size_t p, size_t t) { return MatchesSegment(pattern[p], path[t]); },
      [&](size_t p) { return pattern[p] == "**"; });
}

}  // namespace

std::string LowerAscii(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = LowerChar(c);
  return out;
}

bool HasWildcard(std::string_view text) {
  return text.find_first_of("*?") != std::string_view::npos;
}

bool MatchesSegment(std::string_view pattern, std::string_view name) {
  return MatchSequence(
      pattern.size(), name.size(),
      [&](size_t p, size_t t) {
        return pattern[p] == '?' || LowerChar(pattern[p]) == LowerChar(name[t]);
      },
      [&](size_t p) { return pattern[p] == '*'; });
}

std::filesystem::path NormalizedAbsolute(const std::filesystem::path& path) {
  std::error_code ec;
  auto abs = std::filesystem::absolute(path, ec);
  if (ec) abs = path;
  abs = abs.lexically_normal();
  if (!abs.has_filename() && abs.has_relative_path()) abs = abs.parent_path();
  return abs;
}

PathPattern::PathPattern(std::string_view text, const std::filesystem::path& baseDir) {
  std::string s(text);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r' || s.back() == '\n'))
    s.pop_back();
  size_t start = s.find_first_not_of(" \t\r\n");
  s = start == std::string::npos ? "" : s.substr(start);
  if (s.empty()) {
    m_empty = true;
    return;
  }
  std::replace(s.begin(), s.end(), '\\', '/');
  if (s[0] != '/') s = NormalizedAbsolute(baseDir).generic_string() + "/" + s;
  size_t i = 0;
  while (i < s.size()) {
    size_t j = s.find('/', i);
    if (j == std::string::npos) j = s.size();
    std::string seg = s.substr(i, j - i);
    i = j + 1;
    if (seg.empty() || seg == ".") continue;
    if (seg == "..") {
      if (!m_segments.empty()) m_segments.pop_back();
      continue;
    }
    m_segments.push_back(LowerAscii(seg));
  }
  m_firstWildcard = m_segments.size();
  for (size_t k = 0; k < m_segments.size(); ++k) {
    if (m_segments[k] == "**") m_recursive = true;
    if (m_firstWildcard == m_segments.size() && HasWildcard(m_segments[k])) m_firstWildcard = k;
  }
  if (m_segments.empty()) m_empty = true;
}

bool PathPattern::Matches(const std::filesystem::path& path) const {
  if (m_empty) return false;
  return MatchSegments(m_segments, m_segments.size(), LowerSegments(path));
}

bool PathPattern::MatchesSegments(const std::vector<std::string>& lowerSegments) const {
  return !m_empty && MatchSegments(m_segments, m_segments.size(), lowerSegments);
}

bool PathPattern::MatchesEverythingBelow(const std::filesystem::path& folder) const {
  if (m_empty || m_segments.size() < 2 || m_segments.back() != "**") return false;
  return MatchSegments(m_segments, m_segments.size() - 1, LowerSegments(folder));
}

std::filesystem::path PathPattern::LiteralPath() const {
  std::string s;
  for (auto& seg : m_segments) s += "/" + seg;
  return s.empty() ? std::filesystem::path("/") : std::filesystem::path(s);
}

std::filesystem::path PathCaseResolver::Resolve(const std::filesystem::path& path, PathProbe* probe) {
  namespace fs = std::filesystem;
  std::error_code ec;
  auto exists = [&](const fs::path& p) { return KindOfPath(probe, p) != PathProbe::Kind::Missing; };
  if (!path.is_absolute() || exists(path)) return path;
  fs::path resolved = path.root_path();
  for (const auto& part : path.relative_path()) {
    fs::path next = resolved / part;
    if (!exists(next)) {
      auto key = resolved.string();
      auto it = m_listings.find(key);
      if (it == m_listings.end()) {
        std::vector<std::string> names;
        for (fs::directory_iterator d(resolved, fs::directory_options::skip_permission_denied, ec), end;
             !ec && d != end; d.increment(ec))
          names.push_back(d->path().filename().string());
        std::sort(names.begin(), names.end());
        std::unordered_map<std::string, std::string> listing;
        for (auto& n : names) listing.emplace(LowerAscii(n), n);
        it = m_listings.emplace(key, std::move(listing)).first;
      }
      auto hit = it->second.find(LowerAscii(part.string()));
      if (hit == it->second.end()) return path;
      next = resolved / hit->second;
    }
    resolved = next;
  }
  return resolved;
}

std::vector<std::filesystem::path> PathPattern::Expand(const std::vector<PathPattern>& excludes,
                                                       PathProbe* probe) const {
  namespace fs = std::filesystem;
  std::vector<fs::path> out;
  if (m_empty || !HasWildcards()) return out;
  // Each file's path is split once and matched against the pattern and every exclude.
  std::vector<std::string> segments;
  auto excluded = [&]() {
    return std::any_of(excludes.begin(), excludes.end(),
                       [&](const PathPattern& e) { return e.MatchesSegments(segments); });
  };
  // The segments before the first wildcard name the folder to walk. They are lower
  // case here, so find the folder as the disk spells it.
  fs::path root("/");
  std::error_code ec;
  for (size_t k = 0; k < m_firstWildcard; ++k) {
    fs::path next = root / m_segments[k];
    if (!fs::is_directory(next, ec)) {
      bool found = false;
      for (fs::directory_iterator it(root, fs::directory_options::skip_permission_denied, ec), end;
           !ec && it != end; it.increment(ec)) {
        if (LowerAscii(it->path().filename().string()) == m_segments[k] && it->is_directory(ec)) {
          next = it->path();
          found = true;
          break;
        }
      }
      if (!found) return out;
    }
    root = next;
  }
  const size_t levels = m_segments.size() - m_firstWildcard;  // levels below root
  fs::recursive_directory_iterator it(root, fs::directory_options::skip_permission_denied, ec), end;
  for (; !ec && it != end; it.increment(ec)) {
    const fs::directory_entry& entry = *it;
    std::error_code e2;
    const auto depth = static_cast<size_t>(it.depth());
    if (entry.is_directory(e2) && !entry.is_symlink(e2)) {
      if (probe) probe->Learn(entry.path(), PathProbe::Kind::Folder);
      bool prune = false;
      if (m_recursive) {
        prune = std::any_of(excludes.begin(), excludes.end(), [&](const PathPattern& e) {
          return e.MatchesEverythingBelow(entry.path());
        });
      } else {
        prune = depth + 1 >= levels ||
                !MatchesSegment(m_segments[m_firstWildcard + depth], entry.path().filename().string());
      }
      if (prune) it.disable_recursion_pending();
      continue;
    }
    if (!entry.is_regular_file(e2)) continue;
    if (probe && !entry.is_symlink(e2)) probe->Learn(entry.path(), PathProbe::Kind::File);
    segments = LowerSegments(entry.path());
    if (MatchesSegments(segments) && !excluded()) out.push_back(entry.path());
  }
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace platform::automation
