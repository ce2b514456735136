#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <string_view>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "platform/automation/MSBuildProperties.h"
#include "platform/automation/PathProbe.h"

namespace platform::automation {

/// One item of an evaluated project: a Compile, None, Folder ... entry.
struct MSBuildItem {
  std::string type;                // as written ("Compile")
  std::string include;             // evaluated, unescaped; relative to the project folder when inside it
  std::filesystem::path fullPath;  // absolute, normalized
  std::vector<std::pair<std::string, std::string>> metadata;  // evaluated, unescaped

  /// The value of metadata `name` (any letter case); "" when the item has none.
  std::string Metadata(std::string_view name) const;
};

/// The outcome of evaluating a project file.
struct MSBuildProject {
  bool sdkStyle = false;  // <Project Sdk=...>, an <Sdk> element or an SDK import
  MSBuildProperties properties;
  std::vector<MSBuildItem> items;      // every item type, in evaluation order
  std::vector<std::string> warnings;   // files that were to be imported but could not be read
};

/// The files evaluations read (project files, imports), kept parsed for the length of one
/// load, so that what every project of a solution imports (Directory.Build.props, shared
/// props and targets) is read and parsed once. Like PathProbe, it sees the files as they
/// were when first read; not thread-safe.
class MSBuildFileCache {
 public:
  /// The XML document of the file at `path` (absolute, normalized). Fails as
  /// ReadDefinitionXml does; failures are not kept.
  std::shared_ptr<const pugi::xml_document> Read(const std::filesystem::path& path);

 private:
  std::unordered_map<std::string, std::shared_ptr<const pugi::xml_document>> m_documents;
};

/// How to evaluate a project.
struct MSBuildOptions {
  /// Properties the project cannot change (Configuration, Platform, ...).
  std::vector<std::pair<std::string, std::string>> globalProperties;
  /// The platform for projects that do not choose one: SDK-style projects are
  /// evaluated under it; legacy projects under the platform they default to
  /// (<Platform Condition="'$(Platform)' == ''">x86</Platform>), or under this one when
  /// they name none. "" leaves Platform alone. A Platform among `globalProperties` wins.
  std::string defaultPlatform;
  /// The extension of the language's sources (".cs", ".vb"), which SDK-style projects
  /// take as their compile items by default.
  std::string sourceExtension = ".cs";
  /// The solution the project was loaded from; "" for none. Gives SolutionDir and the
  /// other solution properties the environment defines.
  std::filesystem::path solutionPath;
  /// The probe of the load the project is part of, so that the projects of a solution
  /// share what is known about their folders; none gives the evaluation one of its own.
  PathProbe* probe = nullptr;
  /// The file cache of the load; none gives the evaluation one of its own.
  MSBuildFileCache* files = nullptr;
};

/// Evaluates the project file `projectFile` as the build system would for a design-time
/// build: the nearest Directory.Build.props above it, the project, then the nearest
/// Directory.Build.targets (found and imported through the properties the build defines
/// for them: _DirectoryBuildPropsFile, DirectoryBuildPropsPath, ImportDirectoryBuildProps
/// and the same for targets), following Import (relative paths, wildcards, property
/// functions), ImportGroup, Choose/When/Otherwise and every Condition; properties first
/// in file order, then items (Include/Exclude/Remove/Update, wildcards, metadata as
/// attributes or elements). SDK-style projects get the SDK's defaults: the compile items
/// "**/*" + sourceExtension below the project folder minus DefaultItemExcludes (bin/,
/// obj/, ...) and hidden folders, switched by EnableDefaultItems and
/// EnableDefaultCompileItems; and when they name TargetFrameworks but no TargetFramework,
/// evaluation runs again with TargetFramework the first of them, as the build does for
/// each framework. Unknown elements and functions evaluate to nothing. Imports that
/// cannot be read are skipped with a warning. Fails with platform::Error (as
/// ReadDefinitionXml) when the project file itself cannot be read or parsed, and with 5
/// when its root element is not <Project>.
MSBuildProject EvaluateMSBuildProject(const std::filesystem::path& projectFile, const MSBuildOptions& options);

}  // namespace platform::automation
