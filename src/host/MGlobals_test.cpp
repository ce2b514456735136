// The shared routines of MGlobals on solutions written to a temporary folder: documents,
// project and item lookups, item languages and visibility.

#include "platform/forms/Font.h"
#include "platform/win32/WindowStyles.h"
#include "host/MGlobals.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/automation/Window.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/forms/MessageBox.h"
#include "platform/suite/ErrorReport.h"
#include "testsupport/SolutionFixture.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

using namespace platform::automation;
namespace cm = platform::codemodel;
using platform::Ref;
using testsupport::ItemAt;
using testsupport::LegacyProjectFile;
using testsupport::OpenInHost;
using testsupport::ProjectNamed;
using testsupport::SlnText;
using testsupport::SlnxText;

class MGlobalsTest : public ::testing::Test {
 protected:
  void SetUp() override { MGlobals::ResetForTesting(); }
  void TearDown() override { MGlobals::ResetForTesting(); }

  Ref<DTE> Load(const std::filesystem::path& path) {
    auto loaded = OpenSolution(path);
    EXPECT_TRUE(loaded.warnings.empty()) << loaded.warnings.front();
    MGlobals::DTEObject = loaded.dte;
    return loaded.dte;
  }

  // A legacy C# project "Items" with the same file name at three depths, a comment-only
  // file, a file nested under another, and a text file; loaded as the environment's.
  Ref<DTE> LoadItemsProject() {
    auto csproj = dir.Write("Items/Items.csproj", LegacyProjectFile(R"(    <Compile Include="Doc.cs" />
    <Compile Include="A\Doc.cs" />
    <Compile Include="A\B\Doc.cs" />
    <Compile Include="A\B\Form.cs" />
    <Compile Include="A\B\Form.Designer.cs"><DependentUpon>Form.cs</DependentUpon></Compile>
    <Compile Include="Empty.cs" />
    <None Include="readme.txt" />)"));
    for (const char* f : {"Doc.cs", "A/Doc.cs", "A/B/Doc.cs", "A/B/Form.cs", "A/B/Form.Designer.cs"})
      dir.Write(std::string("Items/") + f, "class C { }\n");
    dir.Write("Items/Empty.cs", "// nothing\n");
    dir.Write("Items/readme.txt", "read me\n");
    return Load(csproj);
  }

  testsupport::TempDir dir;
  std::shared_ptr<platform::suite::RecordingErrorReport> report =
      std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport{report};
  std::shared_ptr<platform::forms::ScriptedMessageBoxes> boxes =
      std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes{boxes};
};

// --- Documents -----------------------------------------------------------------------------

class DocumentsTest : public MGlobalsTest {
 protected:
  void SetUp() override {
    MGlobalsTest::SetUp();
    dte = LoadItemsProject();
    project = ProjectNamed(dte, "Items");
    MGlobals::OpenedDocuments = std::make_shared<std::vector<Ref<Document>>>();
  }
  Ref<DTE> dte;
  Ref<Project> project;
};

TEST_F(DocumentsTest, GetDocumentRemembersOnlyTheDocumentsItHadToOpen) {
  auto shown = OpenInHost(ItemAt(project, "Doc.cs"));
  EXPECT_EQ(MGlobals::GetDocument(ItemAt(project, "Doc.cs")), shown);
  EXPECT_TRUE(MGlobals::OpenedDocuments->empty());

  auto item = ItemAt(project, "A/Doc.cs");
  auto opened = MGlobals::GetDocument(item);
  ASSERT_TRUE(opened);
  EXPECT_EQ(opened->FullName(), (dir.path() / "Items/A/Doc.cs").string());
  ASSERT_EQ(MGlobals::OpenedDocuments->size(), 1u);
  EXPECT_EQ(MGlobals::OpenedDocuments->front(), opened);
  EXPECT_EQ(dte->Documents()->Count(), 2);
  // Opened in a hidden code window: it does not show code text.
  EXPECT_FALSE(MGlobals::HasDocumentTextCodeVisible(opened));
  // Asked again, the item is open now: nothing more is remembered.
  EXPECT_EQ(MGlobals::GetDocument(item), opened);
  EXPECT_EQ(MGlobals::OpenedDocuments->size(), 1u);

  // Outside an analysis there is no list; the document is opened all the same.
  MGlobals::OpenedDocuments.reset();
  EXPECT_TRUE(MGlobals::GetDocument(ItemAt(project, "Empty.cs")));
  EXPECT_EQ(dte->Documents()->Count(), 3);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(DocumentsTest, ADocumentThatCannotBeOpenedGivesNoneAndIsReported) {
  std::filesystem::remove(dir.path() / "Items/A/B/Doc.cs");
  EXPECT_EQ(MGlobals::GetDocument(ItemAt(project, "A/B/Doc.cs")), nullptr);
  EXPECT_TRUE(MGlobals::OpenedDocuments->empty());
  EXPECT_EQ(dte->Documents()->Count(), 0);
  ASSERT_EQ(report->entries.size(), 1u);
  EXPECT_EQ(report->entries[0].source, "Quillmark.MGlobals.GetDocument");
  EXPECT_EQ(report->entries[0].line, 3);
  EXPECT_EQ(report->entries[0].message.rfind("(53) '", 0), 0u) << report->entries[0].message;

  // No item at all: reported the same way, nothing remembered.
  EXPECT_EQ(MGlobals::GetDocument(nullptr), nullptr);
  EXPECT_TRUE(MGlobals::OpenedDocuments->empty());
}

TEST_F(DocumentsTest, CloseOpenedDocumentsClosesInOrderAndKeepsTheList) {
  auto host = OpenInHost(ItemAt(project, "Doc.cs"));
  auto first = MGlobals::GetDocument(ItemAt(project, "A/Doc.cs"));
  auto second = MGlobals::GetDocument(ItemAt(project, "Empty.cs"));
  ASSERT_EQ(dte->Documents()->Count(), 3);
  second->Close();  // closed by someone else meanwhile: skipped without a word
  MGlobals::CloseOpenedDocuments();
  ASSERT_EQ(dte->Documents()->Count(), 1);
  EXPECT_EQ(dte->Documents()->Item(1), host);
  EXPECT_EQ(MGlobals::OpenedDocuments->size(), 2u);
  // Closing them again fails silently.
  MGlobals::CloseOpenedDocuments();
  EXPECT_EQ(dte->Documents()->Count(), 1);
  MGlobals::OpenedDocuments.reset();
  MGlobals::CloseOpenedDocuments();
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(DocumentsTest, HasDocumentTextCodeVisibleReadsTheFirstTextWindow) {
  auto shown = OpenInHost(ItemAt(project, "Doc.cs"));
  EXPECT_TRUE(MGlobals::HasDocumentTextCodeVisible(shown));
  auto item = ItemAt(project, "A/Doc.cs");
  auto window = item->Open(vsViewKindCode);
  EXPECT_FALSE(MGlobals::HasDocumentTextCodeVisible(item->Document()));
  window->Activate();
  EXPECT_TRUE(MGlobals::HasDocumentTextCodeVisible(item->Document()));
  // A second, visible window does not count: the first text window decides.
  auto hidden = ItemAt(project, "A/B/Doc.cs");
  hidden->Open(vsViewKindCode);
  hidden->Document()->OpenWindow(true);
  EXPECT_FALSE(MGlobals::HasDocumentTextCodeVisible(hidden->Document()));
  // A document without any window: loaded, never opened.
  EXPECT_FALSE(MGlobals::HasDocumentTextCodeVisible(ItemAt(project, "Empty.cs")->LoadDocument()));
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

// --- Projects and items --------------------------------------------------------------------

TEST_F(MGlobalsTest, IsProjectOpenShowsItsMessageOnceWhenTheSolutionHasNoProject) {
  auto empty = dir.Write("Empty.slnx", SlnxText({}));
  Load(empty);
  EXPECT_FALSE(MGlobals::IsProjectOpen());
  ASSERT_EQ(boxes->shown.size(), 1u);
  EXPECT_EQ(boxes->shown[0].prompt, "No project currently open - cannot use this tool.");
  EXPECT_EQ(boxes->shown[0].style, platform::forms::vbExclamation | platform::forms::vbOKOnly);
  EXPECT_EQ(boxes->shown[0].title, "Scribane");

  MGlobals::DTEObject = nullptr;  // no environment at all: the same
  EXPECT_FALSE(MGlobals::IsProjectOpen());
  EXPECT_EQ(boxes->shown.size(), 2u);

  LoadItemsProject();
  EXPECT_TRUE(MGlobals::IsProjectOpen());
  EXPECT_EQ(boxes->shown.size(), 2u);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(MGlobalsTest, SearchProjectFindsTheFirstProjectOfThatNameDepthFirst) {
  // Two projects named Core: one two folders deep under Apps, one at the top level after
  // it; Apps also holds a folder named Core that sorts after Deep.
  dir.Write("x/Core.csproj", LegacyProjectFile(""));
  dir.Write("y/Core.vbproj", LegacyProjectFile(""));
  dir.Write("z/Other.csproj", LegacyProjectFile(""));
  Load(dir.Write("Search.slnx", SlnxText({{"z/Other.csproj", "Apps/Deep"},
                                           {"x/Core.csproj", "Apps/Deep/Deeper"},
                                           {"y/Core.vbproj"}})));
  auto core = MGlobals::SearchProject("Core");
  ASSERT_TRUE(core);
  EXPECT_EQ(core->FullName(), (dir.path() / "x/Core.csproj").string());
  // Solution folders are projects too.
  ASSERT_TRUE(MGlobals::SearchProject("Deeper"));
  EXPECT_EQ(MGlobals::SearchProject("Deeper")->Kind(), kProjectKindSolutionFolder);
  EXPECT_EQ(MGlobals::SearchProject("Other")->FullName(), (dir.path() / "z/Other.csproj").string());
  // Names compare exactly.
  EXPECT_EQ(MGlobals::SearchProject("core"), nullptr);
  EXPECT_EQ(MGlobals::SearchProject(""), nullptr);
  MGlobals::DTEObject = nullptr;
  EXPECT_EQ(MGlobals::SearchProject("Core"), nullptr);
  EXPECT_TRUE(report->entries.empty()) << report->entries.front().message;
}

TEST_F(MGlobalsTest, SearchProjectSeesProjectsOfAnSlnNestedInFolders) {
  for (const char* p : {"one/Lib.csproj", "two/Lib.csproj", "three/Top.csproj"})
    dir.Write(p, LegacyProjectFile(""));
  // Top, then the folder First holding one Lib, then the folder Second holding another.
  Load(dir.Write("Search.sln", SlnText({{"three/Top.csproj"},
                                        {"one/Lib.csproj", "First"},
                                        {"two/Lib.csproj", "Second"}})));
  auto lib = MGlobals::SearchProject("Lib");
  ASSERT_TRUE(lib);
  EXPECT_EQ(lib->FullName(), (dir.path() / "one/Lib.csproj").string());
  EXPECT_EQ(MGlobals::SearchProject("Top")->Name(), "Top");
}

TEST_F(MGlobalsTest, SearchProjectIsNotHiddenByASolutionFolderOfTheSameName) {
  // The folder test/Benchmarks holds the project Benchmarks, as in many real solutions;
  // the folder Tools holds only a project of another name.
  dir.Write("test/Benchmarks/Benchmarks.csproj", LegacyProjectFile(""));
  dir.Write("src/Core/Core.csproj", LegacyProjectFile(""));
  for (auto* text : {"sln", "slnx"}) {
    std::vector<testsupport::SolutionProject> projects = {{"src/Core/Core.csproj", "Tools"},
                                                          {"test/Benchmarks/Benchmarks.csproj", "test/Benchmarks"}};
    Load(dir.Write(std::string("Same.") + text, std::string(text) == "sln" ? SlnText(projects) : SlnxText(projects)));
    auto benchmarks = MGlobals::SearchProject("Benchmarks");
    ASSERT_TRUE(benchmarks) << text;
    EXPECT_FALSE(MGlobals::IsSolutionFolder(benchmarks)) << text;
    EXPECT_EQ(benchmarks->FullName(), (dir.path() / "test/Benchmarks/Benchmarks.csproj").string()) << text;
    // A folder is still found when no project has its name.
    ASSERT_TRUE(MGlobals::SearchProject("Tools")) << text;
    EXPECT_TRUE(MGlobals::IsSolutionFolder(MGlobals::SearchProject("Tools"))) << text;
  }
  // A one-project solution whose folder is named like its project.
  Load(dir.Write("One.sln", SlnText({{"test/Benchmarks/Benchmarks.csproj", "Benchmarks"}})));
  ASSERT_TRUE(MGlobals::SearchProject("Benchmarks"));
  EXPECT_FALSE(MGlobals::IsSolutionFolder(MGlobals::SearchProject("Benchmarks")));
}

TEST_F(MGlobalsTest, FindProjectItemFollowsTheFolderPathStepByStep) {
  auto project = ProjectNamed(LoadItemsProject(), "Items");
  auto fileOf = [](const Ref<ProjectItem>& item) {
    return item ? item->FileNames(1) : std::string("(none)");
  };
  const auto root = dir.path() / "Items";
  EXPECT_EQ(fileOf(MGlobals::FindProjectItem(project, "Doc.cs", "")), (root / "Doc.cs").string());
  EXPECT_EQ(fileOf(MGlobals::FindProjectItem(project, "Doc.cs", "A")), (root / "A/Doc.cs").string());
  EXPECT_EQ(fileOf(MGlobals::FindProjectItem(project, "Doc.cs", "A\\B")), (root / "A/B/Doc.cs").string());
  // Items nested under a file are reached through it.
  EXPECT_EQ(fileOf(MGlobals::FindProjectItem(project, "Form.Designer.cs", "A\\B\\Form.cs")),
            (root / "A/B/Form.Designer.cs").string());
  // Collections look names up in any letter case.
  EXPECT_EQ(fileOf(MGlobals::FindProjectItem(project, "doc.CS", "a\\b")), (root / "A/B/Doc.cs").string());
  // A missing step, a missing name, a path with an empty step: none.
  EXPECT_EQ(MGlobals::FindProjectItem(project, "Doc.cs", "A\\C"), nullptr);
  EXPECT_EQ(MGlobals::FindProjectItem(project, "Doc.cs", "B"), nullptr);
  EXPECT_EQ(MGlobals::FindProjectItem(project, "Form.cs", "A"), nullptr);
  EXPECT_EQ(MGlobals::FindProjectItem(project, "Doc.cs", "A\\"), nullptr);
  EXPECT_EQ(MGlobals::FindProjectItem(project, "Missing.cs", ""), nullptr);
  EXPECT_EQ(MGlobals::FindProjectItem(nullptr, "Doc.cs", "A"), nullptr);
  EXPECT_TRUE(report->entries.empty());
}

// --- Languages -----------------------------------------------------------------------------

TEST_F(MGlobalsTest, GetItemLanguageComesFromTheCodeModel) {
  auto project = ProjectNamed(LoadItemsProject(), "Items");
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "A/Doc.cs")), cm::vsCMLanguageCSharp);
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "Empty.cs")), cm::vsCMLanguageCSharp);
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "readme.txt")), "");
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "A")), "");
  EXPECT_EQ(MGlobals::GetItemLanguage(nullptr), "");
  // An item of a project whose file is gone has no code model, and no language.
  std::filesystem::remove(dir.path() / "Items/Doc.cs");
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "Doc.cs")), "");
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(MGlobalsTest, GetItemLanguageOfWebSiteItemsWithoutACodeModelGoesByTheName) {
  // A folder without solution or project files opens as a web site.
  for (const char* f : {"Page.aspx.cs", "x.vb", "a.cs", "App_Code/Util.VB"})
    dir.Write(std::string("site/") + f, "' code\n");
  auto dte = Load(dir.path() / "site");
  auto site = dte->Solution()->Projects()->Item(1);
  ASSERT_EQ(site->Kind(), kProjectKindWebSite);
  auto language = [&](const std::string& path) { return MGlobals::GetItemLanguage(ItemAt(site, path)); };
  EXPECT_EQ(language("Page.aspx.cs"), cm::vsCMLanguageCSharp);
  EXPECT_EQ(language("x.vb"), cm::vsCMLanguageVB);

  // With the files gone there is no code model: the name decides, by its last three
  // characters in lower case, when it is longer than three.
  std::filesystem::remove_all(dir.path() / "site");
  EXPECT_EQ(language("Page.aspx.cs"), cm::vsCMLanguageCSharp);
  EXPECT_EQ(language("x.vb"), cm::vsCMLanguageVB);
  EXPECT_EQ(language("a.cs"), cm::vsCMLanguageCSharp);
  EXPECT_EQ(language("App_Code/Util.VB"), cm::vsCMLanguageVB);
  EXPECT_EQ(language("App_Code"), "");  // a folder
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(MGlobalsTest, AWebSiteItemNamedOnlyDotCsHasNoLanguageByName) {
  // The web-site reader leaves dot files out, so the site gets its items named ".cs"
  // and "b.cs" (files that do not exist) the way the reader builds items.
  dir.Write("site/Default.aspx.cs", "class Default { }\n");
  auto site = Load(dir.path() / "site")->Solution()->Projects()->Item(1);
  for (const char* name : {".cs", "b.cs"}) {
    auto item = std::make_shared<ProjectItem>(name, vsProjectItemKindPhysicalFile, dir.path() / "gone" / name);
    item->SetWebItem(true);
    site->ProjectItems()->Add(item);
  }
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(site, ".cs")), "");
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(site, "b.cs")), cm::vsCMLanguageCSharp);
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(MGlobalsTest, ItemsOfOrdinaryProjectsNeverGoByTheirName) {
  auto project = ProjectNamed(LoadItemsProject(), "Items");
  std::filesystem::remove_all(dir.path() / "Items/A");
  EXPECT_EQ(MGlobals::GetItemLanguage(ItemAt(project, "A/B/Form.cs")), "");
}

