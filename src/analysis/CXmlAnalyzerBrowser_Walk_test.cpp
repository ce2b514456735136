// The scope walk of CXmlAnalyzerBrowser, observed through a browser whose two checks
// record each call. Solutions are written to a temporary folder in both project styles
// and both solution formats and loaded like any other.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "analysis/CEstimate.h"
#include "analysis/CStatus.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/Window.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/ProgressObject.h"
#include "platform/win32/Keyboard.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

using namespace platform::automation;
using platform::Ref;
using testsupport::ItemAt;
using testsupport::LegacyProjectFile;
using testsupport::OpenInHost;
using testsupport::ProjectNamed;
using testsupport::SdkProjectFile;
using Lines = std::vector<std::string>;

/// A browser whose checks record every call together with what the environment showed
/// at that moment, and which lets a test drive the walk's pieces.
class RecordingBrowser : public CXmlAnalyzerBrowser {
 public:
  struct Call {
    std::string check;     // "def" or "body"
    std::string document;  // file name of the text document walked
    std::string element;
    bool parentPublic;
    int openDocuments;  // documents open in the environment
    std::string progressLabel;
    int progressDone;
    int progressTotal;
  };

  void DefinitionAnalysis(const Ref<TextDocument>& text, const Ref<CodeElement>& element,
                          bool bParentPublic) override {
    Record("def", text, element, bParentPublic);
  }
  void BodyAnalysis(const Ref<TextDocument>& text, const Ref<CodeElement>& element) override {
    Record("body", text, element, false);
  }

  using CXmlAnalyzerBrowser::BeginWalk;
  using CXmlAnalyzerBrowser::EndWalk;
  bool Cancelled() const { return m_bCancelled; }
  const std::string& Language() const { return m_sLanguage; }
  CStatus& Status() { return *m_oStatus; }

  /// One whole walk of `scope`, as Find runs it.
  void Walk(int32_t scope) {
    BeginWalk();
    WalkScope(scope);
    EndWalk();
  }

  /// "Document:Element" for every definition check, "body Document:Element" for every
  /// body check, in call order.
  Lines Trace() const {
    Lines out;
    for (const auto& c : calls)
      out.push_back((c.check == "body" ? "body " : "") + c.document + ":" + c.element);
    return out;
  }
  /// The first call of the definition check of `element` ("Name", or "Document:Name");
  /// fails the test when there is none.
  const Call& Def(const std::string& element) const {
    for (const auto& c : calls)
      if (c.check == "def" && (c.element == element || c.document + ":" + c.element == element))
        return c;
    ADD_FAILURE() << "no definition check of " << element;
    static const Call none{};
    return none;
  }

  std::vector<Call> calls;

 private:
  void Record(const char* check, const Ref<TextDocument>& text, const Ref<CodeElement>& element,
              bool parentPublic) {
    auto bar = MGlobals::DTEObject->StatusBar();
    calls.push_back({check, text->Parent()->Name(), element->Name(), parentPublic,
                     MGlobals::DTEObject->Documents()->Count(), bar->progressLabel(),
                     bar->progressAmount(), bar->progressTotal()});
  }
};

// --- The solution every walk test starts from --------------------------------------------
//
//   App       legacy C#: Forms\MainForm.cs with MainForm.Designer.cs below it, Model.cs with
//             Model.Rules.cs below it, notes.txt, Program.cs, Properties\AssemblyInfo.cs
//   Libraries solution folder
//     VbLib   legacy VB: Form1.vb with Form1.Designer.vb below it, Module1.vb,
//             My Project\ASSEMBLYINFO.VB
//     Inner   solution folder
//       Tools SDK-style C#: Cli.cs, Sub\Helper.cs (bin\ and obj\ left out)
//   Last      SDK-style VB: Main.vb

constexpr const char* kProgram = R"(using System;

namespace App
{
    public class Program
    {
        public static void Main()
        {
            Console.WriteLine("hi");
        }

        private int count;
    }
}
)";

constexpr const char* kMainForm = R"(namespace App.Forms
{
    public partial class MainForm
    {
        public MainForm()
        {
            InitializeComponent();
        }

        private void InitializeComponent()
        {
        }

        public void initializeComponent()
        {
        }
    }
}
)";

