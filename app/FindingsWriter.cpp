#include "FindingsWriter.h"

#include <algorithm>
#include <cstdio>

#include "analysis/Problems.h"
#include "pane/ResultsPage.h"
#include "platform/core/Error.h"
#include "platform/core/Json.h"

namespace app {
namespace {

std::string Json(const std::string& s) {
  std::string out;
  platform::AppendJsonString(out, s);
  return out;
}

void WriteTsv(std::ostream& out, FindingSource& findings) {
  out << "ID\tFlag\tProject\tDocument\tType\tPath\tMember\tStart\tEnd\tStatus\tProblem\n";
  Finding f;
  for (findings.Rewind(); findings.Next(f);)
    out << f.ID << '\t' << f.Flag << '\t' << TsvField(f.Project) << '\t' << TsvField(f.Document) << '\t'
        << TsvField(f.Type) << '\t' << TsvField(f.Path) << '\t' << TsvField(f.Member) << '\t' << f.Start
        << '\t' << f.End << '\t' << f.Status << '\t' << TsvField(f.Problem) << '\n';
}

// The columns of the table, and the file (relative to the current folder, with "/"),
// which the table's folders alone cannot name.
void WriteJson(std::ostream& out, FindingSource& findings, const OutputContext& context) {
  out << "[";
  Finding f;
  bool first = true;
  for (findings.Rewind(); findings.Next(f); first = false) {
    out << (first ? "\n " : ",\n ") << "{\"ID\": " << f.ID << ", \"Flag\": " << f.Flag
        << ", \"Project\": " << Json(f.Project) << ", \"Document\": " << Json(f.Document)
        << ", \"Type\": " << Json(f.Type) << ", \"Path\": " << Json(f.Path)
        << ", \"Member\": " << Json(f.Member) << ", \"Start\": " << f.Start << ", \"End\": " << f.End
        << ", \"Status\": " << f.Status << ", \"Problem\": " << Json(f.Problem)
        << ", \"File\": " << Json(ShownPath(f, context.currentFolder)) << "}";
  }
  out << (first ? "]\n" : "\n]\n");
}

// The canonical line that build logs, editors and CI annotate:
// path(line): warning ANnnnn: <Problem> [<Type> <Member>]
void WriteMsbuild(std::ostream& out, FindingSource& findings, const OutputContext& context) {
  // The format has no escapes: a line break inside a field (a file name may hold one)
  // would make two lines of one, so it is written as a blank.
  auto oneLine = [](std::string s) {
    std::replace(s.begin(), s.end(), '\n', ' ');
    std::replace(s.begin(), s.end(), '\r', ' ');
    return s;
  };
  Finding f;
  for (findings.Rewind(); findings.Next(f);)
    out << oneLine(ShownPath(f, context.currentFolder)) << '(' << f.Start << "): warning " << RuleIdOf(f.Problem)
        << ": " << oneLine(f.Problem) << " [" << oneLine(f.Type) << ' ' << oneLine(f.Member) << "]\n";
}

}  // namespace

const std::vector<FormatName>& OutputFormats() {
  static const std::vector<FormatName> formats = {{"table", OutputFormat::Table},
                                                  {"tsv", OutputFormat::Tsv},
                                                  {"json", OutputFormat::Json},
                                                  {"msbuild", OutputFormat::Msbuild},
                                                  {"sarif", OutputFormat::Sarif},
                                                  {"html", OutputFormat::Html}};
  return formats;
}

bool ParseOutputFormat(const std::string& name, OutputFormat& format) {
  for (const auto& f : OutputFormats())
    if (name == f.name) {
      format = f.format;
      return true;
    }
  return false;
}

std::string OutputFormatNames() {
  std::string names;
  for (const auto& f : OutputFormats()) {
    if (!names.empty()) names += "|";
    names.append(f.name);
  }
  return names;
}

std::string RuleIdOf(const std::string& problem) {
  const annotra::ProblemInfo* info = annotra::ProblemOfText(problem);
  return info ? info->ruleId : "AN0000";
}

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

std::string ShownPath(const Finding& f, const std::filesystem::path& base) {
  if (f.file.empty()) {
    std::string path = f.Path;
    std::replace(path.begin(), path.end(), '\\', '/');
    return f.Project + "/" + (path.empty() ? "" : path + "/") + f.Document;
  }
  auto relative = std::filesystem::path(f.file).lexically_relative(base);
  return relative.empty() ? f.file : relative.generic_string();
}

bool WriteFindings(std::ostream& out, FindingSource& findings, OutputFormat format, const OutputContext& context) {
  switch (format) {
    case OutputFormat::Table: WriteTable(out, findings, context); break;
    case OutputFormat::Tsv: WriteTsv(out, findings); break;
    case OutputFormat::Json: WriteJson(out, findings, context); break;
    case OutputFormat::Msbuild: WriteMsbuild(out, findings, context); break;
    case OutputFormat::Sarif: WriteSarif(out, findings, context); break;
    case OutputFormat::Html:
      // The page the pane's print preview shows, made by the same grid and preview from
      // the results table.
      try {
        out << annotra::ResultsPage(annotra::PrintFooterDate());
      } catch (const platform::Error& e) {
        std::fprintf(stderr, "annotra: the print preview's page cannot be made: %s\n", e.description.c_str());
        return false;
      }
      break;
  }
  out.flush();
  return static_cast<bool>(out);
}

}  // namespace app