// --- Visibility ----------------------------------------------------------------------------

constexpr const char* kAccess = R"(namespace N
{
    public class Outer
    {
        public void Pub() { }
        protected void Prot() { }
        protected internal void ProtInt() { }
        internal void Int() { }
        private void Priv() { }
        private protected void PrivProt() { }
        void Default() { }

        private class Secret
        {
            public class Deep
            {
                public void Run() { }
            }
        }

        protected class Shielded
        {
            public void Run() { }
        }
    }

    class Hidden
    {
        public void Run() { }
    }
}
)";

class VisibilityTest : public MGlobalsTest {
 protected:
  void SetUp() override {
    MGlobalsTest::SetUp();
    model_ = Document::FromText("Access.cs", kAccess, cm::vsCMLanguageCSharp)->CodeModel();
  }
  // The element at `path` of names ("N/Outer/Pub").
  Ref<CodeElement> At(const std::string& path) {
    Ref<CodeElements> elements = model_->CodeElements();
    Ref<CodeElement> found;
    size_t begin = 0;
    while (begin <= path.size()) {
      size_t end = path.find('/', begin);
      if (end == std::string::npos) end = path.size();
      found = nullptr;
      for (int i = 1; i <= elements->Count(); ++i)
        if (elements->Item(i)->Name() == path.substr(begin, end - begin)) found = elements->Item(i);
      if (!found) ADD_FAILURE() << "no element " << path;
      if (!found || end == path.size()) break;
      elements = found->Members();
      begin = end + 1;
    }
    return found;
  }
  Ref<FileCodeModel> model_;
};

