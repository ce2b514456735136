#pragma once
// Texts of solution and project files for tests that write a solution to a temporary
// folder. Strings only: usable by the tests of every folder.

#include <algorithm>
#include <string>
#include <vector>

namespace testsupport {

/// A legacy project file (MSBuild 2003 schema) whose one item group holds `items`, the
/// item lines as written (`<Compile Include="Forms\A.cs" />`).
inline std::string LegacyProjectFile(const std::string& items) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<Project ToolsVersion=\"15.0\" "
         "xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n"
         "  <ItemGroup>\n" +
         items +
         "\n  </ItemGroup>\n"
         "</Project>\n";
}

/// An SDK-style project file for net8.0 that globs its sources (C# and VB alike).
inline std::string SdkProjectFile() {
  return "<Project Sdk=\"Microsoft.NET.Sdk\">\n"
         "  <PropertyGroup><TargetFramework>net8.0</TargetFramework></PropertyGroup>\n"
         "</Project>\n";
}

/// Project type identifiers a solution file names its projects with.
namespace project_type {
inline constexpr const char* kCSharp = "{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}";
inline constexpr const char* kCSharpSdk = "{9A19103F-16F7-4668-BE54-9A1E7A4F7556}";
inline constexpr const char* kVB = "{F184B08F-C81C-45F6-A57F-5ABD9991F28F}";
inline constexpr const char* kVBSdk = "{778DAE3C-4631-46EA-AA77-85C1314464D9}";
inline constexpr const char* kFSharp = "{F2A71F9B-5D33-465A-A702-920D77279786}";
inline constexpr const char* kWebSite = "{E24C65DC-7377-472b-9ABA-BC803B73C61A}";
inline constexpr const char* kSolutionFolder = "{2150E333-8FDC-42A3-9474-1A3956D46DE8}";
}  // namespace project_type

/// One project of a solution text.
struct SolutionProject {
  /// The project's file relative to the solution's folder, with "/" ("App/App.csproj");
  /// a web site's folder ends with "/".
  std::string path;
  /// The solution folders holding it, outermost first, joined by "/" ("Libraries/Inner");
  /// "" at the top level.
  std::string folder = "";
  /// The project type; "" takes the legacy C# or VB type from the file's extension.
  std::string type = "";
  /// The project's name; "" takes the file name without its extension (or the web
  /// site's folder name).
  std::string name = "";
};

namespace detail {

inline std::string NameOf(const SolutionProject& p) {
  if (!p.name.empty()) return p.name;
  std::string path = p.path;
  while (!path.empty() && path.back() == '/') path.pop_back();
  std::string file = path.substr(path.rfind('/') + 1);
  size_t dot = file.rfind('.');
  return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

inline std::string TypeOf(const SolutionProject& p) {
  if (!p.type.empty()) return p.type;
  auto endsWith = [&](const char* ext) {
    std::string e(ext);
    return p.path.size() >= e.size() && p.path.compare(p.path.size() - e.size(), e.size(), e) == 0;
  };
  return endsWith(".vbproj") ? project_type::kVB : project_type::kCSharp;
}

/// A project identifier made from a number: {00000000-0000-0000-0000-0000000000NN}.
inline std::string Guid(size_t n) {
  std::string digits = std::to_string(n);
  return "{00000000-0000-0000-0000-" + std::string(12 - digits.size(), '0') + digits + "}";
}

}  // namespace detail

/// A .sln text listing `projects` in order. Each solution folder is written where it is
/// first needed, just before its first project (a folder's parents before it), and the
/// nesting goes into the NestedProjects section.
inline std::string SlnText(const std::vector<SolutionProject>& projects) {
  std::string entries, nested;
  std::vector<std::pair<std::string, std::string>> folders;  // folder path, its id
  size_t next = 1;
  auto idOfFolder = [&](const std::string& path) -> std::string {
    for (const auto& [p, id] : folders)
      if (p == path) return id;
    return "";
  };
  auto nest = [&](const std::string& child, const std::string& folderPath) {
    if (!folderPath.empty()) nested += "\t\t" + child + " = " + idOfFolder(folderPath) + "\n";
  };
  for (const auto& project : projects) {
    // The folders on the way down, each made once.
    size_t from = 0;
    while (from < project.folder.size()) {
      size_t slash = project.folder.find('/', from);
      if (slash == std::string::npos) slash = project.folder.size();
      std::string path = project.folder.substr(0, slash);
      if (idOfFolder(path).empty()) {
        std::string id = detail::Guid(next++);
        std::string name = project.folder.substr(from, slash - from);
        entries += std::string("Project(\"") + project_type::kSolutionFolder + "\") = \"" + name +
                   "\", \"" + name + "\", \"" + id + "\"\nEndProject\n";
        folders.emplace_back(path, id);
        nest(id, from == 0 ? "" : project.folder.substr(0, from - 1));
      }
      from = slash + 1;
    }
    std::string id = detail::Guid(next++);
    std::string path = project.path;
    std::replace(path.begin(), path.end(), '/', '\\');
    entries += "Project(\"" + detail::TypeOf(project) + "\") = \"" + detail::NameOf(project) + "\", \"" +
               path + "\", \"" + id + "\"\nEndProject\n";
    nest(id, project.folder);
  }
  std::string text = "Microsoft Visual Studio Solution File, Format Version 12.00\n"
                     "# Visual Studio Version 17\n" + entries;
  if (!nested.empty())
    text += "Global\n\tGlobalSection(NestedProjects) = preSolution\n" + nested +
            "\tEndGlobalSection\nEndGlobal\n";
  return text;
}

/// A .slnx text listing `projects` in order. Projects of one solution folder that follow
/// each other share one Folder element; a nested folder's parents are written before it.
inline std::string SlnxText(const std::vector<SolutionProject>& projects) {
  std::string text = "<Solution>\n";
  std::vector<std::string> written;  // folder paths already written
  std::string open;                  // the folder whose element is open
  auto close = [&] {
    if (!open.empty()) text += "  </Folder>\n";
    open.clear();
  };
  for (const auto& project : projects) {
    if (project.folder != open) {
      close();
      if (!project.folder.empty()) {
        // Parents not yet written get an element of their own.
        for (size_t slash = project.folder.find('/'); slash != std::string::npos;
             slash = project.folder.find('/', slash + 1)) {
          std::string parent = project.folder.substr(0, slash);
          if (std::find(written.begin(), written.end(), parent) == written.end()) {
            text += "  <Folder Name=\"/" + parent + "/\" />\n";
            written.push_back(parent);
          }
        }
        text += "  <Folder Name=\"/" + project.folder + "/\">\n";
        written.push_back(project.folder);
        open = project.folder;
      }
    }
    text += std::string(open.empty() ? "  " : "    ") + "<Project Path=\"" + project.path + "\"" +
            (project.type.empty() ? "" : " Type=\"" + project.type + "\"") + " />\n";
  }
  close();
  return text + "</Solution>\n";
}

}  // namespace testsupport
