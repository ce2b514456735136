#include "platform/automation/DocumentReadAhead.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/FileCodeModel.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/Solution.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/codemodel/CodeModelJson.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

// A project of `files` C# files F0.cs ... (each with a class and a method whose lines
// depend on a symbol of the project), and a text file that has no code model.
Ref<DTE> Solution(const testsupport::TempDir& dir, int files) {
  dir.Write("App/App.csproj",
            "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework>"
            "<DefineConstants>EXTRA</DefineConstants></PropertyGroup>"
            "<ItemGroup><None Include=\"notes.txt\" /></ItemGroup></Project>\n");
  dir.Write("App/notes.txt", "not code\n");
  for (int i = 0; i < files; ++i)
    dir.Write("App/F" + std::to_string(i) + ".cs",
              "namespace N {\n  /// <summary>C" + std::to_string(i) + "</summary>\n  public class C" +
                  std::to_string(i) + " {\n#if EXTRA\n    public void Extra() { }\n#endif\n    void M(int a) { }\n  }\n}\n");
  return OpenSolution(dir.path() / "App" / "App.csproj").dte;
}

std::vector<Ref<ProjectItem>> Files(const Ref<DTE>& dte) {
  return dte->Solution()->Projects()->Item(1)->ProjectItems()->items();
}

// The code model of `item`'s document as JSON lines.
std::string ModelOf(const Ref<ProjectItem>& item) {
  auto model = item->FileCodeModel();
  if (!model) return "(none)";
  std::ostringstream out;
  codemodel::WriteCodeModelJson(out, model->Declarations(), item->Name());
  return out.str();
}

// Waits (a few seconds at most) until `readAhead` holds `count` prepared documents.
bool WaitForReady(const DocumentReadAhead& readAhead, size_t count) {
  for (int i = 0; i < 500 && readAhead.ReadyCount() < count; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return readAhead.ReadyCount() == count;
}

TEST(DocumentReadAhead, DocumentsMadeFromWhatWasPreparedAreThoseReadOnDemand) {
  testsupport::TempDir dir;
  auto dte = Solution(dir, 3);
  std::vector<std::string> expected;
  for (auto& item : Files(dte)) expected.push_back(ModelOf(item));
  ASSERT_NE(expected.front().find("\"Extra\""), std::string::npos);  // parsed with the project's symbols

  auto fresh = Solution(dir, 3);
  auto readAhead = std::make_shared<DocumentReadAhead>();
  fresh->SetReadAhead(readAhead);
  auto items = Files(fresh);
  for (auto& item : items) readAhead->Plan(item);
  ASSERT_TRUE(WaitForReady(*readAhead, 3));  // the text file is not planned
  for (size_t i = 0; i < items.size(); ++i) {
    SCOPED_TRACE(items[i]->Name());
    EXPECT_EQ(ModelOf(items[i]), expected[i]);
  }
  EXPECT_EQ(readAhead->Hits(), 3u);
  EXPECT_EQ(readAhead->ReadyCount(), 0u);
  // The text reads the same through the document, line by line.
  auto text = items.front()->LoadDocument()->Object("TextDocument");
  EXPECT_EQ(text->EndPoint()->Line(), 10);
}

TEST(DocumentReadAhead, StaysAFewDocumentsAheadAndDropsWhatTheWalkPassesBy) {
  testsupport::TempDir dir;
  auto dte = Solution(dir, 8);
  DocumentReadAhead readAhead(2);
  auto items = Files(dte);  // F0 .. F7, then notes.txt
  for (auto& item : items) readAhead.Plan(item);
  ASSERT_TRUE(WaitForReady(readAhead, 2));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(readAhead.ReadyCount(), 2u);  // no more than asked for

  // The walk skips F0 and F1 and takes F2: F0 and F1 are dropped, F2 is not ready and
  // is left to the walk, and the worker goes on after it.
  EXPECT_EQ(readAhead.Take(items[2].get()), nullptr);
  EXPECT_EQ(readAhead.Take(items[0].get()), nullptr);
  ASSERT_TRUE(WaitForReady(readAhead, 2));
  auto f3 = readAhead.Take(items[3].get());
  ASSERT_NE(f3, nullptr);
  EXPECT_EQ(f3->path, items[3]->path());
  ASSERT_TRUE(f3->declarations);
  EXPECT_EQ(f3->declarations->TopLevel().size(), 1u);
  EXPECT_EQ(readAhead.Take(items[8].get()), nullptr);  // never planned: no code model
  EXPECT_EQ(readAhead.Hits(), 1u);
  EXPECT_EQ(readAhead.Discarded(), 2u);  // F0 and F1
}

TEST(DocumentReadAhead, AWalkInThePlannedOrderGetsEverythingTheWorkerPrepared) {
  testsupport::TempDir dir;
  auto dte = Solution(dir, 6);
  // A large first file, so that the walk most often asks for it while it is being read.
  std::string large = "namespace N {\n";
  for (int i = 0; i < 40000; ++i) large += "  class K" + std::to_string(i) + " { int f; }\n";
  dir.Write("App/F0.cs", large + "}\n");
  auto readAhead = std::make_shared<DocumentReadAhead>(2);
  dte->SetReadAhead(readAhead);
  auto items = Files(dte);
  for (auto& item : items) readAhead->Plan(item);
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  for (auto& item : items) {
    SCOPED_TRACE(item->Name());
    EXPECT_NO_THROW(item->LoadDocument());  // each item read by the worker or by the walk
  }
  EXPECT_EQ(items[0]->FileCodeModel()->CodeElements()->Item(1)->Members()->Count(), 40000);
  EXPECT_EQ(readAhead->Discarded(), 0u);
}

TEST(DocumentReadAhead, AFileThatCannotBeReadFailsAsItWouldWithoutIt) {
  testsupport::TempDir dir;
  auto dte = Solution(dir, 2);
  auto items = Files(dte);
  std::filesystem::remove(items[1]->path());
  int direct = testsupport::ErrorOf([&] { items[1]->LoadDocument(); });
  EXPECT_EQ(direct, 53);

  auto readAhead = std::make_shared<DocumentReadAhead>();
  dte->SetReadAhead(readAhead);
  for (auto& item : items) readAhead->Plan(item);
  ASSERT_TRUE(WaitForReady(*readAhead, 2));
  EXPECT_NE(items[0]->FileCodeModel(), nullptr);
  EXPECT_EQ(testsupport::ErrorOf([&] { items[1]->FileCodeModel(); }), 53);
  EXPECT_EQ(readAhead->Hits(), 2u);
}

TEST(DocumentReadAhead, StopsWithWorkPlannedAndPrepareKeepsErrors) {
  testsupport::TempDir dir;
  auto dte = Solution(dir, 20);
  {
    DocumentReadAhead readAhead(16);
    for (auto& item : Files(dte)) readAhead.Plan(item);
  }  // destroyed at once: the worker stops after the file in hand
  auto missing = PreparedDocument::Prepare(dir.path() / "missing.cs", "{B5E9BD34-6D3E-4B5D-925E-8A43B79820B4}", {});
  ASSERT_TRUE(missing->error);
  EXPECT_EQ(missing->error->number, 53);
  EXPECT_FALSE(missing->declarations);
}

}  // namespace
}  // namespace platform::automation
