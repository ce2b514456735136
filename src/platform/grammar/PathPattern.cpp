#include "platform/grammar/PathPattern.h"

namespace platform::grammar {
namespace {

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

}  // namespace

bool PathPattern::Compile(std::string_view pattern, const Grammar& grammar, PathPattern& out,
                          std::string& error) {
  out = PathPattern();
  std::string_view p = Trim(pattern);
  if (p.empty()) {
    error = "empty path pattern";
    return false;
  }
  if (p.front() == '/') {
    out.m_anchored = true;
    p.remove_prefix(1);
  }
  // Split at "/" outside quotes.
  std::vector<std::string_view> raw;
  size_t begin = 0;
  char quote = 0;
  for (size_t i = 0; i <= p.size(); ++i) {
    char c = i < p.size() ? p[i] : '/';
    if (quote) {
      if (c == quote) quote = 0;
      else if (i == p.size()) {
        error = "unterminated quote in path pattern '" + std::string(pattern) + "'";
        return false;
      }
      continue;
    }
    if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '/') {
      raw.push_back(p.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  bool pendingAnyDepth = !out.m_anchored;
  for (size_t i = 0; i < raw.size(); ++i) {
    std::string_view s = Trim(raw[i]);
    Step step;
    step.anyDepth = pendingAnyDepth;
    pendingAnyDepth = false;
    if (s.substr(0, 2) == ".*") {
      step.anyDepth = true;
      s = Trim(s.substr(2));
      if (s.empty()) {
        if (i + 1 < raw.size()) {
          pendingAnyDepth = true;
          continue;
        }
        step.anyName = true;  // a trailing ".*": any node at any depth
        out.m_steps.push_back(step);
        continue;
      }
    }
    size_t eq = s.find('=');
    std::string_view name = Trim(s.substr(0, eq));
    if (name.empty()) {
      error = "empty step in path pattern '" + std::string(pattern) + "'";
      return false;
    }
    step.name = std::string(name);
    step.anyName = name == "*";
    step.nameId = step.anyName ? -1 : grammar.FindNameId(step.name);
    if (eq != std::string_view::npos) {
      std::string_view t = Trim(s.substr(eq + 1));
      if (!t.empty() && (t.front() == '"' || t.front() == '\'')) {
        if (t.size() < 2 || t.back() != t.front()) {
          error = "unterminated quote in path pattern '" + std::string(pattern) + "'";
          return false;
        }
        t = t.substr(1, t.size() - 2);
      }
      step.hasText = true;
      step.text = std::string(t);
    }
    out.m_steps.push_back(std::move(step));
  }
  if (out.m_steps.empty()) {
    error = "empty path pattern";
    return false;
  }
  return true;
}

bool PathPattern::StepMatches(const ParseTree& tree, const Grammar& grammar,
                              std::string_view input, int32_t id, const Step& step) const {
  const ParseTree::Node& n = tree.At(id);
  if (!step.anyName && (step.nameId < 0 || grammar.rules[n.rule].nameId != step.nameId))
    return false;
  if (step.hasText) {
    if (n.textEnd < n.textStart || static_cast<size_t>(n.textEnd) > input.size()) return false;
    if (input.substr(n.textStart, n.textEnd - n.textStart) != step.text) return false;
  }
  return true;
}

bool PathPattern::MatchFrom(const ParseTree& tree, const Grammar& grammar, std::string_view input,
                            int32_t id, size_t k, int32_t start) const {
  const Step& step = m_steps[k];
  if (!StepMatches(tree, grammar, input, id, step)) return false;
  int32_t parent = tree.At(id).parent;
  if (k == 0) return step.anyDepth || parent == start;
  if (!step.anyDepth)
    return parent != start && parent != 0 && MatchFrom(tree, grammar, input, parent, k - 1, start);
  for (int32_t a = parent; a != start && a != 0; a = tree.At(a).parent)
    if (MatchFrom(tree, grammar, input, a, k - 1, start)) return true;
  return false;
}

bool PathPattern::Matches(const ParseTree& tree, const Grammar& grammar, std::string_view input,
                          int32_t id, int32_t start) const {
  if (!tree.Valid(id) || m_steps.empty()) return false;
  if (start != 0) {
    if (!tree.Valid(start) || id <= start || id > tree.At(start).last) return false;
  }
  return MatchFrom(tree, grammar, input, id, m_steps.size() - 1, start);
}

int32_t PathPattern::FindNext(const ParseTree& tree, const Grammar& grammar,
                              std::string_view input, int32_t start, int32_t from) const {
  int32_t last = tree.Size();
  if (start != 0) {
    if (!tree.Valid(start)) return 0;
    last = tree.At(start).last;
    if (from < start) from = start;
  }
  for (int32_t id = from + 1; id <= last; ++id)
    if (MatchFrom(tree, grammar, input, id, m_steps.size() - 1, start)) return id;
  return 0;
}

}  // namespace platform::grammar
