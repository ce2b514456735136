#pragma once
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/grammar/Grammar.h"
#include "platform/grammar/ParseTree.h"

namespace platform::grammar {

/// The PEG engine: matches a text against a rule of an analysed Grammar and builds the
/// parse tree. Rules that refer to other rules are memoised per position (packrat), so
/// backtracking never repeats their work; choices skip alternatives that cannot start
/// with the byte at hand; runs of a byte class or up to a literal are plain loops.
///
/// Bounded on every input: recursion deeper than a fixed limit, or more evaluation
/// steps than a budget proportional to the input, stops the parse as a failure. A
/// failed parse keeps what it matched: the parse is run a second time and stopped
/// where the first got farthest, and the nodes complete or begun on the way there make
/// the tree.
///
/// The buffers are kept from one parse to the next, so a matcher used for many small
/// texts allocates only while they grow.
class PegMatcher {
 public:
  explicit PegMatcher(const Grammar& grammar) : m_g(grammar) {}

  /// Matches `text` from rule `startRule` and fills `tree`. True when the rule matched
  /// the whole text; otherwise the tree holds what matched.
  bool Parse(std::string_view text, int32_t startRule, ParseTree& tree);

  /// Evaluation steps of the last parse, for tests and benchmarks.
  int64_t Steps() const { return m_steps; }

  static constexpr int kMaxDepth = 2000;

 private:
  // A node while parsing; its children are m_lists[kidsOff .. kidsOff + kidsCount).
  struct WorkNode {
    int32_t rule;
    int32_t start, end, textStart, textEnd;
    int32_t kidsOff, kidsCount;
  };
  struct Memo {
    int32_t end = -1;
    int32_t node = -1;  // the node a rule of its own made, else
    int32_t off = 0;    // the nodes it left for its caller: m_lists[off .. off + count)
    int32_t count = 0;
    int32_t capStart = -1, capEnd = -1;
    int32_t cell = 0;  // its place in m_memoIndex
  };

  static bool IsTerminal(Op op) { return op <= Op::Any || op >= Op::ClassStar; }
  bool Run(int32_t startRule, int32_t abortAt);
  int32_t Sub(int32_t e, int32_t pos);
  int32_t Enter(const Expr& x, int32_t pos);
  int32_t Dispatch(const Expr& x, int32_t pos);
  int32_t ChoiceAt(const Expr& x, int32_t pos);
  int32_t Terminal(const Expr& x, int32_t pos);
  int32_t EvalRule(int32_t r, int32_t pos);
  int32_t Consumed(int32_t end);
  void Abort(int32_t pos);
  const Memo* Find(const Rule& rule, int32_t pos) const;
  Memo* Insert(const Rule& rule, int32_t pos);
  void Truncate(size_t mark) { m_stack.resize(mark); }
  int32_t MakeNode(int32_t rule, int32_t start, int32_t end, size_t mark, int32_t capStart,
                   int32_t capEnd);
  void Build(ParseTree& tree);

  const Grammar& m_g;
  const unsigned char* m_in = nullptr;
  int32_t m_n = 0;

  std::vector<WorkNode> m_nodes;
  std::vector<int32_t> m_lists;
  std::vector<int32_t> m_stack;  // nodes matched so far by the rules being evaluated
  std::vector<std::pair<int32_t, int32_t>> m_todo;  // Build: (work node, parent id)
  // Memo entries by position and memoised rule: m_memoIndex[pos * rules + slot] is the
  // entry's index in m_memos, -1 for none. Kept by position, so that look-ups near the
  // position being matched stay in the cache. It keeps the size of the largest text so
  // far, every cell -1 between runs.
  std::vector<int32_t> m_memoIndex;
  bool m_memoise = false;  // this run memoises (its text is not too large)
  std::vector<Memo> m_memos;

  int32_t m_capStart = -1, m_capEnd = -1;  // the `< >` text of the rule being evaluated
  int32_t m_depth = 0;
  int32_t m_predicates = 0;  // inside & or !
  int64_t m_steps = 0, m_budget = 0;
  size_t m_maxNodes = 0;
  int32_t m_endOfMatch = -1;
  int32_t m_farthest = 0;    // the farthest end of a consuming match outside predicates
  int32_t m_abortAt = -1;    // the second run stops on reaching this position
  bool m_aborted = false;
  int32_t m_abortPos = 0;
};

}  // namespace platform::grammar
