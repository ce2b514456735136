// The whole analysis of a generated solution of C# and VB projects, beside loading and
// parsing the same solution alone, in the same run; and the peak memory of an analysis
// (measured in a child process) for two sizes, which should stay about the same.
//
//   analysis_bench                      300,000 lines
//   ANNOTRA_BENCH_LINES=60000 analysis_bench

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "platform/suite/Scopes.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/DTE.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/TeamDatabase.h"

namespace fs = std::filesystem;
using namespace annotra;

namespace {

int TargetLines() {
  const char* v = std::getenv("ANNOTRA_BENCH_LINES");
  return v ? std::max(1000, std::atoi(v)) : 300000;
}

// One C# class of about 100 lines: documented and undocumented members, parameters that
// agree and disagree, and bodies long enough for the in-method check.
std::string CSharpClass(int n) {
  std::string s = "    /// <summary>Class " + std::to_string(n) + ".</summary>\n    public class C" +
                  std::to_string(n) + "\n    {\n        private int field;\n\n";
  for (int m = 0; m < 4; ++m) {
    if (m % 2 == 0)
      s += "        /// <summary>Method.</summary>\n        /// <param name=\"a\" type=\"int\">A.</param>\n"
           "        /// <returns>B.</returns>\n";
    else
      s += "        // plain comment\n";
    s += "        public int M" + std::to_string(m) + "(int a)\n        {\n";
    for (int l = 0; l < 18; ++l) s += "            a += " + std::to_string(l) + (l % 6 == 5 ? "; // step\n" : ";\n");
    s += "            return a;\n        }\n\n";
  }
  s += "    }\n\n";
  return s;
}

std::string VbClass(int n) {
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

// Writes a solution of one C# and one VB project of about `lines` lines in all.
fs::path Generate(const fs::path& root, int lines) {
  fs::create_directories(root / "Cs");
  fs::create_directories(root / "Vb");
  std::ofstream(root / "Cs" / "Cs.csproj") << "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework></PropertyGroup></Project>\n";
  std::ofstream(root / "Vb" / "Vb.vbproj") << "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework></PropertyGroup></Project>\n";
  std::ofstream(root / "Bench.sln")
      << "Microsoft Visual Studio Solution File, Format Version 12.00\n"
         "Project(\"{9A19103F-16F7-4668-BE54-9A1E7A4F7556}\") = \"Cs\", \"Cs\\Cs.csproj\", \"{11111111-1111-1111-1111-111111111111}\"\nEndProject\n"
         "Project(\"{778DAE3C-4631-46EA-AA77-85C1314464D9}\") = \"Vb\", \"Vb\\Vb.vbproj\", \"{22222222-2222-2222-2222-222222222222}\"\nEndProject\n";
  int written = 0, file = 0;
  while (written < lines) {
    std::string cs = "namespace Bench\n{\n", vb = "Namespace Bench\n";
    for (int c = 0; c < 5; ++c) {
      cs += CSharpClass(file * 5 + c);
      vb += VbClass(file * 5 + c);
    }
    cs += "}\n";
    vb += "End Namespace\n";
    // Built with append: GCC 12 warns wrongly (-Wrestrict) about "F" + to_string(n).
    std::string base = "F";
    base.append(std::to_string(file));
    std::ofstream(root / "Cs" / (base + ".cs")) << cs;
    std::ofstream(root / "Vb" / (base + ".vb")) << vb;
    written += static_cast<int>(std::count(cs.begin(), cs.end(), '\n') + std::count(vb.begin(), vb.end(), '\n'));
    ++file;
  }
  return root / "Bench.sln";
}

// A solution generated once per size, in a folder removed at exit.
struct Fixture {
  fs::path root;
  fs::path solution;
  explicit Fixture(int lines) {
    root = fs::temp_directory_path() / ("annotra-analysis-bench-" + std::to_string(getpid()) + "-" + std::to_string(lines));
    solution = Generate(root, lines);
  }
  ~Fixture() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
};

Fixture& FixtureOf(int lines) {
  static std::map<int, std::unique_ptr<Fixture>> fixtures;
  auto& f = fixtures[lines];
  if (!f) f = std::make_unique<Fixture>(lines);
  return *f;
}

// The host's part: settings, the team database and the workspace, in the fixture's folder.
void SetUpHost(const Fixture& f) {
  MGlobals::ResetForTesting();
  MGlobals::ForgetXMLAnalyzerDbForTesting();
  setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
  fs::path home = f.root / "home";
  fs::create_directories(home);
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(home / "settings.ini");
  MGlobals::AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::LastScope, platform::Variant(static_cast<int>(platform::suite::kScopeSolution)));
  MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
  MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(*MGlobals::WorkspaceObject, (home / "team.db").string());
}

void TearDownHost() {
  if (MGlobals::XMLAnalyzerDb_IsCreated()) {
    std::string file = MGlobals::XMLAnalyzerDbFile();
    MGlobals::XMLAnalyzerDb()->Close();
    std::error_code ec;
    fs::remove(file, ec);
  }
  MGlobals::ResetForTesting();
  MGlobals::ForgetXMLAnalyzerDbForTesting();
}

int64_t SourceBytes(const Fixture& f) {
  int64_t bytes = 0;
  for (auto& e : fs::recursive_directory_iterator(f.root))
    if (e.is_regular_file() && (e.path().extension() == ".cs" || e.path().extension() == ".vb")) bytes += e.file_size();
  return bytes;
}

int64_t CountElements(const platform::Ref<platform::automation::CodeElements>& elements) {
  int64_t n = 0;
  for (int i = 1; i <= elements->Count(); ++i) {
    auto e = elements->Item(i);
    ++n;
    if (platform::automation::CodeElement::KindHasMembers(e->Kind())) n += CountElements(e->Members());
  }
  return n;
}

// Loading the solution and parsing every file, and nothing else.
void BM_LoadAndParse(benchmark::State& state) {
  Fixture& f = FixtureOf(TargetLines());
  int64_t elements = 0;
  for (auto _ : state) {
    auto loaded = platform::automation::OpenSolution(f.solution);
    auto projects = loaded.dte->Solution()->Projects();
    for (int p = 1; p <= projects->Count(); ++p) {
      auto items = projects->Item(p)->ProjectItems();
      for (int i = 1; i <= items->Count(); ++i)
        if (auto model = items->Item(i)->FileCodeModel()) elements += CountElements(model->CodeElements());
    }
  }
  state.counters["elements"] = benchmark::Counter(static_cast<double>(elements) / state.iterations());
  state.SetBytesProcessed(SourceBytes(f) * state.iterations());
}

// The whole analysis of the solution with the default options: loading, walking,
// checking and writing every finding.
void BM_Analysis(benchmark::State& state) {
  Fixture& f = FixtureOf(TargetLines());
  auto quiet = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scope(quiet);
  int32_t findings = 0;
  for (auto _ : state) {
    SetUpHost(f);
    MGlobals::DTEObject = platform::automation::OpenSolution(f.solution).dte;
    CXmlAnalyzerBrowser browser;
    browser.Find();
    findings = browser.Matches();
    TearDownHost();
  }
  state.counters["findings"] = findings;
  state.counters["errors"] = static_cast<double>(quiet->entries.size());
  state.SetBytesProcessed(SourceBytes(f) * state.iterations());
}

// Peak memory of one whole analysis, in a child process, for a solution of state.range(0)
// lines.
void BM_PeakMemory(benchmark::State& state) {
  Fixture& f = FixtureOf(static_cast<int>(state.range(0)));
  double peakMiB = 0;
  for (auto _ : state) {
    pid_t child = fork();
    if (child == 0) {
      platform::suite::ErrorReport::Install(std::make_shared<platform::suite::RecordingErrorReport>());
      SetUpHost(f);
      MGlobals::DTEObject = platform::automation::OpenSolution(f.solution).dte;
      CXmlAnalyzerBrowser browser;
      browser.Find();
      TearDownHost();
      _exit(0);
    }
    int status = 0;
    struct rusage usage {};
    wait4(child, &status, 0, &usage);
    peakMiB = usage.ru_maxrss / 1024.0;
  }
  state.counters["peak_MiB"] = peakMiB;
}

}  // namespace

BENCHMARK(BM_LoadAndParse)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Analysis)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PeakMemory)->Arg(100000)->Arg(300000)->Unit(benchmark::kMillisecond)->Iterations(1);

BENCHMARK_MAIN();
