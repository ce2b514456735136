#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/grammar/Grammar.h"
#include "platform/grammar/ParseTree.h"
#include "platform/grammar/PathPattern.h"
#include "platform/grammar/PegMatcher.h"

namespace platform::grammar {

/// The parser control: loads a grammar file, parses a text with it, and answers
/// questions about the parse tree through integer node ids and search handles.
///
/// Node ids count from 1 in document order; search handles are numbers of their own
/// range (from kHandleBase), so that Position can tell one from the other. 0 means "no
/// node" or "no search" everywhere. The tree and every search handle are forgotten when
/// a new text is set or parsed, or a grammar loaded; asking about an unknown node or
/// handle gives 0 or "" and never fails.
class GrammarParser {
 public:
  static constexpr int32_t kHandleBase = 1 << 30;

  GrammarParser();
  ~GrammarParser();
  GrammarParser(const GrammarParser&) = delete;
  GrammarParser& operator=(const GrammarParser&) = delete;

  /// Loads the grammar file at `path`; its first rule becomes the start production.
  /// False for a missing file or a wrong grammar; LastError() then says where, as
  /// "path:line:column: what". After a failure the control has no grammar.
  bool LoadGrammar(const std::string& path);
  /// The message of the last failed LoadGrammar; "" after a successful one.
  const std::string& LastError() const { return m_error; }
  bool HasGrammar() const { return m_grammar != nullptr; }

  /// The production (rule) named "Grammar.Rule", or a bare "Rule" when only one grammar
  /// has it; 0 when there is none.
  int32_t FindProduction(const std::string& name) const;
  /// Makes `production` (from FindProduction) the one parses start from. Fails with
  /// platform::Error 5 for a value that names no production.
  void SetStartProduction(int32_t production);
  int32_t StartProduction() const { return m_start + 1; }

  /// The text the next Parse reads.
  void SetInputText(std::string text);
  const std::string& InputText() const { return m_input; }

  /// Parses the input text from the start production. True when the production matched
  /// the whole text; otherwise the tree holds what was matched. False without a grammar.
  bool Parse();

  /// Starts a search for `pattern` (see PathPattern) below `startNode` (0: the whole
  /// tree). Returns its handle, or 0 when nothing matches. Fails with platform::Error 5
  /// for a pattern that cannot be read.
  int32_t StartSearch(const std::string& pattern, int32_t startNode);
  /// The search's next match in document order, beginning with the first; 0 when there
  /// are no more (or the handle is unknown).
  int32_t NextMatch(int32_t handle);
  /// The search's first match; the next NextMatch then gives the second.
  int32_t FirstMatch(int32_t handle);
  /// Forgets the search.
  void EndSearch(int32_t handle);
  /// The first node below `node` (0: the whole tree) that `pattern` selects; 0 when
  /// none does. Fails with platform::Error 5 for a pattern that cannot be read.
  int32_t SearchBelow(int32_t node, const std::string& pattern);

  /// The node's text: the part of its match marked with `< >`, else its whole match.
  std::string NodeText(int32_t node) const;
  /// The name of the rule that made the node.
  std::string NodeName(int32_t node) const;
  int32_t ParentNode(int32_t node) const;
  int32_t NextSibling(int32_t node) const;
  int32_t FirstChild(int32_t node) const;
  /// The byte offset in the input where the node's match begins; for a search handle,
  /// that of the search's start node (0 for the whole tree).
  int32_t Position(int32_t nodeOrHandle) const;
  /// The line (0-based) of a byte offset of the input. "\r\n", "\n" and a lone "\r"
  /// each end a line. Offsets outside the input give the first or the last line.
  int32_t LineOfPosition(int32_t position) const;

  /// The number of nodes of the current tree.
  int32_t NodeCount() const { return m_tree.Size(); }
  /// Evaluation steps of the last parse (for tests and benchmarks).
  int64_t ParseSteps() const { return m_matcher ? m_matcher->Steps() : 0; }

 private:
  struct Search {
    std::shared_ptr<const PathPattern> pattern;
    int32_t start = 0;
    int32_t first = 0;
    int32_t pending = 0;  // what NextMatch gives next
  };

  void Forget();
  std::shared_ptr<const PathPattern> Compile(const std::string& pattern);
  const Search* FindSearch(int32_t handle) const;

  std::unique_ptr<Grammar> m_grammar;
  std::unique_ptr<PegMatcher> m_matcher;
  int32_t m_start = 0;
  std::string m_error;
  std::string m_input;
  ParseTree m_tree;
  mutable std::vector<int32_t> m_lineStarts;  // made at the first LineOfPosition
  mutable bool m_linesReady = false;
  std::unordered_map<int32_t, Search> m_searches;
  int32_t m_nextHandle = kHandleBase;
  std::map<std::string, std::shared_ptr<const PathPattern>> m_patterns;
};

}  // namespace platform::grammar
