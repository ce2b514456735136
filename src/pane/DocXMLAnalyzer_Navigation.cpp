// The results document's way from a row to the code: showing the current row's
// finding in the editor, and stepping to the previous or next finding.

#include "host/MGlobals.h"
#include "host/Steps.h"
#include "pane/DocXMLAnalyzer.h"
#include "platform/automation/AutomationConstants.h"
#include "platform/automation/Document.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/automation/Window.h"
#include "platform/forms/MessageBox.h"

namespace annotra {

using platform::Ref;
namespace automation = platform::automation;
namespace grid = platform::grid;

int DocXMLAnalyzer::ColumnIndex(const char* key) const { return GridEx1.Column(key)->Index(); }

int32_t DocXMLAnalyzer::SelectInCode(const std::string&) {
  Steps step("Quillmark.DocXMLAnalyzer.SelectInCode");
  int32_t result = 0;
  int row = 0;
  step(2, [&] { row = GridEx1.Row(); });
  if (row < 1) return 0;
  Ref<grid::GridRow> data;
  step(3, [&] { data = GridEx1.RowAt(row); });
  if (!data || data->RowType() != grid::rtRecord) return 0;

  auto cell = [&](const char* key) { return platform::ToString(data->Value(ColumnIndex(key))); };
  Ref<automation::Project> project;
  Ref<automation::ProjectItem> item;
  Ref<automation::Window> window;
  Ref<automation::TextDocument> text;
  Quietly([&] { project = MGlobals::SearchProject(cell("Project")); });
  Quietly([&] { item = MGlobals::FindProjectItem(project, cell("Document"), cell("Path")); });
  Quietly([&] { window = item->Open(automation::vsViewKindCode); });
  Quietly([&] { window->Activate(); });
  Quietly([&] { text = window->Document()->Object("TextDocument"); });
  if (!text) {
    platform::forms::MsgBox("Could not locate item. The corresponding document is not reachable.",
                            platform::forms::vbExclamation, "Scribane");
    return 0;
  }

  Ref<automation::TextSelection> selection;
  step(8, [&] { selection = text->Selection(); });
  int32_t line = 0;
  Ref<automation::EditPoint> point;
  Quietly([&] { line = platform::ToInt32(data->Value(ColumnIndex("Start"))); });
  Quietly([&] { point = selection->ActivePoint()->CreateEditPoint(); });
  Quietly([&] { point->MoveToLineAndOffset(line, 1); });
  Quietly([&] { selection->MoveToLineAndOffset(line, 1, false); });
  Quietly([&] { selection->MoveToPoint(point, true); });
  Quietly([&] { selection->TopPoint()->TryToShow(0); });
  Quietly([&] { result = selection->ActivePoint()->Line(); });

  step(9, [&] {
    const int flag = ColumnIndex("Flag");
    if (platform::ToInt32(data->Value(flag)) == 0) {
      GridEx1.SetValue(flag, 2);
      GridEx1.Update();
    }
  });
  return result;
}

bool DocXMLAnalyzer::IsGridRecordSelected() {
  bool selected = false;
  Quietly([&] {
    auto row = GridEx1.RowAt(GridEx1.Row());
    if (row) selected = row->RowType() == grid::rtRecord;
  });
  return selected;
}

void DocXMLAnalyzer::GoToPrevious() { GoTo(-1, "Quillmark.DocXMLAnalyzer.GoToPrevious"); }

void DocXMLAnalyzer::GoToNext() { GoTo(+1, "Quillmark.DocXMLAnalyzer.GoToNext"); }

// The twins GoToPrevious (by -1: row 1 wraps to the last row) and GoToNext (by +1: the
// last row wraps to row 1).
void DocXMLAnalyzer::GoTo(int by, const std::string& source) {
  Steps step(source);
  int count = 0;
  step(1, [&] { count = GridEx1.RowCount(); });
  if (count == 0) return;
  const int wrapsAt = by < 0 ? 1 : count;
  const int wrapsTo = by < 0 ? count : 1;
  int start = 0;
  bool wrapped = false;
  Ref<grid::GridRow> candidate;
  step(2, [&] { start = GridEx1.Row(); });
  step(3, [&] {
    if (GridEx1.Row() == wrapsAt) {
      wrapped = true;
      GridEx1.SetRow(wrapsTo);
      candidate = GridEx1.RowAt(GridEx1.Row());
    } else {
      candidate = GridEx1.RowAt(GridEx1.Row() + by);
    }
  });
  step(4, [&] {
    if (candidate->RowType() == grid::rtGroupHeader) {
      for (;;) {
        if (candidate->RowType() != grid::rtGroupHeader) break;
        if (GridEx1.Row() == wrapsAt) {
          GridEx1.SetRow(wrapsTo);
          wrapped = true;
        } else {
          GridEx1.SetRow(GridEx1.Row() + by);
        }
        candidate = GridEx1.RowAt(GridEx1.Row());
        if (GridEx1.Row() == start) break;
      }
    } else if (!wrapped) {
      GridEx1.SetRow(GridEx1.Row() + by);
    }
  });
  step(6, [&] { FindSelectInCode.Raise(GridEx1); });
}

}  // namespace annotra
