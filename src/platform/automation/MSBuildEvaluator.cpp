#include "platform/automation/MSBuildEvaluator.h"

#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include <pugixml.hpp>

#include "platform/automation/DefinitionText.h"
#include "platform/automation/FileGlob.h"
#include "platform/automation/MSBuildCondition.h"
#include "platform/automation/MSBuildExpander.h"
#include "platform/core/Error.h"
#include "platform/core/AsciiText.h"

namespace platform::automation {
namespace {

using platform::Trim;

namespace fs = std::filesystem;

constexpr int kMaxImportDepth = 32;
constexpr size_t kMaxImports = 512;
constexpr int kMaxChooseDepth = 32;

// What the SDK contributes before the project body, written as project XML so that it
// is evaluated exactly as the project's own definitions are. Defaults apply only where
// the project (or Directory.Build.props) has not set them.
constexpr const char* kSdkProps = R"xml(<Project>
  <PropertyGroup>
    <EnableDefaultItems Condition="'$(EnableDefaultItems)' == ''">true</EnableDefaultItems>
    <EnableDefaultCompileItems Condition="'$(EnableDefaultCompileItems)' == ''">true</EnableDefaultCompileItems>
    <BaseOutputPath Condition="'$(BaseOutputPath)' == ''">bin\</BaseOutputPath>
    <BaseIntermediateOutputPath Condition="'$(BaseIntermediateOutputPath)' == ''">obj\</BaseIntermediateOutputPath>
    <DefaultItemExcludes>$(DefaultItemExcludes);$(BaseOutputPath)/**;$(BaseIntermediateOutputPath)/**;**/*.user;**/*.*proj;**/*.sln;**/*.vssscc</DefaultItemExcludes>
    <DefaultExcludesInProjectFolder>$(DefaultItemExcludesInProjectFolder);**/.*/**</DefaultExcludesInProjectFolder>
  </PropertyGroup>
  <ItemGroup Condition="'$(EnableDefaultItems)' == 'true' And '$(EnableDefaultCompileItems)' == 'true'">
    <Compile Include="**/*$(DefaultLanguageSourceExtension)" Exclude="$(DefaultItemExcludes);$(DefaultExcludesInProjectFolder)" />
  </ItemGroup>
</Project>)xml";

// How the build finds and imports Directory.Build.props and Directory.Build.targets, as
// its common props and targets do it: through properties a project or an imported file
// can read and set (a Directory.Build.props that imports its parent combines
// '..' with $(_DirectoryBuildPropsFile)).
constexpr const char* kDirectoryBuildProps = R"xml(<Project>
  <PropertyGroup>
    <ImportDirectoryBuildProps Condition="'$(ImportDirectoryBuildProps)' == ''">true</ImportDirectoryBuildProps>
    <_DirectoryBuildPropsFile Condition="'$(_DirectoryBuildPropsFile)' == ''">Directory.Build.props</_DirectoryBuildPropsFile>
    <_DirectoryBuildPropsBasePath Condition="'$(_DirectoryBuildPropsBasePath)' == ''">$([MSBuild]::GetDirectoryNameOfFileAbove('$(MSBuildProjectDirectory)', '$(_DirectoryBuildPropsFile)'))</_DirectoryBuildPropsBasePath>
    <DirectoryBuildPropsPath Condition="'$(_DirectoryBuildPropsBasePath)' != '' and '$(_DirectoryBuildPropsFile)' != ''">$([System.IO.Path]::Combine('$(_DirectoryBuildPropsBasePath)', '$(_DirectoryBuildPropsFile)'))</DirectoryBuildPropsPath>
  </PropertyGroup>
  <Import Project="$(DirectoryBuildPropsPath)" Condition="'$(ImportDirectoryBuildProps)' == 'true' and Exists('$(DirectoryBuildPropsPath)')" />
</Project>)xml";

