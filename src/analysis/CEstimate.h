#pragma once
#include <cstdint>

#include "platform/core/Ref.h"

namespace platform::automation {
class ProjectItems;
}

namespace annotra {

/// Computes in advance how many steps a walk will take, for the progress display.
class CEstimate : public platform::Dispatch {
 public:
  const char* TypeName() const override { return "CEstimate"; }

  /// The size of the open-documents scope in lines: for each open document showing code
  /// text, its last line minus its first.
  int32_t EstimateOpenDocuments();
  /// The number of project items a project walk over `piXs` visits: sub-projects
  /// entered (not counted themselves), nested items counted before their parent, items
  /// of other collections skipped. 0 for no collection.
  int32_t EstimateProjectItems(const platform::Ref<platform::automation::ProjectItems>& piXs);
};

}  // namespace annotra
