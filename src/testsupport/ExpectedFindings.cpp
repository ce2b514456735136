#include "testsupport/ExpectedFindings.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace testsupport {
namespace {

std::string Trim(const std::string& s) {
  size_t b = s.find_first_not_of(" \t");
  if (b == std::string::npos) return "";
  size_t e = s.find_last_not_of(" \t");
  return s.substr(b, e - b + 1);
}

std::string TrimEnd(const std::string& s) {
  size_t e = s.find_last_not_of(" \t");
  return e == std::string::npos ? "" : s.substr(0, e + 1);
}

std::vector<std::string> Words(const std::string& s) {
  std::vector<std::string> out;
  size_t at = 0;
  while (at < s.size()) {
    size_t b = s.find_first_not_of(" \t", at);
    if (b == std::string::npos) break;
    size_t e = s.find_first_of(" \t", b);
    if (e == std::string::npos) e = s.size();
    out.push_back(s.substr(b, e - b));
    at = e;
  }
  return out;
}

// Reads the text after "expect:" into `f`: the problem, then qualifiers in square brackets
// at its end. "" when it reads, else why not.
std::string ParseExpectation(std::string text, ExpectedFinding& f) {
  text = Trim(text);
  int endOffset = 0;
  while (!text.empty() && text.back() == ']') {
    size_t open = text.rfind('[');
    if (open == std::string::npos) return "a ']' without its '['";
    std::string q = Trim(text.substr(open + 1, text.size() - open - 2));
    text = Trim(text.substr(0, open));
    size_t space = q.find(' ');
    std::string key = q.substr(0, space);
    std::string value = space == std::string::npos ? "" : Trim(q.substr(space + 1));
    if (key == "member" && !value.empty()) {
      f.member = value;
    } else if (key == "type" && !value.empty()) {
      f.type = value;
    } else if (key == "end" && value.size() >= 2 && value[0] == '+' &&
               std::all_of(value.begin() + 1, value.end(), [](char c) { return std::isdigit(static_cast<unsigned char>(c)); }) &&
               value.size() < 7) {
      endOffset = std::stoi(value.substr(1));
    } else {
      return "\"[" + q + "]\" is none of [member NAME], [type KIND], [end +N]";
    }
  }
  if (text.empty()) return "no problem text after \"expect:\"";
  f.problem = text;
  f.end = f.start + endOffset;
  return "";
}

}  // namespace

std::string ExpectedFinding::Describe() const {
  std::string out = "line " + std::to_string(start);
  if (writtenAt != 0 && writtenAt != start) out += " (expected on line " + std::to_string(writtenAt) + ")";
  out += ": " + problem;
  if (!member.empty()) out += " [member " + member + "]";
  if (end != start) out += " [end " + std::string(end > start ? "+" : "") + std::to_string(end - start) + "]";
  if (!type.empty()) out += " [type " + type + "]";
  return out;
}

