#include "platform/grammar/GrammarParser.h"

#include <algorithm>

#include "platform/core/Error.h"
#include "platform/grammar/GrammarReader.h"

namespace platform::grammar {

GrammarParser::GrammarParser() = default;
GrammarParser::~GrammarParser() = default;

void GrammarParser::Forget() {
  m_tree.Clear();
  m_searches.clear();
  m_nextHandle = kHandleBase;
  m_linesReady = false;
}

bool GrammarParser::LoadGrammar(const std::string& path) {
  Forget();
  m_patterns.clear();
  m_matcher.reset();
  m_grammar.reset();
  m_start = 0;
  auto g = std::make_unique<Grammar>();
  if (!GrammarReader::ReadFile(path, *g, m_error)) return false;
  m_error.clear();
  m_grammar = std::move(g);
  m_matcher = std::make_unique<PegMatcher>(*m_grammar);
  return true;
}

int32_t GrammarParser::FindProduction(const std::string& name) const {
  if (!m_grammar) return 0;
  return m_grammar->FindRule(name) + 1;
}

void GrammarParser::SetStartProduction(int32_t production) {
  if (!m_grammar || production < 1 || production > static_cast<int32_t>(m_grammar->rules.size()))
    throw Error(err::kInvalidCall, "No such production: " + std::to_string(production));
  m_start = production - 1;
}

void GrammarParser::SetInputText(std::string text) {
  Forget();
  m_input = std::move(text);
}

bool GrammarParser::Parse() {
  Forget();
  if (!m_grammar) return false;
  return m_matcher->Parse(m_input, m_start, m_tree);
}

std::shared_ptr<const PathPattern> GrammarParser::Compile(const std::string& pattern) {
  if (!m_grammar) return nullptr;
  auto it = m_patterns.find(pattern);
  if (it != m_patterns.end()) return it->second;
  auto compiled = std::make_shared<PathPattern>();
  std::string error;
  if (!PathPattern::Compile(pattern, *m_grammar, *compiled, error))
    throw Error(err::kInvalidCall, error);
  // Callers use a handful of patterns over and over; a flood of different ones is not
  // worth keeping.
  if (m_patterns.size() > 256) m_patterns.clear();
  m_patterns.emplace(pattern, compiled);
  return compiled;
}

int32_t GrammarParser::StartSearch(const std::string& pattern, int32_t startNode) {
  auto compiled = Compile(pattern);
  if (!compiled || (startNode != 0 && !m_tree.Valid(startNode))) return 0;
  int32_t first = compiled->FindNext(m_tree, *m_grammar, m_input, startNode, startNode);
  if (first == 0) return 0;
  if (m_nextHandle == INT32_MAX) return 0;
  int32_t handle = m_nextHandle++;
  Search& s = m_searches[handle];
  s.pattern = std::move(compiled);
  s.start = startNode;
  s.first = first;
  s.pending = first;
  return handle;
}

int32_t GrammarParser::NextMatch(int32_t handle) {
  auto it = m_searches.find(handle);
  if (it == m_searches.end()) return 0;
  Search& s = it->second;
  int32_t match = s.pending;
  if (match) s.pending = s.pattern->FindNext(m_tree, *m_grammar, m_input, s.start, match);
  return match;
}

int32_t GrammarParser::FirstMatch(int32_t handle) {
  auto it = m_searches.find(handle);
  if (it == m_searches.end()) return 0;
  Search& s = it->second;
  s.pending = s.pattern->FindNext(m_tree, *m_grammar, m_input, s.start, s.first);
  return s.first;
}

void GrammarParser::EndSearch(int32_t handle) { m_searches.erase(handle); }

int32_t GrammarParser::SearchBelow(int32_t node, const std::string& pattern) {
  auto compiled = Compile(pattern);
  if (!compiled || (node != 0 && !m_tree.Valid(node))) return 0;
  return compiled->FindNext(m_tree, *m_grammar, m_input, node, node);
}

const GrammarParser::Search* GrammarParser::FindSearch(int32_t handle) const {
  auto it = m_searches.find(handle);
  return it == m_searches.end() ? nullptr : &it->second;
}

std::string GrammarParser::NodeText(int32_t node) const {
  if (!m_tree.Valid(node)) return "";
  const auto& n = m_tree.At(node);
  int32_t size = static_cast<int32_t>(m_input.size());
  int32_t s = std::clamp(n.textStart, 0, size), e = std::clamp(n.textEnd, 0, size);
  return e > s ? m_input.substr(s, e - s) : "";
}

std::string GrammarParser::NodeName(int32_t node) const {
  if (!m_tree.Valid(node) || !m_grammar) return "";
  return m_grammar->rules[m_tree.At(node).rule].name;
}

int32_t GrammarParser::ParentNode(int32_t node) const {
  return m_tree.Valid(node) ? m_tree.At(node).parent : 0;
}

int32_t GrammarParser::NextSibling(int32_t node) const {
  return m_tree.Valid(node) ? m_tree.At(node).nextSibling : 0;
}

int32_t GrammarParser::FirstChild(int32_t node) const {
  return m_tree.Valid(node) ? m_tree.At(node).firstChild : 0;
}

int32_t GrammarParser::Position(int32_t nodeOrHandle) const {
  if (nodeOrHandle >= kHandleBase) {
    const Search* s = FindSearch(nodeOrHandle);
    if (!s || s->start == 0) return 0;
    nodeOrHandle = s->start;
  }
  return m_tree.Valid(nodeOrHandle) ? m_tree.At(nodeOrHandle).start : 0;
}

int32_t GrammarParser::LineOfPosition(int32_t position) const {
  if (!m_linesReady) {
    m_lineStarts.assign(1, 0);
    for (size_t i = 0; i < m_input.size(); ++i) {
      char c = m_input[i];
      if (c == '\n' || (c == '\r' && (i + 1 >= m_input.size() || m_input[i + 1] != '\n')))
        m_lineStarts.push_back(static_cast<int32_t>(i + 1));
    }
    m_linesReady = true;
  }
  if (position <= 0) return 0;
  auto it = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), position);
  return static_cast<int32_t>(it - m_lineStarts.begin()) - 1;
}

}  // namespace platform::grammar
