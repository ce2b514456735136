#pragma once
#include <functional>

namespace platform::forms {

/// The host's message pump. DoEvents runs, in order, every action that was posted before
/// it was called (queued user actions, due timers); actions posted while it runs wait for
/// the next call. Tests post actions to make a host command arrive in the middle of an
/// operation.
void DoEvents();

/// Queues `action` to run at the next DoEvents.
void PostAction(std::function<void()> action);

/// The number of actions waiting.
int PendingActions();

}  // namespace platform::forms
