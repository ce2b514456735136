#include "platform/automation/ClassRegistry.h"

#include <map>

#include "platform/core/Error.h"

namespace platform::automation::ClassRegistry {

namespace {
std::map<std::string, Factory>& Classes() {
  static std::map<std::string, Factory> classes;
  return classes;
}
constexpr int kCannotCreate = 429;
}  // namespace

void Register(const std::string& progID, Factory factory) { Classes()[progID] = std::move(factory); }

bool IsRegistered(const std::string& progID) { return Classes().count(progID) > 0; }

Ref<Dispatch> CreateObject(const std::string& progID) {
  auto it = Classes().find(progID);
  if (it == Classes().end())
    throw Error(kCannotCreate, "ActiveX component can't create object: \"" + progID + "\" is not registered");
  auto object = it->second();
  if (!object) throw Error(kCannotCreate, "ActiveX component can't create object \"" + progID + "\"");
  return object;
}

}  // namespace platform::automation::ClassRegistry
