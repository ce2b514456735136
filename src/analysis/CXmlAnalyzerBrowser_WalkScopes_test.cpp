// The scopes of the walk: the method at the caret, the active document, the open
// documents, the current project and the current solution folder.

#include <gtest/gtest.h>

#include "testsupport/WalkFixture.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/Window.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace annotra::walktest {
namespace {

TEST_F(WalkTest, CurrentMethodWalksTheFunctionAtTheCaretOnly) {
  const int mainBody = testsupport::LineOf(kProgram, "Console.WriteLine");
  OpenInHost(Item("App", "Program.cs"), true, mainBody);
  browser.Walk(0);
  EXPECT_EQ(browser.Trace(), (Lines{"Program.cs:Main", "body Program.cs:Main"}));
  EXPECT_TRUE(browser.Def("Main").parentPublic);
  EXPECT_EQ(browser.Def("Main").progressTotal, 0);
  EXPECT_EQ(browser.Def("Main").progressLabel, "");
  EXPECT_EQ(browser.Language(), platform::codemodel::vsCMLanguageCSharp);

  // Scope 0 takes the visibility of the enclosing elements into account.
  browser.calls.clear();
  OpenInHost(Item("App", "Model.cs"), true, testsupport::LineOf(kModel, "Run()"));
  browser.Walk(0);
  EXPECT_EQ(browser.Trace(), (Lines{"Model.cs:Run", "body Model.cs:Run"}));
  EXPECT_FALSE(browser.Def("Run").parentPublic);

  // A VB method.
  browser.calls.clear();
  OpenInHost(Item("VbLib", "Module1.vb"), true, testsupport::LineOf(kModule1, "End Sub"));
  browser.Walk(0);
  EXPECT_EQ(browser.Trace(), (Lines{"Module1.vb:Main", "body Module1.vb:Main"}));
  EXPECT_EQ(browser.Language(), platform::codemodel::vsCMLanguageVB);
}

TEST_F(WalkTest, CurrentMethodWalksNothingOutsideAMethodOrWithoutAnActiveDocument) {
  browser.Walk(0);  // no active document
  auto program = OpenInHost(Item("App", "Program.cs"), true, testsupport::LineOf(kProgram, "private int count"));
  browser.Walk(0);  // a field
  program->Object("TextDocument")->Selection()->GotoLine(testsupport::LineOf(kProgram, "public class"));
  browser.Walk(0);  // the class, outside any method
  program->Object("TextDocument")->Selection()->GotoLine(1);
  browser.Walk(0);  // the using line
  OpenInHost(Item("App", "notes.txt"), true);
  browser.Walk(0);  // no code
  EXPECT_TRUE(browser.calls.empty());
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(WalkTest, CurrentDocumentWalksEveryElementOfTheActiveDocument) {
  browser.Walk(1);  // no active document
  EXPECT_TRUE(browser.calls.empty());
  MGlobals::g_AnalysisOptions.EnableBody = false;
  OpenInHost(Item("VbLib", "Form1.vb"), true);
  browser.Walk(1);
  EXPECT_EQ(browser.Trace(), (Lines{"Form1.vb:Form1", "Form1.vb:Form1_Load"}));
  EXPECT_EQ(browser.Def("Form1").progressTotal, 0);
}

TEST_F(WalkTest, OpenDocumentsWalksTheDocumentsThatShowCodeText) {
  MGlobals::g_AnalysisOptions.EnableBody = false;
  auto hidden = Item("App", "Model.cs");
  hidden->Open(vsViewKindCode);                    // a hidden code window
  OpenInHost(Item("VbLib", "Module1.vb"));         // shown
  OpenInHost(Item("App", "notes.txt"));            // shown, but no code
  OpenInHost(Item("VbLib", "Form1.vb/Form1.Designer.vb"));  // shown, never analysed
  OpenInHost(Item("Tools", "Cli.cs"));             // shown
  browser.Walk(2);
  EXPECT_EQ(browser.Trace(),
            (Lines{"Module1.vb:Module1", "Module1.vb:Main", "Cli.cs:Tools", "Cli.cs:Cli", "Cli.cs:Run"}));
  // The estimate: lines of the shown code documents (and of notes.txt), each less one.
  EXPECT_EQ(browser.Def("Main").progressTotal, 4 + 1 + 4 + 6);
  EXPECT_EQ(browser.Def("Main").progressLabel, "Estimating...");
  // Showing the hidden window makes it count.
  browser.calls.clear();
  hidden->Document()->ActiveWindow()->Activate();
  browser.Walk(2);
  EXPECT_EQ(browser.calls.front().document, "Model.cs");
}

TEST_F(WalkTest, CurrentProjectIsThatOfTheActiveDocumentElseTheSelectedOne) {
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(3);  // neither
  EXPECT_TRUE(browser.calls.empty());
  dte->SetSelectedProjects({P("Last"), P("App")});
  browser.Walk(3);  // the first selected project
  EXPECT_EQ(browser.Trace(), kLast);
  browser.calls.clear();
  OpenInHost(Item("VbLib", "Module1.vb"), true);
  browser.Walk(3);  // the active document's project wins
  EXPECT_EQ(browser.Trace(), kVbLib);
  // The estimate of the project walk covers its items.
  EXPECT_EQ(browser.Def("Form1").progressTotal, 5);
}

TEST_F(WalkTest, CurrentSolutionFolderIsTheSelectedFolderOrThatOfTheSelectedProject) {
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(6);  // nothing selected
  dte->SetSelectedProjects({P("App")});
  browser.Walk(6);  // a project outside any solution folder
  EXPECT_TRUE(browser.calls.empty());

  dte->SetSelectedProjects({P("Inner")});
  browser.Walk(6);
  EXPECT_EQ(browser.Trace(), kTools);

  browser.calls.clear();
  dte->SetSelectedProjects({P("VbLib")});
  browser.Walk(6);  // the folder holding VbLib: Libraries, with Inner inside it
  EXPECT_EQ(browser.Trace(), Concat({kTools, kVbLib}));

  browser.calls.clear();
  dte->SetSelectedProjects({P("Tools")});
  browser.Walk(6);
  EXPECT_EQ(browser.Trace(), kTools);
  EXPECT_EQ(browser.Def("Cli").progressTotal, 3);  // Cli.cs, Helper.cs, Sub

  // A hidden folder selected is not walked.
  browser.calls.clear();
  HideFolder("Inner");
  browser.Walk(6);
  EXPECT_TRUE(browser.calls.empty());
}

TEST_F(WalkTest, ScopeFiveAndUnknownScopesWalkNothing) {
  OpenInHost(Item("App", "Program.cs"), true, 8);
  dte->SetSelectedProjects({P("Libraries")});
  for (int scope : {5, 7, -1, 100}) browser.Walk(scope);
  EXPECT_TRUE(browser.calls.empty());
  EXPECT_FALSE(dte->StatusBar()->inProgress());
  EXPECT_TRUE(report->entries.empty());
}

}  // namespace
}  // namespace annotra::walktest
