#pragma once
#include <map>
#include <memory>
#include <vector>

namespace platform::forms {
class TreeNode;
class TreeView;
}  // namespace platform::forms

namespace app::terminal {

/// The lines a tree view shows: its root nodes and, under each expanded node, its
/// children, with how deep each sits.
struct TreeLine {
  std::shared_ptr<platform::forms::TreeNode> node;
  int depth;
};
std::vector<TreeLine> TreeLinesOf(const platform::forms::TreeView& tree);

/// What a terminal keeps of a tree view beyond the tree itself: the node the cursor is
/// on (the tree's selected node) and the first line shown. The cursor follows its node
/// when lines come and go; a node that went away puts it back on the first line.
class TreeCursor {
 public:
  /// The line of the cursor among `lines`; 0 when its node is not there.
  int Line(const std::vector<TreeLine>& lines) const;
  void SetLine(const std::vector<TreeLine>& lines, int line);
  /// The first line shown in `height` lines; after the cursor moved, moved so that the
  /// cursor's line shows.
  int Top(const std::vector<TreeLine>& lines, int height);
  /// Scrolls by `by` lines (the wheel); the cursor stays on its node, out of sight if
  /// need be, as a list's selection does.
  void Scroll(const std::vector<TreeLine>& lines, int height, int by);
  bool Placed() const { return !m_node.expired(); }

 private:
  std::weak_ptr<platform::forms::TreeNode> m_node;
  int m_top = 0;
  bool m_follow = true;
};

/// The cursors of the tree views of the forms on screen.
using TreeCursors = std::map<const platform::forms::TreeView*, TreeCursor>;

}  // namespace app::terminal
