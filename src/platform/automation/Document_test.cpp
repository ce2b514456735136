#include "platform/automation/Document.h"

#include <gtest/gtest.h>

#include "platform/automation/DTE.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "platform/core/Error.h"

using namespace platform::automation;

TEST(Document, AnyPartKeepsTheWholeDocumentAlive) {
  std::weak_ptr<Document> weak;
  platform::Ref<EditPoint> point;
  {
    auto doc = Document::FromText("/src/A.cs", "line1\nline2\nline3", "");
    weak = doc;
    point = doc->Object("TextDocument")->EndPoint()->CreateEditPoint();
  }
  ASSERT_FALSE(weak.expired());
  EXPECT_EQ(point->Line(), 3);
  EXPECT_EQ(point->Parent()->Parent()->Name(), "A.cs");
  point.reset();
  EXPECT_TRUE(weak.expired());
}

TEST(EditPoint, MovesByLinesAndReadsLinesAndText) {
  auto doc = Document::FromText("/src/A.vb", "a\r\nb\r\nc\r\n", "");
  auto text = doc->Object("");
  auto p = text->EndPoint()->CreateEditPoint();
  EXPECT_EQ(p->Line(), 4);
  p->LineUp();
  EXPECT_EQ(p->Line(), 3);
  EXPECT_EQ(p->GetLines(p->Line(), p->Line() + 1), "c");
  p->LineUp(10);
  EXPECT_EQ(p->Line(), 1);
  EXPECT_EQ(p->GetText(text->EndPoint()), "a\r\nb\r\nc\r\n");
  EXPECT_THROW(p->GetLines(0, 1), platform::Error);
  // A line past the end is the last line, as in the editor; below 1 is an error.
  p->MoveToLineAndOffset(9, 7);
  EXPECT_EQ(p->Line(), 4);
  EXPECT_THROW(p->MoveToLineAndOffset(0, 1), platform::Error);
  EXPECT_THROW(doc->Object("Other"), platform::Error);
}

TEST(Document, OpeningJoinsTheOpenDocumentsAndClosingLeavesThem) {
  auto dte = std::make_shared<DTE>();
  auto doc = Document::FromText("/src/A.cs", "x", "");
  // A document made from text has no environment: it cannot be closed.
  EXPECT_THROW(doc->Close(), platform::Error);
  auto window = doc->OpenWindow(false);
  EXPECT_FALSE(window->Visible());
  EXPECT_STREQ(window->Object()->TypeName(), "TextWindow");
  EXPECT_EQ(doc->Windows()->Count(), 1);
  EXPECT_EQ(dte->Documents()->Count(), 0);
}