constexpr const char* kDirectoryBuildTargets = R"xml(<Project>
  <PropertyGroup>
    <ImportDirectoryBuildTargets Condition="'$(ImportDirectoryBuildTargets)' == ''">true</ImportDirectoryBuildTargets>
    <_DirectoryBuildTargetsFile Condition="'$(_DirectoryBuildTargetsFile)' == ''">Directory.Build.targets</_DirectoryBuildTargetsFile>
    <_DirectoryBuildTargetsBasePath Condition="'$(_DirectoryBuildTargetsBasePath)' == ''">$([MSBuild]::GetDirectoryNameOfFileAbove('$(MSBuildProjectDirectory)', '$(_DirectoryBuildTargetsFile)'))</_DirectoryBuildTargetsBasePath>
    <DirectoryBuildTargetsPath Condition="'$(_DirectoryBuildTargetsBasePath)' != '' and '$(_DirectoryBuildTargetsFile)' != ''">$([System.IO.Path]::Combine('$(_DirectoryBuildTargetsBasePath)', '$(_DirectoryBuildTargetsFile)'))</DirectoryBuildTargetsPath>
  </PropertyGroup>
  <Import Project="$(DirectoryBuildTargetsPath)" Condition="'$(ImportDirectoryBuildTargets)' == 'true' and Exists('$(DirectoryBuildTargetsPath)')" />
</Project>)xml";

// What the SDK's targets infer from the target framework before Directory.Build.targets
// is imported, so that conditions there can test it.
constexpr const char* kSdkTargets = R"xml(<Project>
  <PropertyGroup Condition="'$(TargetFramework)' != ''">
    <TargetFrameworkIdentifier Condition="'$(TargetFrameworkIdentifier)' == ''">$([MSBuild]::GetTargetFrameworkIdentifier('$(TargetFramework)'))</TargetFrameworkIdentifier>
    <TargetFrameworkVersion Condition="'$(TargetFrameworkVersion)' == ''">v$([MSBuild]::GetTargetFrameworkVersion('$(TargetFramework)', 2))</TargetFrameworkVersion>
    <TargetPlatformIdentifier Condition="'$(TargetPlatformIdentifier)' == ''">$([MSBuild]::GetTargetPlatformIdentifier('$(TargetFramework)'))</TargetPlatformIdentifier>
  </PropertyGroup>
</Project>)xml";

// The attributes of an item element that are not metadata.
bool IsItemOperationAttribute(std::string_view name) {
  static const std::unordered_set<std::string> names = {
      "include", "exclude", "remove", "update", "condition", "keepmetadata", "removemetadata",
      "keepduplicates", "matchonmetadata", "matchonmetadataoptions", "label"};
  return names.count(LowerAscii(name)) != 0;
}

// A file taking part in the evaluation, kept alive while its nodes are referred to.
struct SourceFile {
  fs::path path;  // normalized absolute
  std::shared_ptr<const pugi::xml_document> doc;
};

// An ItemGroup met during the property pass, evaluated in the item pass.
struct PendingGroup {
  pugi::xml_node group;
  const SourceFile* file;
};

// The items of one type, with an index by lower-case full path for literal removes and
// updates (so that long lists of Remove/Update stay linear).
struct TypeItems {
  std::vector<MSBuildItem> items;
  std::vector<bool> removed;
  std::unordered_multimap<std::string, size_t> byPath;
  size_t order = 0;  // first appearance among the types
};

class Evaluator {
 public:
  // `platform` and `targetFramework` ("" for none) are made global besides the options'.
  Evaluator(const fs::path& projectFile, const MSBuildOptions& options, const std::string& targetFramework,
            const std::string& platform)
      : m_projectFile(NormalizedAbsolute(projectFile)), m_options(options),
        m_probe(options.probe),
        m_fileCache(options.files) {
    m_projectDir = m_projectFile.parent_path();
    for (auto& [name, value] : options.globalProperties) m_props.SetGlobal(name, value);
    if (!targetFramework.empty()) m_props.SetGlobal("TargetFramework", targetFramework);
    if (!platform.empty() && !m_props.IsGlobal("Platform")) m_props.SetGlobal("Platform", platform);
  }

  // Runs the property pass: every property, import and Choose in order; item groups
  // are kept for the item pass.
  void PropertyPass() {
    SourceFile& project = Load(m_projectFile);
    auto root = project.doc->document_element();
    if (LowerAscii(root.name()) != "project")
      throw Error(err::kInvalidCall, QuotedPath(m_projectFile) + " is not a project file: its root element is <" +
                                         std::string(root.name()) + ">");
    m_sdkStyle = !Trim(root.attribute("Sdk").value()).empty();
    for (auto child : root.children()) {
      std::string name = LowerAscii(child.name());
      if (name == "sdk" || (name == "import" && !Trim(child.attribute("Sdk").value()).empty())) m_sdkStyle = true;
    }
    if (m_sdkStyle && !m_options.defaultPlatform.empty() && !m_props.IsGlobal("Platform"))
      m_props.SetGlobal("Platform", m_options.defaultPlatform);
    SetReservedProperties();
    m_imported.insert(LowerAscii(m_projectFile.string()));

    EvaluateSynthetic(kDirectoryBuildProps);
    if (m_sdkStyle) EvaluateSynthetic(kSdkProps);
    SetThisFile(project);
    ProcessChildren(project, root, 0, 0);
    if (m_sdkStyle) EvaluateSynthetic(kSdkTargets);
    EvaluateSynthetic(kDirectoryBuildTargets);
  }

