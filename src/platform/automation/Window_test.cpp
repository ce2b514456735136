#include "platform/automation/Window.h"

#include <gtest/gtest.h>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/ClassRegistry.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/HostedDocument.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/core/Error.h"
#include "testsupport/TempDir.h"

using namespace platform::automation;
using platform::Ref;

namespace {

// A document object that counts what its window tells it.
class Counting : public platform::Dispatch, public HostedDocument {
 public:
  const char* TypeName() const override { return "Counting"; }
  void WindowShown() override { ++shown; }
  void WindowResized(int w, int h) override { width = w, height = h; }
  int shown = 0, width = 0, height = 0;
};

}  // namespace

TEST(ToolWindow, HostsANewObjectOfTheRegisteredClass) {
  ClassRegistry::Register("Test.Counting", [] { return std::make_shared<Counting>(); });
  auto dte = std::make_shared<DTE>();
  Ref<platform::Dispatch> object;
  auto window = dte->Windows()->CreateToolWindow(nullptr, "Test.Counting", "Results", "{guid}", object);
  auto counting = platform::As<Counting>(object);
  EXPECT_EQ(window->Object(), object);
  EXPECT_EQ(window->Caption(), "Results");
  EXPECT_EQ(window->ObjectKind(), "{guid}");
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(counting->width, Windows::kToolWindowWidth);
  EXPECT_EQ(dte->Windows()->Count(), 1);

  window->Activate();
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(counting->shown, 1);
  EXPECT_EQ(dte->ActiveWindow(), window);
  window->SetVisible(true);
  EXPECT_EQ(counting->shown, 1);  // it was shown already
  window->Close(vsSaveChangesNo);
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(dte->Windows()->Count(), 0);
  EXPECT_EQ(dte->ActiveWindow(), nullptr);
  window->SetVisible(true);
  EXPECT_EQ(counting->shown, 2);
  EXPECT_EQ(dte->Windows()->Count(), 1);

  EXPECT_EQ(window->LinkedWindowFrame(), nullptr);
  auto frame = std::make_shared<Window>("frame", nullptr, nullptr, true);
  window->SetLinkedWindowFrame(frame);
  EXPECT_EQ(window->LinkedWindowFrame(), frame);
  window->Resize(1200, 2400);
  EXPECT_EQ(counting->height, 2400);

  try {
    dte->Windows()->CreateToolWindow(nullptr, "Test.Missing", "x", "{g}", object);
    FAIL();
  } catch (const platform::Error& e) {
    EXPECT_EQ(e.number, 429);
  }
}

TEST(TextSelection, MovesAsTheEditorDoesAndTheViewShowsTheLine) {
  testsupport::TempDir dir;
  auto path = dir.Write("A.cs", "one\ntwo\nthree\n");
  auto dte = std::make_shared<DTE>();
  auto doc = Document::Load(path, nullptr, dte, "", {});
  auto window = doc->OpenWindow(false);
  window->Activate();
  EXPECT_EQ(dte->ActiveDocument(), doc);
  EXPECT_EQ(dte->ActiveWindow(), window);

  auto text = doc->Object("TextDocument");
  auto selection = text->Selection();
  selection->MoveToLineAndOffset(2, 3);
  EXPECT_EQ(selection->ActivePoint()->Line(), 2);
  EXPECT_EQ(selection->ActivePoint()->LineCharOffset(), 3);
  EXPECT_TRUE(selection->IsEmpty());
  // Past the end: the last line (the empty one after the final break), at its end.
  selection->MoveToLineAndOffset(40, 9, true);
  EXPECT_EQ(selection->ActivePoint()->Line(), 4);
  EXPECT_FALSE(selection->IsEmpty());
  EXPECT_EQ(selection->TopPoint()->Line(), 2);
  EXPECT_EQ(selection->BottomPoint()->Line(), 4);
  EXPECT_THROW(selection->MoveToLineAndOffset(0, 1), platform::Error);

  auto point = text->StartPoint()->CreateEditPoint();
  point->MoveToLineAndOffset(3, 1);
  selection->MoveToPoint(point);
  EXPECT_TRUE(selection->IsEmpty());
  EXPECT_EQ(selection->CurrentLine(), 3);
  EXPECT_EQ(text->ShownLine(), 0);
  selection->TopPoint()->TryToShow(0);
  EXPECT_EQ(text->ShownLine(), 3);

  auto other = Document::FromText("/x/B.cs", "b", "");
  EXPECT_THROW(selection->MoveToPoint(other->Object("")->StartPoint()), platform::Error);
}

TEST(DTE, KnowsItsRegistryRoot) {
  DTE dte;
  EXPECT_EQ(dte.RegistryRoot(), "Software\\Microsoft\\VisualStudio\\8.0");
  dte.SetRegistryRoot("Software\\Microsoft\\VisualStudio\\9.0");
  EXPECT_EQ(dte.RegistryRoot().substr(dte.RegistryRoot().size() - 3), "9.0");
}