CheckInput ReadCheckInput(const std::string& text, const std::string& comment) {
  CheckInput out;
  const std::string expectMarker = comment + " expect:";
  const std::string optionsMarker = comment + " options:";
  std::vector<ExpectedFinding> pending;  // expect lines waiting for the line they are about
  // The pending expectations are about line `lineNo`.
  auto settle = [&](int lineNo) {
    for (auto& f : pending) {
      f.start = lineNo;
      f.end += lineNo;
      out.expected.push_back(f);
    }
    pending.clear();
  };
  int lineNo = 0;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t eol = text.find('\n', pos);
    size_t next = eol == std::string::npos ? text.size() : eol + 1;
    std::string line = text.substr(pos, next - pos);
    std::string ending;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
      ending.insert(ending.begin(), line.back());
      line.pop_back();
    }
    pos = next;
    ++lineNo;
    const std::string where = "line " + std::to_string(lineNo) + ": ";

    std::string trimmed = Trim(line);
    if (trimmed.compare(0, optionsMarker.size(), optionsMarker) == 0) {
      if (lineNo != 1) out.errors.push_back(where + "the options line must be the first line");
      out.options = Words(trimmed.substr(optionsMarker.size()));
      out.withoutAnnotations += ending;
      continue;
    }

    size_t at = line.find(expectMarker);
    if (at == std::string::npos) {
      settle(lineNo);
      out.withoutAnnotations += line + ending;
      continue;
    }
    // Several expectations may follow one another on the line.
    const bool ownLine = Trim(line.substr(0, at)).empty();
    std::vector<ExpectedFinding> here;
    for (size_t from = at + expectMarker.size(); from <= line.size();) {
      size_t to = line.find(expectMarker, from);
      if (to == std::string::npos) to = line.size();
      ExpectedFinding f;
      f.writtenAt = lineNo;
      // Parsed against start 0: the end is an offset until the line is known.
      if (std::string error = ParseExpectation(line.substr(from, to - from), f); !error.empty())
        out.errors.push_back(where + error);
      else
        here.push_back(f);
      from = to + expectMarker.size();
    }
    pending.insert(pending.end(), here.begin(), here.end());
    if (!ownLine) settle(lineNo);
    out.withoutAnnotations += (ownLine ? "" : TrimEnd(line.substr(0, at))) + ending;
  }
  for (const auto& p : pending)
    out.errors.push_back("line " + std::to_string(p.writtenAt) + ": no line after the expectation");
  return out;
}

std::vector<std::string> CompareFindings(const std::vector<ExpectedFinding>& expected,
                                         const std::vector<ExpectedFinding>& reported) {
  std::vector<int> rowOf(expected.size(), -1);
  std::vector<bool> taken(reported.size(), false);
  auto meets = [](const ExpectedFinding& e, const ExpectedFinding& r) {
    return r.start == e.start && r.end == e.end && r.problem == e.problem &&
           (e.member.empty() || r.member == e.member) && (e.type.empty() || r.type == e.type);
  };
  // Expectations that name their member first, so that one that names none does not take
  // the row another one needs.
  for (int pass = 0; pass < 2; ++pass) {
    for (size_t i = 0; i < expected.size(); ++i) {
      if ((pass == 0) == expected[i].member.empty()) continue;
      for (size_t j = 0; j < reported.size(); ++j) {
        if (!taken[j] && meets(expected[i], reported[j])) {
          taken[j] = true;
          rowOf[i] = static_cast<int>(j);
          break;
        }
      }
    }
  }

  std::vector<std::string> out;
  for (size_t i = 0; i < expected.size(); ++i)
    if (rowOf[i] < 0) out.push_back("missing:    " + expected[i].Describe());
  for (size_t j = 0; j < reported.size(); ++j)
    if (!taken[j]) out.push_back("unexpected: " + reported[j].Describe());

  // The rows of one line come in the order their expectations are written.
  std::map<int, std::vector<size_t>> byLine;
  for (size_t i = 0; i < expected.size(); ++i) byLine[expected[i].start].push_back(i);
  for (const auto& [line, indexes] : byLine) {
    bool allMet = std::all_of(indexes.begin(), indexes.end(), [&](size_t i) { return rowOf[i] >= 0; });
    bool ordered = std::is_sorted(indexes.begin(), indexes.end(),
                                  [&](size_t a, size_t b) { return rowOf[a] < rowOf[b]; });
    if (!allMet || ordered) continue;
    std::string text = "order:      line " + std::to_string(line) + " reports";
    std::vector<size_t> rows;
    for (size_t i : indexes) rows.push_back(static_cast<size_t>(rowOf[i]));
    std::sort(rows.begin(), rows.end());
    for (size_t j : rows) text += " \"" + reported[j].problem + "\"" + (reported[j].member.empty() ? "" : " (" + reported[j].member + ")");
    out.push_back(text + ", in another order than expected");
  }
  return out;
}

}  // namespace testsupport