constexpr const char* kModel = R"(namespace App
{
    public partial class Model
    {
        public int Id;

        private class Secret
        {
            public class Deep
            {
                public void Run() { }
            }
        }

        public class Open { }
    }
}
)";

constexpr const char* kModelRules = R"(namespace App
{
    partial class Model
    {
        void Check() { }
    }
}
)";

constexpr const char* kForm1 = R"(Public Class Form1
    Private Sub Form1_Load(sender As Object, e As EventArgs) Handles MyBase.Load
    End Sub
End Class
)";

constexpr const char* kModule1 = R"(Module Module1
    Sub Main()
    End Sub
End Module
)";

void WriteProjects(const testsupport::TempDir& dir) {
  dir.Write("App/App.csproj", LegacyProjectFile(R"(    <Compile Include="Program.cs" />
    <Compile Include="Forms\MainForm.cs" />
    <Compile Include="Forms\MainForm.Designer.cs"><DependentUpon>MainForm.cs</DependentUpon></Compile>
    <Compile Include="Model.cs" />
    <Compile Include="Model.Rules.cs"><DependentUpon>Model.cs</DependentUpon></Compile>
    <Compile Include="Properties\AssemblyInfo.cs" />
    <None Include="notes.txt" />)"));
  dir.Write("App/Program.cs", kProgram);
  dir.Write("App/Forms/MainForm.cs", kMainForm);
  dir.Write("App/Forms/MainForm.Designer.cs",
            "namespace App.Forms\n{\n    partial class MainForm\n    {\n        private void Designed() { }\n    }\n}\n");
  dir.Write("App/Model.cs", kModel);
  dir.Write("App/Model.Rules.cs", kModelRules);
  dir.Write("App/Properties/AssemblyInfo.cs",
            "using System.Reflection;\n[assembly: AssemblyTitle(\"App\")]\n");
  dir.Write("App/notes.txt", "Not code.\n");

  dir.Write("VbLib/VbLib.vbproj", LegacyProjectFile(R"(    <Compile Include="Form1.vb" />
    <Compile Include="Form1.Designer.vb"><DependentUpon>Form1.vb</DependentUpon></Compile>
    <Compile Include="Module1.vb" />
    <Compile Include="My Project\ASSEMBLYINFO.VB" />)"));
  dir.Write("VbLib/Form1.vb", kForm1);
  dir.Write("VbLib/Form1.Designer.vb",
            "Partial Class Form1\n    Private Sub InitializeComponent()\n    End Sub\nEnd Class\n");
  dir.Write("VbLib/Module1.vb", kModule1);
  dir.Write("VbLib/My Project/ASSEMBLYINFO.VB",
            "Imports System.Reflection\n<Assembly: AssemblyTitle(\"VbLib\")>\n");

  dir.Write("Tools/Tools.csproj", SdkProjectFile());
  dir.Write("Tools/Cli.cs", "namespace Tools;\n\npublic static class Cli\n{\n    public static int Run() => 0;\n}\n");
  dir.Write("Tools/Sub/Helper.cs", "namespace Tools.Sub;\n\ninternal class Helper { }\n");
  dir.Write("Tools/obj/Generated.cs", "class Generated { }\n");
  dir.Write("Tools/bin/Output.cs", "class Output { }\n");

  dir.Write("Last/Last.vbproj", SdkProjectFile());
  dir.Write("Last/Main.vb", "Public Module Entry\n    Public Sub Start()\n    End Sub\nEnd Module\n");
}

std::filesystem::path WriteSln(const testsupport::TempDir& dir) {
  return dir.Write("Walk.sln", R"(
Microsoft Visual Studio Solution File, Format Version 12.00
# Visual Studio Version 17
Project("{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}") = "App", "App\App.csproj", "{11111111-1111-1111-1111-111111111111}"
EndProject
Project("{2150E333-8FDC-42A3-9474-1A3956D46DE8}") = "Libraries", "Libraries", "{22222222-2222-2222-2222-222222222222}"
EndProject
Project("{F184B08F-C81C-45F6-A57F-5ABD9991F28F}") = "VbLib", "VbLib\VbLib.vbproj", "{33333333-3333-3333-3333-333333333333}"
EndProject
Project("{2150E333-8FDC-42A3-9474-1A3956D46DE8}") = "Inner", "Inner", "{44444444-4444-4444-4444-444444444444}"
EndProject
Project("{9A19103F-16F7-4668-BE54-9A1E7A4F7556}") = "Tools", "Tools\Tools.csproj", "{55555555-5555-5555-5555-555555555555}"
EndProject
Project("{778DAE3C-4631-46EA-AA77-85C1314464D9}") = "Last", "Last\Last.vbproj", "{66666666-6666-6666-6666-666666666666}"
EndProject
Global
	GlobalSection(NestedProjects) = preSolution
		{33333333-3333-3333-3333-333333333333} = {22222222-2222-2222-2222-222222222222}
		{44444444-4444-4444-4444-444444444444} = {22222222-2222-2222-2222-222222222222}
		{55555555-5555-5555-5555-555555555555} = {44444444-4444-4444-4444-444444444444}
	EndGlobalSection
EndGlobal
)");
}

std::filesystem::path WriteSlnx(const testsupport::TempDir& dir) {
  return dir.Write("Walk.slnx", R"(<Solution>
  <Project Path="App/App.csproj" />
  <Folder Name="/Libraries/">
    <Project Path="VbLib/VbLib.vbproj" />
  </Folder>
  <Folder Name="/Libraries/Inner/">
    <Project Path="Tools/Tools.csproj" />
  </Folder>
  <Project Path="Last/Last.vbproj" />
</Solution>
)");
}

/// Installs a keyboard for the life of the object and puts the previous one back after.
class ScopedKeyboard {
 public:
  explicit ScopedKeyboard(std::shared_ptr<platform::win32::KeyboardState> k)
      : m_previous(platform::win32::KeyboardState::Install(std::move(k))) {}
  ~ScopedKeyboard() { platform::win32::KeyboardState::Install(m_previous); }
  ScopedKeyboard(const ScopedKeyboard&) = delete;
  ScopedKeyboard& operator=(const ScopedKeyboard&) = delete;

 private:
  std::shared_ptr<platform::win32::KeyboardState> m_previous;
};

class WalkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    WriteProjects(dir);
    Load(WriteSln(dir));
  }
  void TearDown() override { MGlobals::ResetForTesting(); }

  void Load(const std::filesystem::path& solution) {
    auto loaded = OpenSolution(solution);
    ASSERT_TRUE(loaded.warnings.empty()) << loaded.warnings.front();
    dte = loaded.dte;
    MGlobals::DTEObject = dte;
  }
  Ref<Project> P(const std::string& name) {
    auto project = ProjectNamed(dte, name);
    EXPECT_TRUE(project) << name;
    return project;
  }
  Ref<ProjectItem> Item(const std::string& project, const std::string& path) {
    auto item = ItemAt(P(project), path);
    EXPECT_TRUE(item) << project << "/" << path;
    return item;
  }
  void HideFolder(const std::string& name) {
    platform::As<SolutionFolder>(P(name)->Object())->SetHidden(true);
  }

  testsupport::TempDir dir;
  Ref<DTE> dte;
  RecordingBrowser browser;
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
};

