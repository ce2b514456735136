// The table format: the findings in columns that fit the terminal, then a summary per
// problem and per project.

#include "TableWriter.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>

#include "FindingsWriter.h"

namespace app {
namespace {

constexpr size_t kColumns = 8;
constexpr size_t kProblemColumn = 7;
constexpr const char* kHeaders[kColumns] = {"Project", "Document", "Type", "Path", "Member", "Start", "End", "Problem"};
constexpr const char* kEllipsis = "\xE2\x80\xA6";

using Row = std::array<std::string, kColumns>;

Row CellsOf(const Finding& f) {
  std::string path = f.Path;
  std::replace(path.begin(), path.end(), '\\', '/');
  return {f.Project, f.Document, f.Type, path, f.Member, std::to_string(f.Start), std::to_string(f.End), f.Problem};
}

// One line of cells, each padded to its column's width, without trailing blanks.
std::string Line(const std::vector<std::string>& cells, const std::vector<size_t>& width) {
  std::string s;
  for (size_t c = 0; c < cells.size(); ++c) {
    std::string cell = FitCell(cells[c], width[c]);
    s += cell;
    if (c + 1 < cells.size()) s += std::string(width[c] - DisplayWidth(cell) + 2, ' ');
  }
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s + "\n";
}

// Prints `rows` (with `headers`) as a table of their natural widths.
void SmallTable(std::ostream& out, const std::vector<std::string>& headers,
                const std::vector<std::vector<std::string>>& rows) {
  std::vector<size_t> width(headers.size());
  for (size_t c = 0; c < headers.size(); ++c) width[c] = DisplayWidth(headers[c]);
  for (const auto& row : rows)
    for (size_t c = 0; c < row.size(); ++c) width[c] = std::max(width[c], DisplayWidth(row[c]));
  out << Line(headers, width);
  for (const auto& row : rows) out << Line(row, width);
}

std::string Percent(int32_t part, int32_t whole) {
  return std::to_string((part * 100 + whole / 2) / whole) + "%";
}

// The findings per problem (by rule, then text) and per project (in the order the
// findings first name them, then the projects without findings), with each project's
// share of definitions that carry the comment the rules ask for.
void WriteSummary(std::ostream& out, const std::map<std::pair<std::string, std::string>, int>& perProblem,
                  const std::vector<std::pair<std::string, int>>& perProject, const OutputContext& context) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& [problem, count] : perProblem) rows.push_back({problem.first, std::to_string(count), problem.second});
  if (!rows.empty()) {
    out << '\n';
    SmallTable(out, {"Rule", "Findings", "Problem"}, rows);
  }

  std::vector<std::pair<std::string, int>> projects = perProject;
  std::vector<std::string> quiet;
  for (const auto& tally : context.tallies)
    if (std::none_of(projects.begin(), projects.end(), [&](const auto& p) { return p.first == tally.project; }))
      quiet.push_back(tally.project);
  std::sort(quiet.begin(), quiet.end());
  for (const auto& name : quiet) projects.emplace_back(name, 0);
  if (projects.empty()) return;
  rows.clear();
  for (const auto& [project, count] : projects) {
    auto tally = std::find_if(context.tallies.begin(), context.tallies.end(),
                              [&](const ProjectTally& t) { return t.project == project; });
    std::string definitions = "-", commented = "-";
    if (tally != context.tallies.end() && tally->definitions > 0) {
      definitions = std::to_string(tally->definitions);
      commented = std::to_string(tally->withoutFinding) + " (" + Percent(tally->withoutFinding, tally->definitions) + ")";
    }
    rows.push_back({project, std::to_string(count), definitions, commented});
  }
  out << '\n';
  SmallTable(out, {"Project", "Findings", "Definitions", "Commented as required"}, rows);
}

}  // namespace

size_t DisplayWidth(const std::string& text) {
  size_t n = 0;
  for (unsigned char c : text)
    if ((c & 0xC0) != 0x80) ++n;
  return n;
}

std::string FitCell(const std::string& text, size_t width) {
  if (DisplayWidth(text) <= width) return text;
  if (width == 0) return "";
  // Keep width - 1 characters, then the ellipsis.
  size_t kept = 0, end = 0;
  for (; end < text.size(); ++end) {
    if ((static_cast<unsigned char>(text[end]) & 0xC0) != 0x80) {
      if (kept == width - 1) break;
      ++kept;
    }
  }
  return text.substr(0, end) + kEllipsis;
}

std::vector<size_t> FitColumns(const std::vector<size_t>& natural, const std::vector<size_t>& minimum, size_t last,
                               size_t width) {
  std::vector<size_t> w = natural;
  if (width == 0 || w.empty()) return w;
  size_t total = 2 * (w.size() - 1);
  for (size_t x : w) total += x;
  while (total > width) {
    size_t widest = w.size();
    for (size_t c = 0; c < w.size(); ++c)
      if (c != last && w[c] > minimum[c] && (widest == w.size() || w[c] > w[widest])) widest = c;
    if (widest == w.size()) {
      if (last >= w.size() || w[last] <= minimum[last]) break;
      widest = last;
    }
    // One column at a time, so that the widest columns narrow together.
    --w[widest];
    --total;
  }
  return w;
}

void WriteTable(std::ostream& out, FindingSource& findings, const OutputContext& context) {
  // First reading: the widths and the counts of the summary.
  std::vector<size_t> natural(kColumns);
  for (size_t c = 0; c < kColumns; ++c) natural[c] = DisplayWidth(kHeaders[c]);
  std::map<std::pair<std::string, std::string>, int> perProblem;
  std::vector<std::pair<std::string, int>> perProject;  // in the order first named
  std::unordered_map<std::string, size_t> projectIndex;
  size_t count = 0;
  Finding f;
  for (findings.Rewind(); findings.Next(f); ++count) {
    Row cells = CellsOf(f);
    for (size_t c = 0; c < kColumns; ++c) natural[c] = std::max(natural[c], DisplayWidth(cells[c]));
    ++perProblem[{RuleIdOf(f.Problem), f.Problem}];
    auto [at, added] = projectIndex.emplace(f.Project, perProject.size());
    if (added) perProject.emplace_back(f.Project, 0);
    ++perProject[at->second].second;
  }
  if (count > 0) {
    // Names keep a few characters; the numbers stay whole.
    std::vector<size_t> minimum(kColumns);
    for (size_t c = 0; c < kColumns; ++c) minimum[c] = std::min(natural[c], c == 5 || c == 6 ? natural[c] : size_t{6});
    minimum[kProblemColumn] = std::min(natural[kProblemColumn], size_t{12});
    std::vector<size_t> width = FitColumns(natural, minimum, kProblemColumn, context.width);
    out << Line({kHeaders, kHeaders + kColumns}, width);
    for (findings.Rewind(); findings.Next(f);) {
      Row cells = CellsOf(f);
      out << Line({cells.begin(), cells.end()}, width);
    }
  }
  out << count << (count == 1 ? " finding\n" : " findings\n");
  if (count > 0 || !context.tallies.empty()) WriteSummary(out, perProblem, perProject, context);
}

}  // namespace app
