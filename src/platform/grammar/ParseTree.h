#pragma once
#include <cstdint>
#include <vector>

namespace platform::grammar {

/// The tree one parse built: its nodes in document order (pre-order), numbered from 1,
/// so that the nodes below node n are exactly n + 1 .. Last(n). 0 stands for no node.
class ParseTree {
 public:
  struct Node {
    int32_t rule = -1;        // the rule that made it
    int32_t start = 0;        // the match: bytes [start, end) of the input
    int32_t end = 0;
    int32_t textStart = 0;    // the node's text: the `< >` part, or the whole match
    int32_t textEnd = 0;
    int32_t parent = 0;
    int32_t firstChild = 0;
    int32_t nextSibling = 0;
    int32_t last = 0;         // the last node of its subtree (itself when it has none)
  };

  void Clear() { m_nodes.clear(); }
  /// The number of nodes.
  int32_t Size() const { return static_cast<int32_t>(m_nodes.size()); }
  bool Valid(int32_t id) const { return id > 0 && id <= Size(); }
  /// The node `id`; only for a Valid id.
  const Node& At(int32_t id) const { return m_nodes[id - 1]; }

  /// Appends a node as the next node in document order and returns its id. `parent`
  /// must be 0 or an earlier node; the node becomes its parent's last child.
  int32_t Append(const Node& node);
  /// Sets every node's `last`; call once all nodes are appended.
  void Finish();

 private:
  std::vector<Node> m_nodes;
  std::vector<int32_t> m_lastChild;  // while appending: the last child of each node
  int32_t m_lastRoot = 0;
};

}  // namespace platform::grammar
