#include "platform/automation/SlnxReader.h"

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

constexpr int kMaxDepth = 64;

std::string Slashes(std::string s) {
  std::replace(s.begin(), s.end(), '\\', '/');
  return s;
}

// The kind a Type attribute names: a project-type identifier as such, or one of the
// short names the format uses.
std::string KindOfType(const std::string& type) {
  std::string t = LowerAscii(Trim(type));
  if (t.empty()) return "";
  if (t[0] == '{') return Trim(type);
  if (t == "c#") return kProjectKindCSharpSdk;
  if (t == "classic c#") return kProjectKindCSharp;
  if (t == "vb") return kProjectKindVBSdk;
  if (t == "classic vb") return kProjectKindVB;
  if (t == "website") return kProjectKindWebSite;
  if (t == "folder") return kProjectKindSolutionFolder;
  return "";
}

class Reader {
 public:
  Reader(const std::filesystem::path& path, SolutionDescription& out) : m_path(path), m_out(out) {}

  void Walk(pugi::xml_node parent, const std::string& folderId, int depth) {
    if (depth > kMaxDepth) return;
    for (auto child : parent.children()) {
      if (child.type() != pugi::node_element) continue;
      std::string name = LowerAscii(child.name());
      if (name == "folder") {
        std::string id = FolderId(child.attribute("Name").value());
        if (id.empty()) {
          m_out.warnings.push_back(QuotedPath(m_path) + ": a Folder without a Name is ignored");
          continue;
        }
        Walk(child, id, depth + 1);
      } else if (name == "project") {
        AddProject(child, folderId);
      } else if (name == "file" && !folderId.empty()) {
        std::string file = Slashes(Trim(child.attribute("Path").value()));
        if (!file.empty()) m_out.entries[m_folders.at(folderId)].files.push_back(file);
      }
    }
  }

 private:
  // The id of the folder named "/a/b/" (its name in lower case, with the slashes),
  // made with the folders above it when missing; "" for a name without segments.
  std::string FolderId(const std::string& rawName) {
    std::string name = Slashes(rawName);
    std::string id = "/", parent;
    size_t i = 0;
    while (i < name.size()) {
      size_t j = name.find('/', i);
      if (j == std::string::npos) j = name.size();
      std::string segment = Trim(name.substr(i, j - i));
      i = j + 1;
      if (segment.empty()) continue;
      parent = id == "/" ? "" : id;
      id += LowerAscii(segment) + "/";
      if (!m_folders.count(id)) {
        SolutionEntry folder;
        folder.name = segment;
        folder.typeGuid = kProjectKindSolutionFolder;
        folder.id = id;
        folder.parentId = parent;
        folder.folder = true;
        m_folders.emplace(id, m_out.entries.size());
        m_out.entries.push_back(std::move(folder));
      }
    }
    return id == "/" ? "" : id;
  }

  void AddProject(pugi::xml_node node, const std::string& folderId) {
    SolutionEntry entry;
    entry.path = Slashes(Trim(node.attribute("Path").value()));
    if (entry.path.empty()) {
      m_out.warnings.push_back(QuotedPath(m_path) + ": a Project without a Path is ignored");
      return;
    }
    std::string trimmed = entry.path;
    while (!trimmed.empty() && trimmed.back() == '/') trimmed.pop_back();
    std::string file = trimmed.substr(trimmed.rfind('/') == std::string::npos ? 0 : trimmed.rfind('/') + 1);
    auto dot = file.rfind('.');
    entry.name = Trim(node.attribute("DisplayName").value());
    if (entry.name.empty()) entry.name = dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
    entry.typeGuid = KindOfType(node.attribute("Type").value());
    entry.id = "project:" + std::to_string(m_out.entries.size());
    entry.parentId = folderId;
    m_out.entries.push_back(std::move(entry));
  }

  const std::filesystem::path& m_path;
  SolutionDescription& m_out;
  std::unordered_map<std::string, size_t> m_folders;  // folder id -> entry
};

}  // namespace

SolutionDescription ReadSlnx(const std::filesystem::path& slnxPath) {
  auto doc = ReadDefinitionXml(slnxPath);
  auto root = doc->document_element();
  if (LowerAscii(root.name()) != "solution")
    throw Error(err::kInvalidCall, QuotedPath(slnxPath) + " is not a solution file: its root element is <" +
                                       std::string(root.name()) + ">");
  SolutionDescription out;
  Reader(slnxPath, out).Walk(root, "", 0);
  return out;
}

}  // namespace platform::automation
