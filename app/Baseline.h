#pragma once
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "Finding.h"
#include "FindingSource.h"

namespace app {

/// The findings of an earlier run, kept in a result file, that a run leaves out of what
/// it reports. A finding is matched by project, document, path, type, member and
/// problem, not by its lines, so code that moved stays quiet; each finding of the
/// baseline matches one finding of the run, so a second finding like an old one is new.
class Baseline {
 public:
  /// The findings of the result file at `path` (the table "XMLAnalyzer"), read from the
  /// file opened read-only and defensively: nothing in it runs and nothing is written.
  /// Throws platform::Error: 3024 when it does not exist, 3343 when it is no database or
  /// no result file (the property "SBType" is not "xmm"), 3078 without the table, and
  /// what reading it fails with.
  static Baseline Load(const std::string& path);

  /// Adds one finding.
  void Add(const Finding& finding);
  /// Whether the baseline holds one more finding like `finding`; that one is used up.
  bool Take(const Finding& finding);
  /// Puts back every finding taken.
  void Reset();
  /// The findings of the baseline.
  int64_t Size() const { return m_size; }
  /// The findings of the baseline not taken: those gone since.
  int64_t Remaining() const { return m_remaining; }
  /// The projects its findings name, each once, in name order.
  std::vector<std::string> Projects() const;

 private:
  struct Entry {
    std::string project;
    int64_t count = 0;
    int64_t left = 0;
  };
  static std::string KeyOf(const Finding& finding);

  std::unordered_map<std::string, Entry> m_entries;
  int64_t m_size = 0;
  int64_t m_remaining = 0;
};

/// The findings of `source` that `baseline` does not hold, in their order. Each pass
/// (from the start, or from Rewind) matches against the whole baseline afresh.
class NewFindings : public FindingSource {
 public:
  NewFindings(FindingSource& source, Baseline& baseline) : m_source(source), m_baseline(baseline) {
    m_baseline.Reset();
  }
  void Rewind() override {
    m_source.Rewind();
    m_baseline.Reset();
  }
  bool Next(Finding& finding) override {
    while (m_source.Next(finding))
      if (!m_baseline.Take(finding)) return true;
    return false;
  }

 private:
  FindingSource& m_source;
  Baseline& m_baseline;
};

}  // namespace app
