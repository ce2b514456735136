#include "analysis/FCCOptions.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "host/MGlobals_Paths.h"
#include "platform/automation/DTE.h"
#include "platform/automation/StatusBar.h"
#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/TeamDatabase.h"
#include "testsupport/UserSettingsFixture.h"

namespace annotra {
namespace {

using platform::forms::ScopedPresenter;
using platform::forms::ScriptedPresenter;
using platform::suite::TeamDatabase;

const std::string kFull =
    "{Class}|summary|{Delegate}|summary|param|returns|{Enum}|summary|{Method}|summary|param|"
    "returns|{Interface}|summary|{Module}|summary|{Structure}|summary|{Event}|summary|"
    "{Property}|summary|param|{Field (variable, constant)}|summary";

class FCCOptionsTest : public testsupport::UserSettingsFixture {
 protected:
  // A team database holding only `templates`.
  void UseTemplates(const std::vector<TeamDatabase::Template>& templates) {
    MGlobals::TeamDB->Close();
    MGlobals::TeamDB = m_ws.CreateDatabase((m_dir.path() / ("t" + std::to_string(++m_dbs) + ".db")).string(), "");
    TeamDatabase::CreateTemplateTable(*MGlobals::TeamDB, templates);
  }
  std::string Stored() {
    return platform::ToString(
        MGlobals::AppSettingsObject_HKCU->Read("CommentsAnalyzer", "XMLCheck", "<none>"));
  }
  // Runs the form shown, with the user's actions.
  void RunShown(const std::shared_ptr<ScriptedPresenter>& user, size_t expectedErrors = 0) {
    ScopedPresenter scope(user);
    FCCOptions form;
    form.GetOptions(true);
    form.Unload();
    EXPECT_EQ(user->errors.size(), expectedErrors);
    EXPECT_EQ(user->Pending(), 0u);
  }

  int m_dbs = 0;
};

TEST_F(FCCOptionsTest, NotShownWritesEveryTagOfEveryEnabledTemplate) {
  FCCOptions form;
  form.GetOptions(false);
  form.Unload();
  EXPECT_EQ(Stored(), kFull);  // Namespace is disabled by default
  EXPECT_TRUE(m_boxes->shown.empty());
  EXPECT_TRUE(m_report->entries.empty());
}

TEST_F(FCCOptionsTest, TreeHoldsKindsWithIconsAndDistinctTagsButIgnore) {
  UseTemplates({{"Method", "<summary>a</summary><param name=\"a\"/><param name=\"b\"/><ignore/>"
                           "<returns/><see cref=\"x\"/>", true},
                {"Enum", "no elements at all", true},
                {"Class", "<summary/>", false},
                {"Oddity", "<remarks/>", true}});
  FCCOptions form;
  form.Load();
  form.LoadTemplates();
  std::string tree;
  for (const auto& n : form.TreeView1.Nodes())
    tree += n->Key + "|" + n->Text + "|" + n->Image + (n->Expanded ? "|open" : "") + "\n";
  EXPECT_EQ(tree,
            "CMethod|Method|imgMethod|open\n"
            "TMethod*summary|<summary>|imgComments\n"
            "TMethod*param|<param>|imgComments\n"
            "TMethod*returns|<returns>|imgComments\n"
            "TMethod*see|<see>|imgComments\n"
            "CEnum|Enum|imgEnum|open\n"
            "COddity|Oddity||open\n"
            "TOddity*remarks|<remarks>|imgComments\n");
  form.SetStateImages();
  EXPECT_EQ(form.TreeView1.Item("CMethod")->StateImage(), 0);
  EXPECT_EQ(form.TreeView1.Item("TMethod*param")->StateImage(), 1);
  EXPECT_EQ(form.GetCheckedNodes(), "{Method}|{Enum}|{Oddity}");
  form.CheckAllNodes();
  EXPECT_EQ(form.GetCheckedNodes(), "{Method}|summary|param|returns|see|{Enum}|{Oddity}|remarks");
  form.Unload();
}

TEST_F(FCCOptionsTest, TwoTemplatesOfOneKindAreReportedAndMerged) {
  UseTemplates({{"Method", "<summary/>", true}, {"Method", "<returns/><summary/>", true}});
  FCCOptions form;
  form.GetOptions(false);
  EXPECT_EQ(Stored(), "{Method}|summary|returns");
  ASSERT_EQ(m_report->entries.size(), 1u);
  EXPECT_EQ(m_report->entries[0].message, "(35602) 'Key is not unique in collection'");
  EXPECT_EQ(m_report->entries[0].source, "Quillmark.FCCOptions.LoadTemplates");
}

TEST_F(FCCOptionsTest, UserChoosesTagsAndOkStoresThem) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("cmdUncheckAll").Check("TreeView1", "TMethod*param").Check("TreeView1", "CClass")
      .Click("OK");
  RunShown(user, 1);  // a kind node has no check box to click
  EXPECT_EQ(Stored(),
            "{Class}|{Delegate}|{Enum}|{Method}|param|{Interface}|{Module}|{Structure}|{Event}|"
            "{Property}|{Field (variable, constant)}");
}

TEST_F(FCCOptionsTest, UncheckingAllStoresOnlyKinds) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("&Uncheck All").Key(13);
  RunShown(user);
  EXPECT_EQ(Stored(),
            "{Class}|{Delegate}|{Enum}|{Method}|{Interface}|{Module}|{Structure}|{Event}|"
            "{Property}|{Field (variable, constant)}");
}

