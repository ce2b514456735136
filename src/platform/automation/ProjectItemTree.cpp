#include "platform/automation/ProjectItemTree.h"

#include <algorithm>
#include <system_error>
#include <unordered_map>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"

namespace platform::automation {
namespace {

constexpr size_t kNone = SIZE_MAX;

struct Node {
  Ref<ProjectItem> item;
  size_t folder = kNone;     // the folder node holding it; kNone at the project root
  size_t dependsOn = kNone;  // the file node it is nested under
  bool attached = false;
  std::string dependentUpon;  // as written
  std::string displayPath;
  bool compiled = false;
};

std::string DirOf(const std::string& displayPath) {
  auto slash = displayPath.rfind('/');
  return slash == std::string::npos ? "" : displayPath.substr(0, slash);
}

std::string NameOf(const std::string& displayPath) {
  auto slash = displayPath.rfind('/');
  return slash == std::string::npos ? displayPath : displayPath.substr(slash + 1);
}

class TreeBuilder {
 public:
  TreeBuilder(const Ref<Project>& project, bool web) : m_project(project), m_web(web) {
    m_projectDir = NormalizedAbsolute(project->fullName()).parent_path();
    std::error_code ec;
    if (std::filesystem::is_directory(project->fullName(), ec)) m_projectDir = NormalizedAbsolute(project->fullName());
  }

  void Add(const ProjectEntry& entry) {
    std::string display = NormalizeDisplayPath(entry.displayPath);
    if (display.empty()) return;
    if (entry.folder) {
      EnsureFolder(display, entry.fullPath);
      return;
    }
    std::string key = LowerAscii(display);
    if (m_files.count(key)) return;
    Node node;
    node.folder = EnsureFolder(DirOf(display), {});
    node.item = std::make_shared<ProjectItem>(NameOf(display), vsProjectItemKindPhysicalFile, entry.fullPath);
    node.dependentUpon = entry.dependentUpon;
    node.compiled = entry.compiled;
    node.displayPath = display;
    m_files.emplace(key, m_nodes.size());
    m_nodes.push_back(std::move(node));
  }

  void ResolveDependencies() {
    for (size_t i = 0; i < m_nodes.size(); ++i) {
      Node& n = m_nodes[i];
      if (n.dependentUpon.empty()) continue;
      std::string dep = n.dependentUpon;
      std::replace(dep.begin(), dep.end(), '\\', '/');
      std::string dir = DirOf(n.displayPath);
      for (const std::string& candidate : {NormalizeDisplayPath(dir.empty() ? dep : dir + "/" + dep),
                                           NormalizeDisplayPath(dep)}) {
        auto it = m_files.find(LowerAscii(candidate));
        if (!candidate.empty() && it != m_files.end() && it->second != i) {
          n.dependsOn = it->second;
          break;
        }
      }
    }
    // Break cycles: follow each chain once, marking nodes in progress (1) and done (2).
    std::vector<char> state(m_nodes.size(), 0);
    std::vector<size_t> chain;
    for (size_t start = 0; start < m_nodes.size(); ++start) {
      chain.clear();
      size_t cur = start;
      while (cur != kNone && state[cur] == 0) {
        state[cur] = 1;
        chain.push_back(cur);
        size_t next = m_nodes[cur].dependsOn;
        if (next != kNone && state[next] == 1) {
          m_nodes[cur].dependsOn = kNone;  // this link closes a cycle
          break;
        }
        cur = next;
      }
      for (size_t c : chain) state[c] = 2;
    }
  }

  void Attach() {
    std::vector<size_t> chain;
    for (size_t i = 0; i < m_nodes.size(); ++i) {
      chain.clear();
      for (size_t cur = i; cur != kNone && !m_nodes[cur].attached; cur = Parent(cur)) chain.push_back(cur);
      for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        Node& n = m_nodes[*it];
        size_t parent = Parent(*it);
        auto collection = parent == kNone ? m_project->ProjectItems() : m_nodes[parent].item->ProjectItems();
        n.item->SetWebItem(m_web);
        collection->Add(n.item);
        n.attached = true;
      }
    }
  }

  void WarnMissing(std::vector<LoadWarning>& warnings) const {
    std::error_code ec;
    for (auto& n : m_nodes) {
      if (n.item->Kind() != vsProjectItemKindPhysicalFile) continue;
      if (!std::filesystem::exists(n.item->path(), ec))
        warnings.emplace_back("project '" + m_project->Name() + "': file '" + n.item->path().string() +
                                  "' does not exist",
                              n.compiled ? LoadWarning::Kind::MissingSource : LoadWarning::Kind::Other);
    }
  }

 private:
  size_t Parent(size_t i) const {
    return m_nodes[i].dependsOn != kNone ? m_nodes[i].dependsOn : m_nodes[i].folder;
  }

  // The folder node for `display` ("" is the project root: kNone), made with its
  // parents when missing.
  size_t EnsureFolder(const std::string& display, const std::filesystem::path& fullPath) {
    if (display.empty()) return kNone;
    std::string key = LowerAscii(display);
    if (auto it = m_folders.find(key); it != m_folders.end()) return it->second;
    size_t parent = EnsureFolder(DirOf(display), {});
    Node node;
    node.folder = parent;
    node.item = std::make_shared<ProjectItem>(NameOf(display), vsProjectItemKindPhysicalFolder,
                                              fullPath.empty() ? m_projectDir / display : fullPath);
    m_folders.emplace(key, m_nodes.size());
    m_nodes.push_back(std::move(node));
    return m_nodes.size() - 1;
  }

  Ref<Project> m_project;
  bool m_web;
  std::filesystem::path m_projectDir;
  std::vector<Node> m_nodes;
  std::unordered_map<std::string, size_t> m_files;    // lower-case display path -> node
  std::unordered_map<std::string, size_t> m_folders;  // lower-case display path -> node
};

}  // namespace

std::string NormalizeDisplayPath(const std::string& path) {
  std::vector<std::string> segments;
  std::string s = path;
  std::replace(s.begin(), s.end(), '\\', '/');
  size_t i = 0;
  while (i <= s.size()) {
    size_t j = s.find('/', i);
    if (j == std::string::npos) j = s.size();
    std::string seg = s.substr(i, j - i);
    i = j + 1;
    if (seg.empty() || seg == ".") continue;
    if (seg == "..") {
      if (segments.empty()) return "";
      segments.pop_back();
      continue;
    }
    segments.push_back(seg);
  }
  std::string out;
  for (auto& seg : segments) out += (out.empty() ? "" : "/") + seg;
  return out;
}

void BuildProjectItems(const Ref<Project>& project, const std::vector<ProjectEntry>& entries, bool webItems,
                       std::vector<LoadWarning>& warnings) {
  TreeBuilder builder(project, webItems);
  for (auto& entry : entries) builder.Add(entry);
  builder.ResolveDependencies();
  builder.Attach();
  builder.WarnMissing(warnings);
  project->ProjectItems()->SortByName();
}

}  // namespace platform::automation
