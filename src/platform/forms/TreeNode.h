#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::forms {

class TreeView;

/// One node of a tree view: key, text, icon, expansion, check-box state and its place
/// among its parent's children. Links to nodes that do not exist are empty Refs, so
/// that reading through them fails with 91 as it would in the control.
class TreeNode : public std::enable_shared_from_this<TreeNode> {
 public:
  TreeNode(TreeView& tree, std::string key, std::string text, std::string image)
      : Key(std::move(key)), Text(std::move(text)), Image(std::move(image)), m_tree(&tree) {}

  const std::string Key;
  std::string Text;
  std::string Image;  // the icon's key in the tree's image list
  bool Expanded = false;

  /// The check-box picture: 0 none, 1 unchecked, 2 checked.
  int StateImage() const { return m_state; }
  /// Checked: state picture 2. Setting it gives picture 2 or 1, also to a node that
  /// showed no box, as the control does.
  bool Checked() const { return m_state == 2; }
  void SetChecked(bool checked);

  Ref<TreeNode> Parent() const { return m_parent.lock(); }
  /// The first child; none when it has no children.
  Ref<TreeNode> Child() const { return m_children.empty() ? nullptr : m_children.front(); }
  /// The next sibling; none for the last.
  Ref<TreeNode> Next() const;
  int Children() const { return static_cast<int>(m_children.size()); }
  /// The 1-based index in the tree's Nodes (the order of addition).
  int Index() const;

 private:
  friend class TreeView;
  TreeView* m_tree;
  int m_state = 0;
  std::weak_ptr<TreeNode> m_parent;
  std::vector<std::shared_ptr<TreeNode>> m_children;
};

}  // namespace platform::forms
