#pragma once
#include <memory>

#include "platform/core/Error.h"

namespace platform {

/// A shared pointer to an automation object whose `->` and `*` fail with error 91
/// ("Object variable or With block variable not set") when it holds nothing, so that
/// reading a member of a missing object fails like any other statement.
template <class T>
class Ref : public std::shared_ptr<T> {
 public:
  using std::shared_ptr<T>::shared_ptr;
  Ref() = default;
  Ref(std::shared_ptr<T> p) : std::shared_ptr<T>(std::move(p)) {}  // NOLINT: implicit by design
  template <class U>
  Ref(const std::shared_ptr<U>& p) : std::shared_ptr<T>(p) {}  // NOLINT: upcast

  T* operator->() const {
    if (!this->get()) throw Error(err::kObjectNotSet);
    return this->get();
  }
  T& operator*() const { return *operator->(); }
};

/// The object seen through another of its interfaces; none when it has not that
/// interface (as TypeOf ... Is ... would answer).
template <class T, class U>
Ref<T> TryAs(const std::shared_ptr<U>& p) {
  return std::dynamic_pointer_cast<T>(p);
}

/// The object seen through another of its interfaces; fails with 13 (type mismatch)
/// when it has not that interface and with 91 when there is no object.
template <class T, class U>
Ref<T> As(const std::shared_ptr<U>& p) {
  if (!p) throw Error(err::kObjectNotSet);
  auto q = std::dynamic_pointer_cast<T>(p);
  if (!q) throw Error(err::kTypeMismatch);
  return q;
}

/// Base of every automation object: something that can be held by reference and asked
/// for its interfaces.
class Dispatch {
 public:
  virtual ~Dispatch() = default;
  /// The object's type name, as TypeName() would give it ("TextWindow", "Project", ...).
  virtual const char* TypeName() const = 0;
};

}  // namespace platform