  void ItemPass() {
    for (auto& pending : m_pendingGroups) {
      SetThisFile(*pending.file);
      MSBuildScope scope = Scope(*pending.file);
      if (!EvaluateMSBuildCondition(pending.group.attribute("Condition").value(), scope)) continue;
      for (auto element : pending.group.children()) {
        if (element.type() != pugi::node_element) continue;
        EvaluateItemElement(element, scope);
      }
    }
  }

  MSBuildProject Result() {
    MSBuildProject out;
    out.sdkStyle = m_sdkStyle;
    out.properties = m_props;
    out.warnings = m_warnings;
    std::vector<TypeItems*> types;
    for (auto& [key, t] : m_items) types.push_back(&t);
    std::sort(types.begin(), types.end(), [](auto* a, auto* b) { return a->order < b->order; });
    for (auto* t : types)
      for (size_t i = 0; i < t->items.size(); ++i)
        if (!t->removed[i]) out.items.push_back(std::move(t->items[i]));
    return out;
  }

  bool SdkStyle() const { return m_sdkStyle; }
  const MSBuildProperties& Properties() const { return m_props; }
  std::vector<std::string>& Warnings() { return m_warnings; }

 private:
  // Reads and parses `path` and keeps it for the rest of the evaluation.
  SourceFile& Load(const fs::path& path) {
    m_files.push_back({path, m_fileCache->Read(path)});
    return m_files.back();
  }

  void SetReservedProperties() {
    auto set = [&](const char* name, const std::string& value) {
      if (!m_props.IsGlobal(name)) m_props.Set(name, value);
    };
    set("MSBuildProjectFullPath", m_projectFile.string());
    set("MSBuildProjectDirectory", m_projectDir.string());
    set("MSBuildProjectFile", m_projectFile.filename().string());
    set("MSBuildProjectName", m_projectFile.stem().string());
    set("MSBuildProjectExtension", m_projectFile.extension().string());
    set("MSBuildProjectDirectoryNoRoot", m_projectDir.relative_path().string());
    set("MSBuildToolsVersion", "Current");
    set("MSBuildRuntimeType", "Core");
    if (m_sdkStyle) set("UsingMicrosoftNETSdk", "true");
    // The projects were written for the environment on Windows; evaluate them as there.
    set("OS", "Windows_NT");
    set("DefaultLanguageSourceExtension", m_options.sourceExtension);
    if (!m_options.solutionPath.empty()) {
      fs::path sln = NormalizedAbsolute(m_options.solutionPath);
      set("SolutionPath", sln.string());
      set("SolutionDir", sln.parent_path().string() + "/");
      set("SolutionName", sln.stem().string());
      set("SolutionFileName", sln.filename().string());
      set("SolutionExt", sln.extension().string());
    }
  }

  void SetThisFile(const SourceFile& file) {
    m_props.Set("MSBuildThisFileFullPath", file.path.string());
    m_props.Set("MSBuildThisFileDirectory", file.path.parent_path().string() + "/");
    m_props.Set("MSBuildThisFileDirectoryNoRoot", file.path.parent_path().relative_path().string() + "/");
    m_props.Set("MSBuildThisFile", file.path.filename().string());
    m_props.Set("MSBuildThisFileName", file.path.stem().string());
    m_props.Set("MSBuildThisFileExtension", file.path.extension().string());
  }

  MSBuildScope Scope(const SourceFile& file) {
    MSBuildScope scope;
    scope.properties = &m_props;
    scope.directory = file.path.parent_path();
    scope.items = [this](std::string_view type) { return ItemList(type); };
    scope.probe = m_probe;
    return scope;
  }

  // Evaluates one of the SDK's fragments as if it were part of the project file.
  void EvaluateSynthetic(const char* xml) {
    auto doc = std::make_shared<pugi::xml_document>();
    doc->load_string(xml);
    m_files.push_back({m_projectFile, std::move(doc)});
    SourceFile& file = m_files.back();
    SetThisFile(file);
    ProcessChildren(file, file.doc->document_element(), 0, 0);
  }

