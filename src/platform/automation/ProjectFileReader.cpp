#include "platform/automation/ProjectFileReader.h"

#include <unordered_set>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DefinitionText.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/FrameworkSymbols.h"
#include "platform/automation/MSBuildEvaluator.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItemTree.h"
#include "platform/automation/ProjectSymbols.h"
#include "platform/core/Error.h"

namespace platform::automation {
namespace {

namespace fs = std::filesystem;

bool IsLanguageKind(const std::string& kind) {
  std::string k = LowerAscii(kind);
  for (const char* known : {kProjectKindCSharp, kProjectKindCSharpSdk, kProjectKindVB, kProjectKindVBSdk})
    if (k == LowerAscii(known)) return true;
  return false;
}

std::string KindFor(const std::string& language, bool sdkStyle) {
  if (language == "VB") return sdkStyle ? kProjectKindVBSdk : kProjectKindVB;
  return sdkStyle ? kProjectKindCSharpSdk : kProjectKindCSharp;
}

std::string NameFor(const fs::path& projectFile, const ProjectFileOptions& options) {
  return options.name.empty() ? projectFile.stem().string() : options.name;
}

MSBuildOptions EvaluationOptions(const std::string& language, const fs::path& solutionPath) {
  MSBuildOptions o;
  o.globalProperties = {{"Configuration", "Debug"}};
  o.defaultPlatform = "AnyCPU";
  o.sourceExtension = language == "VB" ? ".vb" : ".cs";
  o.solutionPath = solutionPath;
  return o;
}

codemodel::PreprocessorSymbols SymbolsOf(const std::string& language, const MSBuildProject& evaluated) {
  const MSBuildProperties& p = evaluated.properties;
  std::vector<std::string> frameworks;
  if (evaluated.sdkStyle && LowerAscii(p.Get("DisableImplicitFrameworkDefines")) != "true")
    frameworks = FrameworkSymbols(MSBuildUnescape(p.Get("TargetFramework")));
  std::string defines = MSBuildUnescape(p.Get("DefineConstants"));
  if (language == "VB") {
    std::string platform = p.Get("Platform").empty() ? "AnyCPU" : MSBuildUnescape(p.Get("Platform"));
    return VbSymbols(defines, MSBuildUnescape(p.Get("Configuration")), platform, MSBuildUnescape(p.Get("MyType")),
                     frameworks);
  }
  return CSharpSymbols(defines, frameworks);
}

// Where an item is shown: its Link, else its path inside the project folder, else (a
// file from elsewhere) its name at the top.
std::string DisplayPathOf(const MSBuildItem& item, const fs::path& projectDir) {
  std::string link = NormalizeDisplayPath(item.Metadata("Link"));
  if (!link.empty()) return link;
  std::string name = item.fullPath.filename().string();
  std::string linkBase = NormalizeDisplayPath(item.Metadata("LinkBase"));
  std::string dir = projectDir.generic_string(), full = item.fullPath.generic_string();
  if (full.size() > dir.size() + 1 && full.compare(0, dir.size(), dir) == 0 && full[dir.size()] == '/')
    return full.substr(dir.size() + 1);
  return linkBase.empty() ? name : linkBase + "/" + name;
}

}  // namespace

std::string ProjectFileLanguage(const fs::path& projectFile) {
  std::string ext = LowerAscii(projectFile.extension().string());
  if (ext == ".csproj") return "C#";
  if (ext == ".vbproj") return "VB";
  return "";
}

Ref<Project> UnreadProject(const fs::path& projectFile, const ProjectFileOptions& options) {
  std::string language = ProjectFileLanguage(projectFile);
  std::string kind = options.kind.empty() ? KindFor(language, false) : options.kind;
  auto project = std::make_shared<Project>(NameFor(projectFile, options), kind, NormalizedAbsolute(projectFile),
                                           options.dte);
  project->SetSymbols(language == "VB" ? VbSymbols("", "Debug", "AnyCPU", "", {}) : CSharpSymbols("", {}));
  return project;
}

Ref<Project> ReadProjectFile(const fs::path& projectFile, const ProjectFileOptions& options,
                             std::vector<LoadWarning>& warnings) {
  const fs::path file = NormalizedAbsolute(projectFile);
  const std::string language = ProjectFileLanguage(file);
  if (language.empty())
    throw Error(err::kInvalidCall, QuotedPath(file) + " is not a C# or Visual Basic project file");
  MSBuildProject evaluated = EvaluateMSBuildProject(file, EvaluationOptions(language, options.solutionPath));
  for (auto& w : evaluated.warnings) warnings.push_back("project '" + NameFor(file, options) + "': " + w);

  std::string kind = IsLanguageKind(options.kind) ? options.kind : KindFor(language, evaluated.sdkStyle);
  for (const char* known : {kProjectKindCSharp, kProjectKindCSharpSdk, kProjectKindVB, kProjectKindVBSdk})
    if (LowerAscii(kind) == LowerAscii(known)) kind = known;
  auto project = std::make_shared<Project>(NameFor(file, options), kind, file, options.dte);
  project->SetSymbols(SymbolsOf(language, evaluated));

  static const std::unordered_set<std::string> shown = {"compile", "none", "content", "embeddedresource",
                                                        "page", "applicationdefinition", "resource", "folder"};
  const fs::path projectDir = file.parent_path();
  std::vector<ProjectEntry> entries;
  entries.reserve(evaluated.items.size());
  for (auto& item : evaluated.items) {
    std::string type = LowerAscii(item.type);
    if (!shown.count(type)) continue;
    ProjectEntry entry;
    entry.fullPath = item.fullPath;
    entry.folder = type == "folder";
    entry.displayPath = DisplayPathOf(item, projectDir);
    entry.dependentUpon = item.Metadata("DependentUpon");
    entry.compiled = type == "compile";
    entries.push_back(std::move(entry));
  }
  BuildProjectItems(project, entries, false, warnings);
  return project;
}

}  // namespace platform::automation