// The definition checks of each project of the solution, in walk order.
const Lines kApp = {
    // Forms: MainForm.Designer.cs (skipped) below MainForm.cs comes first, then the form.
    "MainForm.cs:App.Forms", "MainForm.cs:MainForm", "MainForm.cs:MainForm",
    "MainForm.cs:InitializeComponent", "MainForm.cs:initializeComponent",
    // Model.Rules.cs is nested under Model.cs and walked before it.
    "Model.Rules.cs:App", "Model.Rules.cs:Model", "Model.Rules.cs:Check",
    "Model.cs:App", "Model.cs:Model", "Model.cs:Id", "Model.cs:Secret", "Model.cs:Deep",
    "Model.cs:Run", "Model.cs:Open",
    // notes.txt is no code; Properties\AssemblyInfo.cs is never analysed.
    "Program.cs:System", "Program.cs:App", "Program.cs:Program", "Program.cs:Main",
    "Program.cs:count"};
const Lines kVbLib = {"Form1.vb:Form1", "Form1.vb:Form1_Load", "Module1.vb:Module1",
                      "Module1.vb:Main"};
const Lines kTools = {"Cli.cs:Tools", "Cli.cs:Cli", "Cli.cs:Run", "Helper.cs:Tools.Sub",
                      "Helper.cs:Helper"};
