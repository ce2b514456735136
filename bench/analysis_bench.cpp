// The whole analysis of a large generated solution (bench/GeneratedSolution.h), with the
// findings read back from the results table and written out, beside loading the solution
// and parsing every file alone, in the same run; the peak memory of a whole analysis for
// two sizes, which should stay about the same; and the peak memory of the analysis of one
// file of 50 MB on one line with 2 million fields.
//
//   analysis_bench                          500,000 lines (more than 3,000 files)
//   ANNOTRA_BENCH_LINES=100000 analysis_bench
//
// Peak memory is measured in a child process that runs this program again
// (`analysis_bench --child SOLUTION`), so the child holds nothing of the parent's.
// `analysis_bench --generate FOLDER LINES` only writes a solution, to profile a run of
// `--child` or of the command line on it.
//
// The output written here is what the command line's tab-separated format writes, one
// row at a time, without looking up each row's file in the solution.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "GeneratedSolution.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/DTE.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/Scopes.h"
#include "platform/suite/TeamDatabase.h"
#include "results/MGlobals_ResultsDb.h"

namespace fs = std::filesystem;
using namespace annotra;

namespace {

const char* g_self = nullptr;

int TargetLines() {
  const char* v = std::getenv("ANNOTRA_BENCH_LINES");
  return v ? std::max(1000, std::atoi(v)) : 500000;
}

// Counts the reports instead of keeping them: a run with millions of failing steps must
// not measure the report's memory.
class CountingErrorReport : public platform::suite::ErrorReport {
 public:
  void Report(const std::string&, const std::string&, int, bool) override { ++count; }
  int64_t count = 0;
};

// A generated solution in a folder removed when the program ends.
struct Fixture {
  fs::path root;
  bench::GeneratedSolution generated;
  explicit Fixture(int lines) {
    root = fs::temp_directory_path() / ("annotra-analysis-bench-" + std::to_string(getpid()) + "-" + std::to_string(lines));
    generated = bench::Generate(root, lines);
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

// One file of one class with `fields` public fields on a single line of about 26 bytes
// each, in a folder of its own (removed when the program ends).
struct OneLineFixture {
  fs::path root;
  explicit OneLineFixture(int fields) {
    root = fs::temp_directory_path() / ("annotra-oneline-bench-" + std::to_string(getpid()));
    fs::create_directories(root / "OneLine");
    std::ofstream out(root / "OneLine" / "Wide.cs", std::ios::binary);
    out << "namespace Bench { public class Wide { ";
    char field[40];
    for (int i = 0; i < fields; ++i) {
      std::snprintf(field, sizeof field, "public int Field_%07d; ", i);
      out << field;
    }
    out << "} }";
    std::ofstream(root / "OneLine" / "OneLine.csproj")
        << "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework></PropertyGroup></Project>\n";
  }
  ~OneLineFixture() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
  fs::path solution() const { return root / "OneLine" / "OneLine.csproj"; }
};

// The host's part: settings, the team database and the workspace, in `home`.
void SetUpHost(const fs::path& home) {
  MGlobals::ResetForTesting();
  MGlobals::ForgetXMLAnalyzerDbForTesting();
  setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
  fs::create_directories(home);
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(home / "settings.ini");
  MGlobals::AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::LastScope, platform::Variant(static_cast<int>(platform::suite::kScopeSolution)));
  MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
  MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(*MGlobals::WorkspaceObject, (home / "team.db").string());
}

void TearDownHost() {
  MGlobals::DiscardXMLAnalyzerDbForTesting();
  MGlobals::ResetForTesting();
}

// A field as the tab-separated format writes it, appended to `out`.
void AppendField(std::string& out, const std::string& text) {
  for (char c : text) {
    if (c == '\t') out += "\\t";
    else if (c == '\n') out += "\\n";
    else if (c == '\\') out += "\\\\";
    else out += c;
  }
}

// Reads every row of "XMLAnalyzer1" through the database layer and writes it to `out`,
// one line a row, in blocks of 64 KiB; returns the number of rows.
int64_t WriteRows(std::ostream& out) {
  static const char* const kColumns[] = {"ID", "Flag", "Project", "Document", "Type", "Path",
                                         "Member", "Start", "End", "Status", "Problem"};
  auto rs = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenForwardOnly);
  std::vector<platform::Ref<platform::dao::Field>> fields;
  for (const char* column : kColumns) fields.push_back(rs->Fields(column));
  int64_t rows = 0;
  std::string block;
  while (!rs->Eof()) {
    for (int c = 0; c < 11; ++c) {
      if (c) block += '\t';
      AppendField(block, platform::ToString(fields[static_cast<size_t>(c)]->Value()));
    }
    block += '\n';
    if (block.size() >= 65536) {
      out.write(block.data(), static_cast<std::streamsize>(block.size()));
      block.clear();
    }
    ++rows;
    rs->MoveNext();
  }
  out.write(block.data(), static_cast<std::streamsize>(block.size()));
  rs->Close();
  return rows;
}

// One whole analysis of `solution` with the default options, its rows written to
// /dev/null; returns the number of rows.
int64_t AnalyseAndWrite(const fs::path& solution, const fs::path& home) {
  SetUpHost(home);
  MGlobals::DTEObject = platform::automation::OpenSolution(solution).dte;
  CXmlAnalyzerBrowser browser;
  browser.Find();
  std::ofstream sink("/dev/null");
  int64_t rows = WriteRows(sink);
  TearDownHost();
  return rows;
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

int64_t ParseItems(const platform::Ref<platform::automation::ProjectItems>& items);

int64_t ParseProject(const platform::Ref<platform::automation::Project>& project) {
  return project ? ParseItems(project->ProjectItems()) : 0;
}

// Parses every file below `items`, sub-projects of solution folders included.
int64_t ParseItems(const platform::Ref<platform::automation::ProjectItems>& items) {
  int64_t elements = 0;
  if (!items) return 0;
  for (int i = 1; i <= items->Count(); ++i) {
    auto item = items->Item(i);
    if (auto sub = item->SubProject()) {
      elements += ParseProject(sub);
      continue;
    }
    if (auto children = item->ProjectItems()) elements += ParseItems(children);
    if (auto model = item->FileCodeModel()) elements += CountElements(model->CodeElements());
  }
  return elements;
}

// Loading the solution and parsing every file into its code model, and nothing else.
int64_t LoadAndParse(const fs::path& solution) {
  auto loaded = platform::automation::OpenSolution(solution);
  auto projects = loaded.dte->Solution()->Projects();
  int64_t elements = 0;
  for (int p = 1; p <= projects->Count(); ++p) elements += ParseProject(projects->Item(p));
  return elements;
}

// Reading and parsing alone, and the whole analysis with its output, one after the other
// in every iteration, so that their ratio is measured under the same load of the machine.
void BM_AnalysisBesideReadAndParse(benchmark::State& state) {
  Fixture& f = FixtureOf(TargetLines());
  auto errors = std::make_shared<CountingErrorReport>();
  platform::suite::ScopedErrorReport scope(errors);
  double parseSeconds = 0, analysisSeconds = 0;
  int64_t rows = 0, elements = 0;
  for (auto _ : state) {
    auto t0 = std::chrono::steady_clock::now();
    elements = LoadAndParse(f.generated.solution);
    auto t1 = std::chrono::steady_clock::now();
    rows = AnalyseAndWrite(f.generated.solution, f.root / "home");
    auto t2 = std::chrono::steady_clock::now();
    parseSeconds += std::chrono::duration<double>(t1 - t0).count();
    analysisSeconds += std::chrono::duration<double>(t2 - t1).count();
  }
  const double n = static_cast<double>(state.iterations());
  state.counters["files"] = f.generated.files;
  state.counters["lines"] = f.generated.lines;
  state.counters["elements"] = static_cast<double>(elements);
  state.counters["findings"] = static_cast<double>(rows);
  state.counters["errors"] = static_cast<double>(errors->count) / n;
  state.counters["read_parse_ms"] = parseSeconds / n * 1000;
  state.counters["analysis_ms"] = analysisSeconds / n * 1000;
  state.counters["ratio"] = analysisSeconds / parseSeconds;
}

// Runs `--child SOLUTION` in a new process and returns its peak resident memory in MiB;
// the number of rows it wrote goes to `rows`.
double PeakMiBOfChild(const fs::path& solution, int64_t& rows) {
  int pipeFds[2];
  if (pipe(pipeFds) != 0) return -1;
  pid_t child = fork();
  if (child == 0) {
    close(pipeFds[0]);
    dup2(pipeFds[1], STDOUT_FILENO);
    execl(g_self, g_self, "--child", solution.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  close(pipeFds[1]);
  char buffer[64] = {};
  ssize_t got = read(pipeFds[0], buffer, sizeof buffer - 1);
  close(pipeFds[0]);
  rows = got > 0 ? std::atoll(buffer) : -1;
  int status = 0;
  struct rusage usage {};
  wait4(child, &status, 0, &usage);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return -1;
  return usage.ru_maxrss / 1024.0;
}

// Peak memory of one whole analysis with its output, for a solution of state.range(0)
// lines.
void BM_PeakMemory(benchmark::State& state) {
  Fixture& f = FixtureOf(static_cast<int>(state.range(0)));
  double peakMiB = 0;
  int64_t rows = 0;
  for (auto _ : state) peakMiB = PeakMiBOfChild(f.generated.solution, rows);
  if (peakMiB < 0) state.SkipWithError("the child process failed");
  state.counters["lines"] = f.generated.lines;
  state.counters["findings"] = static_cast<double>(rows);
  state.counters["peak_MiB"] = peakMiB;
}

// Peak memory of the analysis of one file of about 50 MB on one line: 2 million fields.
void BM_PeakMemoryOneLineFile(benchmark::State& state) {
  OneLineFixture f(static_cast<int>(state.range(0)));
  double peakMiB = 0;
  int64_t rows = 0;
  for (auto _ : state) peakMiB = PeakMiBOfChild(f.solution(), rows);
  if (peakMiB < 0) state.SkipWithError("the child process failed");
  state.counters["MB"] = static_cast<double>(fs::file_size(f.root / "OneLine" / "Wide.cs")) / 1e6;
  state.counters["findings"] = static_cast<double>(rows);
  state.counters["peak_MiB"] = peakMiB;
}

}  // namespace

BENCHMARK(BM_AnalysisBesideReadAndParse)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PeakMemory)->Arg(100000)->Arg(500000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_PeakMemoryOneLineFile)->Arg(2000000)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv) {
  g_self = "/proc/self/exe";
  if (argc == 4 && std::strcmp(argv[1], "--generate") == 0) {
    // Writes a solution to profile or to run the command line on, and names it.
    auto generated = bench::Generate(argv[2], std::atoi(argv[3]));
    std::printf("%s: %d files, %d lines, %d projects\n", generated.solution.c_str(), generated.files,
                generated.lines, generated.projects);
    return 0;
  }
  if (argc == 3 && std::strcmp(argv[1], "--child") == 0) {
    platform::suite::ErrorReport::Install(std::make_shared<CountingErrorReport>());
    fs::path home = fs::temp_directory_path() / ("annotra-bench-child-" + std::to_string(getpid()));
    int64_t rows = AnalyseAndWrite(argv[2], home);
    std::error_code ec;
    fs::remove_all(home, ec);
    std::printf("%lld\n", static_cast<long long>(rows));
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
