#include "platform/automation/Solution.h"

#include "platform/automation/Project.h"
#include "platform/core/Error.h"

namespace platform::automation {

Ref<Project> Projects::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(err::kInvalidCall);
  return m_items[index - 1];
}

}  // namespace platform::automation