const Lines kLast = {"Main.vb:Entry", "Main.vb:Start"};

Lines Concat(std::initializer_list<Lines> parts) {
  Lines out;
  for (const auto& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

// --- Order ---------------------------------------------------------------------------------

class WalkOrderTest : public WalkTest, public ::testing::WithParamInterface<bool> {};

TEST_P(WalkOrderTest, TheWholeSolutionIsWalkedProjectByProjectDepthFirstAndPreOrder) {
  if (GetParam()) Load(WriteSlnx(dir));
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  // The projects of the solution in index order, those of solution folders where the
  // folder stands (a folder's items are in name order: Inner before VbLib); within a
  // project nested items before their parent; within a file every element before its
  // members, members in source order.
  EXPECT_EQ(browser.Trace(), Concat({kApp, kTools, kVbLib, kLast}));
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
  EXPECT_FALSE(browser.Cancelled());
}

INSTANTIATE_TEST_SUITE_P(SlnAndSlnx, WalkOrderTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "slnx" : "sln"; });

TEST_F(WalkTest, MethodsGetTheBodyCheckAfterTheirDefinitionExceptInitializeComponent) {
  MGlobals::g_AnalysisOptions.EnableBody = true;
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  Lines trace = browser.Trace();
  auto at = [&](const std::string& s) {
    return std::find(trace.begin(), trace.end(), s) - trace.begin();
  };
  // A constructor is a function and gets its body checked right after its definition.
  EXPECT_EQ(at("body MainForm.cs:MainForm"), at("MainForm.cs:InitializeComponent") - 1);
  // "InitializeComponent" (exact case) is passed over; other spellings are not.
  EXPECT_EQ(std::count(trace.begin(), trace.end(), "body MainForm.cs:InitializeComponent"), 0);
  EXPECT_EQ(at("body MainForm.cs:initializeComponent"), at("MainForm.cs:initializeComponent") + 1);
  // Fields, classes and namespaces get no body check.
  for (const char* none : {"body Program.cs:count", "body Program.cs:Program", "body Model.cs:App"})
    EXPECT_EQ(std::count(trace.begin(), trace.end(), none), 0) << none;
  EXPECT_EQ(at("body Program.cs:Main"), at("Program.cs:Main") + 1);
  EXPECT_EQ(at("body Model.cs:Run"), at("Model.cs:Run") + 1);

  browser.calls.clear();
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), kApp);
}

TEST_F(WalkTest, ParentPublicIsTheElementAndEveryEnclosingElementPublic) {
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  // Namespaces have no access and count as public.
  EXPECT_TRUE(browser.Def("App.Forms").parentPublic);
  EXPECT_TRUE(browser.Def("Model.cs:Model").parentPublic);
  // The same partial class without a modifier in Model.Rules.cs is internal.
  EXPECT_FALSE(browser.Def("Model.Rules.cs:Model").parentPublic);
  EXPECT_TRUE(browser.Def("Id").parentPublic);
  EXPECT_FALSE(browser.Def("Secret").parentPublic);
  // A public class nested in a private one, and its public method, are not public.
  EXPECT_FALSE(browser.Def("Deep").parentPublic);
  EXPECT_FALSE(browser.Def("Run").parentPublic);
  EXPECT_TRUE(browser.Def("Open").parentPublic);
  // Defaults: a class member without a modifier is private.
  EXPECT_FALSE(browser.Def("Check").parentPublic);
  EXPECT_FALSE(browser.Def("count").parentPublic);
  EXPECT_FALSE(browser.Def("InitializeComponent").parentPublic);
  EXPECT_TRUE(browser.Def("initializeComponent").parentPublic);
}

