#include "platform/codemodel/Declaration.h"

#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {

std::string Declaration::Prototype(bool withType) const {
  if (withType && prototypeType && !prototypeType->empty()) return *prototypeType + " " + name;
  return name;
}

bool KindHasMembers(int kind) {
  switch (kind) {
    case vsCMElementNamespace:
    case vsCMElementClass:
    case vsCMElementStruct:
    case vsCMElementInterface:
    case vsCMElementModule:
    case vsCMElementEnum:
      return true;
    default:
      return false;
  }
}

}  // namespace platform::codemodel
