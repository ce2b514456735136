#pragma once
// The environment of the results pane's tests: a solution of one project written to a
// temporary folder and loaded as the development environment's, a settings store, the
// data folder and the temporary folder inside the test's own folder, the temporary
// results database with findings in "XMLAnalyzer1", and recorded message boxes, error
// reports, printers and page viewers.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "host/MGlobals.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "pane/DocXMLAnalyzer.h"
#include "platform/automation/DTE.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/core/Error.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/PageViewer.h"
#include "platform/suite/PrinterProbe.h"
#include "results/MGlobals_ResultsDb.h"
#include "testsupport/FindingsTable.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

namespace pane_test {

inline constexpr const char* kCaption = "Annotra - by Scribane";
inline constexpr const char* kGuid = "{00606204-4A63-44fb-928A-F4FBAF913788}";

/// Sets an environment variable for the life of the object.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const std::string& value) : m_name(name) {
    if (const char* old = std::getenv(name)) m_old = old, m_had = true;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedEnv() {
    if (m_had) setenv(m_name, m_old.c_str(), 1);
    else unsetenv(m_name);
  }
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

 private:
  const char* m_name;
  std::string m_old;
  bool m_had = false;
};

// a.cs has 12 lines; Sub/b.cs 5.
inline const char* const kFileA =
    "namespace Demo\n{\n  /// <summary>A.</summary>\n  public class A\n  {\n    public void Run() { }\n"
    "    public int Count;\n    public void Stop() { }\n  }\n  public enum E { X }\n}\n";
inline const char* const kFileB = "namespace Demo.Sub\n{\n  public class B { }\n}\n";

class PaneTest : public ::testing::Test {
 protected:
  void SetUp() override {
    using namespace annotra;
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
    auto csproj = dir.Write("Demo/Demo.csproj", testsupport::LegacyProjectFile(
                                                    "    <Compile Include=\"a.cs\" />\n    <Compile Include=\"Sub\\b.cs\" />"));
    dir.Write("Demo/a.cs", kFileA);
    dir.Write("Demo/Sub/b.cs", kFileB);
    MGlobals::DTEObject = platform::automation::OpenSolution(csproj).dte;
    MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
    MGlobals::AppSettingsObject_HKCU = settings;
  }
  void TearDown() override {
    using namespace annotra;
    window.reset();
    MGlobals::DiscardXMLAnalyzerDbForTesting();
    MGlobals::ResetForTesting();
  }

  /// Findings of the solution: two in a.cs, one in Sub/b.cs, one of a document that is
  /// not in the project.
  void AddFindings(std::vector<testsupport::FindingRow> rows = {}) {
    if (rows.empty())
      rows = {{"Demo", "a.cs", "Method", "", "Run", 6, 6, "No comment"},
              {"Demo", "a.cs", "Field", "", "Count", 7, 7, "Missing <summary> tag"},
              {"Demo", "b.cs", "Class", "Sub", "B", 3, 3, "No comment"},
              {"Demo", "gone.cs", "Class", "", "G", 2, 2, "No comment"}};
    testsupport::AddFindings(*annotra::MGlobals::XMLAnalyzerDb(), "XMLAnalyzer1", rows);
  }

  /// Makes the controller and its window as the entry object does, findings added
  /// first when `withFindings`, and shows the results.
  annotra::DocXMLAnalyzer& Open(bool withFindings = true) {
    if (withFindings) AddFindings();
    window = std::make_unique<annotra::CXmlAnalyzerWindow>();
    window->Initialize(kCaption, kGuid, "iwxml1.lyt", "XMLAnalyzer1", false);
    window->ShowResults();
    return *window->Document();
  }

  /// The table's "Flag" of the row with `member`.
  int FlagOf(const std::string& member) {
    auto rs = annotra::MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenSnapshot);
    for (int i = 0; i < rs->RecordCount(); ++i) {
      rs->SetAbsolutePosition(i);
      if (platform::ToString(rs->Fields("Member")->Value()) == member)
        return platform::ToInt32(rs->Fields("Flag")->Value());
    }
    return -1;
  }

  /// Points in the grid (twips from its corner): the middle of row `position`'s line
  /// (rows from the top one shown), of a column's header, of the group-by box entry.
  static int RowY(const platform::grid::Grid& grid, int position) {
    return (grid.GroupByBoxVisible ? 240 : 0) + 240 + (position - grid.TopRow()) * 240 + 120;
  }
  static int HeaderY(const platform::grid::Grid& grid) { return (grid.GroupByBoxVisible ? 240 : 0) + 120; }
  static int ColumnX(const platform::grid::Grid& grid, const std::string& key) {
    for (auto& span : grid.VisibleColumns())
      if (span.column->Key() == key) return span.left + span.width / 2;
    return -1;
  }

  testsupport::TempDir dir;
  ScopedEnv home{"ANNOTRA_HOME", (dir.path() / "home").string()};
  ScopedEnv tmp{"TMPDIR", dir.path().string()};
  std::shared_ptr<platform::suite::IniSettingsStore> settings =
      std::make_shared<platform::suite::IniSettingsStore>(dir.path() / "settings.ini");
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
  std::shared_ptr<platform::suite::RecordingPageViewer> viewer = std::make_shared<platform::suite::RecordingPageViewer>();
  platform::suite::ScopedPageViewer scopedViewer{viewer};
  std::shared_ptr<platform::forms::ScriptedPresenter> user = std::make_shared<platform::forms::ScriptedPresenter>();
  platform::forms::ScopedPresenter scopedUser{user};
  std::unique_ptr<annotra::CXmlAnalyzerWindow> window;
};

}  // namespace pane_test