  void ImportFile(const fs::path& rawPath, int depth) {
    fs::path path = NormalizedAbsolute(rawPath);
    if (depth > kMaxImportDepth || m_files.size() > kMaxImports) {
      m_warnings.push_back(QuotedPath(path) + " was not imported: too many nested imports");
      return;
    }
    // A file imported before (or importing itself) is skipped, as the build does.
    if (!m_imported.insert(LowerAscii(path.string())).second) return;
    SourceFile* file = nullptr;
    try {
      file = &Load(path);
    } catch (const Error& e) {
      m_warnings.push_back("import skipped: " + e.description);
      return;
    }
    auto root = file->doc->document_element();
    if (LowerAscii(root.name()) != "project") {
      m_warnings.push_back("import skipped: '" + path.string() + "' is not a project file");
      return;
    }
    SetThisFile(*file);
    ProcessChildren(*file, root, depth, 0);
  }

  void ProcessImport(const SourceFile& file, pugi::xml_node import, int depth) {
    if (!Trim(import.attribute("Sdk").value()).empty()) return;  // the SDK is modelled, not read
    MSBuildScope scope = Scope(file);
    if (!EvaluateMSBuildCondition(import.attribute("Condition").value(), scope)) return;
    std::string projects = ExpandMSBuild(import.attribute("Project").value(), scope);
    for (auto& part : SplitMSBuildList(projects)) {
      std::string spec = MSBuildUnescape(part);
      PathPattern pattern(spec, file.path.parent_path());
      if (pattern.Empty()) continue;
      std::vector<fs::path> targets;
      if (pattern.HasWildcards()) {
        targets = pattern.Expand({}, m_probe);
      } else {
        std::string s = spec;
        std::replace(s.begin(), s.end(), '\\', '/');
        fs::path p(s);
        if (p.is_relative()) p = file.path.parent_path() / p;
        // A missing import is skipped quietly: projects import the build tools' own
        // files, which do not exist here.
        if (m_probe->IsFile(p)) targets.push_back(p);
      }
      for (auto& target : targets) {
        ImportFile(target, depth + 1);
        SetThisFile(file);
      }
    }
  }

  void ProcessChildren(const SourceFile& file, pugi::xml_node parent, int depth, int chooseDepth) {
    for (auto child : parent.children()) {
      if (child.type() != pugi::node_element) continue;
      std::string name = LowerAscii(child.name());
      if (name == "propertygroup") {
        ProcessPropertyGroup(file, child);
      } else if (name == "itemgroup") {
        m_pendingGroups.push_back({child, &file});
      } else if (name == "import") {
        ProcessImport(file, child, depth);
      } else if (name == "importgroup") {
        if (!EvaluateMSBuildCondition(child.attribute("Condition").value(), Scope(file))) continue;
        for (auto import : child.children())
          if (LowerAscii(import.name()) == "import") ProcessImport(file, import, depth);
      } else if (name == "choose" && chooseDepth < kMaxChooseDepth) {
        ProcessChoose(file, child, depth, chooseDepth + 1);
      }
    }
  }

  void ProcessChoose(const SourceFile& file, pugi::xml_node choose, int depth, int chooseDepth) {
    for (auto branch : choose.children()) {
      std::string name = LowerAscii(branch.name());
      if (name == "when") {
        if (!EvaluateMSBuildCondition(branch.attribute("Condition").value(), Scope(file))) continue;
      } else if (name != "otherwise") {
        continue;
      }
      // Imports are not allowed inside Choose; only properties, items and nested Choose.
      for (auto child : branch.children()) {
        std::string childName = LowerAscii(child.name());
        if (childName == "propertygroup") ProcessPropertyGroup(file, child);
        else if (childName == "itemgroup") m_pendingGroups.push_back({child, &file});
        else if (childName == "choose" && chooseDepth < kMaxChooseDepth) ProcessChoose(file, child, depth, chooseDepth + 1);
      }
      return;
    }
  }

  void ProcessPropertyGroup(const SourceFile& file, pugi::xml_node group) {
    MSBuildScope scope = Scope(file);
    if (!EvaluateMSBuildCondition(group.attribute("Condition").value(), scope)) return;
    for (auto property : group.children()) {
      if (property.type() != pugi::node_element) continue;
      if (!EvaluateMSBuildCondition(property.attribute("Condition").value(), scope)) continue;
      m_props.Set(property.name(), Trim(ExpandMSBuild(property.text().get(), scope)));
    }
  }

