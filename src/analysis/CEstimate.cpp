#include "analysis/CEstimate.h"

#include "host/MGlobals.h"
#include "host/Steps.h"
#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/ProjectItems.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"

namespace annotra {

using namespace platform::automation;
using platform::Ref;

int32_t CEstimate::EstimateOpenDocuments() {
  Steps step("Quillmark.CEstimate.EstimateOpenDocuments");
  int32_t total = 0;
  Ref<Documents> documents;
  step(2, [&] { documents = MGlobals::DTEObject->Documents(); });
  if (!documents) return total;
  for (const Ref<Document>& document : *documents) {
    bool visible = false;
    step(2, [&] { visible = MGlobals::HasDocumentTextCodeVisible(document); });
    if (!visible) continue;
    Ref<TextDocument> text;
    Quietly([&] { text = document->Object("TextDocument"); });
    if (text) step(2, [&] { total += text->EndPoint()->Line() - text->StartPoint()->Line(); });
  }
  return total;
}

int32_t CEstimate::EstimateProjectItems(const Ref<ProjectItems>& piXs) {
  if (!piXs) return 0;
  int32_t total = 0;
  int count = 0;
  Quietly([&] { count = piXs->Count(); });
  for (int i = 1; i <= count; ++i) {
    Quietly([&] {
      auto item = piXs->Item(i);
      if (!item) return;
      if (auto sub = item->SubProject()) {
        total += EstimateProjectItems(sub->ProjectItems());
        return;
      }
      if (item->Collection().get() != piXs.get()) return;
      Quietly([&] {
        auto children = item->ProjectItems();
        if (children && children->Count() > 0) total += EstimateProjectItems(children);
      });
      total += 1;
    });
  }
  return total;
}

}  // namespace annotra
