#pragma once
// The expectations written into a check input: which findings the checks must report on
// which lines, and with which options. The syntax is described at the top of
// src/analysis/Checks_test.cpp, which runs the inputs. Strings only: no part of the
// system is needed to read them.

#include <string>
#include <vector>

namespace testsupport {

/// One finding an input expects (or one the checks reported), as the runner compares
/// them.
struct ExpectedFinding {
  int start = 0;        ///< the Start column: the line the finding is about
  int end = 0;          ///< the End column
  std::string problem;  ///< the Problem column, exactly
  std::string member;   ///< the Member column; "" in an expectation: any member will do
  std::string type;     ///< the Type column; "" in an expectation: any type will do
  int writtenAt = 0;    ///< the line the expectation is written on; 0 for a reported row

  /// The finding as an expect comment would state it, with every column it fixes:
  /// "line 15: Missing <param> tag [member F] [end +3] [type Method]".
  std::string Describe() const;
};

/// What the annotations of one input file say.
struct CheckInput {
  /// The words of the options line (line 1), without the marker; none when there is
  /// no options line.
  std::vector<std::string> options;
  /// The expectations in the order they are written.
  std::vector<ExpectedFinding> expected;
  /// The text with every annotation blanked out: a trailing expect comment is cut off
  /// its line, an expect or options line left empty, so every other line keeps its
  /// number.
  std::string withoutAnnotations;
  /// Annotations that cannot be read, as "line N: why".
  std::vector<std::string> errors;
};

/// Reads the annotations of `text`, an input whose comments begin with `comment` ("//"
/// for C#, "'" for Visual Basic). Never throws: what cannot be read is listed in
/// `errors`.
CheckInput ReadCheckInput(const std::string& text, const std::string& comment);

/// Pairs `reported` (rows in table order) with `expected` (in written order). Returns
/// the lines of a report, empty when they agree: every expectation met by one row of
/// its line with its problem, its end and the member and type it states, no row left
/// over, and the rows of one line in the order their expectations are written.
std::vector<std::string> CompareFindings(const std::vector<ExpectedFinding>& expected,
                                         const std::vector<ExpectedFinding>& reported);

}  // namespace testsupport
