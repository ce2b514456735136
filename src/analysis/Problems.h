#pragma once
#include <array>
#include <string>
#include <string_view>

namespace annotra {

/// The problems a check can report, in the order of their rule identifiers.
enum class ProblemId {
  NoComment,          // AN0001
  PlainComment,       // AN0002
  MissingTag,         // AN0003
  ParamNameAndType,   // AN0004
  ParamName,          // AN0005
  ParamType,          // AN0006
  MoreParams,         // AN0007
  LongUncommented,    // AN0008
  FewerParams,        // AN0009
};

/// One row of the problem table: what a finding's "Problem" column says, and what the
/// output formats say about it. Rule identifiers reach users' CI configurations, so a row
/// keeps its identifier for good; a new problem gets the next number.
struct ProblemInfo {
  ProblemId id;
  /// "AN0001" ...
  const char* ruleId;
  /// The problem text as the results table holds it; for MissingTag, "Missing <" and
  /// "> tag" around the tag's name.
  const char* text;
  /// A short name in PascalCase ("MissingComment").
  const char* name;
  /// One sentence: what is wrong.
  const char* summary;
  /// One paragraph: when it is reported and what fixes it.
  const char* help;
};

/// The problem table, in rule-identifier order.
const std::array<ProblemInfo, 9>& ProblemTable();

/// The row of `id`.
const ProblemInfo& Problem(ProblemId id);

/// The text a finding of `id` carries in the results table. `tag` is the element name of
/// the missing tag for MissingTag ("returns" gives "Missing <returns> tag") and ignored
/// otherwise.
std::string ProblemText(ProblemId id, std::string_view tag = {});

/// The row whose text `text` is: exactly one of the fixed texts, or "Missing <" + tag +
/// "> tag" for any tag without "<" or ">". nullptr for any other text (a result file may
/// hold anything).
const ProblemInfo* ProblemOfText(std::string_view text);

}  // namespace annotra
