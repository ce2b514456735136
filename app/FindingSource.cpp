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
  m_rows = db->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenSnapshot);
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
    if (m_rows->RecordCount() == 0) return false;
    m_rows->MoveFirst();
  } else if (!m_rows->Eof()) {
    m_rows->MoveNext();
  }
  if (m_rows->Eof()) return false;
  auto text = [&](const char* name) { return platform::ToString(m_rows->Fields(name)->Value()); };
  auto number = [&](const char* name) {
    auto v = m_rows->Fields(name)->Value();
    return v.IsEmpty() ? 0 : platform::ToInt32(v);
  };
  f.ID = number("ID");
  f.Flag = number("Flag");
  f.Project = text("Project");
  f.Document = text("Document");
  f.Type = text("Type");
  f.Path = text("Path");
  f.Member = text("Member");
  f.Start = number("Start");
  f.End = number("End");
  f.Status = number("Status");
  f.Problem = text("Problem");
  f.file = m_files.FileOf(f.Project, f.Path, f.Document);
  return true;
}

}  // namespace app
