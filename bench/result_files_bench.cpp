// Saving 100,000 findings to a result file and loading them back through the window
// controller (SaveFile, LoadFile, with the file dialog answered by a script), each
// beside a bare SQLite copy of the same rows (ATTACH and INSERT INTO ... SELECT) in the
// same run. Loading includes what LoadFile does after the copy: the grid bound to the
// refilled table on the results layout, and the rows counted.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "GeneratedFindings.h"
#include "host/MGlobals.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "platform/automation/DTE.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/ResultFileDialog.h"
#include "results/MGlobals_ResultsDb.h"

namespace {

namespace fs = std::filesystem;
using annotra::CXmlAnalyzerWindow;
namespace MGlobals = annotra::MGlobals;

constexpr int kRows = 100000;

// What the benchmark runs in: a folder of its own, the results database holding the
// findings, and the controller with its window.
struct Setting {
  fs::path folder;
  std::shared_ptr<platform::suite::ScriptedFileDialogs> files = std::make_shared<platform::suite::ScriptedFileDialogs>();
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  std::shared_ptr<platform::suite::RecordingErrorReport> report = std::make_shared<platform::suite::RecordingErrorReport>();
  std::unique_ptr<CXmlAnalyzerWindow> window;
  std::string resultsFile;
  std::string bareResultsFile;  // a copy of the findings for SQLite alone

  Setting() {
    char name[] = "/tmp/annotra-bench-XXXXXX";
    if (!mkdtemp(name)) std::abort();
    folder = name;
    setenv("ANNOTRA_HOME", (folder / "home").c_str(), 1);
    setenv("TMPDIR", folder.c_str(), 1);
    if (!getenv("ANNOTRA_APP_PATH")) setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
    platform::suite::FileDialogPresenter::Install(files);
    platform::forms::MessageBoxPresenter::Install(boxes);
    platform::suite::ErrorReport::Install(report);
    files->overwrite = true;
    MGlobals::DTEObject = std::make_shared<platform::automation::DTE>();
    MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
    MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(folder / "settings.ini");
    MGlobals::XMLAnalyzerDb();
    resultsFile = MGlobals::XMLAnalyzerDbFile();
    bench::WriteGeneratedFindings(resultsFile, kRows);
    // The bare copies work on a file of their own: the component holds its results
    // database exclusively once it has written to it.
    bareResultsFile = (folder / "bare-results.xmm").string();
    fs::copy_file(resultsFile, bareResultsFile);
    window = std::make_unique<CXmlAnalyzerWindow>();
    window->Initialize("Annotra - by Scribane", "{00606204-4A63-44fb-928A-F4FBAF913788}", "iwxml1.lyt", "XMLAnalyzer1",
                       true);
  }
  ~Setting() {
    window.reset();
    platform::suite::FileDialogPresenter::Install(nullptr);
    Quietly([] { MGlobals::XMLAnalyzerDb()->Close(); });
    std::error_code ec;
    fs::remove_all(folder, ec);
  }

  template <class F>
  static void Quietly(F&& f) {
    try {
      f();
    } catch (const std::exception&) {
    }
  }

  /// Fails the run when the component showed a message or reported an error.
  void Check(const char* what) const {
    if (!boxes->shown.empty() || !report->entries.empty()) {
      std::fprintf(stderr, "%s: %s\n", what,
                   !boxes->shown.empty() ? boxes->shown[0].prompt.c_str() : report->entries[0].message.c_str());
      std::abort();
    }
  }
};

Setting& TheSetting() {
  static Setting setting;
  return setting;
}

int RowsOf(const std::string& file, const char* table) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_stmt* count = nullptr;
  sqlite3_prepare_v2(db, (std::string("SELECT count(*) FROM ") + table).c_str(), -1, &count, nullptr);
  int rows = sqlite3_step(count) == SQLITE_ROW ? sqlite3_column_int(count, 0) : -1;
  sqlite3_finalize(count);
  sqlite3_close(db);
  return rows;
}

void Exec(sqlite3* db, const std::string& sql) {
  char* error = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    std::fprintf(stderr, "%s: %s\n", sql.c_str(), error ? error : "?");
    std::abort();
  }
}