TEST_F(VisibilityTest, PublicAndProtectedCountAsPublic) {
  struct Case {
    const char* path;
    int access;
    bool isPublic;
  } cases[] = {
      {"N/Outer/Pub", 1, true},     {"N/Outer/Prot", 8, true},      {"N/Outer/ProtInt", 12, true},
      {"N/Outer/Int", 4, false},    {"N/Outer/Priv", 2, false},     {"N/Outer/PrivProt", 64, false},
      {"N/Outer/Default", 2, false}, {"N/Hidden", 4, false},
  };
  for (const auto& c : cases) {
    auto element = At(c.path);
    ASSERT_TRUE(element);
    EXPECT_EQ(element->Access(), c.access) << c.path;
    EXPECT_EQ(MGlobals::IsPublic(element), c.isPublic) << c.path;
  }
  // A namespace has no Access: it counts as public, and so does no element at all.
  EXPECT_TRUE(MGlobals::IsPublic(At("N")));
  EXPECT_TRUE(MGlobals::IsPublic(nullptr));
  EXPECT_TRUE(report->entries.empty());
}

TEST_F(VisibilityTest, PublicInScopeNeedsEveryEnclosingElementPublic) {
  EXPECT_TRUE(MGlobals::IsPublicInScope(At("N")));
  EXPECT_TRUE(MGlobals::IsPublicInScope(At("N/Outer")));
  EXPECT_TRUE(MGlobals::IsPublicInScope(At("N/Outer/Prot")));
  EXPECT_TRUE(MGlobals::IsPublicInScope(At("N/Outer/Shielded/Run")));
  EXPECT_FALSE(MGlobals::IsPublicInScope(At("N/Outer/Priv")));
  EXPECT_FALSE(MGlobals::IsPublicInScope(At("N/Outer/Secret")));
  // A public class in a private one, and its public method.
  EXPECT_FALSE(MGlobals::IsPublicInScope(At("N/Outer/Secret/Deep")));
  EXPECT_FALSE(MGlobals::IsPublicInScope(At("N/Outer/Secret/Deep/Run")));
  EXPECT_FALSE(MGlobals::IsPublicInScope(At("N/Hidden/Run")));
  EXPECT_TRUE(report->entries.empty());
}

}  // namespace
}  // namespace annotra

