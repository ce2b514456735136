#include "platform/grammar/PegMatcher.h"

#include <algorithm>

namespace platform::grammar {
namespace {

// Larger inputs are refused: positions and node ids are 32-bit.
constexpr size_t kMaxInput = size_t{1} << 30;
// Inputs that would need a larger memo index are matched without memoisation.
constexpr size_t kMaxMemoCells = size_t{1} << 25;

inline unsigned char Lower(unsigned char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<unsigned char>(c + 32) : c;
}

}  // namespace

bool PegMatcher::Parse(std::string_view text, int32_t startRule, ParseTree& tree) {
  tree.Clear();
  if (startRule < 0 || startRule >= static_cast<int32_t>(m_g.rules.size())) return false;
  if (text.size() >= kMaxInput) return false;
  m_in = reinterpret_cast<const unsigned char*>(text.data());
  m_n = static_cast<int32_t>(text.size());
  bool ok = Run(startRule, -1);
  if (!ok && !m_aborted && m_farthest > 0) {
    // Run again, stopping where the first run got farthest: what was matched on the
    // way there is what the tree keeps.
    Run(startRule, m_farthest);
  }
  Build(tree);
  return ok && m_endOfMatch == m_n;
}

bool PegMatcher::Run(int32_t startRule, int32_t abortAt) {
  m_nodes.clear();
  m_lists.clear();
  m_stack.clear();
  // The index is cleared where the last run wrote it, not whole: most parses are of
  // small texts after a large one, and most cells of a run stay empty.
  for (const Memo& m : m_memos) m_memoIndex[static_cast<size_t>(m.cell)] = -1;
  m_memos.clear();
  size_t cells = static_cast<size_t>(m_n + 1) * static_cast<size_t>(m_g.memoisedRules);
  m_memoise = cells <= kMaxMemoCells;  // too large to keep: the budget still bounds the time
  if (m_memoise && m_memoIndex.size() < cells) m_memoIndex.resize(cells, -1);
  m_capStart = m_capEnd = -1;
  m_depth = 0;
  m_predicates = 0;
  m_steps = 0;
  m_budget = int64_t{256} * (m_n + 1) + (int64_t{1} << 20);
  m_maxNodes = size_t{16} * static_cast<size_t>(m_n + 1) + (size_t{1} << 20);
  m_farthest = 0;
  m_abortAt = abortAt;
  m_aborted = false;
  m_abortPos = 0;
  m_endOfMatch = EvalRule(startRule, 0);
  return m_endOfMatch >= 0;
}

void PegMatcher::Abort(int32_t pos) {
  if (m_aborted) return;
  m_aborted = true;
  m_abortPos = pos;
}

inline int32_t PegMatcher::Consumed(int32_t end) {
  if (m_predicates == 0) {
    if (end > m_farthest) m_farthest = end;
    if (m_abortAt > 0 && end >= m_abortAt) {
      Abort(end);
      return -1;
    }
  }
  return end;
}

const PegMatcher::Memo* PegMatcher::Find(const Rule& rule, int32_t pos) const {
  if (!m_memoise) return nullptr;
  int32_t i = m_memoIndex[static_cast<size_t>(pos) * m_g.memoisedRules + rule.memoSlot];
  return i >= 0 ? &m_memos[i] : nullptr;
}

PegMatcher::Memo* PegMatcher::Insert(const Rule& rule, int32_t pos) {
  if (!m_memoise) return nullptr;
  size_t cell = static_cast<size_t>(pos) * m_g.memoisedRules + rule.memoSlot;
  m_memoIndex[cell] = static_cast<int32_t>(m_memos.size());
  m_memos.emplace_back();
  m_memos.back().cell = static_cast<int32_t>(cell);
  return &m_memos.back();
}

int32_t PegMatcher::MakeNode(int32_t rule, int32_t start, int32_t end, size_t mark,
                             int32_t capStart, int32_t capEnd) {
  WorkNode w;
  w.rule = rule;
  w.start = start;
  w.end = end;
  w.textStart = capStart >= 0 ? capStart : start;
  w.textEnd = capStart >= 0 ? capEnd : end;
  w.kidsOff = static_cast<int32_t>(m_lists.size());
  w.kidsCount = static_cast<int32_t>(m_stack.size() - mark);
  m_lists.insert(m_lists.end(), m_stack.begin() + static_cast<std::ptrdiff_t>(mark),
                 m_stack.end());
  Truncate(mark);
  m_nodes.push_back(w);
  return static_cast<int32_t>(m_nodes.size() - 1);
}

int32_t PegMatcher::EvalRule(int32_t r, int32_t pos) {
  const Rule& rule = m_g.rules[r];
  if (!rule.nullable && (pos >= m_n || !m_g.classes[rule.firstSet][m_in[pos]])) return -1;
  if (rule.memoize) {
    if (const Memo* hit = Find(rule, pos)) {
      if (hit->end < 0) return -1;
      if (hit->node >= 0) {
        m_stack.push_back(hit->node);
      } else {
        for (int32_t i = 0; i < hit->count; ++i) m_stack.push_back(m_lists[hit->off + i]);
        m_steps += hit->count;
        if (hit->capStart >= 0 && m_capStart < 0) {
          m_capStart = hit->capStart;
          m_capEnd = hit->capEnd;
        }
      }
      return hit->end > pos ? Consumed(hit->end) : hit->end;
    }
  }
  if (m_nodes.size() >= m_maxNodes) {
    Abort(pos);
    return -1;
  }
  size_t mark = m_stack.size();
  int32_t outerStart = m_capStart, outerEnd = m_capEnd;
  m_capStart = m_capEnd = -1;
  int32_t end = Sub(rule.body, pos);
  int32_t capStart = m_capStart, capEnd = m_capEnd;
  m_capStart = outerStart;
  m_capEnd = outerEnd;
  if (m_aborted) {
    // Stopped inside: the node keeps what it matched so far.
    if (rule.makesNode)
      m_stack.push_back(MakeNode(r, pos, std::max(pos, m_abortPos), mark, capStart, capEnd));
    return -1;
  }
  if (end < 0) {
    Truncate(mark);
    if (rule.memoize)
      if (Memo* m = Insert(rule, pos)) m->end = -1;
    return -1;
  }
  if (rule.makesNode) {
    int32_t id = MakeNode(r, pos, end, mark, capStart, capEnd);
    m_stack.push_back(id);
    if (rule.memoize)
      if (Memo* m = Insert(rule, pos)) m->end = end, m->node = id;
    return end;
  }
  if (capStart >= 0 && m_capStart < 0) {
    m_capStart = capStart;
    m_capEnd = capEnd;
  }
  if (rule.memoize) {
    int32_t off = static_cast<int32_t>(m_lists.size());
    int32_t count = static_cast<int32_t>(m_stack.size() - mark);
    m_lists.insert(m_lists.end(), m_stack.begin() + static_cast<std::ptrdiff_t>(mark),
                   m_stack.end());
    if (Memo* m = Insert(rule, pos)) {
      m->end = end;
      m->off = off;
      m->count = count;
      m->capStart = capStart;
      m->capEnd = capEnd;
    }
  }
  return end;
}

[[gnu::always_inline]] inline int32_t PegMatcher::Terminal(const Expr& x, int32_t pos) {
  switch (x.op) {
    case Op::Literal: {
      const std::string& s = m_g.literals[x.arg];
      int32_t len = static_cast<int32_t>(s.size());
      if (len == 0) return pos;
      if (len > m_n - pos || m_in[pos] != static_cast<unsigned char>(s[0])) return -1;
      for (int32_t i = 1; i < len; ++i)
        if (m_in[pos + i] != static_cast<unsigned char>(s[i])) return -1;
      return Consumed(pos + len);
    }
    case Op::LiteralI: {
      const std::string& s = m_g.literals[x.arg];
      int32_t len = static_cast<int32_t>(s.size());
      if (len > m_n - pos) return -1;
      for (int32_t i = 0; i < len; ++i)
        if (Lower(m_in[pos + i]) != Lower(static_cast<unsigned char>(s[i]))) return -1;
      return len ? Consumed(pos + len) : pos;
    }
    case Op::Class:
      if (pos < m_n && m_g.classes[x.arg][m_in[pos]]) return Consumed(pos + 1);
      return -1;
    case Op::Any:
      if (pos < m_n) return Consumed(pos + 1);
      return -1;
    case Op::ClassStar:
    case Op::ClassPlus: {
      const ByteClass& c = m_g.classes[x.arg];
      int32_t p = pos;
      while (p < m_n && c[m_in[p]]) ++p;
      m_steps += (p - pos) >> 3;  // long scans count against the budget too
      if (p > pos) return Consumed(p);
      return x.op == Op::ClassStar ? pos : -1;
    }
    case Op::ScanUntil: {
      const std::string& s = m_g.literals[x.arg];
      std::string_view rest(reinterpret_cast<const char*>(m_in) + pos,
                            static_cast<size_t>(m_n - pos));
      size_t at = rest.find(s);
      int32_t p = at == std::string_view::npos ? m_n : pos + static_cast<int32_t>(at);
      m_steps += (p - pos) >> 3;
      return p > pos ? Consumed(p) : pos;
    }
    default:
      return pos;  // Empty
  }
}

// Every operand is evaluated through here. A terminal is matched in place; an
// expression that cannot start with the byte at `pos` fails without being entered,
// which spares most of the alternatives and optional parts of a grammar their call.
[[gnu::always_inline]] inline int32_t PegMatcher::Sub(int32_t e, int32_t pos) {
  const Expr& x = m_g.exprs[e];
  if (IsTerminal(x.op)) return Terminal(x, pos);
  if (!x.nullable && (pos >= m_n || !m_g.classes[x.firstSet][m_in[pos]])) return -1;
  return Enter(x, pos);
}

// Terminals take bounded work (long scans are counted where they run) and call
// nothing, so only the other expressions count against the budget and the depth.
[[gnu::always_inline]] inline int32_t PegMatcher::Enter(const Expr& x, int32_t pos) {
  if (++m_steps > m_budget || m_depth >= kMaxDepth) {
    Abort(pos);
    return -1;
  }
  ++m_depth;
  int32_t r = Dispatch(x, pos);
  --m_depth;
  return r;
}

[[gnu::always_inline]] inline int32_t PegMatcher::ChoiceAt(const Expr& x, int32_t pos) {
  size_t mark = m_stack.size();
  int32_t cs = m_capStart, ce = m_capEnd;
  bool atEnd = pos >= m_n;
  unsigned char c = atEnd ? 0 : m_in[pos];
  int32_t k = (atEnd || x.dispatch < 0) ? 0 : m_g.dispatch[x.dispatch][c];
  for (; k < x.count; ++k) {
    int32_t kid = m_g.kids[x.first + k];
    int32_t r = Sub(kid, pos);
    if (r >= 0) return r;
    if (m_aborted) return -1;
    Truncate(mark);
    m_capStart = cs;
    m_capEnd = ce;
  }
  return -1;
}

int32_t PegMatcher::Dispatch(const Expr& x, int32_t pos) {
  switch (x.op) {
    case Op::Seq:
      for (int32_t k = 0; k < x.count && pos >= 0; ++k) pos = Sub(m_g.kids[x.first + k], pos);
      return pos;
    case Op::Choice:
      return ChoiceAt(x, pos);
    case Op::Plus: {
      int32_t r = Sub(m_g.kids[x.first], pos);
      if (r <= pos) return r;
      pos = r;
      [[fallthrough]];
    }
    case Op::Star: {
      int32_t kid = m_g.kids[x.first];
      const Expr& k = m_g.exprs[kid];
      // The repetition of a choice of items is how most grammars read a text: its
      // choice is made here, without a call of its own for every item.
      const bool choice = k.op == Op::Choice;
      for (;;) {
        size_t mark = m_stack.size();
        int32_t cs = m_capStart, ce = m_capEnd;
        int32_t r;
        if (!choice) {
          r = Sub(kid, pos);
        } else if (++m_steps > m_budget) {
          Abort(pos);
          r = -1;
        } else {
          r = ChoiceAt(k, pos);
        }
        if (r < 0) {
          if (m_aborted) return -1;
          Truncate(mark);
          m_capStart = cs;
          m_capEnd = ce;
          return pos;
        }
        if (r == pos) return pos;  // no progress: stop rather than loop
        pos = r;
      }
    }
    case Op::Optional: {
      size_t mark = m_stack.size();
      int32_t cs = m_capStart, ce = m_capEnd;
      int32_t r = Sub(m_g.kids[x.first], pos);
      if (r >= 0) return r;
      if (m_aborted) return -1;
      Truncate(mark);
      m_capStart = cs;
      m_capEnd = ce;
      return pos;
    }
    case Op::And:
    case Op::Not: {
      size_t mark = m_stack.size();
      int32_t cs = m_capStart, ce = m_capEnd;
      ++m_predicates;
      int32_t r = Sub(m_g.kids[x.first], pos);
      --m_predicates;
      Truncate(mark);
      m_capStart = cs;
      m_capEnd = ce;
      if (m_aborted) return -1;
      if (x.op == Op::And) return r >= 0 ? pos : -1;
      return r >= 0 ? -1 : pos;
    }
    case Op::Rule:
      return EvalRule(x.arg, pos);
    case Op::Capture: {
      int32_t r = Sub(m_g.kids[x.first], pos);
      if (r >= 0 && m_capStart < 0) {
        m_capStart = pos;
        m_capEnd = r;
      }
      return r;
    }
    default:
      return Terminal(x, pos);
  }
}

void PegMatcher::Build(ParseTree& tree) {
  tree.Clear();
  m_todo.clear();
  for (size_t i = m_stack.size(); i-- > 0;) m_todo.push_back({m_stack[i], 0});
  while (!m_todo.empty()) {
    auto [w, parent] = m_todo.back();
    m_todo.pop_back();
    const WorkNode& n = m_nodes[w];
    ParseTree::Node node;
    node.rule = n.rule;
    node.start = n.start;
    node.end = n.end;
    node.textStart = n.textStart;
    node.textEnd = n.textEnd;
    node.parent = parent;
    int32_t id = tree.Append(node);
    for (int32_t k = n.kidsCount; k-- > 0;) m_todo.push_back({m_lists[n.kidsOff + k], id});
  }
  tree.Finish();
}

}  // namespace platform::grammar
