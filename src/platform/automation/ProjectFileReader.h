#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/LoadWarning.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class DTE;
class Project;

/// The language of a project file by its extension: "C#" (.csproj), "VB" (.vbproj), ""
/// for anything else (any letter case).
std::string ProjectFileLanguage(const std::filesystem::path& projectFile);

/// How a project file is read into the solution.
struct ProjectFileOptions {
  /// The project's name; "" takes the file name without its extension.
  std::string name;
  /// The project kind the solution gives; "" (or a kind that is neither C# nor VB)
  /// takes the kind that fits the file: C# or VB, legacy or SDK-style.
  std::string kind;
  /// The solution it belongs to ("" for none); gives the solution properties.
  std::filesystem::path solutionPath;
  std::weak_ptr<DTE> dte;
};

/// Reads the C# or VB project file `projectFile` into a Project: evaluated as
/// EvaluateMSBuildProject does under Configuration=Debug and, for SDK-style projects,
/// Platform=AnyCPU (legacy projects under the platform they default to, AnyCPU when they
/// name none, so that their Debug configuration is the one read); its Compile, None, Content, EmbeddedResource, Page, ApplicationDefinition,
/// Resource and Folder items become ProjectItems (Link names where a file is shown; a
/// file outside the project folder without one is shown at the top; DependentUpon nests
/// it), and its symbols are set for the language (CSharpSymbols or VbSymbols, with the
/// first target framework's symbols for SDK-style projects unless
/// DisableImplicitFrameworkDefines is true). Warnings (missing files, imports that
/// cannot be read) are added to `warnings`. Fails with platform::Error when the file
/// cannot be read or parsed (53, 75, 5, as ReadDefinitionXml), or is no C# or VB
/// project file (5).
Ref<Project> ReadProjectFile(const std::filesystem::path& projectFile, const ProjectFileOptions& options,
                             std::vector<LoadWarning>& warnings);

/// A project of kind `kind` named `name` for `projectFile` that has no items: what stays
/// in the solution of a project that cannot be read. Its symbols are the language's
/// defaults.
Ref<Project> UnreadProject(const std::filesystem::path& projectFile, const ProjectFileOptions& options);

}  // namespace platform::automation
