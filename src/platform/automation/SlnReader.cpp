#include "platform/automation/SlnReader.h"

#include <algorithm>
#include <unordered_map>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DefinitionText.h"
#include "platform/automation/FileGlob.h"
#include "platform/core/Error.h"
#include "platform/core/AsciiText.h"

namespace platform::automation {
namespace {

using platform::Trim;

bool StartsWith(std::string_view s, std::string_view prefix) {
  return s.size() >= prefix.size() && LowerAscii(s.substr(0, prefix.size())) == LowerAscii(prefix);
}

std::string Slashes(std::string s) {
  std::replace(s.begin(), s.end(), '\\', '/');
  return s;
}

// A reader of one line's parts: quoted strings and punctuation between blanks.
class LineScanner {
 public:
  explicit LineScanner(std::string_view s) : m_s(s) {}
  bool Literal(std::string_view text) {
    SkipBlanks();
    if (m_s.substr(m_pos, text.size()) != text) return false;
    m_pos += text.size();
    return true;
  }
  bool Quoted(std::string& out) {
    SkipBlanks();
    if (m_pos >= m_s.size() || m_s[m_pos] != '"') return false;
    size_t end = m_s.find('"', m_pos + 1);
    if (end == std::string_view::npos) return false;
    out = std::string(m_s.substr(m_pos + 1, end - m_pos - 1));
    m_pos = end + 1;
    return true;
  }

 private:
  void SkipBlanks() {
    while (m_pos < m_s.size() && (m_s[m_pos] == ' ' || m_s[m_pos] == '\t')) ++m_pos;
  }
  std::string_view m_s;
  size_t m_pos = 0;
};

[[noreturn]] void Malformed(const std::filesystem::path& path, size_t line, const std::string& what) {
  throw Error(err::kInvalidCall, QuotedPath(path) + " line " + std::to_string(line) + ": " + what);
}

}  // namespace

SolutionDescription ParseSln(const std::string& text, const std::filesystem::path& slnPath) {
  SolutionDescription out;
  enum class State { Top, Project, SolutionItems, OtherSection, Global, Nested, OtherGlobalSection };
  State state = State::Top;
  bool sawHeader = false;
  size_t lineNo = 0, blockStart = 0;
  std::vector<std::pair<std::string, std::string>> nesting;  // child id, parent id (upper case)
  size_t pos = text.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;  // a mark left in the text
  while (pos <= text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string line = Trim(std::string_view(text).substr(pos, end - pos));
    pos = end + 1;
    ++lineNo;
    if (line.empty() || line[0] == '#') continue;
    if (!sawHeader) {
      if (!StartsWith(line, "Microsoft Visual Studio Solution File"))
        throw Error(err::kInvalidCall, QuotedPath(slnPath) +
                                           " is not a solution file: it does not begin with "
                                           "\"Microsoft Visual Studio Solution File\"");
      sawHeader = true;
      continue;
    }
    switch (state) {
      case State::Top:
      case State::Project:
        if (StartsWith(line, "Project(")) {
          if (state == State::Project) Malformed(slnPath, blockStart, "Project without EndProject");
          LineScanner scan(line);
          SolutionEntry entry;
          std::string id;
          if (!(scan.Literal("Project(") && scan.Quoted(entry.typeGuid) && scan.Literal(")") && scan.Literal("=") &&
                scan.Quoted(entry.name) && scan.Literal(",") && scan.Quoted(entry.path) && scan.Literal(",") &&
                scan.Quoted(id)))
            Malformed(slnPath, lineNo, "malformed Project line");
          entry.name = Trim(entry.name);
          entry.path = Slashes(Trim(entry.path));
          entry.id = LowerAscii(Trim(id));
          entry.folder = LowerAscii(entry.typeGuid) == LowerAscii(kProjectKindSolutionFolder);
          if (entry.folder) entry.path.clear();
          out.entries.push_back(std::move(entry));
          state = State::Project;
          blockStart = lineNo;
        } else if (state == State::Project && StartsWith(line, "EndProject") && !StartsWith(line, "EndProjectSection")) {
          state = State::Top;
        } else if (state == State::Project && StartsWith(line, "ProjectSection(")) {
          state = StartsWith(line, "ProjectSection(SolutionItems)") ? State::SolutionItems : State::OtherSection;
        } else if (state == State::Top && StartsWith(line, "Global") && !StartsWith(line, "GlobalSection")) {
          state = State::Global;
          blockStart = lineNo;
        }
        break;
      case State::SolutionItems:
      case State::OtherSection:
        if (StartsWith(line, "EndProjectSection")) {
          state = State::Project;
        } else if (StartsWith(line, "EndProject") || StartsWith(line, "Project(")) {
          Malformed(slnPath, lineNo, "ProjectSection without EndProjectSection");
        } else if (state == State::SolutionItems) {
          auto eq = line.find('=');
          std::string file = Trim(eq == std::string::npos ? line : line.substr(eq + 1));
          if (file.empty() && eq != std::string::npos) file = Trim(line.substr(0, eq));
          if (!file.empty()) out.entries.back().files.push_back(Slashes(file));
        }
        break;
      case State::Global:
        if (StartsWith(line, "EndGlobal") && !StartsWith(line, "EndGlobalSection")) {
          state = State::Top;
        } else if (StartsWith(line, "GlobalSection(")) {
          state = StartsWith(line, "GlobalSection(NestedProjects)") ? State::Nested : State::OtherGlobalSection;
        }
        break;
      case State::Nested:
      case State::OtherGlobalSection:
        if (StartsWith(line, "EndGlobalSection")) {
          state = State::Global;
        } else if (StartsWith(line, "EndGlobal")) {
          Malformed(slnPath, lineNo, "GlobalSection without EndGlobalSection");
        } else if (state == State::Nested) {
          auto eq = line.find('=');
          if (eq == std::string::npos) Malformed(slnPath, lineNo, "malformed NestedProjects line");
          nesting.emplace_back(LowerAscii(Trim(line.substr(0, eq))), LowerAscii(Trim(line.substr(eq + 1))));
        }
        break;
    }
  }
  if (!sawHeader)
    throw Error(err::kInvalidCall, QuotedPath(slnPath) + " is not a solution file: it is empty");
  if (state == State::Project || state == State::SolutionItems || state == State::OtherSection)
    Malformed(slnPath, blockStart, "Project without EndProject");
  if (state != State::Top) Malformed(slnPath, blockStart, "Global without EndGlobal");

  std::unordered_map<std::string, size_t> byId;
  for (size_t i = 0; i < out.entries.size(); ++i) {
    if (!byId.emplace(out.entries[i].id, i).second)
      out.warnings.push_back(QuotedPath(slnPath) + ": project identifier " + out.entries[i].id +
                             " is used twice");
  }
  for (auto& [child, parent] : nesting) {
    auto it = byId.find(child);
    if (it == byId.end()) {
      out.warnings.push_back(QuotedPath(slnPath) + ": NestedProjects names the unknown project " + child);
      continue;
    }
    out.entries[it->second].parentId = parent;
  }
  return out;
}

SolutionDescription ReadSln(const std::filesystem::path& slnPath) {
  return ParseSln(ReadDefinitionText(slnPath), slnPath);
}

}  // namespace platform::automation
