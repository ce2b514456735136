#include "FindingSource.h"

#include "FindingFiles.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"

namespace app {

bool ListedFindings::Next(Finding& finding) {
  if (m_next >= m_findings.size()) return false;
  finding = m_findings[m_next++];
  return true;
}

ResultsTableFindings::ResultsTableFindings(const platform::Ref<platform::dao::Database>& db, FindingFiles& files)
    : m_files(files) {
  m_rows = db->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenForwardOnly);
  for (const char* name : {"ID", "Flag", "Project", "Document", "Type", "Path", "Member", "Start", "End",
                           "Status", "Problem"})
    m_columns.push_back(m_rows->Fields(name));
}

ResultsTableFindings::~ResultsTableFindings() {
  try {
    m_rows->Close();
  } catch (const platform::Error&) {
  }
}

void ResultsTableFindings::Rewind() { m_started = false; }

bool ResultsTableFindings::Next(Finding& f) {
  if (!m_started) {
    m_started = true;
    if (m_handedOut) m_rows->Requery();  // the scan starts again at the first row
    m_handedOut = false;
  } else if (!m_rows->Eof()) {
    m_rows->MoveNext();
  }
  if (m_rows->Eof()) return false;
  m_handedOut = true;
  auto text = [&](int column) { return platform::ToString(m_columns[column]->Value()); };
  auto number = [&](int column) {
    auto v = m_columns[column]->Value();
    return v.IsEmpty() ? 0 : platform::ToInt32(v);
  };
  f.ID = number(0);
  f.Flag = number(1);
  f.Project = text(2);
  f.Document = text(3);
  f.Type = text(4);
  f.Path = text(5);
  f.Member = text(6);
  f.Start = number(7);
  f.End = number(8);
  f.Status = number(9);
  f.Problem = text(10);
  f.file = m_files.FileOf(f.Project, f.Path, f.Document);
  return true;
}

}  // namespace app
