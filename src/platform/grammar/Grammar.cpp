#include "platform/grammar/Grammar.h"

#include <bitset>
#include <cctype>
#include <functional>
#include <unordered_map>

namespace platform::grammar {

int32_t Grammar::FindRule(const std::string& name) const {
  auto dot = name.find('.');
  if (dot != std::string::npos) {
    std::string g = name.substr(0, dot), r = name.substr(dot + 1);
    for (size_t i = 0; i < rules.size(); ++i)
      if (rules[i].grammar == g && rules[i].name == r) return static_cast<int32_t>(i);
    return -1;
  }
  int32_t found = -1;
  for (size_t i = 0; i < rules.size(); ++i) {
    if (rules[i].name != name) continue;
    if (found >= 0) return -1;  // ambiguous without its grammar
    found = static_cast<int32_t>(i);
  }
  return found;
}

int32_t Grammar::FindNameId(const std::string& name) const {
  for (size_t i = 0; i < names.size(); ++i)
    if (names[i] == name) return static_cast<int32_t>(i);
  return -1;
}

int32_t Grammar::AddExpr(Op op, int32_t line, int32_t column) {
  Expr e;
  e.op = op;
  e.line = line;
  e.column = column;
  exprs.push_back(e);
  return static_cast<int32_t>(exprs.size() - 1);
}

int32_t Grammar::AddClass(const ByteClass& c) {
  classes.push_back(c);
  return static_cast<int32_t>(classes.size() - 1);
}

int32_t Grammar::AddLiteral(std::string text) {
  literals.push_back(std::move(text));
  return static_cast<int32_t>(literals.size() - 1);
}

std::string Grammar::Where(int32_t line, int32_t column) const {
  return source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": ";
}

bool Grammar::Analyse(std::string& error) {
  // The analysis makes passes over the whole grammar until nothing changes; far larger
  // than any real grammar, a grammar could keep it busy for long.
  if (rules.size() > kMaxRules || exprs.size() > kMaxExprs) {
    error = source + ": grammar too large (at most " + std::to_string(kMaxRules) + " rules and " +
            std::to_string(kMaxExprs) + " expressions)";
    return false;
  }
  names.clear();
  std::unordered_map<std::string, int32_t> ids;
  for (auto& r : rules) {
    auto [it, added] = ids.emplace(r.name, static_cast<int32_t>(names.size()));
    if (added) names.push_back(r.name);
    int32_t id = it->second;
    r.nameId = id;
    r.makesNode = r.name.empty() || r.name[0] != '_';
  }
  ComputeNullable();
  if (!CheckLeftRecursion(error)) return false;
  if (!CheckRepetitions(error)) return false;
  ComputeFirstSets();
  InlineRules(false);
  Rewrite();
  PlanMemoisation();
  InlineRules(true);
  FlattenChoices();
  BuildDispatch();
  return true;
}

void Grammar::BuildDispatch() {
  dispatch.clear();
  for (auto& e : exprs) {
    e.dispatch = -1;
    if (e.op != Op::Choice || e.count > 255) continue;
    std::array<uint8_t, 256> table;
    for (int c = 0; c < 256; ++c) {
      int32_t k = 0;
      for (; k < e.count; ++k) {
        const Expr& alt = exprs[kids[e.first + k]];
        if (alt.nullable || classes[alt.firstSet][c]) break;
      }
      table[c] = static_cast<uint8_t>(k);
    }
    dispatch.push_back(table);
    e.dispatch = static_cast<int32_t>(dispatch.size() - 1);
  }
}

bool Grammar::RefersToRules(int32_t body) const {
  uint32_t stamp = NewStamp();
  std::vector<int32_t>& todo = m_todo;
  todo.assign(1, body);
  while (!todo.empty()) {
    int32_t e = todo.back();
    todo.pop_back();
    if (m_stamps[e] == stamp) continue;
    m_stamps[e] = stamp;
    if (exprs[e].op == Op::Rule) return true;
    for (int32_t k = 0; k < exprs[e].count; ++k) todo.push_back(kids[exprs[e].first + k]);
  }
  return false;
}

uint32_t Grammar::NewStamp() const {
  if (m_stamps.size() != exprs.size() || m_stamp == UINT32_MAX) {
    m_stamps.assign(exprs.size(), 0);
    m_stamp = 0;
  }
  return ++m_stamp;
}

void Grammar::PlanMemoisation() {
  // Only a rule that can be called at the same position from two places can make
  // backtracking repeat work, and only one that calls rules can make that repetition
  // grow: those are memoised, which bounds the work to linear time. The rest is not
  // worth a memo entry.
  std::vector<int32_t> sites(rules.size(), 0);
  std::vector<char> seen(exprs.size(), 0);
  std::vector<int32_t> todo;
  for (const auto& r : rules) todo.push_back(r.body);
  while (!todo.empty()) {
    int32_t e = todo.back();
    todo.pop_back();
    if (seen[e]) continue;
    seen[e] = 1;
    if (exprs[e].op == Op::Rule) ++sites[exprs[e].arg];
    for (int32_t k = 0; k < exprs[e].count; ++k) todo.push_back(kids[exprs[e].first + k]);
  }
  memoisedRules = 0;
  for (size_t i = 0; i < rules.size(); ++i) {
    rules[i].memoize = sites[i] >= 2 && RefersToRules(rules[i].body);
    rules[i].memoSlot = rules[i].memoize ? memoisedRules++ : -1;
  }
}

void Grammar::InlineRules(bool withCalls) {
  // A call of a rule that makes no node and is not memoised is replaced by the rule's
  // body: same matches, same text, one evaluation less. First only rules that call no
  // others; then (withCalls) every such rule, unless it calls itself.
  std::vector<char> refers(rules.size());
  bool changed = true;
  while (changed) {
    changed = false;
    for (size_t r = 0; r < rules.size(); ++r) refers[r] = RefersToRules(rules[r].body);
    for (size_t i = 0; i < exprs.size(); ++i) {
      for (int hops = 0; exprs[i].op == Op::Rule && hops < 64; ++hops) {
        int32_t target = exprs[i].arg;
        const Rule& r = rules[target];
        if (r.makesNode || r.memoize) break;
        if (refers[target] && (!withCalls || Contains(r.body, static_cast<int32_t>(i)))) break;
        int32_t line = exprs[i].line, column = exprs[i].column;
        exprs[i] = exprs[r.body];
        exprs[i].line = line;
        exprs[i].column = column;
        changed = true;
      }
    }
  }
}

void Grammar::FlattenChoices() {
  // A choice among alternatives of which one is itself a choice, as inlining leaves
  // them (`a / _b` with `_b <- c / d`), tries the same alternatives in the same order
  // as the one choice `a / c / d`: made so, the inner alternatives are tried without a
  // call of their own, and the first byte picks among all of them.
  std::vector<int32_t> flat;
  for (size_t i = 0; i < exprs.size(); ++i) {
    if (exprs[i].op != Op::Choice) continue;
    bool nested = false;
    for (int32_t k = 0; k < exprs[i].count && !nested; ++k) nested = exprs[kids[exprs[i].first + k]].op == Op::Choice;
    if (!nested) continue;
    flat.clear();
    std::vector<int32_t>& todo = m_todo;
    todo.clear();
    for (int32_t k = exprs[i].count; k-- > 0;) todo.push_back(kids[exprs[i].first + k]);
    while (!todo.empty() && flat.size() <= 255) {
      int32_t e = todo.back();
      todo.pop_back();
      if (exprs[e].op != Op::Choice) {
        flat.push_back(e);
        continue;
      }
      for (int32_t k = exprs[e].count; k-- > 0;) todo.push_back(kids[exprs[e].first + k]);
    }
    // Kept as it is where the flat choice would be too long for a dispatch table.
    if (!todo.empty() || flat.size() > 255) continue;
    exprs[i].first = static_cast<int32_t>(kids.size());
    exprs[i].count = static_cast<int32_t>(flat.size());
    kids.insert(kids.end(), flat.begin(), flat.end());
  }
}

bool Grammar::Contains(int32_t root, int32_t target) const {
  uint32_t stamp = NewStamp();
  std::vector<int32_t>& todo = m_todo;
  todo.assign(1, root);
  while (!todo.empty()) {
    int32_t e = todo.back();
    todo.pop_back();
    if (e == target) return true;
    if (m_stamps[e] == stamp) continue;
    m_stamps[e] = stamp;
    if (exprs[e].op == Op::Rule) {
      todo.push_back(rules[exprs[e].arg].body);
      continue;
    }
    for (int32_t k = 0; k < exprs[e].count; ++k) todo.push_back(kids[exprs[e].first + k]);
  }
  return false;
}

template <class F>
void Grammar::UntilStable(F visit) {
  // Alternating the order of the rules lets a chain of rules settle in one pass,
  // whichever way it was written.
  bool changed = true;
  for (bool ascending = true; changed; ascending = !ascending) {
    changed = false;
    for (size_t i = 0; i < rules.size(); ++i) {
      const Rule& r = rules[ascending ? i : rules.size() - 1 - i];
      for (int32_t e = r.firstExpr; e <= r.body; ++e) changed = visit(e) || changed;
      changed = visit(-1 - static_cast<int32_t>(&r - rules.data())) || changed;
    }
  }
}

bool Grammar::ComputeNullable() {
  for (auto& e : exprs) e.nullable = false;
  for (auto& r : rules) r.nullable = false;
  UntilStable([&](int32_t i) {
    if (i < 0) {
      Rule& r = rules[-1 - i];
      if (!exprs[r.body].nullable || r.nullable) return false;
      r.nullable = true;
      return true;
    }
    Expr& e = exprs[i];
    if (e.nullable) return false;
    bool n = false;
    switch (e.op) {
      case Op::Empty: case Op::Star: case Op::Optional: case Op::And: case Op::Not:
      case Op::ClassStar: case Op::ScanUntil:
        n = true;
        break;
      case Op::Literal: case Op::LiteralI: n = literals[e.arg].empty(); break;
      case Op::Class: case Op::Any: case Op::ClassPlus: n = false; break;
      case Op::Seq:
        n = true;
        for (int32_t k = 0; k < e.count; ++k) n = n && exprs[kids[e.first + k]].nullable;
        break;
      case Op::Choice:
        for (int32_t k = 0; k < e.count; ++k) n = n || exprs[kids[e.first + k]].nullable;
        break;
      case Op::Plus: case Op::Capture: n = exprs[kids[e.first]].nullable; break;
      case Op::Rule: n = rules[e.arg].nullable; break;
    }
    e.nullable = n;
    return n;
  });
  return true;
}

bool Grammar::CheckLeftRecursion(std::string& error) {
  // The rules each rule can call before it has consumed anything.
  std::vector<std::vector<int32_t>> left(rules.size());
  std::function<void(int32_t, std::vector<int32_t>&)> collect = [&](int32_t e,
                                                                     std::vector<int32_t>& out) {
    const Expr& x = exprs[e];
    switch (x.op) {
      case Op::Rule: out.push_back(x.arg); break;
      case Op::Seq:
        for (int32_t k = 0; k < x.count; ++k) {
          int32_t kid = kids[x.first + k];
          collect(kid, out);
          if (!exprs[kid].nullable) break;
        }
        break;
      case Op::Choice: case Op::Star: case Op::Plus: case Op::Optional: case Op::And:
      case Op::Not: case Op::Capture:
        for (int32_t k = 0; k < x.count; ++k) collect(kids[x.first + k], out);
        break;
      default: break;
    }
  };
  for (size_t i = 0; i < rules.size(); ++i) collect(rules[i].body, left[i]);
  // Depth-first search for a cycle, iterative so that a long chain of rules cannot
  // exhaust the stack; state 1 = on the path, 2 = done.
  std::vector<int> state(rules.size(), 0);
  for (size_t root = 0; root < rules.size(); ++root) {
    if (state[root] != 0) continue;
    std::vector<std::pair<int32_t, size_t>> path{{static_cast<int32_t>(root), 0}};
    state[root] = 1;
    while (!path.empty()) {
      auto& [r, next] = path.back();
      if (next == left[r].size()) {
        state[r] = 2;
        path.pop_back();
        continue;
      }
      int32_t to = left[r][next++];
      if (state[to] == 1) {
        error = Where(rules[to].line, rules[to].column) + "rule '" + rules[to].name +
                "' is left-recursive";
        return false;
      }
      if (state[to] == 0) {
        state[to] = 1;
        path.push_back({to, 0});
      }
    }
  }
  return true;
}

bool Grammar::CheckRepetitions(std::string& error) {
  for (const auto& e : exprs) {
    if ((e.op == Op::Star || e.op == Op::Plus) && exprs[kids[e.first]].nullable) {
      error = Where(e.line, e.column) + "repetition of an expression that can match nothing";
      return false;
    }
  }
  return true;
}

void Grammar::ComputeFirstSets() {
  using Bits = std::bitset<256>;
  std::vector<Bits> first(exprs.size()), ruleFirst(rules.size());
  auto merge = [](Bits& into, const Bits& from) {
    Bits before = into;
    into |= from;
    return into != before;
  };
  UntilStable([&](int32_t i) {
    if (i < 0) {
      const Rule& r = rules[-1 - i];
      return merge(ruleFirst[-1 - i], first[r.body]);
    }
    const Expr& e = exprs[i];
    Bits f;
    switch (e.op) {
      case Op::Literal:
        if (!literals[e.arg].empty()) f.set(static_cast<uint8_t>(literals[e.arg][0]));
        break;
      case Op::LiteralI:
        if (!literals[e.arg].empty()) {
          unsigned char c = static_cast<unsigned char>(literals[e.arg][0]);
          f.set(std::tolower(c));
          f.set(std::toupper(c));
        }
        break;
      case Op::Class: case Op::ClassStar: case Op::ClassPlus:
        for (int c = 0; c < 256; ++c)
          if (classes[e.arg][c]) f.set(c);
        break;
      case Op::Any: case Op::ScanUntil: f.set(); break;
      case Op::Seq:
        for (int32_t k = 0; k < e.count; ++k) {
          int32_t kid = kids[e.first + k];
          f |= first[kid];
          if (!exprs[kid].nullable) break;
        }
        break;
      case Op::Choice: case Op::Star: case Op::Plus: case Op::Optional: case Op::Capture:
        for (int32_t k = 0; k < e.count; ++k) f |= first[kids[e.first + k]];
        break;
      case Op::Rule: f = ruleFirst[e.arg]; break;
      case Op::Empty: case Op::And: case Op::Not: break;  // nullable: always tried
    }
    return merge(first[i], f);
  });
  auto toClass = [](const Bits& b) {
    ByteClass c{};
    for (int i = 0; i < 256; ++i) c[i] = b[i];
    return c;
  };
  for (size_t i = 0; i < exprs.size(); ++i) exprs[i].firstSet = AddClass(toClass(first[i]));
  for (size_t r = 0; r < rules.size(); ++r) rules[r].firstSet = AddClass(toClass(ruleFirst[r]));
}

bool Grammar::IsByteClass(int32_t e, ByteClass& out, int depth) const {
  if (depth > 8) return false;
  const Expr& x = exprs[e];
  out.fill(0);
  switch (x.op) {
    case Op::Class: out = classes[x.arg]; return true;
    case Op::Any: out.fill(1); return true;
    case Op::Literal:
      if (literals[x.arg].size() != 1) return false;
      out[static_cast<uint8_t>(literals[x.arg][0])] = 1;
      return true;
    case Op::LiteralI: {
      if (literals[x.arg].size() != 1) return false;
      unsigned char c = static_cast<unsigned char>(literals[x.arg][0]);
      out[std::tolower(c)] = 1;
      out[std::toupper(c)] = 1;
      return true;
    }
    case Op::Choice: {
      ByteClass all{}, one{};
      for (int32_t k = 0; k < x.count; ++k) {
        if (!IsByteClass(kids[x.first + k], one, depth + 1)) return false;
        for (int i = 0; i < 256; ++i) all[i] |= one[i];
      }
      out = all;
      return true;
    }
    case Op::Rule:
      // A rule without a node of its own adds nothing but its bytes.
      if (rules[x.arg].makesNode) return false;
      return IsByteClass(rules[x.arg].body, out, depth + 1);
    default: return false;
  }
}

void Grammar::Rewrite() {
  for (size_t i = 0; i < exprs.size(); ++i) {
    Expr& e = exprs[i];
    if (e.op != Op::Star && e.op != Op::Plus) continue;
    int32_t kid = kids[e.first];
    ByteClass c{};
    if (IsByteClass(kid, c, 0)) {
      e.op = e.op == Op::Star ? Op::ClassStar : Op::ClassPlus;
      e.arg = AddClass(c);
      e.count = 0;
      continue;
    }
    // (!X .)* with X one byte of a class is the complement class; with X a literal it
    // is a scan for that literal.
    const Expr& k = exprs[kid];
    if (k.op != Op::Seq || k.count != 2) continue;
    const Expr& notE = exprs[kids[k.first]];
    const Expr& anyE = exprs[kids[k.first + 1]];
    if (notE.op != Op::Not || anyE.op != Op::Any) continue;
    int32_t guarded = kids[notE.first];
    if (IsByteClass(guarded, c, 0)) {
      for (auto& b : c) b = !b;
      e.op = e.op == Op::Star ? Op::ClassStar : Op::ClassPlus;
      e.arg = AddClass(c);
      e.count = 0;
    } else if (e.op == Op::Star && exprs[guarded].op == Op::Literal &&
               !literals[exprs[guarded].arg].empty()) {
      e.op = Op::ScanUntil;
      e.arg = exprs[guarded].arg;
      e.count = 0;
    }
  }
}

}  // namespace platform::grammar
