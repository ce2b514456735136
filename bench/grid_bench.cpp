// The results grid over 100,000 findings: binding to the table's dynaset, grouping by
// two columns and sorting, against a plain read of the same rows from SQLite into
// memory, in the same run. Prints both times, their ratio, and the memory each holds
// afterwards (the grid keeps the rows once; the recordset keeps only their keys).

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "GeneratedFindings.h"
#include "host/MGlobals.h"
#include "platform/core/Variant.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/grid/Grid.h"
#include "platform/suite/TempFileNamer.h"
#include "results/MGlobals_ResultsDb.h"

namespace {

using platform::Variant;

constexpr int kRows = 100000;

// The results file, made once: the component's schema and 100,000 generated findings.
const std::string& ResultsFile() {
  static std::string path = [] {
    platform::suite::TempFileNamer namer;
    namer.MakeTempName("xmm", namer.Folder());
    std::string file = namer.FullPath();
    annotra::MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
    if (!annotra::MGlobals::CreateXMLAnalyzerTempDatabase(file)) std::abort();
    bench::WriteGeneratedFindings(file, kRows);
    return file;
  }();
  return path;
}

// Bytes the heap hands out: small blocks and the large ones it maps on their own.
size_t HeapInUse() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

double g_readSeconds = 0, g_gridSeconds = 0;
size_t g_readBytes = 0, g_gridBytes = 0;

// Every row's values, as a program that reads the table itself would keep them.
void BM_PlainSqliteRead(benchmark::State& state) {
  const std::string& file = ResultsFile();
  for (auto _ : state) {
    size_t before = HeapInUse();
    auto t0 = std::chrono::steady_clock::now();
    sqlite3* db = nullptr;
    sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* select = nullptr;
    sqlite3_prepare_v2(db, "SELECT * FROM XMLAnalyzer1 ORDER BY rowid", -1, &select, nullptr);
    const int columns = sqlite3_column_count(select);
    std::vector<Variant> rows;
    rows.reserve(static_cast<size_t>(kRows) * static_cast<size_t>(columns));
    while (sqlite3_step(select) == SQLITE_ROW) {
      for (int c = 0; c < columns; ++c) {
        switch (sqlite3_column_type(select, c)) {
          case SQLITE_INTEGER: rows.emplace_back(static_cast<int>(sqlite3_column_int64(select, c))); break;
          case SQLITE_FLOAT: rows.emplace_back(sqlite3_column_double(select, c)); break;
          case SQLITE_NULL: rows.emplace_back(); break;
          default:
            rows.emplace_back(std::string(reinterpret_cast<const char*>(sqlite3_column_text(select, c)),
                                          static_cast<size_t>(sqlite3_column_bytes(select, c))));
        }
      }
    }
    sqlite3_finalize(select);
    sqlite3_close(db);
    g_readSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    g_readBytes = HeapInUse() - before;
    if (rows.size() != static_cast<size_t>(kRows) * static_cast<size_t>(columns)) std::abort();
    benchmark::DoNotOptimize(rows.data());
  }
  state.counters["MB_held"] = static_cast<double>(g_readBytes) / 1e6;
  state.SetItemsProcessed(state.iterations() * kRows);
}

// The pane's way: a dynaset on the table, the grid bound to it, grouped by problem and
// document, sorted by line.
void BM_GridBindGroupSort(benchmark::State& state) {
  const std::string& file = ResultsFile();
  for (auto _ : state) {
    size_t before = HeapInUse();
    auto t0 = std::chrono::steady_clock::now();
    auto db = platform::dao::Workspace().OpenDatabase(file);
    platform::forms::Form form("Bench");
    platform::grid::Grid grid(form, "GridEx1");
    grid.Move(0, 0, 9600, 4800);
    grid.Bind(db->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenDynaset));
    grid.SetGroups({{"Problem"}, {"Document"}});
    grid.SetSortKeys({{"Start"}});
    g_gridSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    g_gridBytes = HeapInUse() - before;
    if (grid.Recordset()->RecordCount() != kRows || grid.RowCount() <= kRows) std::abort();
    state.counters["MB_held"] = static_cast<double>(g_gridBytes) / 1e6;
    state.counters["MB_grid"] = static_cast<double>(grid.MemoryUsed()) / 1e6;
    state.counters["rows_shown"] = grid.RowCount();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

BENCHMARK(BM_PlainSqliteRead)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_GridBindGroupSort)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (g_readSeconds > 0 && g_gridSeconds > 0)
    std::printf("100000 findings (last run of each): plain read %.1f ms holding %.1f MB, grid bind+group+sort "
                "%.1f ms holding %.1f MB; time ratio %.2f, memory ratio %.2f\n",
                g_readSeconds * 1000, g_readBytes / 1e6, g_gridSeconds * 1000, g_gridBytes / 1e6,
                g_gridSeconds / g_readSeconds, static_cast<double>(g_gridBytes) / static_cast<double>(g_readBytes));
  std::filesystem::remove(ResultsFile());
  return 0;
}
