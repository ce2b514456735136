#pragma once
// The fixture of the scope walk tests (CXmlAnalyzerBrowser_Walk*_test.cpp and
// CXmlAnalyzerBrowser_GetProjectItemPath_test.cpp): a browser whose two checks record
// each call, and a solution written to a temporary folder in both project styles and
// both solution formats and loaded like any other. For tests only.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "analysis/CStatus.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/CodeElement.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

// A named namespace, not an anonymous one: the tests of several files share WalkTest, and
// GoogleTest wants one fixture type per test suite.
namespace annotra::walktest {

using namespace platform::automation;
using platform::Ref;
using platform::automation::CodeElement;
using testsupport::ItemAt;
using testsupport::LegacyProjectFile;
using testsupport::OpenInHost;
using testsupport::ProjectNamed;
using testsupport::SdkProjectFile;
using testsupport::SlnText;
using testsupport::SlnxText;
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


inline constexpr const char* kProgram = R"(using System;

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

inline constexpr const char* kMainForm = R"(namespace App.Forms
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

inline constexpr const char* kModel = R"(namespace App
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

inline constexpr const char* kModelRules = R"(namespace App
{
    partial class Model
    {
        void Check() { }
    }
}
)";

inline constexpr const char* kForm1 = R"(Public Class Form1
    Private Sub Form1_Load(sender As Object, e As EventArgs) Handles MyBase.Load
    End Sub
End Class
)";

inline constexpr const char* kModule1 = R"(Module Module1
    Sub Main()
    End Sub
End Module
)";


inline void WriteProjects(const testsupport::TempDir& dir) {
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


inline std::filesystem::path WriteSln(const testsupport::TempDir& dir) {
  namespace type = testsupport::project_type;
  return dir.Write("Walk.sln", SlnText({{"App/App.csproj"},
                                        {"VbLib/VbLib.vbproj", "Libraries"},
                                        {"Tools/Tools.csproj", "Libraries/Inner", type::kCSharpSdk},
                                        {"Last/Last.vbproj", "", type::kVBSdk}}));
}

inline std::filesystem::path WriteSlnx(const testsupport::TempDir& dir) {
  return dir.Write("Walk.slnx", SlnxText({{"App/App.csproj"},
                                          {"VbLib/VbLib.vbproj", "Libraries"},
                                          {"Tools/Tools.csproj", "Libraries/Inner"},
                                          {"Last/Last.vbproj"}}));
}

class WalkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    MGlobals::ResetForTesting();
    MGlobals::ForgetXMLAnalyzerDbForTesting();
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
inline const Lines kApp = {
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
inline const Lines kVbLib = {"Form1.vb:Form1", "Form1.vb:Form1_Load", "Module1.vb:Module1",
                      "Module1.vb:Main"};
inline const Lines kTools = {"Cli.cs:Tools", "Cli.cs:Cli", "Cli.cs:Run", "Helper.cs:Tools.Sub",
                      "Helper.cs:Helper"};
inline const Lines kLast = {"Main.vb:Entry", "Main.vb:Start"};

inline Lines Concat(std::initializer_list<Lines> parts) {
  Lines out;
  for (const auto& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

}  // namespace annotra::walktest
