// Finding each finding's file for the output, in the same run: a search of the whole
// solution per finding (SearchProject, then FindProjectItem) against the per-run index of
// the command line (FindingFiles); and the formats written from the results table.
//
//   output_bench                        3,800 files in 38 projects, 4 findings a file
//   ANNOTRA_BENCH_FILES=1000 output_bench

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <streambuf>

#include "FindingFiles.h"
#include "FindingSource.h"
#include "FindingsWriter.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/MemorySettingsStore.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/TeamDatabase.h"
#include "results/MGlobals_ResultsDb.h"

namespace fs = std::filesystem;
using namespace annotra;

namespace {

int TargetFiles() {
  const char* v = std::getenv("ANNOTRA_BENCH_FILES");
  return v ? std::max(100, std::atoi(v)) : 3800;
}

// A stream that drops what it is given, to time the writing alone.
class NullBuffer : public std::streambuf {
 protected:
  int overflow(int c) override { return c; }
  std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

// The solution, analysed once: projects of 100 files each in solution folders two deep
// (one folder per project named like it, as real solutions have), files in folders.
struct Analysed {
  fs::path root;
  Analysed() {
    const int files = TargetFiles();
    root = fs::temp_directory_path() / ("annotra-output-bench-" + std::to_string(getpid()));
    fs::create_directories(root);
    std::string sln = "Microsoft Visual Studio Solution File, Format Version 12.00\n", nested;
    int id = 1;
    auto guid = [](int n) {
      char text[48];
      std::snprintf(text, sizeof text, "{00000000-0000-0000-0000-%012d}", n);
      return std::string(text);
    };
    const int projects = std::max(1, files / 100);
    for (int p = 0; p < projects; ++p) {
      // Appended: "P" + std::to_string(p) trips a false -Wrestrict in GCC 12 at -O2.
      const std::string name = std::string("P").append(std::to_string(p));
      const std::string area = guid(id++), folder = guid(id++), project = guid(id++);
      sln += "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Area" + std::to_string(p % 5) + "_" +
             std::to_string(p) + "\", \"a\", \"" + area + "\"\nEndProject\n";
      sln += "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"" + name + "\", \"" + name + "\", \"" + folder +
             "\"\nEndProject\n";
      sln += "Project(\"{9A19103F-16F7-4668-BE54-9A1E7A4F7556}\") = \"" + name + "\", \"" + name + "\\" + name +
             ".csproj\", \"" + project + "\"\nEndProject\n";
      nested += "\t\t" + folder + " = " + area + "\n\t\t" + project + " = " + folder + "\n";
      fs::create_directories(root / name);
      std::ofstream(root / name / (name + ".csproj"))
          << "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework>"
             "</PropertyGroup></Project>\n";
      for (int f = 0; f < 100 && p * 100 + f < files; ++f) {
        fs::path dir = root / name / std::string("Area").append(std::to_string(f % 7)) /
                       std::string("Sub").append(std::to_string(f % 3));
        fs::create_directories(dir);
        std::ofstream(dir / std::string("F").append(std::to_string(f)).append(".cs"))
            << "namespace N\n{\n    public class C" << f << "\n    {\n        public int A(int x) { return x; }\n"
            << "        public int B(int x) { return x; }\n        public int C(int x) { return x; }\n    }\n}\n";
      }
    }
    sln += "Global\n\tGlobalSection(NestedProjects) = preSolution\n" + nested + "\tEndGlobalSection\nEndGlobal\n";
    std::ofstream(root / "Big.sln") << sln;

    platform::suite::ErrorReport::Install(std::make_shared<platform::suite::RecordingErrorReport>());
    if (!std::getenv("ANNOTRA_APP_PATH")) setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
    auto store = std::make_shared<platform::suite::MemorySettingsStore>();
    store->Write(section::CommentsAnalyzer, key::LastScope, platform::Variant(platform::suite::kScopeSolution));
    store->Write(section::CommentsAnalyzer, key::EnableBody, platform::Variant(0));
    MGlobals::AppSettingsObject_HKCU = store;
    MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
    MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(*MGlobals::WorkspaceObject, (root / "team.db").string());
    MGlobals::DTEObject = platform::automation::OpenSolution(root / "Big.sln").dte;
    CXmlAnalyzerBrowser browser;
    browser.Find();
  }
  ~Analysed() {
    std::string file = MGlobals::XMLAnalyzerDbFile();
    MGlobals::XMLAnalyzerDb()->Close();
    std::error_code ec;
    fs::remove(file, ec);
    fs::remove_all(root, ec);
  }
};

Analysed& Solution() {
  static Analysed analysed;
  return analysed;
}

// Every finding's project, folders and document, as the results table holds them.
std::vector<app::Finding> Rows() {
  std::vector<app::Finding> rows;
  auto rs = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenSnapshot);
  if (rs->RecordCount() > 0) rs->MoveFirst();
  for (; !rs->Eof(); rs->MoveNext()) {
    app::Finding f;
    f.Project = platform::ToString(rs->Fields("Project")->Value());
    f.Path = platform::ToString(rs->Fields("Path")->Value());
    f.Document = platform::ToString(rs->Fields("Document")->Value());
    rows.push_back(f);
  }
  rs->Close();
  return rows;
}

void BM_FileBySearchPerFinding(benchmark::State& state) {
  Solution();
  auto rows = Rows();
  for (auto _ : state) {
    size_t found = 0;
    for (const auto& f : rows)
      if (auto project = MGlobals::SearchProject(f.Project))
        if (auto item = MGlobals::FindProjectItem(project, f.Document, f.Path)) found += !item->FileNames(1).empty();
    if (found != rows.size()) state.SkipWithError("a finding's file was not found");
  }
  state.counters["findings"] = static_cast<double>(rows.size());
}

void BM_FileByIndexOfTheRun(benchmark::State& state) {
  Solution();
  auto rows = Rows();
  for (auto _ : state) {
    app::FindingFiles files(MGlobals::DTEObject);
    size_t found = 0;
    for (const auto& f : rows) found += !files.FileOf(f.Project, f.Path, f.Document).empty();
    if (found != rows.size()) state.SkipWithError("a finding's file was not found");
  }
  state.counters["findings"] = static_cast<double>(rows.size());
}

void BM_WriteFromTheResultsTable(benchmark::State& state) {
  Solution();
  const auto format = static_cast<app::OutputFormat>(state.range(0));
  NullBuffer null;
  std::ostream out(&null);
  app::OutputContext context;
  context.currentFolder = Solution().root;
  context.sourceRoot = Solution().root;
  for (auto _ : state) {
    app::FindingFiles files(MGlobals::DTEObject);
    app::ResultsTableFindings findings(MGlobals::XMLAnalyzerDb(), files);
    app::WriteFindings(out, findings, format, context);
  }
}

}  // namespace

BENCHMARK(BM_FileBySearchPerFinding)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_FileByIndexOfTheRun)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteFromTheResultsTable)
    ->Unit(benchmark::kMillisecond)
    ->Arg(static_cast<int>(app::OutputFormat::Table))
    ->Arg(static_cast<int>(app::OutputFormat::Msbuild))
    ->Arg(static_cast<int>(app::OutputFormat::Sarif));

BENCHMARK_MAIN();