// The two window helpers of the shared module.

TEST(MGlobalsWindowHelpers, NumericOnlyAddsOneBitToAWindowWithAStyle) {
  namespace w = platform::win32;
  intptr_t edit = w::WindowStyles::Register(0x50010080);
  annotra::MGlobals::SetNumericOnly(edit);
  EXPECT_EQ(w::GetWindowLongA(edit, w::GWL_STYLE), 0x50010080 | 0x2000);
  intptr_t bare = w::WindowStyles::Register(0);
  annotra::MGlobals::SetNumericOnly(bare);  // a style of 0 is left alone
  EXPECT_EQ(w::GetWindowLongA(bare, w::GWL_STYLE), 0);
  annotra::MGlobals::SetNumericOnly(12345);  // no such window: nothing happens
  w::WindowStyles::Unregister(edit);
  w::WindowStyles::Unregister(bare);
}

TEST(MGlobalsWindowHelpers, FontAttributesAreSetTogether) {
  platform::forms::Font font;
  annotra::MGlobals::SetFontAttributes(font, "Consolas", 10, 204, true, false);
  EXPECT_EQ(font.Name, "Consolas");
  EXPECT_EQ(font.Size, 10);
  EXPECT_EQ(font.Charset, 204);
  EXPECT_TRUE(font.Bold);
  EXPECT_FALSE(font.Italic);
}
