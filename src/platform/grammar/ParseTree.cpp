#include "platform/grammar/ParseTree.h"

namespace platform::grammar {

int32_t ParseTree::Append(const Node& node) {
  if (m_nodes.empty()) {
    m_lastChild.clear();
    m_lastRoot = 0;
  }
  m_nodes.push_back(node);
  m_lastChild.push_back(0);
  int32_t id = Size();
  Node& n = m_nodes.back();
  n.firstChild = 0;
  n.nextSibling = 0;
  n.last = id;
  if (n.parent > 0 && n.parent < id) {
    int32_t& prev = m_lastChild[n.parent - 1];
    if (prev) m_nodes[prev - 1].nextSibling = id;
    else m_nodes[n.parent - 1].firstChild = id;
    prev = id;
  } else {
    n.parent = 0;
    if (m_lastRoot) m_nodes[m_lastRoot - 1].nextSibling = id;
    m_lastRoot = id;
  }
  return id;
}

void ParseTree::Finish() {
  for (int32_t id = Size(); id >= 1; --id) {
    int32_t lastChild = m_lastChild[id - 1];
    m_nodes[id - 1].last = lastChild ? m_nodes[lastChild - 1].last : id;
  }
  m_lastChild.clear();
}

}  // namespace platform::grammar
