#include "Baseline.h"

#include <algorithm>

#include "platform/core/AsciiText.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"

namespace app {

Baseline Baseline::Load(const std::string& path) {
  namespace dao = platform::dao;
  dao::Workspace workspace;
  auto db = workspace.OpenDatabase(path, false, true);
  std::string type;
  try {
    type = platform::AsciiLower(platform::ToString(db->Properties()->Item("SBType")->Value()));
  } catch (const platform::Error&) {
  }
  if (type != "xmm") throw platform::Error(platform::err::kUnrecognizedFormat, "'" + path + "' is no result file.");
  Baseline baseline;
  auto rows = db->OpenRecordset("XMLAnalyzer", dao::dbOpenSnapshot);
  auto text = [&](const char* name) { return platform::ToString(rows->Fields(name)->Value()); };
  if (rows->RecordCount() > 0) rows->MoveFirst();
  for (; !rows->Eof(); rows->MoveNext()) {
    Finding finding;
    finding.Project = text("Project");
    finding.Document = text("Document");
    finding.Path = text("Path");
    finding.Type = text("Type");
    finding.Member = text("Member");
    finding.Problem = text("Problem");
    baseline.Add(finding);
  }
  rows->Close();
  db->Close();
  return baseline;
}

// The six columns, each with its length, so that no text in one can pass for another.
std::string Baseline::KeyOf(const Finding& f) {
  std::string key;
  for (const std::string* part : {&f.Project, &f.Document, &f.Path, &f.Type, &f.Member, &f.Problem})
    key.append(std::to_string(part->size())).append(":").append(*part);
  return key;
}

void Baseline::Add(const Finding& finding) {
  Entry& entry = m_entries[KeyOf(finding)];
  entry.project = finding.Project;
  ++entry.count;
  ++entry.left;
  ++m_size;
  ++m_remaining;
}

bool Baseline::Take(const Finding& finding) {
  auto it = m_entries.find(KeyOf(finding));
  if (it == m_entries.end() || it->second.left == 0) return false;
  --it->second.left;
  --m_remaining;
  return true;
}

void Baseline::Reset() {
  for (auto& [key, entry] : m_entries) entry.left = entry.count;
  m_remaining = m_size;
}

std::vector<std::string> Baseline::Projects() const {
  std::vector<std::string> projects;
  for (const auto& [key, entry] : m_entries) projects.push_back(entry.project);
  std::sort(projects.begin(), projects.end());
  projects.erase(std::unique(projects.begin(), projects.end()), projects.end());
  return projects;
}

}  // namespace app
