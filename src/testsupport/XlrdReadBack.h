#pragma once
// A spreadsheet file read back by xlrd (/usr/bin/python3, Debian's python3-xlrd), as
// lines a test compares: per sheet "sheet NAME ROWS COLUMNS", then per cell that is not
// empty "ROW COLUMN TYPE VALUE" (tab-separated; TYPE 1 text, 2 number; text with \t \n
// \r \\ escaped, numbers as Python writes floats). Sheets of more than 1,000 rows give
// their line alone. Strings and the C library only: usable by the tests of every folder.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace testsupport {

namespace detail {
inline constexpr const char* kXlrdReader = R"(import os, sys, xlrd
book = xlrd.open_workbook(os.environ['ANNOTRA_TEST_WORKBOOK'])
out = []
def esc(v):
    return v.replace('\\', '\\\\').replace('\t', '\\t').replace('\n', '\\n').replace('\r', '\\r')
for sh in book.sheets():
    out.append('sheet\t%s\t%d\t%d' % (esc(sh.name), sh.nrows, sh.ncols))
    if sh.nrows > 1000:
        continue
    for r in range(sh.nrows):
        for c in range(sh.ncols):
            cell = sh.cell(r, c)
            if cell.ctype in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
                continue
            v = esc(cell.value) if cell.ctype == xlrd.XL_CELL_TEXT else repr(cell.value)
            out.append('%d\t%d\t%d\t%s' % (r, c, cell.ctype, v))
sys.stdout.buffer.write(('\n'.join(out) + '\n').encode('utf-8'))
)";
}  // namespace detail

/// `text` escaped as the lines of XlrdReadBack write text.
inline std::string XlrdEscaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '\\') out += "\\\\";
    else if (c == '\t') out += "\\t";
    else if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else out += c;
  }
  return out;
}

/// The line of a text cell and of a number cell ("6.0").
inline std::string XlrdText(int row, int column, const std::string& value) {
  return std::to_string(row) + "\t" + std::to_string(column) + "\t1\t" + XlrdEscaped(value);
}
inline std::string XlrdNumber(int row, int column, const std::string& value) {
  return std::to_string(row) + "\t" + std::to_string(column) + "\t2\t" + value;
}

/// What xlrd reads of `file`, one line each; the reader's script is written into
/// `scratch` (a folder of the test). A reader that fails fails the test.
inline std::vector<std::string> XlrdReadBack(const std::filesystem::path& file, const std::filesystem::path& scratch) {
  const std::filesystem::path script = scratch / "xlrd_read.py";
  if (!std::filesystem::exists(script)) std::ofstream(script) << detail::kXlrdReader;
  // The path goes in the environment: it may hold any character.
  setenv("ANNOTRA_TEST_WORKBOOK", file.c_str(), 1);
  const std::string command = "/usr/bin/python3 '" + script.string() + "' 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  char buffer[65536];
  size_t n;
  while (pipe && (n = fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  const int status = pipe ? pclose(pipe) : -1;
  EXPECT_EQ(status, 0) << output;
  std::vector<std::string> lines;
  std::istringstream in(output);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace testsupport
