#include "platform/automation/SolutionLoader.h"

#include <algorithm>
#include <system_error>
#include <unordered_map>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DTE.h"
#include "platform/automation/DefinitionText.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectFileReader.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItemTree.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/ProjectSymbols.h"
#include "platform/automation/SlnReader.h"
#include "platform/automation/SlnxReader.h"
#include "platform/automation/Solution.h"
#include "platform/automation/WebSiteReader.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {

namespace fs = std::filesystem;

// The canonical spelling of a known project kind (solutions write some in other
// letter cases); other kinds as written.
std::string CanonicalKind(const std::string& kind) {
  for (const char* known : {kProjectKindCSharp, kProjectKindCSharpSdk, kProjectKindVB, kProjectKindVBSdk,
                            kProjectKindSolutionFolder, kProjectKindWebSite})
    if (LowerAscii(kind) == LowerAscii(known)) return known;
  return kind;
}

// The file a solution names, found in any letter case.
fs::path Resolve(const std::string& written, const fs::path& baseDir) {
  std::string s = written;
  std::replace(s.begin(), s.end(), '\\', '/');
  fs::path p(s);
  PathCaseResolver resolver;
  return resolver.Resolve(NormalizedAbsolute(p.is_relative() ? baseDir / p : p));
}

Ref<Project> MakeFolder(const std::string& name, const std::weak_ptr<DTE>& dte) {
  auto folder = std::make_shared<Project>(name, kProjectKindSolutionFolder, fs::path(), dte);
  folder->SetObject(std::make_shared<SolutionFolder>(folder));
  return folder;
}

// Reads a C# or VB project file; one that cannot be read stays without items.
Ref<Project> LoadProject(const fs::path& file, const std::string& name, const std::string& kind,
                         const fs::path& solutionPath, const std::weak_ptr<DTE>& dte,
                         std::vector<LoadWarning>& warnings) {
  ProjectFileOptions options;
  options.name = name;
  options.kind = kind;
  options.solutionPath = solutionPath;
  options.dte = dte;
  try {
    return ReadProjectFile(file, options, warnings);
  } catch (const Error& e) {
    warnings.emplace_back("project '" + (name.empty() ? file.stem().string() : name) +
                              "' cannot be read: " + e.description,
                          LoadWarning::Kind::UnreadProject);
    return UnreadProject(file, options);
  }
}

Ref<Project> LoadEntry(const SolutionEntry& entry, const fs::path& slnPath, const std::weak_ptr<DTE>& dte,
                       std::vector<LoadWarning>& warnings) {
  if (entry.folder) return MakeFolder(entry.name, dte);
  const fs::path slnDir = slnPath.parent_path();
  const std::string kind = CanonicalKind(entry.typeGuid);
  const bool url = entry.path.find("://") != std::string::npos;
  const fs::path path = url ? fs::path(entry.path) : Resolve(entry.path, slnDir);
  std::error_code ec;
  // A web site names its folder; so may an entry of a .slnx that gives no type.
  if (kind == kProjectKindWebSite || (kind.empty() && !url && !entry.path.empty() && fs::is_directory(path, ec))) {
    if (url || !fs::is_directory(path, ec)) {
      warnings.emplace_back("web site '" + entry.name + "' cannot be read: " + QuotedPath(path) + " is not a folder",
                            LoadWarning::Kind::UnreadProject);
      auto site = std::make_shared<Project>(entry.name, kProjectKindWebSite, path, dte);
      site->SetObject(std::make_shared<WebSiteProject>());
      return site;
    }
    return ReadWebSite(path, entry.name, dte, warnings);
  }
  if (ProjectFileLanguage(path).empty()) {
    // A project of another language: part of the solution, but nothing here to walk.
    return std::make_shared<Project>(entry.name, kind.empty() ? std::string("{00000000-0000-0000-0000-000000000000}") : kind,
                                     path, dte);
  }
  return LoadProject(path, entry.name, kind, slnPath, dte, warnings);
}

