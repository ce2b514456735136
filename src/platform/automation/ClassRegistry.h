#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/core/Ref.h"

namespace platform::automation {

/// The classes the environment can create by name (their ProgIDs), as a component
/// registers them when it is installed: a tool window hosts a document made here.
namespace ClassRegistry {

using Factory = std::function<std::shared_ptr<Dispatch>()>;

/// Registers (or replaces) the class `progID`.
void Register(const std::string& progID, Factory factory);
/// Whether `progID` is registered.
bool IsRegistered(const std::string& progID);
/// A new object of the class `progID`; fails with 429 when no class is registered
/// under that name or the class makes nothing.
Ref<Dispatch> CreateObject(const std::string& progID);

}  // namespace ClassRegistry
}  // namespace platform::automation