  // --- Items -----------------------------------------------------------------------------

  TypeItems& Items(std::string_view type) {
    auto key = LowerAscii(type);
    auto it = m_items.find(key);
    if (it == m_items.end()) {
      it = m_items.emplace(key, TypeItems{}).first;
      it->second.order = m_items.size();
    }
    return it->second;
  }

  std::string ItemList(std::string_view type) {
    auto it = m_items.find(LowerAscii(type));
    if (it == m_items.end()) return "";
    std::string out;
    for (size_t i = 0; i < it->second.items.size(); ++i) {
      if (it->second.removed[i]) continue;
      if (!out.empty()) out += ';';
      out += it->second.items[i].include;
      if (out.size() > (1u << 20)) break;
    }
    return out;
  }

  // The value of well-known or defined metadata of `item`.
  static std::string MetadataOf(const MSBuildItem& item, std::string_view name) {
    std::string n = LowerAscii(name);
    const fs::path& p = item.fullPath;
    if (n == "fullpath") return p.string();
    if (n == "rootdir") return "/";
    if (n == "filename") return p.stem().string();
    if (n == "extension") return p.extension().string();
    if (n == "directory") return p.parent_path().relative_path().string() + "/";
    if (n == "identity") return item.include;
    if (n == "relativedir") {
      auto slash = item.include.rfind('/');
      return slash == std::string::npos ? "" : item.include.substr(0, slash + 1);
    }
    return item.Metadata(name);
  }

  // Evaluates the metadata children and attributes of `element` for `item`.
  void ApplyMetadata(MSBuildItem& item, pugi::xml_node element, const MSBuildScope& outer) {
    MSBuildScope scope = outer;
    scope.metadata = [&item](std::string_view name) { return MetadataOf(item, name); };
    auto set = [&](std::string_view name, const char* raw) {
      std::string value = MSBuildUnescape(Trim(ExpandMSBuild(raw, scope)));
      for (auto& [k, v] : item.metadata)
        if (LowerAscii(k) == LowerAscii(name)) {
          v = std::move(value);
          return;
        }
      item.metadata.emplace_back(std::string(name), std::move(value));
    };
    for (auto attr : element.attributes())
      if (!IsItemOperationAttribute(attr.name())) set(attr.name(), attr.value());
    for (auto child : element.children()) {
      if (child.type() != pugi::node_element) continue;
      if (!EvaluateMSBuildCondition(child.attribute("Condition").value(), scope)) continue;
      set(child.name(), child.text().get());
    }
  }

  std::vector<PathPattern> Patterns(const std::string& list) const {
    std::vector<PathPattern> out;
    for (auto& part : SplitMSBuildList(list)) {
      PathPattern p(MSBuildUnescape(part), m_projectDir);
      if (!p.Empty()) out.push_back(std::move(p));
    }
    return out;
  }

  std::string IncludeText(const fs::path& full, const std::string& asWritten) const {
    std::string dir = m_projectDir.generic_string();
    std::string f = full.generic_string();
    if (f.size() > dir.size() + 1 && f.compare(0, dir.size(), dir) == 0 && f[dir.size()] == '/')
      return f.substr(dir.size() + 1);
    return asWritten.empty() ? f : asWritten;
  }

  // Calls `fn(index)` for each live item of `items` that a pattern of `list` matches.
  template <class Fn>
  void ForMatches(TypeItems& items, const std::string& list, Fn fn) {
    for (auto& pattern : Patterns(list)) {
      if (!pattern.HasWildcards()) {
        auto range = items.byPath.equal_range(LowerAscii(pattern.LiteralPath().string()));
        std::vector<size_t> hits;
        for (auto it = range.first; it != range.second; ++it) hits.push_back(it->second);
        for (size_t i : hits)
          if (!items.removed[i]) fn(i);
      } else {
        for (size_t i = 0; i < items.items.size(); ++i)
          if (!items.removed[i] && pattern.Matches(items.items[i].fullPath)) fn(i);
      }
    }
  }