// Builds the solution from the entries of a solution file.
void BuildSolution(const SolutionDescription& description, const fs::path& slnPath, const Ref<DTE>& dte,
                   std::vector<LoadWarning>& warnings) {
  auto solution = dte->Solution();
  const auto& entries = description.entries;
  warnings.insert(warnings.end(), description.warnings.begin(), description.warnings.end());
  std::vector<Ref<Project>> projects;
  projects.reserve(entries.size());
  std::unordered_map<std::string, size_t> byId;
  for (size_t i = 0; i < entries.size(); ++i) {
    projects.push_back(LoadEntry(entries[i], slnPath, dte, warnings));
    byId.emplace(LowerAscii(entries[i].id), i);
  }
  // Where each entry goes: its folder, or the top when the folder is unknown, not a
  // folder, or would hold its own ancestor.
  std::vector<size_t> parentOf(entries.size(), SIZE_MAX);
  for (size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].parentId.empty()) continue;
    auto it = byId.find(LowerAscii(entries[i].parentId));
    if (it == byId.end() || !entries[it->second].folder) {
      warnings.push_back(QuotedPath(slnPath) + ": '" + entries[i].name +
                         "' is nested in something that is not a solution folder; it is shown at the top");
      continue;
    }
    parentOf[i] = it->second;
  }
  for (size_t i = 0; i < entries.size(); ++i) {
    size_t steps = 0;
    for (size_t cur = parentOf[i]; cur != SIZE_MAX && steps <= entries.size(); cur = parentOf[cur], ++steps) {
      if (cur == i) {
        warnings.push_back(QuotedPath(slnPath) + ": solution folder '" + entries[i].name +
                           "' is nested in itself; it is shown at the top");
        parentOf[i] = SIZE_MAX;
        break;
      }
    }
  }
  for (size_t i = 0; i < entries.size(); ++i) {
    const Ref<Project>& project = projects[i];
    if (parentOf[i] == SIZE_MAX) {
      solution->Projects()->Add(project);
    } else {
      auto holder = std::make_shared<ProjectItem>(entries[i].name, vsProjectItemKindSolutionItems,
                                                  project->fullName());
      holder->SetSubProject(project);
      project->SetParentProjectItem(holder);
      projects[parentOf[i]]->ProjectItems()->Add(holder);
    }
  }
  std::error_code ec;
  for (size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].folder) continue;
    for (auto& written : entries[i].files) {
      fs::path file = Resolve(written, slnPath.parent_path());
      auto item = std::make_shared<ProjectItem>(file.filename().string(), vsProjectItemKindPhysicalFile, file);
      projects[i]->ProjectItems()->Add(item);
      if (!fs::exists(file, ec))
        warnings.push_back("solution folder '" + entries[i].name + "': file " + QuotedPath(file) + " does not exist");
    }
    projects[i]->ProjectItems()->SortByName();
  }
}

LoadResult NewResult(const fs::path& solutionPath) {
  LoadResult result;
  result.dte = std::make_shared<DTE>();
  result.dte->SetSolution(std::make_shared<Solution>(solutionPath));
  return result;
}

LoadResult OpenSolutionFile(const fs::path& path, bool slnx) {
  SolutionDescription description = slnx ? ReadSlnx(path) : ReadSln(path);
  LoadResult result = NewResult(path);
  BuildSolution(description, path, result.dte, result.warnings);
  return result;
}

LoadResult OpenProjectFile(const fs::path& path) {
  LoadResult result = NewResult(path);
  ProjectFileOptions options;
  options.dte = result.dte;
  // The one project is the whole solution: if it cannot be read, nothing can.
  result.dte->Solution()->Projects()->Add(ReadProjectFile(path, options, result.warnings));
  return result;
}

