// Appending findings to the temporary results database: through the DAO recordset
// (AddNew, field values, Update) against a bare prepared SQLite insert in one
// transaction, on the same schema and the same rows. Prints both and their ratio.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/TempFileNamer.h"

namespace {

using namespace platform::dao;
using annotra::MGlobals::CreateXMLAnalyzerTempDatabase;

constexpr int kRows = 100000;

struct Finding {
  std::string project = "Demo.Core";
  std::string document = "Parser.cs";
  std::string type = "Method";
  std::string path = "Source\\Parsing";
  std::string member = "ParseExpression";
  int start = 0;
  int end = 0;
  std::string problem = "Too large uncommented code block";
};

Finding Row(int i) {
  Finding f;
  f.member += std::to_string(i % 977);
  f.start = 10 + i;
  f.end = 40 + i;
  return f;
}

// A new, empty results database file (both tables, the schema of the component).
std::string NewResultsFile() {
  platform::suite::TempFileNamer namer;
  namer.MakeTempName("xmm", namer.Folder());
  std::string path = namer.FullPath();
  annotra::MGlobals::WorkspaceObject = std::make_shared<Workspace>();
  if (!CreateXMLAnalyzerTempDatabase(path)) std::abort();
  return path;
}

double g_recordsetSeconds = 0;
double g_bareSeconds = 0;

void BM_RecordsetAddNewUpdate(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    std::string path = NewResultsFile();
    auto db = annotra::MGlobals::WorkspaceObject->OpenDatabase(path);
    db->FavourSpeed();
    state.ResumeTiming();
    auto t0 = std::chrono::steady_clock::now();

    auto rs = db->OpenRecordset("XMLAnalyzer1", dbOpenDynaset);
    for (int i = 0; i < kRows; ++i) {
      Finding f = Row(i);
      rs->AddNew();
      rs->Fields("Project")->SetValue(f.project);
      rs->Fields("Document")->SetValue(f.document);
      rs->Fields("Type")->SetValue(f.type);
      rs->Fields("Path")->SetValue(f.path);
      rs->Fields("Member")->SetValue(f.member);
      rs->Fields("Start")->SetValue(f.start);
      rs->Fields("End")->SetValue(f.end);
      rs->Fields("Problem")->SetValue(f.problem);
      rs->Update();
    }
    rs->Close();

    g_recordsetSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    state.PauseTiming();
    db->Close();
    std::filesystem::remove(path);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_BarePreparedInsert(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    std::string path = NewResultsFile();
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    sqlite3_exec(db, "PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY", nullptr, nullptr, nullptr);
    state.ResumeTiming();
    auto t0 = std::chrono::steady_clock::now();

    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO XMLAnalyzer1(Project, Document, Type, Path, Member, Start, End, Problem)"
                       " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)",
                       -1, &insert, nullptr);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    for (int i = 0; i < kRows; ++i) {
      Finding f = Row(i);
      sqlite3_bind_text(insert, 1, f.project.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 2, f.document.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 3, f.type.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 4, f.path.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 5, f.member.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_int(insert, 6, f.start);
      sqlite3_bind_int(insert, 7, f.end);
      sqlite3_bind_text(insert, 8, f.problem.c_str(), -1, SQLITE_STATIC);
      if (sqlite3_step(insert) != SQLITE_DONE) std::abort();
      sqlite3_reset(insert);
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_finalize(insert);

    g_bareSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    state.PauseTiming();
    sqlite3_close(db);
    std::filesystem::remove(path);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

BENCHMARK(BM_RecordsetAddNewUpdate)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BarePreparedInsert)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (g_recordsetSeconds > 0 && g_bareSeconds > 0)
    std::printf("100000 findings (last run of each): recordset %.1f ms, bare insert %.1f ms, ratio %.2f\n",
                g_recordsetSeconds * 1000, g_bareSeconds * 1000, g_recordsetSeconds / g_bareSeconds);
  return 0;
}
