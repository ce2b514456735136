#include "platform/forms/TreeView.h"

#include <algorithm>

#include "platform/core/Error.h"

namespace platform::forms {
namespace {
constexpr int kElementNotFound = 35601;
constexpr int kIndexOutOfBounds = 35600;
}  // namespace

void TreeNode::SetChecked(bool checked) { m_state = checked ? 2 : 1; }

Ref<TreeNode> TreeNode::Next() const {
  if (!m_tree) return nullptr;
  const auto& siblings = m_tree->SiblingsOf(*this);
  for (size_t i = 0; i + 1 < siblings.size(); ++i)
    if (siblings[i].get() == this) return siblings[i + 1];
  return nullptr;
}

int TreeNode::Index() const {
  if (!m_tree) return 0;
  const auto& all = m_tree->Nodes();
  for (size_t i = 0; i < all.size(); ++i)
    if (all[i].get() == this) return static_cast<int>(i + 1);
  return 0;
}

std::vector<std::shared_ptr<TreeNode>>& TreeView::SiblingsOf(const TreeNode& node) {
  auto parent = node.m_parent.lock();
  return parent ? parent->m_children : m_roots;
}

Ref<TreeNode> TreeView::Add(const std::string& relative, int relationship, const std::string& key,
                            const std::string& text, const std::string& image) {
  if (!key.empty() && Find(key)) throw Error(err::kKeyNotUnique);
  if (!image.empty() && Icons && !Icons->IndexOf(image)) throw Error(kElementNotFound, "Element not found");
  auto node = std::make_shared<TreeNode>(*this, key, text, image);
  node->m_state = Checkboxes ? 1 : 0;
  if (relative.empty()) {
    if (relationship == tvwFirst) m_roots.insert(m_roots.begin(), node);
    else m_roots.push_back(node);
  } else {
    auto rel = Find(relative);
    if (!rel) throw Error(kElementNotFound, "Element not found");
    if (relationship == tvwChild) {
      node->m_parent = rel;
      rel->m_children.push_back(node);
    } else {
      node->m_parent = rel->m_parent;
      auto& siblings = SiblingsOf(*rel);
      auto at = std::find(siblings.begin(), siblings.end(), rel);
      switch (relationship) {
        case tvwFirst: siblings.insert(siblings.begin(), node); break;
        case tvwPrevious: siblings.insert(at, node); break;
        case tvwNext: siblings.insert(at + 1, node); break;
        default: siblings.push_back(node); break;
      }
    }
  }
  m_nodes.push_back(node);
  return node;
}

Ref<TreeNode> TreeView::Find(const std::string& key) const {
  if (key.empty()) return nullptr;
  for (const auto& n : m_nodes)
    if (n->Key == key) return n;
  return nullptr;
}

Ref<TreeNode> TreeView::Item(const std::string& key) const {
  auto n = Find(key);
  if (!n) throw Error(kElementNotFound, "Element not found");
  return n;
}

Ref<TreeNode> TreeView::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(kIndexOutOfBounds, "Index out of bounds");
  return m_nodes[index - 1];
}

void TreeView::Forget(const std::shared_ptr<TreeNode>& node) {
  for (const auto& child : node->m_children) Forget(child);
  node->m_tree = nullptr;
  m_nodes.erase(std::remove(m_nodes.begin(), m_nodes.end(), node), m_nodes.end());
}

void TreeView::Remove(const std::string& key) {
  auto node = Item(key);
  auto& siblings = SiblingsOf(*node);
  siblings.erase(std::remove(siblings.begin(), siblings.end(), node), siblings.end());
  Forget(node);
}

void TreeView::Clear() {
  for (const auto& n : m_nodes) n->m_tree = nullptr;
  m_nodes.clear();
  m_roots.clear();
}

void TreeView::SetStateImage(TreeNode& node, int picture) {
  if (picture < 0 || picture > 2) throw Error(err::kInvalidCall);
  node.m_state = picture;
}

bool TreeView::UserCheck(const std::string& key) {
  auto node = Find(key);
  if (!Reachable() || !node || node->m_state == 0) return false;
  node->m_state = node->m_state == 2 ? 1 : 2;
  NodeCheck.Raise(node);
  return true;
}

bool TreeView::UserClickNode(const std::string& key) {
  auto node = Find(key);
  if (!Reachable() || !node) return false;
  NodeClick.Raise(node);
  Click.Raise();
  return true;
}

bool TreeView::UserExpand(const std::string& key, bool expanded) {
  auto node = Find(key);
  if (!Reachable() || !node) return false;
  node->Expanded = expanded;
  return true;
}

}  // namespace platform::forms
