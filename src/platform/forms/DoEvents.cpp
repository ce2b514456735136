#include "platform/forms/DoEvents.h"

#include <deque>
#include <utility>

namespace platform::forms {
namespace {
std::deque<std::function<void()>>& Queue() {
  static std::deque<std::function<void()>> queue;
  return queue;
}
}  // namespace

void DoEvents() {
  auto ready = std::move(Queue());
  Queue().clear();
  for (auto& action : ready) action();
}

void PostAction(std::function<void()> action) { Queue().push_back(std::move(action)); }

int PendingActions() { return static_cast<int>(Queue().size()); }

}  // namespace platform::forms