  void EvaluateItemElement(pugi::xml_node element, const MSBuildScope& scope) {
    if (!EvaluateMSBuildCondition(element.attribute("Condition").value(), scope)) return;
    std::string type = element.name();
    TypeItems& items = Items(type);
    if (auto remove = element.attribute("Remove")) {
      ForMatches(items, ExpandMSBuild(remove.value(), scope), [&](size_t i) { items.removed[i] = true; });
      return;
    }
    if (auto update = element.attribute("Update")) {
      ForMatches(items, ExpandMSBuild(update.value(), scope),
                 [&](size_t i) { ApplyMetadata(items.items[i], element, scope); });
      return;
    }
    auto include = element.attribute("Include");
    if (!include) return;
    auto excludes = Patterns(ExpandMSBuild(element.attribute("Exclude").value(), scope));
    auto excluded = [&](const fs::path& p) {
      return std::any_of(excludes.begin(), excludes.end(), [&](const PathPattern& e) { return e.Matches(p); });
    };
    for (auto& part : SplitMSBuildList(ExpandMSBuild(include.value(), scope))) {
      std::string spec = MSBuildUnescape(part);
      PathPattern pattern(spec, m_projectDir);
      if (pattern.Empty()) continue;
      std::vector<std::pair<fs::path, std::string>> found;  // full path, include as written
      if (pattern.HasWildcards()) {
        for (auto& p : pattern.Expand(excludes, m_probe)) found.emplace_back(p, "");
      } else {
        fs::path p = pattern.LiteralPath();
        // The pattern is lower case; keep the spelling the project wrote.
        std::string s = spec;
        std::replace(s.begin(), s.end(), '\\', '/');
        fs::path written(s);
        p = m_caseResolver.Resolve(NormalizedAbsolute(written.is_relative() ? m_projectDir / written : written), m_probe);
        if (excluded(p)) continue;
        found.emplace_back(p, s);
      }
      for (auto& [full, written] : found) {
        MSBuildItem item;
        item.type = type;
        item.fullPath = full;
        item.include = IncludeText(full, written);
        ApplyMetadata(item, element, scope);
        items.byPath.emplace(LowerAscii(full.string()), items.items.size());
        items.items.push_back(std::move(item));
        items.removed.push_back(false);
      }
    }
  }

  fs::path m_projectFile;
  fs::path m_projectDir;
  const MSBuildOptions& m_options;
  PathProbe* m_probe;              // never null
  MSBuildFileCache* m_fileCache;   // never null
  MSBuildProperties m_props;
  bool m_sdkStyle = false;
  std::deque<SourceFile> m_files;
  std::unordered_set<std::string> m_imported;
  std::vector<PendingGroup> m_pendingGroups;
  std::unordered_map<std::string, TypeItems> m_items;
  std::vector<std::string> m_warnings;
  PathCaseResolver m_caseResolver;
};

}  // namespace

std::shared_ptr<const pugi::xml_document> MSBuildFileCache::Read(const std::filesystem::path& path) {
  auto it = m_documents.find(path.native());
  if (it != m_documents.end()) return it->second;
  std::shared_ptr<const pugi::xml_document> doc = ReadDefinitionXml(path);
  m_documents.emplace(path.native(), doc);
  return doc;
}

std::string MSBuildItem::Metadata(std::string_view name) const {
  std::string key = LowerAscii(name);
  for (auto& [k, v] : metadata)
    if (LowerAscii(k) == key) return v;
  return "";
}

MSBuildProject EvaluateMSBuildProject(const std::filesystem::path& projectFile, const MSBuildOptions& given) {
  // The runs below share what they learn of the disk, with the load or among themselves.
  PathProbe ownProbe;
  MSBuildFileCache ownFiles;
  MSBuildOptions options = given;
  if (!options.probe) options.probe = &ownProbe;
  if (!options.files) options.files = &ownFiles;
  auto run = [&](const std::string& targetFramework, const std::string& platform) {
    auto evaluator = std::make_unique<Evaluator>(projectFile, options, targetFramework, platform);
    evaluator->PropertyPass();
    return evaluator;
  };
  auto evaluator = run("", "");
  // A legacy project that names no platform of its own is seen under the default one.
  if (!evaluator->SdkStyle() && !options.defaultPlatform.empty() && evaluator->Properties().Get("Platform").empty())
    evaluator = run("", options.defaultPlatform);
  // A project built for several frameworks is seen as its build for the first one.
  const MSBuildProperties& props = evaluator->Properties();
  if (evaluator->SdkStyle() && props.Get("TargetFramework").empty() && !props.IsGlobal("TargetFramework")) {
    auto frameworks = SplitMSBuildList(MSBuildUnescape(props.Get("TargetFrameworks")));
    if (!frameworks.empty()) evaluator = run(frameworks.front(), "");
  }
  evaluator->ItemPass();
  return evaluator->Result();
}

}  // namespace platform::automation
