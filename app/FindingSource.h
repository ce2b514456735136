#pragma once
#include <vector>

#include "Finding.h"
#include "platform/core/Ref.h"

namespace platform::dao {
class Database;
class Field;
class Recordset;
}  // namespace platform::dao

namespace app {

class FindingFiles;

/// The findings of a run, one at a time, as often as a writer needs them: a writer keeps
/// no more than one finding in hand, so its memory does not grow with the findings.
class FindingSource {
 public:
  virtual ~FindingSource() = default;
  /// Starts again before the first finding.
  virtual void Rewind() = 0;
  /// The next finding into `finding`; false after the last.
  virtual bool Next(Finding& finding) = 0;
};

/// Findings held in a list (tests, small outputs).
class ListedFindings : public FindingSource {
 public:
  explicit ListedFindings(std::vector<Finding> findings) : m_findings(std::move(findings)) {}
  void Rewind() override { m_next = 0; }
  bool Next(Finding& finding) override;

 private:
  std::vector<Finding> m_findings;
  size_t m_next = 0;
};

/// The rows of the results table "XMLAnalyzer1" in table order, each with the file its
/// item resolves to through `files`: one scan of the table from start to end, again for
/// each Rewind. Throws platform::Error when the table cannot be read.
class ResultsTableFindings : public FindingSource {
 public:
  ResultsTableFindings(const platform::Ref<platform::dao::Database>& db, FindingFiles& files);
  ~ResultsTableFindings() override;
  void Rewind() override;
  bool Next(Finding& finding) override;

 private:
  platform::Ref<platform::dao::Recordset> m_rows;
  // The table's columns, looked up once: ID, Flag, Project, Document, Type, Path,
  // Member, Start, End, Status, Problem.
  std::vector<platform::Ref<platform::dao::Field>> m_columns;
  FindingFiles& m_files;
  bool m_started = false;
  bool m_handedOut = false;  // a row was handed out since the scan (re)started
};

}  // namespace app
