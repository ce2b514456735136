#include "TableWriter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "FindingsWriter.h"

using namespace app;

namespace {

Finding Row(std::string project, std::string path, std::string member, int line, std::string problem) {
  Finding f;
  f.Project = std::move(project);
  f.Document = "Program.cs";
  f.Type = "Method";
  f.Path = std::move(path);
  f.Member = std::move(member);
  f.Start = f.End = line;
  f.Problem = std::move(problem);
  return f;
}

std::string Table(std::vector<Finding> findings, size_t width, std::vector<ProjectTally> tallies = {}) {
  OutputContext context;
  context.width = width;
  context.tallies = std::move(tallies);
  ListedFindings source(std::move(findings));
  std::ostringstream out;
  WriteFindings(out, source, OutputFormat::Table, context);
  return out.str();
}

}  // namespace

TEST(TableWriter, CellsAreCutToTheirWidthWithAnEllipsis) {
  EXPECT_EQ(DisplayWidth("abc"), 3u);
  EXPECT_EQ(DisplayWidth("d\xC3\xA9j\xC3\xA0"), 4u);
  EXPECT_EQ(FitCell("abcdef", 6), "abcdef");
  EXPECT_EQ(FitCell("abcdef", 4), "abc\xE2\x80\xA6");
  EXPECT_EQ(FitCell("\xC3\xA9\xC3\xA9\xC3\xA9", 2), "\xC3\xA9\xE2\x80\xA6");  // never inside a character
  EXPECT_EQ(FitCell("abc", 1), "\xE2\x80\xA6");
  EXPECT_EQ(FitCell("abc", 0), "");
}

TEST(TableWriter, TheWidestColumnsNarrowFirstAndTheLastColumnLast) {
  // Columns of 10, 30, 20 and a last one of 40: 106 with the gaps.
  const std::vector<size_t> natural = {10, 30, 20, 40}, minimum = {6, 6, 6, 12};
  EXPECT_EQ(FitColumns(natural, minimum, 3, 0), natural);    // no limit
  EXPECT_EQ(FitColumns(natural, minimum, 3, 106), natural);  // fits
  EXPECT_EQ(FitColumns(natural, minimum, 3, 96), (std::vector<size_t>{10, 20, 20, 40}));
  EXPECT_EQ(FitColumns(natural, minimum, 3, 86), (std::vector<size_t>{10, 15, 15, 40}));
  // Down to the minimums, then the last column.
  EXPECT_EQ(FitColumns(natural, minimum, 3, 60), (std::vector<size_t>{6, 6, 6, 36}));
  // Cannot fit: every column at its minimum.
  EXPECT_EQ(FitColumns(natural, minimum, 3, 10), (std::vector<size_t>{6, 6, 6, 12}));
}

TEST(TableWriter, TheTableFitsTheWidthAndShowsPathsWithSlashes) {
  std::vector<Finding> rows = {
      Row("Orleans.Dashboard", "Controllers\\Api\\Deep", "GetAllTheThingsWithAVeryLongName", 12,
          "Parameter with different type in XML comment vs. definition (or no type specified in XML comment)."),
      Row("Core", "", "Run", 7, "Missing <summary> tag")};
  std::string wide = Table(rows, 0);
  EXPECT_NE(wide.find("Controllers/Api/Deep"), std::string::npos) << wide;
  EXPECT_EQ(wide.find('\\'), std::string::npos) << wide;
  std::string narrow = Table(rows, 100);
  std::istringstream lines(narrow);
  std::string line;
  for (int i = 0; i < 3 && std::getline(lines, line); ++i) EXPECT_LE(DisplayWidth(line), 100u) << line;
  EXPECT_NE(narrow.find("\xE2\x80\xA6"), std::string::npos) << narrow;
  // The numbers stay whole.
  EXPECT_NE(narrow.find("  12     12  "), std::string::npos) << narrow;
}

TEST(TableWriter, TheSummaryCountsPerProblemAndPerProjectWithTheShareCommented) {
  std::vector<Finding> rows = {Row("B", "", "F", 1, "Missing <summary> tag"),
                               Row("B", "", "G", 2, "Too large uncommented code block"),
                               Row("A", "", "H", 3, "Missing <summary> tag"),
                               Row("B", "", "K", 4, "Missing <returns> tag")};
  std::string table = Table(rows, 0, {{"A", 10, 9}, {"B", 3, 1}, {"C", 4, 4}});
  EXPECT_NE(table.find("4 findings\n"
                       "\n"
                       "Rule    Findings  Problem\n"
                       "AN0003  1         Missing <returns> tag\n"
                       "AN0003  2         Missing <summary> tag\n"
                       "AN0008  1         Too large uncommented code block\n"
                       "\n"
                       "Project  Findings  Definitions  Commented as required\n"
                       "B        3         3            1 (33%)\n"
                       "A        1         10           9 (90%)\n"
                       "C        0         4            4 (100%)\n"),
            std::string::npos)
      << table;
  EXPECT_EQ(Table({}, 0), "0 findings\n");
}