TEST_F(WalkTest, EachProjectItemStepsTheProgressOnceWithItsDisplayName) {
  dte->SetSelectedProjects({P("App")});
  browser.Walk(3);
  const std::string searching = "Searching (press <Ctrl+C> to cancel) in ";
  // The estimate counts the 9 items of App (folders and nested items included).
  EXPECT_EQ(browser.Def("App.Forms").progressTotal, 9);
  EXPECT_EQ(browser.Def("App.Forms").progressLabel, searching + "Forms/MainForm.cs");
  EXPECT_EQ(browser.Def("App.Forms").progressDone, 2);  // MainForm.Designer.cs, MainForm.cs
  EXPECT_EQ(browser.Def("Check").progressLabel, searching + "Model.Rules.cs");
  EXPECT_EQ(browser.Def("Check").progressDone, 4);  // ... Forms, Model.Rules.cs
  EXPECT_EQ(browser.Def("Program").progressLabel, searching + "Program.cs");
  EXPECT_EQ(browser.Def("Program").progressDone, 7);  // ... Model.cs, notes.txt, Program.cs
  // The display is gone once the walk is over.
  EXPECT_FALSE(dte->StatusBar()->inProgress());
}

TEST_F(WalkTest, AWalkThatIsNotCancelledStepsOnceForEveryEstimatedItem) {
  for (const char* name : {"App", "VbLib", "Tools", "Last", "Libraries", "Inner"}) {
    RecordingBrowser walk;
    walk.BeginWalk();
    CEstimate estimate;
    int32_t n = estimate.EstimateProjectItems(P(name)->ProjectItems());
    walk.Status().InitStatus(n, "Estimating...");
    walk.FindInProject(P(name));
    EXPECT_EQ(walk.Status().progress()->done(), n) << name;
    walk.Status().ShutdownStatus();
    walk.EndWalk();
  }
}

TEST_F(WalkTest, AnItemOfAnotherLanguageStepsWithSearchingAndIsNotAnalysed) {
  browser.BeginWalk();
  browser.Status().InitStatus(5, "Estimating...");
  browser.SearchItem(Item("App", "notes.txt"));
  EXPECT_EQ(dte->StatusBar()->progressLabel(), "Searching");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 1);
  browser.SearchItem(Item("App", "Properties"));  // a folder is no code either
  EXPECT_EQ(dte->StatusBar()->progressLabel(), "Searching");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 2);
  EXPECT_TRUE(browser.calls.empty());
  // A designer file is C#: it steps with its name, and is then passed over.
  browser.SearchItem(Item("App", "Forms/MainForm.cs/MainForm.Designer.cs"));
  EXPECT_EQ(dte->StatusBar()->progressLabel(),
            "Searching (press <Ctrl+C> to cancel) in Forms/MainForm.Designer.cs");
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 3);
  EXPECT_TRUE(browser.calls.empty());
  browser.SearchItem(nullptr);
  EXPECT_EQ(dte->StatusBar()->progressAmount(), 3);
  browser.Status().ShutdownStatus();
  browser.EndWalk();
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(WalkTest, ASingleSourceFileIsNamedInTheProgressByItsFileName) {
  Load(dir.Write("Loose/One.cs", "class One { }\n"));
  browser.Walk(4);
  EXPECT_EQ(browser.Def("One").progressLabel, "Searching (press <Ctrl+C> to cancel) in One.cs");
}

// --- Skip rules ----------------------------------------------------------------------------