double g_save = 0, g_bareSave = 0, g_load = 0, g_bareLoad = 0;

double Since(std::chrono::steady_clock::time_point t0) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_SaveFile(benchmark::State& state) {
  Setting& s = TheSetting();
  const std::string file = (s.folder / "saved.xmm").string();
  for (auto _ : state) {
    s.files->Answer(file);
    auto t0 = std::chrono::steady_clock::now();
    s.window->SaveFile();
    g_save = Since(t0);
    s.Check("SaveFile");
  }
  if (RowsOf(file, "XMLAnalyzer") != kRows) std::abort();
  state.SetItemsProcessed(state.iterations() * kRows);
}

// The same rows copied into a new file by SQLite alone: the table made with the same
// columns, then one INSERT INTO ... SELECT through ATTACH.
void BM_BareSqliteSave(benchmark::State& state) {
  Setting& s = TheSetting();
  const std::string file = (s.folder / "bare.xmm").string();
  for (auto _ : state) {
    auto t0 = std::chrono::steady_clock::now();
    fs::remove(file);
    sqlite3* db = nullptr;
    sqlite3_open(s.bareResultsFile.c_str(), &db);
    Exec(db, "ATTACH DATABASE '" + file + "' AS ext");
    Exec(db,
         "CREATE TABLE ext.XMLAnalyzer(ID INTEGER PRIMARY KEY, Flag INTEGER, Project TEXT, Document TEXT, Type TEXT, "
         "Path TEXT, Member TEXT, Start INTEGER, \"End\" INTEGER, Status INTEGER, Problem TEXT)");
    Exec(db, "INSERT INTO ext.XMLAnalyzer SELECT ID, Flag, Project, Document, Type, Path, Member, Start, \"End\", "
             "Status, Problem FROM main.XMLAnalyzer1");
    Exec(db, "DETACH DATABASE ext");
    sqlite3_close(db);
    g_bareSave = Since(t0);
  }
  if (RowsOf(file, "XMLAnalyzer") != kRows) std::abort();
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_LoadFile(benchmark::State& state) {
  Setting& s = TheSetting();
  const std::string file = (s.folder / "saved.xmm").string();
  for (auto _ : state) {
    s.files->Answer(file);
    auto t0 = std::chrono::steady_clock::now();
    s.window->LoadFile();
    g_load = Since(t0);
    s.Check("LoadFile");
    if (s.window->ResultCount() != kRows) std::abort();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

// The same rows put back by SQLite alone: the table emptied, then one INSERT INTO ...
// SELECT from the attached result file.
void BM_BareSqliteLoad(benchmark::State& state) {
  Setting& s = TheSetting();
  const std::string file = (s.folder / "bare.xmm").string();
  for (auto _ : state) {
    auto t0 = std::chrono::steady_clock::now();
    sqlite3* db = nullptr;
    sqlite3_open(s.bareResultsFile.c_str(), &db);
    Exec(db, "DELETE FROM XMLAnalyzer1");
    Exec(db, "ATTACH DATABASE '" + file + "' AS ext");
    Exec(db, "INSERT INTO main.XMLAnalyzer1 SELECT * FROM ext.XMLAnalyzer");
    Exec(db, "DETACH DATABASE ext");
    sqlite3_close(db);
    g_bareLoad = Since(t0);
  }
  if (RowsOf(s.bareResultsFile, "XMLAnalyzer1") != kRows) std::abort();
  state.SetItemsProcessed(state.iterations() * kRows);
}

BENCHMARK(BM_SaveFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BareSqliteSave)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BareSqliteLoad)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (g_save > 0 && g_bareSave > 0 && g_load > 0 && g_bareLoad > 0)
    std::printf("100000 findings (last run of each): SaveFile %.1f ms, bare SQLite copy %.1f ms (ratio %.2f); "
                "LoadFile %.1f ms, bare SQLite copy %.1f ms (ratio %.2f)\n",
                g_save * 1000, g_bareSave * 1000, g_save / g_bareSave, g_load * 1000, g_bareLoad * 1000,
                g_load / g_bareLoad);
  return 0;
}