LoadResult OpenSourceFile(const fs::path& path) {
  // Read it once: a file that cannot be read or decoded is not worth a solution.
  ReadDefinitionText(path);
  const fs::path folder = path.parent_path();
  LoadResult result = NewResult(path);
  const bool vb = codemodel::LanguageOfFile(path.filename().string()) == codemodel::vsCMLanguageVB;
  std::string name = folder.filename().string();
  if (name.empty()) name = path.stem().string();
  auto project = std::make_shared<Project>(name, vb ? kProjectKindVB : kProjectKindCSharp, folder, result.dte);
  project->SetSymbols(vb ? VbSymbols("", "Debug", "AnyCPU", "", {}) : CSharpSymbols("", {}));
  ProjectEntry entry;
  entry.displayPath = path.filename().string();
  entry.fullPath = path;
  entry.compiled = true;
  BuildProjectItems(project, {entry}, false, result.warnings);
  result.dte->Solution()->Projects()->Add(project);
  return result;
}

// The files directly in `folder` whose extension is one of `extensions` (lower case),
// sorted by name.
std::vector<fs::path> FilesIn(const fs::path& folder, std::initializer_list<const char*> extensions) {
  std::vector<fs::path> out;
  std::error_code ec;
  for (fs::directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec), end; !ec && it != end;
       it.increment(ec)) {
    std::error_code e2;
    if (!it->is_regular_file(e2)) continue;
    std::string ext = LowerAscii(it->path().extension().string());
    for (const char* e : extensions)
      if (ext == e) out.push_back(it->path());
  }
  std::sort(out.begin(), out.end());
  return out;
}

LoadResult OpenFolder(const fs::path& folder) {
  auto solutions = FilesIn(folder, {".sln", ".slnx"});
  if (solutions.size() == 1) return OpenSolutionFile(solutions[0], LowerAscii(solutions[0].extension().string()) == ".slnx");
  std::vector<LoadWarning> warnings;
  if (solutions.size() > 1)
    warnings.push_back(QuotedPath(folder) + " holds several solution files; its project files are opened instead");
  auto projectFiles = FilesIn(folder, {".csproj", ".vbproj"});
  if (projectFiles.empty()) {
    std::vector<PathPattern> excludes;
    for (const char* e : {"bin/**", "obj/**", "node_modules/**", "**/.*/**"}) excludes.emplace_back(e, folder);
    projectFiles = PathPattern("**/*.csproj", folder).Expand(excludes);
    auto vb = PathPattern("**/*.vbproj", folder).Expand(excludes);
    projectFiles.insert(projectFiles.end(), vb.begin(), vb.end());
    std::sort(projectFiles.begin(), projectFiles.end());
  }
  LoadResult result = NewResult(folder);
  result.warnings = std::move(warnings);
  if (!projectFiles.empty()) {
    for (auto& file : projectFiles)
      result.dte->Solution()->Projects()->Add(LoadProject(file, "", "", fs::path(), result.dte, result.warnings));
    return result;
  }
  if (SourceFilesBelow(folder).empty())
    throw Error(err::kInvalidCall, QuotedPath(folder) + " holds no solution, project or C#/VB source file");
  std::string name = folder.filename().string();
  if (name.empty()) name = folder.string();
  result.dte->Solution()->Projects()->Add(ReadWebSite(folder, name, result.dte, result.warnings));
  return result;
}

}  // namespace

LoadResult OpenSolution(const std::filesystem::path& rawPath) {
  if (rawPath.empty()) throw Error(err::kFileNotFound, "no solution path given");
  const fs::path path = NormalizedAbsolute(rawPath);
  std::error_code ec;
  auto status = fs::status(path, ec);
  if (!fs::exists(status)) throw Error(err::kFileNotFound, QuotedPath(path) + " does not exist");
  if (fs::is_directory(status)) return OpenFolder(path);
  std::string ext = LowerAscii(path.extension().string());
  if (ext == ".sln") return OpenSolutionFile(path, false);
  if (ext == ".slnx") return OpenSolutionFile(path, true);
  if (ext == ".csproj" || ext == ".vbproj") return OpenProjectFile(path);
  if (ext == ".cs" || ext == ".vb") return OpenSourceFile(path);
  throw Error(err::kInvalidCall, QuotedPath(path) +
                                     " is not a solution (.sln, .slnx), project (.csproj, .vbproj) or "
                                     "source file (.cs, .vb)");
}

}  // namespace platform::automation
