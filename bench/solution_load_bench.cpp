// Loads a generated solution of N items and reports the time; run with N = 1,000,
// 5,000 and 20,000 the times show whether loading grows linearly (the complexity line
// fits them to O(N)).
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/automation/DTE.h"
#include "platform/automation/Solution.h"
#include "platform/automation/SolutionLoader.h"

namespace {

namespace fs = std::filesystem;

constexpr int kProjects = 10;
constexpr int kFilesPerFolder = 50;

// A temporary folder removed with its content when the program ends.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string pattern = (fs::temp_directory_path() / "annotra-bench-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a temporary folder");
    m_path = pattern;
  }
  ~ScratchFolder() {
    std::error_code ec;
    fs::remove_all(m_path, ec);
  }
  const fs::path& path() const { return m_path; }

 private:
  fs::path m_path;
};

void WriteFile(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

// Writes a solution of `items` source files in a solution folder and kProjects
// projects, half legacy (every file listed, each form's designer file nested under
// it) and half SDK-style (the files found by globbing), with files in folders of
// kFilesPerFolder. Returns the solution file.
fs::path GenerateSolution(const fs::path& root, int items) {
  std::string sln = "Microsoft Visual Studio Solution File, Format Version 12.00\n"
                    "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"All Projects\", \"All Projects\", "
                    "\"{00000000-0000-0000-0000-000000000000}\"\nEndProject\n";
  std::string nested;
  for (int p = 0; p < kProjects; ++p) {
    const bool legacy = p % 2 == 0;
    const std::string name = "Project" + std::to_string(p);
    const int count = items / kProjects + (p < items % kProjects ? 1 : 0);
    std::string compile;
    for (int i = 0; i < count; ++i) {
      std::string folder = "Folder" + std::to_string(i / kFilesPerFolder);
      bool designer = i % 2 == 1;
      std::string file = "Form" + std::to_string(i / 2) + (designer ? ".Designer.cs" : ".cs");
      WriteFile(root / name / folder / file, "namespace N { partial class Form" + std::to_string(i / 2) + " { } }\n");
      if (!legacy) continue;
      compile += "    <Compile Include=\"" + folder + "\\" + file + "\"";
      compile += designer ? "><DependentUpon>Form" + std::to_string(i / 2) + ".cs</DependentUpon></Compile>\n" : " />\n";
    }
    std::string guid = "{00000000-0000-0000-0000-0000000000" + std::to_string(10 + p) + "}";
    if (legacy) {
      WriteFile(root / name / (name + ".csproj"),
                "<Project ToolsVersion=\"15.0\" xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n"
                "  <PropertyGroup Condition=\" '$(Configuration)|$(Platform)' == 'Debug|AnyCPU' \">\n"
                "    <DefineConstants>DEBUG;TRACE</DefineConstants>\n  </PropertyGroup>\n"
                "  <ItemGroup>\n" + compile + "  </ItemGroup>\n</Project>\n");
    } else {
      WriteFile(root / name / (name + ".csproj"),
                "<Project Sdk=\"Microsoft.NET.Sdk\">\n  <PropertyGroup><TargetFramework>net8.0</TargetFramework>"
                "</PropertyGroup>\n</Project>\n");
    }
    sln += "Project(\"" + std::string(legacy ? "{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}" : "{9A19103F-16F7-4668-BE54-9A1E7A4F7556}") +
           "\") = \"" + name + "\", \"" + name + "\\" + name + ".csproj\", \"" + guid + "\"\nEndProject\n";
    nested += "\t\t" + guid + " = {00000000-0000-0000-0000-000000000000}\n";
  }
  sln += "Global\n\tGlobalSection(NestedProjects) = preSolution\n" + nested + "\tEndGlobalSection\nEndGlobal\n";
  WriteFile(root / "Generated.sln", sln);
  return root / "Generated.sln";
}

// One generated solution per size, made once and kept until the program ends.
const fs::path& SolutionOf(int items) {
  static ScratchFolder scratch;
  static std::map<int, fs::path> made;
  auto it = made.find(items);
  if (it == made.end())
    it = made.emplace(items, GenerateSolution(scratch.path() / std::to_string(items), items)).first;
  return it->second;
}

void BM_LoadSolution(benchmark::State& state) {
  const int items = static_cast<int>(state.range(0));
  const fs::path& sln = SolutionOf(items);
  for (auto _ : state) {
    auto result = platform::automation::OpenSolution(sln);
    if (!result.warnings.empty()) state.SkipWithError(result.warnings.front().text.c_str());
    benchmark::DoNotOptimize(result.dte->Solution()->Projects()->Count());
  }
  state.SetComplexityN(items);
  state.SetItemsProcessed(state.iterations() * items);
}

BENCHMARK(BM_LoadSolution)->Arg(1000)->Arg(5000)->Arg(20000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();
