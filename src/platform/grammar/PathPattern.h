#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/grammar/Grammar.h"
#include "platform/grammar/ParseTree.h"

namespace platform::grammar {

/// A compiled path pattern that selects nodes of a parse tree below a start node.
///
/// Steps are separated by "/"; each names a node (or "*" for any name) and may filter
/// on the node's text with `="text"` (blanks allowed around "="). ".*" before a step
/// (".*Comment", or a step of its own: ".*/Comment") lets any number of levels, none
/// included, come between it and the step before, or the start node. A leading "/"
/// anchors the first step at the start node's children; without it the first step may
/// be at any depth below the start node. Examples: "/.*element_name" (every
/// element_name), ".*attr_name=\"name\"", "/document/element".
class PathPattern {
 public:
  struct Step {
    bool anyDepth = false;  // levels may come between this step and the one before
    bool anyName = false;   // "*"
    int32_t nameId = -1;    // the grammar's name id; -1 matches nothing
    std::string name;
    bool hasText = false;
    std::string text;
  };

  /// Compiles `pattern` against the names of `grammar`. False, with `error` set, for a
  /// pattern that cannot be read (an empty step, an unterminated quote).
  static bool Compile(std::string_view pattern, const Grammar& grammar, PathPattern& out,
                      std::string& error);

  /// Whether node `id` (below `start`, 0 for the whole tree) is selected. `input` is the
  /// parsed text, for the text filters.
  bool Matches(const ParseTree& tree, const Grammar& grammar, std::string_view input,
               int32_t id, int32_t start) const;

  /// The first node after `from` (exclusive) up to the end of `start`'s subtree that the
  /// pattern selects; 0 when there is none.
  int32_t FindNext(const ParseTree& tree, const Grammar& grammar, std::string_view input,
                   int32_t start, int32_t from) const;

  const std::vector<Step>& steps() const { return m_steps; }

 private:
  bool StepMatches(const ParseTree& tree, const Grammar& grammar, std::string_view input,
                   int32_t id, const Step& step) const;
  bool MatchFrom(const ParseTree& tree, const Grammar& grammar, std::string_view input,
                 int32_t id, size_t k, int32_t start) const;

  std::vector<Step> m_steps;
  bool m_anchored = false;
};

}  // namespace platform::grammar
