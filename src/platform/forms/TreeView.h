#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"
#include "platform/forms/Control.h"
#include "platform/forms/ImageList.h"
#include "platform/forms/TreeNode.h"

namespace platform::forms {

/// Where TreeView::Add puts a node relative to another.
enum TreeRelationship { tvwFirst = 0, tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

/// A tree of nodes with keys, texts, icons, expansion and, with Checkboxes, check boxes
/// drawn from state pictures (0 none, 1 unchecked, 2 checked) that StateImageList may
/// replace. Nodes are numbered in the order they were added.
class TreeView : public Control {
 public:
  using Control::Control;
  ~TreeView() override { Clear(); }
  const char* TypeName() const override { return "TreeView"; }

  bool Checkboxes = false;
  ImageList* Icons = nullptr;            // the icons (ImageList)
  ImageList* StateImageList = nullptr;   // the check-box pictures, when replaced

  /// Adds a node. With `relative` "" it becomes the last root node; otherwise it is
  /// placed by `relationship` relative to the node with that key. Fails with 35602
  /// when `key` (not "") is taken, and with 35601 when `relative` or the icon `image`
  /// (with an image list set) does not exist. New nodes show an unchecked box when the
  /// tree has Checkboxes.
  Ref<TreeNode> Add(const std::string& relative, int relationship, const std::string& key,
                    const std::string& text, const std::string& image = "");
  /// The node with `key`; fails with 35601 when there is none.
  Ref<TreeNode> Item(const std::string& key) const;
  /// The node with `key`, or none.
  Ref<TreeNode> Find(const std::string& key) const;
  /// The node with 1-based `index`; fails with 35600 (index out of bounds) otherwise.
  Ref<TreeNode> Item(int index) const;
  int Count() const { return static_cast<int>(m_nodes.size()); }
  /// The first root node; none for an empty tree.
  Ref<TreeNode> FirstRoot() const { return m_roots.empty() ? nullptr : m_roots.front(); }
  const std::vector<std::shared_ptr<TreeNode>>& Roots() const { return m_roots; }
  /// Every node, in the order of addition.
  const std::vector<std::shared_ptr<TreeNode>>& Nodes() const { return m_nodes; }
  /// Removes the node with `key` and its children; fails with 35601 when there is none.
  void Remove(const std::string& key);
  void Clear();

  /// Sets a node's check-box picture directly (what a message to the control does):
  /// 0 no box, 1 unchecked, 2 checked. Other values fail with 5.
  void SetStateImage(TreeNode& node, int picture);

  /// Raised after the user changed a node's check box.
  platform::Event<Ref<TreeNode>> NodeCheck;
  /// Raised when the user clicks a node.
  platform::Event<Ref<TreeNode>> NodeClick;

  /// The user clicks the check box of the node with `key`: nothing happens for a node
  /// without a box; otherwise it toggles and NodeCheck is raised. False when nothing
  /// happened.
  bool UserCheck(const std::string& key);
  /// The user clicks the node's text.
  bool UserClickNode(const std::string& key);
  /// The user expands or collapses the node.
  bool UserExpand(const std::string& key, bool expanded);

  void FormUnloaded() override { Clear(); }

 private:
  friend class TreeNode;
  std::vector<std::shared_ptr<TreeNode>>& SiblingsOf(const TreeNode& node);
  void Forget(const std::shared_ptr<TreeNode>& node);

  std::vector<std::shared_ptr<TreeNode>> m_nodes;
  std::vector<std::shared_ptr<TreeNode>> m_roots;
};

}  // namespace platform::forms
