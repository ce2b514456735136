// The generator of large synthetic solutions for the benchmarks: SDK-style C# and VB
// projects under src/ and test/, each with its sources in folders, listed in a .slnx
// whose solution folders hold some projects in a folder named like the project (as large
// real solutions do), a Directory.Build.props at the root and one in test/ that imports
// it, and members documented well, badly and not at all, so that an analysis has many
// findings of every kind.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace bench {

namespace fs = std::filesystem;

// One C# class of about 100 lines: documented and undocumented members, parameters that
// agree and disagree, and bodies long enough for the in-method check.
inline std::string CSharpClass(int n) {
  std::string s = "    /// <summary>Class " + std::to_string(n) + ".</summary>\n    public class C" +
                  std::to_string(n) + "\n    {\n        private int field;\n        public string Name { get; set; }\n"
                  "        public event System.EventHandler Changed;\n        public C" + std::to_string(n) +
                  "(int value) { field = value; }\n\n";
  for (int m = 0; m < 4; ++m) {
    if (m % 2 == 0)
      s += std::string("        /// <summary>Method.</summary>\n        /// <param name=\"") + (m == 2 ? "b" : "a") +
           "\" type=\"int\">A.</param>\n        /// <returns>B.</returns>\n";
    else
      s += "        // plain comment\n";
    s += "        public int M" + std::to_string(m) + "(int a)\n        {\n";
    for (int l = 0; l < 18; ++l) s += "            a += " + std::to_string(l) + (l % 6 == 5 && m != 3 ? "; // step\n" : ";\n");
    s += "            return a;\n        }\n\n";
  }
  s += "    }\n\n";
  return s;
}

// The same in Visual Basic.
inline std::string VbClass(int n) {
  std::string s = "    ''' <summary>Class " + std::to_string(n) + ".</summary>\n    Public Class V" +
                  std::to_string(n) + "\n        Private m_field As Integer\n\n";
  for (int m = 0; m < 4; ++m) {
    if (m % 2 == 0)
      s += "        ''' <summary>Method.</summary>\n        ''' <param name=\"a\" type=\"Integer\">A.</param>\n"
           "        ''' <returns>B.</returns>\n";
    s += "        Public Function M" + std::to_string(m) + "(ByVal a As Integer) As Integer\n";
    for (int l = 0; l < 18; ++l) s += "            a += " + std::to_string(l) + "\n";
    s += "            Return a\n        End Function\n\n";
  }
  s += "    End Class\n\n";
  return s;
}

inline void WriteText(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

/// What Generate wrote.
struct GeneratedSolution {
  fs::path solution;
  int files = 0;
  int lines = 0;
  int projects = 0;
};

/// Writes a solution of about `lines` lines below `root`: files of one or two classes
/// (about 160 lines on average, so 500,000 lines make more than 3,000 files) in folders of
/// 20 files, 60 files a project, every eighth project in VB. Every third project sits in
/// a solution folder of its own name, inside "src" or "test".
inline GeneratedSolution Generate(const fs::path& root, int lines) {
  constexpr int kFilesPerProject = 60;
  constexpr int kFilesPerFolder = 20;
  GeneratedSolution out;
  WriteText(root / "Directory.Build.props",
            "<Project>\n  <PropertyGroup>\n    <SourceRoot>$(MSBuildThisFileDirectory)</SourceRoot>\n"
            "    <LangVersion>latest</LangVersion>\n  </PropertyGroup>\n</Project>\n");
  WriteText(root / "test" / "Directory.Build.props",
            "<Project>\n  <PropertyGroup>\n    <_ParentDirectoryBuildPropsPath Condition=\"'$(_DirectoryBuildPropsFile)' != ''\">"
            "$([System.IO.Path]::Combine('..', '$(_DirectoryBuildPropsFile)'))</_ParentDirectoryBuildPropsPath>\n"
            "  </PropertyGroup>\n  <Import Project=\"$(_ParentDirectoryBuildPropsPath)\" "
            "Condition=\"Exists('$(_ParentDirectoryBuildPropsPath)')\" />\n</Project>\n");
  std::string src, test, nested;
  int file = 0;
  while (out.lines < lines) {
    const int p = out.projects++;
    const bool vb = p % 8 == 7;
    const bool isTest = p % 4 == 3;
    const std::string name = (isTest ? "Bench.Tests" : "Bench.Lib") + std::to_string(p);
    const std::string folder = isTest ? "test" : "src";
    const fs::path dir = root / folder / name;
    const std::string project = name + (vb ? ".vbproj" : ".csproj");
    WriteText(dir / project,
              "<Project Sdk=\"Microsoft.NET.Sdk\">\n  <PropertyGroup>\n    <TargetFrameworks>net8.0;netstandard2.0</TargetFrameworks>\n"
              "  </PropertyGroup>\n  <ItemGroup>\n    <Compile Remove=\"snapshots\\**\\*\" />\n  </ItemGroup>\n</Project>\n");
    for (int i = 0; i < kFilesPerProject && out.lines < lines; ++i, ++file) {
      const int classes = 1 + file % 2;
      std::string text = vb ? "Namespace Bench\n" : "namespace Bench\n{\n";
      for (int c = 0; c < classes; ++c) text += vb ? VbClass(file * 2 + c) : CSharpClass(file * 2 + c);
      text += vb ? "End Namespace\n" : "}\n";
      std::string base = "F";
      base.append(std::to_string(file));
      WriteText(dir / ("Folder" + std::to_string(i / kFilesPerFolder)) / (base + (vb ? ".vb" : ".cs")), text);
      out.lines += static_cast<int>(std::count(text.begin(), text.end(), '\n'));
      ++out.files;
    }
    std::string entry = "    <Project Path=\"" + folder + "/" + name + "/" + project + "\" />\n";
    if (p % 3 == 2)
      nested += "  <Folder Name=\"/" + folder + "/" + name + "/\">\n  " + entry + "  </Folder>\n";
    else
      (isTest ? test : src) += entry;
  }
  WriteText(root / "Bench.slnx", "<Solution>\n  <Folder Name=\"/src/\">\n" + src + "  </Folder>\n  <Folder Name=\"/test/\">\n" +
                                      test + "  </Folder>\n" + nested + "</Solution>\n");
  out.solution = root / "Bench.slnx";
  return out;
}

}  // namespace bench
