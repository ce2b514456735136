#include "FindingsWriter.h"

#include <algorithm>
#include <array>
#include <map>

#include "analysis/Problems.h"
#include "platform/core/Json.h"

namespace app {
namespace {

using platform::AppendJsonString;

std::string Json(const std::string& s) {
  std::string out;
  AppendJsonString(out, s);
  return out;
}

// Tabs, line breaks and backslashes would break a TSV line; they are written escaped.
std::string TsvField(const std::string& s) {
  std::string out;
  for (char c : s) {
    if (c == '\t') out += "\\t";
    else if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else if (c == '\\') out += "\\\\";
    else out += c;
  }
  return out;
}

std::string RelativePath(const Finding& f, const std::filesystem::path& base) {
  if (f.file.empty()) {
    std::string p = f.Project + "/";
    if (!f.Path.empty()) {
      std::string path = f.Path;
      std::replace(path.begin(), path.end(), '\\', '/');
      p += path + "/";
    }
    return p + f.Document;
  }
  auto relative = std::filesystem::path(f.file).lexically_relative(base);
  return relative.empty() ? f.file : relative.generic_string();
}

// A path as a URI reference: "/" kept, unreserved characters kept, the rest
// percent-encoded.
std::string UriOf(const std::string& path) {
  static const char* hex = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : path) {
    if (std::isalnum(c) || c == '/' || c == '-' || c == '.' || c == '_' || c == '~') {
      out += static_cast<char>(c);
    } else {
      out += '%';
      out += hex[c >> 4];
      out += hex[c & 15];
    }
  }
  return out;
}

void WriteTable(std::ostream& out, const std::vector<Finding>& findings) {
  static const char* headers[] = {"Project", "Document", "Type", "Path", "Member", "Start", "End", "Problem"};
  std::vector<std::array<std::string, 8>> rows;
  for (const auto& f : findings)
    rows.push_back({f.Project, f.Document, f.Type, f.Path, f.Member, std::to_string(f.Start),
                    std::to_string(f.End), f.Problem});
  std::array<size_t, 8> width{};
  for (int c = 0; c < 8; ++c) width[c] = std::string(headers[c]).size();
  for (const auto& r : rows)
    for (int c = 0; c < 8; ++c) width[c] = std::max(width[c], r[c].size());
  auto line = [&](const std::array<std::string, 8>& cells) {
    std::string s;
    for (int c = 0; c < 8; ++c) {
      s += cells[c];
      if (c < 7) s += std::string(width[c] - cells[c].size() + 2, ' ');
    }
    while (!s.empty() && s.back() == ' ') s.pop_back();
    out << s << '\n';
  };
  if (!rows.empty()) {
    line({headers[0], headers[1], headers[2], headers[3], headers[4], headers[5], headers[6], headers[7]});
    for (const auto& r : rows) line(r);
  }
  out << findings.size() << (findings.size() == 1 ? " finding\n" : " findings\n");
}

void WriteTsv(std::ostream& out, const std::vector<Finding>& findings) {
  out << "ID\tFlag\tProject\tDocument\tType\tPath\tMember\tStart\tEnd\tStatus\tProblem\n";
  for (const auto& f : findings)
    out << f.ID << '\t' << f.Flag << '\t' << TsvField(f.Project) << '\t' << TsvField(f.Document) << '\t'
        << TsvField(f.Type) << '\t' << TsvField(f.Path) << '\t' << TsvField(f.Member) << '\t' << f.Start
        << '\t' << f.End << '\t' << f.Status << '\t' << TsvField(f.Problem) << '\n';
}

void WriteJson(std::ostream& out, const std::vector<Finding>& findings) {
  out << "[";
  for (size_t i = 0; i < findings.size(); ++i) {
    const auto& f = findings[i];
    out << (i ? ",\n " : "\n ") << "{\"ID\": " << f.ID << ", \"Flag\": " << f.Flag
        << ", \"Project\": " << Json(f.Project) << ", \"Document\": " << Json(f.Document)
        << ", \"Type\": " << Json(f.Type) << ", \"Path\": " << Json(f.Path)
        << ", \"Member\": " << Json(f.Member) << ", \"Start\": " << f.Start << ", \"End\": " << f.End
        << ", \"Status\": " << f.Status << ", \"Problem\": " << Json(f.Problem) << "}";
  }
  out << (findings.empty() ? "]\n" : "\n]\n");
}

void WriteMsbuild(std::ostream& out, const std::vector<Finding>& findings,
                  const std::filesystem::path& base) {
  for (const auto& f : findings)
    out << RelativePath(f, base) << '(' << f.Start << "): warning " << f.Type << ": " << f.Problem
        << " [" << f.Member << "]\n";
}

void WriteSarif(std::ostream& out, const std::vector<Finding>& findings,
                const std::filesystem::path& base) {
  out << "{\n  \"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\",\n"
         "  \"version\": \"2.1.0\",\n  \"runs\": [\n    {\n"
         "      \"tool\": {\n        \"driver\": {\n          \"name\": \"annotra\",\n"
         "          \"rules\": [";
  const auto& rules = annotra::ProblemTable();
  for (size_t i = 0; i < rules.size(); ++i)
    out << (i ? "," : "") << "\n            {\"id\": \"" << rules[i].ruleId
        << "\", \"shortDescription\": {\"text\": " << Json(rules[i].summary) << "}}";
  out << "\n          ]\n        }\n      },\n      \"results\": [";
  for (size_t i = 0; i < findings.size(); ++i) {
    const auto& f = findings[i];
    std::string rule = RuleIdOf(f.Problem);
    out << (i ? "," : "") << "\n        {\"ruleId\": \"" << rule << "\", \"level\": \"warning\", "
        << "\"message\": {\"text\": " << Json(f.Problem + " [" + f.Type + " " + f.Member + "]") << "}, "
        << "\"locations\": [{\"physicalLocation\": {\"artifactLocation\": {\"uri\": "
        << Json(UriOf(RelativePath(f, base))) << "}";
    if (f.Start >= 1)
      out << ", \"region\": {\"startLine\": " << f.Start << ", \"endLine\": " << std::max(f.Start, f.End) << "}";
    out << "}}]}";
  }
  out << (findings.empty() ? "]\n" : "\n      ]\n") << "    }\n  ]\n}\n";
}

}  // namespace

bool ParseOutputFormat(const std::string& name, OutputFormat& format) {
  static const std::map<std::string, OutputFormat> names = {
      {"table", OutputFormat::Table}, {"tsv", OutputFormat::Tsv}, {"json", OutputFormat::Json},
      {"msbuild", OutputFormat::Msbuild}, {"sarif", OutputFormat::Sarif},
      {"html", OutputFormat::Html}};
  auto it = names.find(name);
  if (it == names.end()) return false;
  format = it->second;
  return true;
}

std::string RuleIdOf(const std::string& problem) {
  const annotra::ProblemInfo* info = annotra::ProblemOfText(problem);
  return info ? info->ruleId : "AN0000";
}

void WriteFindings(std::ostream& out, const std::vector<Finding>& findings, OutputFormat format,
                   const std::filesystem::path& base) {
  switch (format) {
    case OutputFormat::Table: WriteTable(out, findings); break;
    case OutputFormat::Tsv: WriteTsv(out, findings); break;
    case OutputFormat::Json: WriteJson(out, findings); break;
    case OutputFormat::Msbuild: WriteMsbuild(out, findings, base); break;
    case OutputFormat::Sarif: WriteSarif(out, findings, base); break;
    case OutputFormat::Html: break;  // the print preview's page is made from the grid, not from these rows
  }
}

}  // namespace app
