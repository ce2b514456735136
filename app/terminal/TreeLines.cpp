#include "terminal/TreeLines.h"

#include <algorithm>

#include "platform/forms/TreeView.h"

namespace app::terminal {

namespace {
void Add(const std::shared_ptr<platform::forms::TreeNode>& node, int depth, std::vector<TreeLine>& out) {
  out.push_back({node, depth});
  if (!node->Expanded) return;
  for (platform::Ref<platform::forms::TreeNode> child = node->Child(); child; child = child->Next())
    Add(child, depth + 1, out);
}
}  // namespace

std::vector<TreeLine> TreeLinesOf(const platform::forms::TreeView& tree) {
  std::vector<TreeLine> lines;
  for (const auto& root : tree.Roots()) Add(root, 0, lines);
  return lines;
}

int TreeCursor::Line(const std::vector<TreeLine>& lines) const {
  auto node = m_node.lock();
  for (size_t i = 0; node && i < lines.size(); ++i)
    if (lines[i].node == node) return static_cast<int>(i);
  return 0;
}

void TreeCursor::SetLine(const std::vector<TreeLine>& lines, int line) {
  if (lines.empty()) {
    m_node.reset();
    return;
  }
  line = std::clamp(line, 0, static_cast<int>(lines.size()) - 1);
  m_node = lines[static_cast<size_t>(line)].node;
  m_follow = true;
}

int TreeCursor::Top(const std::vector<TreeLine>& lines, int height) {
  int count = static_cast<int>(lines.size());
  height = std::max(1, height);
  if (m_follow) {
    int line = Line(lines);
    if (line < m_top) m_top = line;
    if (line >= m_top + height) m_top = line - height + 1;
    m_follow = false;
  }
  m_top = std::clamp(m_top, 0, std::max(0, count - height));
  return m_top;
}

void TreeCursor::Scroll(const std::vector<TreeLine>& lines, int height, int by) {
  int count = static_cast<int>(lines.size());
  m_top = std::clamp(m_top + by, 0, std::max(0, count - std::max(1, height)));
}

}  // namespace app::terminal