TEST_F(FCCOptionsTest, ReopeningShowsEveryTagCheckedAgain) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("cmdUncheckAll").Click("Command1");
  RunShown(user);
  auto again = std::make_shared<ScriptedPresenter>();
  again->Do([](platform::forms::Form& f) {
    auto& form = dynamic_cast<FCCOptions&>(f);
    EXPECT_TRUE(form.TreeView1.Item("TClass*summary")->Checked());
  }).Click("Check All").Click("OK");
  RunShown(again);
  EXPECT_EQ(Stored(), kFull);
}

TEST_F(FCCOptionsTest, CancelAndTheCloseBoxWriteNothing) {
  MGlobals::AppSettingsObject_HKCU->Write("CommentsAnalyzer", "XMLCheck", "{Class}|summary");
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("cmdUncheckAll").Click("Cancel");
  RunShown(user);
  auto closer = std::make_shared<ScriptedPresenter>();
  closer->Click("cmdUncheckAll").Close();
  {
    ScopedPresenter scope(closer);
    FCCOptions form;
    form.GetOptions(true);
    EXPECT_TRUE(form.IsLoaded());  // the unload was cancelled, the form hidden
    EXPECT_FALSE(form.IsVisible());
  }
  auto escape = std::make_shared<ScriptedPresenter>();
  escape->Key(27);
  RunShown(escape);
  EXPECT_EQ(Stored(), "{Class}|summary");
}

TEST_F(FCCOptionsTest, EmptyTemplateTableWarnsAndLeavesTheListEmpty) {
  UseTemplates({});
  FCCOptions form;
  form.GetOptions(false);
  EXPECT_EQ(Stored(), "");
  ASSERT_EQ(m_boxes->shown.size(), 1u);
  EXPECT_EQ(m_boxes->shown[0].prompt,
            "No XML comment templates defined - cannot perform analysis. Please open the XML "
            "Comment Templates Manager and configure the templates first.");
  EXPECT_EQ(m_boxes->shown[0].style, platform::forms::vbExclamation);
  EXPECT_EQ(m_boxes->shown[0].title, "Scribane");
  // Shown anyway, with an empty tree; OK stores an empty list.
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("OK");
  MGlobals::AppSettingsObject_HKCU->Write("CommentsAnalyzer", "XMLCheck", "x");
  RunShown(user);
  EXPECT_EQ(Stored(), "");
}

TEST_F(FCCOptionsTest, UnreadableTemplateTableIsACriticalMessage) {
  MGlobals::TeamDB->Close();
  MGlobals::TeamDB = m_ws.CreateDatabase((m_dir.path() / "none.db").string(), "");
  FCCOptions form;
  form.GetOptions(false);
  EXPECT_EQ(Stored(), "");
  ASSERT_EQ(m_boxes->shown.size(), 1u);
  EXPECT_EQ(m_boxes->shown[0].prompt,
            "Problem opening the XML comment templates recordset. Cannot continue with the XML "
            "comment analysis.");
  EXPECT_EQ(m_boxes->shown[0].style, platform::forms::vbCritical);
  MGlobals::TeamDB.reset();  // no team database at all: the same message
  form.LoadTemplates();
  EXPECT_EQ(m_boxes->shown.size(), 2u);
  EXPECT_TRUE(m_report->entries.empty());
}

TEST_F(FCCOptionsTest, MissingGrammarFileIsReportedAndTheTreeStaysEmpty) {
  setenv("ANNOTRA_APP_PATH", m_dir.path().c_str(), 1);
  MGlobals::ForgetGrammarPaths();
  FCCOptions form;
  form.GetOptions(false);
  EXPECT_EQ(form.TreeView1.Count(), 0);
  EXPECT_EQ(Stored(), "");
  ASSERT_EQ(m_report->entries.size(), 1u);
  EXPECT_EQ(m_report->entries[0].message,
            "Could not load grammar file: <" + (m_dir.path() / "XML.GMR").string() + ">");
  EXPECT_EQ(m_report->entries[0].source, "");
}

TEST_F(FCCOptionsTest, TemplatesButtonShowsTheManager) {
  MGlobals::DTEObject = std::make_shared<platform::automation::DTE>();
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("&Templates").Click("Cancel");
  testing::internal::CaptureStdout();
  RunShown(user);
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_EQ(MGlobals::DTEObject->StatusBar()->Text(), "Loading the XML Comment Templates Manager...");
  EXPECT_NE(out.find("disabled  Namespace"), std::string::npos);
}

TEST_F(FCCOptionsTest, HelpButtonOpensTheTopic) {
  auto user = std::make_shared<ScriptedPresenter>();
  user->Click("Command3").Click("Cancel");
  testing::internal::CaptureStdout();
  RunShown(user);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Help: " ANNOTRA_SOURCE_DIR "/resources/help/htm/XMLAnalyzer_Using.htm\n");
}

TEST_F(FCCOptionsTest, FirstAnalysisBuildsTheRequiredTagListThroughTheForm) {
  CXmlAnalyzerBrowser browser;
  browser.GetOptions();
  EXPECT_EQ(Stored(), kFull);
  EXPECT_EQ(MGlobals::g_AnalysisOptions.XMLCheck, kFull);
  ASSERT_EQ(browser.XMLCheckItems.size(), 25u);
  EXPECT_EQ(browser.XMLCheckItems[0], "{Class}");
  EXPECT_EQ(browser.XMLCheckItems[24], "summary");
  // Stored once, it is read as it stands the next time.
  MGlobals::AppSettingsObject_HKCU->Write("CommentsAnalyzer", "XMLCheck", "{Enum}");
  browser.GetOptions();
  EXPECT_EQ(browser.XMLCheckItems, std::vector<std::string>{"{Enum}"});
}

}  // namespace
}  // namespace annotra