TEST_F(WalkTest, DesignerAndAssemblyInformationFilesAreNeverAnalysed) {
  struct Case {
    const char* name;
    bool processed;
  } cases[] = {
      {"Form1.Designer.vb", false},   {"MainForm.Designer.cs", false},
      {"Settings.DESIGNER.cs", false}, {"a.designer.x.vb", false},
      {"AssemblyInfo.cs", false},      {"ASSEMBLYINFO.VB", false},
      {"assemblyinfo.vb", false},      {"MyAssemblyInfo.cs", true},
      {"AssemblyInfo.cs.bak", true},   {"Designer.cs", true},
      {"Form1.vb", true},
  };
  for (const auto& c : cases) {
    auto document = Document::FromText(c.name, "", platform::codemodel::vsCMLanguageCSharp);
    EXPECT_EQ(browser.CanProcessDocument(document), c.processed) << c.name;
  }
  EXPECT_FALSE(browser.CanProcessDocument(nullptr));

  // In every scope: the designer file as the active document, in a method.
  auto designer = OpenInHost(Item("App", "Forms/MainForm.cs/MainForm.Designer.cs"), true,
                             5 /* private void Designed() */);
  auto assemblyInfo = OpenInHost(Item("VbLib", "My Project/ASSEMBLYINFO.VB"));
  for (int scope : {0, 1, 2}) browser.Walk(scope);
  EXPECT_TRUE(browser.calls.empty());
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(WalkTest, ItemsListedInACollectionThatIsNotTheirsAreSkipped) {
  // Cli.cs of Tools shown a second time at the end of App's top level, and Helper.cs in
  // App's folder Forms.
  P("App")->ProjectItems()->AddForeign(Item("Tools", "Cli.cs"));
  Item("App", "Forms")->ProjectItems()->AddForeign(Item("Tools", "Sub/Helper.cs"));
  dte->SetSelectedProjects({P("App")});
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), kApp);
  CEstimate estimate;
  EXPECT_EQ(estimate.EstimateProjectItems(P("App")->ProjectItems()), 9);
}

TEST_F(WalkTest, HiddenSolutionFoldersAreSkippedWithEverythingInThem) {
  MGlobals::g_AnalysisOptions.EnableBody = false;
  EXPECT_TRUE(browser.CanProcessProject(P("Inner")));
  HideFolder("Inner");
  EXPECT_FALSE(browser.CanProcessProject(P("Inner")));
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), Concat({kApp, kVbLib, kLast}));

  browser.calls.clear();
  HideFolder("Libraries");
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), Concat({kApp, kLast}));
}

TEST_F(WalkTest, ProjectsTheHelperRejectsAreWalkedUnlessTheyAreHiddenSolutionFolders) {
  // The project test accepts C# and VB projects and web sites; solution folders and
  // projects of other languages only pass because they are no hidden solution folders.
  EXPECT_TRUE(browser.CanProcessProject(P("App")));
  EXPECT_TRUE(browser.CanProcessProject(P("Libraries")));
  EXPECT_FALSE(browser.CanProcessProject(nullptr));
  dir.Write("Fs/Fs.fsproj", SdkProjectFile());
  dir.Write("Fs/Lib.fs", "module Lib\n");
  dir.Write("Site/Default.aspx.cs", "public partial class Default { }\n");
  auto other = dir.Write("Other.sln", R"(
Microsoft Visual Studio Solution File, Format Version 12.00
Project("{F2A71F9B-5D33-465A-A702-920D77279786}") = "Fs", "Fs\Fs.fsproj", "{77777777-7777-7777-7777-777777777777}"
EndProject
Project("{E24C65DC-7377-472b-9ABA-BC803B73C61A}") = "Site", "Site\", "{88888888-8888-8888-8888-888888888888}"
EndProject
Project("{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}") = "App", "App\App.csproj", "{11111111-1111-1111-1111-111111111111}"
EndProject
)");
  auto loaded = OpenSolution(other);
  dte = loaded.dte;
  MGlobals::DTEObject = dte;
  EXPECT_TRUE(browser.CanProcessProject(P("Fs")));
  EXPECT_TRUE(browser.CanProcessProject(P("Site")));
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  Lines expected = {"Default.aspx.cs:Default"};
  expected.insert(expected.end(), kApp.begin(), kApp.end());
  EXPECT_EQ(browser.Trace(), expected);
  // A web site's item is named in the progress relative to the site's folder.
  EXPECT_EQ(browser.Def("Default").progressLabel,
            "Searching (press <Ctrl+C> to cancel) in Default.aspx.cs");
}

// --- Cancel --------------------------------------------------------------------------------

