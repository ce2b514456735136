#pragma once
// Findings for the benchmarks of what reads the results table: `rows` rows written
// straight into "XMLAnalyzer1" of an existing results database, the same rows on every
// run: 6 projects, 400 documents, 20 folders, 8 kinds of definition, 12 problems.

#include <sqlite3.h>

#include <cstdlib>
#include <string>

namespace bench {

/// Appends `rows` findings to the results table of the database at `file`; aborts when
/// the table cannot be written (a benchmark over missing rows would measure nothing).
inline void WriteGeneratedFindings(const std::string& file, int rows) {
  static const char* const kProblems[] = {"No comment",
                                          "Missing <summary> tag",
                                          "Missing <returns> tag",
                                          "Missing <param> tag",
                                          "Empty <summary> tag",
                                          "Too large uncommented code block",
                                          "Descriptive comment where an XML comment is required",
                                          "Parameter name mismatch",
                                          "Parameter count mismatch",
                                          "Missing <remarks> tag",
                                          "Empty <returns> tag",
                                          "Parameter type mismatch"};
  static const char* const kTypes[] = {"Class", "Method",    "Property", "Field (variable, constant)",
                                       "Event", "Enum", "Interface", "Delegate"};
  sqlite3* db = nullptr;
  sqlite3_stmt* insert = nullptr;
  if (sqlite3_open(file.c_str(), &db) != SQLITE_OK ||
      sqlite3_prepare_v2(db,
                         "INSERT INTO XMLAnalyzer1(Flag, Project, Document, Type, Path, Member, Start, End, Status, Problem)"
                         " VALUES (0, ?1, ?2, ?3, ?4, ?5, ?6, ?7, 0, ?8)",
                         -1, &insert, nullptr) != SQLITE_OK)
    std::abort();
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  unsigned seed = 12345;
  auto next = [&] { return seed = seed * 1103515245u + 12345u, (seed >> 8); };
  for (int i = 0; i < rows; ++i) {
    std::string project = "Demo.Project" + std::to_string(next() % 6);
    std::string document = "Source" + std::to_string(next() % 400) + ".cs";
    std::string path = "Folder" + std::to_string(next() % 20) + "\\Inner";
    std::string member = "Member" + std::to_string(i);
    int start = static_cast<int>(next() % 5000) + 1;
    sqlite3_bind_text(insert, 1, project.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 2, document.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 3, kTypes[next() % 8], -1, SQLITE_STATIC);
    sqlite3_bind_text(insert, 4, path.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 5, member.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(insert, 6, start);
    sqlite3_bind_int(insert, 7, start + static_cast<int>(next() % 40));
    sqlite3_bind_text(insert, 8, kProblems[next() % 12], -1, SQLITE_STATIC);
    if (sqlite3_step(insert) != SQLITE_DONE) std::abort();
    sqlite3_reset(insert);
  }
  if (sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
  sqlite3_finalize(insert);
  sqlite3_close(db);
}

}  // namespace bench