class CancelTest : public WalkTest {
 protected:
  void SetUp() override {
    WalkTest::SetUp();
    // A project of three files of one class each, followed by Last.
    dir.Write("Three/Three.csproj", SdkProjectFile());
    for (const char* name : {"A", "B", "C"})
      dir.Write(std::string("Three/") + name + ".cs", std::string("class ") + name + " { }\n");
    Load(dir.Write("Cancel.slnx", R"(<Solution>
  <Project Path="Three/Three.csproj" />
  <Project Path="Last/Last.vbproj" />
</Solution>)"));
    MGlobals::g_AnalysisOptions.EnableBody = false;
  }
  std::shared_ptr<platform::win32::ScriptedKeyboard> keyboard =
      std::make_shared<platform::win32::ScriptedKeyboard>();
  ScopedKeyboard scopedKeyboard{keyboard};
};

TEST_F(CancelTest, CtrlCAsksOncePerItemNoGoesOnYesStopsBeforeTheItem) {
  keyboard->HoldCtrlC(2);
  boxes->answers = {platform::forms::vbNo, platform::forms::vbYes};
  browser.Walk(4);
  // A was asked about and walked; the walk stopped before B, and Last was not entered.
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A"}));
  EXPECT_TRUE(browser.Cancelled());
  ASSERT_EQ(boxes->shown.size(), 2u);
  for (const auto& box : boxes->shown) {
    EXPECT_EQ(box.prompt, "Do you want to stop the current operation?");
    EXPECT_EQ(box.style, platform::forms::vbYesNo | platform::forms::vbDefaultButton2 |
                             platform::forms::vbExclamation);
    EXPECT_EQ(box.title, "Scribane");
  }
  EXPECT_FALSE(dte->StatusBar()->inProgress());
}

TEST_F(WalkTest, ACancelInsideANestedSubProjectEndsTheWholeSolutionWalk) {
  auto keyboard = std::make_shared<platform::win32::ScriptedKeyboard>();
  ScopedKeyboard scoped(keyboard);
  keyboard->HoldCtrlC(100);
  // The nine items of App, then Cli.cs of Tools (in Libraries\Inner): No; Helper.cs: Yes.
  boxes->answers.assign(10, platform::forms::vbNo);
  boxes->answers.push_back(platform::forms::vbYes);
  MGlobals::g_AnalysisOptions.EnableBody = false;
  browser.Walk(4);
  Lines expected = kApp;
  expected.insert(expected.end(), kTools.begin(), kTools.begin() + 3);  // Cli.cs
  EXPECT_EQ(browser.Trace(), expected);
  EXPECT_EQ(boxes->shown.size(), 11u);
  EXPECT_TRUE(browser.Cancelled());
}

TEST_F(CancelTest, AnsweringNoEveryTimeWalksEverything) {
  keyboard->HoldCtrlC(100);
  boxes->answers = {};  // the default button: No
  browser.Walk(4);
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A", "B.cs:B", "C.cs:C", "Main.vb:Entry", "Main.vb:Start"}));
  EXPECT_FALSE(browser.Cancelled());
  EXPECT_EQ(boxes->shown.size(), 4u);  // one per item: A, B, C and Main.vb
}

TEST_F(CancelTest, OnlyProjectWalksCanBeCancelled) {
  auto a = OpenInHost(ItemAt(P("Three"), "A.cs"), true);
  keyboard->HoldCtrlC(100);
  boxes->answers = {platform::forms::vbYes, platform::forms::vbYes, platform::forms::vbYes};
  for (int scope : {0, 1, 2}) browser.Walk(scope);
  EXPECT_EQ(browser.Trace(), (Lines{"A.cs:A", "A.cs:A"}));  // document and open documents
  EXPECT_TRUE(boxes->shown.empty());
  // Without the keys held a project walk asks nothing.
  keyboard->HoldCtrlC(0);
  browser.calls.clear();
  browser.Walk(4);
  EXPECT_EQ(browser.calls.size(), 5u);
  EXPECT_TRUE(boxes->shown.empty());
}

// --- Documents the walk opens --------------------------------------------------------------

class OpenDocumentsTest : public WalkTest {
 protected:
  void SetUp() override {
    WalkTest::SetUp();
    // Files without code elements (a1, c1, e1) have to be opened to be walked.
    dir.Write("Docs/Docs.csproj", LegacyProjectFile(R"(    <Compile Include="a1.cs" />
    <Compile Include="b1.cs" />
    <Compile Include="c1.cs" />
    <Compile Include="d1.cs" />
    <Compile Include="e1.cs" />
    <Compile Include="f1.cs" />)"));
    for (const char* name : {"a1", "c1", "e1"})
      dir.Write(std::string("Docs/") + name + ".cs", "// nothing declared here\n");
    for (const char* name : {"b1", "d1", "f1"})
      dir.Write(std::string("Docs/") + name + ".cs", std::string("class ") + name + " { }\n");
    Load(dir.Write("Docs.sln", R"(
Microsoft Visual Studio Solution File, Format Version 12.00
Project("{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}") = "Docs", "Docs\Docs.csproj", "{99999999-9999-9999-9999-999999999999}"
EndProject
)"));
    dte->SetSelectedProjects({P("Docs")});
  }
  /// The environment's open documents at the definition checks of b1, d1 and f1.
  std::vector<int> OpenAtEachClass() {
    std::vector<int> out;
    for (const auto& c : browser.calls) out.push_back(c.openDocuments);
    return out;
  }
};

TEST_F(OpenDocumentsTest, TheWalkKeepsWhatItOpensUpToTheLimitAndClosesEverythingAtTheEnd) {
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 10;
  browser.Walk(3);
  EXPECT_EQ(browser.Trace(), (Lines{"b1.cs:b1", "d1.cs:d1", "f1.cs:f1"}));
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
}

TEST_F(OpenDocumentsTest, WithOneAllowedEachOpenedDocumentIsClosedRightAfterItsItem) {
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 1;
  browser.Walk(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(OpenDocumentsTest, OnceTheLimitIsReachedTheListIsClosedAfterEveryItem) {
  // The list of opened documents is never emptied, so after a1 and c1 reached 2 even
  // the one document e1 opens is closed right after it.
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 2;
  browser.BeginWalk();
  browser.WalkScope(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(dte->Documents()->Count(), 0);
  EXPECT_EQ(MGlobals::OpenedDocuments->size(), 3u);
  browser.EndWalk();
  EXPECT_EQ(MGlobals::OpenedDocuments, nullptr);
}

TEST_F(OpenDocumentsTest, DocumentsTheHostOpenedStayOpen) {
  auto c1 = OpenInHost(ItemAt(P("Docs"), "c1.cs"));
  MGlobals::g_AnalysisOptions.OpenDocAllowed = 1;
  browser.Walk(3);
  EXPECT_EQ(OpenAtEachClass(), (std::vector<int>{1, 1, 1}));
  ASSERT_EQ(dte->Documents()->Count(), 1);
  EXPECT_EQ(dte->Documents()->Item(1), c1);
}

// --- Scopes --------------------------------------------------------------------------------

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

// --- The path of an item -------------------------------------------------------------------

TEST_F(WalkTest, ProjectItemPathNamesTheFoldersAndParentItemsAboveTheItem) {
  dir.Write("Tools/Deep/Er/Leaf.cs", "class Leaf { }\n");
  auto path = [&](const std::string& project, const std::string& item) {
    auto i = ItemAt(P(project), item);
    if (!i) return std::string("(no item)");
    return browser.GetProjectItemPath(i->LoadDocument()->Object("TextDocument"));
  };
  EXPECT_EQ(path("App", "Program.cs"), "");
  EXPECT_EQ(path("App", "Forms/MainForm.cs"), "Forms");
  EXPECT_EQ(path("App", "Forms/MainForm.cs/MainForm.Designer.cs"), "Forms\\MainForm.cs");
  EXPECT_EQ(path("App", "Model.cs/Model.Rules.cs"), "Model.cs");
  EXPECT_EQ(path("VbLib", "My Project/ASSEMBLYINFO.VB"), "My Project");
  EXPECT_EQ(path("Tools", "Sub/Helper.cs"), "Sub");
  Load(WriteSln(dir));  // the SDK project globs the new file
  EXPECT_EQ(path("Tools", "Deep/Er/Leaf.cs"), "Deep\\Er");
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;

  // A document outside any project has no path; the failure is reported.
  auto loose = Document::FromText("Loose.cs", "class Loose { }\n", platform::codemodel::vsCMLanguageCSharp);
  EXPECT_EQ(browser.GetProjectItemPath(loose->Object("TextDocument")), "");
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.CXmlAnalyzerBrowser.GetProjectItemPath");
  EXPECT_EQ(report->entries[0].line, 1);
}

}  // namespace
}  // namespace annotra
